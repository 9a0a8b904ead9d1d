#include "tests/shared/testobjects.h"
#include "tests/unit/widgets/ttsconfigfixture.h"

#include <QPointer>
#include <QSignalSpy>

/* What the keys of the settings page change, and where they lead. */
class TestTtsConfigKeys : public TtsConfigFixture
{
    Q_OBJECT

private slots:
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
};

void TestTtsConfigKeys::leftStepsBack()
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

void TestTtsConfigKeys::rightStepsOnAndWraps()
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

void TestTtsConfigKeys::changeIsTriggeredBeforeItIsTold()
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

void TestTtsConfigKeys::enterStepsARow()
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

void TestTtsConfigKeys::enterOnALeftRightRowLeaves()
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

void TestTtsConfigKeys::enterOnAQuickPageGoesToTheQuickScreen()
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

void TestTtsConfigKeys::orderOfSignalsWhenLeftQuickly()
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

void TestTtsConfigKeys::quickFlagCountsOnce()
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

void TestTtsConfigKeys::quickPageWithoutAQuickScreenGoesBack()
{
    addRow()->setLeftRightClick(true);
    m->page->setQuickFlag(true);
    m->page->setPrevWidget(&m->previous);
    m->show();
    m->press(Qt::Key_Return);
    QVERIFY(m->previous.isVisible());
    QVERIFY(m->window.isVisible());
}

void TestTtsConfigKeys::escapeGoesBack()
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

void TestTtsConfigKeys::escapeOnAQuickPageGoesBackToThePreviousScreen()
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

void TestTtsConfigKeys::escapeOnTheTopPageClosesTheWindows()
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

void TestTtsConfigKeys::enterOnTheTopPageClosesTheWindows()
{
    addRow()->setLeftRightClick(true);
    m->show();
    QSignalSpy escaped(m->page, &TTSConfig::escPressed);
    m->press(Qt::Key_Return);
    QVERIFY(!m->window.isVisible());
    QCOMPARE(escaped.size(), 1);
}

void TestTtsConfigKeys::deletedPreviousScreenCountsAsNone()
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

void TestTtsConfigKeys::otherKeysReachTheParent()
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

void TestTtsConfigKeys::keysDuringASwipeChangeNothing_data()
{
    QTest::addColumn<Qt::Key>("key");
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right, Qt::Key_Return,
                              Qt::Key_Escape, Qt::Key_F9})
        QTest::addRow("%x", static_cast<unsigned>(key)) << key;
}

void TestTtsConfigKeys::keysDuringASwipeChangeNothing()
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

void TestTtsConfigKeys::slotMayDeleteThePage_data()
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
void TestTtsConfigKeys::slotMayDeleteThePage()
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

TEST_OBJECT(TestTtsConfigKeys)
#include "tst_ttsconfig_keys.moc"
