#include "tests/unit/dict/dictfixture.h"

#include <QFrame>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>

/* The translate screen: panes, texts that come in, and the way over their words. */
class TestDictScanEdit : public DictFixture
{
    Q_OBJECT

private slots:
    void panesStandInTheirPlaces();
    void aPointerDoesNothing();
    void newScreenIsEmpty();
    void firstWordOfATextIsSelectedAndLookedUp();
    void furtherTextBecomesALine();
    void appendedTextIsNotLookedUp();
    void furtherTextLeavesAJoinedWordJoined();
    void strangeTextsArePlain();
    void lettersAsWindowsCodesThemArePartsOfWords();
    void walkGoesOverTheWordsAndStopsAtTheEnds();
    void walkOverAnEmptyText();
    void walkByLines();
    void boundsOfNeighboursAreTold();
    void singleCharacterMode();
    void longWordsShowTheirStart();
    void theSelectionComesIntoView();
    void savedContentIsTheText();
    void textOfOneWord();
    void mandatedNothing();

    void editorsWordIsLookedUpAsAWhole();
    void editorsWordWithoutItsBrackets();
    void editorsWordThatIsNotThere();

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
    void chineseCharacterByCharacter();
    void chineseScanStartsWhereTheEngineSays();
    void enginesWordInAChineseScanIsSelectedWhole_data();
    void enginesWordInAChineseScanIsSelectedWhole();
    void storedWordIsShownWithoutALookUp();
    void storedNothingIsRefused();
    void clearingTellsTheLauncher();
    void scanFlagTellsWhereItCameFrom();
    void flagsKeepTheirValues();
};

void TestDictScanEdit::panesStandInTheirPlaces()
{
    openEnglish();
    const auto* scan = m_edit->findChild<QTextEdit*>(QStringLiteral("editScan"));
    const auto* trans = m_edit->findChild<QTextEdit*>(QStringLiteral("editTrans"));
    const auto* line = m_edit->findChild<QFrame*>(QStringLiteral("line"));
    QVERIFY(scan && trans && line);
    QCOMPARE(m_edit->windowTitle(), QStringLiteral("Form"));
    QCOMPARE(scan->geometry(), QRect(0, 0, 250, 21));
    QCOMPARE(trans->geometry(), QRect(0, 25, 250, 38));
    QCOMPARE(line->geometry(), QRect(3, 22, 250, 1));
    QCOMPARE(line->frameShape(), QFrame::HLine);
    for (const QTextEdit* pane : {scan, trans}) {
        QVERIFY(pane->isReadOnly());
        QCOMPARE(pane->textInteractionFlags(), Qt::TextInteractionFlags(Qt::NoTextInteraction));
        QCOMPARE(pane->font().family(), QStringLiteral("nits"));
    }
    QCOMPARE(scan->focusPolicy(), Qt::ClickFocus);
    QCOMPARE(scan->lineWrapMode(), QTextEdit::NoWrap);
    QCOMPARE(scan->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(scan->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(scan->frameStyle(), int(QFrame::NoFrame));
    // In the order in which they are made.
    const QList<QFrame*> frames = m_edit->findChildren<QFrame*>(Qt::FindDirectChildrenOnly);
    QCOMPARE(frames.size(), 3);
    QVERIFY(frames.at(0) == trans && frames.at(1) == scan && frames.at(2) == line);
}

void TestDictScanEdit::aPointerDoesNothing()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("green house"), true);
    auto* scan = m_edit->findChild<QTextEdit*>(QStringLiteral("editScan"));
    QTest::mouseDClick(scan->viewport(), Qt::LeftButton, {}, {100, 8});
    QTest::mouseClick(m_edit->findChild<QTextEdit*>(QStringLiteral("editTrans"))->viewport(),
                      Qt::LeftButton, {}, {10, 8});
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("green"));
}

void TestDictScanEdit::newScreenIsEmpty()
{
    openEnglish();
    QCOMPARE(scanText(), QString());
    QCOMPARE(shown(), QString());
    QCOMPARE(m_edit->resultCount(), 0);
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_F7,
                              Qt::Key_F8, Qt::Key_Return})
        press(key);
    QCOMPARE(m_edit->getcurRowonly(), 0);
    QVERIFY(!m_edit->isReading());
}

void TestDictScanEdit::firstWordOfATextIsSelectedAndLookedUp()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("  , green house"), true);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("green"));
    QCOMPARE(shown(), QStringLiteral("grün"));
}

void TestDictScanEdit::furtherTextBecomesALine()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("green"), true);
    m_edit->setScanText(QStringLiteral("house"), false);
    QCOMPARE(scanText(), QStringLiteral("green\nhouse"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("green"));
    m_edit->setScanText(QStringLiteral("house"), true);
    QCOMPARE(scanText(), QStringLiteral("house"));
}

// Whatever the print looks like to the recognition.
void TestDictScanEdit::strangeTextsArePlain()
{
    openEnglish();
    const QString text = QStringLiteral("\ufffc<b>\u2028green\t\ufdd0house\r");
    const QString plain = QStringLiteral(" <b> green  house ");
    m_edit->setScanText(text, true);
    QCOMPARE(scanText(), plain);
    m_edit->appendText(text);
    QCOMPARE(scanText(), plain + u'\n' + plain);
    m_edit->takeScan(text);
    QCOMPARE(scanText(), plain.chopped(1));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("green"));
    m_edit->grab();
}

void TestDictScanEdit::furtherTextLeavesAJoinedWordJoined()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral("inter-"));
    m_edit->takeScan(QStringLiteral("national"));
    m_edit->setScanText(QStringLiteral("house"), false);
    QCOMPARE(scanText(), QStringLiteral("inter-national\nhouse"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("inter-national"));
    QCOMPARE(shown(), QStringLiteral("international: international"));
}

void TestDictScanEdit::lettersAsWindowsCodesThemArePartsOfWords()
{
    const QString word = QStringLiteral("c\u009cur");
    open(103, 101, {{word, "heart"}});
    m_edit->setScanText(word + QStringLiteral(" vert"), true);
    QCOMPARE(m_edit->selectedWord(), word);
    QCOMPARE(m_edit->resultCount(), 1);
}

void TestDictScanEdit::appendedTextIsNotLookedUp()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("green"), true);
    m_edit->appendText(QStringLiteral("house"));
    QCOMPARE(scanText(), QStringLiteral("green\nhouse"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("green"));
    QCOMPARE(shown(), QStringLiteral("grün"));
}

void TestDictScanEdit::walkGoesOverTheWordsAndStopsAtTheEnds()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("green, house. "), true);
    QCOMPARE(m_edit->MoveNext(), 1);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("house"));
    QCOMPARE(m_edit->MoveNext(), 0);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("house"));
    QCOMPARE(m_edit->MovePrev(), 1);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("green"));
    QCOMPARE(m_edit->MovePrev(), 0);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("green"));
    QCOMPARE(m_edit->MoveNext(), 1);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("house"));
}

void TestDictScanEdit::walkOverAnEmptyText()
{
    openEnglish();
    m_edit->setScanText(QString(), true);
    QCOMPARE(m_edit->MoveNext(), 0);
    QCOMPARE(m_edit->MovePrev(), 0);
    QCOMPARE(m_edit->selectedWord(), QString());
}

void TestDictScanEdit::walkByLines()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("green house\n...\nrun home"), true);
    press(Qt::Key_Right);
    waitUntilSilent();
    press(Qt::Key_Down);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("run"));
    QCOMPARE(m_edit->resultCount(), 3);
    waitUntilSilent();
    press(Qt::Key_Up);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("green"));
    QCOMPARE(shown(), QStringLiteral("grün"));
}

void TestDictScanEdit::boundsOfNeighboursAreTold()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("green, house"), true);
    int start = -1;
    int end = -1;
    QCOMPARE(m_edit->GetNextWod(start, end), 1);
    QCOMPARE(start, 7);
    QCOMPARE(end, 12);
    QCOMPARE(m_edit->GetPrevWod(start, end), 0);
    m_edit->MoveNext();
    QCOMPARE(m_edit->GetNextWod(start, end), 0);
    QCOMPARE(m_edit->GetPrevWod(start, end), 1);
    QCOMPARE(start, 0);
    QCOMPARE(end, 5);
}

void TestDictScanEdit::singleCharacterMode()
{
    openEnglish();
    m_edit->setInputMode(true);
    m_edit->setScanText(QStringLiteral("ab"), true);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("a"));
    m_edit->MoveNext();
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("b"));
}

void TestDictScanEdit::longWordsShowTheirStart()
{
    openEnglish();
    const QString word = QStringLiteral("abcdefghij").repeated(6);
    m_edit->setScanText(QStringLiteral("green ") + word + QStringLiteral(" run"), true);
    const auto* scan = m_edit->findChild<QTextEdit*>(QStringLiteral("editScan"));
    m_edit->MoveNext();
    QTextCursor start = scan->textCursor();
    start.setPosition(start.selectionStart());
    QCOMPARE(scan->cursorRect(start).left(), 0);
}

void TestDictScanEdit::theSelectionComesIntoView()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("one two three four five six seven eight nine ten"), true);
    const auto* scan = m_edit->findChild<QTextEdit*>(QStringLiteral("editScan"));
    const auto inView = [scan] {
        QTextCursor start = scan->textCursor();
        start.setPosition(start.selectionStart());
        QTextCursor end = scan->textCursor();
        end.setPosition(end.selectionEnd());
        return scan->cursorRect(start).left() >= 0
               && scan->cursorRect(end).left() <= scan->viewport()->width();
    };
    for (int i = 0; i < 9; ++i) {
        QCOMPARE(m_edit->MoveNext(), 1);
        QVERIFY(inView());
    }
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("ten"));
    QVERIFY(scan->horizontalScrollBar()->value() > 0);
    while (m_edit->MovePrev())
        QVERIFY(inView());
    QCOMPARE(scan->horizontalScrollBar()->value(), 0);
}

void TestDictScanEdit::savedContentIsTheText()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("green house"), true);
    m_edit->saveContent();
    m_edit->setScanText(QStringLiteral("run"), true);
    QCOMPARE(m_edit->savedContent(), QStringLiteral("green house"));
}

void TestDictScanEdit::textOfOneWord()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("house"), true);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("house"));
    QCOMPARE(m_edit->MoveNext(), 0);
    QCOMPARE(m_edit->researchWords(), 1);
}

void TestDictScanEdit::mandatedNothing()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("green house"), true);
    m_edit->setScanTextFirst(QStringLiteral("x"), true, true);
    m_edit->savetoFile();
    m_edit->readFormFile();
    QCOMPARE(scanText(), QStringLiteral("green house"));
    QCOMPARE(shown(), QStringLiteral("grün"));
}

void TestDictScanEdit::editorsWordIsLookedUpAsAWhole()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("well-known"), true);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("well"));
    QCOMPARE(m_edit->transWordForEdit(QStringLiteral("well-known")), 1);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("well-known"));
    QCOMPARE(shown(), QStringLiteral("bekannt"));
    QCOMPARE(m_edit->MoveNext(), 0);
}

void TestDictScanEdit::editorsWordWithoutItsBrackets()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("(house)"), true);
    QCOMPARE(m_edit->transWordForEdit(QStringLiteral("(house)")), 1);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("house"));
    QCOMPARE(m_edit->MovePrev(), 1);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("("));
}

void TestDictScanEdit::editorsWordThatIsNotThere()
{
    openEnglish();
    QSignalSpy found(m_edit.get(), &DictScanEdit::lookedUp);
    m_edit->setScanText(QStringLiteral("xyzzy"), true);
    QVERIFY(m_edit->transWordForEdit(QStringLiteral("xyzzy")) < 0);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("xyzzy"));
    QCOMPARE(shown(), QStringLiteral("No translation result."));
    QCOMPARE(found.count(), 0);
}

void TestDictScanEdit::scanReplacesTheText()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("green"), true);
    m_edit->takeScan(QStringLiteral("house run"));
    QCOMPARE(scanText(), QStringLiteral("house run"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("house"));
    QCOMPARE(shown(), QStringLiteral("Haus [n], Heim [n]\n[haus]"));
}

void TestDictScanEdit::blankScansAreIgnored()
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

void TestDictScanEdit::trailingBlanksAreStripped()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral(" house  "));
    QCOMPARE(scanText(), QStringLiteral(" house"));
}

void TestDictScanEdit::theEnginesFirstWordIsSelected()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral("qqq zzz house green"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("house"));
    QCOMPARE(m_edit->resultCount(), 1);
}

void TestDictScanEdit::withoutAFirstWordTheTextsOwnIs()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral(", qqq zzz"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("qqq"));
    QCOMPARE(shown(), QStringLiteral("No translation result."));
}

void TestDictScanEdit::scansAreJoinedAtAHyphen()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral("a green inter- "));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("green"));
    m_edit->takeScan(QStringLiteral("national house"));
    QCOMPARE(scanText(), QStringLiteral("inter-national house"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("inter-national"));
    QCOMPARE(shown(), QStringLiteral("international: international"));
}

void TestDictScanEdit::scansAreJoinedAlsoInTheSingleCharacterMode()
{
    openEnglish();
    m_edit->setInputMode(true);
    m_edit->takeScan(QStringLiteral("inter-"));
    m_edit->takeScan(QStringLiteral("national"));
    QCOMPARE(scanText(), QStringLiteral("inter-national"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("inter-national"));
}

void TestDictScanEdit::joinedWordKeepsItsHyphenWhereTheDictionaryHasIt()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral("well-"));
    m_edit->takeScan(QStringLiteral("known run"));
    QCOMPARE(scanText(), QStringLiteral("well-known run"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("well-known"));
    QCOMPARE(shown(), QStringLiteral("bekannt"));
}

void TestDictScanEdit::restOfAJoinedWordIsAWordItself()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral("xyz-"));
    m_edit->takeScan(QStringLiteral("house"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("xyz-house"));
    QCOMPARE(shown(), QStringLiteral("house: Haus [n], Heim [n]\n[haus]"));
}

void TestDictScanEdit::joinedWordThatIsNotThereGivesWayToTheEnginesWord()
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

void TestDictScanEdit::aPieceThatCannotBeJoinedIsNotSelectedAgain_data()
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

void TestDictScanEdit::aPieceThatCannotBeJoinedIsNotSelectedAgain()
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

void TestDictScanEdit::aJoinedWordIsLookedUpOnce_data()
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

void TestDictScanEdit::aJoinedWordIsLookedUpOnce()
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

void TestDictScanEdit::joinedWordIsOneStepOfTheWalk()
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

void TestDictScanEdit::aPieceIsJoinedOnce()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral("inter-"));
    m_edit->takeScan(QStringLiteral("national"));
    m_edit->takeScan(QStringLiteral("house"));
    QCOMPARE(scanText(), QStringLiteral("house"));
}

void TestDictScanEdit::aHyphenAloneIsNoPiece()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral("green -"));
    m_edit->takeScan(QStringLiteral("house"));
    QCOMPARE(scanText(), QStringLiteral("house"));
    m_edit->takeScan(QStringLiteral("-"));
    m_edit->takeScan(QStringLiteral("house"));
    QCOMPARE(scanText(), QStringLiteral("house"));
}

void TestDictScanEdit::aTextFromTheEditorEndsAPiece()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral("inter-"));
    m_edit->setScanText(QStringLiteral("green"), true);
    m_edit->takeScan(QStringLiteral("house"));
    QCOMPARE(scanText(), QStringLiteral("house"));
}

void TestDictScanEdit::chineseIsNeverJoined()
{
    open(1, 101, {{QStringLiteral("中"), "middle"}, {"ab", "x"}});
    m_edit->takeScan(QStringLiteral("中ab-"));
    m_edit->takeScan(QStringLiteral("中国"));
    QCOMPARE(scanText(), QStringLiteral("中国"));
}

void TestDictScanEdit::chineseCharacterByCharacter()
{
    open(1, 101, {{QStringLiteral("中国人"), "Chinese person"}});
    m_edit->setScanText(QStringLiteral("中国人"), true);
    QStringList words = {m_edit->selectedWord()};
    while (m_edit->MoveNext())
        words.append(m_edit->selectedWord());
    QCOMPARE(words,
             QStringList({QStringLiteral("中"), QStringLiteral("国"), QStringLiteral("人")}));
}

// The scripted engine cuts at blanks: its word is the second of the line.
void TestDictScanEdit::chineseScanStartsWhereTheEngineSays()
{
    open(1, 101, {{QStringLiteral("国"), "country"}});
    m_edit->takeScan(QStringLiteral("中 国 人"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("国"));
    QCOMPARE(shown(), QStringLiteral("country"));
    m_edit->takeScan(QStringLiteral("中人"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("中"));
}

void TestDictScanEdit::enginesWordInAChineseScanIsSelectedWhole_data()
{
    QTest::addColumn<QString>("word");
    QTest::newRow("beyond the basic plane") << QString::fromUcs4(U"\U00020000");
    QTest::newRow("Western letters") << QStringLiteral("USB");
}

void TestDictScanEdit::enginesWordInAChineseScanIsSelectedWhole()
{
    QFETCH(QString, word);
    open(1, 101, {{word, "found"}});
    m_edit->takeScan(QStringLiteral("中 ") + word + QStringLiteral(" 人"));
    QCOMPARE(m_edit->selectedWord(), word);
    QCOMPARE(shown(), QStringLiteral("found"));
}

void TestDictScanEdit::storedWordIsShownWithoutALookUp()
{
    openEnglish();
    CallLog::clear();
    QSignalSpy found(m_edit.get(), &DictScanEdit::lookedUp);
    QVERIFY(m_edit->showStored(QStringLiteral("in front of"), QStringLiteral("vor\nnote\n")));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("in front of"));
    QCOMPARE(shown(), QStringLiteral("vor\nnote"));
    waitUntilSilent();
    QCOMPARE(spoken(), QStringList({"in front of", "vor"}));
    press(Qt::Key_Return);
    waitUntilSilent();
    QCOMPARE(spoken().size(), 4);
    QVERIFY(CallLog::texts("ZEMBRA_DIC_SearchWord").empty());
    QCOMPARE(found.count(), 0);
}

void TestDictScanEdit::storedNothingIsRefused()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("green"), true);
    QVERIFY(!m_edit->showStored(QString(), QStringLiteral("vor")));
    QVERIFY(!m_edit->showStored(QStringLiteral("before"), QStringLiteral("\n")));
    QCOMPARE(scanText(), QStringLiteral("green"));
}

void TestDictScanEdit::clearingTellsTheLauncher()
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

void TestDictScanEdit::scanFlagTellsWhereItCameFrom()
{
    openEnglish();
    QVERIFY(m_edit->getmbScan());
    m_edit->setScan(false);
    QVERIFY(!m_edit->getmbScan());
    m_edit->takeScan(QStringLiteral("green"));
    QVERIFY(m_edit->getmbScan());
    QVERIFY(!DictScanEdit().getmbScan());
}

void TestDictScanEdit::flagsKeepTheirValues()
{
    openEnglish();
    QVERIFY(!m_edit->getMSoundTrans() && !m_edit->getOkSoundFlagForTalk()
            && !m_edit->getChangeTransFlag() && m_edit->getSelectFlag() == 0);
    m_edit->setMSoundTrans(true);
    m_edit->setOKSoundFlagForTalk(true);
    m_edit->setChangeTransFlag(true);
    m_edit->setSelectFlag(true);
    QVERIFY(m_edit->getMSoundTrans() && m_edit->getOkSoundFlagForTalk()
            && m_edit->getChangeTransFlag() && m_edit->getSelectFlag() == 1);
    QCOMPARE(m_edit->getPrevWidget(), m_previous.get());
}

QTEST_MAIN(TestDictScanEdit)
#include "tst_dictscanedit.moc"
