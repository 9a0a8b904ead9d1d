// MyEdit, walking: the cursor goes over words and lines.

#include "editor/myedit.h"

using Direction = QuickSeek::Direction;

WordSpan MyEdit::GetPrevWod() const
{
    return previousWord(documentText(), textCursor().position());
}

WordSpan MyEdit::GetNextWod() const
{
    return nextWord(documentText(), textCursor().position());
}

bool MyEdit::MovePrevWord()
{
    const WordSpan word = GetPrevWod();
    if (word.isValid())
        moveTo(static_cast<int>(word.start));
    return word.isValid();
}

bool MyEdit::MoveNextWord()
{
    const WordSpan word = GetNextWod();
    if (word.isValid())
        moveTo(static_cast<int>(word.start));
    return word.isValid();
}

QString MyEdit::getWordFromMyEdit() const
{
    const QString text = documentText();
    const WordSpan word = wordAt(text, textCursor().position());
    return word.isValid() ? text.mid(word.start, word.length()) : QString();
}

bool MyEdit::hasWords() const
{
    return nextWord(documentText(), -1).isValid();
}

// OK reads, or stops what is being read; a single word that is just spoken gives way.
void MyEdit::PressEnter()
{
    if (isReading() && m_amount == Amount::Passage)
        StopTTS();
    else
        readFromCursor();
}

void MyEdit::MovePrev()
{
    if (MovePrevWord())
        readWordAtCursor();
    else
        tellEnd(Direction::Back);
}

void MyEdit::MoveNext()
{
    if (MoveNextWord())
        readWordAtCursor();
    else
        tellEnd(Direction::Forward);
}

void MyEdit::MoveUp()
{
    if (!moveLines(Direction::Back, 1))
        tellEnd(Direction::Back);
}

void MyEdit::MoveDown()
{
    if (!moveLines(Direction::Forward, 1))
        tellEnd(Direction::Forward);
}

// False when there are fewer lines: the cursor is on the last one in that direction.
bool MyEdit::moveLines(Direction direction, int count)
{
    QTextCursor cursor = textCursor();
    const auto line = direction == Direction::Back ? QTextCursor::Up : QTextCursor::Down;
    const bool whole = cursor.movePosition(line, QTextCursor::MoveAnchor, count);
    setTextCursor(cursor);
    ensureCursorVisible();
    return whole;
}

void MyEdit::moveTo(int position)
{
    QTextCursor cursor = textCursor();
    cursor.setPosition(qBound(0, position, document()->characterCount() - 1));
    setTextCursor(cursor);
    ensureCursorVisible();
}

// The user has walked against an end of the text.
void MyEdit::tellEnd(Direction direction)
{
    if (!hasWords()) {
        tellHint(tr("No text."));
        return;
    }
    const bool back = direction == Direction::Back;
    moveCursor(back ? QTextCursor::Start : QTextCursor::End);
    tellHint(back ? tr("Start of text.") : tr("End of text."));
}
