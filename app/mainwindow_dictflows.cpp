// MainWindow, dictionary mode: from the word at the cursor to its translation and back, and the
// scans that come meanwhile.

#include "app/mainwindow.h"

#include "app/widgetchange.h"
#include "dict/dictscanedit.h"
#include "dict/transwords.h"
#include "editor/myedit.h"
#include "editor/wordwalk.h"
#include "engines/cttsthread.h"
#include "engines/flags.h"
#include "engines/translater.h"
#include "engines/ttsplayer.h"
#include "platform/zembra_iap.h"
#include "store/configreader.h"
#include "store/newwordmanager.h"
#include "store/statisticmanager.h"
#include "widgets/messagedialog.h"
#include "widgets/painting.h"

#include <QDateTime>
#include <QScopedValueRollback>

namespace {

constexpr int CountingOn = 0; // value of the statistics setting

} // namespace

QString MainWindow::getWordFromCursor() const
{
    return m_editor ? m_editor->getWordFromMyEdit() : QString();
}

// The word is the editor's: the editor is the screen to come back to, not the menu over it.
void MainWindow::transWordFun()
{
    {
        const QScopedValueRollback silently(m_editorHintHeld, true);
        returnToEditor();
    }
    TTSPlayer::Instance()->stop();
    hushMenu();
    m_utterancePending = false;
    if (m_editor)
        m_editor->StopTTS();
    const bool ready = beginTranslation();
    const QString word = getWordFromCursor();
    if (word.isEmpty()) {
        g_InDict = false; // a scan that comes while the message is shown is the editor's
        tellNoWord();
    } else if (ready) {
        translate(word);
    } else {
        g_InDict = false;
        awaitDictionary(word);
    }
}

// False when the dictionary is not open (yet): the screen would open it itself, and block.
bool MainWindow::beginTranslation()
{
    g_InDict = true;
    ensureTransEdit();
    if (!dictionaryIsReady())
        return false;
    const ConfigReader* config = ConfigReader::Instance();
    m_transEdit->setTransLan(config->getLanDict(), config->getLanDictInfo());
    return true;
}

void MainWindow::ensureTransEdit()
{
    if (m_transEdit)
        return;
    m_transEdit = new DictScanEdit(this, true);
    m_transEdit->setGeometry(rect());
    m_transEdit->hide();
    m_transEdit->installEventFilter(this);
    m_transEdit->setSpeechWorker(m_menuSpeech.get());
    connect(m_transEdit, &DictScanEdit::escPressed, this, &MainWindow::backFromTransEdit);
    connect(m_transEdit, &DictScanEdit::signalOKInTrans, this, &MainWindow::TTSPlayInTransSlot);
    connect(m_transEdit, &DictScanEdit::signalTTSendInTrans, this,
            &MainWindow::TTSPlayEndInTransSlot);
    connect(m_transEdit, &DictScanEdit::signalQuickset, this, &MainWindow::quickSetSlotForDict);
    connect(m_transEdit, &DictScanEdit::signalKeyPress, this, &MainWindow::keyPressSlot);
    connect(m_transEdit, &DictScanEdit::signalHint, this, &MainWindow::hintSlot);
    connect(m_transEdit, &DictScanEdit::lookedUp, this, &MainWindow::rememberWord);
}

void MainWindow::tellNoWord()
{
    MessageDialog(nullptr, tr("word is null"), MessageDialog::UsualMilliseconds).exec();
    if (m_transEdit)
        m_transEdit->resumeeditformat();
    leaveTranslation();
    focusCurrent();
}

// Chinese is written without blanks, and the editor has a word for each character: where the one at
// the cursor ends the dictionary tells, from what follows.
QString MainWindow::textToTranslate(const QString& word) const
{
    const int language = Translater::Instance()->getLanID(ConfigReader::Instance()->getLanDict());
    if (!m_editor || !transwords::isChinese(language))
        return word;
    const QString text = m_editor->documentText();
    const WordSpan span = wordAt(text, m_editor->textCursor().position());
    const bool isHan = span.isValid() && transwords::isHan(text, span.start);
    return isHan && text.mid(span.start, span.length()) == word
               ? transwords::hanRun(text, span.start)
               : word;
}

void MainWindow::translate(const QString& word)
{
    WidgetChange* const screens = WidgetChange::Instance();
    const QString text = textToTranslate(word);
    m_transEdit->setScanText(text, true);
    const int found = m_transEdit->transWordForEdit(text);
    m_transEdit->setPrevWidget(screens->getCurWidget());
    m_dictChanged = false;
    m_storedIsShown = false;
    screens->Go2NewWidget(m_transEdit);
    if (found > 0)
        countTranslation(word);
}

// The last column is for the language of the definitions: it is looked up, and left out.
void MainWindow::countTranslation(const QString& word) const
{
    if (ConfigReader::Instance()->getStatisInfo() != CountingOn)
        return;
    const int pair = ConfigReader::Instance()->getLanDict();
    const int target = Translater::Instance()->getEndLanID(pair);
    const int source = Translater::Instance()->getLanID(pair);
    const QString from = StatisticManager::IsoMapFun(source);
    StatisticManager::IsoMapFun(target);
    StatisticManager::Instance()->flush({QString::number(QDateTime::currentMSecsSinceEpoch()), 1,
                                         word, from + QStringLiteral("\tnull")});
}

void MainWindow::backFromTransEdit()
{
    leaveTranslation();
}

// What was begun on the translate screen and is still to come goes elsewhere from now on.
void MainWindow::leaveTranslation()
{
    g_InDict = false;
    m_waitingScans.clear();
    setFont(painting::screenFont());
    if (m_editor)
        m_editor->setFont(painting::screenFont());
}

void MainWindow::TTSPlayInTransSlot()
{
    m_lastVoice = Voice::Translation;
    if (m_editor)
        m_editor->setTTSFlagInTrans(true);
}

void MainWindow::TTSPlayEndInTransSlot()
{
    if (m_editor)
        m_editor->setTTSFlagInTrans(false);
}

// The same word twice in a row is remembered once, even if the pen was off in between.
void MainWindow::rememberWord(const QString& word, const QString& translation)
{
    NewWordManager* const book = NewWordManager::Instance();
    WordItem last;
    if (!book->get(book->getSize() - 1, last) || last.word != word)
        book->put(word, translation);
}

void MainWindow::beginTransScan()
{
    m_transEdit->beginScan();
}

void MainWindow::takeTransScan(const QString& text)
{
    if (text.trimmed().isEmpty()) {
        m_transEdit->tellHint(tr("Nothing recognised."));
    } else if (m_dictJob || (hasDictionaries() && !dictionaryIsReady())) {
        // Looking it up would wait for the dictionary, or for a card that was pulled out.
        m_waitingScans.append(text);
        if (!m_dictJob)
            openDictionary();
        showDictBusy();
    } else {
        showTransScan(text);
    }
}

// It may have been on its way when a remembered word was brought up: that one is gone then.
void MainWindow::showTransScan(const QString& text)
{
    m_transEdit->takeScan(text);
    m_storedIsShown = false;
    resumeTranslation();
}

// The translate screen is shown (again): the pen may scan unless what it shows is remembered only,
// and a dictionary that was changed meanwhile has its say.
void MainWindow::resumeTranslation()
{
    if (WidgetChange::Instance()->getCurWidget() != m_transEdit)
        return;
    ZEMBRA_IAP_SetStopSignal(m_storedIsShown || m_dictJob ? 1 : 0);
    if (!m_confirmation.isEmpty())
        talkingMenuTTS(0, QString(), QString()); // what was chosen in a menu over it
    if (m_dictJob)
        showDictBusy();
    else if (std::exchange(m_dictChanged, false) && !m_storedIsShown && beginTranslation())
        m_transEdit->researchWords();
}
