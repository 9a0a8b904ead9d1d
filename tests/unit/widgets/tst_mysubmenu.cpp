#include "tests/unit/widgets/menufixture.h"
#include "widgets/mysubmenu.h"

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTimer>

class TestMySubMenu : public QObject
{
    Q_OBJECT

private slots:
    void init() { m = std::make_unique<Fixture>(); }
    void cleanup() { m.reset(); }

    void isAFramelessScreen();
    void numberLabelIsEmptyAtFirst();
    void showAnnouncesTheCurrentEntry();
    void showOfAnEmptyMenuAnnouncesNothing();
    void indexSurvivesHidingAndShowing();
    void downAnnouncesTheNextEntryAndItsPlaceFromTheEnd();
    void upAnnouncesThePreviousEntry();
    void upOnTheFirstAndDownOnTheLastDoNothing();
    void setCurIndexRefusesWhatIsOutside();
    void removedEntriesKeepTheIndexInside();
    void keyPressIsAnnouncedBeforeAnythingElse();
    void everyKeyStopsSpeech_data();
    void everyKeyStopsSpeech();
    void keysDuringASwipeChangeNothing_data();
    void keysDuringASwipeChangeNothing();
    void enterTriggersTheCurrentEntry();
    void enterOnAnEmptyMenuDoesNothing();
    void enterOnALeafGoesBack();
    void enterOnAQuickLeafGoesToTheQuickScreen();
    void quickFlagCountsOnce();
    void escapeGoesBack();
    void escapeOnTheTopMenuLeavesTheApplication();
    void escapeWhileSpeakingWaitsForTheWorker();
    void escapeTwiceLeavesOnce();
    void anotherScreenEndsTheLeaving();
    void hidingTheFocusedMenuPressesNoKey();
    void mouseIsIgnored();
    void slotMayDeleteTheMenu_data();
    void slotMayDeleteTheMenu();

private:
    void showQuickLeaf();
    using Fixture = MenuFixture<MySubMenu>;
    std::unique_ptr<Fixture> m;
};

static const QString EscMessage = QStringLiteral("ESC(QString) escpressed");

void TestMySubMenu::isAFramelessScreen()
{
    QVERIFY(!m->menu->isWindow());
    QVERIFY(m->menu->windowFlags().testFlag(Qt::FramelessWindowHint));
    m->fill(20);
    m->show();
    QCOMPARE(m->menu->geometry(), QRect(0, 0, 256, 64));
    QCOMPARE(m->menu->font().family(), QStringLiteral("nits"));
    QCOMPARE(m->menu->title(), QStringLiteral("Title"));
}

void TestMySubMenu::numberLabelIsEmptyAtFirst()
{
    auto* const label = m->menu->findChild<QLabel*>();
    QVERIFY(label);
    QCOMPARE(label->geometry(), QRect(224, 0, 32, 26));
    QCOMPARE(label->text(), QString());
    m->menu->setNumLabel(QStringLiteral("3/7"));
    QCOMPARE(label->text(), QStringLiteral("3/7"));
}

void TestMySubMenu::showAnnouncesTheCurrentEntry()
{
    m->fill(5);
    QVERIFY(m->menu->setCurIndex(3));
    QSignalSpy shown(m->menu, &MySubMenu::signalShow);
    m->show();
    QCOMPARE(shown.size(), 1);
    QCOMPARE(shown.at(0), (QVariantList{3, Fixture::text(3), 1}));
}

void TestMySubMenu::showOfAnEmptyMenuAnnouncesNothing()
{
    QSignalSpy shown(m->menu, &MySubMenu::signalShow);
    m->show();
    QVERIFY(m->menu->isVisible());
    QCOMPARE(shown.size(), 0);
    QCOMPARE(m->menu->getCurIndex(), 0);
}

void TestMySubMenu::indexSurvivesHidingAndShowing()
{
    m->fill(5);
    m->show();
    QVERIFY(m->menu->setCurIndex(2));
    WidgetChange::Instance()->Go2NewWidget(m->menu, &m->previous);
    QVERIFY(!m->menu->isVisible());
    WidgetChange::Instance()->Go2PrevWidget(&m->previous, m->menu);
    QCOMPARE(m->menu->getCurIndex(), 2);
}

void TestMySubMenu::downAnnouncesTheNextEntryAndItsPlaceFromTheEnd()
{
    m->fill(5);
    m->show();
    QSignalSpy down(m->menu, &MySubMenu::signalDown);
    m->press(Qt::Key_Down);
    QCOMPARE(m->menu->getCurIndex(), 1);
    QCOMPARE(down.size(), 1);
    QCOMPARE(down.at(0), (QVariantList{1, Fixture::text(1), 3}));
}

void TestMySubMenu::upAnnouncesThePreviousEntry()
{
    m->fill(5);
    m->show();
    QVERIFY(m->menu->setCurIndex(4));
    QSignalSpy up(m->menu, &MySubMenu::signalUp);
    m->press(Qt::Key_Up);
    QCOMPARE(up.size(), 1);
    QCOMPARE(up.at(0), (QVariantList{3, Fixture::text(3), 1}));
}

void TestMySubMenu::upOnTheFirstAndDownOnTheLastDoNothing()
{
    m->fill(2);
    m->show();
    QSignalSpy up(m->menu, &MySubMenu::signalUp);
    QSignalSpy down(m->menu, &MySubMenu::signalDown);
    m->press(Qt::Key_Up);
    QCOMPARE(m->menu->getCurIndex(), 0);
    QVERIFY(m->menu->setCurIndex(1));
    m->press(Qt::Key_Down);
    QCOMPARE(m->menu->getCurIndex(), 1);
    QCOMPARE(up.size() + down.size(), 0);
}

void TestMySubMenu::setCurIndexRefusesWhatIsOutside()
{
    m->fill(5);
    QVERIFY(m->menu->setCurIndex(2));
    QVERIFY(!m->menu->setCurIndex(-1));
    QVERIFY(!m->menu->setCurIndex(5));
    QCOMPARE(m->menu->getCurIndex(), 2);
    QVERIFY(m->menu->setCurIndex(4));
}

void TestMySubMenu::removedEntriesKeepTheIndexInside()
{
    m->fill(3);
    QVERIFY(m->menu->setCurIndex(1));
    delete m->menu->actions().at(1);
    QCOMPARE(m->menu->getCurIndex(), 1);
    m->menu->removeAction(m->menu->actions().at(1));
    QCOMPARE(m->menu->getCurIndex(), 0);
    m->menu->clear();
    QCOMPARE(m->menu->getCurIndex(), 0);
    QVERIFY(!m->menu->setCurIndex(0));
}

void TestMySubMenu::keyPressIsAnnouncedBeforeAnythingElse()
{
    m->fill(2);
    m->show();
    CallLog::clear();
    int calls = -1;
    connect(m->menu, &MySubMenu::signalKeyPress, this,
            [&calls] { calls = static_cast<int>(CallLog::calls("ZEMBRA_").size()); });
    m->press(Qt::Key_Down);
    QCOMPARE(calls, 0);
}

void TestMySubMenu::everyKeyStopsSpeech_data()
{
    QTest::addColumn<Qt::Key>("key");
    for (const Qt::Key key :
         {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right, Qt::Key_F5, Qt::Key_Return})
        QTest::addRow("%x", static_cast<unsigned>(key)) << key;
}

void TestMySubMenu::everyKeyStopsSpeech()
{
    QFETCH(Qt::Key, key);
    m->fill(2);
    m->show();
    TTSPlayer::Instance();
    CallLog::clear();
    m->press(key);
    QCOMPARE(CallLog::count("ZEMBRA_TTS_Stop"), 1);
}

void TestMySubMenu::keysDuringASwipeChangeNothing_data()
{
    QTest::addColumn<Qt::Key>("key");
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Return, Qt::Key_Escape})
        QTest::addRow("%x", static_cast<unsigned>(key)) << key;
}

void TestMySubMenu::keysDuringASwipeChangeNothing()
{
    QFETCH(Qt::Key, key);
    m->fill(3);
    m->show();
    QVERIFY(m->menu->setCurIndex(1));
    QSignalSpy keys(m->menu, &MySubMenu::signalKeyPress);
    QSignalSpy escaped(m->menu, &MySubMenu::escPressed);
    QSignalSpy triggered(m->menu->actions().at(1), &QAction::triggered);
    QCOMPARE(ZEMBRA_IAP_Initialize(1, 0, 0, 0), 0);
    QVERIFY(FakeIap::press());
    CallLog::clear();
    m->press(key);
    QCOMPARE(m->menu->getCurIndex(), 1);
    QCOMPARE(escaped.size() + triggered.size(), 0);
    QCOMPARE(CallLog::count("ZEMBRA_TTS_Stop"), 0);
    QCOMPARE(keys.size(), 1);
    QVERIFY(m->menu->isVisible());
    FakeIap::liftWithoutLine();
    QVERIFY(FakeIap::waitUntilIdle());
    m->press(Qt::Key_Down);
    QCOMPARE(m->menu->getCurIndex(), 2);
}

void TestMySubMenu::enterTriggersTheCurrentEntry()
{
    m->fill(3);
    m->show();
    QVERIFY(m->menu->setCurIndex(2));
    QSignalSpy other(m->menu->actions().at(0), &QAction::triggered);
    QSignalSpy triggered(m->menu->actions().at(2), &QAction::triggered);
    m->press(Qt::Key_Return);
    QCOMPARE(triggered.size(), 1);
    QCOMPARE(other.size(), 0);
    QVERIFY(m->menu->isVisible());
}

void TestMySubMenu::enterOnAnEmptyMenuDoesNothing()
{
    m->show();
    QSignalSpy escaped(m->menu, &MySubMenu::escPressed);
    m->press(Qt::Key_Return);
    m->press(Qt::Key_Up);
    m->press(Qt::Key_Down);
    QCOMPARE(escaped.size(), 0);
    QVERIFY(m->menu->isVisible());
}

void TestMySubMenu::enterOnALeafGoesBack()
{
    m->fill(3);
    m->menu->setLeafNode(true);
    m->menu->setPrevWidget(&m->previous);
    m->show();
    QVERIFY(m->menu->setCurIndex(2));
    QSignalSpy escaped(m->menu, &MySubMenu::escPressed);
    QSignalSpy chosen(m->menu, &MySubMenu::okPressed);
    QSignalSpy triggered(m->menu->actions().at(2), &QAction::triggered);
    m->press(Qt::Key_Return);
    QCOMPARE(escaped.size(), 1);
    QCOMPARE(escaped.at(0), (QVariantList{2, QString()}));
    QCOMPARE(chosen.size() + triggered.size(), 0);
    QVERIFY(!m->menu->isVisible());
    QVERIFY(!m->menu->isEnabled());
    QVERIFY(m->previous.isVisible());
    QCOMPARE(WidgetChange::Instance()->getCurWidget(), &m->previous);
    QCOMPARE(m->menu->getPrevWidget(), &m->previous);
}

/* A leaf below the quick menu. */
void TestMySubMenu::showQuickLeaf()
{
    m->fill(3);
    m->menu->setLeafNode(true);
    m->menu->setQuickFlag(true);
    m->menu->setPrevWidget(&m->previous);
    m->menu->setPrevQuickWidget(&m->quick);
    m->show();
}

void TestMySubMenu::enterOnAQuickLeafGoesToTheQuickScreen()
{
    showQuickLeaf();
    QVERIFY(m->menu->setCurIndex(1));
    QCOMPARE(ZEMBRA_IAP_Initialize(1, 0, 0, 0), 0);
    QCOMPARE(ZEMBRA_IAP_SetStopSignal(1), 0);
    QSignalSpy escaped(m->menu, &MySubMenu::escPressed);
    QSignalSpy chosen(m->menu, &MySubMenu::okPressed);
    m->press(Qt::Key_Return);
    QCOMPARE(escaped.size(), 1);
    QCOMPARE(chosen.size(), 1);
    QCOMPARE(chosen.at(0), (QVariantList{1, QString()}));
    QVERIFY(m->quick.isVisible());
    QVERIFY(!m->previous.isVisible());
    QVERIFY(!FakeIap::stopSignal());
}

void TestMySubMenu::quickFlagCountsOnce()
{
    showQuickLeaf();
    m->press(Qt::Key_Return);
    WidgetChange::Instance()->Go2NewWidget(&m->quick, m->menu);
    QSignalSpy chosen(m->menu, &MySubMenu::okPressed);
    m->press(Qt::Key_Return);
    QCOMPARE(chosen.size(), 0);
    QVERIFY(m->previous.isVisible());
}

void TestMySubMenu::escapeGoesBack()
{
    m->fill(3);
    m->menu->setPrevWidget(&m->previous);
    m->show();
    QVERIFY(m->menu->setCurIndex(1));
    QSignalSpy escaped(m->menu, &MySubMenu::escPressed);
    m->press(Qt::Key_Escape);
    QCOMPARE(escaped.size(), 1);
    QCOMPARE(escaped.at(0), (QVariantList{1, QString()}));
    QVERIFY(!m->menu->isVisible());
    QVERIFY(m->previous.isVisible());
    QVERIFY(m->window.isVisible());
    QCoreApplication::processEvents();
    QVERIFY(!m->launcher->messages().contains(EscMessage));
}

void TestMySubMenu::escapeOnTheTopMenuLeavesTheApplication()
{
    m->fill(3);
    m->show();
    QWidget other;
    other.show();
    QSignalSpy escaped(m->menu, &MySubMenu::escPressed);
    m->press(Qt::Key_Escape);
    QCOMPARE(escaped.size(), 1);
    QVERIFY(m->launcher->waitFor(EscMessage));
    QVERIFY(!m->window.isVisible());
    QVERIFY(!other.isVisible());
}

void TestMySubMenu::escapeWhileSpeakingWaitsForTheWorker()
{
    HeldWorker worker;
    worker.start();
    m->fill(3);
    m->menu->setSpeechWorker(&worker);
    m->show();
    m->press(Qt::Key_Escape);
    QVERIFY(m->window.isVisible());
    m->menu->threadQuitTalking();
    QVERIFY(m->window.isVisible());
    worker.end();
    QVERIFY(m->launcher->waitFor(EscMessage));
    QVERIFY(!m->window.isVisible());
}

void TestMySubMenu::anotherScreenEndsTheLeaving()
{
    HeldWorker worker;
    worker.start();
    m->fill(3);
    m->menu->setSpeechWorker(&worker);
    m->show();
    m->press(Qt::Key_Escape);
    WidgetChange::Instance()->Go2NewWidget(&m->previous);
    for (const QTimer* timer : m->menu->findChildren<QTimer*>())
        QVERIFY(!timer->isActive());
    worker.end();
    QVERIFY(worker.wait());
    QCoreApplication::processEvents();
    QVERIFY(m->window.isVisible());
    QVERIFY(!m->launcher->messages().contains(EscMessage));
}

void TestMySubMenu::escapeTwiceLeavesOnce()
{
    HeldWorker worker;
    worker.start();
    m->fill(3);
    m->menu->setSpeechWorker(&worker);
    m->show();
    m->press(Qt::Key_Escape);
    m->press(Qt::Key_Escape);
    worker.end();
    QVERIFY(worker.wait());
    QVERIFY(m->launcher->waitFor(EscMessage));
    // A second look waiting in the queue would come before a timer that is started now.
    QTimer later;
    later.setSingleShot(true);
    QSignalSpy over(&later, &QTimer::timeout);
    later.start(20);
    QVERIFY(over.wait());
    QCOMPARE(m->launcher->messages().count(EscMessage), 1);
}

void TestMySubMenu::hidingTheFocusedMenuPressesNoKey()
{
    QWidget other(&m->window);
    other.setFocusPolicy(Qt::StrongFocus);
    m->fill(3);
    m->menu->setFocusPolicy(Qt::StrongFocus);
    m->show();
    m->window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&m->window));
    QTRY_VERIFY(m->menu->hasFocus());
    QSignalSpy keys(m->menu, &MySubMenu::signalKeyPress);
    m->menu->hide();
    m->menu->setEnabled(false);
    QCoreApplication::processEvents();
    QCOMPARE(keys.size(), 0);
}

void TestMySubMenu::mouseIsIgnored()
{
    m->fill(3);
    m->show();
    QSignalSpy keys(m->menu, &MySubMenu::signalKeyPress);
    QSignalSpy triggered(m->menu, &QMenu::triggered);
    const QPointF place(20, 56);
    for (const QEvent::Type type :
         {QEvent::MouseMove, QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, place, place, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        event.accept();
        QCoreApplication::sendEvent(m->menu, &event);
    }
    QCOMPARE(keys.size() + triggered.size(), 0);
    QCOMPARE(m->menu->getCurIndex(), 0);
    QVERIFY(m->menu->isVisible());
    QVERIFY(!m->menu->activeAction());
}

void TestMySubMenu::slotMayDeleteTheMenu_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<bool>("leaf");
    QTest::addColumn<bool>("quick");
    QTest::newRow("moved") << Qt::Key_Down << false << false;
    QTest::newRow("triggered") << Qt::Key_Return << false << false;
    QTest::newRow("chosen") << Qt::Key_Return << true << false;
    QTest::newRow("chosen quickly") << Qt::Key_Return << true << true;
    QTest::newRow("left") << Qt::Key_Escape << false << false;
}

void TestMySubMenu::slotMayDeleteTheMenu()
{
    QFETCH(Qt::Key, key);
    QFETCH(bool, leaf);
    QFETCH(bool, quick);
    m->fill(3);
    m->menu->setLeafNode(leaf);
    m->menu->setQuickFlag(quick);
    m->show();
    MySubMenu* const menu = m->menu;
    const QPointer<MySubMenu> alive(menu);
    const auto destroy = [menu] { delete menu; };
    connect(menu, &MySubMenu::signalDown, menu, destroy);
    connect(menu, &MySubMenu::okPressed, menu, destroy);
    if (!quick)
        connect(menu, &MySubMenu::escPressed, menu, destroy);
    connect(menu->actions().at(0), &QAction::triggered, menu, &QObject::deleteLater);
    QTest::keyClick(menu, key);
    QTRY_VERIFY(!alive);
    QVERIFY(m->window.isVisible());
}

QTEST_MAIN(TestMySubMenu)
#include "tst_mysubmenu.moc"
