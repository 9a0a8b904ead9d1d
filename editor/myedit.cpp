#include "editor/myedit.h"

#include "app/widgetchange.h"
#include "engines/crecthread.h"
#include "engines/csoundthread.h"
#include "engines/recchar.h"
#include "engines/ttsplayer.h"
#include "platform/zembra_iap.h"
#include "store/filemanager.h"
#include "store/launcher.h"
#include "store/scantext.h"
#include "widgets/hintline.h"
#include "widgets/messagedialog.h"
#include "widgets/painting.h"
#include "widgets/sandglass.h"

#include "editor/appendrules.h"
#include "editor/caret.h"

#include <QPainter>
#include <QScrollBar>
#include <QTextDocument>
#include <QTimerEvent>

namespace {

constexpr int AutoSavePeriodMs = 300'000;

// The position mark lies over the right edge instead of taking room: all 32 columns stay. One
// pixel wide, as the caret is: the glyphs leave their outermost columns free.
constexpr int MarkWidth = 1;
const QString ScrollBarStyle = QStringLiteral("QScrollBar:vertical{width:0px;}");
const QString ScreenStyle =
    QStringLiteral("MyEdit{background-color:black;color:white;border:none;}");

} // namespace

MyEdit::MyEdit(QWidget* parent) : QTextEdit(parent)
{
    Init();
}

MyEdit::~MyEdit()
{
    // No engine's thread may come here any more before the members go.
    RecChar::forget(this);
    TTSPlayer::forget(this);
    m_soundThread.reset(); // both wait for their worker
    launcher::speakerLeaves(launcher::Speaker::Editor);
    m_recThread.reset();
    m_scanner.reset();
    for (_stImg* image : std::as_const(m_arriving))
        releaseImage(image);
}

void MyEdit::Init()
{
    setObjectName(QStringLiteral("MyEdit"));
    setStyleSheet(ScreenStyle);
    verticalScrollBar()->setStyleSheet(ScrollBarStyle);
    setFont(painting::screenFont());
    setFrameStyle(QFrame::NoFrame);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setAcceptRichText(false);
    setUndoRedoEnabled(false);
    setContextMenuPolicy(Qt::NoContextMenu);
    setCursorWidth(caret::Width);
    document()->setDocumentMargin(0);

    m_hint = new HintLine(this);
    m_readDelay.setObjectName(QStringLiteral("readDelay"));
    m_readDelay.setSingleShot(true);

    m_scanner = std::make_unique<RecChar>(this);
    m_soundThread = std::make_unique<CSoundThread>(this);
    m_recThread = std::make_unique<CRecThread>(this);

    connect(this, &MyEdit::signalEdit, this, &MyEdit::Recognize, Qt::QueuedConnection);
    connect(m_recThread.get(), &QThread::finished, this, &MyEdit::FinishRec);
    connect(m_soundThread.get(), &QThread::finished, this, &MyEdit::FinishSound);
    connect(this, &MyEdit::singalSound, this, &MyEdit::Sound);
    connect(this, &MyEdit::signalTTShignlight, this, &MyEdit::TTShignlightFun);
    connect(&m_readDelay, &QTimer::timeout, this, &MyEdit::readDelaySlot);
    connect(&m_seekTimer, &QTimer::timeout, this, &MyEdit::quickSeek);
    connect(this, &MyEdit::readingPrepared, this, &MyEdit::setPreparedReading);
}

int MyEdit::setFileInfo(const FileInfo& info)
{
    m_bound = false;
    setRenameFlag(false);
    stopAutoSave();
    clear();
    forgetTexts();
    m_file = info;

    FileManager* files = FileManager::Instance();
    const QString text = files->readFile(info);
    if (files->getReturnSize() > scantext::MaxSavedBytes) {
        MessageDialog(this, tr("The file is too big, do not edit the file in computer.")).exec();
        return -1;
    }
    QTextCursor cursor = textCursor();
    cursor.insertText(text);
    setTextCursor(cursor);
    ensureCursorVisible();
    setScanInit();
    m_autoSaveTimer = startTimer(AutoSavePeriodMs);
    m_bound = true;
    return 0;
}

int MyEdit::setScanInit()
{
    m_scanner->setEdit(this);
    return m_scanner->init();
}

// Not toPlainText(): that one turns no-break spaces into blanks.
QString MyEdit::documentText() const
{
    QString text = document()->toRawText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    text.replace(QChar::LineSeparator, u'\n');
    return text;
}

bool MyEdit::saveDocument()
{
    FileManager* const files = FileManager::Instance();
    const QString text = documentText();
    if (!files->saveFile(m_file, text).isEmpty())
        return true;
    // The store has told why; what it means for the text is ours to tell.
    if (!files->isKept(m_file, text))
        tellHint(tr("Not saved. Text is kept here."));
    return false;
}

bool MyEdit::SaveOnly()
{
    if (!m_bound || FileManager::Instance()->getReturnSize() > scantext::MaxSavedBytes)
        return false;
    return saveDocument();
}

void MyEdit::SaveAndExit()
{
    awaitScan();
    if (!m_bound) {
        emit signalEsc();
        return;
    }
    StopTTS();
    stopAutoSave();
    if (!saveDocument()) {
        if (!FileManager::Instance()->isKept(m_file, documentText())) {
            // What was scanned stays on the screen, and the next attempt to leave or the timer
            // saves it.
            m_autoSaveTimer = startTimer(AutoSavePeriodMs);
            return;
        }
        MessageDialog(this, tr("The text is kept in the pen.")).exec();
    }
    m_bound = false;
    leaveEngine();
    emit signalEsc();
    WidgetChange::Instance()->Go2PrevWidget(this, m_previous);
    emit signalDelete();
}

void MyEdit::StopOnly()
{
    awaitScan();
    StopTTS();
    stopAutoSave();
    m_bound = false;
    leaveEngine();
}

void MyEdit::leaveEngine()
{
    clear();
    forgetTexts();
    ZEMBRA_IAP_Uninitialize();
}

void MyEdit::stopAutoSave()
{
    if (m_autoSaveTimer)
        killTimer(m_autoSaveTimer);
    m_autoSaveTimer = 0;
}

void MyEdit::timerEvent(QTimerEvent* event)
{
    if (m_autoSaveTimer && event->timerId() == m_autoSaveTimer)
        SaveOnly();
    else
        QTextEdit::timerEvent(event);
}

void MyEdit::switchScanRection()
{
    ZEMBRA_IAP_Uninitialize();
}

void MyEdit::gotoBeginEdit()
{
    moveCursor(QTextCursor::Start);
}

void MyEdit::setStopFlag(bool stop)
{
    ZEMBRA_IAP_SetStopSignal(stop ? 1 : 0);
}

void MyEdit::tellHint(const QString& text)
{
    if (!m_rename) // it would lie over the name
        m_hint->tell(text);
    if (isReading())
        m_hintAfterReading = text;
    else
        emit signalHint(text);
}

void MyEdit::showEvent(QShowEvent* event)
{
    QTextEdit::showEvent(event);
    emit signalShow(0, m_rename ? documentText() : QString());
}

// The text, and at the right edge a thin mark that tells which part of the document is seen.
void MyEdit::paintEvent(QPaintEvent* event)
{
    if (m_rename) {
        paintRename();
        return;
    }
    QTextEdit::paintEvent(event);
    const QScrollBar* bar = verticalScrollBar();
    const int whole = bar->maximum() + bar->pageStep();
    if (bar->maximum() <= 0 || whole <= 0)
        return;
    const int height = viewport()->height();
    const int markHeight = qMax(4, height * bar->pageStep() / whole);
    const int top = (height - markHeight) * bar->value() / bar->maximum();
    QPainter painter(viewport());
    painter.fillRect(viewport()->width() - MarkWidth, top, MarkWidth, markHeight, Qt::white);
}
