#include "tests/shared/testobjects.h"
#include "tests/unit/dict/dictfixture.h"

#include <QFrame>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>

/* The translate screen: panes, texts that come in, and the way over their words. */
class TestDictScanEditText : public DictFixture
{
    Q_OBJECT

private slots:
    void panesStandInTheirPlaces();
    void aPointerDoesNothing();
    void newScreenIsEmpty();
    void firstWordOfATextIsSelectedAndLookedUp();
    void furtherTextBecomesALine();
    void appendedTextIsNotLookedUp();
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
    void chineseCharacterByCharacter();
    void storedWordIsShownWithoutALookUp();
    void storedNothingIsRefused();
    void flagsKeepTheirValues();
};

void TestDictScanEditText::panesStandInTheirPlaces()
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

void TestDictScanEditText::aPointerDoesNothing()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("green house"), true);
    auto* scan = m_edit->findChild<QTextEdit*>(QStringLiteral("editScan"));
    QTest::mouseDClick(scan->viewport(), Qt::LeftButton, {}, {100, 8});
    QTest::mouseClick(m_edit->findChild<QTextEdit*>(QStringLiteral("editTrans"))->viewport(),
                      Qt::LeftButton, {}, {10, 8});
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("green"));
}

void TestDictScanEditText::newScreenIsEmpty()
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

void TestDictScanEditText::firstWordOfATextIsSelectedAndLookedUp()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("  , green house"), true);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("green"));
    QCOMPARE(shown(), QStringLiteral("grün"));
}

void TestDictScanEditText::furtherTextBecomesALine()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("green"), true);
    m_edit->setScanText(QStringLiteral("house"), false);
    QCOMPARE(scanText(), QStringLiteral("green\nhouse"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("green"));
    m_edit->setScanText(QStringLiteral("house"), true);
    QCOMPARE(scanText(), QStringLiteral("house"));
}

void TestDictScanEditText::appendedTextIsNotLookedUp()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("green"), true);
    m_edit->appendText(QStringLiteral("house"));
    QCOMPARE(scanText(), QStringLiteral("green\nhouse"));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("green"));
    QCOMPARE(shown(), QStringLiteral("grün"));
}

// Whatever the print looks like to the recognition.
void TestDictScanEditText::strangeTextsArePlain()
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

void TestDictScanEditText::lettersAsWindowsCodesThemArePartsOfWords()
{
    const QString word = QStringLiteral("c\u009cur");
    open(103, 101, {{word, "heart"}});
    m_edit->setScanText(word + QStringLiteral(" vert"), true);
    QCOMPARE(m_edit->selectedWord(), word);
    QCOMPARE(m_edit->resultCount(), 1);
}

void TestDictScanEditText::walkGoesOverTheWordsAndStopsAtTheEnds()
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

void TestDictScanEditText::walkOverAnEmptyText()
{
    openEnglish();
    m_edit->setScanText(QString(), true);
    QCOMPARE(m_edit->MoveNext(), 0);
    QCOMPARE(m_edit->MovePrev(), 0);
    QCOMPARE(m_edit->selectedWord(), QString());
}

void TestDictScanEditText::walkByLines()
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

void TestDictScanEditText::boundsOfNeighboursAreTold()
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

void TestDictScanEditText::singleCharacterMode()
{
    openEnglish();
    m_edit->setInputMode(true);
    m_edit->setScanText(QStringLiteral("ab"), true);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("a"));
    m_edit->MoveNext();
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("b"));
}

void TestDictScanEditText::longWordsShowTheirStart()
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

void TestDictScanEditText::theSelectionComesIntoView()
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

void TestDictScanEditText::savedContentIsTheText()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("green house"), true);
    m_edit->saveContent();
    m_edit->setScanText(QStringLiteral("run"), true);
    QCOMPARE(m_edit->savedContent(), QStringLiteral("green house"));
}

void TestDictScanEditText::textOfOneWord()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("house"), true);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("house"));
    QCOMPARE(m_edit->MoveNext(), 0);
    QCOMPARE(m_edit->researchWords(), 1);
}

void TestDictScanEditText::mandatedNothing()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("green house"), true);
    m_edit->setScanTextFirst(QStringLiteral("x"), true, true);
    m_edit->savetoFile();
    m_edit->readFormFile();
    QCOMPARE(scanText(), QStringLiteral("green house"));
    QCOMPARE(shown(), QStringLiteral("grün"));
}

void TestDictScanEditText::editorsWordIsLookedUpAsAWhole()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("well-known"), true);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("well"));
    QCOMPARE(m_edit->transWordForEdit(QStringLiteral("well-known")), 1);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("well-known"));
    QCOMPARE(shown(), QStringLiteral("bekannt"));
    QCOMPARE(m_edit->MoveNext(), 0);
}

void TestDictScanEditText::editorsWordWithoutItsBrackets()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("(house)"), true);
    QCOMPARE(m_edit->transWordForEdit(QStringLiteral("(house)")), 1);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("house"));
    QCOMPARE(m_edit->MovePrev(), 1);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("("));
}

void TestDictScanEditText::editorsWordThatIsNotThere()
{
    openEnglish();
    QSignalSpy found(m_edit.get(), &DictScanEdit::lookedUp);
    m_edit->setScanText(QStringLiteral("xyzzy"), true);
    QVERIFY(m_edit->transWordForEdit(QStringLiteral("xyzzy")) < 0);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("xyzzy"));
    QCOMPARE(shown(), QStringLiteral("No translation result."));
    QCOMPARE(found.count(), 0);
}

void TestDictScanEditText::chineseCharacterByCharacter()
{
    open(1, 101, {{QStringLiteral("中国人"), "Chinese person"}});
    m_edit->setScanText(QStringLiteral("中国人"), true);
    QStringList words = {m_edit->selectedWord()};
    while (m_edit->MoveNext())
        words.append(m_edit->selectedWord());
    QCOMPARE(words,
             QStringList({QStringLiteral("中"), QStringLiteral("国"), QStringLiteral("人")}));
}

void TestDictScanEditText::storedWordIsShownWithoutALookUp()
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

void TestDictScanEditText::storedNothingIsRefused()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("green"), true);
    QVERIFY(!m_edit->showStored(QString(), QStringLiteral("vor")));
    QVERIFY(!m_edit->showStored(QStringLiteral("before"), QStringLiteral("\n")));
    QCOMPARE(scanText(), QStringLiteral("green"));
}

void TestDictScanEditText::flagsKeepTheirValues()
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

TEST_OBJECT(TestDictScanEditText)
#include "tst_dictscanedit_text.moc"
