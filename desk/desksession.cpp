#include "desk/desksession.h"

#include "desk/penlanguages.h"
#include "desk/penpicture.h"
#include "desk/pensettings.h"

#include <QTimer>
#include <utility>

namespace {

const QByteArray DisplayName = QByteArrayLiteral("swipeline-pen");
const QString LinkName = QStringLiteral("link");
constexpr double ShortestSwipeMm = 1.0;
constexpr int LeaveMs = 10'000; // a pen that saves needs a moment

} // namespace

DeskSession::DeskSession(DeskSetting setting, QObject* parent)
    : QObject(parent),
      m_setting(std::move(setting)),
      m_rootLock(m_setting.root + QLatin1String("/.desk.lock")),
      m_feeder(m_link),
      m_screen(penpicture::toOneBit(QImage()))
{
    m_quiet.start();
}

DeskSession::~DeskSession()
{
    // The last windows go with the compositor; nobody here draws them any more.
    if (m_compositor)
        m_compositor->disconnect(this);
}

bool DeskSession::open()
{
    if (!lockRoot())
        return false;
    m_storage = std::make_unique<PenStorage>(m_setting.root);
    // Before anybody else hears of it.
    connect(m_storage.get(), &PenStorage::cardChanged, this, &DeskSession::stir);
    connect(m_storage.get(), &PenStorage::fullChanged, this, &DeskSession::stir);
    if (!m_runtimeDir.isValid()) {
        m_error = tr("A private folder cannot be made in the temporary folder.");
        return false;
    }
    const QString linkPath = m_runtimeDir.filePath(LinkName);
    if (!m_link.listen(linkPath)) {
        m_error = m_link.errorString();
        return false;
    }
    m_compositor = std::make_unique<PenCompositor>(DisplayName);
    m_compositor->create();
    if (m_compositor->socketName() != DisplayName) {
        m_error = tr("The display for the pen cannot be opened in %1.").arg(m_runtimeDir.path());
        return false;
    }
    m_launcher = std::make_unique<Launcher>();
    if (!m_launcher->isListening()) {
        m_error = tr("The launcher's channel cannot be opened in %1.").arg(m_runtimeDir.path());
        return false;
    }
    makePen(linkPath);

    connect(m_compositor.get(), &PenCompositor::pictureChanged, this, &DeskSession::updateScreen);
    connect(m_launcher.get(), &Launcher::logged, this, &DeskSession::stir);
    connect(&m_pageLoader, &PageLoader::loaded, this, &DeskSession::takePage);
    connect(&m_pageLoader, &PageLoader::failed, this, &DeskSession::pageFailed);
    connectLink();
    connectFeeder();
    return true;
}

/* Two pens that write the same files would undo each other's work. */
bool DeskSession::lockRoot()
{
    m_rootLock.setStaleLockTime(0); // however long the other one runs
    if (m_rootLock.tryLock())
        return true;
    qint64 process = 0;
    QString host;
    QString program;
    const bool held = m_rootLock.error() == QLockFile::LockFailedError
                      && m_rootLock.getLockInfo(&process, &host, &program);
    m_error =
        held ? tr("Another desk uses the pen's files in %1 (process %2 on %3). Close it, or make "
                  "files of its own for this one with scripts/make-run-root.")
                   .arg(m_setting.root, QString::number(process), host)
             : tr("The pen's files in %1 cannot be written.").arg(m_setting.root);
    return false;
}

void DeskSession::makePen(const QString& linkPath)
{
    PenProcess::Setting pen;
    pen.program = m_setting.penProgram;
    pen.root = m_setting.root;
    pen.waylandDisplay = QString::fromLatin1(DisplayName);
    pen.link = linkPath;
    pen.wav = m_setting.wav;
    pen.fontConfig = m_setting.fontConfig;
    pen.hostRuntimeDir = m_runtimeDir.hostDir();
    m_pen = std::make_unique<PenProcess>(pen);
    connect(m_pen.get(), &PenProcess::started, this, &DeskSession::penStarted);
    connect(m_pen.get(), &PenProcess::ended, this, [this](const QString& how, bool well) {
        m_transcript.breakOff(desklink::nowUs());
        m_launcher->reset();
        stir();
        emit speechChanged();
        emit penEnded(how, well);
        if (const auto language = std::exchange(m_languageToCome, std::nullopt)) {
            storeLanguage(*language);
            startPen();
        }
    });
}

void DeskSession::connectLink()
{
    connect(&m_link, &LinkServer::cameraSwitched, this, &DeskSession::cameraSwitched);
    connect(&m_link, &LinkServer::swipeReported, this, [this](const SwipeReport& report) {
        m_swipeReports.append(report);
        stir();
        emit swipeReported(report);
    });
    connect(&m_link, &LinkServer::speechBegan, this,
            [this](quint32 id, int language, const QString& text, qint64 timeUs) {
                m_transcript.begin(id, language, text, timeUs);
                stir();
                emit speechChanged();
            });
    connect(&m_link, &LinkServer::wordSpoken, this,
            [this](quint32 id, int offset, int length, qint64 timeUs) {
                m_transcript.word(id, offset, length, timeUs);
                stir();
                emit speechChanged();
            });
    connect(&m_link, &LinkServer::speechEnded, this,
            [this](quint32 id, bool stopped, qint64 timeUs) {
                m_transcript.end(id, stopped, timeUs);
                stir();
                emit speechChanged();
            });
    connect(&m_link, &LinkServer::engineDisconnected, this, [this](desklink::Role role) {
        if (role != desklink::Role::Speech)
            return;
        m_transcript.breakOff(desklink::nowUs());
        emit speechChanged();
    });
    connect(&m_link, &LinkServer::refreshSwitched, this, [this](bool on) {
        m_refreshing = on;
        updateScreen();
    });
}

void DeskSession::connectFeeder()
{
    connect(&m_feeder, &SwipeFeeder::tipDown, this, &DeskSession::swipeStarted);
    connect(&m_feeder, &SwipeFeeder::looksAt, this, &DeskSession::swipeLooksAt);
    connect(&m_feeder, &SwipeFeeder::tipUp, this, [this](int frames, int lost) {
        stir();
        emit swipeEnded(frames, lost);
    });
}

void DeskSession::stir()
{
    m_quietBeforeMs = quietMs();
    m_quiet.restart();
}

qint64 DeskSession::quietMs() const
{
    const bool busy = m_transcript.isSpeaking() || m_feeder.isSwiping() || m_pageLoader.isLoading();
    return busy ? 0 : m_quiet.elapsed();
}

void DeskSession::startPen()
{
    if (m_pen->isRunning())
        return;
    m_refreshing = true;
    stir();
    ++m_penRuns;
    storeHand();
    m_pen->start();
    emit startWanted();
}

void DeskSession::chooseLanguage(int row)
{
    emit languageChosen(row);
    if (!m_pen->isRunning()) {
        storeLanguage(row);
        return;
    }
    const bool closing = m_languageToCome.has_value();
    m_languageToCome = row;
    if (closing)
        return;
    m_launcher->stop();
    // One that does not hear is switched off.
    QTimer::singleShot(LeaveMs, this, [this] {
        if (m_languageToCome)
            m_pen->stop();
    });
}

void DeskSession::storeLanguage(int row)
{
    tellStored(penlanguages::choose(m_setting.root, row));
}

/* As the launcher does: otherwise the pen sees the print upside down. */
void DeskSession::storeHand()
{
    tellStored(pensettings::store(m_setting.root, pensettings::HandKey, m_hand.left ? 1 : 0));
}

void DeskSession::tellStored(bool done)
{
    if (!done)
        emit settingFailed(
            tr("The pen's settings below %1 cannot be written.").arg(m_setting.root));
}

void DeskSession::sendKey(Qt::Key key, bool pressed)
{
    stir();
    m_compositor->sendKey(key, pressed);
    emit keySent(key, pressed);
}

void DeskSession::setHand(const HandModel& hand)
{
    if (hand == m_hand)
        return;
    const bool turned = hand.left != m_hand.left;
    m_hand = hand;
    if (turned)
        storeHand();
    makeCamera();
    emit handChanged();
}

bool DeskSession::move(const QLineF& way, double speedMmPerS)
{
    if (way.length() < ShortestSwipeMm || !m_camera)
        return false;
    HandSettings hand = m_hand.motion(++m_swipes);
    if (speedMmPerS > 0.0)
        hand.speedMmPerS = speedMmPerS;
    stir();
    return m_feeder.swipe(m_camera, HandPath::sampled(way.p1(), way.p2(), hand));
}

bool DeskSession::swipe(QPointF fromMm, QPointF toMm, double speedMmPerS)
{
    if (!move(QLineF(fromMm, toMm), speedMmPerS))
        return false;
    emit waySwiped(fromMm, toMm, speedMmPerS);
    return true;
}

bool DeskSession::swipeLine(int line, double speedMmPerS)
{
    if (line < 0 || line >= m_page.lines.size() || !move(m_page.wayOver(line), speedMmPerS))
        return false;
    emit lineSwiped(line, speedMmPerS);
    return true;
}

bool DeskSession::swipe(const std::vector<PathPoint>& path)
{
    if (path.size() < 2 || !m_camera)
        return false;
    stir();
    if (!m_feeder.swipe(m_camera, HandPath::through(path, m_hand.motion(++m_swipes))))
        return false;
    emit handTouches();
    emit handSwiped(path);
    return true;
}

void DeskSession::trace(QPointF mm)
{
    m_trace.push_back({double(m_traceClock.nsecsElapsed()) / 1e9, mm});
}

bool DeskSession::beginSwipe(QPointF mm)
{
    stir();
    if (!m_camera || !m_feeder.begin(m_camera, mm, m_hand.motion(++m_swipes)))
        return false;
    m_trace.clear();
    m_traceClock.start();
    m_trace.push_back({0.0, mm});
    emit handTouches();
    return true;
}

void DeskSession::moveSwipe(QPointF mm)
{
    m_feeder.move(mm);
    if (!m_trace.empty())
        trace(mm);
}

void DeskSession::endSwipe(QPointF mm)
{
    m_feeder.lift(mm);
    if (m_trace.empty())
        return;
    trace(mm);
    emit handSwiped(std::exchange(m_trace, {}));
}

void DeskSession::updateScreen()
{
    if (!m_refreshing && m_compositor->hasWindow())
        return;
    const QImage now = penpicture::toOneBit(m_compositor->picture());
    if (now == m_screen)
        return;
    m_screen = now;
    ++m_screenChanges;
    stir();
    emit screenChanged();
}

void DeskSession::takePage(const PrintedPage& page)
{
    m_page = page;
    makeCamera();
    stir();
    emit pageChanged();
}

void DeskSession::makeCamera()
{
    if (!m_page.isEmpty())
        m_camera = std::make_shared<const PenCamera>(m_page.image, m_page.dpi,
                                                     m_hand.seenBy(m_setting.camera));
}
