#ifndef WAKESIGNAL_H
#define WAKESIGNAL_H

#include <cerrno>

#include <sys/eventfd.h>
#include <unistd.h>

/* Wakes a thread that polls descriptors: once raised, fd() stays readable. */
class WakeSignal
{
public:
    WakeSignal() : m_fd(::eventfd(0, EFD_CLOEXEC)) {}
    ~WakeSignal()
    {
        if (m_fd >= 0)
            ::close(m_fd);
    }
    WakeSignal(const WakeSignal&) = delete;
    WakeSignal& operator=(const WakeSignal&) = delete;

    /* -1 when there are no more descriptors: nothing can be woken then. */
    int fd() const { return m_fd; }

    /* Any thread. */
    void raise() const
    {
        while (::eventfd_write(m_fd, 1) != 0 && errno == EINTR)
            ;
    }

private:
    int m_fd;
};

#endif
