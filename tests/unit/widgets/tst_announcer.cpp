#include "widgets/announcer.h"

#include <QStringList>
#include <QTest>

/* Who speaks messages. */
class TestAnnouncer : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void speakerGetsWhatIsAnnounced();
    void withoutASpeakerNothingIsKept();
    void nobodySpeaksAfterTheSpeakerHasGone();
    void hushReachesWhoSpeaks();

private:
    void listen()
    {
        announcer::setSpeaker([this](const QString& text) { m_texts.append(text); });
    }

    QStringList m_texts;
};

static const QString A = QStringLiteral("a");
static const QString B = QStringLiteral("b");

void TestAnnouncer::cleanup()
{
    announcer::setSpeaker(nullptr);
    m_texts.clear();
}

void TestAnnouncer::speakerGetsWhatIsAnnounced()
{
    listen();
    announcer::announce(A);
    announcer::announce(B);
    QCOMPARE(m_texts, (QStringList{A, B}));
}

void TestAnnouncer::withoutASpeakerNothingIsKept()
{
    announcer::announce(A);
    listen();
    QCOMPARE(m_texts, QStringList());
    announcer::announce(B);
    QCOMPARE(m_texts, QStringList{B});
}

void TestAnnouncer::nobodySpeaksAfterTheSpeakerHasGone()
{
    listen();
    announcer::setSpeaker(nullptr);
    announcer::announce(A);
    QCOMPARE(m_texts, QStringList());
}

void TestAnnouncer::hushReachesWhoSpeaks()
{
    announcer::hush(); // nobody
    int hushed = 0;
    announcer::setSpeaker([](const QString&) {}, [&hushed] { ++hushed; });
    announcer::hush();
    QCOMPARE(hushed, 1);
    listen();
    announcer::hush();
    QCOMPARE(hushed, 1);
}

QTEST_GUILESS_MAIN(TestAnnouncer)
#include "tst_announcer.moc"
