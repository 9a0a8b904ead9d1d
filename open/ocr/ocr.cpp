/*
 * Recognition with Tesseract: the functions of platform/zembra_ocr.h.
 */
#include "platform/zembra_ocr.h"

#include "open/ocr/dotleaders.h"
#include "open/ocr/linepicture.h"
#include "open/ocr/modelshelf.h"
#include "open/ocr/plausibility.h"
#include "open/ocr/resultcleaning.h"
#include "open/ocr/verticalmarks.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <exception>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>

using ocr::Language;

namespace {

struct Engine
{
    explicit Engine(const char* folder) : models(folder) {}

    ocr::ModelShelf models;
    std::atomic<Language> language = Language::Latin;
};

/* The results that callers hold: what was not given out is never freed. */
class Results
{
public:
    unsigned short* keep(const std::u16string& text)
    {
        auto buffer = std::make_unique<unsigned short[]>(text.size());
        std::copy(text.begin(), text.end(), buffer.get());
        unsigned short* address = buffer.get();
        const std::lock_guard lock(m_mutex);
        m_buffers.emplace(address, std::move(buffer));
        return address;
    }

    void release(unsigned short* address)
    {
        const std::lock_guard lock(m_mutex);
        m_buffers.erase(address);
    }

private:
    std::mutex m_mutex;
    std::unordered_map<unsigned short*, std::unique_ptr<unsigned short[]>> m_buffers;
};

/* Lives to the end of the process: a worker may still give a result back while it exits. */
Results& results()
{
    static Results& instance = *new Results;
    return instance;
}

bool isLanguage(int value)
{
    return value == ZEMBRA_OCR_LANG_CHINESE || value == ZEMBRA_OCR_LANG_LATIN
           || value == ZEMBRA_OCR_LANG_CYRILLIC;
}

/*
 * How high the print is at most when it is read. A model sees each line with a height of 36 pixels,
 * a fixed white margin included, and costs time by the width that comes of it. Measured on fonts
 * and sizes, clean and blurred: Russian and Chinese have fewest errors like this, and 15 % less
 * time; Latin print gains nothing.
 */
int readingHeight(Language language)
{
    switch (language) {
    case Language::Chinese:
        return 28;
    case Language::Cyrillic:
        return 32;
    case Language::Latin:
        break;
    }
    return ocr::MaxSide;
}

/* ZEMBRA_OCR_Recognize for good arguments; `text` stays empty when there is none. */
int recognise(Engine& engine, const unsigned char* image, int width, int height, int direction,
              std::u16string& text)
{
    const Language language = engine.language;
    ocr::LineReader* reader = engine.models.waitFor(language);
    if (!reader)
        return ZEMBRA_OCR_NO_MODEL;
    ocr::GreyPicture line = ocr::prepareLine(image, width, height);
    if (line.isEmpty())
        return ZEMBRA_OCR_OK;
    if (direction == ZEMBRA_OCR_VERTICAL)
        ocr::setMarksHorizontally(line);
    else
        ocr::shortenDotLeaders(line);
    const ocr::Reading reading = reader->read(ocr::reducedTo(readingHeight(language), line));
    const std::u32string cleaned = ocr::cleanResult(reading.text, language == Language::Chinese);
    if (!ocr::isPlausible(cleaned, reading.confidence))
        return ZEMBRA_OCR_OK;
    text = ocr::encodeUtf16(cleaned);
    return reading.confidence < ocr::SureConfidence ? ZEMBRA_OCR_DOUBTFUL : ZEMBRA_OCR_OK;
}

} // namespace

int ZEMBRA_OCR_Initialize(void** handle, char* dataDir)
{
    if (!handle)
        return ZEMBRA_OCR_ERROR;
    *handle = nullptr;
    if (!dataDir)
        return ZEMBRA_OCR_ERROR;
    try {
        *handle = new Engine(dataDir);
    } catch (const std::exception&) {
        return ZEMBRA_OCR_ERROR;
    }
    return ZEMBRA_OCR_OK;
}

int ZEMBRA_OCR_SetActiveLanguages(void* handle, int* languages)
{
    if (!handle || !languages || languages[0] == ZEMBRA_OCR_LANG_END)
        return ZEMBRA_OCR_ERROR;
    for (const int* member = languages; *member != ZEMBRA_OCR_LANG_END; ++member)
        if (!isLanguage(*member))
            return ZEMBRA_OCR_ERROR;
    auto* engine = static_cast<Engine*>(handle);
    const auto language = static_cast<Language>(languages[0]);
    try {
        engine->models.request(language);
    } catch (const std::exception&) {
        return ZEMBRA_OCR_ERROR;
    }
    engine->language = language;
    return ZEMBRA_OCR_OK;
}

int ZEMBRA_OCR_Recognize(void* handle, unsigned char* image, int width, int height,
                         unsigned short** text, int* length, int direction, unsigned char)
{
    if (text)
        *text = nullptr;
    if (length)
        *length = 0;
    if (!handle || !image || !text || !length || !ocr::isPlausibleSize(width, height))
        return ZEMBRA_OCR_ERROR;

    try {
        std::u16string read;
        const int code =
            recognise(*static_cast<Engine*>(handle), image, width, height, direction, read);
        if (!read.empty()) {
            *text = results().keep(read);
            *length = static_cast<int>(read.size());
        }
        return code;
    } catch (const std::exception&) {
        return ZEMBRA_OCR_ERROR; // out of memory
    }
}

int ZEMBRA_OCR_FreeRecogResult(unsigned short* text)
{
    results().release(text);
    return ZEMBRA_OCR_OK;
}

int ZEMBRA_OCR_ExitEngine(void* handle)
{
    if (!handle)
        return ZEMBRA_OCR_ERROR;
    static_cast<Engine*>(handle)->models.close();
    return ZEMBRA_OCR_OK;
}

int ZEMBRA_OCR_FreeEngine(void* handle)
{
    if (!handle)
        return ZEMBRA_OCR_ERROR;
    delete static_cast<Engine*>(handle);
    return ZEMBRA_OCR_OK;
}
