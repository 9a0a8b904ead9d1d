#include "store/voicecodes.h"

#include <QTest>

using namespace voicecodes;

class TestVoiceCodes : public QObject
{
    Q_OBJECT

private slots:
    void englishVoices();
    void engineKinds();
    void scanVoice_data();
    void scanVoice();
    void scanLanguage_data();
    void scanLanguage();
    void dictVoice_data();
    void dictVoice();
};

void TestVoiceCodes::englishVoices()
{
    const QVector<int> expected{200, 201, 203, 206, 205, 206};
    for (int voice = 0; voice < expected.size(); ++voice)
        QCOMPARE(englishVoice(voice, -7), expected.at(voice));
    QCOMPARE(englishVoice(-1, -7), -7);
    QCOMPARE(englishVoice(6, -7), -7);
}

void TestVoiceCodes::engineKinds()
{
    QCOMPARE(engineKind(1), 1);
    QCOMPARE(engineKind(151), 3);
    for (int language : {-1, 0, 2, 101, 103, 111, 152, 200})
        QCOMPARE(engineKind(language), 2);
}

void TestVoiceCodes::scanVoice_data()
{
    QTest::addColumn<int>("voice");
    QTest::addColumn<int>("language");
    QTest::addColumn<int>("code");
    QTest::newRow("English, first voice") << 0 << 101 << 200;
    QTest::newRow("German") << 0 << 104 << 104;
    QTest::newRow("Spanish keeps its code") << 0 << 105 << 105;
    QTest::newRow("no language") << 0 << 0 << 0;
    QTest::newRow("voice 3") << 3 << 101 << 206;
    QTest::newRow("voice 5") << 5 << 101 << 206;
    QTest::newRow("a voice whatever the language") << 4 << 104 << 205;
    QTest::newRow("voice 6") << 6 << 101 << 0;
    QTest::newRow("voice -1") << -1 << 101 << 0;
}

void TestVoiceCodes::scanVoice()
{
    QFETCH(const int, voice);
    QFETCH(const int, language);
    QFETCH(const int, code);
    QCOMPARE(forScanVoice(voice, language), code);
}

void TestVoiceCodes::scanLanguage_data()
{
    QTest::addColumn<int>("voice");
    QTest::addColumn<int>("language");
    QTest::addColumn<bool>("spanish");
    QTest::addColumn<int>("code");
    QTest::newRow("English, voice 0") << 0 << 101 << false << 200;
    QTest::newRow("English, voice 2") << 2 << 101 << true << 203;
    QTest::newRow("English, no such voice") << 6 << 101 << false << 101;
    QTest::newRow("Spanish") << 2 << 105 << false << 105;
    QTest::newRow("Spanish variant") << 2 << 105 << true << 202;
    QTest::newRow("Russian") << 2 << 151 << true << 151;
    QTest::newRow("no language") << 2 << 0 << true << 0;
}

void TestVoiceCodes::scanLanguage()
{
    QFETCH(const int, voice);
    QFETCH(const int, language);
    QFETCH(const bool, spanish);
    QFETCH(const int, code);
    QCOMPARE(forScanLanguage(voice, language, spanish), code);
}

void TestVoiceCodes::dictVoice_data()
{
    QTest::addColumn<int>("voice");
    QTest::addColumn<int>("language");
    QTest::addColumn<bool>("spanish");
    QTest::addColumn<int>("code");
    QTest::newRow("English, voice 0") << 0 << 101 << false << 200;
    QTest::newRow("English voice code, voice 0") << 0 << 200 << false << 200;
    QTest::newRow("voice 1") << 1 << 101 << false << 201;
    QTest::newRow("voice 2 of 200") << 2 << 200 << false << 203;
    QTest::newRow("voice 3") << 3 << 200 << false << 206;
    QTest::newRow("voice 4") << 4 << 101 << false << 205;
    QTest::newRow("voice 5") << 5 << 101 << false << 206;
    QTest::newRow("Spanish variant") << 2 << 105 << true << 202;
    QTest::newRow("Spanish") << 2 << 105 << false << 105;
    QTest::newRow("Spanish variant, voice 0") << 0 << 105 << true << 202;
    QTest::newRow("French") << 5 << 103 << true << 103;
    QTest::newRow("no dictionary") << 0 << -1 << false << -1;
    QTest::newRow("no such voice, Spanish") << 6 << 105 << true << 0;
    QTest::newRow("no such voice, English") << -1 << 101 << false << 0;
}

void TestVoiceCodes::dictVoice()
{
    QFETCH(const int, voice);
    QFETCH(const int, language);
    QFETCH(const bool, spanish);
    QFETCH(const int, code);
    QCOMPARE(forDictVoice(voice, language, spanish), code);
}

QTEST_GUILESS_MAIN(TestVoiceCodes)
#include "tst_voicecodes.moc"
