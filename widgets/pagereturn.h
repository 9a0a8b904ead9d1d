#ifndef PAGERETURN_H
#define PAGERETURN_H

#include <QPointer>
#include <QString>
#include <QWidget>
#include <utility>

/*
 * What a settings page is besides a widget: it leads somewhere when it is left, to the previous
 * widget, or, when it was opened by a quick-set shortcut and left with Enter, to the previous quick
 * widget. A page that has nowhere to go is the top one: leaving it ends the application.
 *
 * Interface thread only. None of the widgets is owned; one that is deleted counts as not set.
 */
class PageReturn
{
public:
    void setPrevWidget(QWidget* widget) { m_prev = widget; }
    QWidget* getPrevWidget() const { return m_prev; }

    /* Without one the previous widget serves, too. */
    void setPrevQuickWidget(QWidget* widget) { m_prevQuick = widget; }

    /* The page was opened by a quick-set shortcut; cleared when it is left with Enter. */
    void setQuickFlag(bool on) { m_quick = on; }

    /* The widget that the page last returned to, null before. */
    QWidget* getMessWidget() const { return m_returnedTo; }

protected:
    PageReturn() = default;
    ~PageReturn() = default;

    /* Escape: goes back from `page`, this object, then emits escPressed(). */
    template <class Page> void escape(Page* page)
    {
        if (goBack(page, false))
            emit page->escPressed();
    }

    /* Enter: goes back from `page`, this object, then emits okPressed() and okPressedForQuick()
     * when it was opened by quick set, and escPressed(). The slots may delete the page. */
    template <class Page> void accept(Page* page)
    {
        const QPointer<Page> alive(page);
        const bool quick = std::exchange(m_quick, false);
        if (!goBack(page, quick))
            return;
        if (quick)
            emit page->okPressed(0, QString());
        if (quick && alive)
            emit page->okPressedForQuick(0, QString());
        if (alive)
            emit page->escPressed();
    }

private:
    /* False when the page was deleted on the way. */
    bool goBack(QWidget* page, bool quick);

    QPointer<QWidget> m_prev;
    QPointer<QWidget> m_prevQuick;
    QPointer<QWidget> m_returnedTo;
    bool m_quick = false;
};

#endif
