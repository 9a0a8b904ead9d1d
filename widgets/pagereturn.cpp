#include "widgets/pagereturn.h"

#include "app/widgetchange.h"

#include <QApplication>

bool PageReturn::goBack(QWidget* page, bool quick)
{
    const QPointer<QWidget> alive(page);
    const QPointer<QWidget> target = quick && m_prevQuick ? m_prevQuick : m_prev;
    m_returnedTo = target; // before the switch: this object lives as long as the page does
    if (!target)
        QApplication::closeAllWindows();
    if (alive)
        WidgetChange::Instance()->Go2PrevWidget(page, target);
    return !alive.isNull();
}
