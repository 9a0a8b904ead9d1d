#ifndef DESKSESSION_H
#define DESKSESSION_H

#include "desk/launcher.h"
#include "desk/linkserver.h"
#include "desk/pageloader.h"
#include "desk/pencompositor.h"
#include "desk/penprocess.h"
#include "desk/runtimedir.h"
#include "desk/swipefeeder.h"
#include "desk/transcript.h"

#include <QElapsedTimer>
#include <QObject>
#include <memory>

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

    /* What the display shows: one bit a pixel. Stands still while the pen has switched the
     * refresh off. */
    QImage screen() const { return m_screen; }
    /* How often the screen has changed. */
    quint64 screenChanges() const { return m_screenChanges; }
    /* Milliseconds since screen, speech, swipe or messages last changed. */
    qint64 quietMs() const;

    /* The pen shows something: keys reach it. */
    bool hasWindow() const { return m_compositor->hasWindow(); }

    void startPen();
    void sendKey(Qt::Key key, bool pressed);

    /* The pen is held in the left hand: the camera looks the other way up. */
    void setLeftHand(bool left);
    bool isLeftHand() const { return m_setting.camera.mount.leftHand; }

    /* Swipes with a hand that moves evenly. False when a swipe is under way, there is no page or
     * line, or the way is shorter than a millimetre. */
    bool swipe(QPointF fromMm, QPointF toMm, double speedMmPerS);
    bool swipeLine(int line, double speedMmPerS);
    /* Swipes with the user's own hand. */
    bool beginSwipe(QPointF mm);
    void moveSwipe(QPointF mm);
    void endSwipe(QPointF mm);
    bool isSwiping() const { return m_feeder.isSwiping(); }

    const QVector<SwipeReport>& swipeReports() const { return m_swipeReports; }
    quint64 penRuns() const { return m_penRuns; }

    static constexpr double UsualSpeedMmPerS = 150.0;

signals:
    void screenChanged();
    void speechChanged();
    void cameraSwitched(bool on);
    void swipeStarted();
    void swipeLooksAt(QPointF mm, double angleDeg);
    void swipeEnded(int frames, int lost);
    void swipeReported(const SwipeReport& report);
    void pageChanged();
    void pageFailed(const QString& error);
    void penStarted();
    void penEnded(const QString& how, bool well);

private:
    void makePen(const QString& linkPath);
    void connectLink();
    void connectFeeder();
    void updateScreen();
    void takePage(const PrintedPage& page);
    void makeCamera();
    void stir() { m_quiet.restart(); }

    DeskSetting m_setting;
    QString m_error;
    RuntimeDir m_runtimeDir;
    LinkServer m_link;
    SwipeFeeder m_feeder;
    PageLoader m_pageLoader;
    Transcript m_transcript;
    std::unique_ptr<PenCompositor> m_compositor;
    std::unique_ptr<Launcher> m_launcher;
    std::unique_ptr<PenProcess> m_pen;
    PrintedPage m_page;
    SwipeFeeder::Camera m_camera;
    QImage m_screen;
    bool m_refreshing = true;
    quint64 m_screenChanges = 0;
    quint64 m_penRuns = 0;
    quint32 m_swipes = 0;
    QVector<SwipeReport> m_swipeReports;
    QElapsedTimer m_quiet;
};

#endif
