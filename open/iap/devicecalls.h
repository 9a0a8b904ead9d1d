#ifndef DEVICECALLS_H
#define DEVICECALLS_H

#include <cstddef>

/* The kernel's calls by which a camera is driven: results and errno as the kernel's. A class, so
 * that tests can be the camera. */
class DeviceCalls
{
public:
    virtual ~DeviceCalls() = default;
    DeviceCalls() = default;
    DeviceCalls(const DeviceCalls&) = delete;
    DeviceCalls& operator=(const DeviceCalls&) = delete;

    virtual int open(const char* path); // for reading and writing, without waiting
    virtual int close(int fd);
    virtual int control(int fd, unsigned long request,
                        void* argument); // ioctl, again when interrupted
    virtual void* map(std::size_t length, int fd, unsigned long offset); // null when it fails
    virtual void unmap(void* start, std::size_t length);
};

#endif
