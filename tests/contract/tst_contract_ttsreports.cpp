/*
 * What platform/zembra_tts.h promises of its reports, as far as a caller can see it. Built once for
 * each engine; nothing here knows which one it is.
 */
#include "platform/zembra_tts.h"
#include "tests/contract/ttscaller.h"

#include <QTest>
#include <algorithm>
#include <atomic>
#include <string>

using namespace ttscaller;

namespace {

std::atomic<int> otherReports{0};

int receiveOther(int, int, int)
{
    ++otherReports;
    return -1;
}

} // namespace

class ContractTtsReports : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void eachWordIsReportedOnceAndInOrder();
    void reportsCountMarkUpAndAvoidIt();
    void whatOnlyLooksLikeMarkUpIsText();
    void otherScriptsAreReportedInsideTheText_data();
    void otherScriptsAreReportedInsideTheText();
    void strangeCharactersAreBlanks();
    void withoutReceiverNothingIsReported();
    void aReceiverSetMeanwhileCountsFromTheNextText();
    void nothingIsReportedAfterTheReturn();
    void volumeMayChangeWhileSpeaking();
    void cleanupTestCase();
};

void ContractTtsReports::init()
{
    prepareEngine();
    otherReports = 0;
}

void ContractTtsReports::eachWordIsReportedOnceAndInOrder()
{
    const std::u16string text = u"One two one two, and three. Three!";
    QCOMPARE(play(text), 0);
    QVERIFY(lawful(text));
    QCOMPARE(wordsHeard(text), (Words{u"One", u"two", u"one", u"two", u"and", u"three", u"Three"}));
}

void ContractTtsReports::reportsCountMarkUpAndAvoidIt()
{
    const std::u16string text =
        u"<vtml_pause time=\"0\"/>One<vtml_pause time=\"20\"/> two <vtml_pause time=\"5\"/>three.";
    QCOMPARE(play(text), 0);
    QVERIFY(lawful(text));
    QCOMPARE(wordsHeard(text), (Words{u"One", u"two", u"three"}));
    QCOMPARE(heard.all().front().offset, static_cast<int>(text.find(u"One")));
}

void ContractTtsReports::whatOnlyLooksLikeMarkUpIsText()
{
    const std::u16string text = u"a <b> c <vtml_pause time=\"x\"/> d";
    QCOMPARE(play(text), 0);
    QVERIFY(lawful(text));
    const Words words = wordsHeard(text);
    QCOMPARE(words.front(), u"a");
    QCOMPARE(words.back(), u"d");
    QVERIFY(std::find(words.begin(), words.end(), u"c") != words.end());
}

void ContractTtsReports::otherScriptsAreReportedInsideTheText_data()
{
    QTest::addColumn<int>("voice");
    QTest::addColumn<QString>("text");
    QTest::newRow("Chinese") << 1 << QStringLiteral("你好，世界。");
    QTest::newRow("Chinese with English") << 1 << QStringLiteral("我有 book 两本。");
    QTest::newRow("Russian") << 151 << QStringLiteral("Привет, мир.");
    QTest::newRow("accents") << 103 << QStringLiteral("Où est l'élève ?");
    QTest::newRow("decomposed") << 103 << QStringLiteral("e\u0301le\u0300ve");
    QTest::newRow("beyond the first plane") << 200 << QStringLiteral("one 😀 two");
}

void ContractTtsReports::otherScriptsAreReportedInsideTheText()
{
    QFETCH(int, voice);
    QFETCH(QString, text);
    QCOMPARE(ZEMBRA_TTS_SetLang(voice), 0);
    QCOMPARE(play(text.toStdU16String()), 0);
    QVERIFY(!heard.all().empty());
    QVERIFY(lawful(text.toStdU16String()));
}

void ContractTtsReports::strangeCharactersAreBlanks()
{
    std::u16string text = u"one";
    text += char16_t{0xd800};
    text += u"two";
    text += char16_t{1};
    text += char16_t{0};
    text += u"three";
    text += char16_t{0xdc00};
    QCOMPARE(play(text), 0);
    QVERIFY(lawful(text));
    QCOMPARE(wordsHeard(text), (Words{u"one", u"two", u"three"}));
}

void ContractTtsReports::withoutReceiverNothingIsReported()
{
    QCOMPARE(ZEMBRA_TTS_SetHighlight_CallBack(nullptr), 0);
    QCOMPARE(play(u"Nobody listens."), 0);
    QVERIFY(heard.all().empty());
}

void ContractTtsReports::aReceiverSetMeanwhileCountsFromTheNextText()
{
    heard.begin([] { ZEMBRA_TTS_SetHighlight_CallBack(&receiveOther); });
    const std::u16string text = u"One two three.";
    QCOMPARE(play(text), 0);
    QCOMPARE(wordsHeard(text), (Words{u"One", u"two", u"three"}));
    QCOMPARE(otherReports.load(), 0);
    QCOMPARE(play(text), 0);
    QCOMPARE(otherReports.load(), 3);
}

void ContractTtsReports::nothingIsReportedAfterTheReturn()
{
    std::atomic<bool> playing{false};
    std::atomic<int> late{0};
    for (int i = 0; i < 5; ++i) {
        heard.begin([&] {
            late += playing ? 0 : 1;
            ZEMBRA_TTS_Stop();
        });
        playing = true;
        play(u"One two three four five.");
        playing = false;
    }
    // A shut-down would wait for an engine thread that still reports.
    QCOMPARE(ZEMBRA_TTS_Uninitialize(), 0);
    QCOMPARE(late.load(), 0);
}

void ContractTtsReports::volumeMayChangeWhileSpeaking()
{
    heard.begin([] {
        ZEMBRA_TTS_SetVolume(10);
        ZEMBRA_TTS_SetVolumeLevel(1000);
        ZEMBRA_TTS_SetSpeed(20);
        ZEMBRA_TTS_SetLang(104);
    });
    const std::u16string text = u"Louder and softer.";
    QCOMPARE(play(text), 0);
    QCOMPARE(wordsHeard(text), (Words{u"Louder", u"and", u"softer"}));
    QCOMPARE(ZEMBRA_TTS_SetVolumeLevel(0), 0);
}

void ContractTtsReports::cleanupTestCase()
{
    ZEMBRA_TTS_Uninitialize();
}

QTEST_GUILESS_MAIN(ContractTtsReports)
#include "tst_contract_ttsreports.moc"
