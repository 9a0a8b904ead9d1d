#ifndef TESTROOT_H
#define TESTROOT_H

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

/*
 * A run root of its own for a test: SWIPELINE_ROOT and XDG_RUNTIME_DIR name folders in it as long
 * as the object lives, and it is deleted with it. It has the pen's folders, the two language
 * tables and an empty settings file.
 *
 * Rows of the scan-language table: 0 English (101), 1 French (103), 2 German (104), 3 Spanish
 * (105), 4 Russian (151), 5 Chinese (1). Rows of the menu-language table: 0 English, 1 Chinese.
 */
class TestRoot
{
public:
    TestRoot();
    ~TestRoot();

    TestRoot(const TestRoot&) = delete;
    TestRoot& operator=(const TestRoot&) = delete;

    /* The place on this machine of a file of the pen ("/apps/config/config.ini"). */
    QString path(const QString& penPath) const;

    /* Writes a file of the pen, with the folders that it needs. */
    void write(const QString& penPath, const QByteArray& bytes) const;

    /* A file's bytes; empty when it is not there. */
    QByteArray read(const QString& penPath) const;

    bool exists(const QString& penPath) const;

    /* Stores one setting ("SystemSet/Speed") in the settings file. */
    void setSetting(const QString& key, int value) const;

private:
    QTemporaryDir m_dir;
    QByteArray m_oldRoot;
    QByteArray m_oldRuntimeDir;
};

#endif
