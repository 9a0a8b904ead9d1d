#ifndef READINGTHREAD_H
#define READINGTHREAD_H

#include "engines/speechworker.h"

#include <functional>

/*
 * Reads the texts of a screen aloud: hands the newest queued text to the screen's function, which
 * returns when it has been spoken or stopped, until the queue is empty.
 *
 * The owner queues a text and starts the thread if it is not running. A text that is queued just
 * as the thread ends starts it once more by itself. The destructor silences the player and waits.
 */
class ReadingThread : public SpeechWorker
{
    Q_OBJECT

public:
    using Sound = std::function<void(QString&)>;

    /* `sound` is called on this thread; what it uses outlives the thread object. */
    explicit ReadingThread(Sound sound);
    ~ReadingThread() override;

    /* Queues a text. Any thread. */
    void setContent(const QString& text);

    /* Forgets the texts that are queued. Any thread. */
    void clearContent();

protected:
    void run() override;

private:
    void resume();

    Sound m_sound;
    SpeechQueue<QString> m_queue;
};

#endif
