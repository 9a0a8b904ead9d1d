#include "store/scantext.h"

#include "store/encodingguess.h"
#include "store/localetext.h"

#include <QtEndian>

#include <algorithm>

namespace scantext {

namespace {

constexpr int BriefLength = 6;

} // namespace

QByteArray encode(const QString& text)
{
    QByteArray bytes(2 + 2 * text.size(), Qt::Uninitialized);
    bytes[0] = '\xFF';
    bytes[1] = '\xFE';
    qToLittleEndian<char16_t>(text.utf16(), text.size(), bytes.data() + 2);
    return bytes;
}

QString withCarriageReturns(const QString& text)
{
    QString converted = text;
    return converted.replace(u'\n', QStringLiteral("\r\n"));
}

QByteArray encodeSaved(const QString& text)
{
    return encode(withCarriageReturns(text));
}

QString decode(const QByteArray& bytes)
{
    QString text = localetext::decodeMarked(bytes).value_or(QString());
    if (localetext::markOf(bytes) == localetext::Mark::None)
        text = encodingguess::decode(bytes);
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return text.replace(u'\r', u'\n');
}

qint64 savedSize(const QString& text)
{
    return 2 * (static_cast<qint64>(text.size()) + text.count(u'\n'));
}

QString briefOfNew(const QString& text)
{
    return text.right(BriefLength);
}

QString briefOfSaved(const QString& text)
{
    QString brief;
    for (qsizetype i = text.size(); i > 0 && brief.size() < BriefLength; --i) {
        const QChar c = text.at(i - 1);
        if (c != u'\n' && c != u'\t' && c != u' ')
            brief.append(c);
    }
    std::reverse(brief.begin(), brief.end());
    return brief;
}

} // namespace scantext
