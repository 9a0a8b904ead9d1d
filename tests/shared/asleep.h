#ifndef TESTS_ASLEEP_H
#define TESTS_ASLEEP_H

#include <QFile>
#include <QTest>

#include <atomic>

#include <unistd.h>

/* Whether a thread of this process (as gettid() tells it) sleeps in the kernel. */
inline bool isAsleep(pid_t thread)
{
    QFile file(QStringLiteral("/proc/self/task/%1/stat").arg(thread));
    if (thread == 0 || !file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray line = file.readAll();
    return line.mid(line.lastIndexOf(')') + 2, 1) == "S";
}

/* Until the thread waits for something. A thread sleeps now and then for a moment, too; so it is
 * looked at until it has been found asleep so many times in a row, some 10 ms apart. False when
 * that does not come, as with a thread that has ended. 0 stands for a thread that is still to come.
 */
inline bool waitUntilAsleep(const std::atomic<pid_t>& thread, int looks = 5)
{
    int inARow = 0;
    return QTest::qWaitFor([&] {
        inARow = isAsleep(thread) ? inARow + 1 : 0;
        return inARow >= looks;
    });
}

#endif
