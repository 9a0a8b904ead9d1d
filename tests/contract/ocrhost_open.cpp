#include "tests/contract/ocrhost.h"
#include "tests/unit/open/printedline.h"

QByteArray ocrhost::dataFolder()
{
    return InstalledModels;
}

// What stands on the picture is printed there.
void ocrhost::nextPictureReads(const QString&) {}
