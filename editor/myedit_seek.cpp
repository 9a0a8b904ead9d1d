// MyEdit, quick seek: the cursor runs while a key is held.

#include "editor/myedit.h"

#include "widgets/scanbusy.h"

using Direction = QuickSeek::Direction;

void MyEdit::startSeek(Direction direction)
{
    m_seekStart = textCursor().position();
    m_seek.start(direction);
    m_seekTimer.start(QuickSeek::IntervalMs);
    quickSeek();
}

void MyEdit::stopSeek()
{
    m_seek.stop();
    m_seekTimer.stop();
}

void MyEdit::quickSeek()
{
    if (!m_seek.isActive())
        return;
    if (scanEngineIsBusy()) {
        stopSeek();
        return;
    }
    const QuickSeek::Step step = m_seek.next();
    const bool back = m_seek.direction() == Direction::Back;
    const bool moved = step.unit == QuickSeek::Unit::Line
                           ? moveLines(m_seek.direction(), step.count)
                       : back ? MovePrevWord()
                              : MoveNextWord();
    if (!moved)
        endSeek();
}

// The seek has come to an end of the text: its word is spoken, or, when the seek began there, that
// there is no more.
void MyEdit::endSeek()
{
    const bool back = m_seek.direction() == Direction::Back;
    const QString text = documentText();
    const WordSpan last = back ? nextWord(text, -1) : previousWord(text, text.size());
    const bool nothingPassed = back ? last.start >= m_seekStart : last.start <= m_seekStart;
    if (!last.isValid() || nothingPassed) {
        stopSeek();
        tellEnd(m_seek.direction());
        return;
    }
    moveTo(static_cast<int>(last.start));
    landSeek();
}

void MyEdit::landSeek()
{
    stopSeek();
    const QString text = documentText();
    const int position = textCursor().position();
    WordSpan word = wordAt(text, position);
    if (!word.isValid())
        word = nextWord(text, position);
    if (!word.isValid())
        word = previousWord(text, position);
    if (!word.isValid())
        return;
    moveTo(static_cast<int>(word.start));
    readWordAtCursor();
}
