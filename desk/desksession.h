#ifndef DESKSESSION_H
#define DESKSESSION_H

#include "desk/handmodel.h"
#include "desk/launcher.h"
#include "desk/linkserver.h"
#include "desk/pageloader.h"
#include "desk/pencompositor.h"
#include "desk/penprocess.h"
#include "desk/penstorage.h"
#include "desk/runtimedir.h"
#include "desk/swipefeeder.h"
#include "desk/transcript.h"

#include <QElapsedTimer>
#include <QLockFile>
#include <QObject>
#include <memory>
#include <optional>

/* What a desk is opened with. */
struct DeskSetting
{
    QString penProgram;
    QString root;       // the pen's files
    QString fontConfig; // for the pen; empty: the machine's own
    QString wav;        // the pen's sound goes there; empty: it is heard
    CameraSettings camera;
};

/*
 * The desk without a window: the pen's process and display, the launcher, the link, the page and
 * the hand. The window shows it and a script drives it. Interface thread.
 */
class DeskSession : public QObject
{
    Q_OBJECT

public:
    explicit DeskSession(DeskSetting setting, QObject* parent = nullptr);
    ~DeskSession() override;

    /* Opens sockets and display. False: see errorString(). Call once, before anything else. */
    bool open();
    QString errorString() const { return m_error; }

    const DeskSetting& setting() const { return m_setting; }
    PenProcess& pen() { return *m_pen; }
    const PenProcess& pen() const { return *m_pen; }
    Launcher& launcher() { return *m_launcher; }
    LinkServer& link() { return m_link; }
    const Transcript& transcript() const { return m_transcript; }
    const PrintedPage& page() const { return m_page; }
    const SwipeFeeder& feeder() const { return m_feeder; }
    PageLoader& pageLoader() { return m_pageLoader; }
    /* Once it is open. */
    PenStorage& storage() { return *m_storage; }

    /* What the display shows: one bit a pixel. Stands still while the pen has switched the
     * refresh off. */
    QImage screen() const { return m_screen; }
    /* How often the screen has changed. */
    quint64 screenChanges() const { return m_screenChanges; }
    /* Milliseconds since screen, speech, swipe or messages last changed. */
    qint64 quietMs() const;
    /* The same for the moment before the last action. */
    qint64 quietBeforeMs() const { return m_quietBeforeMs; }

    /* The pen shows something: keys reach it. */
    bool hasWindow() const { return m_compositor->hasWindow(); }

    void startPen();

    /* Sets the language of the pen's interface, a row of penlanguages::list(). A pen that runs is
     * asked to save and close, and is started anew. */
    void chooseLanguage(int row);

    void sendKey(Qt::Key key, bool pressed);

    /* How the pen is held and moved, and the light. The pen is told which hand holds it, which
     * counts from the next start of its scan engine: when it opens a file. */
    void setHand(const HandModel& hand);
    const HandModel& hand() const { return m_hand; }

    /* Swipes with the hand of hand(), at its speed or another (0: its own). False when a swipe is
     * under way, there is no page or line, or the way is shorter than a millimetre. */
    bool swipe(QPointF fromMm, QPointF toMm, double speedMmPerS = 0.0);
    bool swipeLine(int line, double speedMmPerS = 0.0);
    /* Swipes as a hand has moved before, with the wobble of hand(). False as above. */
    bool swipe(const std::vector<PathPoint>& path);
    /* Swipes with the user's own hand: its way and its pace, the wobble of hand(). */
    bool beginSwipe(QPointF mm);
    void moveSwipe(QPointF mm);
    void endSwipe(QPointF mm);
    bool isSwiping() const { return m_feeder.isSwiping(); }

    const QVector<SwipeReport>& swipeReports() const { return m_swipeReports; }
    quint64 penRuns() const { return m_penRuns; }

signals:
    void screenChanged();
    void speechChanged();
    void cameraSwitched(bool on);
    void swipeStarted();
    void swipeLooksAt(QPointF mm, double angleDeg);
    void swipeEnded(int frames, int lost);
    void swipeReported(const SwipeReport& report);
    void pageChanged();
    void handChanged();
    /* What was done to the pen, for those who write it down. */
    void keySent(Qt::Key key, bool pressed);
    void startWanted();
    void languageChosen(int row);
    void settingFailed(const QString& error);
    void lineSwiped(int line, double speedMmPerS);
    void waySwiped(QPointF fromMm, QPointF toMm, double speedMmPerS);
    void handTouches();
    void handSwiped(const std::vector<PathPoint>& path);
    void pageFailed(const QString& error);
    void penStarted();
    void penEnded(const QString& how, bool well);

private:
    bool lockRoot();
    void makePen(const QString& linkPath);
    void connectLink();
    void connectFeeder();
    void storeLanguage(int row);
    void storeHand();
    void tellStored(bool done);
    void updateScreen();
    void takePage(const PrintedPage& page);
    void makeCamera();
    bool move(const QLineF& way, double speedMmPerS);
    void trace(QPointF mm);
    void stir();

    DeskSetting m_setting;
    QString m_error;
    QLockFile m_rootLock;
    RuntimeDir m_runtimeDir;
    LinkServer m_link;
    SwipeFeeder m_feeder;
    PageLoader m_pageLoader;
    std::unique_ptr<PenStorage> m_storage; // of files that no other desk uses
    Transcript m_transcript;
    std::unique_ptr<PenCompositor> m_compositor;
    std::unique_ptr<Launcher> m_launcher;
    std::unique_ptr<PenProcess> m_pen;
    PrintedPage m_page;
    HandModel m_hand;
    SwipeFeeder::Camera m_camera;
    std::vector<PathPoint> m_trace; // of the user's hand
    QElapsedTimer m_traceClock;
    QImage m_screen;
    bool m_refreshing = true;
    quint64 m_screenChanges = 0;
    quint64 m_penRuns = 0;
    std::optional<int> m_languageToCome; // once the pen has closed
    quint32 m_swipes = 0;
    QVector<SwipeReport> m_swipeReports;
    QElapsedTimer m_quiet;
    qint64 m_quietBeforeMs = 0;
};

#endif
