#include "engines/crecthread.h"

#include "editor/myedit.h"
#include "engines/stimg.h"

CRecThread::CRecThread(MyEdit* edit) : m_edit(edit) {}

CRecThread::~CRecThread()
{
    wait();
    releaseImage(m_image.exchange(nullptr));
}

void CRecThread::setImg(_stImg* image)
{
    releaseImage(m_image.exchange(image));
}

void CRecThread::run()
{
    _stImg* const image = m_image.exchange(nullptr);
    if (!image)
        return;
    if (m_edit)
        m_edit->RecThread(image);
    else
        releaseImage(image);
}
