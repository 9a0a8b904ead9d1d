#include "testwindow.h"

#include "desk/keybutton.h"
#include "desk/pageview.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QSlider>
#include <QTabWidget>
#include <QTest>
#include <QUrl>

bool TestWindow::show()
{
    if (!open())
        return false;
    m_window = std::make_unique<DeskWindow>(session());
    m_window->show();
    return activate();
}

bool TestWindow::activate()
{
    m_window->activateWindow();
    if (QGuiApplication::platformName() != QLatin1String("wayland"))
        return QTest::qWaitForWindowActive(m_window.get());
    // A compositor gives the keys to whom it likes; one without a keyboard to nobody.
    if (!QTest::qWaitForWindowExposed(m_window.get()))
        return false;
    QApplication::setActiveWindow(m_window.get());
    return m_window->isActiveWindow();
}

KeyButton* TestWindow::key(Qt::Key key) const
{
    const auto keys = m_window->findChildren<KeyButton*>();
    for (KeyButton* const button : keys) {
        if (button->key() == key)
            return button;
    }
    return nullptr;
}

QSlider* TestWindow::slider(const QString& name) const
{
    const auto sliders = m_window->findChildren<QSlider*>();
    for (QSlider* const each : sliders) {
        if (each->accessibleName() == name)
            return each;
    }
    return nullptr;
}

PageView& TestWindow::page() const
{
    return *m_window->findChild<PageView*>();
}

QTabWidget& TestWindow::tabs() const
{
    return *m_window->findChild<QTabWidget*>();
}

bool TestWindow::drop(const QString& path)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    QDragEnterEvent enter(QPoint(200, 200), Qt::CopyAction, &data, Qt::LeftButton, {});
    enter.setAccepted(false);
    QApplication::sendEvent(m_window.get(), &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent event(QPointF(200, 200), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(m_window.get(), &event);
    return true;
}
