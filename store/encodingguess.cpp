#include "store/encodingguess.h"

#include "store/localetext.h"

#include <QStringDecoder>

#include <algorithm>
#include <optional>

namespace encodingguess {

namespace {

// Text of any language holds blanks, digits or line ends, which in UTF-16 have a zero byte; text
// in other encodings has none. The zero byte's place tells the order of the bytes.
std::optional<QString> asUtf16(const QByteArray& bytes)
{
    qsizetype even = 0;
    qsizetype odd = 0;
    for (qsizetype i = 0; i < bytes.size(); ++i)
        if (bytes.at(i) == 0)
            ++(i % 2 == 0 ? even : odd);
    if (even + odd == 0)
        return std::nullopt;
    return localetext::decodeUtf16(bytes, even > odd);
}

// A file that was cut off within a character is UTF-8 all the same.
std::optional<QString> asUtf8(const QByteArray& bytes)
{
    const QString text = QString::fromUtf8(bytes);
    const qsizetype damaged = text.count(QChar::ReplacementCharacter);
    const qsizetype good = std::count_if(text.cbegin(), text.cend(), [](QChar c) {
        return c.unicode() >= 0x80 && c != QChar::ReplacementCharacter;
    });
    if (damaged * 10 > good)
        return std::nullopt;
    return text;
}

bool isMostlyAscii(const QByteArray& bytes)
{
    const qsizetype ascii = std::count_if(bytes.cbegin(), bytes.cend(), [](char c) {
        return (c >= ' ' && c < 0x7F) || c == '\n' || c == '\r' || c == '\t';
    });
    return ascii * 4 >= bytes.size() * 3;
}

// In Chinese both bytes of nearly every pair are above A0. An accented letter of a Western word
// makes a pair with the letter that follows.
bool looksChinese(const QByteArray& bytes)
{
    qsizetype pairs = 0;
    qsizetype high = 0;
    for (qsizetype i = 0; i + 1 < bytes.size(); ++i) {
        if (static_cast<uchar>(bytes.at(i)) < 0x80)
            continue;
        ++pairs;
        ++i;
        if (static_cast<uchar>(bytes.at(i)) > 0xA0)
            ++high;
    }
    return high * 2 > pairs;
}

std::optional<QString> asGbk(const QByteArray& bytes)
{
    // Half a pair at the end: the file was cut off.
    const bool fits =
        localetext::isGbk(bytes) || localetext::isGbk(QByteArrayView(bytes).chopped(1));
    if (!fits || (isMostlyAscii(bytes) && !looksChinese(bytes)))
        return std::nullopt;
    return localetext::decode(bytes);
}

std::optional<QString> asWestern(const QByteArray& bytes)
{
    if (!isMostlyAscii(bytes))
        return std::nullopt;
    QStringDecoder decoder("windows-1252");
    return decoder.isValid() ? QString(decoder(bytes)) : QString::fromLatin1(bytes);
}

} // namespace

QString decode(const QByteArray& bytes)
{
    for (const auto& attempt : {asUtf16, asUtf8, asGbk, asWestern})
        if (const std::optional<QString> text = attempt(bytes))
            return *text;
    return localetext::decodeUtf16(bytes, false);
}

} // namespace encodingguess
