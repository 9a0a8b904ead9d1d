#include "tests/unit/widgets/menufixture.h"
#include "tests/unit/widgets/pagefixture.h"
#include "widgets/mymenu.h"
#include "widgets/mysubmenu.h"

/* Keys that a menu has no use for belong to the window. */
class TestMenuKeys : public QObject
{
    Q_OBJECT

private slots:
    void otherKeysReachTheParent();
    void ownKeysDoNot();
    void keysDuringASwipeReachNobody();
};

namespace {

// A menu with two entries in a window that notes keys.
template <class Menu> struct MenuInWindow
{
    MenuInWindow()
    {
        menu = new Menu(QStringLiteral("Title"), &fixture.window);
        menu->addAction(QStringLiteral("one"));
        menu->addAction(QStringLiteral("two"));
        fixture.window.show();
        menu->show();
    }

    ~MenuInWindow() { TTSPlayer::quitFun(); }

    PageFixture<QWidget> fixture;
    Menu* menu;
};

const QList<int> OtherKeys{Qt::Key_F7,  Qt::Key_F8,   Qt::Key_F9,    Qt::Key_F10,  Qt::Key_F11,
                           Qt::Key_F12, Qt::Key_Left, Qt::Key_Right, Qt::Key_Space};

template <class Menu> QList<int> cameThrough(const QList<int>& keys)
{
    MenuInWindow<Menu> m;
    for (const int key : keys)
        QTest::keyClick(m.menu, static_cast<Qt::Key>(key));
    return m.fixture.window.keys;
}

} // namespace

void TestMenuKeys::otherKeysReachTheParent()
{
    QCOMPARE(cameThrough<MySubMenu>(OtherKeys), OtherKeys);
    QCOMPARE(cameThrough<MyMenu>(OtherKeys), OtherKeys);
}

void TestMenuKeys::ownKeysDoNot()
{
    const QList<int> keys{Qt::Key_Down, Qt::Key_Up, Qt::Key_Return};
    QCOMPARE(cameThrough<MySubMenu>(keys), QList<int>());
}

void TestMenuKeys::keysDuringASwipeReachNobody()
{
    MenuInWindow<MySubMenu> m;
    QCOMPARE(ZEMBRA_IAP_Initialize(1, 0, 0, 0), 0);
    QVERIFY(FakeIap::press());
    QTest::keyClick(m.menu, Qt::Key_F9);
    QCOMPARE(m.fixture.window.keys, QList<int>());
    FakeIap::liftWithoutLine();
    QVERIFY(FakeIap::waitUntilIdle());
}

QTEST_MAIN(TestMenuKeys)
#include "tst_menukeys.moc"
