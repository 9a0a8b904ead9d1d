// DictScanEdit, translations: looking up, and the pane that shows what was found.

#include "dict/dictscanedit.h"

#include "engines/translater.h"
#include "platform/devicepaths.h"
#include "platform/zembra_dic.h"
#include "store/configreader.h"

#include <QAbstractTextDocumentLayout>
#include <QImage>
#include <QScrollBar>
#include <QStringList>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>
#include <QUrl>

using transwords::Span;

namespace {

const QString SpeakerMark = QStringLiteral("/apps/res/laba.bmp");
constexpr int SettingIsOn = 0;

// The number of a sense stays in one line with it: no line breaks at a no-break space.
QString withNumbersKept(QString text)
{
    for (qsizetype dot = text.indexOf(QLatin1String(". ")); dot > 0;
         dot = text.indexOf(QLatin1String(". "), dot + 1)) {
        qsizetype start = dot;
        while (start > 0 && text.at(start - 1).isDigit())
            --start;
        if (start < dot && (start == 0 || text.at(start - 1).isSpace()))
            text[dot + 1] = QChar::Nbsp;
    }
    return text;
}

} // namespace

void DictScanEdit::openDictionary(int pair, int dict)
{
    Translater* const dictionaries = Translater::Instance();
    if (!dictionaries->isOpen(pair, dict))
        dictionaries->setDict(pair, dict);
}

// What the selected word may stand under, in the order in which the dictionary is asked.
QStringList DictScanEdit::candidates() const
{
    const Span word = selection();
    if (!word.isValid())
        return {};
    const QString text = scanText();
    const QString selected = text.mid(word.start, word.length());
    if (transwords::isChinese(m_language) && word.end - word.start <= 2
        && transwords::isHan(text, word.start))
        return {transwords::hanRun(text, word.start), selected};
    if (word != m_whole || m_joinedRest.isEmpty())
        return {selected};
    // The hyphen of a word that did not fit into its line, or one that belongs to it; or the line
    // ended with a word of its own.
    const QString piece = m_previousFragment;
    return {piece + m_joinedRest, piece + u'-' + m_joinedRest, m_joinedRest};
}

int DictScanEdit::lookUp(const QString& word)
{
    QVector<_stTransItem> items;
    tagWordPropertyIfo property = {};
    bool unused = false;
    const int count = Translater::Instance()->transWord(word, word, items, unused, property);
    for (const _stTransItem& item : std::as_const(items)) {
        if (!item.trans.trimmed().isEmpty())
            m_contents.append({item.word, item.trans});
    }
    if (m_contents.isEmpty())
        return qMin(count, -1);
    return resultCount(); // entries are there also when the engine could not release them
}

void DictScanEdit::forgetResults()
{
    m_contents.clear();
    m_foundAs.clear();
    m_curResult = 0;
    m_message.clear();
    m_toRemember = false;
    showResults();
}

int DictScanEdit::changeTras()
{
    m_contents.clear();
    m_curResult = 0;
    m_message.clear();
    m_foundAs.clear();
    int result = -1;
    const QStringList words = candidates();
    for (const QString& word : words) {
        result = lookUp(word);
        if (result > 0) {
            m_foundAs = word;
            break;
        }
    }
    if (result <= 0)
        m_message = noResultMessage();
    m_toRemember = result > 0;
    showResults();
    requestReading();
    return result;
}

// Looked up once more, as the dictionary may have been changed over the view that is left; but what
// was heard is not read again.
void DictScanEdit::showAnew()
{
    const int index = m_curResult;
    const bool toRemember = m_toRemember;
    changeTras();
    m_readWanted = false;
    m_toRemember = toRemember;
    setCurIndex(index);
}

int DictScanEdit::researchWords()
{
    return changeTras();
}

QString DictScanEdit::noResultMessage() const
{
    if (transwords::isChinese(m_language) && !transwords::hasHan(scanText()))
        return tr("Current source language is chinese. Please scan chinese text.");
    return tr("No translation result.");
}

// Tells that the entry that was found is worth remembering, once.
void DictScanEdit::remember()
{
    if (std::exchange(m_toRemember, false) && !m_contents.isEmpty())
        emit lookedUp(currentHeadword(), currentTranslation());
}

QString DictScanEdit::currentHeadword() const
{
    return m_contents.value(m_curResult).word;
}

QString DictScanEdit::currentTranslation() const
{
    return m_contents.value(m_curResult).translation;
}

QString DictScanEdit::shownTranslation() const
{
    return m_contents.isEmpty() ? m_message : m_layout.shown;
}

void DictScanEdit::showResults()
{
    dropReports(); // they are about what was shown
    m_markAt = -1;
    if (m_contents.isEmpty())
        m_layout = {};
    else if (m_curRowOnly != 0)
        m_layout = layOutEntry(m_contents.at(m_curResult));
    else
        m_layout = layOutEntries(m_contents, selectedWord());
    m_transPane->clear();
    m_transPane->textCursor().insertText(withNumbersKept(shownTranslation()));
    placeMark();
    scrollToResult();
}

// Of the current entry in what is shown.
int DictScanEdit::shownEntry() const
{
    return m_curRowOnly != 0 ? 0 : m_curResult;
}

// The mark stands before the entry that is read, or that Enter reads.
void DictScanEdit::placeMark()
{
    QTextDocument* const document = m_transPane->document();
    QTextCursor cursor(document);
    if (m_markAt >= 0) {
        cursor.setPosition(m_markAt);
        cursor.deleteChar();
        m_markAt = -1;
    }
    const QUrl name(SpeakerMark);
    const QImage mark(devicePath(SpeakerMark));
    if (m_layout.entries.isEmpty() || mark.isNull())
        return;
    document->addResource(QTextDocument::ImageResource, name, mark);
    m_markAt = static_cast<int>(m_layout.entries.at(shownEntry()).start);
    cursor.setPosition(m_markAt);
    cursor.insertImage(SpeakerMark);
}

// The place in the lower pane of a place in what is shown.
int DictScanEdit::placeOf(qsizetype shown) const
{
    return static_cast<int>(shown) + (m_markAt >= 0 && shown >= m_markAt ? 1 : 0);
}

// By whole lines: the line at `position` comes first if `atTop`, else it is somewhere in the pane.
void DictScanEdit::scrollTo(int position, bool atTop)
{
    const QTextDocument* const document = m_transPane->document();
    const QTextBlock block = document->findBlock(position);
    const int blockTop =
        static_cast<int>(document->documentLayout()->blockBoundingRect(block).top());
    const QTextLine inBlock = block.layout()->lineForTextPosition(position - block.position());
    QScrollBar* const bar = m_transPane->verticalScrollBar();
    const int line = blockTop + (inBlock.isValid() ? static_cast<int>(inBlock.y()) : 0);
    const int last = line + lineHeight() - m_transPane->viewport()->height();
    if (atTop || line < bar->value())
        bar->setValue(line);
    else if (last > bar->value())
        bar->setValue(last);
    update();
}

void DictScanEdit::scrollToResult()
{
    if (m_layout.entries.isEmpty())
        scrollTo(0, true);
    else
        scrollTo(static_cast<int>(m_layout.entries.at(shownEntry()).start), true);
}

int DictScanEdit::lineHeight() const
{
    return m_transPane->fontMetrics().height();
}

// False when there is no further line.
bool DictScanEdit::scrollTrans(int lines)
{
    QScrollBar* const bar = m_transPane->verticalScrollBar();
    const int before = bar->value();
    bar->setValue(before + lines * lineHeight());
    update();
    return bar->value() != before;
}

void DictScanEdit::setcurRowonly(int only)
{
    if (only == m_curRowOnly)
        return;
    m_curRowOnly = only;
    layPanes();
    showResults();
}

void DictScanEdit::leaveWholeView()
{
    setcurRowonly(0);
}

void DictScanEdit::setCurIndex(int index)
{
    const int last = qMax(0, resultCount() - 1);
    m_curResult = qBound(0, index, last);
    if (m_curRowOnly != 0) {
        showResults();
        return;
    }
    placeMark();
    scrollToResult();
}

int DictScanEdit::moveNextResult()
{
    setCurIndex(m_curResult + 1);
    return m_curResult;
}

int DictScanEdit::movePrevResult()
{
    setCurIndex(m_curResult - 1);
    return m_curResult;
}

// A key asks for another entry, which is read as it would be after a look-up.
void DictScanEdit::moveResult(bool forward)
{
    if (m_contents.isEmpty())
        return;
    const int before = m_curResult;
    if ((forward ? moveNextResult() : movePrevResult()) == before) {
        tellHint(forward ? tr("Last entry.") : tr("First entry."));
        return;
    }
    const ConfigReader* config = ConfigReader::Instance();
    if (config->getReadControlDict() == SettingIsOn && config->getReadTransDict() == SettingIsOn)
        soundWordByTypeTrans();
}

QString DictScanEdit::placeText() const
{
    QStringList parts;
    if (selection().isValid())
        parts.append(selectedWord());
    if (resultCount() > 1)
        parts.append(tr("Entry %1 of %2").arg(m_curResult + 1).arg(resultCount()));
    else if (m_contents.isEmpty() && !m_message.isEmpty())
        parts.append(m_message);
    return parts.join(QStringLiteral(". "));
}
