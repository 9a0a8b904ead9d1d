#ifndef QCOPFOLDER_H
#define QCOPFOLDER_H

#include <QByteArray>
#include <QString>

#include <sys/un.h>
#include <utility>

namespace qcop {

/* A file descriptor that is closed with its owner. */
class Descriptor
{
public:
    explicit Descriptor(int fd = -1) : m_fd(fd) {}
    ~Descriptor() { reset(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int get() const { return m_fd; }
    bool isOpen() const { return m_fd >= 0; }
    void reset(int fd = -1);
    int release() { return std::exchange(m_fd, -1); }

private:
    int m_fd;
};

/*
 * The folder that holds the sockets of all channels of one user:
 * $XDG_RUNTIME_DIR/swipeline-qcop-UID, or /tmp/swipeline-qcop-UID below the run root when the
 * variable is not set to an absolute path.
 */
QString folderPath();

/* Opens the folder, making it first when `create` is set. It must be a folder of this user's and
 * no link; others are locked out of it. Returns the descriptor, -1 when there is no such folder
 * (errno ENOENT) or it cannot be trusted. */
int openFolder(bool create);

/* The address of `name` in the folder that `folder` has open. It goes through /proc/self/fd, so
 * that its length does not depend on where the folder lies: an address holds 108 bytes at most. */
sockaddr_un addressIn(int folder, const QByteArray& name);

} // namespace qcop

#endif
