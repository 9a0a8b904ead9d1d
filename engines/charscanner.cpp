#include "engines/charscanner.h"

#include "app/mainwindow.h"
#include "engines/ocrpen.h"
#include "engines/scanstart.h"
#include "engines/stimg.h"
#include "store/configreader.h"
#include "store/launcher.h"

Receiver<MainWindow> CharScanner::editScan;

CharScanner::CharScanner(MainWindow* window)
{
    editScan = window;
}

void CharScanner::start()
{
    const int direction = ConfigReader::Instance()->getScanDirectDict();
    scanstart::startEngine(direction, &CharScanner::ReceivePanoImage);
}

int CharScanner::stop()
{
    ZEMBRA_IAP_Uninitialize();
    return 0;
}

void CharScanner::forget(const MainWindow* window)
{
    editScan.forget(window);
}

int CharScanner::ReceivePanoImage(void* context, unsigned char* image, int width, int height,
                                  unsigned char flag, char* extra)
{
    Q_UNUSED(context)
    Q_UNUSED(extra)
    launcher::tellSwipe();
    if (!image)
        return -1;
    if (!isSaneImageSize(width, height))
        return 0;

    // A name is one line across the page, whatever direction is set for texts.
    QString text;
    OCRPen::Instance()->recognize(image, width, height, ZEMBRA_IAP_HORIZONTAL, flag, text);
    if (!text.isEmpty())
        editScan.call([&text](MainWindow& window) { window.tirggleEditSingal(text); });
    return 0;
}
