#ifndef CSOUNDTHREAD_H
#define CSOUNDTHREAD_H

#include "engines/readingthread.h"

class MyEdit;

/* Reads the editor's texts aloud, by MyEdit::Sound(). */
class CSoundThread : public ReadingThread
{
    Q_OBJECT

public:
    /* `edit` is not owned and outlives the thread object. */
    explicit CSoundThread(MyEdit* edit);
};

#endif
