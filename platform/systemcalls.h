/* SPDX-License-Identifier: 0BSD */
/*
 * The system calls that act on the whole machine, or whose outcome is up to the device's storage,
 * behind names of their own: off the device they must not touch the machine, storage can be made to
 * refuse, and tests must see the order in which they come.
 *
 * Threads: any.
 */
#ifndef SYSTEMCALLS_H
#define SYSTEMCALLS_H

#include <QString>
#include <QtGlobal>

namespace systemcalls {

/* sync(2): everything written so far is on its way to the storage when this returns. Off the
 * device only the file system of the run root is synced. */
void syncStorage();

/* "echo 3 > /proc/sys/vm/drop_caches" without a shell. Off the device (SWIPELINE_ROOT set) the 3
 * is written to that file below the run root instead. Failure is silent: it is an advice. */
void dropPageCache();

/* usleep(3). */
void sleepMicroseconds(unsigned microseconds);

/* "mkdir" of one folder given by its place on this machine (see devicePath()); parents are not
 * made. Mode 0777 less the umask. False when it could not be made. No shell is involved: the path
 * may hold any character. */
bool makeDirectory(const QString& path);

/* statfs(2): block size times free blocks of the file system that holds `path`, a place on this
 * machine. False when it cannot be told; `bytes` is then untouched. */
bool freeBytes(const QString& path, quint64& bytes);

/* pwrite(2) to an open file: the bytes written, which may be fewer than `length`; -1 and errno on
 * failure. ENOSPC: the storage has no room for what lies behind the end of the file. */
qint64 writeAt(int file, const char* data, qint64 length, qint64 offset);

} // namespace systemcalls

#endif
