#include "tests/fakes/calls.h"
#include "tests/shared/testobjects.h"
#include "tests/unit/editor/editorfixture.h"

#include <QAbstractEventDispatcher>
#include <QSignalSpy>
#include <QTest>

namespace {

const QString TooBigToOpen =
    QStringLiteral("The file is too big, do not edit the file in computer.");

const QString Kept = QStringLiteral("The text is kept in the pen.");
const QString Damaged = QStringLiteral("File system is damaged, please connect to PC and repair.");

} // namespace

/* The file of the editor: opened, kept, saved and left. */
class TestMyEditFile : public EditorFixture
{
    Q_OBJECT

private slots:
    void bindingLoadsTheTextAndStartsTheEngine();
    void fileAtTheLimitIsOpened();
    void fileOverTheLimitOpensEmptyAndIsNeverSaved();
    void paragraphBreakCountsOneMoreThanItsLength();
    void fileOf65537BytesIsNotAutoSaved();
    void noBreakSpaceSurvives();
    void escapeWithoutFileOnlyAsks();
    void escapeSavesAndGoesBack();
    void textThatTheCardRefusesIsKeptAndComesBack();
    void failedSaveKeepsTextAndScreen();
    void stopOnlyLeavesTheFileAlone();
    void autoSaveTimerSaves();
    void arrowsWalkWords();
    void wordAtTheCursor();
};

void TestMyEditFile::bindingLoadsTheTextAndStartsTheEngine()
{
    open(QStringLiteral("one\r\ntwo "));
    QVERIFY(m_edit->isBound());
    QCOMPARE(m_edit->documentText(), QStringLiteral("one\ntwo "));
    QCOMPARE(m_edit->getCurPosition(), 8);
    QVERIFY(FakeIap::isStarted());
    QVERIFY(m_messages->texts().isEmpty());
}

void TestMyEditFile::fileAtTheLimitIsOpened()
{
    open(QString(32768, u'a'));
    QVERIFY(m_edit->isBound());
    QCOMPARE(m_edit->documentText().size(), 32768);
}

void TestMyEditFile::fileOverTheLimitOpensEmptyAndIsNeverSaved()
{
    const QString text(32769, u'a');
    open(text);
    QCOMPARE(m_messages->texts(), QStringList{TooBigToOpen});
    QVERIFY(!m_edit->isBound());
    QVERIFY(m_edit->documentText().isEmpty());
    QVERIFY(!FakeIap::isStarted());
    QVERIFY(!m_edit->SaveOnly());
    m_edit->SaveAndExit();
    QCOMPARE(savedText(), text);
}

void TestMyEditFile::paragraphBreakCountsOneMoreThanItsLength()
{
    const QString paragraph = QStringLiteral("\n    ");
    open(QString(32'763, u'a'));
    QVERIFY(!m_edit->appendText(paragraph)); // five characters would just fit
    m_edit->setPlainText(QString(32'762, u'a'));
    QVERIFY(m_edit->appendText(paragraph));
}

void TestMyEditFile::fileOf65537BytesIsNotAutoSaved()
{
    const QString text(32'769, u'a');
    open(text);
    QVERIFY(m_edit->documentText().isEmpty());
    QCOMPARE(m_edit->autoSaveTimer(), 0);
    m_edit->insertPlainText(QStringLiteral("other"));
    QTimerEvent due(m_edit->autoSaveTimer());
    QCoreApplication::sendEvent(m_edit.get(), &due);
    QVERIFY(!m_edit->SaveOnly());
    QCOMPARE(savedText(), text);
}

void TestMyEditFile::noBreakSpaceSurvives()
{
    open(QStringLiteral("10\u00a0km"));
    QVERIFY(m_edit->SaveOnly());
    QCOMPARE(savedText(), QStringLiteral("10\u00a0km"));
}

void TestMyEditFile::escapeWithoutFileOnlyAsks()
{
    m_state->load();
    m_edit = std::make_unique<MyEdit>();
    QSignalSpy asked(m_edit.get(), &MyEdit::signalEsc);
    QSignalSpy left(m_edit.get(), &MyEdit::signalDelete);
    QTest::keyClick(m_edit.get(), Qt::Key_Escape);
    QCOMPARE(asked.count(), 1);
    QCOMPARE(left.count(), 0);
    QCOMPARE(fakes::calls("ZEMBRA_IAP_Uninitialize").size(), 0);
}

void TestMyEditFile::escapeSavesAndGoesBack()
{
    open(QStringLiteral("one"));
    m_edit->appendText(QStringLiteral("\ntwo"));
    QStringList order;
    connect(m_edit.get(), &MyEdit::signalEsc, this, [&] { order.append(QStringLiteral("esc")); });
    connect(m_edit.get(), &MyEdit::signalDelete, this, [&] {
        order.append(m_edit->isVisible() ? QStringLiteral("early") : QStringLiteral("delete"));
    });
    QTest::keyClick(m_edit.get(), Qt::Key_Escape);
    QCOMPARE(order, (QStringList{QStringLiteral("esc"), QStringLiteral("delete")}));
    QCOMPARE(savedText(), QStringLiteral("one\r\ntwo "));
    QVERIFY(m_edit->documentText().isEmpty());
    QVERIFY(!m_edit->isBound());
    QVERIFY(!FakeIap::isStarted());
    QVERIFY(m_previous->isVisible());
    QCOMPARE(WidgetChange::Instance()->getCurWidget(), m_previous.get());
}

void TestMyEditFile::textThatTheCardRefusesIsKeptAndComesBack()
{
    open(QStringLiteral("old "));
    m_edit->appendText(QStringLiteral("precious"));
    const QString path = m_state->root.path(QStringLiteral("/mnt/mmc/e_ScanFile/notes.txt"));
    QVERIFY(QFile::remove(path));
    QVERIFY(QDir().mkpath(path + QStringLiteral("/in the way")));
    QTest::keyClick(m_edit.get(), Qt::Key_Escape);
    QCOMPARE(m_messages->texts(), (QStringList{Damaged, Kept}));
    QVERIFY(!m_edit->isBound());
    QVERIFY(m_previous->isVisible());

    FileInfo info;
    QVERIFY(FileManager::Instance()->getInfoByID(0, info));
    QCOMPARE(m_edit->setFileInfo(info), 0); // while the card still fails
    QCOMPARE(m_edit->documentText(), QStringLiteral("old precious "));

    QVERIFY(QDir(path).removeRecursively());
    QCOMPARE(m_edit->setFileInfo(info), 0);
    QCOMPARE(m_edit->documentText(), QStringLiteral("old precious "));
    QCOMPARE(savedText(), QStringLiteral("old precious "));
}

void TestMyEditFile::failedSaveKeepsTextAndScreen()
{
    open(QStringLiteral("precious"));
    QVERIFY(QDir().mkpath(m_state->root.path(QStringLiteral("/apps/config/store.jnl"))));
    const QString path = m_state->root.path(QStringLiteral("/mnt/mmc/e_ScanFile/notes.txt"));
    QVERIFY(QFile::remove(path));
    QVERIFY(QDir().mkpath(path + QStringLiteral("/in the way")));
    QTest::keyClick(m_edit.get(), Qt::Key_Escape);
    QCOMPARE(m_messages->texts(), QStringList{Damaged});
    QCOMPARE(m_edit->documentText(), QStringLiteral("precious"));
    QVERIFY(m_edit->isBound());
    QVERIFY(m_edit->isVisible());

    QVERIFY(QDir(path).removeRecursively());
    QTest::keyClick(m_edit.get(), Qt::Key_Escape);
    QCOMPARE(savedText(), QStringLiteral("precious"));
    QVERIFY(m_previous->isVisible());
}

void TestMyEditFile::stopOnlyLeavesTheFileAlone()
{
    open(QStringLiteral("one"));
    m_edit->appendText(QStringLiteral("two"));
    m_edit->StopOnly();
    QVERIFY(m_edit->documentText().isEmpty());
    QVERIFY(!FakeIap::isStarted());
    QCOMPARE(savedText(), QStringLiteral("one"));
}

void TestMyEditFile::autoSaveTimerSaves()
{
    open(QStringLiteral("one "));
    int period = 0;
    const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(m_edit.get());
    for (const QAbstractEventDispatcher::TimerInfo& timer : timers)
        period = timer.timerId == m_edit->autoSaveTimer() ? timer.interval : period;
    QCOMPARE(period, 300'000);
    m_edit->appendText(QStringLiteral("two"));
    QTimerEvent foreign(m_edit->autoSaveTimer() + 1000);
    QCoreApplication::sendEvent(m_edit.get(), &foreign);
    QCOMPARE(savedText(), QStringLiteral("one "));
    QTimerEvent due(m_edit->autoSaveTimer());
    QCoreApplication::sendEvent(m_edit.get(), &due);
    QCOMPARE(savedText(), QStringLiteral("one two "));
    QVERIFY(m_edit->isBound());
}

void TestMyEditFile::arrowsWalkWords()
{
    open(QStringLiteral("one two\nthree"));
    QTest::keyClick(m_edit.get(), Qt::Key_Left);
    QCOMPARE(m_edit->getCurPosition(), 8);
    QTest::keyClick(m_edit.get(), Qt::Key_Left);
    QCOMPARE(m_edit->getCurPosition(), 4);
    QTest::keyClick(m_edit.get(), Qt::Key_Right);
    QCOMPARE(m_edit->getCurPosition(), 8);
    QTest::keyClick(m_edit.get(), Qt::Key_Up);
    QCOMPARE(m_edit->getCurPosition(), 0);
    QTest::keyClick(m_edit.get(), Qt::Key_Left);
    QCOMPARE(m_edit->getCurPosition(), 0);
}

void TestMyEditFile::wordAtTheCursor()
{
    open(QStringLiteral("one, two"));
    QCOMPARE(m_edit->getWordFromMyEdit(), QStringLiteral("two"));
    m_edit->gotoBeginEdit();
    QCOMPARE(m_edit->getWordFromMyEdit(), QStringLiteral("one"));
}

TEST_OBJECT(TestMyEditFile)
#include "tst_myedit_file.moc"
