#include "store/wordbook.h"

#include "store/localetext.h"

#include <QHash>
#include <QStringList>

#include <algorithm>
#include <optional>

namespace wordbook {

namespace {

constexpr QLatin1String WordBegin("<WORD>");
constexpr QLatin1String WordEnd("</WORD_END>");
constexpr QLatin1String TranslationBegin("<TRANS_BEGIN>");
constexpr QLatin1String TranslationEnd("</TRANS_END>");

constexpr QLatin1String CodeBegin("&#");
constexpr QChar CodeEnd = u';';
constexpr qsizetype MaxDigits = 7;

// A character written as its code point.
struct Code
{
    char32_t value;
    qsizetype length; // code units of what stands for it
};

QString codeOf(char32_t value)
{
    return CodeBegin + QString::number(value) + CodeEnd;
}

std::optional<Code> codeAt(QStringView text)
{
    if (!text.startsWith(CodeBegin))
        return std::nullopt;
    const qsizetype end = text.indexOf(CodeEnd);
    const qsizetype digits = end - CodeBegin.size();
    if (end < 0 || digits < 1 || digits > MaxDigits)
        return std::nullopt;
    char32_t value = 0;
    for (const QChar c : text.mid(CodeBegin.size(), digits)) {
        if (c < u'0' || c > u'9')
            return std::nullopt;
        value = 10 * value + (c.unicode() - u'0');
    }
    return value <= QChar::LastValidCodePoint ? std::optional(Code{value, end + 1}) : std::nullopt;
}

char32_t characterAt(QStringView text)
{
    const QChar first = text.first();
    if (text.size() > 1 && first.isHighSurrogate() && text.at(1).isLowSurrogate())
        return QChar::surrogateToUcs4(first, text.at(1));
    return first.unicode();
}

qsizetype unitsOf(char32_t character)
{
    return QChar::requiresSurrogates(character) ? 2 : 1;
}

bool comesBack(const QString& text)
{
    return localetext::decode(localetext::encode(text)) == text;
}

// Writes lines, and remembers which characters the encoding has.
class Writer
{
public:
    QString line(QStringView text)
    {
        const bool plain = !text.contains(CodeBegin) && !text.contains(u'\n')
                           && !text.contains(u'\r') && comesBack(text.toString());
        QString result;
        for (QStringView rest = text; !plain && !rest.isEmpty();) {
            const char32_t character = characterAt(rest);
            if (needsCode(rest, character))
                result += codeOf(character);
            else
                result += rest.first(unitsOf(character));
            rest = rest.sliced(unitsOf(character));
        }
        return plain ? text.toString() : result;
    }

    QString lines(const QString& text)
    {
        QStringList lines = text.split(u'\n');
        for (QString& one : lines)
            one = one == TranslationEnd ? codeOf(u'<') + one.sliced(1) : line(one);
        return lines.join(u'\n');
    }

private:
    bool needsCode(QStringView text, char32_t character)
    {
        if (character == u'\n' || character == u'\r')
            return true;
        if (character < 0x80)
            return codeAt(text).has_value();
        auto known = m_known.constFind(character);
        if (known == m_known.constEnd())
            known = m_known.insert(character, comesBack(text.first(unitsOf(character)).toString()));
        return !*known;
    }

    QHash<char32_t, bool> m_known;
};

// One line as it was before it was written.
QString read(const QString& line)
{
    QString result;
    for (QStringView rest(line); !rest.isEmpty();) {
        const std::optional<Code> code = codeAt(rest);
        if (code && QChar::requiresSurrogates(code->value)) {
            result += QChar::highSurrogate(code->value);
            result += QChar::lowSurrogate(code->value);
        } else {
            result += code ? QChar(static_cast<char16_t>(code->value)) : rest.first();
        }
        rest = rest.sliced(code ? code->length : 1);
    }
    return result;
}

} // namespace

QByteArray format(const QVector<WordItem>& items)
{
    Writer writer;
    QString text;
    for (const WordItem& item : items)
        text += WordBegin + u'\n' + writer.line(item.word) + u'\n' + WordEnd + u'\n'
                + TranslationBegin + u'\n' + writer.lines(item.translation) + u'\n' + TranslationEnd
                + u'\n';
    return localetext::encode(text);
}

QVector<WordItem> parse(const QByteArray& bytes)
{
    QVector<WordItem> items;
    const QStringList lines = localetext::lines(localetext::decode(bytes));
    QString word;
    for (auto line = lines.begin(); line != lines.end(); ++line) {
        if (*line == WordBegin && line + 1 != lines.end()) {
            word = read(*++line);
        } else if (*line == TranslationBegin) {
            const auto end = std::find(line + 1, lines.end(), TranslationEnd);
            QString translation;
            while (++line != end)
                translation += read(*line) + u'\n';
            items.append({word, translation});
            if (end == lines.end())
                break;
        }
    }
    return items;
}

} // namespace wordbook
