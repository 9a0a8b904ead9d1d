#include "engines/csoundtransthread.h"
#include "engines/cttsthread.h"
#include "tests/fakes/faketts.h"
#include "tests/shared/testobjects.h"
#include "tests/unit/dict/dictfixture.h"

#include <QSignalSpy>
#include <QTest>

/* The translate screen reading aloud. */
class TestDictScanEditReading : public DictFixture
{
    Q_OBJECT

private slots:
    void aLookUpIsRead_data();
    void aLookUpIsRead();
    void enterReads_data();
    void enterReads();
    void wordWithoutResult_data();
    void wordWithoutResult();
    void textWithoutAWordIsTold();
    void voices_data();
    void voices();
    void languageWithoutAVoiceStaysSilent();
    void theLauncherIsToldOnce();
    void readingBeginsOnceTheScreenIsShown();
    void readingWaitsForTheMenus();
    void oneReadingForWhatIsLookedUpAtOnce();
    void aScanCutsAReadingShort_data();
    void aScanCutsAReadingShort();
    void powerKeyEndsEverything();
    void leavingTheScreenEndsReading();
    void endIsSignalledOnce();
    void chineseWordIsReadWhole();
    void joinedWordIsReadAsItWasFound();
    void printedMarkupIsSpoken();
    void destroyedWhileReading();
};

void TestDictScanEditReading::aLookUpIsRead_data()
{
    QTest::addColumn<int>("readControl");
    QTest::addColumn<int>("readTrans");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("word and entry") << 0 << 0 << QStringList({"house", "Haus , Heim"});
    QTest::newRow("word only") << 0 << 1 << QStringList("house");
    QTest::newRow("nothing") << 1 << 0 << QStringList();
    QTest::newRow("both off") << 1 << 1 << QStringList();
}

void TestDictScanEditReading::aLookUpIsRead()
{
    QFETCH(int, readControl);
    QFETCH(int, readTrans);
    QFETCH(QStringList, texts);
    m_state->root.setSetting(QStringLiteral("DictTrans/ReadControl"), readControl);
    m_state->root.setSetting(QStringLiteral("DictTrans/ReadTrans"), readTrans);
    openEnglish();
    m_edit->setScanText(QStringLiteral("house"), true);
    waitUntilSilent();
    QCOMPARE(spoken(), texts);
}

void TestDictScanEditReading::enterReads_data()
{
    QTest::addColumn<int>("readTrans");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("word and entry") << 0 << QStringList({"house", "Haus , Heim"});
    QTest::newRow("word only") << 1 << QStringList("house");
}

// Whatever is read by itself.
void TestDictScanEditReading::enterReads()
{
    QFETCH(int, readTrans);
    QFETCH(QStringList, texts);
    m_state->root.setSetting(QStringLiteral("DictTrans/ReadControl"), 1);
    m_state->root.setSetting(QStringLiteral("DictTrans/ReadTrans"), readTrans);
    openEnglish();
    m_edit->setScanText(QStringLiteral("house"), true);
    waitUntilSilent();
    press(Qt::Key_Return);
    waitUntilSilent();
    QCOMPARE(spoken(), texts);
}

void TestDictScanEditReading::wordWithoutResult_data()
{
    QTest::addColumn<int>("readControl");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("reading on") << 0 << QStringList("xyzzy");
    QTest::newRow("reading off") << 1 << QStringList();
}

void TestDictScanEditReading::wordWithoutResult()
{
    QFETCH(int, readControl);
    QFETCH(QStringList, texts);
    m_state->root.setSetting(QStringLiteral("DictTrans/ReadControl"), readControl);
    openEnglish();
    m_edit->setScanText(QStringLiteral("xyzzy"), true);
    waitUntilSilent();
    QCOMPARE(spoken(), texts);
    QCOMPARE(m_announced, QStringList("No translation result."));
    press(Qt::Key_Return);
    waitUntilSilent();
    QCOMPARE(lastSpoken(), QStringLiteral("xyzzy"));
    QCOMPARE(m_announced.size(), 2);
}

void TestDictScanEditReading::textWithoutAWordIsTold()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("..."), true);
    waitUntilSilent();
    QCOMPARE(spoken(), QStringList());
    QCOMPARE(m_announced, QStringList("No translation result."));
    press(Qt::Key_Return);
    QCOMPARE(m_announced.size(), 2);
}

void TestDictScanEditReading::voices_data()
{
    QTest::addColumn<int>("source");
    QTest::addColumn<int>("target");
    QTest::addColumn<int>("voice");
    QTest::addColumn<int>("spanish");
    QTest::addColumn<int>("sourceVoice");
    QTest::addColumn<int>("targetVoice");
    QTest::newRow("English to German") << 101 << 104 << 0 << 0 << 200 << 104;
    QTest::newRow("another English voice") << 101 << 104 << 2 << 0 << 203 << 104;
    QTest::newRow("German to English") << 104 << 101 << 4 << 0 << 104 << 205;
    QTest::newRow("Spanish") << 105 << 101 << 0 << 0 << 105 << 200;
    QTest::newRow("Spanish variant") << 105 << 101 << 0 << 1 << 202 << 200;
    QTest::newRow("Russian to Chinese") << 151 << 1 << 0 << 0 << 151 << 1;
    QTest::newRow("damaged choice") << 104 << 103 << 77 << 0 << 104 << 103;
}

void TestDictScanEditReading::voices()
{
    QFETCH(int, source);
    QFETCH(int, target);
    QFETCH(int, voice);
    QFETCH(int, spanish);
    QFETCH(int, sourceVoice);
    QFETCH(int, targetVoice);
    m_state->root.setSetting(QStringLiteral("SystemSet/TTS"), voice);
    m_state->root.setSetting(QStringLiteral("SystemSet/SPANISH"), spanish);
    m_state->root.setSetting(QStringLiteral("DictTrans/Volum"), 3);
    m_state->root.setSetting(QStringLiteral("DictTrans/ReadSpeed"), 7);
    open(source, target, {{"a", "b"}});
    holdWord(QStringLiteral("a"));
    QCOMPARE(FakeTts::language(), sourceVoice);
    QCOMPARE(FakeTts::volume(), 60);
    QCOMPARE(FakeTts::speed(), 56);
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(m_edit->transThread()->isRunning() && FakeTts::isSpeaking());
    QCOMPARE(FakeTts::language(), targetVoice);
    QCOMPARE(FakeTts::volume(), 60);
    QCOMPARE(FakeTts::speed(), 56);
    QVERIFY(FakeTts::finish());
    waitUntilSilent();
}

void TestDictScanEditReading::languageWithoutAVoiceStaysSilent()
{
    open(3, 101, {{"a", "b"}});
    m_edit->setScanText(QStringLiteral("a"), true);
    waitUntilSilent();
    QCOMPARE(spoken(), QStringList("b"));
}

// Between word and entry the sound output stays on.
void TestDictScanEditReading::theLauncherIsToldOnce()
{
    openEnglish();
    m_launcher->clear();
    m_edit->setScanText(QStringLiteral("house"), true);
    QVERIFY(m_launcher->waitFor(QStringLiteral("execute(QString) soundno")));
    waitUntilSilent();
    QCOMPARE(m_launcher->messages(),
             QStringList({"execute(QString) soundyes", "execute(QString) soundyes",
                          "execute(QString) soundno"}));
}

void TestDictScanEditReading::readingBeginsOnceTheScreenIsShown()
{
    openEnglish();
    WidgetChange::Instance()->Go2NewWidget(m_previous.get());
    m_edit->setScanText(QStringLiteral("house"), true);
    for (int i = 0; i < 3; ++i)
        QCoreApplication::processEvents();
    QCOMPARE(spoken(), QStringList());
    WidgetChange::Instance()->Go2NewWidget(m_edit.get());
    QTRY_COMPARE(spoken().size(), 2);
    waitUntilSilent();
    // Shown once more, nothing new is to be read.
    WidgetChange::Instance()->Go2NewWidget(m_previous.get());
    WidgetChange::Instance()->Go2NewWidget(m_edit.get());
    waitUntilSilent();
    QCOMPARE(spoken().size(), 2);
}

void TestDictScanEditReading::readingWaitsForTheMenus()
{
    openEnglish();
    CTTSThread menus;
    m_edit->setSpeechWorker(&menus);
    FakeTts::setPace(FakeTts::Pace::Held);
    menus.setContent(QStringLiteral("message"));
    menus.start();
    QTRY_VERIFY(FakeTts::isSpeaking());
    m_edit->setScanText(QStringLiteral("green"), true);
    for (int i = 0; i < 3; ++i)
        QCoreApplication::processEvents();
    QVERIFY(!m_edit->isReading());
    FakeTts::setPace(FakeTts::Pace::Automatic); // lets it run to its end
    QTRY_COMPARE(spoken(), QStringList({"message", "green", "grün"}));
    waitUntilSilent();
    m_edit->setSpeechWorker(nullptr);
}

void TestDictScanEditReading::oneReadingForWhatIsLookedUpAtOnce()
{
    openEnglish();
    m_edit->setScanText(QStringLiteral("well-known"), true);
    m_edit->transWordForEdit(QStringLiteral("well-known"));
    waitUntilSilent();
    QCOMPARE(spoken(), QStringList({"well-known", "bekannt"}));
}

void TestDictScanEditReading::aScanCutsAReadingShort_data()
{
    QTest::addColumn<bool>("entry");
    QTest::newRow("of the word") << false;
    QTest::newRow("of the entry") << true;
}

void TestDictScanEditReading::aScanCutsAReadingShort()
{
    QFETCH(bool, entry);
    openEnglish();
    holdWord(QStringLiteral("house"));
    if (entry) {
        QVERIFY(FakeTts::finish());
        QTRY_VERIFY(m_edit->transThread()->isRunning() && FakeTts::isSpeaking());
    }
    const qsizetype before = spoken().size();
    FakeTts::setPace(FakeTts::Pace::Automatic);
    m_edit->takeScan(QStringLiteral("green"));
    QTRY_COMPARE(spoken().mid(before), QStringList({"green", "grün"}));
    waitUntilSilent();
}

// What the main window does when the power key is pressed.
void TestDictScanEditReading::powerKeyEndsEverything()
{
    openEnglish();
    holdWord(QStringLiteral("house"));
    QVERIFY(m_edit->getOkSoundFlagForTalk());
    TTSPlayer::Instance()->stop();
    m_edit->clearTransContent();
    m_edit->setOKSoundFlagForTalk(false);
    waitUntilSilent();
    QCOMPARE(spoken(), QStringList("house"));
}

void TestDictScanEditReading::leavingTheScreenEndsReading()
{
    openEnglish();
    holdWord(QStringLiteral("house"));
    WidgetChange::Instance()->Go2NewWidget(m_previous.get());
    waitUntilSilent();
    QCOMPARE(spoken(), QStringList("house"));
}

void TestDictScanEditReading::endIsSignalledOnce()
{
    openEnglish();
    QSignalSpy begins(m_edit.get(), &DictScanEdit::signalOKInTrans);
    QSignalSpy ends(m_edit.get(), &DictScanEdit::signalTTSendInTrans);
    m_edit->setScanText(QStringLiteral("house"), true);
    QTRY_COMPARE(ends.count(), 1);
    waitUntilSilent();
    QCOMPARE(begins.count(), 1);
    QCOMPARE(ends.count(), 1);
    QCOMPARE(spoken().size(), 2);
    press(Qt::Key_Return);
    m_edit->stopReading();
    QTRY_COMPARE(ends.count(), 2);
    waitUntilSilent();
    QCOMPARE(begins.count(), 2);
}

void TestDictScanEditReading::chineseWordIsReadWhole()
{
    open(1, 101,
         {{QStringLiteral("中国人民"), "the Chinese people", QStringLiteral("中国人")},
          {QStringLiteral("中国人民"), "China", QStringLiteral("中国")}});
    m_edit->setScanText(QStringLiteral("中国人民"), true);
    waitUntilSilent();
    QCOMPARE(spoken(), QStringList({QStringLiteral("中国人"), "the Chinese people"}));
    press(Qt::Key_F8);
    waitUntilSilent();
    press(Qt::Key_Return);
    waitUntilSilent();
    QCOMPARE(spoken().mid(2), QStringList({"China", QStringLiteral("中国"), "China"}));
}

void TestDictScanEditReading::joinedWordIsReadAsItWasFound()
{
    openEnglish();
    m_edit->takeScan(QStringLiteral("inter-"));
    waitUntilSilent();
    m_announced.clear();
    const qsizetype before = spoken().size();
    m_edit->takeScan(QStringLiteral("national"));
    waitUntilSilent();
    QCOMPARE(spoken().mid(before), QStringList({"international", "international"}));
}

void TestDictScanEditReading::printedMarkupIsSpoken()
{
    open(101, 104, {{"a", "<vtml_pause time=\"9\"/> b"}});
    m_edit->setScanText(QStringLiteral("a"), true);
    waitUntilSilent();
    QVERIFY(!QString::fromStdU16String(FakeTts::texts().back())
                 .contains(QStringLiteral("<vtml_pause time=\"9\"/>")));
}

void TestDictScanEditReading::destroyedWhileReading()
{
    openEnglish();
    FakeTts::setPace(FakeTts::Pace::Held);
    m_launcher->clear();
    m_edit->setScanText(QStringLiteral("house"), true);
    QTRY_VERIFY(FakeTts::isSpeaking());
    m_edit.reset();
    QVERIFY(!FakeTts::isSpeaking());
    QCOMPARE(TTSPlayer::editDict, nullptr);
    QVERIFY(m_launcher->waitFor(QStringLiteral("execute(QString) soundno")));
}

TEST_OBJECT(TestDictScanEditReading)
#include "tst_dictscanedit_reading.moc"
