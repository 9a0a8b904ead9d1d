#include "dict/dictlist.h"
#include "dict/dictswitch.h"
#include "engines/translater.h"
#include "tests/fakes/fakedic.h"
#include "tests/unit/engines/freshsettings.h"
#include "tests/unit/widgets/pagefixture.h"
#include "widgets/announcer.h"
#include "widgets/messagedialog.h"
#include "widgets/spinitems.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QPointer>
#include <QSignalSpy>
#include <functional>

using Calls = QList<QVariantList>;
using Names = QVector<QString>;

/* The choice of a dictionary, key by key. */
class TestDictSwitch : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void itCoversTheScreen();
    void showingItTellsThatItIsShown();
    void pairsAndDictionariesAreAdded();
    void aRowOfOnesOwnServes();
    void setDictIndexTakesPairs();
    void setDictIndexWithoutARowDoesNothing();
    void setDictInfoIndexTakesDictionaries();
    void reloadingFillsTheListOfThePair();
    void reloadingBeyondTheListSelectsNothing();
    void reloadingWithoutAListFails();
    void showingKeepsTheDictionary();
    void showingFollowsThePair();
    void theListHasAPlaceForEachInterface();
    void theListNeverHasTheFocus();

    void leftAndRightStepThroughThePairs();
    void upAndDownStepThroughTheDictionaries();
    void upWithoutASelectionGoesToTheLast();
    void everyStepIsTold();
    void whatIsShownIsSpoken();
    void otherKeysReachTheParent();
    void keysAreSwallowedWhileDisabled();
    void keysAreSwallowedDuringASwipe();

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

private:
    using Fixture = PageFixture<DictSwitch>;

    template <class Widget> Widget* child() const
    {
        auto* const found = m->page->findChild<Widget*>();
        if (!found)
            qFatal("the screen lacks a part");
        return found;
    }
    void addPairs();
    DictList* list() const { return child<DictList>(); }
    SpinItems* row() const { return child<SpinItems>(); }
    QStringList entries() const;
    bool eventFilter(QObject* watched, QEvent* event) override;

    std::unique_ptr<Fixture> m;
    QStringList m_said;
    QStringList m_warnings;
    std::function<void(MessageDialog*)> m_act;
};

void TestDictSwitch::init()
{
    m = std::make_unique<Fixture>();
    m->page->setPrevWidget(&m->previous);
    FakeDic::addPair(101, 104, u"English-German", {{}, {}, {}});
    FakeDic::addPair(103, 101, u"French-English", {{}, {}});
    FakeDic::addPair(200, 105, u"English-Spanish", {{}});
    FakeDic::addPair(101, 106, u"English-Italian", {});
    freshSettings();
    m_said.clear();
    m_warnings.clear();
    m_act = nullptr;
    announcer::setSpeaker([this](const QString& text) { m_said.append(text); });
    qApp->installEventFilter(this);
}

void TestDictSwitch::cleanup()
{
    qApp->removeEventFilter(this);
    announcer::setSpeaker({});
    m.reset();
    Translater::quitFun();
}

// Ends each warning at once, after the test has acted on it.
bool TestDictSwitch::eventFilter(QObject* watched, QEvent* event)
{
    auto* const dialog = qobject_cast<MessageDialog*>(watched);
    if (dialog && event->type() == QEvent::Show) {
        m_warnings.append(dialog->text());
        QMetaObject::invokeMethod(
            dialog,
            [this, dialog = QPointer<MessageDialog>(dialog)] {
                if (m_act)
                    m_act(dialog);
                MessageDialog* const open = dialog;
                if (!open || !open->isVisible())
                    return;
                QTimerEvent timeOut(open->timerId());
                QApplication::sendEvent(open, &timeOut);
            },
            Qt::QueuedConnection);
    }
    return false;
}

void TestDictSwitch::addPairs()
{
    m->page->addPair(QStringLiteral("English-German"),
                     Names{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")});
    m->page->addPair(QStringLiteral("French-English"),
                     Names{QStringLiteral("D"), QStringLiteral("E")});
    m->page->addPair(QStringLiteral("English-Spanish"), Names{QStringLiteral("F")});
    m->page->addPair(QStringLiteral("English-Italian"), Names{});
}

QStringList TestDictSwitch::entries() const
{
    QStringList texts;
    for (int i = 0; i < list()->count(); ++i)
        texts.append(list()->itemText(i));
    return texts;
}

void TestDictSwitch::itCoversTheScreen()
{
    const DictSwitch page;
    QCOMPARE(page.geometry(), QRect(0, 0, 256, 64));
    QVERIFY(!page.isChanged());
    QVERIFY(!page.isConfirmed());
    QCOMPARE(page.GetDictCount(), 0);
}

void TestDictSwitch::showingItTellsThatItIsShown()
{
    addPairs();
    QSignalSpy shown(m->page, &DictSwitch::signalShow);
    m->show();
    QCOMPARE(Calls(shown), (Calls{{0, QString(), 0}}));
}

void TestDictSwitch::pairsAndDictionariesAreAdded()
{
    addPairs();
    QCOMPARE(m->page->GetDictCount(), 4);
    QCOMPARE(row()->count(), 4);
    m->show();
    QVERIFY(row()->isVisible());
    QVERIFY(row()->isEnabled());
    QVERIFY(!row()->isSelected());
    QCOMPARE(row()->getCurItem(), QStringLiteral("English-German"));
    QCOMPARE(entries(), (QStringList{"A", "B", "C"}));
    QCOMPARE(m->page->getSelectIndex(), 0);
    QCOMPARE(m->page->getDictInfoIndex(), 0);
}

void TestDictSwitch::aRowOfOnesOwnServes()
{
    auto* own = new SpinItems;
    own->addItem(QStringLiteral("one"));
    own->addItem(QStringLiteral("two"));
    m->page->addItem(own);
    m->page->addDicts(Names{QStringLiteral("A")});
    m->page->addDicts(Names{QStringLiteral("B"), QStringLiteral("C")});
    QCOMPARE(m->page->GetDictCount(), 2);
    m->show();
    m->press(Qt::Key_Right);
    QCOMPARE(entries(), (QStringList{"B", "C"}));
}

void TestDictSwitch::setDictIndexTakesPairs()
{
    addPairs();
    m->page->setDictIndex(2);
    QCOMPARE(m->page->getSelectIndex(), 2);
    for (const int index : {-1, 4, 1000}) {
        m->page->setDictIndex(index);
        QCOMPARE(m->page->getSelectIndex(), 2);
    }
}

void TestDictSwitch::setDictIndexWithoutARowDoesNothing()
{
    m->page->setDictIndex(0);
    QCOMPARE(m->page->getSelectIndex(), -1);
}

void TestDictSwitch::setDictInfoIndexTakesDictionaries()
{
    QVERIFY(!m->page->setDictInfoIndex(0));
    addPairs();
    m->show();
    QVERIFY(m->page->setDictInfoIndex(2));
    QCOMPARE(m->page->getDictInfoIndex(), 2);
    for (const int index : {-1, 3, 1000}) {
        QVERIFY(!m->page->setDictInfoIndex(index));
        QCOMPARE(m->page->getDictInfoIndex(), 2);
    }
}

void TestDictSwitch::reloadingFillsTheListOfThePair()
{
    addPairs();
    m->page->setDictIndex(1);
    QVERIFY(m->page->reloadDictInfoIndex(1));
    QCOMPARE(entries(), (QStringList{"D", "E"}));
    QCOMPARE(m->page->getDictInfoIndex(), 1);
    QVERIFY(m->page->reloadDictInfoIndex(0));
    QCOMPARE(entries(), (QStringList{"D", "E"}));
    QCOMPARE(m->page->getDictInfoIndex(), 0);
}

void TestDictSwitch::reloadingBeyondTheListSelectsNothing()
{
    addPairs();
    m->page->setDictIndex(1);
    for (const int index : {2, -1, 1000}) {
        QVERIFY(!m->page->reloadDictInfoIndex(index));
        QCOMPARE(entries(), (QStringList{"D", "E"}));
        QCOMPARE(m->page->getDictInfoIndex(), -1);
    }
}

void TestDictSwitch::reloadingWithoutAListFails()
{
    QVERIFY(!m->page->reloadDictInfoIndex(0));
    auto* own = new SpinItems;
    own->addItem(QStringLiteral("one"));
    own->addItem(QStringLiteral("two"));
    m->page->addItem(own);
    m->page->addDicts(Names{QStringLiteral("A")});
    QVERIFY(m->page->reloadDictInfoIndex(0));
    m->page->setDictIndex(1);
    QVERIFY(!m->page->reloadDictInfoIndex(0));
    QCOMPARE(entries(), QStringList());
}

void TestDictSwitch::showingKeepsTheDictionary()
{
    addPairs();
    m->page->setDictIndex(1);
    QVERIFY(m->page->reloadDictInfoIndex(1));
    m->show();
    QCOMPARE(entries(), (QStringList{"D", "E"}));
    QCOMPARE(m->page->getDictInfoIndex(), 1);
    QCOMPARE(m->page->spokenText(), QStringLiteral("French-English. E"));
}

void TestDictSwitch::showingFollowsThePair()
{
    addPairs();
    m->page->setDictIndex(0);
    QVERIFY(m->page->reloadDictInfoIndex(2));
    m->page->setDictIndex(1);
    m->show();
    QCOMPARE(entries(), (QStringList{"D", "E"}));
    QCOMPARE(m->page->getDictInfoIndex(), 0);
}

void TestDictSwitch::theListHasAPlaceForEachInterface()
{
    addPairs();
    const LanguageManager* languages = LanguageManager::Instance();
    QVector<QRect> places;
    for (const int code : {101, 1, 104}) {
        m->root.setSetting(QStringLiteral("SystemSet/Lan"), languages->getIDByLanINT(code));
        m->page->showPage();
        places.append(list()->geometry());
        QVERIFY(QRect(0, 0, 256, 64).contains(places.last()));
        QVERIFY(!places.last().intersects(row()->geometry()));
    }
    QVERIFY(places[0] != places[1]);
    QCOMPARE(places[0], places[2]);
}

void TestDictSwitch::theListNeverHasTheFocus()
{
    addPairs();
    m->show();
    QCOMPARE(list()->focusPolicy(), Qt::NoFocus);
    m->page->setFocus();
    QTest::keyClick(m->page, Qt::Key_Tab);
    QVERIFY(!list()->hasFocus());
}

void TestDictSwitch::leftAndRightStepThroughThePairs()
{
    addPairs();
    m->show();
    m->press(Qt::Key_Down);
    m->press(Qt::Key_Right);
    QCOMPARE(m->page->getSelectIndex(), 1);
    QCOMPARE(entries(), (QStringList{"D", "E"}));
    QCOMPARE(m->page->getDictInfoIndex(), 0);
    m->press(Qt::Key_Left);
    m->press(Qt::Key_Left);
    QCOMPARE(m->page->getSelectIndex(), 3);
    QCOMPARE(entries(), QStringList());
    QCOMPARE(m->page->getDictInfoIndex(), -1);
    m->press(Qt::Key_Right);
    QCOMPARE(m->page->getSelectIndex(), 0);
    QCOMPARE(entries(), (QStringList{"A", "B", "C"}));
    QCOMPARE(m->page->getDictInfoIndex(), 0);
}

void TestDictSwitch::upAndDownStepThroughTheDictionaries()
{
    addPairs();
    m->show();
    m->press(Qt::Key_Up);
    QCOMPARE(m->page->getDictInfoIndex(), 2);
    m->press(Qt::Key_Up);
    QCOMPARE(m->page->getDictInfoIndex(), 1);
    m->press(Qt::Key_Down);
    m->press(Qt::Key_Down);
    QCOMPARE(m->page->getDictInfoIndex(), 0);
    QCOMPARE(m->page->getSelectIndex(), 0);
}

void TestDictSwitch::upWithoutASelectionGoesToTheLast()
{
    addPairs();
    m->show();
    QVERIFY(!m->page->reloadDictInfoIndex(9));
    m->press(Qt::Key_Up);
    QCOMPARE(m->page->getDictInfoIndex(), 2);
    QVERIFY(!m->page->reloadDictInfoIndex(9));
    m->press(Qt::Key_Down);
    QCOMPARE(m->page->getDictInfoIndex(), 0);
}

void TestDictSwitch::everyStepIsTold()
{
    addPairs();
    m->show();
    QSignalSpy up(m->page, &TTSConfig::signalUp);
    QSignalSpy down(m->page, &TTSConfig::signalDown);
    m->press(Qt::Key_Down);
    m->press(Qt::Key_Up);
    m->press(Qt::Key_Right);
    m->press(Qt::Key_Left);
    m->press(Qt::Key_Left);
    QCOMPARE(Calls(down), (Calls{{0, QStringLiteral("B")}}));
    QCOMPARE(Calls(up), (Calls{{0, QStringLiteral("A")},
                               {0, QStringLiteral("French-English. D")},
                               {0, QStringLiteral("English-German. A")},
                               {0, QStringLiteral("English-Italian. No dictionary.")}}));
    m->press(Qt::Key_Down);
    QCOMPARE(down.last(), (QVariantList{0, QStringLiteral("No dictionary.")}));
}

void TestDictSwitch::whatIsShownIsSpoken()
{
    QCOMPARE(m->page->spokenText(), QStringLiteral("No dictionary."));
    addPairs();
    m->page->setDictIndex(3);
    m->show();
    QCOMPARE(m->page->spokenText(), QStringLiteral("English-Italian. No dictionary."));
    m->press(Qt::Key_Right);
    m->press(Qt::Key_Down);
    QCOMPARE(m->page->spokenText(), QStringLiteral("English-German. B"));
}

void TestDictSwitch::otherKeysReachTheParent()
{
    addPairs();
    m->show();
    m->press(Qt::Key_F9);
    m->press(Qt::Key_Space);
    QCOMPARE(m->window.keys, (QList<int>{Qt::Key_F9, Qt::Key_Space}));
    QVERIFY(!m->page->isChanged());
}

void TestDictSwitch::keysAreSwallowedWhileDisabled()
{
    addPairs();
    m->show();
    QSignalSpy chosen(m->page, &DictSwitch::selectChangedSignal);
    m->page->setLRFlag(false);
    const auto keys = {Qt::Key_Right, Qt::Key_Left,   Qt::Key_Right, Qt::Key_Down,
                       Qt::Key_F9,    Qt::Key_Return, Qt::Key_Escape};
    for (const Qt::Key key : keys)
        m->press(key);
    QVERIFY(m->page->isVisible());
    QVERIFY(!m->page->isChanged());
    QVERIFY(!m->page->isConfirmed());
    QCOMPARE(m->page->getSelectIndex(), 0);
    QCOMPARE(m->page->getDictInfoIndex(), 0);
    QVERIFY(m->window.keys.isEmpty());
    m->page->setLRFlag(true);
    m->press(Qt::Key_Right);
    QCOMPARE(m->page->getSelectIndex(), 1);
    QVERIFY(chosen.isEmpty());
}

void TestDictSwitch::keysAreSwallowedDuringASwipe()
{
    addPairs();
    m->show();
    QCOMPARE(ZEMBRA_IAP_Initialize(0, 0, 0, 0), 0);
    QVERIFY(FakeIap::press());
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_F9, Qt::Key_Escape})
        m->press(key);
    QVERIFY(m->page->isVisible());
    QVERIFY(!m->page->isChanged());
    QVERIFY(m->window.keys.isEmpty());
    FakeIap::liftWithoutLine();
    QVERIFY(FakeIap::waitUntilIdle());
    m->press(Qt::Key_Right);
    QCOMPARE(m->page->getSelectIndex(), 1);
}

void TestDictSwitch::escapeWithoutArrowsReportsNothing()
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

void TestDictSwitch::arrowsMakeTheChoiceReported_data()
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

void TestDictSwitch::arrowsMakeTheChoiceReported()
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

void TestDictSwitch::aChoiceIsReportedOnce()
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

void TestDictSwitch::aPairWithoutDictionariesIsReportedAsSuch()
{
    addPairs();
    m->show();
    QSignalSpy chosen(m->page, &DictSwitch::selectChangedSignal);
    m->press(Qt::Key_Left);
    m->press(Qt::Key_Return);
    QCOMPARE(Calls(chosen), (Calls{{3, -1, 1}}));
}

void TestDictSwitch::enterTellsWhenLanguagesMatch()
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

void TestDictSwitch::escapeDoesNotTell()
{
    addPairs();
    m->show();
    QSignalSpy ok(m->page, &DictSwitch::okTriggerSignal);
    m->press(Qt::Key_Escape);
    QVERIFY(ok.isEmpty());
    QVERIFY(!m->page->isConfirmed());
}

void TestDictSwitch::englishOfAVoiceMatchesEnglish()
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

void TestDictSwitch::languagesThatDifferAreWarnedOf_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Escape") << int(Qt::Key_Escape);
    QTest::newRow("Enter") << int(Qt::Key_Return);
}

void TestDictSwitch::languagesThatDifferAreWarnedOf()
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
void TestDictSwitch::theChosenPairIsCompared()
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

void TestDictSwitch::theWarningStaysFourSeconds()
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

void TestDictSwitch::aScreenFrozenDuringTheWarningStays()
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

void TestDictSwitch::withoutPairsItOnlyLeaves()
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

void TestDictSwitch::confirmedUntilShownAgain()
{
    addPairs();
    m->show();
    m->press(Qt::Key_Return);
    QVERIFY(m->page->isConfirmed());
    m->show();
    QVERIFY(!m->page->isConfirmed());
}

void TestDictSwitch::slotsMayDeleteTheScreen_data()
{
    QTest::addColumn<int>("pair");
    QTest::addColumn<QString>("when");
    QTest::newRow("choice") << 0 << "choice";
    QTest::newRow("warning") << 1 << "warning";
    QTest::newRow("ok") << 0 << "ok";
    QTest::newRow("left") << 0 << "left";
}

void TestDictSwitch::slotsMayDeleteTheScreen()
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

QTEST_MAIN(TestDictSwitch)
#include "tst_dictswitch.moc"
