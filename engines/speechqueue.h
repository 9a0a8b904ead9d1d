#ifndef SPEECHQUEUE_H
#define SPEECHQUEUE_H

#include <atomic>
#include <mutex>
#include <utility>
#include <vector>

/*
 * Texts waiting to be spoken, of which only the newest counts: taking it drops the older ones.
 *
 * Any thread. Independent of Qt's threads, so that its logic can be run under ThreadSanitizer.
 */
template <class Text> class SpeechQueue
{
public:
    void add(Text text)
    {
        const std::lock_guard lock(m_mutex);
        if (!m_closed)
            m_texts.push_back(std::move(text));
    }

    void clear()
    {
        const std::lock_guard lock(m_mutex);
        m_texts.clear();
    }

    /* Empties the queue for good: nothing can be added any more. */
    void close()
    {
        const std::lock_guard lock(m_mutex);
        m_closed = true;
        m_texts.clear();
    }

    bool isEmpty() const
    {
        const std::lock_guard lock(m_mutex);
        return m_texts.empty();
    }

    /* Moves the newest text into `text` and empties the queue. False when there is none.
     * `taken()` is called in one step with it: what was done before the text was added is before
     * the call, what is done after it cannot be between text and call. */
    template <class Taken> bool takeNewest(Text& text, Taken&& taken)
    {
        const std::lock_guard lock(m_mutex);
        if (m_texts.empty())
            return false;
        text = std::move(m_texts.back());
        m_texts.clear();
        taken();
        return true;
    }

private:
    mutable std::mutex m_mutex;
    std::vector<Text> m_texts;
    bool m_closed = false;
};

/* Work of a worker that reads aloud: the newest text, until the queue is empty. For each text
 * `taken()` is called as it leaves the queue, then `speak(text)`. */
template <class Text, class Taken, class Speak>
void readNewest(SpeechQueue<Text>& queue, Taken&& taken, Speak&& speak)
{
    Text text;
    while (queue.takeNewest(text, taken))
        speak(text);
}

/* Why a round of menu speech ended. */
enum class MenuSpeechEnd { QueuesEmpty, Muted, KeyPressed };

/*
 * Work of the worker that speaks menus: the newest menu text, and when there is none the newest
 * instruction, until both queues are empty.
 *
 * keyFlag  cleared before each text; set while one is spoken, it ends the work after that text,
 *          and what is queued behind stays unspoken.
 * muted    asked after a text was taken: true ends the work without speaking.
 */
template <class Text, class Taken, class Muted, class Speak>
MenuSpeechEnd speakMenus(SpeechQueue<Text>& contents, SpeechQueue<Text>& instructions,
                         std::atomic<bool>& keyFlag, Taken&& taken, Muted&& muted, Speak&& speak)
{
    Text text;
    for (;;) {
        keyFlag = false;
        if (!contents.takeNewest(text, taken) && !instructions.takeNewest(text, taken))
            return MenuSpeechEnd::QueuesEmpty;
        if (muted())
            return MenuSpeechEnd::Muted;
        speak(text);
        if (keyFlag.exchange(false))
            return MenuSpeechEnd::KeyPressed;
    }
}

#endif
