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

    // Always read as a horizontal line: the scan engine hands over a vertical one as a row, too.
    // Only the marks of vertical setting are then not set back to those of a row.
    QString text;
    OCRPen::Instance()->recognize(image, width, height, ZEMBRA_IAP_HORIZONTAL, flag, text);
    if (!text.isEmpty())
        editScan.call([&text](MainWindow& window) { window.tirggleEditSingal(text); });
    return 0;
}
