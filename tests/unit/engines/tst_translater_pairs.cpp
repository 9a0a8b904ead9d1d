#include "tests/fakes/calls.h"
#include "tests/shared/testobjects.h"
#include "tests/unit/engines/translaterfixture.h"

#include <QTest>

using fakes::calls;

/* The table of pairs of languages with their dictionaries, from loading to release. */
class TestTranslaterPairs : public TranslaterFixture
{
    Q_OBJECT

private slots:
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
    void destroyGivesUpADictionaryThatCannotBeClosed();
    void destroyEmptiesTheTable();
    void whatIsLoadedAgainWorks();
    void namesOfDictionaries();
    void aNamelessDictionaryIsCalledAfterItsPair();
    void sourcesOfDictionaries();
};

void TestTranslaterPairs::theFirstUseLoadsTheFiveFolders()
{
    Translater* const translater = Translater::Instance();
    QCOMPARE(Translater::Instance(), translater);
    QCOMPARE(Translater::transInstance.load(), translater);
    QCOMPARE(calls(), (QStringList{"ZEMBRA_DIC_GetDicList(/mnt/hidmmc/sysdict/defaultdict/, "
                                   "/mnt/hidmmc/sysdict/fredict/, /mnt/hidmmc/sysdict/, "
                                   "/apps/data/dict/, /mnt/mmc/usrdict/, 5)",
                                   "ZEMBRA_DIC_GetDicTypeList(ENGLISH)"}));
}

void TestTranslaterPairs::thePairsComeInTheEnginesOrder()
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

void TestTranslaterPairs::withoutDictionariesTheTableIsEmpty()
{
    QVector<_stTransLan> pairs(3);
    QCOMPARE(Translater::Instance()->GetDict(pairs), 0);
    QVERIFY(pairs.isEmpty());
}

void TestTranslaterPairs::languagesOfAPair()
{
    FakeDic::addPair(101, 104, u"one", {{}});
    FakeDic::addPair(103, 1, u"two", {{}});
    QCOMPARE(Translater::Instance()->getLanID(1), 103);
    QCOMPARE(Translater::Instance()->getEndLanID(1), 1);
}

void TestTranslaterPairs::anEndLanguageStoredAsNegativeIsReadUnsigned()
{
    FakeDic::addPair(101, -1, u"one", {{}});
    FakeDic::addPair(101, -32768, u"two", {{}});
    QCOMPARE(Translater::Instance()->getEndLanID(0), 65535);
    QCOMPARE(Translater::Instance()->getEndLanID(1), 32768);
}

void TestTranslaterPairs::anIndexOutsideTheTableIsMinusOne()
{
    FakeDic::addPair(101, 104, u"one", {{}});
    for (const int index : {-1, 1, 1000}) {
        QCOMPARE(Translater::Instance()->getLanID(index), -1);
        QCOMPARE(Translater::Instance()->getEndLanID(index), -1);
    }
}

void TestTranslaterPairs::aListThatCannotBeGotIsMinusOne()
{
    FakeDic::fail("ZEMBRA_DIC_GetDicList", -4);
    QCOMPARE(Translater::Instance()->init(0), -1);
    QCOMPARE(CallLog::count("ZEMBRA_DIC_GetDicTypeList"), 0);
    QCOMPARE(Translater::Instance()->destroy(), -1);
}

void TestTranslaterPairs::pairsThatCannotBeGotAreMinusOne()
{
    Translater::Instance();
    FakeDic::fail("ZEMBRA_DIC_GetDicTypeList", -2);
    QCOMPARE(Translater::Instance()->GetDict(), -1);
}

void TestTranslaterPairs::pairsThatCannotBeFreedAreMinusOne()
{
    FakeDic::addPair(101, 104, u"one", {{}});
    Translater::Instance();
    FakeDic::fail("ZEMBRA_DIC_FreeTypeDicList", -2);
    QCOMPARE(Translater::Instance()->GetDict(), -1);
    QCOMPARE(Translater::Instance()->getLanID(0), -1);
}

void TestTranslaterPairs::readingThePairsAgainRebuildsTheTable()
{
    FakeDic::addPair(101, 104, u"one", {{}});
    Translater::Instance();
    QCOMPARE(Translater::Instance()->GetDict(), 0);
    QVector<_stTransLan> pairs;
    QCOMPARE(Translater::Instance()->GetDict(pairs), 1);
    QCOMPARE(FakeDic::openRecords(), 2);
}

void TestTranslaterPairs::destroyReleasesEverything()
{
    FakeDic::addPair(101, 104, u"one", {{}});
    Translater::Instance();
    CallLog::clear();
    QCOMPARE(Translater::Instance()->destroy(), 0);
    QCOMPARE(calls(), (QStringList{"ZEMBRA_DIC_Uninitialize(null)", "ZEMBRA_DIC_FreeTypeDicList()",
                                   "ZEMBRA_DIC_FreeDicList()"}));
    QCOMPARE(FakeDic::openRecords(), 0);
}

void TestTranslaterPairs::destroyTwiceIsMinusOne()
{
    QCOMPARE(Translater::Instance()->destroy(), 0);
    QCOMPARE(Translater::Instance()->destroy(), -1);
}

void TestTranslaterPairs::destroyReportsWhatFails_data()
{
    QTest::addColumn<QByteArray>("function");
    QTest::addColumn<int>("result");
    QTest::newRow("dictionary") << QByteArray("ZEMBRA_DIC_Uninitialize") << -8;
    QTest::newRow("pairs") << QByteArray("ZEMBRA_DIC_FreeTypeDicList") << -1;
    QTest::newRow("list") << QByteArray("ZEMBRA_DIC_FreeDicList") << -9;
}

void TestTranslaterPairs::destroyReportsWhatFails()
{
    QFETCH(QByteArray, function);
    QFETCH(int, result);
    FakeDic::addPair(101, 104, u"one", {{}});
    Translater::Instance();
    FakeDic::fail(function.toStdString(), -5);
    QCOMPARE(Translater::Instance()->destroy(), result);
}

void TestTranslaterPairs::sortAddsAndClears()
{
    Translater* const translater = Translater::Instance();
    _stTransLan pair;
    pair.lanID = 42;
    translater->sortTransLan(pair);
    QCOMPARE(translater->getLanID(0), 42);
    translater->sortClear();
    QCOMPARE(translater->getLanID(0), -1);
}

void TestTranslaterPairs::quitWithoutInstanceDoesNothing()
{
    Translater::quitFun();
    QCOMPARE(calls(), QStringList());
}

void TestTranslaterPairs::destroyGivesUpADictionaryThatCannotBeClosed()
{
    FakeDic::addPair(English, 104, u"one", {{}});
    Translater* const translater = Translater::Instance();
    QCOMPARE(translater->setDict(0, 0), 0);
    FakeDic::fail("ZEMBRA_DIC_Uninitialize", -5);
    QCOMPARE(translater->destroy(), -8);
    QVERIFY(!translater->isOpen(0, 0));
    // The dictionary is not asked for a second time.
    CallLog::clear();
    FakeDic::fail("ZEMBRA_DIC_Uninitialize", 0);
    QCOMPARE(translater->setDict(0, 0), 0);
    QCOMPARE(CallLog::count("ZEMBRA_DIC_Uninitialize"), 0);
}

void TestTranslaterPairs::destroyEmptiesTheTable()
{
    FakeDic::addPair(English, 104, u"one", {{}});
    Translater* const translater = Translater::Instance();
    QCOMPARE(translater->getLanID(0), English);
    QCOMPARE(translater->destroy(), 0);
    QCOMPARE(translater->getLanID(0), -1);
    QCOMPARE(translater->setDict(0, 0), -1);
    QCOMPARE(lookUp(QStringLiteral("word")), -1);
}

void TestTranslaterPairs::whatIsLoadedAgainWorks()
{
    Translater* const translater = Translater::Instance();
    QCOMPARE(translater->destroy(), 0);
    FakeDic::addPair(English, 104, u"one", {dictionary(u"word", {{u"word", u"Wort"}})});
    QCOMPARE(translater->init(0), 0);
    QCOMPARE(translater->setDict(0, 0), 0);
    QCOMPARE(lookUp(QStringLiteral("word")), 1);
}

void TestTranslaterPairs::namesOfDictionaries()
{
    FakeDic::addPair(English, 104, u"English-German", {named(u"Small"), named(u"Größer")});
    Translater* const translater = Translater::Instance();
    QCOMPARE(translater->dictName(0, 0), QStringLiteral("Small"));
    QCOMPARE(translater->dictName(0, 1), QStringLiteral("Größer"));
    for (const auto& [pair, dict] : {std::pair{0, 2}, {0, -1}, {1, 0}, {-1, 0}})
        QCOMPARE(translater->dictName(pair, dict), QString());
}

void TestTranslaterPairs::aNamelessDictionaryIsCalledAfterItsPair()
{
    FakeDic::Dictionary away = named(u"Away");
    away.away = true;
    FakeDic::addPair(English, 104, u"English-German", {named(u"Here"), away, named(u" ")});
    Translater* const translater = Translater::Instance();
    QCOMPARE(translater->dictName(0, 0), QStringLiteral("Here"));
    QCOMPARE(translater->dictName(0, 1), QStringLiteral("English-German 2"));
    QCOMPARE(translater->dictName(0, 2), QStringLiteral("English-German 3"));
}

void TestTranslaterPairs::sourcesOfDictionaries()
{
    FakeDic::Dictionary told;
    told.origin = u"From somewhere\nCC0";
    FakeDic::Dictionary away = told;
    away.away = true;
    FakeDic::addPair(English, 104, u"one", {told, away, {}});
    Translater* const translater = Translater::Instance();
    QCOMPARE(translater->dictSource(0, 0), QStringLiteral("From somewhere\nCC0"));
    QCOMPARE(translater->dictSource(0, 1), QString());
    QCOMPARE(translater->dictSource(0, 2), QString());
    QCOMPARE(translater->dictSource(1, 0), QString());
}

TEST_OBJECT(TestTranslaterPairs)
#include "tst_translater_pairs.moc"
