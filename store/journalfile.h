#ifndef JOURNALFILE_H
#define JOURNALFILE_H

#include "store/journalformat.h"

#include <QVector>

/*
 * The journal on the internal flash, "/apps/config/store.jnl".
 *
 * A record is committed with one flush. When all have had their effect the file is emptied. While
 * some wait for a card, new ones follow behind them; when too much of what stands there is
 * outdated, the file is written anew.
 *
 * The file is read when it is first asked for. Interface thread only.
 */
class JournalFile
{
public:
    /* The records that wait for their effect, in their order. */
    const QVector<journalformat::Record>& waiting();

    /* Writes a record and flushes it; its number, or 0 when the flash refuses it (nothing of it
     * is left then). */
    quint64 commit(journalformat::Record record);

    /* Records have had their effect, or are called off. `atOnce`: on the flash when this returns,
     * else when the next record or sync() gets there. */
    void forget(const QVector<quint64>& numbers, bool atOnce);

private:
    void load();
    bool append(const journalformat::Record& record);
    bool writeAnew(const journalformat::Record& record);

    bool m_loaded = false;
    bool m_readable = true;
    qint64 m_end = 0;   // of the last whole record
    quint64 m_next = 1; // the next record's number
    QVector<journalformat::Record> m_waiting;
};

#endif
