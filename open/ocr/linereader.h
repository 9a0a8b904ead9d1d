#ifndef OPEN_OCR_LINEREADER_H
#define OPEN_OCR_LINEREADER_H

#include "open/ocr/language.h"
#include "open/ocr/linepicture.h"

#include <memory>
#include <mutex>
#include <string>

namespace tesseract {
class TessBaseAPI;
}

namespace ocr {

/* What was read, before cleaning. */
struct Reading
{
    std::string utf8;
    int confidence = 0; // 0 to 100
};

/* Tesseract with the model of one language, for one line at a time. Holds the model as long as it
 * lives. Any thread; lines are read one after the other. */
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
    explicit LineReader(std::unique_ptr<tesseract::TessBaseAPI> api);

    const std::unique_ptr<tesseract::TessBaseAPI> m_api;
    std::mutex m_mutex;
};

} // namespace ocr

#endif
