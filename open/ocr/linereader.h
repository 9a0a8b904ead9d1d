#ifndef OPEN_OCR_LINEREADER_H
#define OPEN_OCR_LINEREADER_H

#include "open/ocr/language.h"
#include "open/ocr/linepicture.h"

#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace tesseract {
class TessBaseAPI;
}

namespace ocr {

/* What was read, before cleaning. */
struct Reading
{
    std::u32string text;
    int confidence = 0; // 0 to 100
};

/*
 * Tesseract with the models of one language, for one line at a time. Holds them as long as it
 * lives. Any thread; lines are read one after the other.
 *
 * Russian print has a model of its own and that of English, which is shown no more than the part of
 * a line that the first one doubts: Tesseract itself would show it the whole.
 */
class LineReader
{
public:
    /* Loads the model from `folder`, which may take a second. Null when it is not there or no
     * model. */
    static std::unique_ptr<LineReader> load(const std::string& folder, Language language);
    ~LineReader();
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;

    Reading read(const GreyPicture& line);

private:
    using Api = std::unique_ptr<tesseract::TessBaseAPI>;

    explicit LineReader(std::vector<Api> models);
    Reading readMixed(const GreyPicture& line);

    const std::vector<Api> m_models; // the second one for words that the first one doubts
    std::mutex m_mutex;
};

} // namespace ocr

#endif
