#include "editor/appendrules.h"

#include "store/scantext.h"

namespace {

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
    return scantext::savedSize(document) + scantext::savedSize(addition) <= scantext::MaxSavedBytes;
}

QString withTrailingBlank(const QString& document, const QString& scan)
{
    const QString withBlank = scan + u' ';
    if (scan.isEmpty() || !wantsBlankBehind(scan) || !fitsIntoFile(document, withBlank))
        return scan;
    return withBlank;
}
