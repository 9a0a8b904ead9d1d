// The settings: presets, file, setters.
#include "tests/fakes/calls.h"
#include "tests/fakes/fakedic.h"
#include "tests/unit/store/settingsfixture.h"

#include <QDir>
#include <QSettings>
#include <QTest>

#include <atomic>
#include <functional>
#include <thread>

using Setter = std::function<void(ConfigReader&, int)>;
using Getter = std::function<int(ConfigReader&)>;
Q_DECLARE_METATYPE(Setter)
Q_DECLARE_METATYPE(Getter)

class TestConfigReader : public SettingsFixture
{
    Q_OBJECT

private slots:
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
    void unwritableFileStillWorksInMemory();
    void gettersWorkOnAnyThread();
};

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
