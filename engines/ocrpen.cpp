#include "engines/ocrpen.h"

#include "platform/devicepaths.h"
#include "platform/zembra_ocr.h"

#include <QByteArray>
#include <QFile>
#include <mutex>
#include <shared_mutex>

std::atomic<void*> pOcrHandle{nullptr};
std::atomic<OCRPen*> OCRPen::ocr{nullptr};

namespace {

std::mutex instanceMutex;

// The engine wants one recognition at a time for a handle.
std::mutex recogniseMutex;

// Shared by whoever is in the engine with the handle, which must not end meanwhile. Languages
// change beside a recognition, which may be long.
std::shared_mutex handleMutex;

} // namespace

OCRPen* OCRPen::Instance()
{
    const std::lock_guard lock(instanceMutex);
    if (!ocr)
        ocr = new OCRPen;
    return ocr;
}

void OCRPen::quitFun()
{
    const std::lock_guard lock(instanceMutex);
    delete ocr.exchange(nullptr);
}

OCRPen::OCRPen()
{
    QByteArray dataDir = QFile::encodeName(devicePath(QStringLiteral("/apps/data/ocrrec/")));
    void* handle = nullptr;
    ZEMBRA_OCR_Initialize(&handle, dataDir.data());
    pOcrHandle = handle;
}

OCRPen::~OCRPen()
{
    const std::lock_guard lock(handleMutex);
    void* const handle = pOcrHandle.exchange(nullptr);
    ZEMBRA_OCR_ExitEngine(handle);
    ZEMBRA_OCR_FreeEngine(handle);
}

int OCRPen::setLan(int* languages)
{
    const std::shared_lock handleLock(handleMutex);
    return ZEMBRA_OCR_SetActiveLanguages(pOcrHandle, languages);
}

int OCRPen::recognize(unsigned char* image, int width, int height, int direction,
                      unsigned char flag, QString& text)
{
    const std::lock_guard lock(recogniseMutex);
    const std::shared_lock handleLock(handleMutex);
    unsigned short* result = nullptr;
    int length = 0;
    const int code =
        ZEMBRA_OCR_Recognize(pOcrHandle, image, width, height, &result, &length, direction, flag);
    if (!result || length <= 0) {
        ZEMBRA_OCR_FreeRecogResult(result);
        return -1;
    }
    text = QString(reinterpret_cast<const QChar*>(result), length);
    ZEMBRA_OCR_FreeRecogResult(result);
    return code;
}

int GetRecogResult(int result, unsigned short* text, QObject* receiver)
{
    Q_UNUSED(result)
    Q_UNUSED(text)
    Q_UNUSED(receiver)
    return 0;
}
