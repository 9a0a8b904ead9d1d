#ifndef FAKEOCR_H
#define FAKEOCR_H

#include <string>
#include <vector>

/*
 * Control of the scripted recognition engine behind platform/zembra_ocr.h.
 *
 * Results are buffers of the engine's; they are overwritten when they are released, and a release
 * that is missing, double or of a foreign pointer is counted. Any thread.
 */
class FakeOcr
{
public:
    /* What fills a result after its release. */
    static constexpr unsigned short Poison = 0xdead;

    struct Image
    {
        int width = 0;
        int height = 0;
        int direction = 0;
        unsigned char flag = 0;
        std::vector<unsigned char> pixels;
    };

    static void reset();

    /* What every picture reads as from now on; without a call, nothing. */
    static void setResult(std::u16string text, int code = 0);

    /* What the next picture reads as; can be queued. */
    static void queueResult(std::u16string text, int code = 0);

    /* What pictures of that width read as from now on, whatever else is set. */
    static void setResultOf(int width, std::u16string text, int code = 0);

    /* Makes ZEMBRA_OCR_Initialize fail or succeed. */
    static void setInitializeFails(bool fails);

    /* Makes recognitions wait until release(). */
    static void hold();
    static void release();
    static bool waitUntilRecognizing();
    static bool isRecognizing();

    /* Makes changes of language wait inside the engine until releaseLanguages(). */
    static void holdLanguages();
    static void releaseLanguages();
    static bool waitUntilChangingLanguage();

    /* Active languages without the end mark. */
    static std::vector<int> languages();

    /* The pictures that were recognised, oldest first, and the last one. */
    static std::vector<Image> images();
    static Image lastImage();

    /* Handles and results that have not been released; releases and calls that were wrong. */
    static int openHandles();
    static int openResults();
    static int misuses();
};

#endif
