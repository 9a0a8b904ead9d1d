#ifndef TIPPIPE_H
#define TIPPIPE_H

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>
#include <linux/input.h>
#include <sys/stat.h>
#include <unistd.h>

/* A pipe that stands in for the input device of a tip switch. */
class TipPipe
{
public:
    TipPipe() : m_path(QFile::encodeName(m_folder.filePath("tip")))
    {
        if (::mkfifo(m_path.constData(), 0600) == 0)
            m_fd = ::open(m_path.constData(), O_RDWR | O_CLOEXEC);
    }
    ~TipPipe() { ::close(m_fd); }
    TipPipe(const TipPipe&) = delete;
    TipPipe& operator=(const TipPipe&) = delete;

    QByteArray path() const { return m_path; }

    /* A key's record, and the one that ends a report. */
    void send(int code, int value)
    {
        input_event events[2] = {};
        events[0].type = EV_KEY;
        events[0].code = static_cast<__u16>(code);
        events[0].value = value;
        sendBytes(events, sizeof events);
    }
    void sendBytes(const void* bytes, std::size_t count)
    {
        if (::write(m_fd, bytes, count) != ssize_t(count))
            qFatal("the pipe takes nothing");
    }

private:
    QTemporaryDir m_folder;
    QByteArray m_path;
    int m_fd = -1;
};

#endif
