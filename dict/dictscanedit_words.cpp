// DictScanEdit, words: the selection goes over the words of the scan pane.

#include "dict/dictscanedit.h"

#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextEdit>

using transwords::Span;

// Line ends are "\n", one code unit as in the document.
QString DictScanEdit::scanText() const
{
    QString text = m_scanPane->document()->toRawText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    text.replace(QChar::LineSeparator, u'\n');
    return text;
}

void DictScanEdit::showScanText(const QString& text)
{
    m_whole = {};
    m_joinedRest.clear();
    m_scanPane->clear();
    m_scanPane->textCursor().insertText(asPlainText(text));
    putCursor(0);
}

transwords::Cut DictScanEdit::cut() const
{
    return {m_language, m_inputMode, m_whole};
}

Span DictScanEdit::selection() const
{
    const QTextCursor cursor = m_scanPane->textCursor();
    return {cursor.selectionStart(), cursor.selectionEnd()};
}

QString DictScanEdit::selectedWord() const
{
    const Span word = selection();
    return scanText().mid(word.start, word.length());
}

void DictScanEdit::putCursor(qsizetype position)
{
    QTextCursor cursor = m_scanPane->textCursor();
    cursor.setPosition(
        qBound(0, static_cast<int>(position), m_scanPane->document()->characterCount() - 1));
    m_scanPane->setTextCursor(cursor);
    scrollToSelection();
}

void DictScanEdit::select(const Span& word)
{
    QTextCursor cursor = m_scanPane->textCursor();
    cursor.setPosition(static_cast<int>(word.start));
    cursor.setPosition(static_cast<int>(word.end), QTextCursor::KeepAnchor);
    m_scanPane->setTextCursor(cursor);
    scrollToSelection();
}

// The whole word and, where there is room, a little of what surrounds it; the start of a word that
// is longer than the pane.
void DictScanEdit::scrollToSelection()
{
    constexpr int Surroundings = 16;
    const Span word = selection();
    QScrollBar* const bar = m_scanPane->horizontalScrollBar();
    const auto placeOf = [this, bar](qsizetype position) {
        QTextCursor cursor(m_scanPane->document());
        cursor.setPosition(static_cast<int>(position));
        return m_scanPane->cursorRect(cursor).left() + bar->value();
    };
    const int width = m_scanPane->viewport()->width();
    const int start = placeOf(word.start);
    const int end = placeOf(word.end);
    int left = bar->value();
    if (end + Surroundings > left + width)
        left = end + Surroundings - width;
    if (start - Surroundings < left)
        left = start - Surroundings;
    if (end - left > width)
        left = start;
    bar->setValue(qBound(0, left, bar->maximum()));
    update(); // the marks
    m_scanPane->verticalScrollBar()->setValue(m_scanPane->cursorRect().top()
                                              + m_scanPane->verticalScrollBar()->value());
}

int DictScanEdit::GetNextWod(int& start, int& end) const
{
    const Span word = transwords::next(scanText(), selection().end, cut());
    start = static_cast<int>(word.start);
    end = static_cast<int>(word.end);
    return word.isValid() ? 1 : 0;
}

int DictScanEdit::GetPrevWod(int& start, int& end) const
{
    const Span word = transwords::previous(scanText(), selection().start, cut());
    start = static_cast<int>(word.start);
    end = static_cast<int>(word.end);
    return word.isValid() ? 1 : 0;
}

int DictScanEdit::MoveNext()
{
    int start = 0;
    int end = 0;
    if (!GetNextWod(start, end))
        return 0;
    select({start, end});
    return 1;
}

int DictScanEdit::MovePrev()
{
    int start = 0;
    int end = 0;
    if (!GetPrevWod(start, end))
        return 0;
    select({start, end});
    return 1;
}

// False when there is no line with a word in it.
bool DictScanEdit::moveLine(bool down)
{
    const QTextDocument* const document = m_scanPane->document();
    const QString text = scanText();
    QTextBlock line = document->findBlock(static_cast<int>(selection().start));
    for (line = down ? line.next() : line.previous(); line.isValid();
         line = down ? line.next() : line.previous()) {
        const Span word = transwords::next(text, line.position(), cut());
        if (word.isValid() && word.start < line.position() + line.length()) {
            select(word);
            return true;
        }
    }
    return false;
}

void DictScanEdit::MoveUp()
{
    if (m_curRowOnly != 0) {
        if (!scrollTrans(-1))
            setcurRowonly(0);
        return;
    }
    if (!m_message.isEmpty() && scrollTrans(-1))
        return;
    if (moveLine(false))
        changeTras();
    else
        tellHint(tr("Start of text."));
}

void DictScanEdit::MoveDown()
{
    if (m_curRowOnly != 0) {
        if (!scrollTrans(1))
            tellHint(tr("End of entry."));
        return;
    }
    if (moveLine(true))
        changeTras();
    else if (!m_contents.isEmpty())
        setcurRowonly(1);
    else if (!scrollTrans(1))
        tellHint(tr("End of text."));
}

void DictScanEdit::step(bool forward)
{
    if ((forward ? MoveNext() : MovePrev()) != 0)
        changeTras();
    else
        tellHint(forward ? tr("End of text.") : tr("Start of text."));
}

void DictScanEdit::saveContent()
{
    m_savedContent = m_scanPane->toPlainText();
}

// What the screen holds is the editor's or a scan: there is nothing to be kept or read back.
void DictScanEdit::setScanTextFirst(const QString& text, bool first, bool replace)
{
    Q_UNUSED(text)
    Q_UNUSED(first)
    Q_UNUSED(replace)
}

void DictScanEdit::savetoFile() {}

void DictScanEdit::readFormFile() {}
