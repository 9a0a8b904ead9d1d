#include "tests/shared/testobjects.h"
#include "tests/unit/dict/dictfixture.h"

#include <QTest>

/* The translate screen: lines that are scanned, and words that a hyphen divides. */
class TestDictScanEditScans : public DictFixture
{
    Q_OBJECT

private slots:
    void furtherTextLeavesAJoinedWordJoined();
    void scanReplacesTheText();
    void blankScansAreIgnored();
    void trailingBlanksAreStripped();
    void theEnginesFirstWordIsSelected();
    void withoutAFirstWordTheTextsOwnIs();
    void scansAreJoinedAtAHyphen();
    void scansAreJoinedAlsoInTheSingleCharacterMode();
    void joinedWordKeepsItsHyphenWhereTheDictionaryHasIt();
    void restOfAJoinedWordIsAWordItself();
    void joinedWordThatIsNotThereGivesWayToTheEnginesWord();
    void aPieceThatCannotBeJoinedIsNotSelectedAgain_data();
    void aPieceThatCannotBeJoinedIsNotSelectedAgain();
    void aJoinedWordIsLookedUpOnce_data();
    void aJoinedWordIsLookedUpOnce();
    void joinedWordIsOneStepOfTheWalk();
    void aPieceIsJoinedOnce();
    void aHyphenAloneIsNoPiece();
    void aTextFromTheEditorEndsAPiece();
    void chineseIsNeverJoined();
    void chineseScanStartsWhereTheEngineSays();
    void enginesWordInAChineseScanIsSelectedWhole_data();
    void enginesWordInAChineseScanIsSelectedWhole();
    void clearingTellsTheLauncher();
    void scanFlagTellsWhereItCameFrom();
};

void TestDictScanEditScans::furtherTextLeavesAJoinedWordJoined()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral("inter-"));
    m_edit->takeScan(QStringLiteral("national"));
    m_edit->setScanText(QStringLiteral("house"), false);
    QCOMPARE(scanText(), QStringLiteral("inter-national\nhouse"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("inter-national"));
    QCOMPARE(shown(), QStringLiteral("international: international"));
}

void TestDictScanEditScans::scanReplacesTheText()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("green"), true);
    m_edit->takeScan(QStringLiteral("house run"));
    QCOMPARE(scanText(), QStringLiteral("house run"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("house"));
    QCOMPARE(shown(), QStringLiteral("Haus [n], Heim [n]\n[haus]"));
}

void TestDictScanEditScans::blankScansAreIgnored()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("green house"), true);
    m_edit->MoveNext();
    m_edit->takeScan(QStringLiteral("   "));
    m_edit->takeScan(QString());
    QCOMPARE(scanText(), QStringLiteral("green house"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("house"));
    // Also when the pane holds nothing but blanks.
    m_edit->setScanText(QStringLiteral("    "), true);
    m_edit->researchScanText();
    QCOMPARE(scanText(), QStringLiteral("    "));
}

void TestDictScanEditScans::trailingBlanksAreStripped()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral(" house  "));
    QCOMPARE(scanText(), QStringLiteral(" house"));
}

void TestDictScanEditScans::theEnginesFirstWordIsSelected()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral("qqq zzz house green"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("house"));
    QCOMPARE(m_edit->resultCount(), 1);
}

void TestDictScanEditScans::withoutAFirstWordTheTextsOwnIs()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral(", qqq zzz"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("qqq"));
    QCOMPARE(shown(), QStringLiteral("No translation result."));
}

void TestDictScanEditScans::scansAreJoinedAtAHyphen()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral("a green inter- "));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("green"));
    m_edit->takeScan(QStringLiteral("national house"));
    QCOMPARE(scanText(), QStringLiteral("inter-national house"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("inter-national"));
    QCOMPARE(shown(), QStringLiteral("international: international"));
}

void TestDictScanEditScans::scansAreJoinedAlsoInTheSingleCharacterMode()
{
    openEnglish();
    m_edit->setInputMode(true);
    m_edit->takeScan(QStringLiteral("inter-"));
    m_edit->takeScan(QStringLiteral("national"));
    QCOMPARE(scanText(), QStringLiteral("inter-national"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("inter-national"));
}

void TestDictScanEditScans::joinedWordKeepsItsHyphenWhereTheDictionaryHasIt()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral("well-"));
    m_edit->takeScan(QStringLiteral("known run"));
    QCOMPARE(scanText(), QStringLiteral("well-known run"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("well-known"));
    QCOMPARE(shown(), QStringLiteral("bekannt"));
}

void TestDictScanEditScans::restOfAJoinedWordIsAWordItself()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral("xyz-"));
    m_edit->takeScan(QStringLiteral("house"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("xyz-house"));
    QCOMPARE(shown(), QStringLiteral("house: Haus [n], Heim [n]\n[haus]"));
}

void TestDictScanEditScans::joinedWordThatIsNotThereGivesWayToTheEnginesWord()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral("xyz-"));
    m_edit->takeScan(QStringLiteral("zyx qq house"));
    QCOMPARE(scanText(), QStringLiteral("xyz-zyx qq house"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("house"));
    m_edit->takeScan(QStringLiteral("xyz-"));
    m_edit->takeScan(QStringLiteral("zyx qq"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("xyz-zyx"));
}

void TestDictScanEditScans::aPieceThatCannotBeJoinedIsNotSelectedAgain_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("selected");
    QTest::newRow("blank, nothing found") << " zyx qq"
                                          << "zyx";
    QTest::newRow("separator, nothing found") << ", zyx"
                                              << "zyx";
    QTest::newRow("bracket, nothing found") << "(zyx)"
                                            << "(";
    QTest::newRow("blank, a word found") << " zyx house"
                                         << "house";
}

void TestDictScanEditScans::aPieceThatCannotBeJoinedIsNotSelectedAgain()
{
    QFETCH(QString, text);
    QFETCH(QString, selected);
    openEnglish();
    m_edit->takeScan(QStringLiteral("xyz-"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("xyz"));
    m_edit->takeScan(text);
    QCOMPARE(scanText(), QStringLiteral("xyz-") + text);
    QCOMPARE(m_edit->selectedWord(), selected);
}

void TestDictScanEditScans::aJoinedWordIsLookedUpOnce_data()
{
    QTest::addColumn<QString>("piece");
    QTest::addColumn<QString>("rest");
    QTest::addColumn<int>("lookUps");
    QTest::newRow("found") << "inter-"
                           << "national" << 1;
    // Without its hyphen, with it, and the rest alone.
    QTest::newRow("nothing found") << "xyz-"
                                   << "zyx" << 3;
}

void TestDictScanEditScans::aJoinedWordIsLookedUpOnce()
{
    QFETCH(QString, piece);
    QFETCH(QString, rest);
    QFETCH(int, lookUps);
    openEnglish();
    m_edit->takeScan(piece);
    CallLog::clear();
    m_edit->takeScan(rest);
    QCOMPARE(m_edit->selectedWord(), piece + rest);
    QCOMPARE(int(CallLog::texts("ZEMBRA_DIC_SearchWord").size()), lookUps);
}

void TestDictScanEditScans::joinedWordIsOneStepOfTheWalk()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral("inter-"));
    m_edit->takeScan(QStringLiteral("national house"));
    QCOMPARE(m_edit->MoveNext(), 1);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("house"));
    QCOMPARE(m_edit->MovePrev(), 1);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("inter-national"));
    QCOMPARE(m_edit->changeTras(), 1);
}

void TestDictScanEditScans::aPieceIsJoinedOnce()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral("inter-"));
    m_edit->takeScan(QStringLiteral("national"));
    m_edit->takeScan(QStringLiteral("house"));
    QCOMPARE(scanText(), QStringLiteral("house"));
}

void TestDictScanEditScans::aHyphenAloneIsNoPiece()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral("green -"));
    m_edit->takeScan(QStringLiteral("house"));
    QCOMPARE(scanText(), QStringLiteral("house"));
    m_edit->takeScan(QStringLiteral("-"));
    m_edit->takeScan(QStringLiteral("house"));
    QCOMPARE(scanText(), QStringLiteral("house"));
}

void TestDictScanEditScans::aTextFromTheEditorEndsAPiece()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral("inter-"));
    m_edit->setScanText(QStringLiteral("green"), true);
    m_edit->takeScan(QStringLiteral("house"));
    QCOMPARE(scanText(), QStringLiteral("house"));
}

void TestDictScanEditScans::chineseIsNeverJoined()
{
    open(1, 101, {{QStringLiteral("中"), "middle"}, {"ab", "x"}});
    m_edit->takeScan(QStringLiteral("中ab-"));
    m_edit->takeScan(QStringLiteral("中国"));
    QCOMPARE(scanText(), QStringLiteral("中国"));
}

// The scripted engine cuts at blanks: its word is the second of the line.
void TestDictScanEditScans::chineseScanStartsWhereTheEngineSays()
{
    open(1, 101, {{QStringLiteral("国"), "country"}});
    m_edit->takeScan(QStringLiteral("中 国 人"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("国"));
    QCOMPARE(shown(), QStringLiteral("country"));
    m_edit->takeScan(QStringLiteral("中人"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("中"));
}

void TestDictScanEditScans::enginesWordInAChineseScanIsSelectedWhole_data()
{
    QTest::addColumn<QString>("word");
    QTest::newRow("beyond the basic plane") << QString::fromUcs4(U"\U00020000");
    QTest::newRow("Western letters") << QStringLiteral("USB");
}

void TestDictScanEditScans::enginesWordInAChineseScanIsSelectedWhole()
{
    QFETCH(QString, word);
    open(1, 101, {{word, "found"}});
    m_edit->takeScan(QStringLiteral("中 ") + word + QStringLiteral(" 人"));
    QCOMPARE(m_edit->selectedWord(), word);
    QCOMPARE(shown(), QStringLiteral("found"));
}

void TestDictScanEditScans::clearingTellsTheLauncher()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("green"), true);
    waitUntilSilent();
    QVERIFY(m_launcher->waitFor(QStringLiteral("execute(QString) soundno")));
    m_launcher->clear();
    m_edit->beginScan();
    QVERIFY(m_launcher->waitFor(QStringLiteral("execute(QString) trigger")));
    QCOMPARE(scanText(), QStringLiteral("green"));
    m_launcher->clear();
    m_edit->clearEditText();
    QVERIFY(m_launcher->waitFor(QStringLiteral("execute(QString) trigger")));
    QCOMPARE(scanText(), QString());
    QCOMPARE(shown(), QString());
    QCOMPARE(m_launcher->messages(), QStringList("execute(QString) trigger"));
}

void TestDictScanEditScans::scanFlagTellsWhereItCameFrom()
{
    openEnglish();
    QVERIFY(m_edit->getmbScan());
    m_edit->setScan(false);
    QVERIFY(!m_edit->getmbScan());
    m_edit->takeScan(QStringLiteral("green"));
    QVERIFY(m_edit->getmbScan());
    QVERIFY(!DictScanEdit().getmbScan());
}

TEST_OBJECT(TestDictScanEditScans)
#include "tst_dictscanedit_scans.moc"
