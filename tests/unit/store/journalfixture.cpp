#include "tests/unit/store/journalfixture.h"

#include <QTest>

void JournalFixture::init()
{
    f.emplace();
    f->root().write(path("a"), scantext::encode(QStringLiteral("old")));
    journal.emplace();
}

void JournalFixture::cleanup()
{
    journal.reset();
    f.reset();
}

void JournalFixture::takeCardOut() const
{
    QVERIFY(QDir().rename(folder(), folder() + u'x'));
}

void JournalFixture::putCardBack() const
{
    QVERIFY(QDir().rename(folder() + u'x', folder()));
}
