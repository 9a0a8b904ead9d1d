#ifndef MENUFIXTURE_H
#define MENUFIXTURE_H

#include "app/widgetchange.h"
#include "engines/cttsthread.h"
#include "engines/ttsplayer.h"
#include "platform/zembra_iap.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/fakeiap.h"
#include "tests/fakes/faketts.h"
#include "tests/fakes/qcoprecorder.h"
#include "tests/fakes/testroot.h"

#include <QSemaphore>
#include <QTest>
#include <memory>

/* What a test of a menu needs: scripted engines, a launcher that listens, a window with the menu
 * and two screens to go back to. */
template <class Menu> struct MenuFixture
{
    MenuFixture()
    {
        fakes::reset();
        root = std::make_unique<TestRoot>();
        launcher = std::make_unique<QCopRecorder>();
        window.setFixedSize(256, 64);
        menu = new Menu(QStringLiteral("Title"), &window);
        previous.hide();
        quick.hide();
    }

    ~MenuFixture()
    {
        TTSPlayer::quitFun();
        WidgetChange::quitFun();
        WidgetChange::myChange = nullptr;
    }

    void fill(int count)
    {
        for (int i = 0; i < count; ++i)
            menu->addAction(text(i));
    }

    static QString text(int index) { return QStringLiteral("Entry %1").arg(index); }

    /* Shows the menu as the flows do. */
    void show()
    {
        window.show();
        WidgetChange::Instance()->Go2NewWidget(menu);
    }

    void press(Qt::Key key) { QTest::keyClick(menu, key); }

    std::unique_ptr<TestRoot> root;
    std::unique_ptr<QCopRecorder> launcher;
    QWidget window;
    QWidget previous{&window};
    QWidget quick{&window};
    Menu* menu; // owned by the window
};

/* A speech worker that is speaking until it is told to end. */
class HeldWorker : public CTTSThread
{
public:
    ~HeldWorker() override
    {
        m_end.release();
        wait();
    }

    void end() { m_end.release(); }

protected:
    void run() override { m_end.acquire(); }

private:
    QSemaphore m_end;
};

#endif
