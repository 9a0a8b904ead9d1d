/*
 * The recognition engine at its interface: pictures of any size up to 16 megapixels and any
 * content, in each language and direction. Models are those of the system; without them only the
 * ways to a missing model are taken.
 */
#include "platform/zembra_ocr.h"
#include "tests/fuzz/linepictures.h"
#include "tests/fuzz/require.h"

#include <cstddef>
#include <cstdint>

namespace {

void* engine()
{
    static void* const handle = [] {
        char folder[] = "/usr/share/tesseract-ocr/5/tessdata/";
        void* created = nullptr;
        ZEMBRA_OCR_Initialize(&created, folder);
        return created;
    }();
    return handle;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 9)
        return 0;
    int languages[] = {data[0] % 4, ZEMBRA_OCR_LANG_END};
    const int chosen = ZEMBRA_OCR_SetActiveLanguages(engine(), languages);
    REQUIRE(chosen == (languages[0] == 0 ? ZEMBRA_OCR_ERROR : ZEMBRA_OCR_OK));

    LinePicture picture = linePictureFrom(data + 1, size - 1);
    const std::vector<unsigned char> before = picture.pixels;
    auto* text = reinterpret_cast<unsigned short*>(&languages);
    int length = -1;
    const int code = ZEMBRA_OCR_Recognize(engine(), picture.pixels.data(), picture.width,
                                          picture.height, &text, &length, data[0] / 4 % 2, data[0]);
    REQUIRE(picture.pixels == before);
    REQUIRE((text == nullptr) == (length == 0));
    REQUIRE(code <= ZEMBRA_OCR_DOUBTFUL && code >= ZEMBRA_OCR_NO_MODEL);
    REQUIRE(code == ZEMBRA_OCR_OK || (code == ZEMBRA_OCR_DOUBTFUL) == (text != nullptr));
    for (int i = 0; i < length; ++i)
        REQUIRE(text[i] >= ' ');
    REQUIRE(ZEMBRA_OCR_FreeRecogResult(text) == ZEMBRA_OCR_OK);
    return 0;
}
