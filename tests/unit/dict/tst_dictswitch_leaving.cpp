#include "engines/translater.h"
#include "tests/shared/testobjects.h"
#include "tests/unit/dict/dictswitchfixture.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QPointer>
#include <QSignalSpy>

/* The end of the choice of a dictionary: what is reported, and what is warned of. */
class TestDictSwitchLeaving : public DictSwitchFixture
{
    Q_OBJECT

private slots:
    void escapeWithoutArrowsReportsNothing();
    void arrowsMakeTheChoiceReported_data();
    void arrowsMakeTheChoiceReported();
    void aChoiceIsReportedOnce();
    void aPairWithoutDictionariesIsReportedAsSuch();
    void enterTellsWhenLanguagesMatch();
    void escapeDoesNotTell();
    void englishOfAVoiceMatchesEnglish();
    void languagesThatDifferAreWarnedOf_data();
    void languagesThatDifferAreWarnedOf();
    void theChosenPairIsCompared();
    void theWarningStaysFourSeconds();
    void aScreenFrozenDuringTheWarningStays();
    void withoutPairsItOnlyLeaves();
    void confirmedUntilShownAgain();
    void slotsMayDeleteTheScreen_data();
    void slotsMayDeleteTheScreen();
};

void TestDictSwitchLeaving::escapeWithoutArrowsReportsNothing()
{
    addPairs();
    m->show();
    QSignalSpy chosen(m->page, &DictSwitch::selectChangedSignal);
    QSignalSpy left(m->page, &TTSConfig::escPressed);
    m->press(Qt::Key_Escape);
    QVERIFY(chosen.isEmpty());
    QCOMPARE(left.count(), 1);
    QVERIFY(!m->page->isVisible());
    QCOMPARE(WidgetChange::Instance()->getCurWidget(), &m->previous);
    QVERIFY(m_warnings.isEmpty());
}

void TestDictSwitchLeaving::arrowsMakeTheChoiceReported_data()
{
    QTest::addColumn<QList<int>>("keys");
    QTest::addColumn<int>("pair");
    QTest::addColumn<int>("dict");
    for (const int last : {int(Qt::Key_Escape), int(Qt::Key_Return)}) {
        const char* const name = last == Qt::Key_Return ? "Enter" : "Escape";
        QTest::addRow("%s right", name) << QList<int>{Qt::Key_Right, last} << 1 << 0;
        QTest::addRow("%s left", name) << QList<int>{Qt::Key_Left, Qt::Key_Left, last} << 2 << 0;
        QTest::addRow("%s up", name) << QList<int>{Qt::Key_Up, last} << 0 << 2;
        QTest::addRow("%s down", name) << QList<int>{Qt::Key_Down, last} << 0 << 1;
        QTest::addRow("%s there and back", name)
            << QList<int>{Qt::Key_Down, Qt::Key_Up, last} << 0 << 0;
        QTest::addRow("%s both", name) << QList<int>{Qt::Key_Right, Qt::Key_Down, last} << 1 << 1;
    }
}

void TestDictSwitchLeaving::arrowsMakeTheChoiceReported()
{
    QFETCH(QList<int>, keys);
    QFETCH(int, pair);
    QFETCH(int, dict);
    addPairs();
    m->show();
    QSignalSpy chosen(m->page, &DictSwitch::selectChangedSignal);
    for (const int key : keys)
        m->press(Qt::Key(key));
    QCOMPARE(Calls(chosen), (Calls{{pair, dict, 1}}));
    QVERIFY(!m->page->isVisible());
    QVERIFY(!m->page->isChanged());
}

void TestDictSwitchLeaving::aChoiceIsReportedOnce()
{
    addPairs();
    m->show();
    QSignalSpy chosen(m->page, &DictSwitch::selectChangedSignal);
    m->press(Qt::Key_Down);
    m->press(Qt::Key_Return);
    m->show();
    QCOMPARE(m->page->getDictInfoIndex(), 1);
    m->press(Qt::Key_Return);
    QCOMPARE(chosen.count(), 1);
}

void TestDictSwitchLeaving::aPairWithoutDictionariesIsReportedAsSuch()
{
    addPairs();
    m->show();
    QSignalSpy chosen(m->page, &DictSwitch::selectChangedSignal);
    m->press(Qt::Key_Left);
    m->press(Qt::Key_Return);
    QCOMPARE(Calls(chosen), (Calls{{3, -1, 1}}));
}

void TestDictSwitchLeaving::enterTellsWhenLanguagesMatch()
{
    addPairs();
    m->show();
    QSignalSpy ok(m->page, &DictSwitch::okTriggerSignal);
    m->press(Qt::Key_Return);
    QCOMPARE(ok.count(), 1);
    QVERIFY(m->page->isConfirmed());
    QCOMPARE(WidgetChange::Instance()->getCurWidget(), &m->previous);
    QVERIFY(m_warnings.isEmpty());
}

void TestDictSwitchLeaving::escapeDoesNotTell()
{
    addPairs();
    m->show();
    QSignalSpy ok(m->page, &DictSwitch::okTriggerSignal);
    m->press(Qt::Key_Escape);
    QVERIFY(ok.isEmpty());
    QVERIFY(!m->page->isConfirmed());
}

void TestDictSwitchLeaving::englishOfAVoiceMatchesEnglish()
{
    addPairs();
    ConfigReader::Instance()->setLanDict(2);
    QCOMPARE(Translater::Instance()->getLanID(2), 200);
    m->show();
    QSignalSpy ok(m->page, &DictSwitch::okTriggerSignal);
    m->press(Qt::Key_Return);
    QVERIFY(m_warnings.isEmpty());
    QCOMPARE(ok.count(), 1);
}

void TestDictSwitchLeaving::languagesThatDifferAreWarnedOf_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Escape") << int(Qt::Key_Escape);
    QTest::newRow("Enter") << int(Qt::Key_Return);
}

void TestDictSwitchLeaving::languagesThatDifferAreWarnedOf()
{
    QFETCH(int, key);
    addPairs();
    ConfigReader::Instance()->setLanDict(1);
    m->page->setDictIndex(1);
    m->show();
    QSignalSpy ok(m->page, &DictSwitch::okTriggerSignal);
    QSignalSpy chosen(m->page, &DictSwitch::selectChangedSignal);
    m_act = [this](MessageDialog*) { QVERIFY(m->page->isVisible()); };
    m->press(Qt::Key(key));
    const QString text = QStringLiteral("Scan language does not match dictionary source language!");
    QCOMPARE(m_warnings, QStringList{text});
    QCOMPARE(m_said, QStringList{text});
    QVERIFY(ok.isEmpty());
    QVERIFY(chosen.isEmpty());
    QVERIFY(!m->page->isVisible());
    QCOMPARE(WidgetChange::Instance()->getCurWidget(), &m->previous);
    QCOMPARE(m->page->getSelectIndex(), 1);
}

// Storing it takes its time: what was stored before does not count.
void TestDictSwitchLeaving::theChosenPairIsCompared()
{
    addPairs();
    m->show();
    m->press(Qt::Key_Right);
    m->press(Qt::Key_Return);
    QCOMPARE(m_warnings.size(), 1);
    ConfigReader::Instance()->setLanDict(1);
    m->show();
    m->press(Qt::Key_Left);
    m->press(Qt::Key_Return);
    QCOMPARE(m_warnings.size(), 1);
}

void TestDictSwitchLeaving::theWarningStaysFourSeconds()
{
    addPairs();
    ConfigReader::Instance()->setLanDict(1);
    m->show();
    QList<int> intervals;
    m_act = [&intervals](MessageDialog* dialog) {
        for (const auto& timer : QAbstractEventDispatcher::instance()->registeredTimers(dialog))
            intervals.append(timer.interval);
    };
    m->press(Qt::Key_Escape);
    QCOMPARE(intervals, QList<int>{4000});
    QVERIFY(!m->page->isVisible());
}

void TestDictSwitchLeaving::aScreenFrozenDuringTheWarningStays()
{
    addPairs();
    ConfigReader::Instance()->setLanDict(1);
    m->show();
    m_act = [this](MessageDialog* dialog) {
        dialog->reject();
        m->page->setEnabled(false);
    };
    m->press(Qt::Key_Escape);
    QVERIFY(m->page->isVisible());
    QCOMPARE(WidgetChange::Instance()->getCurWidget(), m->page);
    m->page->setEnabled(true);
    m_act = nullptr;
    m->press(Qt::Key_Escape);
    QVERIFY(!m->page->isVisible());
}

void TestDictSwitchLeaving::withoutPairsItOnlyLeaves()
{
    m->show();
    QSignalSpy chosen(m->page, &DictSwitch::selectChangedSignal);
    QSignalSpy up(m->page, &TTSConfig::signalUp);
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up})
        m->press(key);
    // Each says that there is none.
    QCOMPARE(up.count(), 3);
    QCOMPARE(up.last().at(1).toString(), QStringLiteral("No dictionary."));
    QVERIFY(!m->page->isChanged());
    m->press(Qt::Key_Escape);
    QVERIFY(chosen.isEmpty());
    QVERIFY(m_warnings.isEmpty());
    QCOMPARE(WidgetChange::Instance()->getCurWidget(), &m->previous);
}

void TestDictSwitchLeaving::confirmedUntilShownAgain()
{
    addPairs();
    m->show();
    m->press(Qt::Key_Return);
    QVERIFY(m->page->isConfirmed());
    m->show();
    QVERIFY(!m->page->isConfirmed());
}

void TestDictSwitchLeaving::slotsMayDeleteTheScreen_data()
{
    QTest::addColumn<int>("pair");
    QTest::addColumn<QString>("when");
    QTest::newRow("choice") << 0 << "choice";
    QTest::newRow("warning") << 1 << "warning";
    QTest::newRow("ok") << 0 << "ok";
    QTest::newRow("left") << 0 << "left";
}

void TestDictSwitchLeaving::slotsMayDeleteTheScreen()
{
    QFETCH(int, pair);
    QFETCH(QString, when);
    addPairs();
    m->page->setDictIndex(pair);
    QVERIFY(m->page->reloadDictInfoIndex(0));
    m->show();
    QPointer<DictSwitch> page(m->page);
    const auto end = [page] { delete page; };
    if (when == QStringLiteral("choice"))
        connect(m->page, &DictSwitch::selectChangedSignal, this, end);
    else if (when == QStringLiteral("ok"))
        connect(m->page, &DictSwitch::okTriggerSignal, this, end);
    else if (when == QStringLiteral("left"))
        connect(m->page, &TTSConfig::escPressed, this, end);
    else
        m_act = [end](MessageDialog*) { end(); };
    m->press(Qt::Key_Down);
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(page, &enter);
    QVERIFY(!page);
}

TEST_OBJECT(TestDictSwitchLeaving)
#include "tst_dictswitch_leaving.moc"
