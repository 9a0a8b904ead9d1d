#include "app/widgetchange.h"

WidgetChange* WidgetChange::myChange = nullptr;

WidgetChange* WidgetChange::Instance()
{
    if (!myChange)
        myChange = new WidgetChange;
    return myChange;
}

void WidgetChange::quitFun()
{
    delete myChange;
}

void WidgetChange::Go2NewWidget(QWidget* from, QWidget* to)
{
    leave(from);
    m_previous = from;
    enter(to);
}

void WidgetChange::Go2NewWidget(QWidget* to)
{
    leave(m_current);
    enter(to);
}

void WidgetChange::Go2PrevWidget(QWidget* from, QWidget* to)
{
    if (!from)
        return;
    leave(from);
    m_previous = nullptr;
    enter(to);
}

QWidget* WidgetChange::getCurWidget() const
{
    return m_current;
}

// Hidden before disabled, enabled before shown, focused last: a disabled screen is never seen,
// and the focus never passes over a screen on its way out.
void WidgetChange::leave(QWidget* widget)
{
    if (!widget)
        return;
    widget->hide();
    widget->setEnabled(false);
}

void WidgetChange::enter(QWidget* widget)
{
    if (!widget)
        return;
    widget->setEnabled(true);
    widget->show();
    widget->setFocus(Qt::OtherFocusReason);
    m_current = widget;
}
