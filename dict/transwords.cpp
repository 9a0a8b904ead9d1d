#include "dict/transwords.h"

namespace transwords {

namespace {

constexpr int Chinese = 1;
constexpr int French = 103;
constexpr int Russian = 151;

// The selected character and those that follow it: no word of a dictionary is longer.
constexpr int LongestHanWord = 8;

bool isSeparator(QChar c)
{
    switch (c.unicode()) {
    case u',':
    case u'.':
    case u':':
    case u';':
    case u'?':
    case u'!':
        return true;
    default:
        return false;
    }
}

bool bounds(QChar c, int language)
{
    return isSeparator(c) || c.isSpace() || (language == French && c == u'\'');
}

bool isWestern(char16_t c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9')
           || c == u'\'' || (c >= 0xc0 && c <= 0xff) || c == 0x8c || c == 0x9c || c == 0xa1
           || c == 0x152 || c == 0x153 || c == 0x178;
}

bool forms(QChar c, int language)
{
    const char16_t unit = c.unicode();
    return !bounds(c, language)
           && (isWestern(unit) || (language == Russian && unit >= 0x400 && unit <= 0x4ff));
}

// Behind the character at `at`; never within a surrogate pair.
qsizetype behind(const QString& text, qsizetype at)
{
    const bool pair =
        text.at(at).isHighSurrogate() && at + 1 < text.size() && text.at(at + 1).isLowSurrogate();
    return at + (pair ? 2 : 1);
}

bool isInside(qsizetype at, const Span& span)
{
    return span.isValid() && at >= span.start && at < span.end;
}

char32_t codePointAt(const QString& text, qsizetype at)
{
    return behind(text, at) == at + 2 ? QChar::surrogateToUcs4(text.at(at), text.at(at + 1))
                                      : text.at(at).unicode();
}

} // namespace

Span next(const QString& text, qsizetype from, const Cut& cut)
{
    qsizetype at = qMax<qsizetype>(0, from);
    while (at < text.size() && !isInside(at, cut.whole) && bounds(text.at(at), cut.language))
        ++at;
    if (at >= text.size())
        return {};
    if (isInside(at, cut.whole))
        return {cut.whole.start, qMin(cut.whole.end, text.size())};
    Span word = {at, behind(text, at)};
    if (cut.singleCharacters || !forms(text.at(at), cut.language))
        return word;
    while (word.end < text.size() && !isInside(word.end, cut.whole)
           && forms(text.at(word.end), cut.language))
        ++word.end;
    return word;
}

// Found by walking from the start: what a character is to its word shows only from there.
Span previous(const QString& text, qsizetype before, const Cut& cut)
{
    const QString part = text.left(qMax<qsizetype>(0, before));
    Cut partCut = cut;
    if (cut.whole.isValid() && before < cut.whole.end)
        partCut.whole = {};
    Span found;
    for (Span word = next(part, 0, partCut); word.isValid(); word = next(part, word.end, partCut))
        found = word;
    return found;
}

Span fragmentAtEnd(const QString& text, const Cut& cut)
{
    if (!text.endsWith(u'-'))
        return {};
    const qsizetype end = text.size() - 1;
    const Span word = previous(text, end, cut);
    const bool piece =
        word.isValid() && word.end == end && forms(text.at(word.start), cut.language);
    return piece ? word : Span{};
}

Span restAtStart(const QString& text, const Cut& cut)
{
    const bool rest = !text.isEmpty() && forms(text.front(), cut.language);
    return rest ? next(text, 0, cut) : Span{};
}

bool isWrittenWithoutBlanks(int language)
{
    return language == 1 || language == 3 || language == 4;
}

bool isChinese(int language)
{
    return language == Chinese;
}

bool isHan(const QString& text, qsizetype at)
{
    return QChar::script(codePointAt(text, at)) == QChar::Script_Han;
}

bool hasHan(const QString& text)
{
    for (qsizetype at = 0; at < text.size(); at = behind(text, at)) {
        if (isHan(text, at))
            return true;
    }
    return false;
}

QString hanRun(const QString& text, qsizetype start)
{
    qsizetype end = behind(text, start);
    for (int count = 1; count < LongestHanWord && end < text.size() && isHan(text, end); ++count)
        end = behind(text, end);
    return text.mid(start, end - start);
}

QString trimmed(const QString& word, int language)
{
    qsizetype start = 0;
    qsizetype end = word.size();
    const auto isLetter = [&](qsizetype at) {
        return word.at(at) != u'\'' && (forms(word.at(at), language) || word.at(at).isLetter());
    };
    while (start < end && !isLetter(start))
        ++start;
    while (end > start && !isLetter(end - 1))
        --end;
    return word.mid(start, end - start);
}

} // namespace transwords
