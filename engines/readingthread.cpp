#include "engines/readingthread.h"

#include "engines/ttsplayer.h"

#include <utility>

ReadingThread::ReadingThread(Sound sound) : m_sound(std::move(sound))
{
    connect(this, &QThread::finished, this, &ReadingThread::resume);
}

ReadingThread::~ReadingThread()
{
    finish(m_queue);
}

void ReadingThread::setContent(const QString& text)
{
    m_queue.add(text);
}

void ReadingThread::clearContent()
{
    m_queue.clear();
}

void ReadingThread::run()
{
    readNewest(m_queue, &TTSPlayer::beginRequest, m_sound);
}

// The thread ends through an empty queue only: what is there now came between its last look and
// its end, when the owner still saw it running.
void ReadingThread::resume()
{
    if (!m_queue.isEmpty())
        start();
}
