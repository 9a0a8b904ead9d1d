#include "open/ocr/linereader.h"

#include <filesystem>
#include <system_error>

#include <allheaders.h>
#include <omp.h>
#include <tesseract/baseapi.h>

namespace ocr {

namespace {

bool modelExists(const std::string& folder, const std::string& name)
{
    std::error_code error;
    const auto file = std::filesystem::path(folder) / (name + ".traineddata");
    const auto status = std::filesystem::status(file, error);
    return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

/* Tesseract's name of the models for a language, of those that the folder has; empty without. */
std::string modelNames(const std::string& folder, Language language)
{
    switch (language) {
    case Language::Chinese:
        return modelExists(folder, "chi_sim") ? "chi_sim" : "";
    case Language::Latin:
        // Packages put the models of scripts into a folder of their own or among the others.
        for (const char* name : {"script/Latin", "Latin"})
            if (modelExists(folder, name))
                return name;
        return "";
    case Language::Cyrillic:
        if (!modelExists(folder, "rus"))
            return "";
        return modelExists(folder, "eng") ? "rus+eng" : "rus";
    }
    return "";
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

} // namespace

LineReader::LineReader(std::unique_ptr<tesseract::TessBaseAPI> api) : m_api(std::move(api)) {}

LineReader::~LineReader() = default;

std::unique_ptr<LineReader> LineReader::load(const std::string& folder, Language language)
{
    const std::string names = modelNames(folder, language);
    if (names.empty())
        return nullptr;
    forbidHelperThreads();
    hushLibraries();
    auto api = std::make_unique<tesseract::TessBaseAPI>();
    if (api->Init(folder.c_str(), names.c_str(), tesseract::OEM_LSTM_ONLY) != 0)
        return nullptr;
    api->SetPageSegMode(tesseract::PSM_SINGLE_LINE);
    // The picture is always dark on light here: reading it once more inverted costs time only.
    api->SetVariable("tessedit_do_invert", "0");
    return std::unique_ptr<LineReader>(new LineReader(std::move(api)));
}

Reading LineReader::read(const GreyPicture& line)
{
    constexpr int Dpi = 300;
    forbidHelperThreads();
    const std::lock_guard lock(m_mutex);
    m_api->SetImage(line.pixels.data(), line.width, line.height, 1, line.width);
    m_api->SetSourceResolution(Dpi);
    Reading reading;
    if (m_api->Recognize(nullptr) == 0) {
        const std::unique_ptr<char[]> text(m_api->GetUTF8Text());
        if (text)
            reading.utf8 = text.get();
        reading.confidence = m_api->MeanTextConf();
    }
    m_api->Clear();
    return reading;
}

} // namespace ocr
