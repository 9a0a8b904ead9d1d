#include "store/languagemanager.h"
#include "store/localetext.h"
#include "store/scantext.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/testroot.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <optional>

namespace {
const QString ScanTable = QStringLiteral("/apps/config/scanlanguage.cfg");
const QString MenuTable = QStringLiteral("/apps/config/menulan.cfg");
} // namespace

class TestLanguageManager : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void oneInstance();
    void rowWithAllFlagsIsInBothLists();
    void rowOfTheDisplayOnly();
    void rowOfTheScanOnly();
    void flagsOtherThanOne();
    void wholeRowIsHandedOut();
    void outsideTheLists();
    void findsCodes();
    void defaultIsTheFirstMarkedScanLanguage();
    void withoutADefaultTheSize();
    void wrongFieldCountFails_data();
    void wrongFieldCountFails();
    void menuTableIsNotReadAfterABadRow();
    void nonNumbersReadAsZero();
    void menuRowsHaveAnyNumberOfFields();
    void missingTablesAreMade();
    void missingFolderFails();
    void tableThatIsAFolderFails();
    void menuTableThatCannotBeMadeFails();
    void encodings_data();
    void encodings();
    void secondInitDoesNotDouble();

private:
    void tables(const QString& scan, const QString& menu = {})
    {
        m_root->write(ScanTable, scantext::encode(scan));
        m_root->write(MenuTable, scantext::encode(menu));
    }
    LanguageManager* loaded(const QString& scan, const QString& menu = {})
    {
        tables(scan, menu);
        LanguageManager* const manager = LanguageManager::Instance();
        [&] { QCOMPARE(manager->init(), 0); }();
        return manager;
    }

    std::optional<TestRoot> m_root;
};

void TestLanguageManager::init()
{
    m_root.emplace();
    fakes::reset();
}

void TestLanguageManager::cleanup()
{
    LanguageManager::quitFun();
}

void TestLanguageManager::oneInstance()
{
    LanguageManager* const manager = LanguageManager::Instance();
    QCOMPARE(LanguageManager::Instance(), manager);
    LanguageManager::quitFun();
    QVERIFY(LanguageManager::manager == nullptr);
    LanguageManager::quitFun();
}

void TestLanguageManager::rowWithAllFlagsIsInBothLists()
{
    const LanguageManager* const manager = loaded(QStringLiteral("E\t101\tEnglish\t1\t1\t1\t1\n"));
    QCOMPARE(manager->getLanguageSize(), 1);
    QCOMPARE(manager->getShowLanSize(), 1);
    QCOMPARE(manager->getDefaultShowLan(), 101);
    QCOMPARE(manager->getIntByID(0), 101);
    QCOMPARE(manager->getChnByID(0), QStringLiteral("English"));
    QCOMPARE(manager->getTTSFlagByID(0), 1);
    QCOMPARE(manager->getShowLanByID(0), QStringLiteral("English"));
    QCOMPARE(manager->getLanIntByID(0), 101);
}

void TestLanguageManager::rowOfTheDisplayOnly()
{
    const LanguageManager* const manager =
        loaded(QStringLiteral("E\t101\tEnglish\t1\t1\t1\t0\nT\t2\t繁體\t0\t1\t1\t1\n"
                              "F\t103\tFrançais\t1\t0\t0\t0\n"));
    QCOMPARE(manager->getLanguageSize(), 2);
    QCOMPARE(manager->getShowLanSize(), 2);
    QCOMPARE(manager->getLanIntByID(1), 2);
    QCOMPARE(manager->getShowLanByID(1), QStringLiteral("繁體"));
    languageInfo french;
    QVERIFY(manager->getInfoByID(1, french));
    QCOMPARE(french.id, 1);                    // the scan list's size when it was read
    QCOMPARE(manager->getDefaultShowLan(), 2); // the marked row is no scan language: the size
}

void TestLanguageManager::rowOfTheScanOnly()
{
    const LanguageManager* const manager = loaded(QStringLiteral("D\t108\tDansk\t1\t1\t0\t0\n"));
    QCOMPARE(manager->getLanguageSize(), 1);
    QCOMPARE(manager->getShowLanSize(), 0);
}

void TestLanguageManager::flagsOtherThanOne()
{
    const LanguageManager* const manager = loaded(QStringLiteral("D\t1\tD\t2\t1\t1\t1\n"
                                                                 "E\t2\tE\t1\t5\t-1\t2\n"));
    QCOMPARE(manager->getLanguageSize(), 1);
    QCOMPARE(manager->getShowLanSize(), 1);
    QCOMPARE(manager->getIntByID(0), 2);
    QCOMPARE(manager->getLanIntByID(0), 1);
    QCOMPARE(manager->getTTSFlagByID(0), 5);
    QCOMPARE(manager->getDefaultShowLan(), 1); // 2 is no mark: the size
}

void TestLanguageManager::wholeRowIsHandedOut()
{
    const LanguageManager* const manager =
        loaded(QStringLiteral("Name\t0104\tDeutsch\t1\t2\t3\t4\n"));
    languageInfo info;
    QVERIFY(manager->getInfoByID(0, info));
    QCOMPARE(info.name, QStringLiteral("Name"));
    QCOMPARE(info.code, QStringLiteral("0104"));
    QCOMPARE(info.displayName, QStringLiteral("Deutsch"));
    QCOMPARE(info.scanFlag, 1);
    QCOMPARE(info.speechFlag, 2);
    QCOMPARE(info.showFlag, 3);
    QCOMPARE(info.defaultFlag, 4);
    QCOMPARE(info.id, 0);
    QCOMPARE(manager->getIntByID(0), 104); // base 10
}

void TestLanguageManager::outsideTheLists()
{
    const LanguageManager* const manager = loaded(QStringLiteral("E\t101\tEnglish\t1\t1\t1\t1\n"));
    for (const int index : {-1, 1, 1000}) {
        languageInfo info;
        info.name = QStringLiteral("untouched");
        QCOMPARE(manager->getIntByID(index), 0);
        QVERIFY(manager->getChnByID(index).isEmpty());
        QCOMPARE(manager->getTTSFlagByID(index), 0);
        QVERIFY(!manager->getInfoByID(index, info));
        QCOMPARE(info.name, QStringLiteral("untouched"));
        QVERIFY(manager->getShowLanByID(index).isEmpty());
        QCOMPARE(manager->getLanIntByID(index), 0);
    }
}

void TestLanguageManager::findsCodes()
{
    const LanguageManager* const manager =
        loaded(QStringLiteral("A\t101\tA\t1\t1\t1\t0\nB\t1\tB\t1\t1\t1\t0\nC\t1\tC\t1\t1\t1\t0\n"));
    QCOMPARE(manager->getIDByLanINT(101), 0);
    QCOMPARE(manager->getIDByLanINT(1), 1);
    QCOMPARE(manager->getIDByLanINT(105), 3);
    QCOMPARE(loaded(QString())->getIDByLanINT(101), 0);
}

void TestLanguageManager::defaultIsTheFirstMarkedScanLanguage()
{
    QCOMPARE(loaded(QStringLiteral("T\t2\tT\t0\t1\t1\t1\nA\t103\tA\t1\t1\t1\t1\n"
                                   "B\t104\tB\t1\t1\t1\t1\n"))
                 ->getDefaultShowLan(),
             103);
}

void TestLanguageManager::withoutADefaultTheSize()
{
    QCOMPARE(loaded(QStringLiteral("A\t103\tA\t1\t1\t1\t0\nB\t104\tB\t1\t1\t1\t0\n"))
                 ->getDefaultShowLan(),
             2);
    QCOMPARE(loaded(QString())->getDefaultShowLan(), 0);
}

void TestLanguageManager::wrongFieldCountFails_data()
{
    QTest::addColumn<QString>("row");
    QTest::newRow("six") << QStringLiteral("A\t1\tA\t1\t1\t1");
    QTest::newRow("eight") << QStringLiteral("A\t1\tA\t1\t1\t1\t1\t");
    QTest::newRow("empty") << QString();
}

void TestLanguageManager::wrongFieldCountFails()
{
    QFETCH(const QString, row);
    tables(QStringLiteral("E\t101\tEnglish\t1\t1\t1\t1\n") + row
           + QStringLiteral("\nF\t103\tF\t1\t1\t1\t0\n"));
    QCOMPARE(LanguageManager::Instance()->init(), -1);
    QCOMPARE(LanguageManager::Instance()->getLanguageSize(), 1); // the rows before it stay
}

void TestLanguageManager::menuTableIsNotReadAfterABadRow()
{
    tables(QStringLiteral("bad\n"), QStringLiteral("English\n"));
    QCOMPARE(LanguageManager::Instance()->init(), -1);
    QCOMPARE(LanguageManager::Instance()->getMenuLanSize(), 0);
}

void TestLanguageManager::nonNumbersReadAsZero()
{
    const LanguageManager* const manager = loaded(QStringLiteral("E\tx\tE\t1\tyes\t\t1.5\n"));
    languageInfo info;
    QVERIFY(manager->getInfoByID(0, info));
    QCOMPARE(manager->getIntByID(0), 0);
    QCOMPARE(info.code, QStringLiteral("x"));
    QCOMPARE(info.speechFlag, 0);
    QCOMPARE(info.showFlag, 0);
    QCOMPARE(info.defaultFlag, 0);
}

void TestLanguageManager::menuRowsHaveAnyNumberOfFields()
{
    QCOMPARE(loaded(QString(), QStringLiteral("English\nFrançais\ta\t\tb\n\n"))->getMenuLanSize(),
             3);
}

void TestLanguageManager::missingTablesAreMade()
{
    QVERIFY(QFile::remove(m_root->path(ScanTable)));
    QVERIFY(QFile::remove(m_root->path(MenuTable)));
    QCOMPARE(LanguageManager::Instance()->init(), 0);
    QVERIFY(m_root->exists(ScanTable));
    QVERIFY(m_root->exists(MenuTable));
    QVERIFY(m_root->read(ScanTable).isEmpty());
    QCOMPARE(fakes::calls(),
             QStringList({QStringLiteral("syncStorage()"), QStringLiteral("syncStorage()")}));
    QCOMPARE(LanguageManager::Instance()->getLanguageSize(), 0);
    QCOMPARE(LanguageManager::Instance()->getShowLanSize(), 0);
    QCOMPARE(LanguageManager::Instance()->getMenuLanSize(), 0);
    QCOMPARE(LanguageManager::Instance()->init(), 0); // and empty tables are no error
}

void TestLanguageManager::missingFolderFails()
{
    QVERIFY(QDir(m_root->path(QStringLiteral("/apps/config"))).removeRecursively());
    QCOMPARE(LanguageManager::Instance()->init(), -1);
}

void TestLanguageManager::tableThatIsAFolderFails()
{
    QVERIFY(QFile::remove(m_root->path(ScanTable)));
    QVERIFY(QDir().mkpath(m_root->path(ScanTable)));
    QCOMPARE(LanguageManager::Instance()->init(), -1);
}

void TestLanguageManager::menuTableThatCannotBeMadeFails()
{
    QVERIFY(QFile::remove(m_root->path(MenuTable)));
    QVERIFY(QDir().mkpath(m_root->path(MenuTable)));
    QCOMPARE(LanguageManager::Instance()->init(), -1);
    QVERIFY(LanguageManager::Instance()->getLanguageSize() > 0);
}

void TestLanguageManager::encodings_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QString row = QStringLiteral("C\t1\t中文\t1\t1\t1\t1\r\n");
    QTest::newRow("UTF-16") << scantext::encode(row);
    QTest::newRow("locale") << localetext::encode(row);
    QTest::newRow("UTF-8 with a mark") << QByteArray("\xEF\xBB\xBF" + row.toUtf8());
}

void TestLanguageManager::encodings()
{
    QFETCH(const QByteArray, bytes);
    m_root->write(ScanTable, bytes);
    QCOMPARE(LanguageManager::Instance()->init(), 0);
    QCOMPARE(LanguageManager::Instance()->getChnByID(0), QStringLiteral("中文"));
    QCOMPARE(LanguageManager::Instance()->getDefaultShowLan(), 1);
}

void TestLanguageManager::secondInitDoesNotDouble()
{
    LanguageManager* const manager =
        loaded(QStringLiteral("E\t101\tE\t1\t1\t1\t1\n"), QStringLiteral("English\n"));
    QCOMPARE(manager->init(), 0);
    QCOMPARE(manager->getLanguageSize(), 1);
    QCOMPARE(manager->getShowLanSize(), 1);
    QCOMPARE(manager->getMenuLanSize(), 1);
}

QTEST_GUILESS_MAIN(TestLanguageManager)
#include "tst_languagemanager.moc"
