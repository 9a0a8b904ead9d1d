#ifndef RECOGNIZER_H
#define RECOGNIZER_H

#include <QString>

#include <memory>

namespace tesseract {
class TessBaseAPI;
}

/* Plain Tesseract on one line of print: the judge of line pictures. */
class Recognizer
{
public:
    /* `model` as Tesseract names it; the process ends when it is missing. */
    explicit Recognizer(const QString& model);
    ~Recognizer();

    QString read(const unsigned char* pixels, int width, int height, int bytesPerRow);

private:
    std::unique_ptr<tesseract::TessBaseAPI> m_api;
};

/* Letters that must be changed, left out or put in to make one text of the other, blanks counted
 * as one each. Typographic quotes and apostrophes equal plain ones. */
int editDistance(const QString& read, const QString& printed);

/* The text as editDistance() compares it. `withoutBlanks`: for scripts that use none. */
QString comparable(const QString& text, bool withoutBlanks);

#endif
