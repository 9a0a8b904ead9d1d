#ifndef SCRIPTVIEW_H
#define SCRIPTVIEW_H

#include <QWidget>

class QPlainTextEdit;
class QPushButton;
class SessionRecorder;

/* What was done on the desk, as the script that it becomes; to be saved, and to be played again. */
class ScriptView : public QWidget
{
    Q_OBJECT

public:
    /* `recorder` must outlive this object. */
    explicit ScriptView(const SessionRecorder& recorder, QWidget* parent = nullptr);

    /* Ask for a file. */
    void save();
    void open();

    void setPlaying(bool playing);

signals:
    void playWanted(const QString& path);
    void stopWanted();
    /* For the user: what was saved where, or why not. */
    void told(const QString& text, bool alarm);

private:
    void showScript();

    const SessionRecorder& m_recorder;
    QPlainTextEdit* m_text;
    QPushButton* m_play;
    bool m_playing = false;
};

#endif
