#ifndef TESTWINDOW_H
#define TESTWINDOW_H

#include "testdesk.h"

#include "desk/deskwindow.h"
#include "desk/penkeys.h"

#include <QAbstractButton>

class KeyButton;
class PageView;
class QSlider;
class QTabWidget;

/* A desk with its window. */
class TestWindow : public TestDesk
{
public:
    /* Opens the desk. True once its window is there and has the keys. */
    bool show();
    /* Gives it the keys back after a dialog. */
    bool activate();
    DeskWindow& window() { return *m_window; }

    /* What is seen on the window; null when there is no such thing. */
    KeyButton* key(Qt::Key key) const;
    QSlider* slider(const QString& name) const;
    PageView& page() const;
    QTabWidget& tabs() const;
    /* A button or box by its text, without the mark of its letter. */
    template <typename Button = QAbstractButton> Button* button(const QString& text) const
    {
        const auto buttons = m_window->findChildren<Button*>();
        for (Button* const each : buttons) {
            if (plain(each->text()) == text)
                return each;
        }
        return nullptr;
    }

    static QString plain(QString text) { return text.remove(QLatin1Char('&')); }

    /* Whether the window takes a file that is dropped on it. */
    bool drop(const QString& path);

private:
    std::unique_ptr<DeskWindow> m_window;
};

#endif
