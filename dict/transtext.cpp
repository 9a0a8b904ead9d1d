#include "dict/transtext.h"

namespace {

// Characters that a text document takes for something else than text.
bool isControl(QChar c)
{
    constexpr char16_t FrameBegin = 0xfdd0;
    constexpr char16_t FrameEnd = 0xfdd1;
    // The ligatures of OE as Windows codes them: letters of words.
    constexpr char16_t UpperLigature = 0x8c;
    constexpr char16_t LowerLigature = 0x9c;
    if (c == UpperLigature || c == LowerLigature)
        return false;
    return c.category() == QChar::Other_Control || c == QChar::LineSeparator
           || c == QChar::ParagraphSeparator || c == QChar::ObjectReplacementCharacter
           || c == FrameBegin || c == FrameEnd;
}

// Tells what is to be heard from what is to be seen only.
class Listener
{
public:
    /* `offset` is where the text stands in the shown one. */
    void hear(QStringView text, qsizetype offset)
    {
        const qsizetype lastClosing = text.lastIndexOf(u']');
        for (qsizetype i = 0; i < text.size(); ++i) {
            const QChar c = text.at(i);
            if (c == u'[' && i < lastClosing)
                ++m_depth;
            if (m_depth == 0)
                take(c, offset + i);
            if (c == u']' && m_depth > 0)
                --m_depth;
        }
    }

    SpokenText result()
    {
        while (!m_spoken.text.isEmpty() && m_spoken.text.back() == u' ') {
            m_spoken.text.chop(1);
            m_spoken.origin.removeLast();
        }
        return m_spoken;
    }

private:
    // Blanks that meet where something was left out become one; signs that no voice reads well go,
    // and parentheses that nothing is left in.
    void take(QChar c, qsizetype offset)
    {
        constexpr char16_t Arrow = 0x2192;
        if (c == u')' && m_spoken.text.endsWith(u'(')) {
            m_spoken.text.chop(1);
            m_spoken.origin.removeLast();
            return;
        }
        const bool blank = c == u' ' || c == Arrow;
        if (blank && (m_spoken.text.isEmpty() || m_spoken.text.back() == u' '))
            return;
        m_spoken.text += blank ? QChar(u' ') : c;
        m_spoken.origin += static_cast<int>(offset);
    }

    SpokenText m_spoken;
    int m_depth = 0;
};

SpokenText spokenOf(QStringView gist, qsizetype offset)
{
    Listener listener;
    listener.hear(gist, offset);
    SpokenText spoken = listener.result();
    const auto hasSound = [](const QString& text) {
        for (const QChar c : text) {
            if (c.isLetterOrNumber() || c.isSurrogate())
                return true;
        }
        return false;
    };
    if (hasSound(spoken.text))
        return spoken;
    // There is nothing beside the brackets: what is in them is the gist.
    QString opened = gist.toString();
    opened.replace(u'[', u' ').replace(u']', u' ');
    Listener all;
    all.hear(opened, offset);
    return all.result();
}

void append(TransText& layout, const _stScanContent& content, bool withHeadword)
{
    if (!layout.shown.isEmpty())
        layout.shown += u'\n';
    TransText::Entry entry;
    entry.start = layout.shown.size();
    const QString text = asPlainText(content.translation).trimmed();
    if (withHeadword && !content.word.isEmpty())
        layout.shown += asPlainText(content.word).replace(u'\n', u' ') + QStringLiteral(": ");
    const qsizetype gistStart = layout.shown.size();
    const qsizetype lineEnd = text.indexOf(u'\n');
    const QString gist = text.left(lineEnd);
    layout.shown += text;
    entry.end = layout.shown.size();
    entry.spoken = spokenOf(gist, gistStart);
    layout.entries.append(entry);
}

} // namespace

QString asPlainText(const QString& text)
{
    QString result = text;
    for (QChar& c : result) {
        if (c != u'\n' && isControl(c))
            c = u' ';
    }
    return result;
}

bool SpokenText::shownRange(int offset, int length, int& shownOffset, int& shownLength) const
{
    if (offset < 0 || length <= 0 || offset >= origin.size())
        return false;
    const qsizetype last = qMin<qsizetype>(qsizetype(offset) + length, origin.size()) - 1;
    shownOffset = origin.at(offset);
    shownLength = origin.at(last) - shownOffset + 1;
    return true;
}

TransText layOutEntries(const QVector<_stScanContent>& contents, const QString& word)
{
    TransText layout;
    for (const _stScanContent& content : contents)
        append(layout, content, content.word.compare(word, Qt::CaseInsensitive) != 0);
    return layout;
}

TransText layOutEntry(const _stScanContent& content)
{
    TransText layout;
    append(layout, content, true);
    return layout;
}
