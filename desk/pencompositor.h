#ifndef PENCOMPOSITOR_H
#define PENCOMPOSITOR_H

#include <QImage>
#include <QPointer>
#include <QWaylandCompositor>
#include <QWaylandXdgShell>
#include <memory>
#include <vector>

class QWaylandOutput;
class QWaylandView;

/*
 * The pen's display and keys: a small Wayland compositor with one output of 256 x 64 pixels.
 *
 * Every window of the pen stands at (0, 0); the one that was mapped last is on top and has the
 * keys. Buffers are shared memory and are read as pictures, so that any widget can show them and
 * no graphics driver takes part. Lives on the interface thread, which therefore must not block:
 * the pen waits with it.
 */
class PenCompositor : public QWaylandCompositor
{
    Q_OBJECT

public:
    /* `socketName` is made below XDG_RUNTIME_DIR. */
    explicit PenCompositor(const QByteArray& socketName, QObject* parent = nullptr);
    ~PenCompositor() override;

    void create() override;

    /* What the windows show together, RGB32, 256 x 64, black where nothing is. */
    QImage picture() const;

    /* Whether any window is shown. */
    bool hasWindow() const;

    /* Presses or releases a key of the pen; lost when no window is shown. */
    void sendKey(Qt::Key key, bool pressed);

signals:
    /* A window drew, came or went. */
    void pictureChanged();

private:
    struct Window
    {
        QWaylandSurface* surface;
        QPointer<QWaylandXdgToplevel> toplevel;
        QPointer<QWaylandXdgPopup> popup;
        std::unique_ptr<QWaylandView> view;
        QImage picture;
        bool mapped = false;
    };

    Window& addWindow(QWaylandSurface* surface);
    void addToplevel(QWaylandXdgToplevel* toplevel, QWaylandXdgSurface* xdgSurface);
    void addPopup(QWaylandXdgPopup* popup, QWaylandXdgSurface* xdgSurface);
    void drawn(QWaylandSurface* surface);
    void mapChanged(QWaylandSurface* surface);
    void removeWindow(QWaylandSurface* surface);
    void focusTopmost();
    std::vector<Window>::iterator find(const QWaylandSurface* surface);

    std::unique_ptr<QWaylandOutput> m_output;
    std::unique_ptr<QWaylandXdgShell> m_shell;
    std::vector<Window> m_windows; // mapped ones in map order
};

#endif
