#include "tests/shared/testobjects.h"
#include "tests/unit/dict/dictswitchfixture.h"

#include <QSignalSpy>

/* The choice of a dictionary, key by key. */
class TestDictSwitch : public DictSwitchFixture
{
    Q_OBJECT

private slots:
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
};

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

TEST_OBJECT(TestDictSwitch)
#include "tst_dictswitch.moc"
