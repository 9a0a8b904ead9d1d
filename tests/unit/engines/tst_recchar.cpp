#include "editor/myedit.h"
#include "engines/ocrpen.h"
#include "engines/recchar.h"
#include "engines/stimg.h"
#include "engines/ttsplayer.h"
#include "platform/zembra_iap.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/fakeiap.h"
#include "tests/fakes/faketts.h"
#include "tests/fakes/qcoprecorder.h"
#include "tests/fakes/testroot.h"
#include "tests/unit/engines/freshsettings.h"

#include <QTest>
#include <atomic>
#include <future>
#include <memory>
#include <mutex>

using fakes::calls;

namespace {

// What an editor is told of a scan, copied while the record is still the callback's.
struct Scan
{
    bool hasBuffer = false;
    std::vector<unsigned char> pixels;
    int width = 0;
    int height = 0;
    int flag = 0;
};

/* An editor that scans are for, and a scan engine that runs. */
class Listener
{
public:
    // The record belongs to the editor; the direct connection looks at it before the editor does.
    Listener()
    {
        QObject::connect(
            &m_edit, &MyEdit::signalEdit, &m_edit,
            [this](const _stImg* image) {
                const std::lock_guard lock(m_mutex);
                const std::size_t size = static_cast<std::size_t>(image->width) * image->height;
                m_scans.push_back({image->buffer != nullptr,
                                   std::vector<unsigned char>(image->image, image->image + size),
                                   image->width, image->height, image->flag});
            },
            Qt::DirectConnection);
        m_scanner.setEdit(&m_edit);
        QCOMPARE(m_scanner.init(), 0);
    }
    ~Listener() { RecChar::forget(&m_edit); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    std::vector<Scan> scans() const
    {
        const std::lock_guard lock(m_mutex);
        return m_scans;
    }

private:
    MyEdit m_edit;
    RecChar m_scanner{nullptr};
    mutable std::mutex m_mutex;
    std::vector<Scan> m_scans;
};

/* As before the first editor: one that is made becomes the receiver. */
void nobodyListens()
{
    RecChar::editScan = nullptr;
    RecChar::editStatck.clear();
}

} // namespace

class TestRecChar : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void startingPassesHandDirectionScriptAndReceiver();
    void theHandIsTheNegatedSetting_data();
    void theHandIsTheNegatedSetting();
    void theLanguageChoosesTheScript_data();
    void theLanguageChoosesTheScript();
    void aCameraThatDoesNotStartIsReported();
    void stoppingReturnsWhetherItRan();
    void theReceiverBeforeGoesOnTheStack();
    void setEditLeavesTheStackAlone();
    void destroyingStopsTheEngineAndRestoresTheReceiver();
    void destroyingWithAnEmptyStackKeepsTheReceiver();
    void aForgottenEditorIsNeitherReceiverNorOnTheStack();
    void aSwipeArrivesAsACopy();
    void aSwipeStopsSpeechAndTellsTheLauncher();
    void aSwipeMakesThePlayerIfThereIsNone();
    void aSwipeWithoutLineStillStopsSpeechAndTellsTheLauncher();
    void anEmptyPictureArrivesEmpty();
    void aPictureWithoutSenseArrivesEmpty();
    void withoutReceiverTheRecordIsFreed();
    void twoSwipesBothArrive();
    void anEditorMayGoWhileSwipesArrive();
    void afterTheStopSignalNothingArrives();

private:
    std::unique_ptr<TestRoot> m_root;
};

void TestRecChar::init()
{
    m_root = std::make_unique<TestRoot>();
    fakes::reset();
    freshSettings();
    nobodyListens();
    CallLog::clear();
}

void TestRecChar::cleanup()
{
    nobodyListens();
    fakes::reset();
    OCRPen::quitFun();
    TTSPlayer::quitFun();
    m_root.reset();
}

void TestRecChar::startingPassesHandDirectionScriptAndReceiver()
{
    m_root->setSetting(QStringLiteral("InfoScan/ScanDirect"), 1);
    m_root->setSetting(QStringLiteral("DictTrans/ScanDirect"), 0);
    freshSettings();
    CallLog::clear();
    RecChar scanner(nullptr);
    QCOMPARE(scanner.init(), 0);
    QCOMPARE(calls(), (QStringList{"ZEMBRA_IAP_Initialize(1, 1, 0, 0)", "ZEMBRA_IAP_SetLangPara(1)",
                                   "ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(0, callback)"}));
}

void TestRecChar::theHandIsTheNegatedSetting_data()
{
    QTest::addColumn<int>("setting");
    QTest::addColumn<int>("hand");
    QTest::newRow("0") << 0 << 1;
    QTest::newRow("1") << 1 << 0;
    QTest::newRow("any other") << -7 << 0;
}

void TestRecChar::theHandIsTheNegatedSetting()
{
    QFETCH(int, setting);
    QFETCH(int, hand);
    // The launcher writes the hand into the file while the application runs.
    m_root->setSetting(QStringLiteral("SystemSet/HandLR"), setting);
    RecChar scanner(nullptr);
    QCOMPARE(scanner.init(), 0);
    QCOMPARE(FakeIap::hand(), hand);
}

void TestRecChar::theLanguageChoosesTheScript_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("script");
    QTest::newRow("English") << 0 << 1;
    QTest::newRow("Russian") << 4 << 1;
    QTest::newRow("Chinese") << 5 << 0;
    QTest::newRow("below the table") << -1 << 1;
    QTest::newRow("beyond the table") << 99 << 1;
}

void TestRecChar::theLanguageChoosesTheScript()
{
    QFETCH(int, row);
    QFETCH(int, script);
    m_root->setSetting(QStringLiteral("SystemSet/scanLan"), row);
    freshSettings();
    RecChar scanner(nullptr);
    QCOMPARE(scanner.init(), 0);
    QCOMPARE(FakeIap::script(), script);
}

void TestRecChar::aCameraThatDoesNotStartIsReported()
{
    FakeIap::setInitializeResult(5);
    RecChar scanner(nullptr);
    QCOMPARE(scanner.init(), -1);
    QCOMPARE(CallLog::count("ZEMBRA_IAP_SetReceivePanoImageCallBackFunc"), 1);
}

void TestRecChar::stoppingReturnsWhetherItRan()
{
    RecChar scanner(nullptr);
    QCOMPARE(scanner.Uninitial(), -1);
    QCOMPARE(scanner.init(), 0);
    QCOMPARE(scanner.Uninitial(), 0);
    QVERIFY(!FakeIap::isStarted());
}

void TestRecChar::theReceiverBeforeGoesOnTheStack()
{
    MyEdit first;
    MyEdit second;
    nobodyListens();
    RecChar one(&first);
    QVERIFY(RecChar::editStatck.isEmpty());
    QCOMPARE(static_cast<MyEdit*>(RecChar::editScan), &first);
    RecChar two(&second);
    QCOMPARE(RecChar::editStatck, QList<MyEdit*>{&first});
    QCOMPARE(static_cast<MyEdit*>(RecChar::editScan), &second);
    RecChar::forget(&first);
    RecChar::forget(&second);
}

void TestRecChar::setEditLeavesTheStackAlone()
{
    MyEdit first;
    MyEdit second;
    nobodyListens();
    RecChar scanner(&first);
    scanner.setEdit(&second);
    QVERIFY(RecChar::editStatck.isEmpty());
    QCOMPARE(static_cast<MyEdit*>(RecChar::editScan), &second);
    RecChar::forget(&second);
}

void TestRecChar::destroyingStopsTheEngineAndRestoresTheReceiver()
{
    MyEdit first;
    MyEdit second;
    nobodyListens();
    auto one = std::make_unique<RecChar>(&first);
    auto two = std::make_unique<RecChar>(&second);
    QCOMPARE(two->init(), 0);
    two.reset();
    QVERIFY(!FakeIap::isStarted());
    QVERIFY(RecChar::editStatck.isEmpty());
    QCOMPARE(static_cast<MyEdit*>(RecChar::editScan), &first);
    RecChar::forget(&first);
}

void TestRecChar::destroyingWithAnEmptyStackKeepsTheReceiver()
{
    MyEdit edit;
    nobodyListens();
    auto scanner = std::make_unique<RecChar>(&edit);
    scanner.reset();
    QCOMPARE(static_cast<MyEdit*>(RecChar::editScan), &edit);
    RecChar::forget(&edit);
}

void TestRecChar::aForgottenEditorIsNeitherReceiverNorOnTheStack()
{
    MyEdit first;
    MyEdit second;
    nobodyListens();
    RecChar one(&first);
    RecChar two(&second);
    RecChar again(&first);
    RecChar::forget(&first);
    QCOMPARE(static_cast<MyEdit*>(RecChar::editScan), nullptr);
    QCOMPARE(RecChar::editStatck, QList<MyEdit*>{&second});
    RecChar::forget(&second);
}

void TestRecChar::aSwipeArrivesAsACopy()
{
    const Listener listener;
    const FakeIap::Picture picture = FakeIap::pattern(30, 20, 200);
    const auto result = FakeIap::swipe(picture);
    QCOMPARE(result.value_or(-9), 0);
    // The engine's buffer is overwritten by now.
    QCOMPARE(listener.scans().size(), std::size_t{1});
    QCOMPARE(listener.scans()[0].pixels, picture.pixels);
    QCOMPARE(listener.scans()[0].width, 30);
    QCOMPARE(listener.scans()[0].height, 20);
    QCOMPARE(listener.scans()[0].flag, 200);
    QVERIFY(!listener.scans()[0].hasBuffer);
}

void TestRecChar::aSwipeStopsSpeechAndTellsTheLauncher()
{
    QCopRecorder launcher;
    FakeTts::setPace(FakeTts::Pace::Held);
    auto speech = std::async(std::launch::async, [] {
        return TTSPlayer::Instance()->play(QStringLiteral("Read aloud."));
    });
    QVERIFY(FakeTts::waitUntilSpeaking());
    RecChar scanner(nullptr);
    QCOMPARE(scanner.init(), 0);
    FakeIap::swipe(FakeIap::pattern(3, 2));
    QCOMPARE(speech.get(), 1);
    QVERIFY(launcher.waitFor(1));
    QCOMPARE(launcher.messages(), QStringList{"execute(QString) trigger"});
}

void TestRecChar::aSwipeMakesThePlayerIfThereIsNone()
{
    TTSPlayer::quitFun();
    RecChar scanner(nullptr);
    QCOMPARE(scanner.init(), 0);
    FakeIap::swipe(FakeIap::pattern(3, 2));
    QVERIFY(TTSPlayer::player);
}

void TestRecChar::aSwipeWithoutLineStillStopsSpeechAndTellsTheLauncher()
{
    QCopRecorder launcher;
    const Listener listener;
    CallLog::clear();
    QCOMPARE(FakeIap::swipe(FakeIap::Picture()).value_or(-9), -1);
    QCOMPARE(CallLog::count("ZEMBRA_TTS_Stop"), 1);
    QVERIFY(launcher.waitFor(QStringLiteral("execute(QString) trigger")));
    QVERIFY(listener.scans().empty());
}

void TestRecChar::anEmptyPictureArrivesEmpty()
{
    const Listener listener;
    QCOMPARE(FakeIap::swipe({0, 40, {}, 1}).value_or(-9), 0);
    QCOMPARE(FakeIap::swipe({400, 0, {}, 2}).value_or(-9), 0);
    QCOMPARE(listener.scans().size(), std::size_t{2});
    QCOMPARE(listener.scans()[0].height, 40);
    QCOMPARE(listener.scans()[1].width, 400);
}

void TestRecChar::aPictureWithoutSenseArrivesEmpty()
{
    const Listener listener;
    QCOMPARE(FakeIap::swipe({-3, 40, {1}, 1}).value_or(-9), 0);
    QCOMPARE(FakeIap::swipe({0x10001, 0x10000, {1}, 2}).value_or(-9), 0);
    QCOMPARE(listener.scans().size(), std::size_t{2});
    const std::vector<Scan> scans = listener.scans();
    for (const Scan& scan : scans) {
        QCOMPARE(scan.width, 0);
        QCOMPARE(scan.height, 0);
    }
}

void TestRecChar::withoutReceiverTheRecordIsFreed()
{
    RecChar scanner(nullptr);
    QCOMPARE(scanner.init(), 0);
    QCOMPARE(FakeIap::swipe(FakeIap::pattern(30, 20)).value_or(-9), 0);
}

void TestRecChar::twoSwipesBothArrive()
{
    const Listener listener;
    FakeIap::swipe(FakeIap::pattern(3, 2, 1));
    FakeIap::swipe(FakeIap::pattern(3, 2, 2));
    QCOMPARE(listener.scans().size(), std::size_t{2});
    QCOMPARE(listener.scans()[1].flag, 2);
}

void TestRecChar::anEditorMayGoWhileSwipesArrive()
{
    RecChar scanner(nullptr);
    std::atomic<bool> over{false};
    auto hand = std::async(std::launch::async, [&over] {
        while (!over)
            FakeIap::swipe(FakeIap::pattern(8, 4));
    });
    // An editor that goes stops the engine; the next one starts it again.
    for (int i = 0; i < 30; ++i) {
        auto edit = std::make_unique<MyEdit>();
        scanner.setEdit(edit.get());
        QCOMPARE(scanner.init(), 0);
        const int before = FakeIap::deliveries();
        QTRY_VERIFY(FakeIap::deliveries() > before);
        RecChar::forget(edit.get());
        QCoreApplication::processEvents();
    }
    over = true;
    hand.get();
}

void TestRecChar::afterTheStopSignalNothingArrives()
{
    const Listener listener;
    ZEMBRA_IAP_SetStopSignal(1);
    QVERIFY(!FakeIap::swipe(FakeIap::pattern(3, 2)).has_value());
    ZEMBRA_IAP_SetStopSignal(0);
    QVERIFY(FakeIap::swipe(FakeIap::pattern(3, 2)).has_value());
    QCOMPARE(listener.scans().size(), std::size_t{1});
}

QTEST_MAIN(TestRecChar)
#include "tst_recchar.moc"
