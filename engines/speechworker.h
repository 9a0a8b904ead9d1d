#ifndef SPEECHWORKER_H
#define SPEECHWORKER_H

#include "engines/speechqueue.h"

#include <QString>
#include <QThread>

/*
 * What the threads that speak from a queue have in common: they end themselves cleanly.
 *
 * A derived class calls finish() in its destructor, while its run() can still be called.
 */
class SpeechWorker : public QThread
{
    Q_OBJECT

public:
    ~SpeechWorker() override;

protected:
    SpeechWorker() = default;

    /* Empties the queue for good, silences the player and waits until the thread has ended. */
    void finish(SpeechQueue<QString>& queue);
};

#endif
