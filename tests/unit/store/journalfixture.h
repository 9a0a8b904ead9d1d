#ifndef JOURNALFIXTURE_H
#define JOURNALFIXTURE_H

#include "store/storejournal.h"
#include "tests/unit/store/storefixture.h"

#include <optional>

/* What the tests of the journal share: a card with one file, "a", which holds "old", and a journal
 * over it, made anew for each test function. */
class JournalFixture : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

protected:
    using Result = StoreJournal::Result;

    static inline const QByteArray New = scantext::encode(QStringLiteral("new"));

    QString path(const char* name) const { return f->scanPlace(QString::fromLatin1(name)); }
    QString text(const char* name) const { return scantext::decode(f->root().read(path(name))); }
    QByteArray logged() const { return f->root().read(QStringLiteral("/apps/config/store.jnl")); }
    QString folder() const { return f->root().path(QStringLiteral("/mnt/mmc/e_ScanFile")); }
    void takeCardOut() const;
    void putCardBack() const;
    void restart() { journal.emplace(); }
    void see(const char* name) { journal->noteRead(path(name), f->root().read(path(name))); }

    std::optional<StoreFixture> f;
    std::optional<StoreJournal> journal;
};

#endif
