#include "open/ocr/linereader.h"

#include "open/ocr/resultcleaning.h"
#include "open/ocr/secondreading.h"
#include "open/ocr/wordgaps.h"

#include <cmath>
#include <filesystem>
#include <system_error>
#include <utility>

#include <allheaders.h>
#include <omp.h>
#include <tesseract/baseapi.h>
#include <tesseract/resultiterator.h>

namespace ocr {

namespace {

bool modelExists(const std::string& folder, const std::string& name)
{
    std::error_code error;
    const auto file = std::filesystem::path(folder) / (name + ".traineddata");
    const auto status = std::filesystem::status(file, error);
    return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

/* Tesseract's names of the models for a language, of those that the folder has; none without. */
std::vector<std::string> modelNames(const std::string& folder, Language language)
{
    switch (language) {
    case Language::Chinese:
        if (modelExists(folder, "chi_sim"))
            return {"chi_sim"};
        return {};
    case Language::Latin:
        // Packages put the models of scripts into a folder of their own or among the others.
        for (const char* name : {"script/Latin", "Latin"})
            if (modelExists(folder, name))
                return {name};
        return {};
    case Language::Cyrillic:
        if (!modelExists(folder, "rus"))
            return {};
        if (!modelExists(folder, "eng"))
            return {"rus"};
        return {"rus", "eng"};
    }
    return {};
}

/* A line is too little work to share among threads: the idle ones would spin on the processor. The
 * library asks for a number of its own, so only forbidding parallel regions helps; the setting
 * belongs to the calling thread. */
void forbidHelperThreads()
{
    omp_set_max_active_levels(0);
}

/* What pictures of dirt and files that are no models make the libraries say is of no use to
 * anybody. These settings are the process's own. */
void hushLibraries()
{
    static std::once_flag once;
    std::call_once(once, [] {
        setMsgSeverity(L_SEVERITY_NONE);
        tesseract::TessBaseAPI().SetVariable("debug_file", "/dev/null");
    });
}

using Api = tesseract::TessBaseAPI;

std::unique_ptr<Api> loadModel(const std::string& folder, const std::string& name)
{
    auto api = std::make_unique<Api>();
    if (api->Init(folder.c_str(), name.c_str(), tesseract::OEM_LSTM_ONLY) != 0)
        return nullptr;
    api->SetPageSegMode(tesseract::PSM_SINGLE_LINE);
    // The picture is always dark on light here: reading it once more inverted costs time only.
    api->SetVariable("tessedit_do_invert", "0");
    return api;
}

/* Whether anything could be made of the columns of the line from `left` to `right`. */
bool recognise(Api& api, const GreyPicture& line, int left, int right)
{
    constexpr int Dpi = 300;
    api.SetImage(line.pixels.data() + left, right - left, line.height, 1, line.width);
    api.SetSourceResolution(Dpi);
    return api.Recognize(nullptr) == 0;
}

/* What recognise() read, word by word. */
std::vector<Word> wordsOf(Api& api, int left)
{
    std::vector<Word> words;
    const std::unique_ptr<tesseract::ResultIterator> at(api.GetIterator());
    if (!at)
        return words;
    do {
        const std::unique_ptr<char[]> utf8(at->GetUTF8Text(tesseract::RIL_WORD));
        Word word;
        int top = 0;
        int bottom = 0;
        if (!utf8 || !at->BoundingBox(tesseract::RIL_WORD, &word.left, &top, &word.right, &bottom))
            continue;
        word.text = decodeUtf8(utf8.get());
        word.confidence = at->Confidence(tesseract::RIL_WORD);
        word.left += left;
        word.right += left;
        words.push_back(std::move(word));
    } while (at->Next(tesseract::RIL_WORD));
    return words;
}

Reading joined(const std::vector<Word>& words)
{
    Reading reading;
    float sum = 0;
    for (const Word& word : words) {
        if (!reading.text.empty())
            reading.text += U' ';
        reading.text += word.text;
        sum += word.confidence;
    }
    if (!words.empty())
        reading.confidence = static_cast<int>(std::lround(sum / static_cast<float>(words.size())));
    return reading;
}

} // namespace

LineReader::LineReader(std::vector<Api> models) : m_models(std::move(models)) {}

LineReader::~LineReader() = default;

std::unique_ptr<LineReader> LineReader::load(const std::string& folder, Language language)
{
    forbidHelperThreads();
    hushLibraries();
    std::vector<Api> models;
    for (const std::string& name : modelNames(folder, language)) {
        models.push_back(loadModel(folder, name));
        if (!models.back())
            return nullptr;
    }
    if (models.empty())
        return nullptr;
    return std::unique_ptr<LineReader>(new LineReader(std::move(models)));
}

Reading LineReader::read(const GreyPicture& line)
{
    forbidHelperThreads();
    const std::lock_guard lock(m_mutex);
    if (m_models.size() > 1)
        return readMixed(line);
    tesseract::TessBaseAPI& model = *m_models.front();
    Reading reading;
    if (recognise(model, line, 0, line.width)) {
        const std::unique_ptr<char[]> text(model.GetUTF8Text());
        if (text)
            reading.text = decodeUtf8(text.get());
        reading.confidence = model.MeanTextConf();
    }
    model.Clear();
    return reading;
}

Reading LineReader::readMixed(const GreyPicture& line)
{
    tesseract::TessBaseAPI& first = *m_models[0];
    tesseract::TessBaseAPI& second = *m_models[1];
    std::vector<Word> words;
    if (recognise(first, line, 0, line.width))
        words = wordsOf(first, 0);
    first.Clear();
    std::vector<Word> english;
    for (const Span& span : doubtfulSpans(line, words)) {
        if (recognise(second, line, span.left, span.right))
            for (Word& word : wordsOf(second, span.left))
                english.push_back(std::move(word));
        second.Clear();
    }
    return joined(mergedReadings(words, english));
}

} // namespace ocr
