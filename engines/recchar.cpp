#include "engines/recchar.h"

#include "editor/myedit.h"
#include "engines/scanstart.h"
#include "engines/stimg.h"
#include "engines/ttsplayer.h"
#include "store/configreader.h"
#include "store/launcher.h"

Receiver<MyEdit> RecChar::editScan;
QStack<MyEdit*> RecChar::editStatck;

RecChar::RecChar(MyEdit* edit)
{
    if (MyEdit* const before = editScan)
        editStatck.push(before);
    editScan = edit;
}

RecChar::~RecChar()
{
    ZEMBRA_IAP_Uninitialize();
    if (!editStatck.isEmpty())
        editScan = editStatck.pop();
}

void RecChar::setEdit(MyEdit* edit)
{
    editScan = edit;
}

int RecChar::init()
{
    const int direction = ConfigReader::Instance()->getScanDirectInfo();
    return scanstart::startEngine(direction, &RecChar::ReceivePanoImage) == 0 ? 0 : -1;
}

int RecChar::Uninitial()
{
    return ZEMBRA_IAP_Uninitialize() == 0 ? 0 : -1;
}

void RecChar::forget(const MyEdit* edit)
{
    editScan.forget(edit);
    editStatck.removeIf([edit](const MyEdit* waiting) { return waiting == edit; });
}

int RecChar::ReceivePanoImage(void* context, unsigned char* image, int width, int height,
                              unsigned char flag, char* extra)
{
    Q_UNUSED(context)
    Q_UNUSED(extra)
    TTSPlayer::Instance()->stop();
    launcher::tellSwipe();
    if (!image)
        return -1;

    _stImg* const record = makeImage(image, width, height, flag);
    if (!editScan.call([record](MyEdit& edit) { edit.tirggleEditSingal(record); }))
        releaseImage(record);
    return 0;
}
