#include "store/launcher.h"

#include "tests/fakes/qcoprecorder.h"
#include "tests/fakes/testroot.h"

#include <QTest>
#include <memory>
#include <thread>

using launcher::Speaker;

static const QString SoundYes = QStringLiteral("execute(QString) soundyes");
static const QString SoundNo = QStringLiteral("execute(QString) soundno");

class TestLauncher : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void wordsOfTheProtocol();
    void everyBeginningIsTold();
    void endIsToldWhenNobodySpeaks();
    void lateEndDoesNotSilenceTheNextSpeaker();
    void endOfOneWhoNeverBeganIsTold();
    void speakerThatLeavesTellsItsEndOnce();
    void speakersOfManyThreadsEndSilent();

private:
    QStringList heard(int count);

    std::unique_ptr<TestRoot> m_root;
    std::unique_ptr<QCopRecorder> m_recorder;
};

void TestLauncher::init()
{
    m_root = std::make_unique<TestRoot>();
    m_recorder = std::make_unique<QCopRecorder>();
}

void TestLauncher::cleanup()
{
    m_recorder.reset();
    m_root.reset();
}

// A swipe closes the list, so that a message too many is seen.
QStringList TestLauncher::heard(int count)
{
    launcher::tellSwipe();
    m_recorder->waitFor(count + 1);
    QStringList messages = m_recorder->messages();
    if (!messages.isEmpty() && messages.last().endsWith(QStringLiteral("trigger")))
        messages.removeLast();
    return messages;
}

void TestLauncher::wordsOfTheProtocol()
{
    launcher::tellShown();
    launcher::tellLeft();
    QCOMPARE(heard(2), (QStringList{"Show(QString) scan", "ESC(QString) escpressed"}));
}

void TestLauncher::everyBeginningIsTold()
{
    launcher::tellSoundBegins(Speaker::Editor);
    launcher::tellSoundBegins(Speaker::Editor);
    launcher::tellSoundEnds(Speaker::Editor);
    QCOMPARE(heard(3), (QStringList{SoundYes, SoundYes, SoundNo}));
}

void TestLauncher::endIsToldWhenNobodySpeaks()
{
    launcher::tellSoundBegins(Speaker::Menu);
    launcher::tellSoundBegins(Speaker::Editor);
    launcher::tellSoundEnds(Speaker::Menu);
    QCOMPARE(heard(2), (QStringList{SoundYes, SoundYes}));
    m_recorder->clear();
    launcher::tellSoundEnds(Speaker::Editor);
    QCOMPARE(heard(1), QStringList{SoundNo});
}

void TestLauncher::lateEndDoesNotSilenceTheNextSpeaker()
{
    launcher::tellSoundBegins(Speaker::Editor); // a reading, cut short by a key
    launcher::tellSoundBegins(Speaker::Menu);
    launcher::tellSoundEnds(Speaker::Editor); // its end is heard late
    launcher::tellSoundEnds(Speaker::Menu);
    QCOMPARE(heard(3), (QStringList{SoundYes, SoundYes, SoundNo}));
}

void TestLauncher::endOfOneWhoNeverBeganIsTold()
{
    launcher::tellSoundEnds(Speaker::Translation);
    QCOMPARE(heard(1), QStringList{SoundNo});
}

void TestLauncher::speakerThatLeavesTellsItsEndOnce()
{
    launcher::speakerLeaves(Speaker::Source);
    launcher::tellSoundBegins(Speaker::Source);
    launcher::speakerLeaves(Speaker::Source);
    launcher::speakerLeaves(Speaker::Source);
    QCOMPARE(heard(2), (QStringList{SoundYes, SoundNo}));
}

void TestLauncher::speakersOfManyThreadsEndSilent()
{
    std::vector<std::thread> threads;
    for (const Speaker speaker :
         {Speaker::Menu, Speaker::Editor, Speaker::Translation, Speaker::Source})
        threads.emplace_back([speaker] {
            launcher::tellSoundBegins(speaker);
            launcher::tellSoundEnds(speaker);
        });
    for (std::thread& thread : threads)
        thread.join();
    m_recorder->waitFor(SoundNo);
    launcher::tellSwipe();
    m_recorder->waitFor(QStringLiteral("execute(QString) trigger"));
    const QStringList messages = m_recorder->messages();
    QCOMPARE(messages.count(SoundYes), 4);
    QCOMPARE(messages.at(messages.size() - 2), SoundNo);
}

QTEST_GUILESS_MAIN(TestLauncher)
#include "tst_launcher.moc"
