#include "tests/unit/widgets/menufixture.h"
#include "widgets/mymenu.h"
#include "widgets/mysubmenu.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTimerEvent>

/* What both kinds of menu do alike: speaking their entries and the slow scroll; and MyMenu's own
 * signals. */
class TestMenuSpeech : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void currentEntryIsSpoken();
    void endOfSpeechIsTold();
    void ttsFirstSilencesWhatIsSpoken();
    void newerEntryReplacesTheOneBeingSpoken();
    void onlyTheMenuThatTalksHearsTheEnd();
    void nothingIsSaidWithoutEntries();
    void nothingIsSaidWithoutAWorker();
    void workerThatDiesIsForgotten();
    void myMenuAnnouncesIndexAndText();
    void myMenuLeavesWithoutWaiting();
    void longEntryScrollsWhileItIsCurrent();
    void entryThatFitsDoesNotScroll();
    void hiddenMenuDoesNotScroll();
    void animationCanBeSwitchedOff();

private:
    using Fixture = MenuFixture<MySubMenu>;
    std::unique_ptr<Fixture> m;
    std::unique_ptr<CTTSThread> m_worker;
};

static const QString SoundYes = QStringLiteral("execute(QString) soundyes");
static const QString SoundNo = QStringLiteral("execute(QString) soundno");
static const QString LongText =
    QStringLiteral("An entry that is much longer than its row has room");

void TestMenuSpeech::init()
{
    m = std::make_unique<Fixture>();
    m_worker = std::make_unique<CTTSThread>();
    m->menu->setSpeechWorker(m_worker.get());
    FakeTts::setPace(FakeTts::Pace::Held);
    m->fill(3);
    m->show();
}

void TestMenuSpeech::cleanup()
{
    m_worker.reset();
    m.reset();
}

void TestMenuSpeech::currentEntryIsSpoken()
{
    QVERIFY(m->menu->setCurIndex(1));
    m->menu->ttsCurentItem();
    QVERIFY(m->menu->isTalking());
    QVERIFY(FakeTts::waitUntilSpeaking());
    QCOMPARE(QString::fromStdU16String(FakeTts::texts().back()), Fixture::text(1));
    QVERIFY(m->launcher->waitFor(SoundYes));
    QVERIFY(FakeTts::finish());
}

void TestMenuSpeech::endOfSpeechIsTold()
{
    m->menu->ttsCurentItem();
    QVERIFY(FakeTts::waitUntilSpeaking());
    QVERIFY(FakeTts::finish());
    QVERIFY(m->launcher->waitFor(SoundNo));
    QVERIFY(!m->menu->isTalking());
    QCOMPARE(m->launcher->messages(), (QStringList{SoundYes, SoundNo}));
}

void TestMenuSpeech::ttsFirstSilencesWhatIsSpoken()
{
    m->menu->ttsCurentItem();
    QVERIFY(FakeTts::waitUntilSpeaking());
    CallLog::clear();
    QVERIFY(m->menu->setCurIndex(2));
    m->menu->ttsFirst();
    QVERIFY(CallLog::count("ZEMBRA_TTS_Stop") >= 1);
    // The worker may have been ending as the text came: then it starts again from the event loop.
    QTRY_VERIFY(CallLog::count("ZEMBRA_TTS_Play") > 0);
    QVERIFY(FakeTts::waitUntilSpeaking());
    QCOMPARE(QString::fromStdU16String(FakeTts::texts().back()), Fixture::text(2));
    QVERIFY(FakeTts::finish());
    QVERIFY(m->launcher->waitFor(SoundNo));
}

void TestMenuSpeech::newerEntryReplacesTheOneBeingSpoken()
{
    for (int index : {0, 1, 2}) {
        QVERIFY(m->menu->setCurIndex(index));
        m->menu->ttsFirst();
    }
    QTRY_COMPARE(QString::fromStdU16String(FakeTts::texts().empty() ? std::u16string()
                                                                    : FakeTts::texts().back()),
                 Fixture::text(2));
    QVERIFY(FakeTts::waitUntilSpeaking());
    QVERIFY(m->menu->isTalking());
    QVERIFY(FakeTts::finish());
    QVERIFY(m->launcher->waitFor(SoundNo));
    QVERIFY(!m->menu->isTalking());
}

void TestMenuSpeech::onlyTheMenuThatTalksHearsTheEnd()
{
    MySubMenu other(QStringLiteral("Other"), &m->window);
    other.setSpeechWorker(m_worker.get());
    m->menu->ttsCurentItem();
    QVERIFY(FakeTts::waitUntilSpeaking());
    QVERIFY(FakeTts::finish());
    QVERIFY(m->launcher->waitFor(SoundNo));
    QVERIFY(m_worker->wait());
    QCoreApplication::processEvents();
    QCOMPARE(m->launcher->messages().count(SoundNo), 1);
}

void TestMenuSpeech::nothingIsSaidWithoutEntries()
{
    m->menu->clear();
    m->menu->ttsCurentItem();
    QVERIFY(!m->menu->isTalking());
    QVERIFY(!m_worker->isRunning());
    QCoreApplication::processEvents();
    QCOMPARE(m->launcher->messages(), QStringList());
}

void TestMenuSpeech::nothingIsSaidWithoutAWorker()
{
    m->menu->setSpeechWorker(nullptr);
    m->menu->ttsFirst();
    QVERIFY(!m->menu->isTalking());
    QCoreApplication::processEvents();
    QCOMPARE(m->launcher->messages(), QStringList());
}

void TestMenuSpeech::workerThatDiesIsForgotten()
{
    m->menu->ttsCurentItem();
    QVERIFY(FakeTts::waitUntilSpeaking());
    m_worker.reset();
    m->menu->ttsCurentItem();
    m->press(Qt::Key_Escape);
    QVERIFY(!m->window.isVisible());
}

void TestMenuSpeech::myMenuAnnouncesIndexAndText()
{
    MyMenu menu(QStringLiteral("Title"), &m->window);
    for (int i = 0; i < 3; ++i)
        menu.addAction(Fixture::text(i));
    QSignalSpy shown(&menu, &MyMenu::signalShow);
    QSignalSpy up(&menu, &MyMenu::signalUp);
    QSignalSpy down(&menu, &MyMenu::signalDown);
    menu.show();
    QTest::keyClick(&menu, Qt::Key_Down);
    QTest::keyClick(&menu, Qt::Key_Up);
    QTest::keyClick(&menu, Qt::Key_Up);
    QCOMPARE(shown, (QList<QVariantList>{{0, Fixture::text(0)}}));
    QCOMPARE(down, (QList<QVariantList>{{1, Fixture::text(1)}}));
    QCOMPARE(up, (QList<QVariantList>{{0, Fixture::text(0)}}));
}

void TestMenuSpeech::myMenuLeavesWithoutWaiting()
{
    HeldWorker worker;
    worker.start();
    MyMenu menu(QStringLiteral("Title"), &m->window);
    menu.setSpeechWorker(&worker);
    menu.show();
    menu.ExitWithoutDelete();
    QVERIFY(!m->window.isVisible());
    QVERIFY(m->launcher->waitFor(QStringLiteral("ESC(QString) escpressed")));
}

void TestMenuSpeech::longEntryScrollsWhileItIsCurrent()
{
    m->menu->addAction(LongText);
    QCOMPARE(m->menu->scrollTimerId(), -1);
    QVERIFY(m->menu->setCurIndex(3));
    QVERIFY(m->menu->scrollTimerId() != -1);
    const QImage start = m->menu->grab().toImage();
    for (int i = 0; i <= slowscroll::RestTicks; ++i) {
        QTimerEvent tick(m->menu->scrollTimerId());
        QCoreApplication::sendEvent(m->menu, &tick);
    }
    QVERIFY(m->menu->grab().toImage() != start);
    QVERIFY(m->menu->setCurIndex(3));
    QCOMPARE(m->menu->grab().toImage(), start);
    m->press(Qt::Key_Up);
    QCOMPARE(m->menu->scrollTimerId(), -1);
}

void TestMenuSpeech::entryThatFitsDoesNotScroll()
{
    QCOMPARE(m->menu->scrollTimerId(), -1);
    m->menu->actions().at(0)->setText(LongText);
    QVERIFY(m->menu->scrollTimerId() != -1);
    m->menu->actions().at(0)->setText(QStringLiteral("short"));
    QCOMPARE(m->menu->scrollTimerId(), -1);
}

void TestMenuSpeech::hiddenMenuDoesNotScroll()
{
    m->menu->actions().at(0)->setText(LongText);
    m->menu->hide();
    QCOMPARE(m->menu->scrollTimerId(), -1);
    m->menu->show();
    QVERIFY(m->menu->scrollTimerId() != -1);
}

void TestMenuSpeech::animationCanBeSwitchedOff()
{
    m->menu->actions().at(0)->setText(LongText);
    QVERIFY(m->menu->setProperty("animated", false));
    QCOMPARE(m->menu->scrollTimerId(), -1);
    QVERIFY(m->menu->setProperty("animated", true));
    QVERIFY(m->menu->scrollTimerId() != -1);
}

QTEST_MAIN(TestMenuSpeech)
#include "tst_menuspeech.moc"
