#ifndef RUNTIMEDIR_H
#define RUNTIMEDIR_H

#include <QString>
#include <QTemporaryDir>

/*
 * A runtime folder (XDG_RUNTIME_DIR, mode 0700) that only this desk and its pen share, so that
 * several desks can stand side by side. Removed at the end.
 *
 * Make it after the application object, which may need the user's own folder to find the screen,
 * and before anything that listens.
 */
class RuntimeDir
{
public:
    RuntimeDir();
    ~RuntimeDir();
    RuntimeDir(const RuntimeDir&) = delete;
    RuntimeDir& operator=(const RuntimeDir&) = delete;

    bool isValid() const { return m_dir.isValid(); }
    QString path() const { return m_dir.path(); }
    QString filePath(const QString& name) const { return m_dir.filePath(name); }
    /* The user's own folder; empty when there is none. */
    QString hostDir() const { return m_hostDir; }

private:
    QString m_hostDir;
    QTemporaryDir m_dir;
};

#endif
