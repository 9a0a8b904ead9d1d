#include "engines/csoundsrcthread.h"
#include "engines/csoundtransthread.h"
#include "engines/cttsthread.h"
#include "tests/fakes/faketts.h"
#include "tests/shared/testobjects.h"
#include "tests/unit/dict/dictfixture.h"

#include <QSignalSpy>
#include <QTest>

/* The keys of the translate screen while something is read aloud. */
class TestDictScanEditInterrupting : public DictFixture
{
    Q_OBJECT

private slots:
    void aKeySilencesTheMenusFirst();
    void aKeyGoesOnOnceTheMenusAreSilent();
    void anyKeyEndsTheReadingOfTheWord_data();
    void anyKeyEndsTheReadingOfTheWord();
    void aKeyEndsAlsoTheReadingThatWaitsForTheEndOfOne();
    void keyThatEndsTheReadingOfAnEntry_data();
    void keyThatEndsTheReadingOfAnEntry();
    void upAndDownWaitForTheEntry();
    void enterGoesOnWithTheEntryItStopped();
    void keysAfterAnInterruption_data();
    void keysAfterAnInterruption();
};

void TestDictScanEditInterrupting::aKeySilencesTheMenusFirst()
{
    openEnglish();
    CTTSThread menus;
    m_edit->setSpeechWorker(&menus);
    m_edit->setScanText(QStringLiteral("house green"), true);
    waitUntilSilent();
    FakeTts::setPace(FakeTts::Pace::Held);
    QSignalSpy keys(m_edit.get(), &DictScanEdit::signalKeyPress);
    // The stop comes too early, so that the worker still runs when the key looks again.
    menus.setContent(QStringLiteral("menu"));
    menus.start();
    QTRY_VERIFY(FakeTts::isSpeaking());
    FakeTts::missStops(1);
    press(Qt::Key_Right);
    QCOMPARE(keys.count(), 1);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("house"));
    FakeTts::finish();
    QTRY_VERIFY(!menus.isRunning());
    press(Qt::Key_Right);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("green"));
    QCOMPARE(keys.count(), 1);
    m_edit->setSpeechWorker(nullptr);
}

void TestDictScanEditInterrupting::aKeyGoesOnOnceTheMenusAreSilent()
{
    openEnglish();
    CTTSThread menus;
    m_edit->setSpeechWorker(&menus);
    m_edit->setScanText(QStringLiteral("house green"), true);
    waitUntilSilent();
    press(Qt::Key_Right);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("green"));
    m_edit->setSpeechWorker(nullptr);
}

void TestDictScanEditInterrupting::anyKeyEndsTheReadingOfTheWord_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Enter") << Qt::Key_Return;
    QTest::newRow("Escape") << Qt::Key_Escape;
    QTest::newRow("Right") << Qt::Key_Right;
    QTest::newRow("Down") << Qt::Key_Down;
    QTest::newRow("F8") << Qt::Key_F8;
    QTest::newRow("F12") << Qt::Key_F12;
}

void TestDictScanEditInterrupting::anyKeyEndsTheReadingOfTheWord()
{
    QFETCH(Qt::Key, key);
    openEnglish();
    holdWord();
    QSignalSpy left(m_edit.get(), &DictScanEdit::escPressed);
    QSignalSpy quick(m_edit.get(), &DictScanEdit::signalQuickset);
    press(key);
    waitUntilSilent();
    QCOMPARE(spoken(), QStringList("house")); // the entry is not read
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("house"));
    QCOMPARE(left.count() + quick.count(), 0);
    QCOMPARE(m_edit->getcurRowonly(), 0);
}

// A scan came, and the engine still speaks the word before.
void TestDictScanEditInterrupting::aKeyEndsAlsoTheReadingThatWaitsForTheEndOfOne()
{
    openEnglish();
    holdWord();
    FakeTts::missStops(1);
    m_edit->takeScan(QStringLiteral("green"));
    QCoreApplication::processEvents();
    QVERIFY(m_edit->srcThread()->isRunning());
    QVERIFY(m_edit->getOkSoundFlagForTalk()); // the next one is due
    press(Qt::Key_Right); // while "house" is spoken: a voice that goes on could end before the key
    FakeTts::setPace(FakeTts::Pace::Automatic);
    waitUntilSilent();
    QCOMPARE(spoken(), QStringList("house"));
}

void TestDictScanEditInterrupting::keyThatEndsTheReadingOfAnEntry_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Enter") << Qt::Key_Return;
    QTest::newRow("Escape") << Qt::Key_Escape;
    QTest::newRow("Left") << Qt::Key_Left;
    QTest::newRow("F6") << Qt::Key_F6;
    QTest::newRow("F12") << Qt::Key_F12;
}

void TestDictScanEditInterrupting::keyThatEndsTheReadingOfAnEntry()
{
    QFETCH(Qt::Key, key);
    openEnglish();
    holdEntry();
    QVERIFY(FakeTts::speakWord());
    QTRY_COMPARE(marked(), QStringLiteral("Haus"));
    QSignalSpy finished(m_edit.get(), &DictScanEdit::recfinished);
    QSignalSpy left(m_edit.get(), &DictScanEdit::escPressed);
    QSignalSpy quick(m_edit.get(), &DictScanEdit::signalQuickset);
    press(key);
    QCOMPARE(finished.count(), 1);
    QVERIFY(m_edit->transThread()->getnewScanState());
    QCOMPARE(marked(), QString());
    waitUntilSilent();
    QCOMPARE(spoken().size(), 2);
    QCOMPARE(left.count() + quick.count(), 0);
    QCOMPARE(m_edit->selectedWord(), QStringLiteral("house"));
}

void TestDictScanEditInterrupting::upAndDownWaitForTheEntry()
{
    openEnglish();
    holdEntry();
    QSignalSpy finished(m_edit.get(), &DictScanEdit::recfinished);
    press(Qt::Key_Up);
    press(Qt::Key_Down);
    QVERIFY(FakeTts::isSpeaking());
    QCOMPARE(finished.count(), 0);
    QCOMPARE(m_edit->getcurRowonly(), 0);
    QVERIFY(FakeTts::finish());
    waitUntilSilent();
    press(Qt::Key_Down);
    QCOMPARE(m_edit->getcurRowonly(), 1);
}

void TestDictScanEditInterrupting::enterGoesOnWithTheEntryItStopped()
{
    openEnglish();
    holdEntry();
    press(Qt::Key_Return);
    QTRY_VERIFY(!m_edit->transThread()->isRunning());
    FakeTts::setPace(FakeTts::Pace::Automatic);
    press(Qt::Key_Return);
    waitUntilSilent();
    QCOMPARE(spoken(), QStringList({"house", "Haus , Heim", "Haus , Heim"}));
    // Read to its end, it is no longer interrupted.
    press(Qt::Key_Return);
    waitUntilSilent();
    QCOMPARE(spoken().mid(3), QStringList({"house", "Haus , Heim"}));
}

void TestDictScanEditInterrupting::keysAfterAnInterruption_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QString>("next");
    QTest::newRow("Left") << Qt::Key_Left << "house";
    QTest::newRow("Up") << Qt::Key_Up << "house";
    QTest::newRow("F7") << Qt::Key_F7 << "house";
    QTest::newRow("F12") << Qt::Key_F12 << "house";
    QTest::newRow("another key") << Qt::Key_F10 << "Haus , Heim";
}

// They end what Enter would go on with.
void TestDictScanEditInterrupting::keysAfterAnInterruption()
{
    QFETCH(Qt::Key, key);
    QFETCH(QString, next);
    openEnglish();
    holdEntry();
    press(Qt::Key_Return);
    waitUntilSilent();
    FakeTts::setPace(FakeTts::Pace::Automatic);
    press(key);
    press(Qt::Key_Return);
    waitUntilSilent();
    QCOMPARE(spoken().value(2), next);
}

TEST_OBJECT(TestDictScanEditInterrupting)
#include "tst_dictscanedit_interrupting.moc"
