#include "dict/dictscanedit.h"

#include "engines/csoundsrcthread.h"
#include "engines/csoundtransthread.h"
#include "engines/cttsthread.h"
#include "engines/translater.h"
#include "engines/ttsplayer.h"
#include "store/launcher.h"
#include "widgets/hintline.h"
#include "widgets/painting.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QFrame>
#include <QPainter>
#include <QScrollBar>
#include <QTextDocument>
#include <QTextEdit>

namespace {

const QString ScreenStyle =
    QStringLiteral("QTextEdit{background-color:black;color:white;border:none;}");

// What a pane holds before it gets its first text.
const QString EmptyDocument = QStringLiteral(
    "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.0//EN\" "
    "\"http://www.w3.org/TR/REC-html40/strict.dtd\">\n"
    "<html><head><meta name=\"qrichtext\" content=\"1\" /></head><body>\n"
    "<p style=\"-qt-paragraph-type:empty; margin:0px; text-indent:0px;\"></p></body></html>");

// The places of the panes. A column at the right edge stays free for marks.
constexpr QRect ScanPlace(0, 0, 250, 21);
constexpr QRect TransPlace(0, 25, 250, 38);
constexpr QRect LinePlace(3, 22, 250, 1);
constexpr QRect WholePlace(0, 0, 250, painting::ScreenHeight);

// 31 columns; what is left of the width would show slices of a character, and of the height of a
// line.
constexpr int SpareWidth = 2;

// The marks in that column.
constexpr int MarkMiddle = 253;
constexpr int MarkHalf = 2;
constexpr int MarkGap = 3;

qint64 machineMicroseconds()
{
    static const QElapsedTimer timer = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    return timer.nsecsElapsed() / 1000;
}

// Margins that leave whole lines.
class Pane : public QTextEdit
{
public:
    Pane(const QString& name, QWidget* parent) : QTextEdit(parent)
    {
        setObjectName(name);
        setStyleSheet(ScreenStyle);
        setFont(painting::screenFont());
        setFrameStyle(QFrame::NoFrame);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setReadOnly(true);
        setTextInteractionFlags(Qt::NoTextInteraction);
        setContextMenuPolicy(Qt::NoContextMenu);
        setUndoRedoEnabled(false);
        setAcceptRichText(false);
        setHtml(EmptyDocument);
        document()->setDocumentMargin(0);
    }

    void setPlace(const QRect& place)
    {
        const int spare = place.height() % painting::LineHeight;
        setViewportMargins(0, spare / 2, SpareWidth, spare - spare / 2);
        setGeometry(place);
    }
};

} // namespace

DictScanEdit::DictScanEdit(QWidget* parent, bool scan)
    : QWidget(parent), m_scan(scan), m_clock(&machineMicroseconds)
{
    setupUi();
    m_transThread = std::make_unique<CSoundTransThread>([this](QString& text) { Sound(text); });
    m_srcThread = std::make_unique<CSoundSrcThread>([this](QString& text) { SoundSrc(text); });
    m_readSoon.setSingleShot(true);

    connect(m_transThread.get(), &QThread::finished, this, &DictScanEdit::finishTransSound);
    connect(this, &DictScanEdit::recfinished, m_transThread.get(), &CSoundTransThread::haveNewScan);
    connect(m_srcThread.get(), &QThread::finished, this, &DictScanEdit::finishTransSrc);
    connect(this, &DictScanEdit::signalTTShignlight, this, &DictScanEdit::TTShignlightFun);
    connect(this, &DictScanEdit::readingPrepared, this, &DictScanEdit::setPreparedReading);
    connect(&m_readSoon, &QTimer::timeout, this, &DictScanEdit::readIfWanted);
    setLanguage();
    TTSPlayer::Instance()->setEditD(this);
}

DictScanEdit::~DictScanEdit()
{
    // No engine's thread may come here any more before the members go.
    TTSPlayer::forget(this);
    m_stoppedByKey = true;
    m_transThread.reset(); // both wait for their worker
    m_srcThread.reset();
    launcher::speakerLeaves(launcher::Speaker::Translation);
    launcher::speakerLeaves(launcher::Speaker::Source);
}

void DictScanEdit::setupUi()
{
    setObjectName(QStringLiteral("DictScanEdit"));
    setWindowTitle(tr("Form"));
    resize(painting::ScreenWidth, painting::ScreenHeight);
    m_transPane = new Pane(QStringLiteral("editTrans"), this);
    m_scanPane = new Pane(QStringLiteral("editScan"), this);
    m_line = new QFrame(this);
    m_line->setObjectName(QStringLiteral("line"));
    m_line->setFrameShape(QFrame::HLine);
    m_line->setFrameShadow(QFrame::Plain);

    m_scanPane->setFocusPolicy(Qt::ClickFocus);
    m_scanPane->setLineWrapMode(QTextEdit::NoWrap);
    m_transPane->setFocusPolicy(Qt::NoFocus);
    m_transPane->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_scanPane->viewport()->installEventFilter(this);
    m_scanPane->installEventFilter(this);
    m_transPane->installEventFilter(this);
    m_transPane->viewport()->installEventFilter(this);
    m_hint = new HintLine(this);
    resumeeditformat();
}

void DictScanEdit::layPanes()
{
    const bool whole = m_curRowOnly != 0;
    static_cast<Pane*>(m_scanPane)->setPlace(ScanPlace);
    static_cast<Pane*>(m_transPane)->setPlace(whole ? WholePlace : TransPlace);
    m_line->setGeometry(LinePlace);
    m_scanPane->setVisible(!whole);
    m_line->setVisible(!whole);
    // Over the last line of the pane and all that is below it: slices of characters look broken.
    const int above = painting::LineHeight * (whole ? 3 : 1);
    const int hintTop = m_transPane->y() + m_transPane->viewport()->y() + above;
    m_hint->setGeometry(0, hintTop, painting::ScreenWidth, painting::ScreenHeight - hintTop);
    update();
}

void DictScanEdit::resumeeditformat()
{
    setFont(QFont(QStringLiteral("nits")));
    m_scanPane->setFont(painting::screenFont());
    m_transPane->setFont(painting::screenFont());
    layPanes();
}

void DictScanEdit::setTransLan(int pair, int dict)
{
    setPair(pair);
    openDictionary(pair, dict);
}

void DictScanEdit::setPair(int pair)
{
    m_pair = pair;
    setLanguage();
}

void DictScanEdit::setLanguage()
{
    m_language = Translater::Instance()->getLanID(m_pair);
}

void DictScanEdit::setSpeechWorker(CTTSThread* worker)
{
    if (m_menuSpeech)
        disconnect(m_menuSpeech, nullptr, this, nullptr);
    m_menuSpeech = worker;
    if (worker)
        connect(worker, &QThread::finished, this, [this] { m_readSoon.start(0); });
}

void DictScanEdit::setClock(std::function<qint64()> clock)
{
    m_clock = clock ? std::move(clock) : std::function<qint64()>(&machineMicroseconds);
}

void DictScanEdit::tirggleTTShignlight(int offset, int length, int kind)
{
    emit signalTTShignlight(offset, length, kind);
}

void DictScanEdit::tellHint(const QString& text)
{
    m_hint->tell(text);
    emit signalHint(text);
}

// A pointer neither selects nor scrolls; a key that a pane has the focus for is the screen's.
bool DictScanEdit::eventFilter(QObject* object, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        event->ignore(); // it goes on to the parent
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
        return true;
    default:
        break;
    }
    return QWidget::eventFilter(object, event);
}

bool DictScanEdit::focusNextPrevChild(bool next)
{
    Q_UNUSED(next)
    return false;
}

void DictScanEdit::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (m_readWanted)
        m_readSoon.start(0);
}

void DictScanEdit::hideEvent(QHideEvent* event)
{
    m_hint->hide();
    stopReading();
    QWidget::hideEvent(event);
}

void DictScanEdit::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    paintTransMarks(painter);
    if (m_curRowOnly == 0)
        paintScanMarks(painter);
}

// In the column at the right: there is more of the entries above, below.
void DictScanEdit::paintTransMarks(QPainter& painter) const
{
    const QScrollBar* bar = m_transPane->verticalScrollBar();
    const QRect place = m_transPane->geometry();
    const auto mark = [&painter](int top, bool up) {
        for (int row = 0; row <= MarkHalf; ++row) {
            const int half = up ? row : MarkHalf - row;
            painter.fillRect(MarkMiddle - half, top + row, 2 * half + 1, 1, Qt::white);
        }
    };
    if (bar->value() > 0)
        mark(place.top() + MarkGap, true);
    if (bar->value() < bar->maximum())
        mark(place.bottom() - MarkGap - MarkHalf, false);
}

// There is more of the line to the left, to the right.
void DictScanEdit::paintScanMarks(QPainter& painter) const
{
    const QScrollBar* bar = m_scanPane->horizontalScrollBar();
    const QRect place = m_scanPane->geometry();
    const auto mark = [&painter](int middle, bool left) {
        for (int column = 0; column <= MarkHalf; ++column) {
            const int half = left ? column : MarkHalf - column;
            painter.fillRect(MarkMiddle - 1 + column, middle - half, 1, 2 * half + 1, Qt::white);
        }
    };
    if (bar->value() > 0)
        mark(place.top() + MarkGap + MarkHalf, true);
    if (bar->value() < bar->maximum())
        mark(place.bottom() - MarkGap - MarkHalf, false);
}
