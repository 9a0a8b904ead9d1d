#ifndef DESKPLAYER_H
#define DESKPLAYER_H

#include "desk/scriptrunner.h"

#include <QImage>
#include <QObject>
#include <QString>
#include <functional>
#include <memory>

class DeskSession;

/* Plays a script on an open desk: starts the pen anew, and lets it run on at the end. */
class DeskPlayer : public QObject
{
    Q_OBJECT

public:
    /* `session` must outlive this object; `picture` draws the desk. */
    DeskPlayer(DeskSession& session, std::function<QImage()> picture, QObject* parent = nullptr);
    ~DeskPlayer() override;

    /* Begins to play; what keeps it from that, or nothing. Pictures go to a folder beside the
     * script, NAME-out. */
    QString play(const QString& path);
    void stop();
    bool isPlaying() const { return m_runner != nullptr; }

signals:
    void began();
    void finished(bool ok, const QString& told);

private:
    void start();

    DeskSession& m_session;
    const std::function<QImage()> m_picture;
    QString m_name;
    std::unique_ptr<ScriptRunner> m_runner;
    bool m_closing = false; // the pen is, to be started anew
};

#endif
