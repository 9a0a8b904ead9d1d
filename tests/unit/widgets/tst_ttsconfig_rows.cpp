#include "tests/shared/testobjects.h"
#include "tests/unit/widgets/ttsconfigfixture.h"

#include <QSignalSpy>

/* Which rows of the settings page are shown, and which is current. */
class TestTtsConfigRows : public TtsConfigFixture
{
    Q_OBJECT

private slots:
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
};

void TestTtsConfigRows::startsOnTheFirstRow()
{
    QCOMPARE(m->page->getCurIndex(), 0);
    QVERIFY(!m->page->getPrevWidget());
    QVERIFY(!m->page->getMessWidget());
}

void TestTtsConfigRows::showingTellsTheCurrentRow()
{
    addRows(3);
    QVERIFY(m->page->setCurIndex(1));
    m_rows.at(1)->setCurIndex(2);
    QSignalSpy shown(m->page, &TTSConfig::signalShow);
    m->show();
    QCOMPARE(shown, (Calls{{1, QStringLiteral("Row1 C")}}));
}

void TestTtsConfigRows::pageOfFiveRowsShowsTheLastTwo()
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

void TestTtsConfigRows::rowsArePlacedBelowEachOther()
{
    addRows(5);
    m->show();
    for (int i = 0; i < 3; ++i)
        QCOMPARE(m_rows.at(i)->geometry(), QRect(0, 4 + 20 * i, 246, 20));
    QVERIFY(m->page->setCurIndex(3));
    QCOMPARE(m_rows.at(3)->y(), 4);
    QCOMPARE(m_rows.at(4)->y(), 24);
}

void TestTtsConfigRows::heightOfTheFirstRowPlacesAll()
{
    addRows(3);
    m_rows.at(0)->resize(246, 18);
    m->show();
    QCOMPARE(m_rows.at(1)->y(), 22);
    QCOMPARE(m_rows.at(2)->y(), 40);
}

void TestTtsConfigRows::onlyTheCurrentRowIsSelected()
{
    addRows(5);
    m->show();
    for (int current = 0; current < 5; ++current) {
        QVERIFY(m->page->setCurIndex(current));
        for (int i = 0; i < 5; ++i)
            QCOMPARE(m_rows.at(i)->isSelected(), i == current);
    }
}

void TestTtsConfigRows::shownRowsAreEnabled()
{
    addRows(2);
    m_rows.at(1)->setEnabled(false);
    m->show();
    QVERIFY(m_rows.at(1)->isEnabled());
}

void TestTtsConfigRows::hideAllHidesEveryRow()
{
    addRows(3);
    m->show();
    m->page->hideAll();
    QCOMPARE(visible(), (QList<bool>{false, false, false}));
    m->page->showPage();
    QCOMPARE(visible(), (QList<bool>{true, true, true}));
}

void TestTtsConfigRows::setCurIndexRefusesWhatIsOutside()
{
    QVERIFY(!m->page->setCurIndex(0));
    addRows(3);
    QVERIFY(m->page->setCurIndex(2));
    QVERIFY(!m->page->setCurIndex(-1));
    QVERIFY(!m->page->setCurIndex(3));
    QCOMPARE(m->page->getCurIndex(), 2);
}

void TestTtsConfigRows::sameRowTwiceAndNoRowAreIgnored()
{
    addRows(1);
    m->page->addItem(m_rows.at(0));
    m->page->addItem(nullptr);
    QVERIFY(!m->page->setCurIndex(1));
    m->show();
    addRows(1);
    QVERIFY(m_rows.at(1)->isVisible());
}

void TestTtsConfigRows::emptyPageOnlyLeaves()
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

void TestTtsConfigRows::upMovesAndStopsAtTheFirst()
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

void TestTtsConfigRows::downMovesAndStopsAtTheLast()
{
    addRows(2);
    m->show();
    QSignalSpy down(m->page, &TTSConfig::signalDown);
    m->press(Qt::Key_Down);
    m->press(Qt::Key_Down);
    QCOMPARE(down, (Calls{{1, QStringLiteral("Row1 A")}, {1, QStringLiteral("Row1 A")}}));
    QCOMPARE(m->page->getCurIndex(), 1);
}

TEST_OBJECT(TestTtsConfigRows)
#include "tst_ttsconfig_rows.moc"
