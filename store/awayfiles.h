#ifndef AWAYFILES_H
#define AWAYFILES_H

#include "store/fileinfo.h"

#include <QByteArray>
#include <QString>
#include <QVector>

#include <functional>

/*
 * What is known of files whose card is not there, until it is back. A value; no files, no clock.
 */
class AwayFiles
{
public:
    bool isEmpty() const { return m_files.isEmpty(); }

    /* Takes an entry out of the list's sight; `current`: it is the one to continue. A name that is
     * away already stays as it is. */
    void add(const FileInfo& info, bool current);

    /* Takes the entries that `isBack` tells to be there again, before those of `files`, which are
     * younger; `current` follows: a file that was current when it went is so again. Ids are the
     * places then. Entries that `files` has meanwhile are forgotten. */
    void bringBack(QVector<FileInfo>& files, int& current,
                   const std::function<bool(const FileInfo&)>& isBack);

    /* As bytes, empty when there are none; and from bytes, behind those that are here. */
    QByteArray save() const;
    void restore(const QByteArray& bytes);

private:
    QVector<FileInfo> m_files; // oldest first
    QString m_current;         // name; null: none of them
};

#endif
