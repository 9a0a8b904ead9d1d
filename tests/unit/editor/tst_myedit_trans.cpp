#include "engines/csoundthread.h"
#include "tests/fakes/faketts.h"
#include "tests/shared/testobjects.h"
#include "tests/unit/editor/editorfixture.h"
#include "widgets/sandglass.h"

#include <QSignalSpy>
#include <QTest>

/* The editor takes the scans of the translate screen, too. */
class TestMyEditTrans : public EditorFixture
{
    Q_OBJECT

private slots:
    void scanGoesToTheTranslateScreenAndNotIntoTheFile();
    void scanWithoutTextIsToldToo();
    void busySignIsSeenWhileTheEditorIsHidden();
    void scanBegunInTheEditorGoesIntoTheFile();
    void scanWhoseTranslateScreenWasLeftIsAppended();
    void scanWhoseTranslateScreenWasLeftIsSaved();
};

void TestMyEditTrans::scanGoesToTheTranslateScreenAndNotIntoTheFile()
{
    open(QStringLiteral("one "));
    QSignalSpy handed(m_edit.get(), &MyEdit::signalTransText);
    g_InDict = true;
    swipeOver(u"two three");
    QTRY_COMPARE(handed.count(), 1);
    QCOMPARE(handed.first().first().toString(), QStringLiteral("two three"));
    QVERIFY(!m_edit->recognitionFailed());
    m_edit->readDelaySlot(); // what the delay's end does
    QVERIFY(!m_edit->soundThread()->isRunning());
    QCOMPARE(m_edit->documentText(), QStringLiteral("one "));
    g_InDict = false;
    m_edit->SaveAndExit();
    QCOMPARE(savedText(), QStringLiteral("one "));
}

void TestMyEditTrans::scanWithoutTextIsToldToo()
{
    open(QStringLiteral("one "));
    QSignalSpy handed(m_edit.get(), &MyEdit::signalTransText);
    QSignalSpy hints(m_edit.get(), &MyEdit::signalHint);
    g_InDict = true;
    swipeOver(u"");
    QTRY_COMPARE(handed.count(), 1);
    QVERIFY(handed.first().first().toString().isEmpty());
    QVERIFY(m_edit->recognitionFailed());
    QVERIFY(hints.isEmpty()); // whoever shows it tells it
}

void TestMyEditTrans::busySignIsSeenWhileTheEditorIsHidden()
{
    QWidget window;
    window.setFixedSize(256, 64);
    open(QStringLiteral("one "));
    m_edit->setParent(&window);
    m_edit->hide();
    window.show();
    g_InDict = true;
    swipeAndHold(u"two");
    const auto* sign = window.findChild<SandGlass*>();
    QVERIFY(sign && sign->isVisible());
    QCOMPARE(sign->geometry(), SandGlass::Place);
    FakeOcr::release();
    QTRY_VERIFY(!window.findChild<SandGlass*>());
    m_edit->setParent(nullptr);
}

void TestMyEditTrans::scanBegunInTheEditorGoesIntoTheFile()
{
    open(QStringLiteral("one "));
    QSignalSpy handed(m_edit.get(), &MyEdit::signalTransText);
    swipeAndHold(u"two");
    g_InDict = true;
    m_edit->setEnabled(false); // another screen is shown
    FakeTts::setPace(FakeTts::Pace::Held);
    FakeOcr::release();
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("one two "));
    QVERIFY(handed.isEmpty());
    m_edit->readDelaySlot(); // what the delay's end does
    QVERIFY(FakeTts::texts().empty());
}

void TestMyEditTrans::scanWhoseTranslateScreenWasLeftIsAppended()
{
    open(QStringLiteral("one "));
    QSignalSpy handed(m_edit.get(), &MyEdit::signalTransText);
    g_InDict = true;
    swipeAndHold(u"two");
    g_InDict = false;
    FakeOcr::release();
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("one two "));
    QVERIFY(handed.isEmpty());
    QTRY_COMPARE(FakeTts::texts(), (std::vector<std::u16string>{u"two"}));
}

void TestMyEditTrans::scanWhoseTranslateScreenWasLeftIsSaved()
{
    open(QStringLiteral("one "));
    g_InDict = true;
    swipeAndHold(u"two");
    g_InDict = false;
    FakeOcr::release();
    m_edit->SaveAndExit();
    QCOMPARE(savedText(), QStringLiteral("one two "));
}

TEST_OBJECT(TestMyEditTrans)
#include "tst_myedit_trans.moc"
