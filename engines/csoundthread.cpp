#include "engines/csoundthread.h"

#include "editor/myedit.h"
#include "engines/ttsplayer.h"

CSoundThread::CSoundThread(MyEdit* edit) : m_edit(edit)
{
    connect(this, &QThread::finished, this, &CSoundThread::resume);
}

CSoundThread::~CSoundThread()
{
    finish(m_queue);
}

void CSoundThread::setContent(const QString& text)
{
    m_queue.add(text);
}

void CSoundThread::clearContent()
{
    m_queue.clear();
}

void CSoundThread::run()
{
    readNewest(m_queue, &TTSPlayer::beginRequest, [this](QString& text) {
        if (m_edit)
            m_edit->Sound(text);
    });
}

// The thread ends through an empty queue only: what is there now came between its last look and
// its end, when the owner still saw it running.
void CSoundThread::resume()
{
    if (!m_queue.isEmpty())
        start();
}
