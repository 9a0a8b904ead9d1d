#include "open/qcop/qcopfolder.h"

#include "platform/devicepaths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace qcop {

void Descriptor::reset(int fd)
{
    if (m_fd >= 0)
        ::close(m_fd);
    m_fd = fd;
}

QString folderPath()
{
    const QString leaf = QStringLiteral("/swipeline-qcop-%1").arg(::geteuid());
    const QString runtime = QFile::decodeName(qgetenv("XDG_RUNTIME_DIR"));
    if (runtime.startsWith(u'/'))
        return runtime + leaf;
    return devicePath(QStringLiteral("/tmp") + leaf);
}

int openFolder(bool create)
{
    const QString path = folderPath();
    const QByteArray encoded = QFile::encodeName(path);
    if (create) {
        QDir().mkpath(QFileInfo(path).path());
        ::mkdir(encoded.constData(), 0700); // fails when it exists: the checks below decide
    }
    Descriptor folder(::open(encoded.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!folder.isOpen())
        return -1;
    struct stat info = {};
    if (::fstat(folder.get(), &info) != 0 || info.st_uid != ::geteuid()) {
        errno = EACCES;
        return -1;
    }
    if ((info.st_mode & 0077) != 0 && ::fchmod(folder.get(), 0700) != 0)
        return -1;
    return folder.release();
}

sockaddr_un addressIn(int folder, const QByteArray& name)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const QByteArray path = "/proc/self/fd/" + QByteArray::number(folder) + '/' + name;
    std::strncpy(address.sun_path, path.constData(), sizeof address.sun_path - 1);
    return address;
}

} // namespace qcop
