#ifndef STOREFIXTURE_H
#define STOREFIXTURE_H

#include "store/filemanager.h"
#include "store/scantext.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/testroot.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QStringList>

/* The words of a text that are divided by single blanks. */
inline QStringList words(const char* text)
{
    return QString::fromUtf8(text).split(u' ');
}

/*
 * A pen with an empty card and an empty list, and what tests of the scan-file store ask of it.
 */
class StoreFixture
{
public:
    StoreFixture()
    {
        fakes::reset();
        m_root.write(listPlace(), {});
    }
    ~StoreFixture() { FileManager::quitFun(); }
    StoreFixture(const StoreFixture&) = delete;
    StoreFixture& operator=(const StoreFixture&) = delete;

    static QString listPlace() { return QStringLiteral("/apps/config/filelist.cfg"); }
    static QString scanPlace(const QString& name)
    {
        return QStringLiteral("/mnt/mmc/e_ScanFile/") + name + QStringLiteral(".txt");
    }
    static QString secondPlace(const QString& name)
    {
        return QStringLiteral("/mnt/mtdblock3/e_ListenFile/") + name + QStringLiteral(".txt");
    }
    static QString today(const char* format = "yyyyMMdd")
    {
        return QDate::currentDate().toString(QString::fromLatin1(format));
    }

    const TestRoot& root() const { return m_root; }
    FileManager& manager() const { return *FileManager::Instance(); }

    /* Writes the list file: the first line, then one line "NAME STORAGE" for each entry. */
    void writeList(int current, const QStringList& entries) const
    {
        QString text = QString::number(current) + u'\n';
        for (const QString& entry : entries)
            text += entry.section(u' ', 0, -2) + QStringLiteral("\tbrief\t20121105\t")
                    + entry.section(u' ', -1) + u'\n';
        m_root.write(listPlace(), scantext::encode(text));
    }
    QString list() const { return scantext::decode(m_root.read(listPlace())); }

    /* Files with these names and their text on the card, listed, and loaded. */
    void load(const QStringList& names, int current = 0) const
    {
        QStringList entries;
        for (const QString& name : names) {
            m_root.write(scanPlace(name), scantext::encode(name));
            entries.append(name + QStringLiteral(" 0"));
        }
        writeList(current, entries);
        FileManager::quitFun();
        manager().init();
    }

    /* The names in stored order. */
    QStringList names() const
    {
        QVector<FileInfo> infos;
        manager().getInfoList(infos);
        QStringList names;
        for (const FileInfo& info : infos)
            names.prepend(info.name);
        return names;
    }
    FileInfo entry(int displayIndex) const
    {
        FileInfo info;
        manager().getInfoByID(displayIndex, info);
        return info;
    }
    QStringList filesOnCard() const
    {
        return QDir(m_root.path(QStringLiteral("/mnt/mmc/e_ScanFile")))
            .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    }

private:
    TestRoot m_root;
};

#endif
