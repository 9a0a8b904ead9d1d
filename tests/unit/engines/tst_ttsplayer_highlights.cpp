#include "dict/dictscanedit.h"
#include "editor/myedit.h"
#include "engines/flags.h"
#include "engines/ttsplayer.h"
#include "tests/fakes/faketts.h"
#include "tests/shared/asleep.h"
#include "tests/shared/testobjects.h"
#include "tests/unit/engines/playerfixture.h"

#include <QTest>
#include <future>
#include <memory>

namespace {

using Highlight = std::array<int, 3>;

// The highlights that a screen's signal brought to the interface thread.
template <class Screen> class Highlights : public QObject
{
public:
    explicit Highlights(Screen& screen)
    {
        connect(&screen, &Screen::signalTTShignlight, this,
                [this](int offset, int length, int kind) {
                    seen.push_back({offset, length, kind});
                    thread = QThread::currentThread();
                });
    }

    std::vector<Highlight> seen;
    QThread* thread = nullptr;
};

} // namespace

/* What the player reports to the screens: the words as they are spoken. */
class TestTtsPlayerHighlights : public PlayerFixture
{
    Q_OBJECT

private slots:
    void highlightsReachTheEditorUnchanged();
    void withoutScanPlayFlagNoHighlightArrives();
    void inDictionaryModeTheTranslateScreenReceives();
    void inDictionaryModeWithoutTranslateScreenReportsAreDropped();
    void withoutReceiverReportsAreDropped();
    void theScreenSetLastIsNoted();
    void forgettingAScreenWaitsForAReportInProgress();
    void reportsAfterAScreenIsGoneAreDropped();
    void forgettingAnotherScreenChangesNothing();
};

void TestTtsPlayerHighlights::highlightsReachTheEditorUnchanged()
{
    MyEdit edit;
    Highlights highlights(edit);
    FakeTts::setReports({{3, 4, 0}, {-1, 70000, 9}});
    TTSPlayer::Instance()->setLan(200);
    TTSPlayer::Instance()->setEdit(&edit);
    QCOMPARE(TTSPlayer::Instance()->play(QStringLiteral("Hello")), 0);
    QTRY_COMPARE(highlights.seen, (std::vector<Highlight>{{3, 4, 0}, {-1, 70000, 9}}));
    QCOMPARE(highlights.thread, qApp->thread());
    TTSPlayer::forget(&edit);
}

void TestTtsPlayerHighlights::withoutScanPlayFlagNoHighlightArrives()
{
    MyEdit edit;
    Highlights highlights(edit);
    TTSPlayer::Instance()->setEdit(&edit);
    TTSPlayer::Instance()->setScanPlayFlag(false);
    QCOMPARE(TTSPlayer::ReceiveHighlight(0, 1, 0), -1);
    TTSPlayer::Instance()->setScanPlayFlag(true);
    QCOMPARE(TTSPlayer::ReceiveHighlight(1, 1, 0), 0);
    QTRY_COMPARE(highlights.seen, (std::vector<Highlight>{{1, 1, 0}}));
    TTSPlayer::forget(&edit);
}

void TestTtsPlayerHighlights::inDictionaryModeTheTranslateScreenReceives()
{
    MyEdit edit;
    DictScanEdit dict;
    Highlights editHighlights(edit);
    Highlights dictHighlights(dict);
    TTSPlayer::Instance()->setEditD(&dict);
    TTSPlayer::Instance()->setEdit(&edit);
    g_InDict = true;
    QCOMPARE(TTSPlayer::ReceiveHighlight(5, 6, 7), 0);
    QTRY_COMPARE(dictHighlights.seen, (std::vector<Highlight>{{5, 6, 7}}));
    QVERIFY(editHighlights.seen.empty());
    TTSPlayer::forget(&edit);
    TTSPlayer::forget(&dict);
}

void TestTtsPlayerHighlights::inDictionaryModeWithoutTranslateScreenReportsAreDropped()
{
    MyEdit edit;
    Highlights highlights(edit);
    TTSPlayer::Instance()->setEdit(&edit);
    g_InDict = true;
    QCOMPARE(TTSPlayer::ReceiveHighlight(1, 1, 0), 0);
    g_InDict = false;
    QCOMPARE(TTSPlayer::ReceiveHighlight(2, 1, 0), 0);
    QTRY_COMPARE(highlights.seen, (std::vector<Highlight>{{2, 1, 0}}));
    TTSPlayer::forget(&edit);
}

void TestTtsPlayerHighlights::withoutReceiverReportsAreDropped()
{
    QCOMPARE(TTSPlayer::ReceiveHighlight(0, 1, 0), 0);
    g_InDict = true;
    QCOMPARE(TTSPlayer::ReceiveHighlight(0, 1, 0), 0);
}

void TestTtsPlayerHighlights::theScreenSetLastIsNoted()
{
    DictScanEdit dict;
    TTSPlayer::Instance()->setEditD(&dict);
    QCOMPARE(TTSPlayer::m_EditId.load(), 1);
    TTSPlayer::Instance()->setEdit(nullptr);
    QCOMPARE(TTSPlayer::m_EditId.load(), 0);
    TTSPlayer::forget(&dict);
}

void TestTtsPlayerHighlights::forgettingAScreenWaitsForAReportInProgress()
{
    auto edit = std::make_unique<MyEdit>();
    std::promise<void> reporting;
    std::promise<void> goOn;
    std::atomic<bool> reported{false};
    connect(
        edit.get(), &MyEdit::signalTTShignlight, edit.get(),
        [&] {
            reporting.set_value();
            goOn.get_future().wait();
            reported = true;
        },
        Qt::DirectConnection);
    TTSPlayer::Instance()->setLan(200);
    TTSPlayer::Instance()->setEdit(edit.get());
    auto speech = std::async(std::launch::async,
                             [] { return TTSPlayer::Instance()->play(QStringLiteral("One")); });
    reporting.get_future().wait();
    std::atomic<pid_t> destroyer{0};
    auto destroyed = std::async(std::launch::async, [&] {
        destroyer = gettid();
        TTSPlayer::forget(edit.get());
        return reported.load();
    });
    const bool waits = waitUntilAsleep(destroyer);
    goOn.set_value();
    QVERIFY2(destroyed.get() && waits, "the screen was given up while it was receiving a report");
    edit.reset();
    QCOMPARE(speech.get(), 0);
}

void TestTtsPlayerHighlights::reportsAfterAScreenIsGoneAreDropped()
{
    auto edit = std::make_unique<MyEdit>();
    TTSPlayer::Instance()->setEdit(edit.get());
    TTSPlayer::forget(edit.get());
    edit.reset();
    QCOMPARE(TTSPlayer::ReceiveHighlight(0, 1, 0), 0);
}

void TestTtsPlayerHighlights::forgettingAnotherScreenChangesNothing()
{
    MyEdit edit;
    MyEdit other;
    TTSPlayer::Instance()->setEdit(&edit);
    TTSPlayer::forget(&other);
    QCOMPARE(static_cast<MyEdit*>(TTSPlayer::editScan), &edit);
    TTSPlayer::forget(&edit);
    QCOMPARE(static_cast<MyEdit*>(TTSPlayer::editScan), nullptr);
}

TEST_OBJECT(TestTtsPlayerHighlights)
#include "tst_ttsplayer_highlights.moc"
