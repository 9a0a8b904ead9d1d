#include "tests/unit/widgets/pagefixture.h"
#include "widgets/spinitems.h"
#include "widgets/ttsconfig.h"

#include <QApplication>
#include <QPointer>
#include <QSignalSpy>

using Calls = QList<QVariantList>;

/* The settings page, key by key. */
class TestTtsConfig : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void startsOnTheFirstRow();
    void showingTellsTheCurrentRow();
    void pageOfFiveRowsShowsTheLastTwo();
    void rowsArePlacedBelowEachOther();
    void heightOfTheFirstRowPlacesAll();
    void onlyTheCurrentRowIsSelected();
    void shownRowsAreEnabled();
    void hideAllHidesEveryRow();
    void setCurIndexRefusesWhatIsOutside();
    void sameRowTwiceAndNoRowAreIgnored();
    void emptyPageOnlyLeaves();

    void upMovesAndStopsAtTheFirst();
    void downMovesAndStopsAtTheLast();
    void leftStepsBack();
    void rightStepsOnAndWraps();
    void changeIsTriggeredBeforeItIsTold();
    void enterStepsARow();
    void enterOnALeftRightRowLeaves();
    void enterOnAQuickPageGoesToTheQuickScreen();
    void orderOfSignalsWhenLeftQuickly();
    void quickFlagCountsOnce();
    void quickPageWithoutAQuickScreenGoesBack();
    void escapeGoesBack();
    void escapeOnAQuickPageGoesBackToThePreviousScreen();
    void escapeOnTheTopPageClosesTheWindows();
    void enterOnTheTopPageClosesTheWindows();
    void deletedPreviousScreenCountsAsNone();
    void otherKeysReachTheParent();
    void keysDuringASwipeChangeNothing_data();
    void keysDuringASwipeChangeNothing();
    void slotMayDeleteThePage_data();
    void slotMayDeleteThePage();

private:
    using Fixture = PageFixture<TTSConfig>;
    SpinItems* addRow();
    void addRows(int count);
    QList<bool> visible() const;

    std::unique_ptr<Fixture> m;
    QList<SpinItems*> m_rows;
};

void TestTtsConfig::init()
{
    m = std::make_unique<Fixture>();
    m_rows.clear();
}

void TestTtsConfig::cleanup()
{
    m.reset();
}

// Row N is labelled "RowN " and offers A, B and C.
SpinItems* TestTtsConfig::addRow()
{
    auto* row = new SpinItems;
    row->setText1(QStringLiteral("Row%1 ").arg(m_rows.size()));
    for (const char* value : {"A", "B", "C"})
        row->addItem(QLatin1String(value));
    m->page->addItem(row);
    m_rows.append(row);
    return row;
}

void TestTtsConfig::addRows(int count)
{
    for (int i = 0; i < count; ++i)
        addRow();
}

QList<bool> TestTtsConfig::visible() const
{
    QList<bool> shown;
    for (const SpinItems* row : m_rows)
        shown.append(row->isVisible());
    return shown;
}

void TestTtsConfig::startsOnTheFirstRow()
{
    QCOMPARE(m->page->getCurIndex(), 0);
    QVERIFY(!m->page->getPrevWidget());
    QVERIFY(!m->page->getMessWidget());
}

void TestTtsConfig::showingTellsTheCurrentRow()
{
    addRows(3);
    QVERIFY(m->page->setCurIndex(1));
    m_rows.at(1)->setCurIndex(2);
    QSignalSpy shown(m->page, &TTSConfig::signalShow);
    m->show();
    QCOMPARE(shown, (Calls{{1, QStringLiteral("Row1 C")}}));
}

void TestTtsConfig::pageOfFiveRowsShowsTheLastTwo()
{
    addRows(5);
    m->show();
    QCOMPARE(visible(), (QList<bool>{true, true, true, false, false}));
    QVERIFY(m->page->setCurIndex(4));
    QCOMPARE(visible(), (QList<bool>{false, false, false, true, true}));
    m->press(Qt::Key_Up);
    QCOMPARE(visible(), (QList<bool>{false, false, false, true, true}));
    m->press(Qt::Key_Up);
    QCOMPARE(visible(), (QList<bool>{true, true, true, false, false}));
}

void TestTtsConfig::rowsArePlacedBelowEachOther()
{
    addRows(5);
    m->show();
    for (int i = 0; i < 3; ++i)
        QCOMPARE(m_rows.at(i)->geometry(), QRect(0, 4 + 20 * i, 246, 20));
    QVERIFY(m->page->setCurIndex(3));
    QCOMPARE(m_rows.at(3)->y(), 4);
    QCOMPARE(m_rows.at(4)->y(), 24);
}

void TestTtsConfig::heightOfTheFirstRowPlacesAll()
{
    addRows(3);
    m_rows.at(0)->resize(246, 18);
    m->show();
    QCOMPARE(m_rows.at(1)->y(), 22);
    QCOMPARE(m_rows.at(2)->y(), 40);
}

void TestTtsConfig::onlyTheCurrentRowIsSelected()
{
    addRows(5);
    m->show();
    for (int current = 0; current < 5; ++current) {
        QVERIFY(m->page->setCurIndex(current));
        for (int i = 0; i < 5; ++i)
            QCOMPARE(m_rows.at(i)->isSelected(), i == current);
    }
}

void TestTtsConfig::shownRowsAreEnabled()
{
    addRows(2);
    m_rows.at(1)->setEnabled(false);
    m->show();
    QVERIFY(m_rows.at(1)->isEnabled());
}

void TestTtsConfig::hideAllHidesEveryRow()
{
    addRows(3);
    m->show();
    m->page->hideAll();
    QCOMPARE(visible(), (QList<bool>{false, false, false}));
    m->page->showPage();
    QCOMPARE(visible(), (QList<bool>{true, true, true}));
}

void TestTtsConfig::setCurIndexRefusesWhatIsOutside()
{
    QVERIFY(!m->page->setCurIndex(0));
    addRows(3);
    QVERIFY(m->page->setCurIndex(2));
    QVERIFY(!m->page->setCurIndex(-1));
    QVERIFY(!m->page->setCurIndex(3));
    QCOMPARE(m->page->getCurIndex(), 2);
}

void TestTtsConfig::sameRowTwiceAndNoRowAreIgnored()
{
    addRows(1);
    m->page->addItem(m_rows.at(0));
    m->page->addItem(nullptr);
    QVERIFY(!m->page->setCurIndex(1));
    m->show();
    addRows(1);
    QVERIFY(m_rows.at(1)->isVisible());
}

void TestTtsConfig::emptyPageOnlyLeaves()
{
    m->page->setPrevWidget(&m->previous);
    QSignalSpy shown(m->page, &TTSConfig::signalShow);
    QSignalSpy up(m->page, &TTSConfig::signalUp);
    QSignalSpy down(m->page, &TTSConfig::signalDown);
    QSignalSpy escaped(m->page, &TTSConfig::escPressed);
    m->show();
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right})
        m->press(key);
    QVERIFY(!m->page->grab().isNull());
    QCOMPARE(shown.size() + up.size() + down.size() + escaped.size(), 0);
    m->press(Qt::Key_Return);
    QCOMPARE(escaped.size(), 1);
    QVERIFY(m->previous.isVisible());
}

void TestTtsConfig::upMovesAndStopsAtTheFirst()
{
    addRows(3);
    m->show();
    QVERIFY(m->page->setCurIndex(1));
    QSignalSpy up(m->page, &TTSConfig::signalUp);
    m->press(Qt::Key_Up);
    m->press(Qt::Key_Up);
    QCOMPARE(up, (Calls{{0, QStringLiteral("Row0 A")}, {0, QStringLiteral("Row0 A")}}));
    QCOMPARE(m->page->getCurIndex(), 0);
}

void TestTtsConfig::downMovesAndStopsAtTheLast()
{
    addRows(2);
    m->show();
    QSignalSpy down(m->page, &TTSConfig::signalDown);
    m->press(Qt::Key_Down);
    m->press(Qt::Key_Down);
    QCOMPARE(down, (Calls{{1, QStringLiteral("Row1 A")}, {1, QStringLiteral("Row1 A")}}));
    QCOMPARE(m->page->getCurIndex(), 1);
}

void TestTtsConfig::leftStepsBack()
{
    addRows(2);
    m->show();
    QVERIFY(m->page->setCurIndex(1));
    QSignalSpy triggered(m_rows.at(1), &SpinItems::triggered);
    QSignalSpy other(m_rows.at(0), &SpinItems::triggered);
    QSignalSpy up(m->page, &TTSConfig::signalUp);
    m->press(Qt::Key_Left);
    QCOMPARE(triggered, (Calls{{2, QStringLiteral("C")}}));
    QCOMPARE(up, (Calls{{1, QStringLiteral("   C")}}));
    QCOMPARE(other.size(), 0);
}

void TestTtsConfig::rightStepsOnAndWraps()
{
    addRows(1);
    m->show();
    m_rows.at(0)->setCurIndex(2);
    QSignalSpy triggered(m_rows.at(0), &SpinItems::triggered);
    QSignalSpy up(m->page, &TTSConfig::signalUp);
    QSignalSpy down(m->page, &TTSConfig::signalDown);
    m->press(Qt::Key_Right);
    QCOMPARE(triggered, (Calls{{0, QStringLiteral("A")}}));
    QCOMPARE(up, (Calls{{0, QStringLiteral("   A")}}));
    QCOMPARE(down.size(), 0);
}

void TestTtsConfig::changeIsTriggeredBeforeItIsTold()
{
    addRows(1);
    m->show();
    QStringList order;
    connect(m_rows.at(0), &SpinItems::triggered, this,
            [&](int, const QString& text) { order.append(QStringLiteral("triggered ") + text); });
    connect(m->page, &TTSConfig::signalUp, this,
            [&](int, const QString& text) { order.append(QStringLiteral("told") + text); });
    m->press(Qt::Key_Right);
    m->press(Qt::Key_Left);
    QCOMPARE(order, (QStringList{QStringLiteral("triggered B"), QStringLiteral("told   B"),
                                 QStringLiteral("triggered A"), QStringLiteral("told   A")}));
}

void TestTtsConfig::enterStepsARow()
{
    addRows(1);
    m->show();
    QSignalSpy triggered(m_rows.at(0), &SpinItems::triggered);
    QSignalSpy up(m->page, &TTSConfig::signalUp);
    QSignalSpy escaped(m->page, &TTSConfig::escPressed);
    m->press(Qt::Key_Return);
    QCOMPARE(triggered, (Calls{{2, QStringLiteral("C")}}));
    QCOMPARE(up.size() + escaped.size(), 0);
    QVERIFY(m->page->isVisible());
}

void TestTtsConfig::enterOnALeftRightRowLeaves()
{
    addRows(2);
    m_rows.at(1)->setLeftRightClick(true);
    m->page->setPrevWidget(&m->previous);
    m->page->setPrevQuickWidget(&m->quick);
    m->show();
    QVERIFY(m->page->setCurIndex(1));
    QSignalSpy triggered(m_rows.at(1), &SpinItems::triggered);
    QSignalSpy chosen(m->page, &TTSConfig::okPressed);
    QSignalSpy chosenQuickly(m->page, &TTSConfig::okPressedForQuick);
    QSignalSpy escaped(m->page, &TTSConfig::escPressed);
    m->press(Qt::Key_Return);
    QCOMPARE(escaped.size(), 1);
    QCOMPARE(chosen.size() + chosenQuickly.size() + triggered.size(), 0);
    QVERIFY(!m->page->isVisible());
    QCOMPARE(WidgetChange::Instance()->getCurWidget(), &m->previous);
    QCOMPARE(m->page->getMessWidget(), &m->previous);
    QCOMPARE(m_rows.at(1)->getCurIndex(), 0);
}

void TestTtsConfig::enterOnAQuickPageGoesToTheQuickScreen()
{
    addRow()->setLeftRightClick(true);
    m->page->setQuickFlag(true);
    m->page->setPrevWidget(&m->previous);
    m->page->setPrevQuickWidget(&m->quick);
    m->show();
    QSignalSpy chosen(m->page, &TTSConfig::okPressed);
    QSignalSpy chosenQuickly(m->page, &TTSConfig::okPressedForQuick);
    m->press(Qt::Key_Return);
    QCOMPARE(chosen, (Calls{{0, QString()}}));
    QCOMPARE(chosenQuickly, (Calls{{0, QString()}}));
    QCOMPARE(WidgetChange::Instance()->getCurWidget(), &m->quick);
    QCOMPARE(m->page->getMessWidget(), &m->quick);
    QVERIFY(!m->previous.isVisible());
}

void TestTtsConfig::orderOfSignalsWhenLeftQuickly()
{
    addRow()->setLeftRightClick(true);
    m->page->setQuickFlag(true);
    m->page->setPrevQuickWidget(&m->quick);
    m->show();
    QStringList order;
    const auto note = [&](const char* name) {
        return [this, &order, name] {
            order.append(QLatin1String(name));
            QVERIFY(m->page->getMessWidget() == &m->quick && m->quick.isVisible());
        };
    };
    connect(m->page, &TTSConfig::escPressed, this, note("esc"));
    connect(m->page, &TTSConfig::okPressedForQuick, this, note("okForQuick"));
    connect(m->page, &TTSConfig::okPressed, this, note("ok"));
    m->press(Qt::Key_Return);
    QCOMPARE(order, (QStringList{QStringLiteral("ok"), QStringLiteral("okForQuick"),
                                 QStringLiteral("esc")}));
}

void TestTtsConfig::quickFlagCountsOnce()
{
    addRow()->setLeftRightClick(true);
    m->page->setQuickFlag(true);
    m->page->setPrevWidget(&m->previous);
    m->page->setPrevQuickWidget(&m->quick);
    m->show();
    m->press(Qt::Key_Return);
    WidgetChange::Instance()->Go2NewWidget(&m->quick, m->page);
    QSignalSpy chosen(m->page, &TTSConfig::okPressed);
    m->press(Qt::Key_Return);
    QCOMPARE(chosen.size(), 0);
    QCOMPARE(m->page->getMessWidget(), &m->previous);
}

void TestTtsConfig::quickPageWithoutAQuickScreenGoesBack()
{
    addRow()->setLeftRightClick(true);
    m->page->setQuickFlag(true);
    m->page->setPrevWidget(&m->previous);
    m->show();
    m->press(Qt::Key_Return);
    QVERIFY(m->previous.isVisible());
    QVERIFY(m->window.isVisible());
}

void TestTtsConfig::escapeGoesBack()
{
    addRows(2);
    m->page->setPrevWidget(&m->previous);
    m->show();
    QSignalSpy triggered(m_rows.at(0), &SpinItems::triggered);
    int visibleWhenTold = -1;
    connect(m->page, &TTSConfig::escPressed, this,
            [&] { visibleWhenTold = m->previous.isVisible() ? 1 : 0; });
    m->press(Qt::Key_Escape);
    QCOMPARE(visibleWhenTold, 1);
    QCOMPARE(triggered.size(), 0);
    QVERIFY(!m->page->isVisible());
    QVERIFY(!m->page->isEnabled());
    QVERIFY(m->window.isVisible());
    QCOMPARE(m->page->getMessWidget(), &m->previous);
    QCOMPARE(m->page->getPrevWidget(), &m->previous);
}

void TestTtsConfig::escapeOnAQuickPageGoesBackToThePreviousScreen()
{
    addRows(1);
    m->page->setQuickFlag(true);
    m->page->setPrevWidget(&m->previous);
    m->page->setPrevQuickWidget(&m->quick);
    m->show();
    QSignalSpy chosen(m->page, &TTSConfig::okPressed);
    m->press(Qt::Key_Escape);
    QVERIFY(m->previous.isVisible());
    QVERIFY(!m->quick.isVisible());
    QCOMPARE(chosen.size(), 0);
}

void TestTtsConfig::escapeOnTheTopPageClosesTheWindows()
{
    addRows(1);
    m->show();
    QWidget other;
    other.show();
    QSignalSpy escaped(m->page, &TTSConfig::escPressed);
    m->press(Qt::Key_Escape);
    QVERIFY(!m->window.isVisible());
    QVERIFY(!other.isVisible());
    QCOMPARE(escaped.size(), 1);
    QVERIFY(!m->page->getMessWidget());
}

void TestTtsConfig::enterOnTheTopPageClosesTheWindows()
{
    addRow()->setLeftRightClick(true);
    m->show();
    QSignalSpy escaped(m->page, &TTSConfig::escPressed);
    m->press(Qt::Key_Return);
    QVERIFY(!m->window.isVisible());
    QCOMPARE(escaped.size(), 1);
}

void TestTtsConfig::deletedPreviousScreenCountsAsNone()
{
    addRows(1);
    auto* gone = new QWidget(&m->window);
    m->page->setPrevWidget(gone);
    delete gone;
    QVERIFY(!m->page->getPrevWidget());
    m->show();
    m->press(Qt::Key_Escape);
    QVERIFY(!m->window.isVisible());
}

void TestTtsConfig::otherKeysReachTheParent()
{
    addRows(3);
    m->page->setPrevWidget(&m->previous);
    m->show();
    const QList<Qt::Key> keys{Qt::Key_F7,  Qt::Key_F8,  Qt::Key_F9,    Qt::Key_F10,
                              Qt::Key_F11, Qt::Key_F12, Qt::Key_Space, Qt::Key_Tab};
    QSignalSpy up(m->page, &TTSConfig::signalUp);
    QSignalSpy down(m->page, &TTSConfig::signalDown);
    for (const Qt::Key key : keys)
        m->press(key);
    QCOMPARE(m->window.keys, QList<int>(keys.begin(), keys.end()));
    m->press(Qt::Key_Down);
    m->press(Qt::Key_Left);
    QCOMPARE(m->window.keys.size(), keys.size());
    QCOMPARE(up.size() + down.size(), 2);
}

void TestTtsConfig::keysDuringASwipeChangeNothing_data()
{
    QTest::addColumn<Qt::Key>("key");
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right, Qt::Key_Return,
                              Qt::Key_Escape, Qt::Key_F9})
        QTest::addRow("%x", static_cast<unsigned>(key)) << key;
}

void TestTtsConfig::keysDuringASwipeChangeNothing()
{
    QFETCH(Qt::Key, key);
    addRows(3);
    m->page->setPrevWidget(&m->previous);
    m->show();
    QVERIFY(m->page->setCurIndex(1));
    QCOMPARE(ZEMBRA_IAP_Initialize(1, 0, 0, 0), 0);
    QVERIFY(FakeIap::press());
    m->press(key);
    QCOMPARE(m->page->getCurIndex(), 1);
    QCOMPARE(m_rows.at(1)->getCurIndex(), 0);
    QVERIFY(m->page->isVisible());
    QVERIFY(m->window.keys.isEmpty());
    FakeIap::liftWithoutLine();
    QVERIFY(FakeIap::waitUntilIdle());
    m->press(Qt::Key_Down);
    QCOMPARE(m->page->getCurIndex(), 2);
}

void TestTtsConfig::slotMayDeleteThePage_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<bool>("leftRight");
    QTest::newRow("up") << Qt::Key_Up << true;
    QTest::newRow("down") << Qt::Key_Down << true;
    QTest::newRow("stepped with Left") << Qt::Key_Left << true;
    QTest::newRow("stepped with Enter") << Qt::Key_Return << false;
    QTest::newRow("left with Enter") << Qt::Key_Return << true;
    QTest::newRow("left with Escape") << Qt::Key_Escape << true;
}

// The first signal that the key leads to deletes the page.
void TestTtsConfig::slotMayDeleteThePage()
{
    QFETCH(Qt::Key, key);
    QFETCH(bool, leftRight);
    addRows(2);
    m_rows.at(0)->setLeftRightClick(leftRight);
    m->page->setQuickFlag(true);
    m->page->setPrevWidget(&m->previous);
    m->show();
    TTSConfig* const page = m->page;
    const QPointer<TTSConfig> alive(page);
    const auto destroy = [page] { delete page; };
    connect(m_rows.at(0), &SpinItems::triggered, page, destroy);
    connect(page, &TTSConfig::signalUp, page, destroy);
    connect(page, &TTSConfig::signalDown, page, destroy);
    connect(page, &TTSConfig::okPressed, page, destroy);
    connect(page, &TTSConfig::escPressed, page, destroy);
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(page, &event);
    QVERIFY(!alive);
    QVERIFY(m->window.isVisible());
}

QTEST_MAIN(TestTtsConfig)
#include "tst_ttsconfig.moc"
