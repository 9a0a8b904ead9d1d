#ifndef SESSIONRECORDER_H
#define SESSIONRECORDER_H

#include "desk/handmodel.h"
#include "desk/launcher.h"
#include "desk/pagesource.h"
#include "desk/sessionscript.h"

#include <QElapsedTimer>
#include <QHash>
#include <QObject>

class DeskSession;

/*
 * Listens to a desk and writes down what is done on it, by hand or by a script, since it was made.
 * Make it before the first page is laid and the pen is started.
 */
class SessionRecorder : public QObject
{
    Q_OBJECT

public:
    /* `session` is open and must outlive this object. */
    explicit SessionRecorder(DeskSession& session, QObject* parent = nullptr);

    /* The session so far as a script. */
    QString script() const { return m_script.text(); }

    /* Writes the script to a file. The error, or nothing. */
    QString save(const QString& path) const;

signals:
    /* The script reads otherwise now. */
    void changed();

private:
    void takeKey(Qt::Key key, bool pressed);
    void takeMessage(const Launcher::Entry& entry);
    void takePage();
    void takeHand();
    void takeSpeech();
    void begin();
    QString languageLine(int row) const;
    bool isAtRest() const;
    void act(const QString& line);
    void act(const QString& line, qint64 sinceMs, bool atRest);
    void set(const QString& line);

    DeskSession& m_session;
    SessionScript m_script;
    QElapsedTimer m_clock;
    QHash<Qt::Key, qint64> m_keysDown; // since when
    HandModel m_hand;
    PageSource m_page;
    bool m_hasPage = false;
    qsizetype m_utterances = 0;
    bool m_keyAtRest = false;  // when the key went down
    bool m_handAtRest = false; // when the hand touched the page
    qint64 m_handSince = 0;
    bool m_cableAtRest = false;
    bool m_changesLanguage = false;
};

#endif
