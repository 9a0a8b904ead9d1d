#include "app/mainwindow.h"
#include "engines/charscanner.h"
#include "engines/ocrpen.h"
#include "engines/ttsplayer.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/fakeiap.h"
#include "tests/fakes/fakeocr.h"
#include "tests/fakes/faketts.h"
#include "tests/fakes/qcoprecorder.h"
#include "tests/fakes/testroot.h"
#include "tests/unit/engines/freshsettings.h"

#include <QTest>
#include <future>
#include <memory>

using fakes::calls;

class TestCharScanner : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();
    void startingPassesTheDictionaryDirection();
    void aCameraThatDoesNotStartIsNotReported();
    void stoppingAlwaysReturnsZero();
    void aSwipeArrivesAsText();
    void aSwipeIsRecognisedOnTheEnginesThread();
    void theDirectionOfRecognitionIsAlwaysZero();
    void aSwipeTellsTheLauncherAndDoesNotStopSpeech();
    void aSwipeWithoutLineOnlyTellsTheLauncher();
    void aTextlessSwipeIsDropped();
    void aPictureWithoutSenseIsDropped();
    void withoutReceiverTheTextIsDropped();
    void theWindowMadeLastReceives();

private:
    QStringList m_texts;
    std::unique_ptr<TestRoot> m_root;
    std::unique_ptr<MainWindow> m_window;
};

// One window for all: it ends the process's singletons for good when it goes.
void TestCharScanner::initTestCase()
{
    m_root = std::make_unique<TestRoot>();
    freshSettings();
    m_window = std::make_unique<MainWindow>();
    connect(m_window.get(), &MainWindow::signalEdit, this,
            [this](const QString& text) { m_texts.append(text); });
}

void TestCharScanner::cleanupTestCase()
{
    m_window.reset();
    m_root.reset();
}

void TestCharScanner::init()
{
    m_root->write(QStringLiteral("/apps/config/config.ini"), QByteArray());
    freshSettings();
    m_texts.clear();
    CallLog::clear();
}

void TestCharScanner::cleanup()
{
    CharScanner::forget(m_window.get());
    OCRPen::quitFun();
    TTSPlayer::quitFun();
    fakes::reset();
}

void TestCharScanner::startingPassesTheDictionaryDirection()
{
    m_root->setSetting(QStringLiteral("InfoScan/ScanDirect"), 0);
    m_root->setSetting(QStringLiteral("DictTrans/ScanDirect"), 1);
    freshSettings();
    CallLog::clear();
    CharScanner(m_window.get()).start();
    QCOMPARE(calls(), (QStringList{"ZEMBRA_IAP_Initialize(1, 1, 0, 0)", "ZEMBRA_IAP_SetLangPara(1)",
                                   "ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(0, callback)"}));
}

void TestCharScanner::aCameraThatDoesNotStartIsNotReported()
{
    FakeIap::setInitializeResult(-1);
    CharScanner scanner(m_window.get());
    scanner.start();
    QVERIFY(!FakeIap::isStarted());
    QCOMPARE(scanner.stop(), 0);
}

void TestCharScanner::stoppingAlwaysReturnsZero()
{
    CharScanner scanner(m_window.get());
    QCOMPARE(scanner.stop(), 0);
    scanner.start();
    QCOMPARE(scanner.stop(), 0);
    QVERIFY(!FakeIap::isStarted());
}

void TestCharScanner::aSwipeArrivesAsText()
{
    FakeOcr::setResult(u"New name");
    CharScanner scanner(m_window.get());
    scanner.start();
    QCOMPARE(FakeIap::swipe(FakeIap::pattern(30, 20, 9)).value_or(-9), 0);
    QTRY_COMPARE(m_texts, QStringList{"New name"});
    QCOMPARE(FakeOcr::lastImage().pixels, FakeIap::pattern(30, 20).pixels);
    QCOMPARE(FakeOcr::lastImage().flag, 9);
}

void TestCharScanner::aSwipeIsRecognisedOnTheEnginesThread()
{
    FakeOcr::setResult(u"Name");
    CharScanner scanner(m_window.get());
    scanner.start();
    FakeIap::swipe(FakeIap::pattern(3, 2));
    const auto recognitions = CallLog::calls("ZEMBRA_OCR_Recognize");
    QCOMPARE(recognitions.size(), std::size_t{1});
    QVERIFY(recognitions[0].thread != std::this_thread::get_id());
}

void TestCharScanner::theDirectionOfRecognitionIsAlwaysZero()
{
    m_root->setSetting(QStringLiteral("DictTrans/ScanDirect"), 1);
    m_root->setSetting(QStringLiteral("InfoScan/ScanDirect"), 1);
    freshSettings();
    CharScanner scanner(m_window.get());
    scanner.start();
    FakeIap::swipe(FakeIap::pattern(3, 2));
    QCOMPARE(FakeOcr::lastImage().direction, 0);
}

void TestCharScanner::aSwipeTellsTheLauncherAndDoesNotStopSpeech()
{
    QCopRecorder launcher;
    CharScanner scanner(m_window.get());
    scanner.start();
    FakeIap::swipe(FakeIap::pattern(3, 2));
    QVERIFY(launcher.waitFor(QStringLiteral("execute(QString) trigger")));
    QCOMPARE(CallLog::count("ZEMBRA_TTS_Stop"), 0);
}

void TestCharScanner::aSwipeWithoutLineOnlyTellsTheLauncher()
{
    QCopRecorder launcher;
    CharScanner scanner(m_window.get());
    scanner.start();
    QCOMPARE(FakeIap::swipe(FakeIap::Picture()).value_or(-9), -1);
    QVERIFY(launcher.waitFor(QStringLiteral("execute(QString) trigger")));
    QCOMPARE(CallLog::count("ZEMBRA_OCR_Recognize"), 0);
}

void TestCharScanner::aTextlessSwipeIsDropped()
{
    FakeOcr::queueResult(u"");
    FakeOcr::queueResult(u"second");
    CharScanner scanner(m_window.get());
    scanner.start();
    QCOMPARE(FakeIap::swipe(FakeIap::pattern(3, 2)).value_or(-9), 0);
    QCOMPARE(FakeIap::swipe(FakeIap::pattern(3, 2)).value_or(-9), 0);
    QTRY_COMPARE(m_texts, QStringList{"second"});
}

void TestCharScanner::aPictureWithoutSenseIsDropped()
{
    FakeOcr::setResult(u"never");
    CharScanner scanner(m_window.get());
    scanner.start();
    QCOMPARE(FakeIap::swipe({-3, 40, {1}, 1}).value_or(-9), 0);
    QCOMPARE(FakeIap::swipe({0x10001, 0x10000, {1}, 2}).value_or(-9), 0);
    QCOMPARE(CallLog::count("ZEMBRA_OCR_Recognize"), 0);
}

void TestCharScanner::withoutReceiverTheTextIsDropped()
{
    FakeOcr::setResult(u"text");
    CharScanner scanner(m_window.get());
    CharScanner::forget(m_window.get());
    scanner.start();
    QCOMPARE(FakeIap::swipe(FakeIap::pattern(3, 2)).value_or(-9), 0);
}

void TestCharScanner::theWindowMadeLastReceives()
{
    FakeOcr::setResult(u"text");
    CharScanner first(nullptr);
    CharScanner second(m_window.get());
    first.start();
    FakeIap::swipe(FakeIap::pattern(3, 2));
    QTRY_COMPARE(m_texts, QStringList{"text"});
}

QTEST_MAIN(TestCharScanner)
#include "tst_charscanner.moc"
