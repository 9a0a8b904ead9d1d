#include "tests/fakes/fakesystem.h"

#include "platform/systemcalls.h"
#include "tests/fakes/calllog.h"

#include <QFile>
#include <atomic>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr qint64 PlentyOfBytes = 100 * 1024 * 1024;

std::atomic<qint64> freeBytesLeft{PlentyOfBytes};
std::atomic<bool> makeDirectoryFails{false};

std::string callText(const char* function, const QString& path)
{
    return std::string(function) + "(" + fakes::penPath(QFile::encodeName(path).constData()) + ")";
}

} // namespace

void FakeSystem::reset()
{
    freeBytesLeft = PlentyOfBytes;
    makeDirectoryFails = false;
}

void FakeSystem::setFreeBytes(qint64 bytes)
{
    freeBytesLeft = bytes;
}

void FakeSystem::setMakeDirectoryFails(bool fails)
{
    makeDirectoryFails = fails;
}

namespace systemcalls {

void syncStorage()
{
    CallLog::add("syncStorage()");
}

void dropPageCache()
{
    CallLog::add("dropPageCache()");
}

void sleepMicroseconds(unsigned microseconds)
{
    CallLog::add("sleepMicroseconds(" + std::to_string(microseconds) + ")");
}

bool makeDirectory(const QString& path)
{
    CallLog::add(callText("makeDirectory", path));
    return !makeDirectoryFails && ::mkdir(QFile::encodeName(path).constData(), 0777) == 0;
}

bool freeBytes(const QString& path, quint64& bytes)
{
    CallLog::add(callText("freeBytes", path));
    const qint64 left = freeBytesLeft;
    if (left < 0)
        return false;
    bytes = static_cast<quint64>(left);
    return true;
}

qint64 writeAt(int file, const char* data, qint64 length, qint64 offset)
{
    return ::pwrite(file, data, static_cast<std::size_t>(length), offset);
}

} // namespace systemcalls
