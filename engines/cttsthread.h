#ifndef CTTSTHREAD_H
#define CTTSTHREAD_H

#include "engines/speechworker.h"

#include <mutex>

/*
 * Speaks menu items and instructions: the newest item, else the newest instruction, until nothing
 * is queued, a key cuts the speech short (g_KeyFlag) or talking menus turn out to be off.
 *
 * Voice, volume and speed are read from the settings file for each text. The owner queues a text
 * and starts the thread if it is not running. The destructor silences the player and waits.
 */
class CTTSThread : public SpeechWorker
{
    Q_OBJECT

public:
    CTTSThread();
    ~CTTSThread() override;

    /* Queues a menu item. Any thread. */
    void setContent(const QString& text);

    /* Queues an instruction. Any thread. */
    void setInstructStr(const QString& text);

    /* Forgets the menu item set last; what is queued stays queued. Any thread. */
    void clearContent();

    /* Forgets the queued instructions. Any thread. */
    void clearInstruct();

    /* Forgets all that is queued. With a stop of the player after it, nothing that was queued
     * before is spoken, whether the thread has taken it already or not. Any thread. */
    void forgetQueued();

protected:
    void run() override;

private:
    void resume();
    static void speak(const QString& text);

    std::mutex m_mutex; // guards m_content
    QString m_content;
    SpeechQueue<QString> m_contents;
    SpeechQueue<QString> m_instructions;
    std::atomic<bool> m_ranDry{false};
};

#endif
