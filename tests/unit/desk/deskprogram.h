#ifndef DESKPROGRAM_H
#define DESKPROGRAM_H

#include <QProcess>
#include <QTemporaryDir>

/* The desk's program, started with a run root of its own. */
class DeskProgram
{
public:
    /* Makes the run root; what is below it may be changed before a start. */
    DeskProgram();

    /* A file or folder that goes with this object; the run root is "root", the folder of what a
     * script writes "out". */
    QString path(const QString& name) const { return m_dir.filePath(name); }

    bool write(const QString& name, const QByteArray& bytes) const;

    /* Environment of the starts that follow. Without a value: unset. */
    void setVariable(const QString& name, const QString& value = {});

    /* Options that name root and pen. */
    QStringList options() const;
    /* Those that play "script.desk", too. */
    QStringList scriptOptions() const;

    /* Runs the desk to its end. Its exit code; -1 when it hung or crashed. */
    int run(const QStringList& options);
    /* Plays this script with "testpen" for the pen, or another that `options` name. */
    int play(const QByteArray& script, const QStringList& options = {});
    /* What it wrote to its standard output and error. */
    QByteArray output() const { return m_output; }

    /* Opens the desk's window, waits until its standard error holds `text`, and asks it to end.
     * Its exit code; -1 as above, or when the text did not come. */
    int openUntil(const QByteArray& text, const QStringList& options = {});

    /* Starts a process of the desk that the caller drives. */
    void start(QProcess& desk, const QStringList& options) const;

private:
    int takeEnd(QProcess& desk);

    QTemporaryDir m_dir;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
    QByteArray m_output;
};

#endif
