#include "tests/shared/testobjects.h"
#include "tests/unit/dict/dictfixture.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>

/* The translate screen: looking up, and what is shown of it. */
class TestDictScanEditTrans : public DictFixture
{
    Q_OBJECT

private slots:
    void entriesAreShownOneBelowTheOther();
    void theHeadwordIsShownWhereItIsAnother();
    void noResult();
    void failingSearchIsNoResult();
    void emptyEntriesAreNone();
    void chineseTextIsAskedFor_data();
    void chineseTextIsAskedFor();
    void chineseLooksTheLongestWordUp();
    void chineseEntriesTellTheirWords();
    void movingBetweenEntriesStaysWithinThem();
    void theMarkStandsAtTheCurrentEntry();
    void withoutItsPictureThereIsNoMark();
    void dictionaryTextIsPlain();
    void theDictionaryIsOpenedOnce();
    void unknownPairHasNoLanguage();
    void whatIsWorthRemembering();
    void stepsAreRememberedWhenTheyAreRead();
    void placeIsTold();
    void manyLongEntriesAreShownAtOnce();

private:
    QTextEdit* pane() const { return m_edit->findChild<QTextEdit*>(QStringLiteral("editTrans")); }

    /* Lines of the pane that begin with the mark. */
    QList<int> marks() const
    {
        QList<int> lines;
        for (QTextBlock line = pane()->document()->begin(); line.isValid(); line = line.next()) {
            if (line.text().contains(QChar::ObjectReplacementCharacter))
                lines.append(line.blockNumber());
        }
        return lines;
    }
};

void TestDictScanEditTrans::entriesAreShownOneBelowTheOther()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("run"), true);
    QCOMPARE(m_edit->resultCount(), 3);
    QCOMPARE(shown(), QStringLiteral("laufen\n[ran]\nLauf [m]\nFlucht [f]\nNote: rare"));
}

void TestDictScanEditTrans::theHeadwordIsShownWhereItIsAnother()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("ran"), true);
    QCOMPARE(shown(), QStringLiteral("run: laufen"));
    QCOMPARE(m_edit->currentHeadword(), QStringLiteral("run"));
    QCOMPARE(m_edit->currentTranslation(), QStringLiteral("laufen"));
}

void TestDictScanEditTrans::noResult()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("xyzzy"), true);
    QCOMPARE(shown(), QStringLiteral("No translation result."));
    QCOMPARE(m_edit->resultCount(), 0);
    QVERIFY(m_edit->changeTras() < 0);
    QCOMPARE(pane()->toPlainText(), QStringLiteral("No translation result."));
}

void TestDictScanEditTrans::failingSearchIsNoResult()
{
    openEnglish();
    FakeDic::fail("ZEMBRA_DIC_SearchWord", -5);
    m_edit->setScanText(QStringLiteral("house"), true);
    QCOMPARE(shown(), QStringLiteral("No translation result."));
    QCOMPARE(m_edit->researchWords(), -6);
    FakeDic::fail("ZEMBRA_DIC_SearchWord", 0);
    QCOMPARE(m_edit->researchWords(), 1);
    FakeDic::fail("ZEMBRA_DIC_GetFirstComment", -5);
    m_edit->takeScan(QStringLiteral("green house"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("green"));
}

void TestDictScanEditTrans::emptyEntriesAreNone()
{
    open(101, 104, {{"a", " \n "}, {"b", " "}, {"b", "x"}});
    m_edit->setScanText(QStringLiteral("a b"), true);
    QCOMPARE(shown(), QStringLiteral("No translation result."));
    m_edit->MoveNext();
    QCOMPARE(m_edit->changeTras(), 1);
    QCOMPARE(shown(), QStringLiteral("x"));
}

void TestDictScanEditTrans::chineseTextIsAskedFor_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("message");
    const QString none = QStringLiteral("No translation result.");
    const QString chinese =
        QStringLiteral("Current source language is chinese. Please scan chinese text.");
    QTest::newRow("Latin") << 1 << "house" << chinese;
    QTest::newRow("nothing") << 1 << "" << chinese;
    QTest::newRow("Chinese") << 1 << QStringLiteral("龘") << none;
    QTest::newRow("Latin beside Chinese") << 1 << QStringLiteral("USB线") << none;
    QTest::newRow("another language") << 101 << "xyzzy" << none;
}

void TestDictScanEditTrans::chineseTextIsAskedFor()
{
    QFETCH(int, language);
    QFETCH(QString, text);
    QFETCH(QString, message);
    open(language, 101, {{"a", "b"}});
    m_edit->setScanText(text, true);
    QCOMPARE(shown(), message);
}

void TestDictScanEditTrans::chineseLooksTheLongestWordUp()
{
    open(1, 101, {{QStringLiteral("人民"), "the people"}, {QStringLiteral("中"), "middle"}});
    m_edit->setScanText(QStringLiteral("中一二三四五六七八，人民"), true);
    const auto asked = [] {
        QStringList words;
        for (const std::string& call : CallLog::texts("ZEMBRA_DIC_SearchWord"))
            words.append(QString::fromStdString(call).section(u'"', 1, 1));
        return words;
    };
    // First as much as a word can have, then the character alone.
    QCOMPARE(asked(), QStringList({QStringLiteral("中一二三四五六七"), QStringLiteral("中")}));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("中"));
    QCOMPARE(shown(), QStringLiteral("middle"));
    while (m_edit->selectedWord() != QStringLiteral("人"))
        QCOMPARE(m_edit->MoveNext(), 1);
    QCOMPARE(m_edit->changeTras(), 1);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("人"));
    QCOMPARE(shown(), QStringLiteral("人民: the people"));
}

void TestDictScanEditTrans::chineseEntriesTellTheirWords()
{
    open(1, 101,
         {{QStringLiteral("中国人"), "person", QStringLiteral("中国人")},
          {QStringLiteral("中国人"), "country", QStringLiteral("中国")},
          {QStringLiteral("中国人"), "middle", QStringLiteral("中")}});
    m_edit->setScanText(QStringLiteral("中国人"), true);
    QCOMPARE(shown(), QStringLiteral("中国人: person\n中国: country\nmiddle"));
}

void TestDictScanEditTrans::movingBetweenEntriesStaysWithinThem()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("run"), true);
    QCOMPARE(m_edit->movePrevResult(), 0);
    QCOMPARE(m_edit->moveNextResult(), 1);
    QCOMPARE(m_edit->moveNextResult(), 2);
    QCOMPARE(m_edit->moveNextResult(), 2);
    QCOMPARE(m_edit->movePrevResult(), 1);
    m_edit->setCurIndex(-7);
    QCOMPARE(m_edit->getCurIndex(), 0);
    m_edit->setCurIndex(99);
    QCOMPARE(m_edit->getCurIndex(), 2);
    // The next look-up begins with its first one.
    m_edit->changeTras();
    QCOMPARE(m_edit->getCurIndex(), 0);
    m_edit->setScanText(QStringLiteral("xyzzy"), true);
    QCOMPARE(m_edit->moveNextResult(), 0);
}

void TestDictScanEditTrans::theMarkStandsAtTheCurrentEntry()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("run"), true);
    QCOMPARE(marks(), QList<int>({0}));
    QCOMPARE(pane()->verticalScrollBar()->value(), 0);
    m_edit->moveNextResult();
    QCOMPARE(marks(), QList<int>({2}));
    QTextCursor mark(pane()->document()->findBlockByNumber(2));
    QCOMPARE(pane()->cursorRect(mark).top(), 0);
    m_edit->moveNextResult();
    QCOMPARE(marks(), QList<int>({3}));
    m_edit->setcurRowonly(1);
    QCOMPARE(marks(), QList<int>({0}));
    m_edit->setcurRowonly(0);
    QCOMPARE(marks(), QList<int>({3}));
    m_edit->setScanText(QStringLiteral("xyzzy"), true);
    QCOMPARE(marks(), QList<int>());
}

void TestDictScanEditTrans::withoutItsPictureThereIsNoMark()
{
    QVERIFY(QFile::remove(m_state->root.path(QStringLiteral("/apps/res/laba.bmp"))));
    openEnglish();
    m_edit->setScanText(QStringLiteral("run"), true);
    m_edit->moveNextResult();
    QCOMPARE(marks(), QList<int>());
    QCOMPARE(pane()->toPlainText(), shown());
}

void TestDictScanEditTrans::dictionaryTextIsPlain()
{
    open(101, 104, {{"a", "<b>x</b> &lt; <img src=\"/etc/passwd\">\ufffc"}});
    m_edit->setScanText(QStringLiteral("a"), true);
    QCOMPARE(shown(), QStringLiteral("<b>x</b> &lt; <img src=\"/etc/passwd\">"));
    QCOMPARE(marks(), QList<int>({0}));
}

void TestDictScanEditTrans::theDictionaryIsOpenedOnce()
{
    openEnglish();
    CallLog::clear();
    m_edit->setTransLan(0, 0);
    m_edit->setTransLan(0, 0);
    QVERIFY(CallLog::texts("ZEMBRA_DIC_Initialize").empty());
    m_edit->setTransLan(0, 5);
    QCOMPARE(FakeDic::openDictionaries(), 0);
    m_edit->setScanText(QStringLiteral("house"), true);
    QCOMPARE(shown(), QStringLiteral("No translation result."));
    m_edit->setTransLan(0, 0);
    QCOMPARE(m_edit->researchWords(), 1);
}

void TestDictScanEditTrans::unknownPairHasNoLanguage()
{
    open(1, 101, {{"a", "b"}});
    m_edit->setTransLan(9, 0);
    m_edit->setScanText(QStringLiteral("house"), true);
    QCOMPARE(shown(), QStringLiteral("No translation result."));
    waitUntilSilent();
    QCOMPARE(spoken(), QStringList());
}

void TestDictScanEditTrans::whatIsWorthRemembering()
{
    openEnglish();
    QSignalSpy found(m_edit.get(), &DictScanEdit::lookedUp);
    m_edit->setScanText(QStringLiteral("ran"), true);
    QCOMPARE(found.count(), 0);
    m_edit->transWordForEdit(QStringLiteral("ran"));
    QCOMPARE(found.count(), 1);
    QCOMPARE(found.at(0).at(0).toString(), QStringLiteral("run"));
    QCOMPARE(found.at(0).at(1).toString(), QStringLiteral("laufen"));
    waitUntilSilent();
    press(Qt::Key_Return);
    waitUntilSilent();
    QCOMPARE(found.count(), 1);
    m_edit->takeScan(QStringLiteral("house"));
    QCOMPARE(found.count(), 2);
    QCOMPARE(found.at(1).at(1).toString(), QStringLiteral("Haus [n], Heim [n]\n[haus]"));
    m_edit->takeScan(QStringLiteral("xyzzy"));
    QCOMPARE(found.count(), 2);
    waitUntilSilent();
}

void TestDictScanEditTrans::stepsAreRememberedWhenTheyAreRead()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral("house green run"));
    waitUntilSilent();
    QSignalSpy found(m_edit.get(), &DictScanEdit::lookedUp);
    press(Qt::Key_Right);
    waitUntilSilent();
    press(Qt::Key_Right);
    waitUntilSilent();
    QCOMPARE(found.count(), 0);
    press(Qt::Key_F8);
    waitUntilSilent();
    press(Qt::Key_Return);
    waitUntilSilent();
    press(Qt::Key_Return);
    waitUntilSilent();
    QCOMPARE(found.count(), 1);
    QCOMPARE(found.at(0).at(0).toString(), QStringLiteral("run"));
    QCOMPARE(found.at(0).at(1).toString(), QStringLiteral("Lauf [m]"));
}

void TestDictScanEditTrans::placeIsTold()
{
    openEnglish();
    QCOMPARE(m_edit->placeText(), QString());
    m_edit->setScanText(QStringLiteral("run green xyzzy"), true);
    m_edit->moveNextResult();
    QCOMPARE(m_edit->placeText(), QStringLiteral("run. Entry 2 of 3"));
    m_edit->MoveNext();
    m_edit->changeTras();
    QCOMPARE(m_edit->placeText(), QStringLiteral("green"));
    m_edit->MoveNext();
    m_edit->changeTras();
    QCOMPARE(m_edit->placeText(), QStringLiteral("xyzzy. No translation result."));
}

// As many and as long as the engine gives.
void TestDictScanEditTrans::manyLongEntriesAreShownAtOnce()
{
    QList<Entry> entries;
    for (int i = 0; i < 20; ++i)
        entries.append({"a", QStringLiteral("word and word, ").repeated(540)});
    open(101, 104, entries);
    QElapsedTimer timer;
    timer.start();
    m_edit->setScanText(QStringLiteral("a"), true);
    m_edit->grab();
    const qint64 shownAfter = timer.elapsed();
    qInfo("shown after %lld ms", shownAfter);
    QVERIFY2(shownAfter < 1000, qPrintable(QString::number(shownAfter)));
    m_edit->setCurIndex(19);
    QVERIFY(pane()->verticalScrollBar()->value() > 0);
    m_edit->stopReading();
}

TEST_OBJECT(TestDictScanEditTrans)
#include "tst_dictscanedit_trans.moc"
