#include "editor/appendrules.h"

#include "store/scantext.h"

namespace {

const QString ParagraphBreak = QStringLiteral("\n    ");
constexpr int BytesPerUnit = 2;

bool wantsBlankBehind(const QString& scan)
{
    const QChar last = scan.back();
    if (last.isLowSurrogate() && scan.size() > 1 && scan.at(scan.size() - 2).isHighSurrogate())
        return QChar::isLetter(QChar::surrogateToUcs4(scan.at(scan.size() - 2), last));
    return QStringLiteral("?!.,").contains(last) || last.isDigit() || last.isLetter();
}

} // namespace

bool fitsIntoFile(const QString& document, const QString& addition)
{
    const qsizetype paragraph = addition == ParagraphBreak ? 1 : 0;
    const qint64 added = (addition.size() + paragraph) * BytesPerUnit;
    return added + scantext::savedSize(document) <= MaxFileBytes;
}

QString withTrailingBlank(const QString& document, const QString& scan)
{
    const QString withBlank = scan + u' ';
    if (scan.isEmpty() || !wantsBlankBehind(scan) || !fitsIntoFile(document, withBlank))
        return scan;
    return withBlank;
}
