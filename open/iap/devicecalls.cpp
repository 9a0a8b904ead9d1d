#include "open/iap/devicecalls.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <unistd.h>

int DeviceCalls::open(const char* path)
{
    return ::open(path, O_RDWR | O_NONBLOCK | O_CLOEXEC);
}

int DeviceCalls::close(int fd)
{
    return ::close(fd);
}

int DeviceCalls::control(int fd, unsigned long request, void* argument)
{
    int result = 0;
    do
        result = ::ioctl(fd, request, argument);
    while (result < 0 && errno == EINTR);
    return result;
}

void* DeviceCalls::map(std::size_t length, int fd, unsigned long offset)
{
    void* start =
        ::mmap(nullptr, length, PROT_READ | PROT_WRITE, MAP_SHARED, fd, static_cast<off_t>(offset));
    return start == MAP_FAILED ? nullptr : start;
}

void DeviceCalls::unmap(void* start, std::size_t length)
{
    ::munmap(start, length);
}
