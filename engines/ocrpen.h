#ifndef OCRPEN_H
#define OCRPEN_H

#include <QString>
#include <atomic>

class QObject;

/* The recognition engine's handle; null while there is no engine. */
extern std::atomic<void*> pOcrHandle;

/*
 * The recognition engine of the process.
 *
 * Any thread; recognitions are made one after the other.
 */
class OCRPen
{
public:
    static std::atomic<OCRPen*> ocr;

    /* The one instance, created on first use on whichever thread comes first. */
    static OCRPen* Instance();

    /* Waits for a recognition or a change of languages in progress, shuts the engine down and
     * deletes the instance, if there is one. */
    static void quitFun();

    /* Chooses the languages: a list of engine languages (1 Chinese, 2 Latin script, 3 Russian)
     * ended by -1. Returns the engine's result, 0 for success. */
    int setLan(int* languages);

    /* Recognises a picture of one line: width x height bytes, one a pixel, `direction` and `flag`
     * as in ZEMBRA_OCR_Recognize. Blocks. With text the engine's result (0, or 1 when it doubts)
     * and the text as the engine gives it; without text -1, and `text` stays as it is. */
    int recognize(unsigned char* image, int width, int height, int direction, unsigned char flag,
                  QString& text);

private:
    OCRPen();
    ~OCRPen();
};

/* Has the shape of a recognition-result callback; does nothing and returns 0. */
int GetRecogResult(int result, unsigned short* text, QObject* receiver);

#endif
