#include "engines/csoundtransthread.h"

#include <utility>

CSoundTransThread::CSoundTransThread(Sound sound) : ReadingThread(std::move(sound)) {}

void CSoundTransThread::setContent(const QString& text)
{
    m_newScan = false;
    ReadingThread::setContent(text);
}

void CSoundTransThread::haveNewScan()
{
    m_newScan = true;
}
