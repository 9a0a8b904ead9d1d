#include "engines/ocrpen.h"
#include "engines/translater.h"
#include "engines/ttsplayer.h"
#include "store/configreader.h"
#include "store/languagemanager.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/fakedic.h"
#include "tests/fakes/testroot.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTest>

#include <functional>
#include <limits>
#include <optional>
#include <thread>

using Setter = std::function<void(ConfigReader&, int)>;
using Getter = std::function<int(ConfigReader&)>;
Q_DECLARE_METATYPE(Setter)
Q_DECLARE_METATYPE(Getter)

namespace {

const QString ConfigFile = QStringLiteral("/apps/config/config.ini");

// Rows of the run root's scan-language table.
enum Row { English = 0, French = 1, German = 2, Spanish = 3, Russian = 4, Chinese = 5, None = 6 };

} // namespace

class TestConfigReader : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void missingFileGivesThePresets();
    void missingFileIsMadeWithTwoKeys();
    void readsEveryKey_data();
    void readsEveryKey();
    void boost_data();
    void boost();
    void startTellsTheEnginesOnlyTheBoost();
    void wordsReadAsZero();
    void plainSettersStoreAndWriteAlone_data();
    void plainSettersStoreAndWriteAlone();
    void handIsReadFreshly();
    void otherKeysAreNotSeenWhenOthersWrite();
    void engineIds();
    void currentDictionarysLanguage();
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
    void unwritableFileStillWorksInMemory();
    void gettersWorkOnAnyThread();

private:
    ConfigReader& reader()
    {
        ConfigReader* const instance = ConfigReader::Instance();
        return *instance;
    }
    // The setting as the file has it when the store is gone.
    QVariant stored(const QString& key)
    {
        ConfigReader::quitFun();
        ConfigReader::reader = nullptr;
        return QSettings(m_root->path(ConfigFile), QSettings::IniFormat).value(key);
    }
    void setOutside(const QString& key, int value)
    {
        QFile file(m_root->path(ConfigFile));
        QVERIFY(file.open(QIODevice::WriteOnly));
        const qsizetype slash = key.indexOf(u'/');
        file.write(QStringLiteral("[%1]\n%2=%3\n")
                       .arg(key.left(slash), key.mid(slash + 1))
                       .arg(value)
                       .toUtf8());
    }
    QStringList voiceCalls() const { return fakes::calls("ZEMBRA_TTS_Set"); }
    static QString last(std::string_view prefix)
    {
        const QStringList calls = fakes::calls(prefix);
        return calls.isEmpty() ? QString() : calls.last();
    }
    static QString lastLan() { return last("ZEMBRA_TTS_SetLang"); }
    static QString lastSpeed() { return last("ZEMBRA_TTS_SetSpeed"); }
    static QString lastVolume() { return last("ZEMBRA_TTS_SetVolume("); }

    std::optional<TestRoot> m_root;
};

void TestConfigReader::init()
{
    m_root.emplace();
    QVERIFY(QFile::remove(m_root->path(ConfigFile)));
    fakes::reset();
    QCOMPARE(LanguageManager::Instance()->init(), 0);
}

void TestConfigReader::cleanup()
{
    if (ConfigReader::reader != nullptr)
        ConfigReader::quitFun();
    ConfigReader::reader = nullptr;
    OCRPen::quitFun();
    TTSPlayer::quitFun();
    Translater::quitFun();
    LanguageManager::quitFun();
}

void TestConfigReader::missingFileGivesThePresets()
{
    ConfigReader& c = reader();
    QCOMPARE(c.getReadSpeedInfo(), 6);
    QCOMPARE(c.getVolumInfo(), 4);
    QCOMPARE(c.getReadSpeedInfoForDict(), 5);
    QCOMPARE(c.getVolumDict(), 4);
    QCOMPARE(c.getPuncPauseInfo(), 1);
    for (const int value :
         {c.getHandLR(), c.getStatisInfo(), c.getWordPauseInfo(), c.getTTSInfo(), c.getDelayInfo(),
          c.getLanInfo(), c.getScanDirectInfo(), c.getReadControlInfo(), c.getTTSDict(),
          c.getLanDict(), c.getScanDirectDict(), c.getReadControlDict(), c.getReadTransDict(),
          c.getLanDictInfo(), c.getTalkingMenuInfo(), c.getMenuLanInfo(), c.getSpanishInfo()})
        QCOMPARE(value, 0);
    QCOMPARE(fakes::calls("ZEMBRA_TTS_SetVolumeLevel"),
             QStringList(QStringLiteral("ZEMBRA_TTS_SetVolumeLevel(1000)")));
}

void TestConfigReader::missingFileIsMadeWithTwoKeys()
{
    reader();
    ConfigReader::quitFun();
    ConfigReader::reader = nullptr;
    const QSettings file(m_root->path(ConfigFile), QSettings::IniFormat);
    QCOMPARE(file.allKeys(), QStringList({QStringLiteral("DictTrans/LanDictInfo"),
                                          QStringLiteral("SystemSet/Statistic")}));
    QCOMPARE(m_root->read(ConfigFile).replace('\r', ""),
             QByteArray("[DictTrans]\nLanDictInfo=0\n\n[SystemSet]\nStatistic=0\n"));
}

void TestConfigReader::readsEveryKey_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<Getter>("get");
    const auto row = [](const char* key, const Getter& get) {
        QTest::newRow(key) << QString::fromLatin1(key) << get;
    };
    row("SystemSet/HandLR", [](auto& c) { return c.getHandLR(); });
    row("SystemSet/Statistic", [](auto& c) { return c.getStatisInfo(); });
    row("SystemSet/PUNCTUATIONPAUSE", [](auto& c) { return c.getPuncPauseInfo(); });
    row("SystemSet/WORDPAUSE", [](auto& c) { return c.getWordPauseInfo(); });
    row("SystemSet/TTS", [](auto& c) { return c.getTTSInfo(); });
    row("SystemSet/Delay", [](auto& c) { return c.getDelayInfo(); });
    row("SystemSet/scanLan", [](auto& c) { return c.getLanInfo(); });
    row("InfoScan/ScanDirect", [](auto& c) { return c.getScanDirectInfo(); });
    row("InfoScan/ReadControl", [](auto& c) { return c.getReadControlInfo(); });
    row("SystemSet/Volum", [](auto& c) { return c.getVolumInfo(); });
    row("SystemSet/Speed", [](auto& c) { return c.getReadSpeedInfo(); });
    row("DictTrans/LanDict", [](auto& c) { return c.getLanDict(); });
    row("DictTrans/ScanDirect", [](auto& c) { return c.getScanDirectDict(); });
    row("DictTrans/Volum", [](auto& c) { return c.getVolumDict(); });
    row("DictTrans/ReadControl", [](auto& c) { return c.getReadControlDict(); });
    row("DictTrans/ReadTrans", [](auto& c) { return c.getReadTransDict(); });
    row("DictTrans/LanDictInfo", [](auto& c) { return c.getLanDictInfo(); });
    row("SystemSet/MenuTalking", [](auto& c) { return c.getTalkingMenuInfo(); });
    row("SystemSet/Lan", [](auto& c) { return c.getMenuLanInfo(); });
    row("DictTrans/ReadSpeed", [](auto& c) { return c.getReadSpeedInfoForDict(); });
    row("SystemSet/SPANISH", [](auto& c) { return c.getSpanishInfo(); });
}

void TestConfigReader::readsEveryKey()
{
    QFETCH(const QString, key);
    QFETCH(const Getter, get);
    setOutside(key, -37);
    QCOMPARE(get(reader()), -37);
    QCOMPARE(get(reader()), -37);
}

void TestConfigReader::boost_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("level");
    QTest::newRow("absent") << QByteArray() << QStringLiteral("1000");
    QTest::newRow("level alone") << QByteArray("BoostLevel=700") << QStringLiteral("1000");
    QTest::newRow("off with a level")
        << QByteArray("Boost=0\nBoostLevel=700") << QStringLiteral("700");
    QTest::newRow("off") << QByteArray("Boost=0") << QStringLiteral("0");
    QTest::newRow("2") << QByteArray("Boost=2\nBoostLevel=700") << QStringLiteral("1000");
}

void TestConfigReader::boost()
{
    QFETCH(const QByteArray, file);
    QFETCH(const QString, level);
    m_root->write(ConfigFile, "[SystemSet]\n" + file + "\n");
    reader();
    QCOMPARE(fakes::calls("ZEMBRA_TTS_SetVolumeLevel"),
             QStringList(QStringLiteral("ZEMBRA_TTS_SetVolumeLevel(%1)").arg(level)));
}

void TestConfigReader::startTellsTheEnginesOnlyTheBoost()
{
    setOutside(QStringLiteral("SystemSet/scanLan"), Spanish);
    reader();
    QCOMPARE(fakes::calls(), QStringList(QStringLiteral("ZEMBRA_TTS_SetVolumeLevel(1000)")));
}

void TestConfigReader::wordsReadAsZero()
{
    m_root->write(ConfigFile, "[SystemSet]\nSpeed=fast\nVolum=\nDelay=1x\nPUNCTUATIONPAUSE=2, 3\n"
                              "rubbish\n[unended\n");
    QCOMPARE(reader().getReadSpeedInfo(), 0);
    QCOMPARE(reader().getVolumInfo(), 0);
    QCOMPARE(reader().getDelayInfo(), 0);
    QCOMPARE(reader().getPuncPauseInfo(), 0);
}

void TestConfigReader::plainSettersStoreAndWriteAlone_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<Setter>("set");
    QTest::addColumn<Getter>("get");
    const auto row = [](const char* key, const Setter& set, const Getter& get) {
        QTest::newRow(key) << QString::fromLatin1(key) << set << get;
    };
    row(
        "SystemSet/Statistic", [](auto& c, int v) { c.setStatisInfo(v); },
        [](auto& c) { return c.getStatisInfo(); });
    row(
        "SystemSet/PUNCTUATIONPAUSE", [](auto& c, int v) { c.setPuncPauseInfo(v); },
        [](auto& c) { return c.getPuncPauseInfo(); });
    row(
        "SystemSet/WORDPAUSE", [](auto& c, int v) { c.setWordPauseInfo(v); },
        [](auto& c) { return c.getWordPauseInfo(); });
    row(
        "SystemSet/Delay", [](auto& c, int v) { c.setDelayInfo(v); },
        [](auto& c) { return c.getDelayInfo(); });
    row(
        "InfoScan/ReadControl", [](auto& c, int v) { c.setReadConrolInfo(v); },
        [](auto& c) { return c.getReadControlInfo(); });
    row(
        "InfoScan/ScanDirect", [](auto& c, int v) { c.setScanDirectInfo(v); },
        [](auto& c) { return c.getScanDirectInfo(); });
    row(
        "DictTrans/ReadControl", [](auto& c, int v) { c.setReadConrolDict(v); },
        [](auto& c) { return c.getReadControlDict(); });
    row(
        "DictTrans/ReadTrans", [](auto& c, int v) { c.setReadTransDict(v); },
        [](auto& c) { return c.getReadTransDict(); });
    row(
        "DictTrans/ScanDirect", [](auto& c, int v) { c.setScanDirectDict(v); },
        [](auto& c) { return c.getScanDirectDict(); });
    row(
        "DictTrans/Volum", [](auto& c, int v) { c.setVolumDict(v); },
        [](auto& c) { return c.getVolumDict(); });
    row(
        "DictTrans/ReadSpeed", [](auto& c, int v) { c.setReadSpeedInfoForDict(v); },
        [](auto& c) { return c.getReadSpeedInfoForDict(); });
    row(
        "DictTrans/LanDictInfo", [](auto& c, int v) { c.setLanDictInfo(v); },
        [](auto& c) { return c.getLanDictInfo(); });
    row(
        "DictTrans/LanDict", [](auto& c, int v) { c.setLanDict(v); },
        [](auto& c) { return c.getLanDict(); });
}

void TestConfigReader::plainSettersStoreAndWriteAlone()
{
    QFETCH(const QString, key);
    QFETCH(const Setter, set);
    QFETCH(const Getter, get);
    reader();
    fakes::reset();
    set(reader(), 23);
    QCOMPARE(get(reader()), 23);
    QVERIFY(fakes::calls().isEmpty());
    QCOMPARE(stored(key), QVariant(QStringLiteral("23")));
    const QSettings file(m_root->path(ConfigFile), QSettings::IniFormat);
    for (const QString& other : file.allKeys())
        QVERIFY(other == key || file.value(other).toInt() == 0);
    QCOMPARE(get(reader()), 23); // and the next start finds it
}

void TestConfigReader::handIsReadFreshly()
{
    QCOMPARE(reader().getHandLR(), 0);
    setOutside(QStringLiteral("SystemSet/HandLR"), 1);
    QCOMPARE(reader().getHandLR(), 1);
    setOutside(QStringLiteral("SystemSet/HandLR"), 10);
    QCOMPARE(reader().getHandLR(), 10);
    reader().setDelayInfo(3);
    QCOMPARE(reader().getHandLR(), 10);
    QCOMPARE(stored(QStringLiteral("SystemSet/Delay")).toInt(), 3);
}

void TestConfigReader::otherKeysAreNotSeenWhenOthersWrite()
{
    QCOMPARE(reader().getDelayInfo(), 0);
    setOutside(QStringLiteral("SystemSet/Delay"), 5);
    QCOMPARE(reader().getHandLR(), 0);
    QCOMPARE(reader().getDelayInfo(), 0);
}

void TestConfigReader::engineIds()
{
    QCOMPARE(reader().getEngineID(1), 1);
    QCOMPARE(reader().getEngineID(151), 3);
    QCOMPARE(reader().getEngineID(101), 2);
    QCOMPARE(reader().getEngineID(-1), 2);
}

void TestConfigReader::currentDictionarysLanguage()
{
    FakeDic::addPair(105, 101, u"es-en", {});
    FakeDic::addPair(101, 1, u"en-zh", {});
    reader().setLanDict(1);
    QCOMPARE(reader().getCurLanDict(), 101);
    reader().setLanDict(2);
    QCOMPARE(reader().getCurLanDict(), -1);
}

void TestConfigReader::volumeGoesToTheEngine()
{
    reader().setVolumInfo(3);
    QCOMPARE(reader().getVolumInfo(), 3);
    QCOMPARE(lastVolume(), QStringLiteral("ZEMBRA_TTS_SetVolume(60)"));
    QCOMPARE(stored(QStringLiteral("SystemSet/Volum")).toInt(), 3);
}

void TestConfigReader::spanishAppliesTheFilesVolume()
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

void TestConfigReader::scanVoice_data()
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

void TestConfigReader::scanVoice()
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

void TestConfigReader::scanVoiceWithoutALanguage()
{
    for (const int row : {-1, int(None)}) {
        reader().setLanInfo(row);
        reader().setTTSInfo(0);
        QCOMPARE(lastLan(), QStringLiteral("ZEMBRA_TTS_SetLang(0)"));
    }
}

void TestConfigReader::dictVoice_data()
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

void TestConfigReader::dictVoice()
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

void TestConfigReader::dictVoiceWithoutADictionary()
{
    reader().setTTSDict(0);
    QCOMPARE(lastLan(), QStringLiteral("ZEMBRA_TTS_SetLang(-1)"));
}

void TestConfigReader::bothVoicesShareOneKey()
{
    reader().setTTSInfo(4);
    QCOMPARE(reader().getTTSDict(), 0);
    QCOMPARE(stored(QStringLiteral("SystemSet/TTS")).toInt(), 4);
    QCOMPARE(reader().getTTSDict(), 4);
    QCOMPARE(reader().getTTSInfo(), 4);
}

void TestConfigReader::speed_data()
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

void TestConfigReader::speed()
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

void TestConfigReader::speedOfTheSpanishVariantOnlyInItsSetter()
{
    reader().setSpanishInfo(1);
    reader().setLanInfo(Spanish);
    QCOMPARE(lastSpeed(), QStringLiteral("ZEMBRA_TTS_SetSpeed(48)"));
    reader().setReadSpeedInfo(6);
    QCOMPARE(lastSpeed(), QStringLiteral("ZEMBRA_TTS_SetSpeed(90)"));
    reader().setLanInfo(Spanish);
    QCOMPARE(lastSpeed(), QStringLiteral("ZEMBRA_TTS_SetSpeed(48)"));
}

void TestConfigReader::scanLanguage_data()
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

void TestConfigReader::scanLanguage()
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

void TestConfigReader::hugeValuesDoNotOverflow()
{
    setOutside(QStringLiteral("SystemSet/Speed"), std::numeric_limits<int>::max());
    reader().setLanInfo(English);
    QCOMPARE(lastSpeed(), QStringLiteral("ZEMBRA_TTS_SetSpeed(2147483647)"));
    reader().setVolumInfo(std::numeric_limits<int>::min());
    QCOMPARE(lastVolume(), QStringLiteral("ZEMBRA_TTS_SetVolume(-2147483648)"));
}

void TestConfigReader::unwritableFileStillWorksInMemory()
{
    QVERIFY(QDir().mkpath(m_root->path(ConfigFile)));
    QCOMPARE(reader().getReadSpeedInfo(), 6);
    reader().setDelayInfo(2);
    QCOMPARE(reader().getDelayInfo(), 2);
}

void TestConfigReader::gettersWorkOnAnyThread()
{
    ConfigReader& c = reader();
    std::atomic<bool> stop = false;
    std::atomic<bool> wrong = false;
    std::thread worker([&] {
        while (!stop) {
            const int delay = c.getDelayInfo();
            wrong = wrong || delay < 0 || delay > 100 || c.getHandLR() != 0;
        }
    });
    for (int i = 0; i <= 100; ++i)
        c.setDelayInfo(i);
    stop = true;
    worker.join();
    QVERIFY(!wrong);
    QCOMPARE(stored(QStringLiteral("SystemSet/Delay")).toInt(), 100);
}

QTEST_GUILESS_MAIN(TestConfigReader)
#include "tst_configreader.moc"
