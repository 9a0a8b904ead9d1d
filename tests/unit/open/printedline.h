#ifndef TESTS_PRINTEDLINE_H
#define TESTS_PRINTEDLINE_H

#include <QImage>
#include <QString>

/* Where Debian's packages put the models and the fonts that tests print with. */
constexpr const char* InstalledModels = "/usr/share/tesseract-ocr/5/tessdata/";
constexpr const char* SerifFont =
    "/usr/share/fonts/truetype/liberation/LiberationSerif-Regular.ttf";
constexpr const char* SansFont = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
constexpr const char* ChineseFont = "/usr/share/fonts/truetype/arphic-gbsn00lp/gbsn00lp.ttf";

/* A line of print as a scan delivers it: grey, black on white, a little paper around it. Null when
 * the font cannot be loaded. */
QImage printedLine(const QString& text, const char* fontFile, int pixelSize);

/* A column of vertically set Chinese, its characters upright side by side as a scan delivers them:
 * commas and full stops at the upper right of their squares, brackets lying. */
QImage printedColumn(const QString& text, int pixelSize);

#endif
