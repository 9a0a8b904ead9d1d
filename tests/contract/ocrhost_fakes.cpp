#include "tests/contract/ocrhost.h"
#include "tests/fakes/fakeocr.h"

QByteArray ocrhost::dataFolder()
{
    return "/nowhere/ocrrec/";
}

void ocrhost::nextPictureReads(const QString& text)
{
    FakeOcr::queueResult(text.toStdU16String());
}
