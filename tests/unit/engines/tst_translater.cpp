#include "engines/translater.h"
#include "platform/zembra_dic.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/fakedic.h"
#include "tests/fakes/testroot.h"
#include "tests/unit/engines/freshsettings.h"

#include <QTemporaryFile>
#include <QTest>
#include <atomic>
#include <cstdio>
#include <memory>
#include <thread>
#include <unistd.h>

using fakes::calls;

namespace {

constexpr int English = 101;
constexpr int French = 103;

FakeDic::Dictionary dictionary(const std::u16string& word, std::vector<FakeDic::Entry> entries)
{
    FakeDic::Dictionary made;
    made.entries[word] = std::move(entries);
    return made;
}

FakeDic::Dictionary named(std::u16string name)
{
    FakeDic::Dictionary made;
    made.name = std::move(name);
    return made;
}

QString headword(const tagWordPropertyIfo& property)
{
    return QString(reinterpret_cast<const QChar*>(property.word), property.wordBytes / 2);
}

} // namespace

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
    void destroyGivesUpADictionaryThatCannotBeClosed();
    void destroyEmptiesTheTable();
    void whatIsLoadedAgainWorks();
    void pairsKeepTheirPlaceWithoutDictionaries();
    void aDictionaryIsOpenedByItsPlace();
    void aDictionaryIsOpenedByItsNumber();
    void openingByPlaceIsPrinted();
    void theDictionaryBeforeIsClosedFirst();
    void openingReportsWhatFails_data();
    void openingReportsWhatFails();
    void wrongPlacesLeaveNoDictionaryOpen_data();
    void wrongPlacesLeaveNoDictionaryOpen();
    void oneThatCannotBeOpenedIsClosedBeforeTheNext();
    void onlyTheOpenDictionaryIsOpen();
    void readingThePairsAgainLeavesTheDictionaryOpen();
    void openingWithoutAListFails();
    void aWordIsLookedUp();
    void resultsAreAddedToWhatIsThere();
    void aWordThatIsNotThereChangesNothing();
    void lookingUpNothingIsMinusOne();
    void lookingUpReportsWhatFails_data();
    void lookingUpReportsWhatFails();
    void theLargeLigatureIsSmallInFrenchOnly_data();
    void theLargeLigatureIsSmallInFrenchOnly();
    void theFirstWordOfALineIsFound();
    void aLineWithoutAWordIsMinusOne();
    void firstWordReportsWhatFails_data();
    void firstWordReportsWhatFails();
    void namesOfDictionaries();
    void aNamelessDictionaryIsCalledAfterItsPair();
    void sourcesOfDictionaries();
    void theTableIsReadWhileADictionaryIsBeingOpened();
    void onlyOneThreadIsInTheEngine();
    void definitionsAreNotBuilt();
    void wordsAreNotSpokenHere();
    void candidatesAreSplit_data();
    void candidatesAreSplit();

private:
    int lookUp(const QString& word);

    QVector<_stTransItem> m_items;
    bool m_found = true;
    tagWordPropertyIfo m_property;
    std::unique_ptr<TestRoot> m_root;
};

void TestTranslater::init()
{
    m_root = std::make_unique<TestRoot>();
    fakes::reset();
    freshSettings();
    CallLog::clear();
    m_items.clear();
    m_found = true;
    m_property = {};
}

int TestTranslater::lookUp(const QString& word)
{
    return Translater::Instance()->transWord(word, word, m_items, m_found, m_property);
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

void TestTranslater::destroyGivesUpADictionaryThatCannotBeClosed()
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

void TestTranslater::destroyEmptiesTheTable()
{
    FakeDic::addPair(English, 104, u"one", {{}});
    Translater* const translater = Translater::Instance();
    QCOMPARE(translater->getLanID(0), English);
    QCOMPARE(translater->destroy(), 0);
    QCOMPARE(translater->getLanID(0), -1);
    QCOMPARE(translater->setDict(0, 0), -1);
    QCOMPARE(lookUp(QStringLiteral("word")), -1);
}

void TestTranslater::whatIsLoadedAgainWorks()
{
    Translater* const translater = Translater::Instance();
    QCOMPARE(translater->destroy(), 0);
    FakeDic::addPair(English, 104, u"one", {dictionary(u"word", {{u"word", u"Wort"}})});
    QCOMPARE(translater->init(0), 0);
    QCOMPARE(translater->setDict(0, 0), 0);
    QCOMPARE(lookUp(QStringLiteral("word")), 1);
}

void TestTranslater::pairsKeepTheirPlaceWithoutDictionaries()
{
    FakeDic::addPair(English, 104, u"one", {});
    FakeDic::addPair(French, 101, u"two", {{}});
    QVector<_stTransLan> pairs;
    QCOMPARE(Translater::Instance()->GetDict(pairs), 2);
    QVERIFY(pairs[0].dicts.isEmpty());
    QCOMPARE(Translater::Instance()->setDict(0, 0), -2);
    QCOMPARE(Translater::Instance()->setDict(1, 0), 0);
}

void TestTranslater::aDictionaryIsOpenedByItsPlace()
{
    FakeDic::addPair(English, 104, u"one", {{}, dictionary(u"word", {{u"word", u"Wort"}})});
    Translater::Instance();
    CallLog::clear();
    QCOMPARE(Translater::Instance()->setDict(0, 1), 0);
    QCOMPARE(calls(), (QStringList{"ZEMBRA_DIC_Initialize(dictionary)"}));
    QCOMPARE(lookUp(QStringLiteral("word")), 1);
}

void TestTranslater::aDictionaryIsOpenedByItsNumber()
{
    FakeDic::addPair(English, 104, u"one", {{}, {}});
    FakeDic::addPair(French, 104, u"two", {dictionary(u"mot", {{u"mot", u"Wort"}})});
    Translater::Instance();
    CallLog::clear();
    QCOMPARE(Translater::Instance()->setDict(2), 0);
    QCOMPARE(calls(),
             (QStringList{"ZEMBRA_DIC_SelectDic(1, 2)", "ZEMBRA_DIC_Initialize(dictionary)"}));
    QCOMPARE(lookUp(QStringLiteral("mot")), 1);
    QVERIFY(Translater::Instance()->isOpen(1, 0));
}

void TestTranslater::openingByPlaceIsPrinted()
{
    FakeDic::addPair(English, 104, u"one", {{}});
    Translater* const translater = Translater::Instance();
    QTemporaryFile printed;
    QVERIFY(printed.open());
    std::fflush(stdout);
    const int before = dup(STDOUT_FILENO);
    QVERIFY(before >= 0 && dup2(printed.handle(), STDOUT_FILENO) >= 0);
    const int byPlace = translater->setDict(0, 0);
    const int byNumber = translater->setDict(0);
    const int wrong = translater->setDict(0, 1);
    std::fflush(stdout);
    dup2(before, STDOUT_FILENO);
    close(before);
    QCOMPARE(byPlace, 0);
    QCOMPARE(byNumber, 0);
    QCOMPARE(wrong, -2);
    printed.seek(0);
    QCOMPARE(printed.readAll(), QByteArray("setDict ZEMBRA_DIC_Initialize().....\n"));
}

void TestTranslater::theDictionaryBeforeIsClosedFirst()
{
    FakeDic::addPair(English, 104, u"one", {{}, {}});
    QCOMPARE(Translater::Instance()->setDict(0, 0), 0);
    CallLog::clear();
    QCOMPARE(Translater::Instance()->setDict(0, 1), 0);
    QCOMPARE(calls(), (QStringList{"ZEMBRA_DIC_Uninitialize(dictionary)",
                                   "ZEMBRA_DIC_Initialize(dictionary)"}));
    CallLog::clear();
    QCOMPARE(Translater::Instance()->setDict(0), 0);
    QCOMPARE(calls(),
             (QStringList{"ZEMBRA_DIC_Uninitialize(dictionary)", "ZEMBRA_DIC_SelectDic(1, 0)",
                          "ZEMBRA_DIC_Initialize(dictionary)"}));
    QCOMPARE(FakeDic::openDictionaries(), 1);
}

void TestTranslater::openingReportsWhatFails_data()
{
    QTest::addColumn<QByteArray>("function");
    QTest::addColumn<int>("byPlace");
    QTest::addColumn<int>("byNumber");
    QTest::newRow("close") << QByteArray("ZEMBRA_DIC_Uninitialize") << -8 << -8;
    QTest::newRow("select") << QByteArray("ZEMBRA_DIC_SelectDic") << 0 << -2;
    QTest::newRow("open") << QByteArray("ZEMBRA_DIC_Initialize") << -3 << -3;
}

void TestTranslater::openingReportsWhatFails()
{
    QFETCH(QByteArray, function);
    QFETCH(int, byPlace);
    QFETCH(int, byNumber);
    FakeDic::addPair(English, 104, u"one", {{}, {}});
    Translater* const translater = Translater::Instance();
    QCOMPARE(translater->setDict(0, 0), 0);
    FakeDic::fail(function.toStdString(), -5);
    QCOMPARE(translater->setDict(0, 1), byPlace);
    QCOMPARE(translater->isOpen(0, 1), byPlace == 0);
    FakeDic::fail(function.toStdString(), 0);
    QCOMPARE(translater->setDict(0, 0), 0);
    FakeDic::fail(function.toStdString(), -5);
    QCOMPARE(translater->setDict(1), byNumber);
    QVERIFY(!translater->isOpen(0, 0) && !translater->isOpen(0, 1));
}

void TestTranslater::wrongPlacesLeaveNoDictionaryOpen_data()
{
    QTest::addColumn<int>("pair");
    QTest::addColumn<int>("dict");
    QTest::addColumn<int>("result");
    QTest::newRow("pair too high") << 3 << 0 << -1;
    QTest::newRow("pair negative") << -1 << 0 << -1;
    QTest::newRow("both wrong") << 3 << 9 << -1;
    QTest::newRow("dictionary too high") << 2 << 5 << -2;
    QTest::newRow("just too high") << 2 << 3 << -2;
    QTest::newRow("dictionary negative") << 2 << -1 << -2;
}

void TestTranslater::wrongPlacesLeaveNoDictionaryOpen()
{
    QFETCH(int, pair);
    QFETCH(int, dict);
    QFETCH(int, result);
    FakeDic::addPair(English, 104, u"one", {{}});
    FakeDic::addPair(French, 104, u"two", {{}});
    FakeDic::addPair(104, 101, u"three", {{}, {}, {}});
    QCOMPARE(Translater::Instance()->setDict(0, 0), 0);
    CallLog::clear();
    QCOMPARE(Translater::Instance()->setDict(pair, dict), result);
    QCOMPARE(calls(), (QStringList{"ZEMBRA_DIC_Uninitialize(dictionary)"}));
    QCOMPARE(FakeDic::openDictionaries(), 0);
    QVERIFY(!Translater::Instance()->isOpen(0, 0));
    QVERIFY(!Translater::Instance()->isOpen(pair, dict));
}

void TestTranslater::oneThatCannotBeOpenedIsClosedBeforeTheNext()
{
    FakeDic::Dictionary unreadable;
    unreadable.unreadable = true;
    FakeDic::addPair(English, 104, u"one", {unreadable, {}});
    QCOMPARE(Translater::Instance()->setDict(0, 0), -3);
    QVERIFY(!Translater::Instance()->isOpen(0, 0));
    QCOMPARE(lookUp(QStringLiteral("word")), -6);
    CallLog::clear();
    QCOMPARE(Translater::Instance()->setDict(0, 1), 0);
    QCOMPARE(calls(), (QStringList{"ZEMBRA_DIC_Uninitialize(dictionary)",
                                   "ZEMBRA_DIC_Initialize(dictionary)"}));
}

void TestTranslater::onlyTheOpenDictionaryIsOpen()
{
    FakeDic::addPair(English, 104, u"one", {{}, {}});
    FakeDic::addPair(French, 104, u"two", {{}});
    Translater* const translater = Translater::Instance();
    QVERIFY(!translater->isOpen(0, 0));
    QCOMPARE(translater->setDict(0, 1), 0);
    QVERIFY(translater->isOpen(0, 1));
    for (const auto& [pair, dict] : {std::pair{0, 0}, {1, 0}, {0, 2}, {0, -1}, {-1, 0}, {2, 0}})
        QVERIFY(!translater->isOpen(pair, dict));
    QCOMPARE(translater->destroy(), 0);
    QVERIFY(!translater->isOpen(0, 1));
}

void TestTranslater::readingThePairsAgainLeavesTheDictionaryOpen()
{
    FakeDic::addPair(English, 104, u"one", {dictionary(u"word", {{u"word", u"Wort"}})});
    QCOMPARE(Translater::Instance()->setDict(0, 0), 0);
    QCOMPARE(Translater::Instance()->GetDict(), 0);
    QVERIFY(Translater::Instance()->isOpen(0, 0));
    QCOMPARE(lookUp(QStringLiteral("word")), 1);
}

void TestTranslater::openingWithoutAListFails()
{
    FakeDic::addPair(English, 104, u"one", {{}});
    FakeDic::fail("ZEMBRA_DIC_GetDicList", -4);
    QCOMPARE(Translater::Instance()->setDict(0), -2);
    QCOMPARE(Translater::Instance()->setDict(0, 0), -1);
    QCOMPARE(Translater::Instance()->GetDict(), -1);
    QCOMPARE(lookUp(QStringLiteral("word")), -1);
}

void TestTranslater::aWordIsLookedUp()
{
    FakeDic::addPair(English, 104, u"one",
                     {dictionary(u"words", {{u"word", u"Wort\nn", 7}, {u"words", u"Wörter", 9}})});
    QCOMPARE(Translater::Instance()->setDict(0, 0), 0);
    m_property.zero = 1;
    CallLog::clear();
    QCOMPARE(lookUp(QStringLiteral("words")), 2);
    QCOMPARE(calls(), (QStringList{"ZEMBRA_DIC_SearchWord(\"words\", 10, 1, 0)",
                                   "ZEMBRA_DIC_FreeSearchResult()"}));
    QCOMPARE(m_items[0].word, QStringLiteral("word"));
    QCOMPARE(m_items[0].trans, QStringLiteral("Wort\nn"));
    QCOMPARE(m_items[0].kind, 0);
    QCOMPARE(m_items[1].word, QStringLiteral("words"));
    QCOMPARE(m_items[1].trans, QStringLiteral("Wörter"));
    QCOMPARE(headword(m_property), QStringLiteral("word"));
    QCOMPARE(m_property.wordBytes, 8);
    QCOMPARE(int(m_property.property), 7);
    QCOMPARE(int(m_property.zero), 0);
    QVERIFY(!m_found);
}

void TestTranslater::resultsAreAddedToWhatIsThere()
{
    FakeDic::addPair(English, 104, u"one", {dictionary(u"word", {{u"word", u"Wort"}})});
    QCOMPARE(Translater::Instance()->setDict(0, 0), 0);
    m_items.resize(3);
    QCOMPARE(lookUp(QStringLiteral("word")), 4);
    QCOMPARE(m_items[3].trans, QStringLiteral("Wort"));
}

void TestTranslater::aWordThatIsNotThereChangesNothing()
{
    FakeDic::addPair(English, 104, u"one", {{}});
    QCOMPARE(Translater::Instance()->setDict(0, 0), 0);
    m_items.resize(2);
    m_property.wordBytes = 42;
    QCOMPARE(lookUp(QStringLiteral("word")), -1);
    QCOMPARE(m_items.size(), 2);
    QCOMPARE(m_property.wordBytes, 42);
    QVERIFY(!m_found);
}

void TestTranslater::lookingUpNothingIsMinusOne()
{
    FakeDic::addPair(English, 104, u"one", {{}});
    QCOMPARE(Translater::Instance()->setDict(0, 0), 0);
    CallLog::clear();
    QCOMPARE(lookUp(QString()), -1);
    QCOMPARE(calls(), QStringList());
}

void TestTranslater::lookingUpReportsWhatFails_data()
{
    QTest::addColumn<QByteArray>("function");
    QTest::addColumn<int>("result");
    QTest::addColumn<int>("items");
    QTest::addColumn<bool>("isOpen");
    QTest::newRow("search") << QByteArray("ZEMBRA_DIC_SearchWord") << -6 << 0 << false;
    QTest::newRow("free") << QByteArray("ZEMBRA_DIC_FreeSearchResult") << -7 << 1 << true;
}

void TestTranslater::lookingUpReportsWhatFails()
{
    QFETCH(QByteArray, function);
    QFETCH(int, result);
    QFETCH(int, items);
    QFETCH(bool, isOpen);
    FakeDic::addPair(English, 104, u"one", {dictionary(u"word", {{u"word", u"Wort"}})});
    QCOMPARE(Translater::Instance()->setDict(0, 0), 0);
    FakeDic::fail(function.toStdString(), -5);
    QCOMPARE(lookUp(QStringLiteral("word")), result);
    QCOMPARE(m_items.size(), items);
    QCOMPARE(Translater::Instance()->isOpen(0, 0), isOpen);
    FakeDic::fail(function.toStdString(), 0);
    QCOMPARE(Translater::Instance()->setDict(0, 0), 0); // and another attempt may succeed
    QVERIFY(Translater::Instance()->isOpen(0, 0));
    QCOMPARE(FakeDic::openDictionaries(), 1);
}

void TestTranslater::theLargeLigatureIsSmallInFrenchOnly_data()
{
    QTest::addColumn<int>("chosenPair");
    QTest::addColumn<QString>("searched");
    QTest::newRow("French") << 1 << QStringLiteral("\u00e6qu\u00e6\u00e9\u00c9");
    QTest::newRow("English") << 0 << QStringLiteral("\u00c6qu\u00c6\u00e9\u00c9");
    QTest::newRow("outside") << 2 << QStringLiteral("\u00c6qu\u00c6\u00e9\u00c9");
    QTest::newRow("negative") << -1 << QStringLiteral("\u00c6qu\u00c6\u00e9\u00c9");
}

void TestTranslater::theLargeLigatureIsSmallInFrenchOnly()
{
    QFETCH(int, chosenPair);
    QFETCH(QString, searched);
    FakeDic::addPair(English, 104, u"one", {{}});
    FakeDic::addPair(French, 104, u"two", {{}});
    ConfigReader::Instance()->setLanDict(chosenPair);
    QCOMPARE(Translater::Instance()->setDict(0, 0), 0);
    CallLog::clear();
    QCOMPARE(lookUp(QStringLiteral("\u00c6qu\u00c6\u00e9\u00c9")), -1);
    QCOMPARE(calls(), (QStringList{"ZEMBRA_DIC_SearchWord(\"" + searched + "\", 12, 1, 0)"}));
}

void TestTranslater::theFirstWordOfALineIsFound()
{
    FakeDic::addPair(English, 104, u"one",
                     {dictionary(u"word", {{u"word", u"Wort"}, {u"word", u"Vokabel"}})});
    QCOMPARE(Translater::Instance()->setDict(0, 0), 0);
    CallLog::clear();
    QVector<QString> candidates{QStringLiteral("kept")};
    int position = 99;
    bool found = true;
    QCOMPARE(Translater::Instance()->transWordFirst(QStringLiteral("a word"), candidates, position,
                                                    found),
             3);
    QCOMPARE(candidates, (QVector<QString>{"kept", "Wort", "Vokabel"}));
    QCOMPARE(position, 3);
    QVERIFY(!found);
    QCOMPARE(calls(), (QStringList{"ZEMBRA_DIC_GetFirstComment(\"a word\", 12)",
                                   "ZEMBRA_DIC_FreeSearchResult()"}));
}

void TestTranslater::aLineWithoutAWordIsMinusOne()
{
    FakeDic::addPair(English, 104, u"one", {{}});
    QCOMPARE(Translater::Instance()->setDict(0, 0), 0);
    QVector<QString> candidates{QStringLiteral("kept")};
    int position = 99;
    bool found = true;
    Translater* const translater = Translater::Instance();
    QCOMPARE(translater->transWordFirst(QString(), candidates, position, found), -1);
    QCOMPARE(position, 99);
    QVERIFY(!found);
    QCOMPARE(translater->transWordFirst(QStringLiteral("a b"), candidates, position, found), -1);
    QCOMPARE(position, 0);
    QCOMPARE(candidates.size(), 1);
    QCOMPARE(translater->destroy(), 0);
    QCOMPARE(translater->transWordFirst(QStringLiteral("a b"), candidates, position, found), -1);
}

void TestTranslater::firstWordReportsWhatFails_data()
{
    QTest::addColumn<QByteArray>("function");
    QTest::addColumn<int>("result");
    QTest::addColumn<bool>("isOpen");
    QTest::newRow("search") << QByteArray("ZEMBRA_DIC_GetFirstComment") << -6 << false;
    QTest::newRow("free") << QByteArray("ZEMBRA_DIC_FreeSearchResult") << -7 << true;
}

void TestTranslater::firstWordReportsWhatFails()
{
    QFETCH(QByteArray, function);
    QFETCH(int, result);
    FakeDic::addPair(English, 104, u"one", {dictionary(u"word", {{u"word", u"Wort"}})});
    QCOMPARE(Translater::Instance()->setDict(0, 0), 0);
    FakeDic::fail(function.toStdString(), -5);
    QVector<QString> candidates;
    int position = 0;
    bool found = true;
    QCOMPARE(
        Translater::Instance()->transWordFirst(QStringLiteral("word"), candidates, position, found),
        result);
    QFETCH(bool, isOpen);
    QCOMPARE(Translater::Instance()->isOpen(0, 0), isOpen);
}

void TestTranslater::namesOfDictionaries()
{
    FakeDic::addPair(English, 104, u"English-German", {named(u"Small"), named(u"Größer")});
    Translater* const translater = Translater::Instance();
    QCOMPARE(translater->dictName(0, 0), QStringLiteral("Small"));
    QCOMPARE(translater->dictName(0, 1), QStringLiteral("Größer"));
    for (const auto& [pair, dict] : {std::pair{0, 2}, {0, -1}, {1, 0}, {-1, 0}})
        QCOMPARE(translater->dictName(pair, dict), QString());
}

void TestTranslater::aNamelessDictionaryIsCalledAfterItsPair()
{
    FakeDic::Dictionary away = named(u"Away");
    away.away = true;
    FakeDic::addPair(English, 104, u"English-German", {named(u"Here"), away, named(u" ")});
    Translater* const translater = Translater::Instance();
    QCOMPARE(translater->dictName(0, 0), QStringLiteral("Here"));
    QCOMPARE(translater->dictName(0, 1), QStringLiteral("English-German 2"));
    QCOMPARE(translater->dictName(0, 2), QStringLiteral("English-German 3"));
}

void TestTranslater::sourcesOfDictionaries()
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

void TestTranslater::theTableIsReadWhileADictionaryIsBeingOpened()
{
    FakeDic::addPair(English, 104, u"one", {named(u"First"), {}});
    Translater* const translater = Translater::Instance();
    QCOMPARE(translater->setDict(0, 1), 0);
    CallLog::clear();
    FakeDic::holdInitialize(true);
    std::atomic<int> opened{1};
    std::thread opening([&] { opened = translater->setDict(0, 0); });
    QVERIFY(CallLog::waitFor("ZEMBRA_DIC_Initialize"));

    QVector<_stTransLan> pairs;
    QCOMPARE(translater->GetDict(pairs), 1);
    QCOMPARE(translater->getLanID(0), English);
    QCOMPARE(translater->getEndLanID(0), 104);
    QCOMPARE(translater->dictName(0, 0), QStringLiteral("First"));
    QVERIFY(!translater->isOpen(0, 0));
    QVERIFY(!translater->isOpen(0, 1));
    // None of them has waited for the dictionary.
    QCOMPARE(opened.load(), 1);

    FakeDic::holdInitialize(false);
    opening.join();
    QCOMPARE(opened.load(), 0);
    QVERIFY(translater->isOpen(0, 0));
}

void TestTranslater::onlyOneThreadIsInTheEngine()
{
    FakeDic::addPair(English, 104, u"one", {dictionary(u"word", {{u"word", u"Wort"}}), {}});
    Translater* const translater = Translater::Instance();
    constexpr int Rounds = 300;
    std::atomic<bool> begin{false};
    const auto together = [&begin](auto work) {
        return std::thread([&begin, work] {
            while (!begin)
                std::this_thread::yield();
            for (int i = 0; i < Rounds; ++i)
                work(i);
        });
    };
    std::thread opening = together([&](int i) { translater->setDict(0, i % 2); });
    std::thread reading = together([&](int) { translater->GetDict(); });
    std::thread asking = together([&](int) {
        translater->getLanID(0);
        translater->isOpen(0, 0);
        translater->dictSource(0, 0);
    });
    begin = true;
    for (int i = 0; i < Rounds; ++i)
        lookUp(QStringLiteral("word"));
    for (std::thread* thread : {&opening, &reading, &asking})
        thread->join();
    QCOMPARE(FakeDic::misuses(), 0);
    for (const _stTransItem& item : m_items)
        QCOMPARE(item.trans, QStringLiteral("Wort"));
}

void TestTranslater::definitionsAreNotBuilt()
{
    tagResultNodeInfo node = {};
    QCOMPARE(Translater::Instance()->GetDefineStr(nullptr, nullptr, 1), -1);
    QCOMPARE(Translater::Instance()->GetDefineStr(nullptr, &node, 0), 0);
    QCOMPARE(Translater::Instance()->GetDefineStr(&node, nullptr, 0), -1);
}

void TestTranslater::wordsAreNotSpokenHere()
{
    char word[] = "word";
    char empty[] = "";
    QCOMPARE(Translater::Instance()->soundWord(word, 1), 0);
    QCOMPARE(Translater::Instance()->soundWord(word, 0), -1);
    QCOMPARE(Translater::Instance()->soundWord(empty, 1), -1);
    QCOMPARE(Translater::Instance()->soundWord(nullptr, 1), -1);
    QCOMPARE(calls("ZEMBRA_TTS"), QStringList());
}

void TestTranslater::candidatesAreSplit_data()
{
    QTest::addColumn<QString>("buffer");
    QTest::addColumn<int>("length");
    QTest::addColumn<QStringList>("strings");
    const QString two = QString::fromUtf16(u"ab\0c\0\0", 6);
    QTest::newRow("two") << two << 10 << QStringList{"ab", "c"};
    QTest::newRow("no end in reach") << two << 2 << QStringList();
    QTest::newRow("first end in reach") << two << 3 << QStringList{"ab"};
    QTest::newRow("nothing") << two << 0 << QStringList();
    QTest::newRow("negative") << two << -3 << QStringList();
    QTest::newRow("behind the end")
        << QString::fromUtf16(u"a\0\0b\0\0", 6) << 6 << QStringList{"a"};
    QTest::newRow("an empty one first")
        << QString::fromUtf16(u"\0a\0\0", 4) << 4 << QStringList{"a"};
    QTest::newRow("empty") << QString::fromUtf16(u"\0\0a\0\0", 5) << 5 << QStringList();
    const QString longOnes = QString(79, u'x') + QChar(u'\0') + QString(1, u'y') + QChar(u'\0');
    QTest::newRow("80 units at the most") << longOnes << 82 << QStringList{QString(79, u'x')};
}

void TestTranslater::candidatesAreSplit()
{
    QFETCH(QString, buffer);
    QFETCH(int, length);
    QFETCH(QStringList, strings);
    buffer.resize(100, QChar(u'\0'));
    QStringList out{"old"};
    QCOMPARE(GetCandStrings(nullptr, length, out), -1);
    QCOMPARE(out, QStringList{"old"});
    QCOMPARE(GetCandStrings(buffer.utf16(), length, out), int(strings.size()));
    QCOMPARE(out, strings);
}

QTEST_APPLESS_MAIN(TestTranslater)
#include "tst_translater.moc"
