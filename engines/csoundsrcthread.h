#ifndef CSOUNDSRCTHREAD_H
#define CSOUNDSRCTHREAD_H

#include "engines/speechworker.h"

#include <functional>

/*
 * Reads the source text of the translate screen aloud: one run reads once. The screen knows the
 * text itself and is handed an empty one; what is queued is not read. The destructor silences the
 * player and waits.
 */
class CSoundSrcThread : public SpeechWorker
{
    Q_OBJECT

public:
    using Sound = std::function<void(QString&)>;

    /* `sound` prepares and speaks the source text; called on this thread. What it uses outlives
     * the thread object. */
    explicit CSoundSrcThread(Sound sound);
    ~CSoundSrcThread() override;

    /* Queues a text. Any thread. */
    void setContent(const QString& text);

    /* Forgets the texts that are queued. Any thread. */
    void clearContent();

protected:
    void run() override;

private:
    Sound m_sound;
    SpeechQueue<QString> m_queue;
};

#endif
