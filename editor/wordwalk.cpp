#include "editor/wordwalk.h"

#include "engines/speechtext.h"

#include <QChar>

namespace {

struct CodePoint
{
    char32_t value;
    qsizetype units;
};

CodePoint codePointAt(const QString& text, qsizetype position)
{
    const QChar first = text.at(position);
    if (first.isHighSurrogate() && position + 1 < text.size()
        && text.at(position + 1).isLowSurrogate())
        return {QChar::surrogateToUcs4(first, text.at(position + 1)), 2};
    return {first.unicode(), 1};
}

bool isBetweenWords(char32_t c)
{
    return QChar::isSpace(c)
           || (c < 0x80 && SpeechSeparators.contains(QChar(static_cast<ushort>(c))));
}

bool standsAlone(char32_t c)
{
    switch (QChar::script(c)) {
    case QChar::Script_Han:
    case QChar::Script_Hiragana:
    case QChar::Script_Katakana:
    case QChar::Script_Thai:
        return true;
    default:
        return c >= 0x3000 && c <= 0x303f; // ideographic punctuation
    }
}

// The first word that begins at or behind `from`.
WordSpan scanForward(const QString& text, qsizetype from)
{
    qsizetype at = from;
    while (at < text.size()) {
        const CodePoint c = codePointAt(text, at);
        if (!isBetweenWords(c.value))
            break;
        at += c.units;
    }
    if (at >= text.size())
        return {};
    WordSpan word = {at, at};
    while (word.end < text.size()) {
        const CodePoint c = codePointAt(text, word.end);
        const bool alone = standsAlone(c.value);
        if (isBetweenWords(c.value) || (alone && word.length() > 0))
            break;
        word.end += c.units;
        if (alone)
            break;
    }
    return word;
}

} // namespace

WordSpan wordAt(const QString& text, qsizetype position)
{
    WordSpan before;
    for (WordSpan word = scanForward(text, 0); word.isValid() && word.start <= position;
         word = scanForward(text, word.end)) {
        if (position < word.end)
            return word;
        before = word;
    }
    return before.isValid() && before.end == position ? before : WordSpan{};
}

WordSpan nextWord(const QString& text, qsizetype position)
{
    WordSpan word = scanForward(text, 0);
    while (word.isValid() && word.start <= position)
        word = scanForward(text, word.end);
    return word;
}

WordSpan previousWord(const QString& text, qsizetype position)
{
    WordSpan found;
    for (WordSpan word = scanForward(text, 0); word.isValid() && word.start < position;
         word = scanForward(text, word.end))
        found = word;
    return found;
}
