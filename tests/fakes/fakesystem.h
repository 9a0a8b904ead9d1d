#ifndef FAKESYSTEM_H
#define FAKESYSTEM_H

#include <QtGlobal>

/*
 * Control of the recorded system calls behind platform/systemcalls.h: they are written into the
 * call log ("syncStorage()", "makeDirectory(/mnt/mmc/e_ScanFile)"), folders are really made, and
 * nothing else acts on the machine. Any thread.
 */
class FakeSystem
{
public:
    static void reset();

    /* What systemcalls::freeBytes() tells; -1 that it cannot be told. 100 MB after reset(). */
    static void setFreeBytes(qint64 bytes);

    /* Makes systemcalls::makeDirectory() fail without making anything, or work again. */
    static void setMakeDirectoryFails(bool fails);
};

#endif
