#ifndef NEWWORDMANAGER_H
#define NEWWORDMANAGER_H

#include "store/wordbook.h"

#include <QString>
#include <QVector>

/*
 * The new-word book: words that the user has saved together with their translations, the oldest
 * first. It is kept in "/apps/config/newword.cfg".
 *
 * What is in the file is never given up: as long as a file that exists could not be read, it is not
 * written over.
 *
 * Interface thread only.
 */
class NewWordManager
{
public:
    static NewWordManager* manager;

    /* The one instance, created empty on first use, with room for 100 entries. */
    static NewWordManager* Instance();

    /* Deletes the instance, if there is one. */
    static void quitFun();

    /* Loads the file, however many entries it has, and makes it when it is missing. 0, or -1 when
     * it can be neither read nor made: there are no entries then. */
    int init();

    /* The number of entries that put() keeps. Entries that are there stay. */
    void setMaxNum(int number);

    int getSize() const;

    /* Copies an entry; false, and `item` is untouched, outside 0 to getSize() - 1. */
    bool get(int index, WordItem& item) const;

    /* Adds an entry, also of a word that is there already, and writes the file. When the book is
     * full, the oldest entry goes (one, even when there are more than there is room for). Loads the
     * file first when nobody has. 0, or -1 when the file could not be written: the entry is in
     * memory, and in the file once a later call succeeds. */
    int put(const QString& word, const QString& translation);

    /* Writes the file. 0, or -1 when it cannot be written: it is what it was before, and so are
     * the entries. */
    int flush();

private:
    enum class File { NotLoaded, Loaded, Unreadable };

    NewWordManager() = default;

    QVector<WordItem> m_items;
    int m_maxNum = 100;
    File m_file = File::NotLoaded;
};

#endif
