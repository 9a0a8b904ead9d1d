#ifndef PAGEFIXTURE_H
#define PAGEFIXTURE_H

#include "app/widgetchange.h"
#include "platform/zembra_iap.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/fakeiap.h"
#include "tests/fakes/testroot.h"

#include <QKeyEvent>
#include <QTest>
#include <memory>

/* A window that notes the keys that come through to it. */
class KeyWindow : public QWidget
{
public:
    QList<int> keys;

protected:
    void keyPressEvent(QKeyEvent* event) override { keys.append(event->key()); }
};

/* What a test of a settings page needs: a scan engine, a window with the page and two screens to go
 * back to. */
template <class Page> struct PageFixture
{
    PageFixture()
    {
        fakes::reset();
        window.setFixedSize(256, 64);
        page = new Page(&window);
        page->setGeometry(0, 0, 256, 64);
        page->hide();
        previous.hide();
        quick.hide();
    }

    ~PageFixture()
    {
        WidgetChange::quitFun();
        WidgetChange::myChange = nullptr;
    }

    /* Shows the page as the flows do. */
    void show()
    {
        window.show();
        WidgetChange::Instance()->Go2NewWidget(page);
    }

    void press(Qt::Key key) { QTest::keyClick(page, key); }

    TestRoot root;
    KeyWindow window;
    QWidget previous{&window};
    QWidget quick{&window};
    Page* page; // owned by the window
};

#endif
