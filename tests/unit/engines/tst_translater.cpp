#include "engines/translater.h"
#include "platform/zembra_dic.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/fakedic.h"
#include "tests/fakes/testroot.h"

#include <QTest>
#include <memory>

using fakes::calls;

class TestTranslater : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void theFirstUseLoadsTheFiveFolders();
    void thePairsComeInTheEnginesOrder();
    void withoutDictionariesTheTableIsEmpty();
    void languagesOfAPair();
    void anEndLanguageStoredAsNegativeIsReadUnsigned();
    void anIndexOutsideTheTableIsMinusOne();
    void aListThatCannotBeGotIsMinusOne();
    void pairsThatCannotBeGotAreMinusOne();
    void pairsThatCannotBeFreedAreMinusOne();
    void readingThePairsAgainRebuildsTheTable();
    void destroyReleasesEverything();
    void destroyTwiceIsMinusOne();
    void destroyReportsWhatFails_data();
    void destroyReportsWhatFails();
    void sortAddsAndClears();
    void quitWithoutInstanceDoesNothing();

private:
    std::unique_ptr<TestRoot> m_root;
};

void TestTranslater::init()
{
    m_root = std::make_unique<TestRoot>();
    fakes::reset();
}

void TestTranslater::cleanup()
{
    FakeDic::fail("ZEMBRA_DIC_Uninitialize", 0);
    FakeDic::fail("ZEMBRA_DIC_FreeTypeDicList", 0);
    FakeDic::fail("ZEMBRA_DIC_FreeDicList", 0);
    Translater::quitFun();
    QCOMPARE(FakeDic::misuses(), 0);
    fakes::reset();
    m_root.reset();
}

void TestTranslater::theFirstUseLoadsTheFiveFolders()
{
    Translater* const translater = Translater::Instance();
    QCOMPARE(Translater::Instance(), translater);
    QCOMPARE(Translater::transInstance.load(), translater);
    QCOMPARE(calls(), (QStringList{"ZEMBRA_DIC_GetDicList(/mnt/hidmmc/sysdict/defaultdict/, "
                                   "/mnt/hidmmc/sysdict/fredict/, /mnt/hidmmc/sysdict/, "
                                   "/apps/data/dict/, /mnt/mmc/usrdict/, 5)",
                                   "ZEMBRA_DIC_GetDicTypeList(ENGLISH)"}));
}

void TestTranslater::thePairsComeInTheEnginesOrder()
{
    FakeDic::addPair(101, 104, u"English-German", {{}, {}});
    FakeDic::addPair(103, 101, u"Français-English", {{}});
    QVector<_stTransLan> pairs;
    QCOMPARE(Translater::Instance()->GetDict(pairs), 2);
    QCOMPARE(pairs.size(), 2);
    QCOMPARE(pairs[0].name, QStringLiteral("English-German"));
    QCOMPARE(pairs[0].lanID, 101);
    QCOMPARE(int(pairs[0].endLanID), 104);
    QCOMPARE(pairs[0].dicts.size(), 2);
    QVERIFY(pairs[0].dicts[0] != pairs[0].dicts[1]);
    QCOMPARE(pairs[1].name, QStringLiteral("Français-English"));
    QCOMPARE(pairs[1].dicts.size(), 1);
}

void TestTranslater::withoutDictionariesTheTableIsEmpty()
{
    QVector<_stTransLan> pairs(3);
    QCOMPARE(Translater::Instance()->GetDict(pairs), 0);
    QVERIFY(pairs.isEmpty());
}

void TestTranslater::languagesOfAPair()
{
    FakeDic::addPair(101, 104, u"one", {{}});
    FakeDic::addPair(103, 1, u"two", {{}});
    QCOMPARE(Translater::Instance()->getLanID(1), 103);
    QCOMPARE(Translater::Instance()->getEndLanID(1), 1);
}

void TestTranslater::anEndLanguageStoredAsNegativeIsReadUnsigned()
{
    FakeDic::addPair(101, -1, u"one", {{}});
    FakeDic::addPair(101, -32768, u"two", {{}});
    QCOMPARE(Translater::Instance()->getEndLanID(0), 65535);
    QCOMPARE(Translater::Instance()->getEndLanID(1), 32768);
}

void TestTranslater::anIndexOutsideTheTableIsMinusOne()
{
    FakeDic::addPair(101, 104, u"one", {{}});
    for (const int index : {-1, 1, 1000}) {
        QCOMPARE(Translater::Instance()->getLanID(index), -1);
        QCOMPARE(Translater::Instance()->getEndLanID(index), -1);
    }
}

void TestTranslater::aListThatCannotBeGotIsMinusOne()
{
    FakeDic::fail("ZEMBRA_DIC_GetDicList", -4);
    QCOMPARE(Translater::Instance()->init(0), -1);
    QCOMPARE(CallLog::count("ZEMBRA_DIC_GetDicTypeList"), 0);
    QCOMPARE(Translater::Instance()->destroy(), -1);
}

void TestTranslater::pairsThatCannotBeGotAreMinusOne()
{
    Translater::Instance();
    FakeDic::fail("ZEMBRA_DIC_GetDicTypeList", -2);
    QCOMPARE(Translater::Instance()->GetDict(), -1);
}

void TestTranslater::pairsThatCannotBeFreedAreMinusOne()
{
    FakeDic::addPair(101, 104, u"one", {{}});
    Translater::Instance();
    FakeDic::fail("ZEMBRA_DIC_FreeTypeDicList", -2);
    QCOMPARE(Translater::Instance()->GetDict(), -1);
    QCOMPARE(Translater::Instance()->getLanID(0), -1);
}

void TestTranslater::readingThePairsAgainRebuildsTheTable()
{
    FakeDic::addPair(101, 104, u"one", {{}});
    Translater::Instance();
    QCOMPARE(Translater::Instance()->GetDict(), 0);
    QVector<_stTransLan> pairs;
    QCOMPARE(Translater::Instance()->GetDict(pairs), 1);
    QCOMPARE(FakeDic::openRecords(), 2);
}

void TestTranslater::destroyReleasesEverything()
{
    FakeDic::addPair(101, 104, u"one", {{}});
    Translater::Instance();
    CallLog::clear();
    QCOMPARE(Translater::Instance()->destroy(), 0);
    QCOMPARE(calls(), (QStringList{"ZEMBRA_DIC_Uninitialize(null)", "ZEMBRA_DIC_FreeTypeDicList()",
                                   "ZEMBRA_DIC_FreeDicList()"}));
    QCOMPARE(FakeDic::openRecords(), 0);
}

void TestTranslater::destroyTwiceIsMinusOne()
{
    QCOMPARE(Translater::Instance()->destroy(), 0);
    QCOMPARE(Translater::Instance()->destroy(), -1);
}

void TestTranslater::destroyReportsWhatFails_data()
{
    QTest::addColumn<QByteArray>("function");
    QTest::addColumn<int>("result");
    QTest::newRow("dictionary") << QByteArray("ZEMBRA_DIC_Uninitialize") << -8;
    QTest::newRow("pairs") << QByteArray("ZEMBRA_DIC_FreeTypeDicList") << -1;
    QTest::newRow("list") << QByteArray("ZEMBRA_DIC_FreeDicList") << -9;
}

void TestTranslater::destroyReportsWhatFails()
{
    QFETCH(QByteArray, function);
    QFETCH(int, result);
    FakeDic::addPair(101, 104, u"one", {{}});
    Translater::Instance();
    FakeDic::fail(function.toStdString(), -5);
    QCOMPARE(Translater::Instance()->destroy(), result);
}

void TestTranslater::sortAddsAndClears()
{
    Translater* const translater = Translater::Instance();
    _stTransLan pair;
    pair.lanID = 42;
    translater->sortTransLan(pair);
    QCOMPARE(translater->getLanID(0), 42);
    translater->sortClear();
    QCOMPARE(translater->getLanID(0), -1);
}

void TestTranslater::quitWithoutInstanceDoesNothing()
{
    Translater::quitFun();
    QCOMPARE(calls(), QStringList());
}

QTEST_APPLESS_MAIN(TestTranslater)
#include "tst_translater.moc"
