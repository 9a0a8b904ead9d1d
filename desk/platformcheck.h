#ifndef PLATFORMCHECK_H
#define PLATFORMCHECK_H

#include <QtGlobal>
#include <functional>

/*
 * While it lives, a window system that cannot be reached ends the process with a sentence and the
 * exit code 2, instead of the abort with which Qt ends it. For the time in which the application
 * object is made; one at a time.
 *
 * `tidyUp` is called before such an end.
 */
class PlatformCheck
{
public:
    explicit PlatformCheck(std::function<void()> tidyUp);
    ~PlatformCheck();
    Q_DISABLE_COPY_MOVE(PlatformCheck)
};

#endif
