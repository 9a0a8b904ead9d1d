#ifndef PENPROCESS_H
#define PENPROCESS_H

#include <QObject>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTimer>

/*
 * The pen's process: started with the environment that ties it to this desk, stopped gently, and
 * its end told in plain words. Nothing here waits for the process.
 */
class PenProcess : public QObject
{
    Q_OBJECT

public:
    struct Setting
    {
        QString program;
        QString root;           // SWIPELINE_ROOT
        QString waylandDisplay; // name below XDG_RUNTIME_DIR
        QString link;           // SWIPELINE_DESK
        QString wav;            // SWIPELINE_WAV; empty: the sound is heard
        QString fontConfig;     // FONTCONFIG_FILE; empty: the machine's own
        QString hostRuntimeDir; // the user's own XDG_RUNTIME_DIR, where sound servers listen
    };

    explicit PenProcess(Setting setting, QObject* parent = nullptr);
    ~PenProcess() override;

    /* Starts the pen unless it runs; started() or ended() follows. */
    void start();

    /* Asks the process to end, and ends it when it does not. */
    void stop();

    bool isRunning() const;

    /* How the last run ended, in words for the user; empty before. */
    QString lastEnd() const { return m_lastEnd; }
    /* The last run ended by itself with exit code 0. */
    bool endedWell() const { return m_endedWell; }
    /* The last lines that the pen wrote to its standard output and error. */
    QStringList lastOutput() const { return m_output; }

    /* The environment variables set for the pen. */
    static QProcessEnvironment environment(const Setting& setting);

signals:
    void started();
    void ended(const QString& how, bool well);
    void outputLine(const QString& line);

private:
    void readOutput();
    void takeEnd(const QString& how, bool well);

    const Setting m_setting;
    QProcess m_process;
    QTimer m_killTimer;
    QByteArray m_partialLine;
    QStringList m_output;
    QString m_lastEnd;
    bool m_endedWell = true;
    bool m_stopping = false;
};

#endif
