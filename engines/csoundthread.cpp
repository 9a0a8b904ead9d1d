#include "engines/csoundthread.h"

#include "editor/myedit.h"

CSoundThread::CSoundThread(MyEdit* edit)
    : ReadingThread([edit](QString& text) {
          if (edit)
              edit->Sound(text);
      })
{
}
