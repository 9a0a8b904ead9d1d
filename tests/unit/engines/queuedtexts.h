#ifndef QUEUEDTEXTS_H
#define QUEUEDTEXTS_H

#include "tests/fakes/faketts.h"

#include <QTest>
#include <memory>

/* Of the texts that come while a worker speaks, it speaks the newest. */
template <class Thread> void speaksTheNewestOfThoseQueuedMeanwhile(Thread& thread)
{
    FakeTts::setPace(FakeTts::Pace::Held);
    thread.setContent(QStringLiteral("first"));
    thread.start();
    QVERIFY(FakeTts::waitUntilSpeaking());
    thread.setContent(QStringLiteral("dropped"));
    thread.setContent(QStringLiteral("second"));
    FakeTts::setPace(FakeTts::Pace::Automatic);
    QVERIFY(thread.wait());
    QCOMPARE(FakeTts::texts(), (std::vector<std::u16string>{u"first", u"second"}));
}

/* Destroyed while it speaks, a worker ends, and what is queued behind is not spoken. */
template <class Thread> void endsWhenDestroyedWhileSpeaking(std::unique_ptr<Thread> thread)
{
    FakeTts::setPace(FakeTts::Pace::Held);
    thread->setContent(QStringLiteral("text"));
    thread->start();
    QVERIFY(FakeTts::waitUntilSpeaking());
    thread->setContent(QStringLiteral("behind"));
    thread.reset();
    QVERIFY(!FakeTts::isSpeaking());
    QCOMPARE(FakeTts::texts().size(), std::size_t{1});
}

#endif
