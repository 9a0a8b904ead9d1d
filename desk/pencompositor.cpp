#include "desk/pencompositor.h"

#include "desk/penpicture.h"

#include <QPainter>
#include <QWaylandBufferRef>
#include <QWaylandClient>
#include <QWaylandOutput>
#include <QWaylandOutputMode>
#include <QWaylandSeat>
#include <QWaylandSurface>
#include <QWaylandView>
#include <algorithm>

namespace {

constexpr int RefreshRate = 60000; // thousandths of a hertz; frame callbacks do not wait for it

} // namespace

PenCompositor::PenCompositor(const QByteArray& socketName, QObject* parent)
    : QWaylandCompositor(parent)
{
    setSocketName(socketName);
    setUseHardwareIntegrationExtension(false);
}

PenCompositor::~PenCompositor()
{
    // The base class would leave behind the buffers of clients that are still connected, and its
    // seat.
    const QList<QWaylandClient*> left = clients();
    for (QWaylandClient* const client : left)
        destroyClient(client);
    if (isCreated())
        delete defaultSeat();
}

void PenCompositor::create()
{
    QWaylandCompositor::create();
    m_output = std::make_unique<QWaylandOutput>(this, nullptr);
    const QWaylandOutputMode mode(penpicture::PanelSize, RefreshRate);
    m_output->addMode(mode, true);
    m_output->setCurrentMode(mode);
    m_output->setPhysicalSize(penpicture::PanelSize / 4);
    setDefaultOutput(m_output.get());
    m_shell = std::make_unique<QWaylandXdgShell>(this);
    connect(m_shell.get(), &QWaylandXdgShell::toplevelCreated, this, &PenCompositor::addToplevel);
    connect(m_shell.get(), &QWaylandXdgShell::popupCreated, this, &PenCompositor::addPopup);
}

QImage PenCompositor::picture() const
{
    QImage result(penpicture::PanelSize, QImage::Format_RGB32);
    result.fill(Qt::black);
    QPainter painter(&result);
    for (const Window& window : m_windows) {
        if (window.mapped)
            painter.drawImage(0, 0, window.picture);
    }
    return result;
}

bool PenCompositor::hasWindow() const
{
    return std::ranges::any_of(m_windows, &Window::mapped);
}

void PenCompositor::sendKey(Qt::Key key, bool pressed)
{
    if (!hasWindow())
        return;
    defaultSeat()->sendKeyEvent(key, pressed);
    // Sent at once, not when the event loop has nothing else to do.
    processWaylandEvents();
}

PenCompositor::Window& PenCompositor::addWindow(QWaylandSurface* surface)
{
    Window window;
    window.surface = surface;
    window.view = std::make_unique<QWaylandView>();
    window.view->setSurface(surface);
    window.view->setOutput(m_output.get());
    m_windows.push_back(std::move(window));
    connect(surface, &QWaylandSurface::redraw, this, [this, surface] { drawn(surface); });
    connect(surface, &QWaylandSurface::hasContentChanged, this,
            [this, surface] { mapChanged(surface); });
    connect(surface, &QWaylandSurface::surfaceDestroyed, this,
            [this, surface] { removeWindow(surface); });
    return m_windows.back();
}

void PenCompositor::addToplevel(QWaylandXdgToplevel* toplevel, QWaylandXdgSurface* xdgSurface)
{
    addWindow(xdgSurface->surface()).toplevel = toplevel;
    toplevel->sendConfigure(penpicture::PanelSize,
                            QList<QWaylandXdgToplevel::State>{QWaylandXdgToplevel::ActivatedState});
}

void PenCompositor::addPopup(QWaylandXdgPopup* popup, QWaylandXdgSurface* xdgSurface)
{
    addWindow(xdgSurface->surface()).popup = popup;
    popup->sendConfigure(QRect(QPoint(0, 0), penpicture::PanelSize));
}

void PenCompositor::drawn(QWaylandSurface* surface)
{
    const auto window = find(surface);
    if (window == m_windows.end())
        return;
    window->view->advance();
    const QWaylandBufferRef buffer = window->view->currentBuffer();
    // The buffer belongs to the pen, which may draw into it again once it is released.
    if (buffer.hasContent() && buffer.isSharedMemory())
        window->picture = buffer.image().copy();
    m_output->frameStarted();
    surface->frameStarted();
    surface->sendFrameCallbacks();
    emit pictureChanged();
}

void PenCompositor::mapChanged(QWaylandSurface* surface)
{
    const auto window = find(surface);
    if (window == m_windows.end() || window->mapped == surface->hasContent())
        return;
    window->mapped = surface->hasContent();
    if (window->mapped)
        std::rotate(window, window + 1, m_windows.end());
    else
        window->picture = QImage();
    focusTopmost();
    emit pictureChanged();
}

void PenCompositor::removeWindow(QWaylandSurface* surface)
{
    const auto window = find(surface);
    if (window == m_windows.end())
        return;
    m_windows.erase(window);
    focusTopmost();
    emit pictureChanged();
}

void PenCompositor::focusTopmost()
{
    const auto top = std::find_if(m_windows.rbegin(), m_windows.rend(),
                                  [](const Window& window) { return window.mapped; });
    defaultSeat()->setKeyboardFocus(top == m_windows.rend() ? nullptr : top->surface);
}

std::vector<PenCompositor::Window>::iterator PenCompositor::find(const QWaylandSurface* surface)
{
    return std::ranges::find(m_windows, surface, &Window::surface);
}
