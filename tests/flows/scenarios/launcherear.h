#ifndef LAUNCHEREAR_H
#define LAUNCHEREAR_H

#include <QStringList>
#include <memory>

/*
 * Listens on the launcher's channel on a thread of its own, so that what the application sends as
 * it ends is heard too. Messages are kept as "execute(QString) trigger".
 *
 * Made after the run root. The functions are called on the interface thread.
 */
class LauncherEar
{
public:
    LauncherEar();
    ~LauncherEar();

    LauncherEar(const LauncherEar&) = delete;
    LauncherEar& operator=(const LauncherEar&) = delete;

    /* What came since the last call, up to everything that has been sent by now. */
    QStringList take();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

#endif
