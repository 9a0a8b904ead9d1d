#ifndef SCRIPTRUNNER_H
#define SCRIPTRUNNER_H

#include "desk/deskscript.h"
#include "desk/scriptreport.h"

#include <QElapsedTimer>
#include <QImage>
#include <QObject>
#include <QTimer>
#include <functional>

class DeskSession;

/*
 * Carries out a script on a desk, without blocking: each command acts and may wait for a
 * condition, which is looked at whenever something happens on the desk (and a few times a second,
 * for files). A condition that does not come true in time, or an expectation that does not hold,
 * ends the script.
 *
 * Waits for the screen, for speech, messages and swipes look at what happened since the last
 * action (key, swipe, message, start); expectations look at the whole run.
 */
class ScriptRunner : public QObject
{
    Q_OBJECT

public:
    /* `outDir` takes the pictures; `deskShot` draws the desk. */
    ScriptRunner(DeskSession& session, DeskScript script, QString outDir,
                 std::function<QImage()> deskShot, QObject* parent = nullptr);

    void start();

    /* Ends the script as a failed one. */
    void breakOff();

    /* Writes a picture as NAME.png in the output folder; the full path, empty on failure. */
    QString savePicture(const QString& name, const QImage& picture);

signals:
    /* All commands were carried out (and the pen has ended), or one failed. */
    void finished(bool ok);

private:
    /* How things stood at the last action. */
    struct Mark
    {
        QImage screen;
        qsizetype utterances = 0;
        qsizetype messages = 0;
        qsizetype swipes = 0;
    };
    using Condition = std::function<bool()>;

    void connectSession();
    void mark();
    void next();
    void carryOut(const DeskCommand& command);
    bool carryOutAction(const DeskCommand& command);
    bool carryOutSetting(const DeskCommand& command);
    void pressKey(const DeskCommand& command, int holdMs);
    void swipe(const DeskCommand& command);
    void loadPage(const DeskCommand& command);
    void takeScreenshot(const DeskCommand& command);
    void takeDeskShot(const DeskCommand& command);
    Condition conditionOf(const DeskCommand& command) const;
    bool holds(const DeskCommand& command, bool sinceMark) const;
    void wait(Condition condition, std::function<void()> then);
    void goOn();
    void check();
    void quit();
    void finish(bool ok);
    void fail(const QString& reason);

    DeskSession& m_session;
    const DeskScript m_script;
    const QString m_outDir;
    const std::function<QImage()> m_deskShot;
    ScriptReport m_report;
    Mark m_mark;
    qsizetype m_next = 0;
    int m_timeOutMs;
    Condition m_condition;
    std::function<void()> m_then;
    QTimer m_timeOut;
    QTimer m_poll;
    QStringList m_pictures;
    qsizetype m_toldUtterances = 0;
    QElapsedTimer m_still; // since the screen changed, or a wait for that began
    bool m_finished = false;
};

#endif
