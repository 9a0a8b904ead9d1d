#include "ocrengine.h"

#include <QFile>
#include <QList>

#include <algorithm>

OcrEngine::OcrEngine(const QString& folder)
{
    QByteArray path = QFile::encodeName(folder);
    ZEMBRA_OCR_Initialize(&m_handle, path.data());
}

OcrEngine::~OcrEngine()
{
    ZEMBRA_OCR_ExitEngine(m_handle);
    ZEMBRA_OCR_FreeEngine(m_handle);
}

int OcrEngine::setLanguage(int language)
{
    int list[] = {language, ZEMBRA_OCR_LANG_END};
    return ZEMBRA_OCR_SetActiveLanguages(m_handle, list);
}

int OcrEngine::read(const std::vector<unsigned char>& pixels, int width, int height, QString* text,
                    int direction)
{
    std::vector<unsigned char> image = pixels;
    unsigned short* units = nullptr;
    int length = -1;
    const int code =
        ZEMBRA_OCR_Recognize(m_handle, image.data(), width, height, &units, &length, direction, 0);
    if ((units == nullptr) != (length == 0))
        qFatal("text and length do not agree");
    *text = QString::fromUtf16(reinterpret_cast<const char16_t*>(units), length);
    ZEMBRA_OCR_FreeRecogResult(units);
    return code;
}

int OcrEngine::read(const QImage& image, QString* text, int direction)
{
    return read(pixelsOf(image), image.width(), image.height(), text, direction);
}

std::vector<unsigned char> pixelsOf(const QImage& image)
{
    std::vector<unsigned char> pixels;
    for (int y = 0; y < image.height(); ++y)
        pixels.insert(pixels.end(), image.constScanLine(y), image.constScanLine(y) + image.width());
    return pixels;
}

int editDistance(const QString& a, const QString& b)
{
    QList<int> previous(b.size() + 1);
    for (int j = 0; j <= b.size(); ++j)
        previous[j] = j;
    for (int i = 0; i < a.size(); ++i) {
        QList<int> current = {i + 1};
        for (int j = 0; j < b.size(); ++j)
            current.append(std::min(
                {previous[j] + (a[i] == b[j] ? 0 : 1), previous[j + 1] + 1, current[j] + 1}));
        previous = current;
    }
    return previous.last();
}
