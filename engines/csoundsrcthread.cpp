#include "engines/csoundsrcthread.h"

#include "engines/ttsplayer.h"

#include <utility>

CSoundSrcThread::CSoundSrcThread(Sound sound) : m_sound(std::move(sound)) {}

CSoundSrcThread::~CSoundSrcThread()
{
    finish(m_queue);
}

void CSoundSrcThread::setContent(const QString& text)
{
    m_queue.add(text);
}

void CSoundSrcThread::clearContent()
{
    m_queue.clear();
}

void CSoundSrcThread::run()
{
    TTSPlayer::beginRequest();
    QString none;
    m_sound(none);
}
