#include "engines/cttsthread_setup.h"
#include "engines/cttsthreadforset.h"
#include "engines/translater.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/fakedic.h"
#include "tests/fakes/fakeocr.h"
#include "tests/fakes/faketts.h"
#include "tests/shared/testobjects.h"
#include "tests/unit/engines/freshsettings.h"
#include "tests/unit/engines/workersfixture.h"

#include <QSettings>
#include <QTest>

namespace {

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

/* The threads that open dictionaries and apply a change of the scan language. */
class TestWorkersChanges : public WorkersFixture
{
    Q_OBJECT

private slots:
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
};

int TestWorkersChanges::setting(const QString& key) const
{
    return QSettings(m_root->path(QStringLiteral("/apps/config/config.ini")), QSettings::IniFormat)
        .value(key, -99)
        .toInt();
}

void TestWorkersChanges::theDictionaryChangeIsStored()
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

void TestWorkersChanges::theChosenDictionaryIsOpened()
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

void TestWorkersChanges::theDictionaryOfTheSettingsIsOpened()
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

void TestWorkersChanges::aDictionaryThatIsOpenIsLeftOpen()
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

void TestWorkersChanges::theDictionaryIsClosed()
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

void TestWorkersChanges::aDictionaryThatCannotBeOpenedLeavesNoneOpen()
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

void TestWorkersChanges::theScanLanguageChangeIsStoredAndApplied_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("recognition");
    QTest::addColumn<int>("voice");
    QTest::newRow("English") << 0 << 2 << 200;
    QTest::newRow("French") << 1 << 2 << 103;
    QTest::newRow("Russian") << 4 << 3 << 151;
    QTest::newRow("Chinese") << 5 << 1 << 1;
}

void TestWorkersChanges::theScanLanguageChangeIsStoredAndApplied()
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

TEST_OBJECT(TestWorkersChanges)
#include "tst_workers_changes.moc"
