#ifndef TESTS_OCRENGINE_H
#define TESTS_OCRENGINE_H

#include "platform/zembra_ocr.h"
#include "printedline.h"

#include <QImage>
#include <QString>

#include <vector>

/* A recognition engine for tests, closed at the end. */
class OcrEngine
{
public:
    explicit OcrEngine(const QString& folder = QString::fromLatin1(InstalledModels));
    ~OcrEngine();
    OcrEngine(const OcrEngine&) = delete;
    OcrEngine& operator=(const OcrEngine&) = delete;

    void* handle() const { return m_handle; }

    /* Sets the only active language. */
    int setLanguage(int language);

    /* Recognises a picture into `text`; what the engine's function returns. */
    int read(const std::vector<unsigned char>& pixels, int width, int height, QString* text,
             int direction = ZEMBRA_OCR_HORIZONTAL);
    int read(const QImage& image, QString* text, int direction = ZEMBRA_OCR_HORIZONTAL);

private:
    void* m_handle = nullptr;
};

/* The bytes of a grey picture, row after row without padding. */
std::vector<unsigned char> pixelsOf(const QImage& image);

/* Smallest number of characters to insert, delete or change to make one text the other. */
int editDistance(const QString& a, const QString& b);

#endif
