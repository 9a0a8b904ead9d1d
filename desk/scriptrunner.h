#ifndef SCRIPTRUNNER_H
#define SCRIPTRUNNER_H

#include "desk/deskscript.h"
#include "desk/scriptconditions.h"
#include "desk/scriptreport.h"

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
 */
class ScriptRunner : public QObject
{
    Q_OBJECT

public:
    /* What a script can have done to the desk's window. */
    struct Window
    {
        std::function<QImage()> picture;        // draws the desk
        std::function<void(bool)> switchFrames; // a film is being made; empty: none can be
        bool keepsPen = false;                  // the end of the script does not end the pen
    };

    /* `outDir` takes the pictures. */
    ScriptRunner(DeskSession& session, DeskScript script, QString outDir, Window window,
                 QObject* parent = nullptr);

    void start();

    /* Ends the script as a failed one. */
    void breakOff();

    /* Why the script failed; empty when it did not. */
    QString failure() const { return m_failure; }

    /* Writes a picture as NAME.png in the output folder; the full path, empty on failure. */
    QString savePicture(const QString& name, const QImage& picture);

signals:
    /* All commands were carried out (and the pen has ended), or one failed. */
    void finished(bool ok);

private:
    using Condition = std::function<bool()>;

    void connectSession();
    void next();
    void carryOut(const DeskCommand& command);
    bool carryOutAction(const DeskCommand& command);
    bool carryOutSetting(const DeskCommand& command);
    void changeLanguage(const DeskCommand& command);
    void pressKey(const DeskCommand& command, int holdMs);
    void swipe(const DeskCommand& command);
    bool beginSwipe(const DeskCommand& command);
    void changeHand(const DeskCommand& command);
    bool changeStorage(const DeskCommand& command);
    void loadPage(const DeskCommand& command);
    void takeScreenshot(const DeskCommand& command);
    void takeDeskShot(const DeskCommand& command);
    void wait(Condition condition, std::function<void()> then);
    void goOn();
    void check();
    void quit();
    void finish(bool ok);
    void fail(const QString& reason);

    DeskSession& m_session;
    const DeskScript m_script;
    const QString m_outDir;
    const Window m_window;
    ScriptReport m_report;
    ScriptConditions m_conditions;
    qsizetype m_next = 0;
    int m_timeOutMs;
    Condition m_condition;
    std::function<void()> m_then;
    QTimer m_timeOut;
    QTimer m_poll;
    QStringList m_pictures;
    qsizetype m_toldUtterances = 0;
    QString m_failure;
    bool m_finished = false;
};

#endif
