/*
 * The scripted engines themselves under many threads, without Qt, so that ThreadSanitizer sees all
 * of them: a race in a fake would be taken for one of the application.
 */
#include "platform/zembra_iap.h"
#include "platform/zembra_ocr.h"
#include "platform/zembra_tts.h"
#include "tests/fakes/calllog.h"
#include "tests/fakes/fakeiap.h"
#include "tests/fakes/fakeocr.h"
#include "tests/fakes/faketts.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

namespace {

std::atomic<int> reports{0};
std::atomic<int> pictures{0};
std::atomic<int> wrongPixels{0};

int receiveReport(int, int, int)
{
    ++reports;
    return 0;
}

int receivePicture(void*, unsigned char* image, int width, int height, unsigned char, char*)
{
    const FakeIap::Picture expected = FakeIap::pattern(width, height);
    for (std::size_t i = 0; i < expected.pixels.size(); ++i)
        wrongPixels += image[i] == expected.pixels[i] ? 0 : 1;
    ++pictures;
    ZEMBRA_TTS_Stop();
    return 0;
}

void speech()
{
    const std::u16string text = u"one two three";
    const std::vector<unsigned short> units(text.begin(), text.end());
    for (int i = 0; i < 50; ++i)
        ZEMBRA_TTS_Play(units.data(), static_cast<int>(2 * units.size()), 0);
}

void recognition(void* handle)
{
    unsigned char image[4] = {};
    for (int i = 0; i < 200; ++i) {
        unsigned short* text = nullptr;
        int length = 0;
        ZEMBRA_OCR_Recognize(handle, image, 2, 2, &text, &length, 0, 0);
        ZEMBRA_OCR_FreeRecogResult(text);
    }
}

} // namespace

int main()
{
    const char* dirs[] = {"/a", "/b"};
    ZEMBRA_TTS_Initialize(dirs, 2, 80);
    ZEMBRA_TTS_SetHighlight_CallBack(&receiveReport);
    ZEMBRA_IAP_Initialize(1, 0, 0, 0);
    ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(0, &receivePicture);
    char folder[] = "/models";
    void* handle = nullptr;
    ZEMBRA_OCR_Initialize(&handle, folder);
    FakeOcr::setResult(u"text");

    std::thread first(&speech);
    std::thread second(&speech);
    std::thread reader(&recognition, handle);
    std::thread settings([handle] {
        for (int i = 0; i < 200; ++i) {
            int languages[] = {1 + i % 3, -1};
            ZEMBRA_OCR_SetActiveLanguages(handle, languages);
            ZEMBRA_TTS_SetVolume(i);
            int state = 0;
            ZEMBRA_IAP_GetWorkState(&state);
        }
    });
    for (int i = 0; i < 50; ++i)
        FakeIap::swipe(FakeIap::pattern(8, 4));
    first.join();
    second.join();
    reader.join();
    settings.join();
    ZEMBRA_IAP_Uninitialize();
    ZEMBRA_TTS_Uninitialize();
    ZEMBRA_OCR_ExitEngine(handle);
    ZEMBRA_OCR_FreeEngine(handle);

    const bool good = reports > 0 && pictures == 50 && wrongPixels == 0
                      && FakeOcr::openResults() == 0 && FakeOcr::openHandles() == 0
                      && FakeOcr::misuses() == 0;
    fakes::reset();
    std::printf("%d reports, %d pictures\n", reports.load(), pictures.load());
    return good ? EXIT_SUCCESS : EXIT_FAILURE;
}
