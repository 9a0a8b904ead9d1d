#include "tests/fakes/calls.h"
#include "tests/shared/testobjects.h"
#include "tests/unit/engines/translaterfixture.h"

#include <QTemporaryFile>
#include <QTest>
#include <atomic>
#include <cstdio>
#include <thread>
#include <unistd.h>

using fakes::calls;

/* Opening a dictionary, and closing the one before. */
class TestTranslaterOpening : public TranslaterFixture
{
    Q_OBJECT

private slots:
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
    void theTableIsReadWhileADictionaryIsBeingOpened();
    void onlyOneThreadIsInTheEngine();
};

void TestTranslaterOpening::pairsKeepTheirPlaceWithoutDictionaries()
{
    FakeDic::addPair(English, 104, u"one", {});
    FakeDic::addPair(French, 101, u"two", {{}});
    QVector<_stTransLan> pairs;
    QCOMPARE(Translater::Instance()->GetDict(pairs), 2);
    QVERIFY(pairs[0].dicts.isEmpty());
    QCOMPARE(Translater::Instance()->setDict(0, 0), -2);
    QCOMPARE(Translater::Instance()->setDict(1, 0), 0);
}

void TestTranslaterOpening::aDictionaryIsOpenedByItsPlace()
{
    FakeDic::addPair(English, 104, u"one", {{}, dictionary(u"word", {{u"word", u"Wort"}})});
    Translater::Instance();
    CallLog::clear();
    QCOMPARE(Translater::Instance()->setDict(0, 1), 0);
    QCOMPARE(calls(), (QStringList{"ZEMBRA_DIC_Initialize(dictionary)"}));
    QCOMPARE(lookUp(QStringLiteral("word")), 1);
}

void TestTranslaterOpening::aDictionaryIsOpenedByItsNumber()
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

void TestTranslaterOpening::openingByPlaceIsPrinted()
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

void TestTranslaterOpening::theDictionaryBeforeIsClosedFirst()
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

void TestTranslaterOpening::openingReportsWhatFails_data()
{
    QTest::addColumn<QByteArray>("function");
    QTest::addColumn<int>("byPlace");
    QTest::addColumn<int>("byNumber");
    QTest::newRow("close") << QByteArray("ZEMBRA_DIC_Uninitialize") << -8 << -8;
    QTest::newRow("select") << QByteArray("ZEMBRA_DIC_SelectDic") << 0 << -2;
    QTest::newRow("open") << QByteArray("ZEMBRA_DIC_Initialize") << -3 << -3;
}

void TestTranslaterOpening::openingReportsWhatFails()
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

void TestTranslaterOpening::wrongPlacesLeaveNoDictionaryOpen_data()
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

void TestTranslaterOpening::wrongPlacesLeaveNoDictionaryOpen()
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

void TestTranslaterOpening::oneThatCannotBeOpenedIsClosedBeforeTheNext()
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

void TestTranslaterOpening::onlyTheOpenDictionaryIsOpen()
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

void TestTranslaterOpening::readingThePairsAgainLeavesTheDictionaryOpen()
{
    FakeDic::addPair(English, 104, u"one", {dictionary(u"word", {{u"word", u"Wort"}})});
    QCOMPARE(Translater::Instance()->setDict(0, 0), 0);
    QCOMPARE(Translater::Instance()->GetDict(), 0);
    QVERIFY(Translater::Instance()->isOpen(0, 0));
    QCOMPARE(lookUp(QStringLiteral("word")), 1);
}

void TestTranslaterOpening::openingWithoutAListFails()
{
    FakeDic::addPair(English, 104, u"one", {{}});
    FakeDic::fail("ZEMBRA_DIC_GetDicList", -4);
    QCOMPARE(Translater::Instance()->setDict(0), -2);
    QCOMPARE(Translater::Instance()->setDict(0, 0), -1);
    QCOMPARE(Translater::Instance()->GetDict(), -1);
    QCOMPARE(lookUp(QStringLiteral("word")), -1);
}

void TestTranslaterOpening::theTableIsReadWhileADictionaryIsBeingOpened()
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

void TestTranslaterOpening::onlyOneThreadIsInTheEngine()
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

TEST_OBJECT(TestTranslaterOpening)
#include "tst_translater_opening.moc"
