#include "engines/speechtext.h"

#include <array>
#include <utility>

const QString SpeechSeparators = QStringLiteral(",.:;?!");

namespace {

constexpr int MillisecondsPerStep = 200;
constexpr QLatin1String TagStart("<vtml_pause");

// What the Chinese voices want to see instead of full-width punctuation. Single quotes of both
// kinds become double quotes: the voices read a lone apostrophe aloud.
constexpr std::array<std::pair<char16_t, char16_t>, 13> ChineseFolding = {{
    {u'\u201c', u'"'},
    {u'\u201d', u'"'},
    {u'\uff01', u'!'},
    {u'\uff0c', u','},
    {u'\u3010', u'['},
    {u'\u3011', u']'},
    {u'\u3002', u'.'},
    {u'\uff08', u'('},
    {u'\uff09', u')'},
    {u'\u3001', u','},
    {u'\u2019', u'"'},
    {u'\'', u'"'},
    {u'\uff1a', u':'},
}};

QChar foldChinese(QChar c)
{
    for (const auto& [from, to] : ChineseFolding) {
        if (c == from)
            return to;
    }
    return c;
}

// A punctuation mark or blank before the first double quote becomes a comma. One at the very
// start of the text stays.
void breatheBeforeQuote(QString& text)
{
    const qsizetype quote = text.indexOf(u'"');
    if (quote - 1 <= 0)
        return;
    const QChar before = text.at(quote - 1);
    if (before.isPunct() || before.isSpace())
        text[quote - 1] = u',';
}

// Whether reading pauses after the character at `index`.
bool isPausePoint(QStringView text, qsizetype index)
{
    if (!SpeechSeparators.contains(text.at(index)))
        return false;
    const bool inside = index > 0 && index < text.size() - 1;
    return !(inside && text.at(index - 1).isDigit() && text.at(index + 1).isDigit());
}

// Builds a prepared text while keeping the way back.
class Builder
{
public:
    explicit Builder(const SpeechSettings& settings)
        : m_settings(settings),
          m_punctuationTag(pauseTag(MillisecondsPerStep * settings.punctuationPause))
    {
        m_result.punctuationTagLength = static_cast<int>(m_punctuationTag.size());
    }

    void copy(QChar c, qsizetype sourceOffset)
    {
        m_result.text += c;
        m_result.origin += static_cast<int>(sourceOffset);
    }

    void insert(const QString& text)
    {
        m_result.text += text;
        m_result.origin.insert(m_result.origin.size(), text.size(), -1);
    }

    // Copies the character at `i` of `text`, which stands at `sourceOffset`. Print that looks like
    // a pause tag is broken up, so that it is spoken and does not act.
    void copyLiterally(QStringView text, qsizetype i, qsizetype sourceOffset)
    {
        copy(text.at(i), sourceOffset + i);
        if (text.mid(i).startsWith(TagStart))
            insert(QStringLiteral(" "));
    }

    // Copies `text`, which stands at `sourceOffset`, with a tag after each pause point. `count` is
    // where the running count of blanks and pauses starts.
    void copyWithPauses(QStringView text, qsizetype sourceOffset, int count)
    {
        for (qsizetype i = 0; i < text.size() && !isAbandoned(); ++i) {
            copyLiterally(text, i, sourceOffset);
            if (text.at(i) == u' ')
                ++count;
            if (!isPausePoint(text, i))
                continue;
            m_result.pauseCounts += ++count;
            insert(m_punctuationTag);
        }
    }

    // Once given up, it stays given up.
    bool isAbandoned()
    {
        if (!m_result.abandoned && m_settings.isAbandoned)
            m_result.abandoned = m_settings.isAbandoned();
        return m_result.abandoned;
    }

    void setWordTagLength(qsizetype length) { m_result.wordTagLength = static_cast<int>(length); }
    SpeechText take() { return std::move(m_result); }

private:
    const SpeechSettings& m_settings;
    const QString m_punctuationTag;
    SpeechText m_result;
};

SpeechText prepareChinese(QString text, const SpeechSettings& settings)
{
    for (QChar& c : text)
        c = foldChinese(c);
    Builder builder(settings);
    for (qsizetype i = 0; i < text.size() && !builder.isAbandoned(); ++i)
        builder.copyLiterally(text, i, 0);
    SpeechText result = builder.take();
    result.punctuationTagLength = 0;
    return result;
}

// Cuts at single blanks, empty words kept. The end of a line ends a word as well: it stays at the
// end of its word and a blank of ours follows it.
SpeechText prepareWordByWord(const QString& text, const SpeechSettings& settings)
{
    Builder builder(settings);
    const QString wordTag = pauseTag(MillisecondsPerStep * settings.wordPause);
    builder.setWordTagLength(wordTag.size());

    int wordNumber = 0;
    qsizetype start = 0;
    const auto endWord = [&](qsizetype end) {
        const QStringView word = QStringView(text).mid(start, end - start);
        builder.copyWithPauses(word, start, wordNumber++);
        if (!word.isEmpty())
            builder.insert(wordTag);
        start = end;
    };
    for (qsizetype i = 0; i < text.size() && !builder.isAbandoned(); ++i) {
        if (text.at(i) == u' ') {
            endWord(i);
            builder.copy(u' ', i);
            start = i + 1;
        } else if (settings.lineEnds.contains(text.at(i))) {
            endWord(i + 1);
            builder.insert(QStringLiteral(" "));
        }
    }
    endWord(text.size());
    builder.insert(QStringLiteral(" "));
    return builder.take();
}

} // namespace

bool SpeechText::sourceRange(int offset, int length, int& sourceOffset, int& sourceLength) const
{
    if (offset < 0 || length <= 0 || offset >= origin.size())
        return false;
    const qsizetype end = qMin(static_cast<qsizetype>(offset) + length, origin.size());
    qsizetype first = offset;
    while (first < end && origin.at(first) < 0)
        ++first;
    if (first == end)
        return false;
    qsizetype last = end - 1;
    while (origin.at(last) < 0)
        --last;
    sourceOffset = origin.at(first);
    sourceLength = origin.at(last) - origin.at(first) + 1;
    return true;
}

bool isChineseVoice(int language)
{
    return language == 1 || language == 211 || language == 212;
}

QString pauseTag(int milliseconds)
{
    return TagStart + QLatin1String(" time=\"") + QString::number(milliseconds)
           + QLatin1String("\"/>");
}

SpeechText prepareSpeechText(const QString& source, const SpeechSettings& settings)
{
    QString text = source;
    if (settings.adaptsPunctuation) {
        breatheBeforeQuote(text);
        if (isChineseVoice(settings.language))
            return prepareChinese(std::move(text), settings);
    }
    if (settings.wordPause != 0)
        return prepareWordByWord(text, settings);
    Builder builder(settings);
    builder.copyWithPauses(text, 0, 0);
    return builder.take();
}
