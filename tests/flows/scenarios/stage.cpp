#include "tests/flows/scenarios/stage.h"

#include "app/mainwindow.h"
#include "app/startup.h"
#include "dict/dictscanedit.h"
#include "editor/myedit.h"
#include "engines/csoundsrcthread.h"
#include "engines/csoundthread.h"
#include "engines/csoundtransthread.h"
#include "engines/cttsthread.h"
#include "tests/fakes/fakedic.h"
#include "tests/fakes/fakeiap.h"
#include "tests/fakes/fakeocr.h"
#include "tests/fakes/fakesystem.h"
#include "tests/fakes/faketts.h"
#include "widgets/sandglass.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QTimer>
#include <algorithm>

namespace {

constexpr int DeadlineMs = 60'000;
constexpr int CalmTurns = 3;
constexpr int SpinMs = 20;
constexpr int PatienceTurnMs = 1;
const QString Execute = QStringLiteral("execute(QString) ");

Stage* onStage = nullptr;

// Below a dialog only the sign of a recognition counts: that goes on there.
qsizetype busySigns()
{
    const bool dialog = QApplication::activeModalWidget() != nullptr;
    const QWidgetList all = QApplication::allWidgets();
    return std::count_if(all.begin(), all.end(), [dialog](const QWidget* widget) {
        return qobject_cast<const SandGlass*>(widget)
               && (!dialog || qobject_cast<const MyEdit*>(widget->parentWidget()));
    });
}

// A thread counts as not running just before it tells of its end: that has to be on its way.
bool hasEnded(QThread& thread)
{
    return thread.wait(QDeadlineTimer(0));
}

bool readingHasEnded()
{
    const QWidgetList all = QApplication::allWidgets();
    return std::all_of(all.begin(), all.end(), [](const QWidget* widget) {
        if (const auto* const editor = qobject_cast<const MyEdit*>(widget))
            return hasEnded(*editor->soundThread());
        const auto* const screen = qobject_cast<const DictScanEdit*>(widget);
        return !screen
               || (!screen->isReading() && hasEnded(*screen->srcThread())
                   && hasEnded(*screen->transThread()));
    });
}

// Through windows, too: the list of a combo box is one.
bool isOwnedBy(const QObject* object, const QObject* owner)
{
    while (object && object != owner)
        object = object->parent();
    return object;
}

} // namespace

Stage::Stage() : m_state(std::make_unique<ApplicationState>())
{
    FakeSystem::reset();
    takeDeviceTable(QStringLiteral("/apps/config/scanlanguage.cfg"));
    takeDeviceTable(QStringLiteral("/apps/config/menulan.cfg"));
    m_ear = std::make_unique<LauncherEar>();
    static const bool prepared = [] {
        qAddPreRoutine([] {
            if (onStage)
                onStage->applicationMade();
        });
        return true;
    }();
    Q_UNUSED(prepared)
    onStage = this;
}

// The language tables of a pen as it is sold.
void Stage::takeDeviceTable(const QString& penPath)
{
    QFile file(QStringLiteral(SWIPELINE_SOURCE_DIR "/device") + penPath);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("there is no %s", qPrintable(file.fileName()));
    m_state->root.write(penPath, file.readAll());
}

Stage::~Stage()
{
    onStage = nullptr;
    joinReleaser();
    m_ear.reset();
    if (m_windowSeen)
        m_state->singletonsAreGone();
    m_state.reset();
    FakeSystem::reset();
}

int Stage::run(const Prompter& prompter, News& last)
{
    if (m_windowSeen)
        m_state->singletonsAreGone();
    m_prompter = prompter;
    m_windowSeen = false;
    m_ending = false;
    m_waitingActions = 0;
    m_awaitedMarks = 0;
    m_calmTurns = 0;
    m_sinceUnrest.start();
    QByteArray name("pen");
    char* arguments[] = {name.data(), nullptr};
    const int result = runApplication(1, arguments);
    gather();
    last = std::exchange(m_news, {});
    checkEngines();
    return result;
}

void Stage::applicationMade()
{
    later(0);
}

void Stage::later(int milliseconds)
{
    QTimer::singleShot(milliseconds, this, &Stage::tick);
}

// Never blocks: what does (a key that opens a dialog) is an event of its own, and the turns go on
// within.
void Stage::tick()
{
    if (m_waitingActions == 0 && m_awaitedMarks == 0)
        m_turnIsDue = false;
    const QString unrestful = unrest();
    if (!unrestful.isEmpty() || somethingNew()) {
        m_calmTurns = 0;
        if (m_sinceUnrest.elapsed() > DeadlineMs) {
            giveUp(QStringLiteral("The application does not come to rest: ") + unrestful);
            return;
        }
        later(m_sinceUnrest.elapsed() < SpinMs ? 0 : PatienceTurnMs);
        return;
    }
    if (++m_calmTurns < CalmTurns)
        later(0);
    else
        rest();
}

bool Stage::somethingNew()
{
    const qsizetype before = m_news.sent.size() + m_news.sounds.size() + m_news.engines.size();
    gather();
    return m_news.sent.size() + m_news.sounds.size() + m_news.engines.size() != before;
}

void Stage::gather()
{
    const std::vector<std::string> calls = CallLog::texts();
    CallLog::clear();
    m_news.spoken += m_voice.heed(calls);
    for (const std::string& call : calls)
        m_news.engines.append(QString::fromStdString(call));
    for (const QString& message : m_ear->take()) {
        const QString word = message.mid(Execute.size());
        if (message.startsWith(Execute) && word.startsWith(QLatin1String("sound"))) {
            m_news.sounds.append(word);
            m_lastSound = word;
        } else {
            m_news.sent.append(message);
        }
    }
}

QString Stage::unrest()
{
    MainWindow* const main = window();
    if (!main || !main->isVisible())
        return QStringLiteral("no window is shown");
    if (!std::exchange(m_windowSeen, true))
        watchWindow(main);
    if (m_waitingActions > 0 || m_awaitedMarks > 0)
        return QStringLiteral("an action waits");
    const bool speaking = m_voiceHeld && FakeTts::isSpeaking();
    if (main->menuSpeech() && !hasEnded(*main->menuSpeech()) && !speaking)
        return QStringLiteral("the menu speech does not end");
    if (!readingHasEnded() && !speaking)
        return QStringLiteral("the reading does not end");
    const bool opening = main->isOpeningDictionary();
    if (opening && !m_dictionaryHeld)
        return QStringLiteral("the dictionary does not open");
    const bool recognising = m_recognitionHeld && FakeOcr::isRecognizing();
    // Who waits for a dictionary has a sign of his own; a recognition has another.
    if (busySigns() > (main->awaitsDictionary() ? 1 : 0) && !recognising)
        return QStringLiteral("the busy sign stays");
    // A file name is recognised within the scan engine's callback, without the sign.
    const bool inCallback = recognising && busySigns() == 0;
    if (!m_tipIsDown && !FakeIap::isIdle() && !inCallback)
        return QStringLiteral("the scan engine works on");
    if (!frontWindowIsActive())
        return QStringLiteral("the front window is not active");
    return {};
}

// It says so while its children are still there.
void Stage::watchWindow(MainWindow* main)
{
    m_widgetsLeft.clear();
    connect(main, &QObject::destroyed, this, [this, main] {
        for (const QWidget* widget : QApplication::allWidgets()) {
            const bool desktop = widget->windowType() == Qt::Desktop; // Qt's own
            if (!desktop && !isOwnedBy(widget, main))
                m_widgetsLeft.append(QString::fromLatin1(widget->metaObject()->className()));
        }
    });
}

// Plays the window system, which gives the keys to the window in front.
bool Stage::frontWindowIsActive()
{
    QWidget* front = QApplication::activeModalWidget();
    if (!front)
        front = window();
    if (QApplication::activeWindow() == front->window())
        return true;
    front->activateWindow();
    return false;
}

void Stage::rest()
{
    checkSounds();
    if (!m_problem.isEmpty()) {
        giveUp(m_problem);
        return;
    }
    const int before = m_actions;
    m_prompter(std::exchange(m_news, {}));
    if (m_actions == before)
        end();
    m_calmTurns = 0;
    m_sinceUnrest.start();
    later(0);
}

// The launcher mutes and unmutes by these words: they have to be true.
void Stage::checkSounds()
{
    const bool told = m_lastSound == QLatin1String("soundyes");
    if (told != FakeTts::isSpeaking())
        m_problem = told ? QStringLiteral("The launcher believes that the pen speaks.")
                         : QStringLiteral("The launcher believes that the pen is silent.");
}

void Stage::end()
{
    letGo();
    if (std::exchange(m_ending, true))
        giveUp(QStringLiteral("The application does not end."));
    else
        send(QStringLiteral("execute(QString)"), "stoponly");
}

void Stage::giveUp(const QString& problem)
{
    m_problem = problem;
    letGo();
    QApplication::closeAllWindows();
    QCoreApplication::exit(1);
}

void Stage::checkEngines()
{
    // Without a window the process ends at once, and the engines with it.
    if (!m_problem.isEmpty() || !m_windowSeen)
        return;
    if (FakeOcr::openHandles() > 0 || FakeOcr::openResults() > 0 || FakeOcr::misuses() > 0)
        m_problem = QStringLiteral("The recognition engine was misused or not freed.");
    else if (FakeDic::openRecords() > 0 || FakeDic::misuses() > 0)
        m_problem = QStringLiteral("The dictionary engine was misused or not freed.");
    else if (FakeTts::isStarted() || FakeIap::isStarted())
        m_problem = QStringLiteral("An engine was left running.");
}

MainWindow* Stage::window()
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* const main = qobject_cast<MainWindow*>(widget))
            return main;
    }
    return nullptr;
}
