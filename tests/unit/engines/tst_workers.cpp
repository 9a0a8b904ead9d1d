#include "editor/myedit.h"
#include "engines/crecthread.h"
#include "engines/csoundsrcthread.h"
#include "engines/csoundthread.h"
#include "engines/csoundtransthread.h"
#include "engines/cttsthread_setup.h"
#include "engines/cttsthreadforset.h"
#include "engines/ocrpen.h"
#include "engines/readingthread.h"
#include "engines/stimg.h"
#include "engines/translater.h"
#include "engines/ttsplayer.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/fakedic.h"
#include "tests/fakes/fakeocr.h"
#include "tests/fakes/faketts.h"
#include "tests/fakes/testroot.h"
#include "tests/unit/engines/freshsettings.h"

#include <QSettings>
#include <QTest>
#include <future>
#include <memory>

namespace {

// Speaks what it reads, as a screen does.
struct Speaker
{
    void operator()(QString& text) const { TTSPlayer::Instance()->play(text); }
};

// Two dictionaries of one pair and one of another, which is damaged.
void installDictionaries()
{
    FakeDic::Dictionary damaged;
    damaged.unreadable = true;
    FakeDic::addPair(101, 104, u"English - German", {{}, {}});
    FakeDic::addPair(104, 101, u"German - English", {damaged});
}

void run(CTtsThread& thread)
{
    thread.start();
    QVERIFY(thread.wait());
}

} // namespace

// The threads that read aloud, recognise, and apply language changes.
class TestWorkers : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void onlyTheNewestTextIsRead();
    void aTextQueuedWhileReadingIsReadNext();
    void clearedTextsAreNotRead();
    void stoppingAndClearingEndsTheThread();
    void aStopBetweenTakingAndSpeakingIsNotLost();
    void aTextQueuedAsTheThreadEndsIsReadAfterAll();
    void destroyingAReaderWhileItReadsEndsIt();
    void aReaderWithoutScreenEnds();
    void aTranslationThatIsQueuedForgetsTheNewScan();
    void aNewScanIsSeenWhileATranslationIsRead();
    void onlyTheNewestTranslationIsRead();
    void theSourceIsReadOnceWithAnEmptyText();
    void destroyingTheSourceReaderWhileItReadsEndsIt();
    void anImageIsHandedOverOnce();
    void anImageThatIsReplacedIsFreed();
    void anImageNeverRecognisedIsFreed();
    void withoutImageNothingIsRecognised();
    void theDictionaryChangeIsStored();
    void theChosenDictionaryIsOpened();
    void theDictionaryOfTheSettingsIsOpened();
    void aDictionaryThatIsOpenIsLeftOpen();
    void theDictionaryIsClosed();
    void aDictionaryThatCannotBeOpenedLeavesNoneOpen();
    void theScanLanguageChangeIsStoredAndApplied_data();
    void theScanLanguageChangeIsStoredAndApplied();

private:
    int setting(const QString& key) const;

    std::unique_ptr<TestRoot> m_root;
};

void TestWorkers::init()
{
    m_root = std::make_unique<TestRoot>();
    fakes::reset();
    freshSettings();
    TTSPlayer::Instance();
    CallLog::clear();
}

void TestWorkers::cleanup()
{
    Translater::quitFun();
    fakes::reset();
    OCRPen::quitFun();
    TTSPlayer::quitFun();
    m_root.reset();
}

int TestWorkers::setting(const QString& key) const
{
    return QSettings(m_root->path(QStringLiteral("/apps/config/config.ini")), QSettings::IniFormat)
        .value(key, -99)
        .toInt();
}

void TestWorkers::onlyTheNewestTextIsRead()
{
    ReadingThread thread{Speaker()};
    thread.setContent(QStringLiteral("one"));
    thread.setContent(QStringLiteral("two"));
    thread.setContent(QStringLiteral("three"));
    thread.start();
    QVERIFY(thread.wait());
    QCOMPARE(FakeTts::texts(), std::vector<std::u16string>{u"three"});
}

void TestWorkers::aTextQueuedWhileReadingIsReadNext()
{
    FakeTts::setPace(FakeTts::Pace::Held);
    ReadingThread thread{Speaker()};
    thread.setContent(QStringLiteral("first"));
    thread.start();
    QVERIFY(FakeTts::waitUntilSpeaking());
    thread.setContent(QStringLiteral("dropped"));
    thread.setContent(QStringLiteral("second"));
    FakeTts::setPace(FakeTts::Pace::Automatic);
    QVERIFY(thread.wait());
    QCOMPARE(FakeTts::texts(), (std::vector<std::u16string>{u"first", u"second"}));
}

void TestWorkers::clearedTextsAreNotRead()
{
    ReadingThread thread{Speaker()};
    thread.setContent(QStringLiteral("text"));
    thread.clearContent();
    thread.start();
    QVERIFY(thread.wait());
    QVERIFY(FakeTts::texts().empty());
}

void TestWorkers::stoppingAndClearingEndsTheThread()
{
    FakeTts::setPace(FakeTts::Pace::Held);
    ReadingThread thread{Speaker()};
    thread.setContent(QStringLiteral("first"));
    thread.start();
    QVERIFY(FakeTts::waitUntilSpeaking());
    thread.setContent(QStringLiteral("second"));
    thread.clearContent();
    TTSPlayer::Instance()->stop();
    QVERIFY(thread.wait());
    QCOMPARE(FakeTts::texts(), std::vector<std::u16string>{u"first"});
}

void TestWorkers::aStopBetweenTakingAndSpeakingIsNotLost()
{
    std::promise<void> taken;
    std::promise<void> stopped;
    ReadingThread thread([&](QString& text) {
        taken.set_value();
        stopped.get_future().wait();
        TTSPlayer::Instance()->play(text);
    });
    thread.setContent(QStringLiteral("text"));
    thread.start();
    taken.get_future().wait();
    TTSPlayer::Instance()->stop();
    stopped.set_value();
    QVERIFY(thread.wait());
    QVERIFY(FakeTts::texts().empty());
}

void TestWorkers::aTextQueuedAsTheThreadEndsIsReadAfterAll()
{
    // finished() is emitted when the thread has looked into its queue for the last time and still
    // counts as running.
    ReadingThread thread{Speaker()};
    bool queued = false;
    connect(
        &thread, &QThread::finished, &thread,
        [&] {
            if (!std::exchange(queued, true))
                thread.setContent(QStringLiteral("late"));
        },
        Qt::DirectConnection);
    thread.setContent(QStringLiteral("first"));
    thread.start();
    QTRY_COMPARE(FakeTts::texts(), (std::vector<std::u16string>{u"first", u"late"}));
    QTRY_VERIFY(thread.isFinished());
}

void TestWorkers::destroyingAReaderWhileItReadsEndsIt()
{
    FakeTts::setPace(FakeTts::Pace::Held);
    auto thread = std::make_unique<ReadingThread>(Speaker());
    thread->setContent(QStringLiteral("text"));
    thread->start();
    QVERIFY(FakeTts::waitUntilSpeaking());
    thread->setContent(QStringLiteral("behind"));
    thread.reset();
    QVERIFY(!FakeTts::isSpeaking());
    QCOMPARE(FakeTts::texts().size(), std::size_t{1});
}

void TestWorkers::aReaderWithoutScreenEnds()
{
    CSoundThread thread(nullptr);
    thread.setContent(QStringLiteral("text"));
    thread.start();
    QVERIFY(thread.wait());
    QVERIFY(FakeTts::texts().empty());
}

void TestWorkers::aTranslationThatIsQueuedForgetsTheNewScan()
{
    CSoundTransThread thread{Speaker()};
    QVERIFY(!thread.getnewScanState());
    thread.haveNewScan();
    QVERIFY(thread.getnewScanState());
    thread.setContent(QStringLiteral("text"));
    QVERIFY(!thread.getnewScanState());
}

void TestWorkers::aNewScanIsSeenWhileATranslationIsRead()
{
    std::promise<void> reading;
    std::promise<void> scanned;
    std::atomic<bool> seen{false};
    CSoundTransThread* asked = nullptr;
    CSoundTransThread thread([&](QString&) {
        reading.set_value();
        scanned.get_future().wait();
        seen = asked->getnewScanState();
    });
    asked = &thread;
    thread.setContent(QStringLiteral("text"));
    thread.start();
    reading.get_future().wait();
    thread.haveNewScan();
    scanned.set_value();
    QVERIFY(thread.wait());
    QVERIFY(seen);
}

void TestWorkers::onlyTheNewestTranslationIsRead()
{
    CSoundTransThread thread{Speaker()};
    thread.setContent(QStringLiteral("one"));
    thread.setContent(QStringLiteral("two"));
    thread.start();
    QVERIFY(thread.wait());
    QCOMPARE(FakeTts::texts(), std::vector<std::u16string>{u"two"});
}

void TestWorkers::theSourceIsReadOnceWithAnEmptyText()
{
    QStringList handed;
    CSoundSrcThread thread([&](QString& text) { handed.append(text); });
    thread.setContent(QStringLiteral("one"));
    thread.setContent(QStringLiteral("two"));
    thread.start();
    QVERIFY(thread.wait());
    QCoreApplication::processEvents();
    QVERIFY(!thread.isRunning());
    QCOMPARE(handed, QStringList{QString()});
}

void TestWorkers::destroyingTheSourceReaderWhileItReadsEndsIt()
{
    FakeTts::setPace(FakeTts::Pace::Held);
    auto thread = std::make_unique<CSoundSrcThread>(
        [](QString&) { TTSPlayer::Instance()->play(QStringLiteral("source")); });
    thread->start();
    QVERIFY(FakeTts::waitUntilSpeaking());
    thread.reset();
    QVERIFY(!FakeTts::isSpeaking());
}

void TestWorkers::anImageIsHandedOverOnce()
{
    // A record freed twice, or not at all, is seen by the address sanitizer.
    MyEdit edit;
    CRecThread thread(&edit);
    const unsigned char pixels[6] = {};
    thread.setImg(makeImage(pixels, 3, 2, 0));
    thread.start();
    QVERIFY(thread.wait());
    thread.start();
    QVERIFY(thread.wait());
    QVERIFY(CallLog::count("ZEMBRA_OCR_Recognize") <= 1);
}

void TestWorkers::anImageThatIsReplacedIsFreed()
{
    CRecThread thread(nullptr);
    const unsigned char pixel = 0;
    thread.setImg(makeImage(&pixel, 1, 1, 1));
    thread.setImg(makeImage(&pixel, 1, 1, 2));
    thread.start();
    QVERIFY(thread.wait());
    QCOMPARE(CallLog::count("ZEMBRA_OCR_Recognize"), 0);
}

void TestWorkers::anImageNeverRecognisedIsFreed()
{
    CRecThread thread(nullptr);
    const unsigned char pixel = 0;
    thread.setImg(makeImage(&pixel, 1, 1, 1));
}

void TestWorkers::withoutImageNothingIsRecognised()
{
    MyEdit edit;
    CallLog::clear();
    CRecThread thread(&edit);
    thread.start();
    QVERIFY(thread.wait());
    QCOMPARE(CallLog::count("ZEMBRA_OCR_Recognize"), 0);
}

void TestWorkers::theDictionaryChangeIsStored()
{
    CTtsThread thread;
    thread.setFlag(3, 7);
    thread.start();
    QVERIFY(thread.wait());
    QCOMPARE(ConfigReader::Instance()->getLanDict(), 3);
    QCOMPARE(ConfigReader::Instance()->getLanDictInfo(), 7);
    QCOMPARE(setting(QStringLiteral("DictTrans/LanDict")), 3);
    QCOMPARE(setting(QStringLiteral("DictTrans/LanDictInfo")), 7);
}

void TestWorkers::theChosenDictionaryIsOpened()
{
    installDictionaries();
    CTtsThread thread;
    thread.setFlag(0, 1);
    run(thread);
    QVERIFY(Translater::Instance()->isOpen(0, 1));
    thread.setFlag(0, 0);
    run(thread);
    QVERIFY(Translater::Instance()->isOpen(0, 0));
    QVERIFY(!Translater::Instance()->isOpen(0, 1));
    QCOMPARE(FakeDic::openDictionaries(), 1);
}

void TestWorkers::theDictionaryOfTheSettingsIsOpened()
{
    installDictionaries();
    ConfigReader::Instance()->setLanDict(0);
    ConfigReader::Instance()->setLanDictInfo(1);
    CTtsThread thread;
    thread.setFlag(1, 0);
    thread.setOpen();
    run(thread);
    QVERIFY(Translater::Instance()->isOpen(0, 1));
    QCOMPARE(ConfigReader::Instance()->getLanDict(), 0);
}

void TestWorkers::aDictionaryThatIsOpenIsLeftOpen()
{
    installDictionaries();
    CTtsThread thread;
    thread.setOpen();
    run(thread);
    CallLog::clear();
    run(thread);
    QVERIFY(Translater::Instance()->isOpen(0, 0));
    QCOMPARE(CallLog::count("ZEMBRA_DIC_Initialize"), 0);
    QCOMPARE(CallLog::count("ZEMBRA_DIC_Uninitialize"), 0);
}

void TestWorkers::theDictionaryIsClosed()
{
    installDictionaries();
    CTtsThread thread;
    thread.setOpen();
    run(thread);
    thread.setClose();
    run(thread);
    QVERIFY(!Translater::Instance()->isOpen(0, 0));
    QCOMPARE(FakeDic::openDictionaries(), 0);
    QCOMPARE(ConfigReader::Instance()->getLanDict(), 0);
}

void TestWorkers::aDictionaryThatCannotBeOpenedLeavesNoneOpen()
{
    installDictionaries();
    CTtsThread thread;
    thread.setOpen();
    run(thread);
    thread.setFlag(1, 0);
    run(thread);
    QVERIFY(!Translater::Instance()->isOpen(1, 0));
    QCOMPARE(FakeDic::openDictionaries(), 0);
    QCOMPARE(setting(QStringLiteral("DictTrans/LanDict")), 1);
}

void TestWorkers::theScanLanguageChangeIsStoredAndApplied_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("recognition");
    QTest::addColumn<int>("voice");
    QTest::newRow("English") << 0 << 2 << 200;
    QTest::newRow("French") << 1 << 2 << 103;
    QTest::newRow("Russian") << 4 << 3 << 151;
    QTest::newRow("Chinese") << 5 << 1 << 1;
}

void TestWorkers::theScanLanguageChangeIsStoredAndApplied()
{
    QFETCH(int, row);
    QFETCH(int, recognition);
    QFETCH(int, voice);
    CTtsThreadForSet thread;
    thread.setFlag(row);
    thread.start();
    QVERIFY(thread.wait());
    QCOMPARE(ConfigReader::Instance()->getLanInfo(), row);
    QCOMPARE(setting(QStringLiteral("SystemSet/scanLan")), row);
    QCOMPARE(FakeOcr::languages(), std::vector<int>{recognition});
    QCOMPARE(FakeTts::language(), voice);
}

QTEST_MAIN(TestWorkers)
#include "tst_workers.moc"
