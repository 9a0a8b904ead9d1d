#ifndef WIDGETCHANGE_H
#define WIDGETCHANGE_H

#include <QPointer>
#include <QWidget>

/*
 * Keeps exactly one screen shown, enabled and focused.
 *
 * The screens are not owned. A screen that is deleted while it is current or previous is
 * forgotten. Interface thread only.
 */
class WidgetChange
{
public:
    static WidgetChange* myChange;

    /* The one instance, created on first use. */
    static WidgetChange* Instance();

    /* Deletes the instance and leaves the pointer as it is: the last thing done at shutdown. */
    static void quitFun();

    /* Hides and disables `from`, remembers it as previous (null too), and shows `to`. Null
     * screens are skipped; with `to` null the current screen stays recorded. */
    void Go2NewWidget(QWidget* from, QWidget* to);

    /* Hides and disables the current screen, if any, and shows `to`; the previous screen stays
     * recorded. */
    void Go2NewWidget(QWidget* to);

    /* Leaves `from` for `to`, and forgets the previous screen. Does nothing when `from` is null,
     * so that a flow that ends twice does no harm. */
    void Go2PrevWidget(QWidget* from, QWidget* to);

    /* The screen that is shown; null before the first switch. */
    QWidget* getCurWidget() const;

private:
    WidgetChange() = default;
    void leave(QWidget* widget);
    void enter(QWidget* widget);

    QPointer<QWidget> m_current;
    QPointer<QWidget> m_previous;
};

#endif
