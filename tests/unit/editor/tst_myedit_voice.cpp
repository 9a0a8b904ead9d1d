#include "engines/csoundthread.h"
#include "tests/fakes/faketts.h"
#include "tests/shared/testobjects.h"
#include "tests/unit/editor/editorfixture.h"
#include "widgets/hintline.h"

#include <QSignalSpy>
#include <QTest>
#include <thread>

/* The editor and the voice, which it shares with the menus and the translate screen. */
class TestMyEditVoice : public EditorFixture
{
    Q_OBJECT

private slots:
    void readingWaitsForTheMenusVoice();
    void waitingReadingIsDroppedOnRequest();
    void nothingIsReadAfterTheMenuUnlessItWaited();
    void keyDropsTheWaitingReading();
    void readingWaitsForTheTranslateScreen();
    void scanIsNotReadWhileAnotherScreenIsShown();
    void okBeforeTheDelayEndsReadsOnce();
    void newScanStartsTheDelayAnew();
    void readingWaitsForTheEndOfASwipe();
    void readingWaitsForARecognition();
    void lineBeforeAnUnreadableOneIsRead();
    void emptyRecognitionIsTold();
    void hintWaitsForTheEndOfAReading();
    void readingBringsItsVoiceSpeedAndVolume();
    void readingStartedInAMenusVoiceKeepsItsOwn();
    void languageWithoutSpeechTellsTheLauncherOnly();
    void textsOfAnotherFileAreNotReadAgain();
    void takenVoiceMarksNothing();
    void playingFlagTellsOfAText();
    void speedOfTheSettingsFileIsApplied_data();
    void speedOfTheSettingsFileIsApplied();
    void pointerPlacesTheCursorOnlyWhenAllowed();
    void flagOfTheTranslateFlowIsKept();
    void editorThatDiesWhileReadingTellsItsEnd();
    void cursorFollowsTheVoiceOverALineEnd();

private:
    QString lastSpoken() const;
    QTimer* delay() const { return m_edit->findChild<QTimer*>(QStringLiteral("readDelay")); }
};

QString TestMyEditVoice::lastSpoken() const
{
    const std::vector<std::u16string> texts = FakeTts::texts();
    return texts.empty() ? QString() : QString::fromStdU16String(texts.back());
}

void TestMyEditVoice::readingWaitsForTheMenusVoice()
{
    open(QString());
    m_edit->setStopSoundFlag(false);
    swipeOver(u"waits");
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("waits "));
    QTRY_VERIFY(m_edit->getFlagForTalk());
    m_edit->readAfterTalkingMenu(); // the menus still speak
    QVERIFY(!m_edit->soundThread()->isRunning());
    m_edit->setStopSoundFlag(true);
    m_edit->readAfterTalkingMenu();
    QTRY_COMPARE(FakeTts::texts(), (std::vector<std::u16string>{u"waits"}));
    QVERIFY(!m_edit->getFlagForTalk());
}

void TestMyEditVoice::waitingReadingIsDroppedOnRequest()
{
    open(QString());
    m_edit->setStopSoundFlag(false);
    swipeOver(u"dropped");
    QTRY_VERIFY(m_edit->getFlagForTalk());
    m_edit->setFlagForTalk(false);
    m_edit->setStopSoundFlag(true);
    m_edit->readAfterTalkingMenu();
    QVERIFY(!m_edit->soundThread()->isRunning());
    QVERIFY(FakeTts::texts().empty());
}

void TestMyEditVoice::nothingIsReadAfterTheMenuUnlessItWaited()
{
    open(QStringLiteral("text"));
    m_edit->readAfterTalkingMenu();
    m_edit->setFlagForTalk(true); // without a text
    m_edit->readAfterTalkingMenu();
    QVERIFY(!m_edit->soundThread()->isRunning());
}

void TestMyEditVoice::keyDropsTheWaitingReading()
{
    open(QString());
    m_edit->setStopSoundFlag(false);
    swipeOver(u"dropped");
    QTRY_VERIFY(m_edit->getFlagForTalk());
    QTest::keyClick(m_edit.get(), Qt::Key_Up);
    QVERIFY(!m_edit->getFlagForTalk());
}

void TestMyEditVoice::readingWaitsForTheTranslateScreen()
{
    open(QString());
    m_edit->setTTSFlagInTrans(true);
    swipeOver(u"waits");
    QTRY_VERIFY(m_edit->getFlagForTalk());
    QVERIFY(FakeTts::texts().empty());
    m_edit->setTTSFlagInTrans(false);
    QTRY_COMPARE(FakeTts::texts(), (std::vector<std::u16string>{u"waits"}));
}

// A scan may end after the user has gone to a menu: it is kept, and can be asked for.
void TestMyEditVoice::scanIsNotReadWhileAnotherScreenIsShown()
{
    scanWithDelay(u"later");
    QWidget menu;
    WidgetChange::Instance()->Go2NewWidget(&menu);
    m_edit->readDelaySlot(); // what the delay's end does
    QVERIFY(!m_edit->soundThread()->isRunning());
    WidgetChange::Instance()->Go2NewWidget(m_edit.get());
    m_edit->soundAgain();
    QTRY_COMPARE(FakeTts::texts(), (std::vector<std::u16string>{u"later"}));
}

void TestMyEditVoice::okBeforeTheDelayEndsReadsOnce()
{
    scanWithDelay(u"impatient");
    QTest::keyClick(m_edit.get(), Qt::Key_Return);
    QTRY_COMPARE(FakeTts::texts().size(), std::size_t(1));
    m_edit->readDelaySlot(); // what the delay's end would do
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
    QCOMPARE(FakeTts::texts().size(), std::size_t(1));
}

void TestMyEditVoice::newScanStartsTheDelayAnew()
{
    scanWithDelay(u"first");
    swipeOver(u"second");
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("first second "));
    int running = 0;
    const QList<QTimer*> timers = m_edit->findChildren<QTimer*>();
    for (const QTimer* timer : timers)
        running += timer->isActive() && timer->isSingleShot() && timer->interval() == 3000 ? 1 : 0;
    QCOMPARE(running, 1);
    m_edit->readDelaySlot();
    QTRY_COMPARE(FakeTts::texts(), (std::vector<std::u16string>{u"second"}));
}

// The pen does not begin to talk while it is on the paper.
void TestMyEditVoice::readingWaitsForTheEndOfASwipe()
{
    scanWithDelay(u"waits");
    QVERIFY(FakeIap::press());
    m_edit->readDelaySlot(); // what the delay's end does
    QVERIFY(!m_edit->soundThread()->isRunning());
    QVERIFY(delay()->isActive());
    FakeIap::liftWithoutLine();
    QVERIFY(FakeIap::waitUntilIdle());
    m_edit->readDelaySlot();
    QTRY_COMPARE(FakeTts::texts(), (std::vector<std::u16string>{u"waits"}));
}

void TestMyEditVoice::readingWaitsForARecognition()
{
    scanWithDelay(u"first");
    swipeAndHold(u"second");
    m_edit->readDelaySlot(); // what the end of the first one's delay does
    QVERIFY(!m_edit->soundThread()->isRunning());
    FakeOcr::release();
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("first second "));
    QCOMPARE(delay()->interval(), 3000);
    m_edit->readDelaySlot();
    QTRY_COMPARE(FakeTts::texts(), (std::vector<std::u16string>{u"second"}));
}

void TestMyEditVoice::lineBeforeAnUnreadableOneIsRead()
{
    scanWithDelay(u"first");
    swipeOver(u"");
    QTRY_VERIFY(m_edit->recognitionFailed());
    QVERIFY(delay()->isActive());
    m_edit->readDelaySlot();
    QTRY_COMPARE(FakeTts::texts(), (std::vector<std::u16string>{u"first"}));
}

void TestMyEditVoice::emptyRecognitionIsTold()
{
    open(QStringLiteral("text"));
    QSignalSpy hints(m_edit.get(), &MyEdit::signalHint);
    swipeOver(u"");
    QTRY_COMPARE(hints, (QList<QVariantList>{{QStringLiteral("Nothing recognised.")}}));
    QVERIFY(m_edit->recognitionFailed());
    auto* hint = m_edit->findChild<HintLine*>();
    QVERIFY(hint->isVisible());
    QCOMPARE(hint->text(), QStringLiteral("Nothing recognised."));
    QVERIFY(m_messages->texts().isEmpty()); // the next line can be scanned at once
}

void TestMyEditVoice::hintWaitsForTheEndOfAReading()
{
    open(QStringLiteral("one two"));
    beginReading();
    QVERIFY(QDir().mkpath(m_state->root.path(QStringLiteral("/apps/config/store.jnl"))));
    const QString path = m_state->root.path(QStringLiteral("/mnt/mmc/e_ScanFile/notes.txt"));
    QVERIFY(QFile::remove(path));
    QVERIFY(QDir().mkpath(path + QStringLiteral("/in the way")));
    QSignalSpy hints(m_edit.get(), &MyEdit::signalHint);
    QVERIFY(!m_edit->SaveOnly());
    QVERIFY(m_edit->findChild<HintLine*>()->isVisible());
    QCOMPARE(hints.count(), 0);
    QVERIFY(FakeTts::finish());
    QTRY_COMPARE(hints, (QList<QVariantList>{{QStringLiteral("Not saved. Text is kept here.")}}));
}

void TestMyEditVoice::readingBringsItsVoiceSpeedAndVolume()
{
    m_state->root.setSetting(QStringLiteral("SystemSet/Speed"), 5);
    m_state->root.setSetting(QStringLiteral("SystemSet/Volum"), 3);
    open(QString());
    TTSPlayer::Instance()->setSpeed(1); // what another voice left behind
    TTSPlayer::Instance()->setVolume(1);
    TTSPlayer::Instance()->setScanPlayFlag(false);
    swipeOver(u"text");
    QTRY_COMPARE(lastSpoken(), QStringLiteral("text"));
    QCOMPARE(FakeTts::speed(), 40);
    QCOMPARE(FakeTts::volume(), 60);
    QVERIFY(TTSPlayer::scanPlayFlag);
}

// A reading is asked for while a menu still speaks: it must not take the menu's voice, nor the menu
// its own.
void TestMyEditVoice::readingStartedInAMenusVoiceKeepsItsOwn()
{
    open(QString());
    FakeTts::setPace(FakeTts::Pace::Held);
    TTSPlayer::Voice menu;
    menu.language = 151;
    std::thread other([menu] { TTSPlayer::Instance()->play(QStringLiteral("menu"), menu); });
    QVERIFY(FakeTts::waitUntilSpeaking());
    swipeOver(u"reading");
    QTRY_COMPARE(lastSpoken(), QStringLiteral("reading"));
    QCOMPARE(FakeTts::language(), 200);
    other.join();
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
}

void TestMyEditVoice::languageWithoutSpeechTellsTheLauncherOnly()
{
    m_state->root.write(QStringLiteral("/apps/config/scanlanguage.cfg"), "x\t3\tx\t1\t1\t1\t1\n");
    open(QString());
    QString text = QStringLiteral("unspoken");
    m_edit->Sound(text);
    QVERIFY(m_launcher->waitFor(QStringLiteral("execute(QString) soundyes")));
    QVERIFY(FakeTts::texts().empty());
    QCOMPARE(text, QStringLiteral("unspoken"));
}

void TestMyEditVoice::textsOfAnotherFileAreNotReadAgain()
{
    open(QStringLiteral("file text "));
    m_edit->gotoBeginEdit();
    swipeOver(u"secret");
    QTRY_COMPARE(lastSpoken(), QStringLiteral("secret"));
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
    QTest::keyClick(m_edit.get(), Qt::Key_Escape);
    FileInfo info;
    QVERIFY(FileManager::Instance()->getInfoByID(0, info));
    QCOMPARE(m_edit->setFileInfo(info), 0);
    WidgetChange::Instance()->Go2NewWidget(m_edit.get());
    m_edit->soundAgain();
    QVERIFY(!m_edit->soundThread()->isRunning());
    QCOMPARE(FakeTts::texts().size(), std::size_t(1));
}

void TestMyEditVoice::takenVoiceMarksNothing()
{
    open(QStringLiteral("one two"));
    beginReading();
    m_edit->setMpayingFlag(false);
    nextWordIsNotMarked();
}

void TestMyEditVoice::playingFlagTellsOfAText()
{
    open(QStringLiteral("one two"));
    QVERIFY(!m_edit->isPlaying());
    beginReading();
    QVERIFY(m_edit->isPlaying());
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(!m_edit->isPlaying());
}

void TestMyEditVoice::speedOfTheSettingsFileIsApplied_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("spanish");
    QTest::addColumn<int>("expected");
    QTest::newRow("English") << 0 << 0 << 56;
    QTest::newRow("Spanish") << 3 << 0 << 56;
    QTest::newRow("Spanish variant") << 3 << 1 << 105;
}

void TestMyEditVoice::speedOfTheSettingsFileIsApplied()
{
    QFETCH(int, row);
    QFETCH(int, spanish);
    QFETCH(int, expected);
    m_state->root.setSetting(QStringLiteral("SystemSet/scanLan"), row);
    m_state->root.setSetting(QStringLiteral("SystemSet/SPANISH"), spanish);
    open(QString());
    m_state->root.setSetting(QStringLiteral("SystemSet/Speed"), 7); // written by another process
    m_edit->setScanSpeedInfo(0);
    QCOMPARE(FakeTts::speed(), expected);
}

void TestMyEditVoice::pointerPlacesTheCursorOnlyWhenAllowed()
{
    open(QStringLiteral("one two"));
    m_edit->gotoBeginEdit();
    const QPoint second(8 * 4 + 1, 8);
    QTest::mouseClick(m_edit->viewport(), Qt::LeftButton, {}, second);
    QCOMPARE(m_edit->getCurPosition(), 0);
    m_edit->setmouseFlag(true);
    QTest::mouseClick(m_edit->viewport(), Qt::LeftButton, {}, second);
    QCOMPARE(m_edit->getCurPosition(), 4);
}

void TestMyEditVoice::flagOfTheTranslateFlowIsKept()
{
    open(QString());
    QVERIFY(!m_edit->getChangeTransFlag());
    m_edit->setChangeTransFlag(true);
    QVERIFY(m_edit->getChangeTransFlag());
}

void TestMyEditVoice::editorThatDiesWhileReadingTellsItsEnd()
{
    open(QStringLiteral("one two"));
    beginReading();
    m_edit.reset();
    QVERIFY(m_launcher->waitFor(QStringLiteral("execute(QString) soundno")));
    QCOMPARE(m_launcher->messages().last(), QStringLiteral("execute(QString) soundno"));
}

void TestMyEditVoice::cursorFollowsTheVoiceOverALineEnd()
{
    open(QStringLiteral("one two\nthree"));
    beginReading();
    for (const int place : {0, 4, 8}) {
        QVERIFY(FakeTts::speakWord());
        QTRY_COMPARE(m_edit->getStartPosition(), place);
        QCOMPARE(m_edit->getCurPosition(), place);
    }
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
    QCOMPARE(m_edit->getCurPosition(), 8);
}

TEST_OBJECT(TestMyEditVoice)
#include "tst_myedit_voice.moc"
