#include "store/scantext.h"

#include "store/localetext.h"

#include <QStringDecoder>
#include <QtEndian>

#include <algorithm>

namespace scantext {

namespace {

constexpr int BriefLength = 6;

bool isUtf8(const QByteArray& bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(bytes);
    return !decoder.hasError() && !text.contains(QChar::ReplacementCharacter);
}

// Text of any language holds blanks, digits or line ends, which in UTF-16 have a zero byte; text
// in other encodings has none. The zero byte's place tells the order of the bytes.
struct Zeros
{
    qsizetype even = 0;
    qsizetype odd = 0;
};

Zeros countZeros(const QByteArray& bytes)
{
    Zeros zeros;
    for (qsizetype i = 0; i < bytes.size(); ++i)
        if (bytes.at(i) == 0)
            ++(i % 2 == 0 ? zeros.even : zeros.odd);
    return zeros;
}

QString decodeUnmarked(const QByteArray& bytes)
{
    const Zeros zeros = countZeros(bytes);
    if (zeros.even + zeros.odd > 0)
        return localetext::decodeUtf16(bytes, zeros.even > zeros.odd);
    if (isUtf8(bytes))
        return QString::fromUtf8(bytes);
    if (localetext::isGbk(bytes))
        return localetext::decode(bytes);
    return localetext::decodeUtf16(bytes, false);
}

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

QString decode(const QByteArray& bytes)
{
    QString text = localetext::decodeMarked(bytes).value_or(QString());
    if (localetext::markOf(bytes) == localetext::Mark::None)
        text = decodeUnmarked(bytes);
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
