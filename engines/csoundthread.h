#ifndef CSOUNDTHREAD_H
#define CSOUNDTHREAD_H

#include "engines/speechworker.h"

class MyEdit;

/*
 * Reads the editor's texts aloud: hands the newest queued text to MyEdit::Sound(), until the
 * queue is empty.
 *
 * The owner queues a text and starts the thread if it is not running. A text that is queued just
 * as the thread ends starts it once more by itself. The destructor silences the player and waits.
 */
class CSoundThread : public SpeechWorker
{
    Q_OBJECT

public:
    /* `edit` is not owned and outlives the thread object. */
    explicit CSoundThread(MyEdit* edit);
    ~CSoundThread() override;

    /* Queues a text. Any thread. */
    void setContent(const QString& text);

    /* Forgets the texts that are queued. Any thread. */
    void clearContent();

protected:
    void run() override;

private:
    void resume();

    MyEdit* m_edit;
    SpeechQueue<QString> m_queue;
};

#endif
