#include "engines/csoundthread.h"
#include "tests/fakes/faketts.h"
#include "tests/shared/testobjects.h"
#include "tests/unit/editor/editorfixture.h"

#include <QSignalSpy>
#include <QTest>

/* The editor as the one-line input of a new file name. */
class TestMyEditRename : public EditorFixture
{
    Q_OBJECT

private slots:
    void startShowsTheProposalAsOneLine();
    void startTellsTheProposal();
    void scanReplacesTheNameAndIsSpoken();
    void scanIsSpokenWithReadingSwitchedOff();
    void scanAnnouncesItselfBeforeItsText();
    void scanWithoutTextKeepsTheNameAndAsksAgain();
    void scanOfBlanksIsNoName();
    void okConfirmsAndGoesBack();
    void okWithoutANameConfirmsNothingAsAName();
    void okWaitsForTheScanThatIsBeingRecognised();
    void escapeCancelsAndGoesBack();
    void escapeDropsTheScanThatIsBeingRecognised();
    void quickSettingsAreClosed();
    void keysAreIgnoredWhileSwiping();
    void scanAfterLeavingIsDropped();
    void scanFileIsNeverTouched();
    void boundEditorRefusesTheMode();

private:
    void startRename(const QString& proposal);
    QByteArray fileBytes() const;
};

void TestMyEditRename::startRename(const QString& proposal)
{
    open(QStringLiteral("text"));
    m_edit->SaveAndExit();
    m_edit->startRename(QStringLiteral("notes"), proposal, 10);
    m_edit->setPrevWidget(m_previous.get());
    WidgetChange::Instance()->Go2NewWidget(m_edit.get());
    QVERIFY(m_edit->renameFlag());
    QVERIFY(FakeIap::isStarted());
}

QByteArray TestMyEditRename::fileBytes() const
{
    return m_state->root.read(QStringLiteral("/mnt/mmc/e_ScanFile/notes.txt"));
}

void TestMyEditRename::startShowsTheProposalAsOneLine()
{
    startRename(QStringLiteral(" new\nname\t"));
    QCOMPARE(m_edit->documentText(), QStringLiteral("new name"));
    QCOMPARE(m_edit->getCurPosition(), 8);
}

void TestMyEditRename::startTellsTheProposal()
{
    open(QString());
    m_edit->SaveAndExit();
    QSignalSpy shown(m_edit.get(), &MyEdit::signalShow);
    m_edit->startRename(QStringLiteral("notes"), QStringLiteral("idea"), 10);
    WidgetChange::Instance()->Go2NewWidget(m_edit.get());
    QCOMPARE(shown.size(), 1);
    QCOMPARE(shown.first().at(1).toString(), QStringLiteral("idea"));
}

void TestMyEditRename::scanReplacesTheNameAndIsSpoken()
{
    startRename(QStringLiteral("first"));
    swipeOver(u"a name that is much too long");
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("a name that is much too long"));
    swipeOver(u"second ");
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("second"));
    QTRY_VERIFY(!FakeTts::texts().empty() && FakeTts::texts().back() == u"second ");
    QVERIFY(m_messages->texts().isEmpty());
}

void TestMyEditRename::scanIsSpokenWithReadingSwitchedOff()
{
    startRename(QString());
    ConfigReader::Instance()->setReadConrolInfo(1);
    swipeOver(u"heard");
    QTRY_COMPARE(FakeTts::texts(), (std::vector<std::u16string>{u"heard"}));
}

void TestMyEditRename::scanAnnouncesItselfBeforeItsText()
{
    startRename(QString());
    FakeOcr::hold();
    QSignalSpy announced(m_edit.get(), &MyEdit::signalNewInput);
    swipeOver(u"name");
    QTRY_COMPARE(announced.size(), 1);
    QVERIFY(m_edit->documentText().isEmpty());
    m_edit->setStopFlag(true); // what the main window does then
    FakeOcr::release();
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("name"));
    QVERIFY(!FakeIap::stopSignal());
}

void TestMyEditRename::scanWithoutTextKeepsTheNameAndAsksAgain()
{
    startRename(QStringLiteral("kept"));
    QSignalSpy shown(m_edit.get(), &MyEdit::signalShow);
    swipeOver(u"");
    QTRY_COMPARE(shown.size(), 1);
    QCOMPARE(shown.first().at(1).toString(), QStringLiteral("kept"));
    QCOMPARE(m_edit->documentText(), QStringLiteral("kept"));
    QVERIFY(m_edit->recognitionFailed());
}

void TestMyEditRename::scanOfBlanksIsNoName()
{
    startRename(QStringLiteral("kept"));
    QSignalSpy shown(m_edit.get(), &MyEdit::signalShow);
    swipeOver(u" \n ");
    QTRY_COMPARE(shown.size(), 1);
    QCOMPARE(m_edit->documentText(), QStringLiteral("kept"));
}

void TestMyEditRename::okConfirmsAndGoesBack()
{
    startRename(QStringLiteral("idea"));
    QSignalSpy confirmed(m_edit.get(), &MyEdit::signalConfirmRename);
    QSignalSpy cancelled(m_edit.get(), &MyEdit::signalCancelRename);
    QTest::keyClick(m_edit.get(), Qt::Key_Return);
    QCOMPARE(confirmed.size(), 1);
    QCOMPARE(confirmed.first().first().toString(), QStringLiteral("idea"));
    QCOMPARE(cancelled.size(), 0);
    QCOMPARE(WidgetChange::Instance()->getCurWidget(), m_previous.get());
    QVERIFY(!FakeIap::isStarted());
    QVERIFY(!m_edit->renameFlag());
    QVERIFY(m_edit->documentText().isEmpty());
}

void TestMyEditRename::okWithoutANameConfirmsNothingAsAName()
{
    startRename(QString());
    QSignalSpy confirmed(m_edit.get(), &MyEdit::signalConfirmRename);
    QTest::keyClick(m_edit.get(), Qt::Key_Return);
    QCOMPARE(confirmed.size(), 1);
    QCOMPARE(confirmed.first().first().toString(), QString());
}

void TestMyEditRename::okWaitsForTheScanThatIsBeingRecognised()
{
    startRename(QStringLiteral("old idea"));
    QSignalSpy confirmed(m_edit.get(), &MyEdit::signalConfirmRename);
    swipeAndHold(u"new idea");
    QTest::keyClick(m_edit.get(), Qt::Key_Return);
    QCOMPARE(confirmed.size(), 0);
    QVERIFY(m_edit->renameFlag());
    FakeOcr::release();
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("new idea"));
}

void TestMyEditRename::escapeCancelsAndGoesBack()
{
    startRename(QStringLiteral("idea"));
    QSignalSpy confirmed(m_edit.get(), &MyEdit::signalConfirmRename);
    QSignalSpy cancelled(m_edit.get(), &MyEdit::signalCancelRename);
    QSignalSpy left(m_edit.get(), &MyEdit::signalEsc);
    QTest::keyClick(m_edit.get(), Qt::Key_Escape);
    QCOMPARE(cancelled.size(), 1);
    QCOMPARE(confirmed.size(), 0);
    QCOMPARE(left.size(), 0);
    QCOMPARE(WidgetChange::Instance()->getCurWidget(), m_previous.get());
    QVERIFY(!FakeIap::isStarted());
    QVERIFY(m_edit->documentText().isEmpty());
}

void TestMyEditRename::escapeDropsTheScanThatIsBeingRecognised()
{
    startRename(QString());
    swipeAndHold(u"late");
    FakeOcr::release();
    QTest::keyClick(m_edit.get(), Qt::Key_Escape);
    QCoreApplication::processEvents();
    QVERIFY(m_edit->documentText().isEmpty());
    m_edit->readDelaySlot();
    QVERIFY(!m_edit->soundThread()->isRunning());
    QVERIFY(FakeTts::texts().empty());
}

void TestMyEditRename::quickSettingsAreClosed()
{
    startRename(QStringLiteral("idea"));
    QTest::keyClick(m_edit.get(), Qt::Key_F12);
    QCOMPARE(WidgetChange::Instance()->getCurWidget(), m_edit.get());
    QVERIFY(!FakeIap::stopSignal());
    QCOMPARE(m_edit->documentText(), QStringLiteral("idea"));
}

void TestMyEditRename::keysAreIgnoredWhileSwiping()
{
    startRename(QStringLiteral("idea"));
    QSignalSpy confirmed(m_edit.get(), &MyEdit::signalConfirmRename);
    QSignalSpy cancelled(m_edit.get(), &MyEdit::signalCancelRename);
    QVERIFY(FakeIap::press());
    QTest::keyClick(m_edit.get(), Qt::Key_Return);
    QTest::keyClick(m_edit.get(), Qt::Key_Escape);
    FakeIap::liftWithoutLine();
    QVERIFY(FakeIap::waitUntilIdle());
    QCOMPARE(confirmed.size() + cancelled.size(), 0);
}

void TestMyEditRename::scanAfterLeavingIsDropped()
{
    startRename(QString());
    FakeOcr::setResult(u"late");
    FakeIap::swipe(FakeIap::pattern(20, 10)); // waits in the queue of events
    QTest::keyClick(m_edit.get(), Qt::Key_Escape);
    QSignalSpy announced(m_edit.get(), &MyEdit::signalNewInput);
    QCoreApplication::processEvents();
    QCOMPARE(announced.size(), 0);
    QVERIFY(m_edit->documentText().isEmpty());
}

void TestMyEditRename::scanFileIsNeverTouched()
{
    startRename(QStringLiteral("idea"));
    const QByteArray before = fileBytes();
    QCOMPARE(m_edit->autoSaveTimer(), 0);
    QVERIFY(!m_edit->SaveOnly());
    QTest::keyClick(m_edit.get(), Qt::Key_Escape);
    m_edit->startRename(QStringLiteral("notes"), QStringLiteral("more"), 10);
    m_edit->SaveAndExit();
    QTest::keyClick(m_edit.get(), Qt::Key_Return);
    QCOMPARE(fileBytes(), before);
}

void TestMyEditRename::boundEditorRefusesTheMode()
{
    open(QStringLiteral("precious"));
    m_edit->setRenameFlag(true);
    QVERIFY(!m_edit->renameFlag());
    m_edit->startRename(QStringLiteral("notes"), QStringLiteral("idea"), 10);
    QCOMPARE(m_edit->documentText(), QStringLiteral("precious"));
    QTest::keyClick(m_edit.get(), Qt::Key_Escape);
    QCOMPARE(savedText(), QStringLiteral("precious"));
}

TEST_OBJECT(TestMyEditRename)
#include "tst_myedit_rename.moc"
