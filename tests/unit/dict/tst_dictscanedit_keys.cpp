#include "platform/zembra_iap.h"
#include "tests/fakes/fakeiap.h"
#include "tests/shared/testobjects.h"
#include "tests/unit/dict/dictfixture.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>

/* The keys of the translate screen when it is silent. */
class TestDictScanEditKeys : public DictFixture
{
    Q_OBJECT

private slots:
    void rightAndLeftStepAndLookUp();
    void endsOfTheTextAreTold();
    void enterTwice_data();
    void enterTwice();
    void keysDoNothingDuringASwipe();
    void enterIsSilentWhileTheFlagIsSet();
    void onlyArrowsRepeat();
    void resultKeys_data();
    void resultKeys();
    void quickMenuKey();
    void otherKeysAreTheParents();
    void keysReachTheScreenFromItsPanes();
    void downGivesTheEntryTheWholeScreen();
    void wholeEntryIsLeftWithUp();
    void wholeEntryOfAScanIsLookedUpAgain();
    void wholeEntryOfAStoredWordIsNot();
    void escapeLeaves();
    void escapeWithoutAPreviousScreen();

private:
    void press(Qt::Key key, qint64 afterMs)
    {
        m_time += afterMs * 1000;
        QTest::keyClick(m_edit.get(), key);
    }
    using DictFixture::press;
};

void TestDictScanEditKeys::rightAndLeftStepAndLookUp()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("house green"), true);
    waitUntilSilent();
    press(Qt::Key_Right);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("green"));
    QCOMPARE(shown(), QStringLiteral("grün"));
    waitUntilSilent();
    press(Qt::Key_Left);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("house"));
    QCOMPARE(shown(), QStringLiteral("Haus [n], Heim [n]\n[haus]"));
    waitUntilSilent();
    QCOMPARE(spoken(),
             QStringList({"house", "Haus , Heim", "green", "grün", "house", "Haus , Heim"}));
}

void TestDictScanEditKeys::endsOfTheTextAreTold()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("green"), true);
    waitUntilSilent();
    QSignalSpy hints(m_edit.get(), &DictScanEdit::signalHint);
    press(Qt::Key_Right);
    press(Qt::Key_Left);
    press(Qt::Key_Up);
    QCOMPARE(hints.count(), 3);
    QCOMPARE(hints.at(0).at(0).toString(), QStringLiteral("End of text."));
    QCOMPARE(hints.at(1).at(0).toString(), QStringLiteral("Start of text."));
    QCOMPARE(hints.at(2).at(0).toString(), QStringLiteral("Start of text."));
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("green"));
    waitUntilSilent();
    QCOMPARE(spoken().size(), 2);
}

void TestDictScanEditKeys::enterTwice_data()
{
    QTest::addColumn<int>("milliseconds");
    QTest::addColumn<int>("readings");
    QTest::newRow("150 ms") << 150 << 1;
    QTest::newRow("299 ms") << 299 << 1;
    QTest::newRow("300 ms") << 300 << 2;
    QTest::newRow("400 ms") << 400 << 2;
    QTest::newRow("at once") << 0 << 2;
}

void TestDictScanEditKeys::enterTwice()
{
    QFETCH(int, milliseconds);
    QFETCH(int, readings);
    m_state->root.setSetting(QStringLiteral("DictTrans/ReadControl"), 1);
    m_state->root.setSetting(QStringLiteral("DictTrans/ReadTrans"), 1);
    openEnglish();
    m_edit->setScanText(QStringLiteral("green"), true);
    press(Qt::Key_Return, 1000);
    waitUntilSilent();
    press(Qt::Key_Return, milliseconds);
    waitUntilSilent();
    QCOMPARE(spoken().size(), readings);
}

void TestDictScanEditKeys::keysDoNothingDuringASwipe()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("house green"), true);
    waitUntilSilent();
    QCOMPARE(ZEMBRA_IAP_Initialize(0, 0, 0, 0), 0);
    QVERIFY(FakeIap::press());
    QSignalSpy left(m_edit.get(), &DictScanEdit::escPressed);
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Return, Qt::Key_Escape})
        press(key);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("house"));
    QCOMPARE(m_edit->getcurRowonly(), 0);
    QCOMPARE(left.count(), 0);
    waitUntilSilent();
    QCOMPARE(spoken().size(), 2);
    FakeIap::liftWithoutLine();
    QVERIFY(FakeIap::waitUntilIdle());
    press(Qt::Key_Right);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("green"));
    ZEMBRA_IAP_Uninitialize();
}

void TestDictScanEditKeys::enterIsSilentWhileTheFlagIsSet()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("green"), true);
    waitUntilSilent();
    m_edit->setMSoundTrans(true);
    press(Qt::Key_Return);
    waitUntilSilent();
    QCOMPARE(spoken().size(), 2);
    m_edit->setMSoundTrans(false);
    press(Qt::Key_Return);
    waitUntilSilent();
    QCOMPARE(spoken().size(), 4);
}

void TestDictScanEditKeys::onlyArrowsRepeat()
{
    m_state->root.setSetting(QStringLiteral("DictTrans/ReadControl"), 1);
    openEnglish();
    m_edit->setScanText(QStringLiteral("one two three four"), true);
    QCoreApplication::processEvents();
    const auto hold = [this](Qt::Key key) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(m_edit.get(), &press);
    };
    hold(Qt::Key_Right);
    hold(Qt::Key_Right);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("three"));
    QSignalSpy left(m_edit.get(), &DictScanEdit::escPressed);
    hold(Qt::Key_Escape);
    m_time += 1'000'000;
    hold(Qt::Key_Return);
    QCOMPARE(left.count(), 0);
    QVERIFY(!m_edit->isReading());
}

void TestDictScanEditKeys::resultKeys_data()
{
    QTest::addColumn<Qt::Key>("next");
    QTest::addColumn<Qt::Key>("previous");
    QTest::newRow("F6 and F5") << Qt::Key_F6 << Qt::Key_F5;
    QTest::newRow("F8 and F7") << Qt::Key_F8 << Qt::Key_F7;
}

void TestDictScanEditKeys::resultKeys()
{
    QFETCH(Qt::Key, next);
    QFETCH(Qt::Key, previous);
    openEnglish();
    m_edit->setScanText(QStringLiteral("run"), true);
    waitUntilSilent();
    QSignalSpy hints(m_edit.get(), &DictScanEdit::signalHint);
    press(next);
    QCOMPARE(m_edit->getCurIndex(), 1);
    waitUntilSilent();
    QCOMPARE(lastSpoken(), QStringLiteral("Lauf"));
    press(next);
    waitUntilSilent();
    QCOMPARE(lastSpoken(), QStringLiteral("Flucht"));
    QCOMPARE(hints.count(), 0);
    press(next);
    QCOMPARE(m_edit->getCurIndex(), 2);
    QCOMPARE(hints.takeFirst().at(0).toString(), QStringLiteral("Last entry."));
    press(previous);
    waitUntilSilent();
    press(previous);
    waitUntilSilent();
    QCOMPARE(m_edit->getCurIndex(), 0);
    press(previous);
    QCOMPARE(hints.takeFirst().at(0).toString(), QStringLiteral("First entry."));
    QCOMPARE(spoken(), QStringList({"run", "laufen", "Lauf", "Flucht", "Lauf", "laufen"}));
}

void TestDictScanEditKeys::quickMenuKey()
{
    openEnglish();
    QSignalSpy quick(m_edit.get(), &DictScanEdit::signalQuickset);
    press(Qt::Key_F12);
    QCOMPARE(quick.count(), 1);
}

void TestDictScanEditKeys::otherKeysAreTheParents()
{
    openEnglish();
    for (const Qt::Key key : {Qt::Key_F9, Qt::Key_F10, Qt::Key_F11, Qt::Key_Space}) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(m_edit.get(), &press);
        QVERIFY(!press.isAccepted());
    }
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QCoreApplication::sendEvent(m_edit.get(), &press);
    QVERIFY(press.isAccepted());
}

// Up gives the scan pane the focus.
void TestDictScanEditKeys::keysReachTheScreenFromItsPanes()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("house green run"), true);
    waitUntilSilent();
    press(Qt::Key_Up);
    QWidget* const focus = QApplication::focusWidget();
    QCOMPARE(focus, m_edit->findChild<QWidget*>(QStringLiteral("editScan")));
    QSignalSpy hints(m_edit.get(), &DictScanEdit::signalHint);
    QTest::keyClick(focus, Qt::Key_Right);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("green"));
    waitUntilSilent();
    QTest::keyClick(focus, Qt::Key_Up);
    QCOMPARE(hints.count(), 1); // once, not by pane and screen
    QTest::keyClick(focus, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), focus);
}

void TestDictScanEditKeys::downGivesTheEntryTheWholeScreen()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("run"), true);
    waitUntilSilent();
    press(Qt::Key_F8);
    waitUntilSilent();
    press(Qt::Key_Down);
    QCOMPARE(m_edit->getcurRowonly(), 1);
    QCOMPARE(shown(), QStringLiteral("run: Lauf [m]"));
    const auto* trans = m_edit->findChild<QTextEdit*>(QStringLiteral("editTrans"));
    QCOMPARE(trans->geometry(), QRect(0, 0, 250, 64));
    press(Qt::Key_F8);
    QCOMPARE(shown(), QStringLiteral("run: Flucht [f]\nNote: rare"));
    waitUntilSilent();
    QCOMPARE(lastSpoken(), QStringLiteral("Flucht"));
    press(Qt::Key_Escape);
    QCOMPARE(m_edit->getcurRowonly(), 0);
    QCOMPARE(trans->geometry(), QRect(0, 25, 250, 38));
    QCOMPARE(shown(), QStringLiteral("laufen\n[ran]\nLauf [m]\nFlucht [f]\nNote: rare"));
    QCOMPARE(m_edit->getCurIndex(), 2);
    QVERIFY(m_edit->isVisible());
    QCOMPARE(QApplication::focusWidget(), m_edit->findChild<QWidget*>(QStringLiteral("editScan")));
}

void TestDictScanEditKeys::wholeEntryIsLeftWithUp()
{
    QString longText = QStringLiteral("first line");
    for (int i = 2; i <= 6; ++i)
        longText += QStringLiteral("\nline %1").arg(i);
    open(101, 104, {{"long", longText}});
    m_edit->setScanText(QStringLiteral("long"), true);
    waitUntilSilent();
    QSignalSpy hints(m_edit.get(), &DictScanEdit::signalHint);
    press(Qt::Key_Down);
    QCOMPARE(m_edit->getcurRowonly(), 1);
    int down = 0;
    while (hints.isEmpty() && down < 9) {
        press(Qt::Key_Down);
        ++down;
    }
    QVERIFY(down > 2);
    QCOMPARE(hints.takeFirst().at(0).toString(), QStringLiteral("End of entry."));
    int up = 0;
    while (m_edit->getcurRowonly() == 1 && up < 9) {
        press(Qt::Key_Up);
        ++up;
    }
    QCOMPARE(up, down);
    QCOMPARE(hints.count(), 0);
}

void TestDictScanEditKeys::wholeEntryOfAScanIsLookedUpAgain()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral("run"));
    waitUntilSilent();
    press(Qt::Key_F8);
    waitUntilSilent();
    press(Qt::Key_Down);
    CallLog::clear();
    const int before = int(spoken().size());
    press(Qt::Key_Escape);
    QCOMPARE(int(CallLog::texts("ZEMBRA_DIC_SearchWord").size()), 1);
    QCOMPARE(m_edit->getCurIndex(), 1);
    waitUntilSilent();
    QCOMPARE(int(spoken().size()), before); // it was read already
}

void TestDictScanEditKeys::wholeEntryOfAStoredWordIsNot()
{
    openEnglish();
    m_edit->showStored(QStringLiteral("run"), QStringLiteral("mine"));
    waitUntilSilent();
    press(Qt::Key_Down);
    press(Qt::Key_Escape);
    QCOMPARE(shown(), QStringLiteral("mine"));
}

void TestDictScanEditKeys::escapeLeaves()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("house green"), true);
    waitUntilSilent();
    m_edit->setOKSoundFlagForTalk(true);
    QSignalSpy left(m_edit.get(), &DictScanEdit::escPressed);
    press(Qt::Key_Escape);
    QCOMPARE(left.count(), 1);
    QCOMPARE(scanText(), QString());
    QCOMPARE(shown(), QString());
    QVERIFY(!m_edit->getOkSoundFlagForTalk());
    QCOMPARE(m_edit->font().family(), QStringLiteral("nits"));
    QVERIFY(!m_edit->isVisible());
    QVERIFY(m_previous->isVisible());
    QCOMPARE(WidgetChange::Instance()->getCurWidget(), m_previous.get());
}

void TestDictScanEditKeys::escapeWithoutAPreviousScreen()
{
    openEnglish();
    m_edit->setPrevWidget(nullptr);
    m_previous.reset();
    QSignalSpy left(m_edit.get(), &DictScanEdit::escPressed);
    press(Qt::Key_Escape);
    QCOMPARE(left.count(), 1);
}

TEST_OBJECT(TestDictScanEditKeys)
#include "tst_dictscanedit_keys.moc"
