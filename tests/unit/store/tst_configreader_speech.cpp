// The settings: what they make of the speech and recognition engines.
#include "tests/fakes/calls.h"
#include "tests/fakes/fakedic.h"
#include "tests/unit/store/settingsfixture.h"

#include <QTest>

#include <limits>
#include <string_view>

class TestConfigReaderSpeech : public SettingsFixture
{
    Q_OBJECT

private slots:
    void volumeGoesToTheEngine();
    void spanishAppliesTheFilesVolume();
    void scanVoice_data();
    void scanVoice();
    void scanVoiceWithoutALanguage();
    void dictVoice_data();
    void dictVoice();
    void dictVoiceWithoutADictionary();
    void bothVoicesShareOneKey();
    void speed_data();
    void speed();
    void speedOfTheSpanishVariantOnlyInItsSetter();
    void scanLanguage_data();
    void scanLanguage();
    void hugeValuesDoNotOverflow();

private:
    QStringList voiceCalls() const { return fakes::calls("ZEMBRA_TTS_Set"); }
    static QString last(std::string_view prefix)
    {
        const QStringList calls = fakes::calls(prefix);
        return calls.isEmpty() ? QString() : calls.last();
    }
    static QString lastLan() { return last("ZEMBRA_TTS_SetLang"); }
    static QString lastSpeed() { return last("ZEMBRA_TTS_SetSpeed"); }
    static QString lastVolume() { return last("ZEMBRA_TTS_SetVolume("); }
};

void TestConfigReaderSpeech::volumeGoesToTheEngine()
{
    reader().setVolumInfo(3);
    QCOMPARE(reader().getVolumInfo(), 3);
    QCOMPARE(lastVolume(), QStringLiteral("ZEMBRA_TTS_SetVolume(60)"));
    QCOMPARE(stored(QStringLiteral("SystemSet/Volum")).toInt(), 3);
}

void TestConfigReaderSpeech::spanishAppliesTheFilesVolume()
{
    reader().setSpanishInfo(1);
    QCOMPARE(reader().getSpanishInfo(), 1);
    QCOMPARE(voiceCalls().last(), QStringLiteral("ZEMBRA_TTS_SetVolume(80)"));
    QVERIFY(lastLan().isEmpty()); // the voice waits for the next choice
    setOutside(QStringLiteral("SystemSet/Volum"), 2);
    reader().setSpanishInfo(0);
    QCOMPARE(lastVolume(), QStringLiteral("ZEMBRA_TTS_SetVolume(40)"));
    QCOMPARE(stored(QStringLiteral("SystemSet/SPANISH")).toInt(), 0);
}

void TestConfigReaderSpeech::scanVoice_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<int>("voice");
    QTest::addColumn<int>("code");
    QTest::newRow("English 0") << int(English) << 0 << 200;
    QTest::newRow("French 0") << int(French) << 0 << 103;
    QTest::newRow("1") << int(English) << 1 << 201;
    QTest::newRow("2") << int(English) << 2 << 203;
    QTest::newRow("3") << int(English) << 3 << 206;
    QTest::newRow("4") << int(French) << 4 << 205;
    QTest::newRow("5") << int(English) << 5 << 206;
    QTest::newRow("6") << int(English) << 6 << 0;
}

void TestConfigReaderSpeech::scanVoice()
{
    QFETCH(const int, language);
    QFETCH(const int, voice);
    QFETCH(const int, code);
    setOutside(QStringLiteral("SystemSet/scanLan"), language);
    reader().setTTSInfo(voice);
    QCOMPARE(reader().getTTSInfo(), voice);
    QCOMPARE(lastLan(), QStringLiteral("ZEMBRA_TTS_SetLang(%1)").arg(code));
    QCOMPARE(lastVolume(), QStringLiteral("ZEMBRA_TTS_SetVolume(80)"));
    QVERIFY(lastSpeed().isEmpty());
    QCOMPARE(stored(QStringLiteral("SystemSet/TTS")).toInt(), voice);
}

void TestConfigReaderSpeech::scanVoiceWithoutALanguage()
{
    for (const int row : {-1, int(None)}) {
        reader().setLanInfo(row);
        reader().setTTSInfo(0);
        QCOMPARE(lastLan(), QStringLiteral("ZEMBRA_TTS_SetLang(0)"));
    }
}

void TestConfigReaderSpeech::dictVoice_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<int>("voice");
    QTest::addColumn<int>("spanish");
    QTest::addColumn<int>("code");
    QTest::newRow("dictionary of 200") << 200 << 2 << 0 << 203;
    QTest::newRow("dictionary of 101") << 101 << 0 << 0 << 200;
    QTest::newRow("Spanish variant") << 105 << 2 << 1 << 202;
    QTest::newRow("Spanish") << 105 << 2 << 0 << 105;
    QTest::newRow("other") << 151 << 5 << 1 << 151;
    QTest::newRow("no such voice") << 105 << 6 << 1 << 0;
}

void TestConfigReaderSpeech::dictVoice()
{
    QFETCH(const int, language);
    QFETCH(const int, voice);
    QFETCH(const int, spanish);
    QFETCH(const int, code);
    FakeDic::addPair(1, 101, u"other", {});
    FakeDic::addPair(language, 103, u"pair", {});
    reader().setLanDict(1);
    reader().setVolumDict(1);
    reader().setSpanishInfo(spanish);
    reader().setTTSDict(voice);
    QCOMPARE(reader().getTTSDict(), voice);
    QCOMPARE(reader().getTTSInfo(), 0);
    QCOMPARE(lastLan(), QStringLiteral("ZEMBRA_TTS_SetLang(%1)").arg(code));
    QCOMPARE(lastVolume(), QStringLiteral("ZEMBRA_TTS_SetVolume(80)")); // not the dictionary's
    QCOMPARE(stored(QStringLiteral("SystemSet/TTS")).toInt(), voice);
}

void TestConfigReaderSpeech::dictVoiceWithoutADictionary()
{
    reader().setTTSDict(0);
    QCOMPARE(lastLan(), QStringLiteral("ZEMBRA_TTS_SetLang(-1)"));
}

void TestConfigReaderSpeech::bothVoicesShareOneKey()
{
    reader().setTTSInfo(4);
    QCOMPARE(reader().getTTSDict(), 0);
    QCOMPARE(stored(QStringLiteral("SystemSet/TTS")).toInt(), 4);
    QCOMPARE(reader().getTTSDict(), 4);
    QCOMPARE(reader().getTTSInfo(), 4);
}

void TestConfigReaderSpeech::speed_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<int>("spanish");
    QTest::addColumn<int>("speed");
    QTest::newRow("English") << int(English) << 0 << 48;
    QTest::newRow("English, variant chosen") << int(English) << 1 << 48;
    QTest::newRow("Spanish") << int(Spanish) << 0 << 48;
    QTest::newRow("Spanish variant") << int(Spanish) << 1 << 90;
    QTest::newRow("variant is only 1") << int(Spanish) << 2 << 48;
    QTest::newRow("outside") << int(None) << 1 << 48;
}

void TestConfigReaderSpeech::speed()
{
    QFETCH(const int, language);
    QFETCH(const int, spanish);
    QFETCH(const int, speed);
    reader().setSpanishInfo(spanish);
    reader().setLanInfo(language);
    reader().setReadSpeedInfo(6);
    QCOMPARE(reader().getReadSpeedInfo(), 6);
    QCOMPARE(lastSpeed(), QStringLiteral("ZEMBRA_TTS_SetSpeed(%1)").arg(speed));
    QCOMPARE(stored(QStringLiteral("SystemSet/Speed")).toInt(), 6);
}

void TestConfigReaderSpeech::speedOfTheSpanishVariantOnlyInItsSetter()
{
    reader().setSpanishInfo(1);
    reader().setLanInfo(Spanish);
    QCOMPARE(lastSpeed(), QStringLiteral("ZEMBRA_TTS_SetSpeed(48)"));
    reader().setReadSpeedInfo(6);
    QCOMPARE(lastSpeed(), QStringLiteral("ZEMBRA_TTS_SetSpeed(90)"));
    reader().setLanInfo(Spanish);
    QCOMPARE(lastSpeed(), QStringLiteral("ZEMBRA_TTS_SetSpeed(48)"));
}

void TestConfigReaderSpeech::scanLanguage_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("voice");
    QTest::addColumn<int>("spanish");
    QTest::addColumn<int>("engine");
    QTest::addColumn<int>("code");
    QTest::newRow("English, voice 0") << int(English) << 0 << 0 << 2 << 200;
    QTest::newRow("English, voice 3") << int(English) << 3 << 0 << 2 << 206;
    QTest::newRow("English, voice 6") << int(English) << 6 << 0 << 2 << 101;
    QTest::newRow("German") << int(German) << 3 << 0 << 2 << 104;
    QTest::newRow("Spanish") << int(Spanish) << 3 << 0 << 2 << 105;
    QTest::newRow("Spanish variant") << int(Spanish) << 3 << 1 << 2 << 202;
    QTest::newRow("Russian") << int(Russian) << 0 << 1 << 3 << 151;
    QTest::newRow("Chinese") << int(Chinese) << 0 << 0 << 1 << 1;
    QTest::newRow("-1") << -1 << 0 << 0 << 2 << 0;
    QTest::newRow("behind the table") << int(None) << 0 << 1 << 2 << 0;
}

void TestConfigReaderSpeech::scanLanguage()
{
    QFETCH(const int, row);
    QFETCH(const int, voice);
    QFETCH(const int, spanish);
    QFETCH(const int, engine);
    QFETCH(const int, code);
    reader().setTTSInfo(voice);
    reader().setSpanishInfo(spanish);
    reader().setLanInfo(row);
    QCOMPARE(reader().getLanInfo(), row);
    QCOMPARE(last("ZEMBRA_OCR_SetActiveLanguages").section(u'(', 1),
             QStringLiteral("%1, -1)").arg(engine));
    QCOMPARE(lastLan(), QStringLiteral("ZEMBRA_TTS_SetLang(%1)").arg(code));
    QCOMPARE(lastSpeed(), QStringLiteral("ZEMBRA_TTS_SetSpeed(48)"));
    QCOMPARE(lastVolume(), QStringLiteral("ZEMBRA_TTS_SetVolume(80)"));
    QCOMPARE(stored(QStringLiteral("SystemSet/scanLan")).toInt(), row);
}

void TestConfigReaderSpeech::hugeValuesDoNotOverflow()
{
    setOutside(QStringLiteral("SystemSet/Speed"), std::numeric_limits<int>::max());
    reader().setLanInfo(English);
    QCOMPARE(lastSpeed(), QStringLiteral("ZEMBRA_TTS_SetSpeed(2147483647)"));
    reader().setVolumInfo(std::numeric_limits<int>::min());
    QCOMPARE(lastVolume(), QStringLiteral("ZEMBRA_TTS_SetVolume(-2147483648)"));
}

QTEST_GUILESS_MAIN(TestConfigReaderSpeech)
#include "tst_configreader_speech.moc"
