// DictScanEdit, texts: from the editor, from scans, from the new-word book.

#include "dict/dictscanedit.h"

#include "engines/translater.h"
#include "store/launcher.h"
#include "widgets/hintline.h"

#include <QTextCursor>
#include <QTextEdit>

using transwords::Span;

void DictScanEdit::setScanText(const QString& text, bool replace)
{
    stopReading();
    leaveWholeView();
    m_pendingFragment.clear();
    if (replace)
        showScanText(text);
    else
        appendText(text); // a joined word that is shown stays one
    putCursor(0);
    MoveNext();
    changeTras();
    update();
}

void DictScanEdit::appendText(const QString& text)
{
    if (!m_scanPane)
        return;
    const Span selected = selection();
    QTextCursor end(m_scanPane->document());
    end.movePosition(QTextCursor::End);
    if (!m_scanPane->document()->isEmpty())
        end.insertBlock();
    end.insertText(asPlainText(text));
    select(selected); // a selection at the end would have grown
}

// The word in whole, then without what the editor's words may have at their ends, then the first
// dictionary word in it. When nothing is found the selection stays on its first word.
int DictScanEdit::transWordForEdit(const QString& word)
{
    const QString text = scanText();
    for (const QString& candidate : {word, transwords::trimmed(word, m_language)}) {
        const qsizetype start = candidate.isEmpty() ? -1 : text.indexOf(candidate);
        if (start < 0 || transwords::isChinese(m_language))
            continue;
        const Span before = selection();
        const Span whole = std::exchange(m_whole, Span{start, start + candidate.size()});
        select(m_whole);
        const int count = changeTras();
        if (count > 0) {
            remember();
            return count;
        }
        m_whole = whole;
        select(before);
    }
    if (m_contents.isEmpty()) {
        int position = 0;
        if (findFirst(text, position))
            selectFrom(position - 1);
    }
    const int count = changeTras();
    remember();
    return count;
}

void DictScanEdit::takeScan(const QString& text)
{
    if (text.trimmed().isEmpty())
        return;
    stopReading();
    leaveWholeView();
    m_scan = true;
    showScanText(text);
    researchScanText();
}

void DictScanEdit::researchScanText()
{
    QString text = scanText();
    while (text.endsWith(u' '))
        text.chop(1);
    if (text.isEmpty())
        return;
    m_previousFragment = std::exchange(m_pendingFragment, QString());
    showScanText(text);

    int position = 0;
    const bool found = findFirst(text, position);
    const bool joins = !transwords::isWrittenWithoutBlanks(m_language);
    if (joins)
        takeFragment(text);
    const bool joined = joins && joinFragment();
    const bool triesJoined = joined && m_whole.isValid();

    if (!joins)
        selectCharacterBefore(position);
    else if (!(triesJoined && selectJoined()))
        selectFrom(firstPlace(found ? position : 0));
    if (!triesJoined || selection() != m_whole) // else it has been looked up
        changeTras();
    remember();
}

// The first dictionary word of the line, as the engine finds it: its place counts from 1.
bool DictScanEdit::findFirst(const QString& text, int& position)
{
    QVector<QString> candidates;
    bool unused = false;
    position = 0;
    const int count = Translater::Instance()->transWordFirst(text, candidates, position, unused);
    if (count <= 0 || position < 0 || position > text.size())
        position = 0;
    return position > 0;
}

void DictScanEdit::takeFragment(const QString& text)
{
    const Span piece = transwords::fragmentAtEnd(text, {m_language, false, {}});
    if (piece.isValid())
        m_pendingFragment = text.mid(piece.start, piece.length());
}

// Puts the piece that the scan before ended with in front; the two are one word from then on.
bool DictScanEdit::joinFragment()
{
    if (m_previousFragment.isEmpty())
        return false;
    const Span rest = transwords::restAtStart(scanText(), {m_language, false, {}});
    QTextCursor start(m_scanPane->document());
    start.insertText(m_previousFragment + u'-');
    if (rest.isValid()) {
        m_whole = {0, joinedLength() + rest.end};
        m_joinedRest = scanText().mid(joinedLength(), rest.length());
    }
    return true;
}

qsizetype DictScanEdit::joinedLength() const
{
    return m_previousFragment.isEmpty() ? 0 : m_previousFragment.size() + 1;
}

// What was joined is what the user scanned for: it comes first if the dictionary has it, wherever
// else the line holds words.
bool DictScanEdit::selectJoined()
{
    select(m_whole);
    return changeTras() > 0;
}

// Where the selection looks for its word: at the engine's place in what was scanned. When the
// engine found nothing, at the start; but a piece that could not be joined was there before.
qsizetype DictScanEdit::firstPlace(int position) const
{
    if (position > 0)
        return joinedLength() + position - 1;
    return m_whole.isValid() ? 0 : joinedLength();
}

void DictScanEdit::selectFrom(qsizetype position)
{
    putCursor(position);
    if (MoveNext() != 0)
        return;
    putCursor(0);
    MoveNext();
}

// In scripts without blanks the engine's place is the one behind its first character, counted from
// 0: the word before it is the one that was found. Where that is more than one code unit, a rare
// character or a word in Western letters, its end is behind it.
void DictScanEdit::selectCharacterBefore(int position)
{
    const Span word = transwords::next(scanText(), position - 1, cut());
    putCursor(position > 0 && word.start == position - 1 ? word.end : position);
    if (MovePrev() == 0)
        selectFrom(0);
}

bool DictScanEdit::showStored(const QString& word, const QString& translation)
{
    if (word.trimmed().isEmpty() || translation.trimmed().isEmpty())
        return false;
    stopReading();
    leaveWholeView();
    m_previousFragment.clear();
    m_pendingFragment.clear();
    m_scan = false;
    const QString line = word.simplified();
    showScanText(line);
    m_whole = {0, line.size()};
    select(m_whole);
    m_contents = {{line, translation}};
    m_foundAs = line;
    m_message.clear();
    m_curResult = 0;
    m_toRemember = false;
    showResults();
    requestReading();
    return true;
}

void DictScanEdit::sendTriggleToMain()
{
    launcher::tellSwipe();
}

void DictScanEdit::beginScan()
{
    m_hint->hide();
    stopReading();
    sendTriggleToMain();
}

void DictScanEdit::clearEditText()
{
    stopReading();
    leaveWholeView();
    showScanText(QString());
    forgetResults();
    sendTriggleToMain();
}
