#include "engines/ocrpen.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/fakeocr.h"
#include "tests/fakes/testroot.h"
#include "tests/shared/asleep.h"

#include <QTest>
#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <unistd.h>

using fakes::calls;

class TestOcrPen : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void theFirstUseStartsTheEngineWithItsFolder();
    void oneInstanceForManyThreads();
    void setLanForwardsTheList();
    void recognizeHandsEverythingOver();
    void recognizeReturnsTheTextAsItIs();
    void aDoubtfulTextIsReturnedWithItsCode();
    void nothingRecognisedLeavesTheTextAlone();
    void anEngineErrorIsMinusOne();
    void theResultIsReleasedOnce();
    void withoutEngineNothingIsRecognised();
    void quitExitsThenFrees();
    void quitWithoutInstanceDoesNothing();
    void quitWaitsForARecognition();
    void quitWaitsForAChangeOfLanguage();
    void languagesChangeDuringARecognition();
    void twoRecognitionsAreMadeOneAfterTheOther();
    void theResultCallbackDoesNothing();

private:
    static int recognize(QString& text);
    std::unique_ptr<TestRoot> m_root;
};

void TestOcrPen::init()
{
    m_root = std::make_unique<TestRoot>();
    fakes::reset();
}

void TestOcrPen::cleanup()
{
    OCRPen::quitFun();
    QCOMPARE(FakeOcr::openHandles(), 0);
    QCOMPARE(FakeOcr::openResults(), 0);
    QCOMPARE(FakeOcr::misuses(), 0);
    fakes::reset();
    m_root.reset();
}

int TestOcrPen::recognize(QString& text)
{
    unsigned char image[6] = {1, 2, 3, 4, 5, 6};
    return OCRPen::Instance()->recognize(image, 3, 2, 1, 77, text);
}

void TestOcrPen::theFirstUseStartsTheEngineWithItsFolder()
{
    QVERIFY(!OCRPen::ocr);
    OCRPen* const pen = OCRPen::Instance();
    QCOMPARE(OCRPen::Instance(), pen);
    QCOMPARE(OCRPen::ocr.load(), pen);
    QVERIFY(pOcrHandle);
    QCOMPARE(calls(), QStringList{"ZEMBRA_OCR_Initialize(/apps/data/ocrrec/)"});
}

void TestOcrPen::oneInstanceForManyThreads()
{
    constexpr int Users = 8;
    std::vector<std::future<OCRPen*>> users;
    users.reserve(Users);
    for (int i = 0; i < Users; ++i)
        users.push_back(std::async(std::launch::async, &OCRPen::Instance));
    for (auto& user : users)
        QCOMPARE(user.get(), OCRPen::Instance());
    QCOMPARE(FakeOcr::openHandles(), 1);
}

void TestOcrPen::setLanForwardsTheList()
{
    int russian[] = {3, -1};
    QCOMPARE(OCRPen::Instance()->setLan(russian), 0);
    QCOMPARE(FakeOcr::languages(), std::vector<int>{3});
    int wrong[] = {9, -1};
    QCOMPARE(OCRPen::Instance()->setLan(wrong), -1);
    QCOMPARE(FakeOcr::languages(), std::vector<int>{3});
}

void TestOcrPen::recognizeHandsEverythingOver()
{
    FakeOcr::setResult(u"text");
    QString text;
    QCOMPARE(recognize(text), 0);
    const FakeOcr::Image image = FakeOcr::lastImage();
    QCOMPARE(image.width, 3);
    QCOMPARE(image.height, 2);
    QCOMPARE(image.direction, 1);
    QCOMPARE(image.flag, 77);
    QCOMPARE(image.pixels, (std::vector<unsigned char>{1, 2, 3, 4, 5, 6}));
}

void TestOcrPen::recognizeReturnsTheTextAsItIs()
{
    FakeOcr::setResult(u" a\r\nb\tü漢😀 \n");
    QString text;
    QCOMPARE(recognize(text), 0);
    QCOMPARE(text, QStringLiteral(" a\r\nb\tü漢😀 \n"));
}

void TestOcrPen::aDoubtfulTextIsReturnedWithItsCode()
{
    FakeOcr::setResult(u"perhaps", 1);
    QString text;
    QCOMPARE(recognize(text), 1);
    QCOMPARE(text, QStringLiteral("perhaps"));
}

void TestOcrPen::nothingRecognisedLeavesTheTextAlone()
{
    QString text = QStringLiteral("before");
    QCOMPARE(recognize(text), -1);
    QCOMPARE(text, QStringLiteral("before"));
}

void TestOcrPen::anEngineErrorIsMinusOne()
{
    FakeOcr::setResult(u"", -2);
    QString text = QStringLiteral("before");
    QCOMPARE(recognize(text), -1);
    QCOMPARE(text, QStringLiteral("before"));
}

void TestOcrPen::theResultIsReleasedOnce()
{
    FakeOcr::setResult(u"kept");
    QString text;
    recognize(text);
    QCOMPARE(CallLog::count("ZEMBRA_OCR_FreeRecogResult"), 1);
    QCOMPARE(FakeOcr::openResults(), 0);
    // The engine has overwritten its buffer by now.
    QCOMPARE(text, QStringLiteral("kept"));
}

void TestOcrPen::withoutEngineNothingIsRecognised()
{
    FakeOcr::setInitializeFails(true);
    FakeOcr::setResult(u"text");
    QString text;
    QCOMPARE(recognize(text), -1);
    QVERIFY(text.isEmpty());
    int latin[] = {2, -1};
    QCOMPARE(OCRPen::Instance()->setLan(latin), -1);
}

void TestOcrPen::quitExitsThenFrees()
{
    OCRPen::Instance();
    CallLog::clear();
    OCRPen::quitFun();
    QCOMPARE(calls(),
             (QStringList{"ZEMBRA_OCR_ExitEngine(handle)", "ZEMBRA_OCR_FreeEngine(handle)"}));
    QVERIFY(!OCRPen::ocr);
    QVERIFY(!pOcrHandle);
}

void TestOcrPen::quitWithoutInstanceDoesNothing()
{
    OCRPen::quitFun();
    QCOMPARE(calls(), QStringList());
}

void TestOcrPen::quitWaitsForARecognition()
{
    FakeOcr::setResult(u"late");
    FakeOcr::hold();
    QString text;
    auto worker = std::async(std::launch::async, [&text] { return recognize(text); });
    QVERIFY(FakeOcr::waitUntilRecognizing());
    auto quit = std::async(std::launch::async, &OCRPen::quitFun);
    FakeOcr::release();
    quit.get();
    QCOMPARE(worker.get(), 0);
    QCOMPARE(text, QStringLiteral("late"));
    QCOMPARE(FakeOcr::misuses(), 0);
}

void TestOcrPen::quitWaitsForAChangeOfLanguage()
{
    OCRPen* const pen = OCRPen::Instance();
    FakeOcr::holdLanguages();
    int russian[] = {3, -1};
    auto change = std::async(std::launch::async, [&] { return pen->setLan(russian); });
    QVERIFY(FakeOcr::waitUntilChangingLanguage());
    std::atomic<pid_t> thread{0};
    auto quit = std::async(std::launch::async, [&thread] {
        thread = gettid();
        OCRPen::quitFun();
    });
    const bool waits = waitUntilAsleep(thread);
    FakeOcr::releaseLanguages();
    quit.get();
    QCOMPARE(change.get(), 0);
    QVERIFY2(waits, "the engine was shut down under a call");
    QCOMPARE(FakeOcr::misuses(), 0);
}

void TestOcrPen::languagesChangeDuringARecognition()
{
    FakeOcr::hold();
    QString text;
    auto worker = std::async(std::launch::async, [&text] { return recognize(text); });
    QVERIFY(FakeOcr::waitUntilRecognizing());
    int russian[] = {3, -1};
    auto change =
        std::async(std::launch::async, [&] { return OCRPen::Instance()->setLan(russian); });
    const bool changed = change.wait_for(std::chrono::seconds(20)) == std::future_status::ready;
    FakeOcr::release();
    worker.get();
    QCOMPARE(change.get(), 0);
    QVERIFY2(changed, "a change of language waited for a recognition");
}

void TestOcrPen::twoRecognitionsAreMadeOneAfterTheOther()
{
    FakeOcr::queueResult(u"first");
    FakeOcr::queueResult(u"second");
    FakeOcr::hold();
    QString one;
    QString two;
    auto first = std::async(std::launch::async, [&one] { return recognize(one); });
    QVERIFY(FakeOcr::waitUntilRecognizing());
    auto second = std::async(std::launch::async, [&two] { return recognize(two); });
    FakeOcr::release();
    QCOMPARE(first.get(), 0);
    QCOMPARE(second.get(), 0);
    QCOMPARE(one, QStringLiteral("first"));
    QCOMPARE(two, QStringLiteral("second"));
}

void TestOcrPen::theResultCallbackDoesNothing()
{
    unsigned short text[] = {'a'};
    QCOMPARE(GetRecogResult(1, text, this), 0);
    QCOMPARE(GetRecogResult(-1, nullptr, nullptr), 0);
}

QTEST_APPLESS_MAIN(TestOcrPen)
#include "tst_ocrpen.moc"
