#include "store/configreader.h"
#include "tests/fakes/calls.h"
#include "tests/shared/testobjects.h"
#include "tests/unit/engines/translaterfixture.h"

#include <QTest>

using fakes::calls;

namespace {

QString headword(const tagWordPropertyIfo& property)
{
    return QString(reinterpret_cast<const QChar*>(property.word), property.wordBytes / 2);
}

} // namespace

/* Looking up a word, and the first word of a line. */
class TestTranslaterLookUp : public TranslaterFixture
{
    Q_OBJECT

private slots:
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
    void definitionsAreNotBuilt();
    void wordsAreNotSpokenHere();
    void candidatesAreSplit_data();
    void candidatesAreSplit();
};

void TestTranslaterLookUp::aWordIsLookedUp()
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

void TestTranslaterLookUp::resultsAreAddedToWhatIsThere()
{
    FakeDic::addPair(English, 104, u"one", {dictionary(u"word", {{u"word", u"Wort"}})});
    QCOMPARE(Translater::Instance()->setDict(0, 0), 0);
    m_items.resize(3);
    QCOMPARE(lookUp(QStringLiteral("word")), 4);
    QCOMPARE(m_items[3].trans, QStringLiteral("Wort"));
}

void TestTranslaterLookUp::aWordThatIsNotThereChangesNothing()
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

void TestTranslaterLookUp::lookingUpNothingIsMinusOne()
{
    FakeDic::addPair(English, 104, u"one", {{}});
    QCOMPARE(Translater::Instance()->setDict(0, 0), 0);
    CallLog::clear();
    QCOMPARE(lookUp(QString()), -1);
    QCOMPARE(calls(), QStringList());
}

void TestTranslaterLookUp::lookingUpReportsWhatFails_data()
{
    QTest::addColumn<QByteArray>("function");
    QTest::addColumn<int>("result");
    QTest::addColumn<int>("items");
    QTest::addColumn<bool>("isOpen");
    QTest::newRow("search") << QByteArray("ZEMBRA_DIC_SearchWord") << -6 << 0 << false;
    QTest::newRow("free") << QByteArray("ZEMBRA_DIC_FreeSearchResult") << -7 << 1 << true;
}

void TestTranslaterLookUp::lookingUpReportsWhatFails()
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

void TestTranslaterLookUp::theLargeLigatureIsSmallInFrenchOnly_data()
{
    QTest::addColumn<int>("chosenPair");
    QTest::addColumn<QString>("searched");
    QTest::newRow("French") << 1 << QStringLiteral("\u00e6qu\u00e6\u00e9\u00c9");
    QTest::newRow("English") << 0 << QStringLiteral("\u00c6qu\u00c6\u00e9\u00c9");
    QTest::newRow("outside") << 2 << QStringLiteral("\u00c6qu\u00c6\u00e9\u00c9");
    QTest::newRow("negative") << -1 << QStringLiteral("\u00c6qu\u00c6\u00e9\u00c9");
}

void TestTranslaterLookUp::theLargeLigatureIsSmallInFrenchOnly()
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

void TestTranslaterLookUp::theFirstWordOfALineIsFound()
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

void TestTranslaterLookUp::aLineWithoutAWordIsMinusOne()
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

void TestTranslaterLookUp::firstWordReportsWhatFails_data()
{
    QTest::addColumn<QByteArray>("function");
    QTest::addColumn<int>("result");
    QTest::addColumn<bool>("isOpen");
    QTest::newRow("search") << QByteArray("ZEMBRA_DIC_GetFirstComment") << -6 << false;
    QTest::newRow("free") << QByteArray("ZEMBRA_DIC_FreeSearchResult") << -7 << true;
}

void TestTranslaterLookUp::firstWordReportsWhatFails()
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

void TestTranslaterLookUp::definitionsAreNotBuilt()
{
    tagResultNodeInfo node = {};
    QCOMPARE(Translater::Instance()->GetDefineStr(nullptr, nullptr, 1), -1);
    QCOMPARE(Translater::Instance()->GetDefineStr(nullptr, &node, 0), 0);
    QCOMPARE(Translater::Instance()->GetDefineStr(&node, nullptr, 0), -1);
}

void TestTranslaterLookUp::wordsAreNotSpokenHere()
{
    char word[] = "word";
    char empty[] = "";
    QCOMPARE(Translater::Instance()->soundWord(word, 1), 0);
    QCOMPARE(Translater::Instance()->soundWord(word, 0), -1);
    QCOMPARE(Translater::Instance()->soundWord(empty, 1), -1);
    QCOMPARE(Translater::Instance()->soundWord(nullptr, 1), -1);
    QCOMPARE(calls("ZEMBRA_TTS"), QStringList());
}

void TestTranslaterLookUp::candidatesAreSplit_data()
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

void TestTranslaterLookUp::candidatesAreSplit()
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

TEST_OBJECT(TestTranslaterLookUp)
#include "tst_translater_lookup.moc"
