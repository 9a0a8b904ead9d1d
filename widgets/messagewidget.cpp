#include "widgets/messagewidget.h"

#include "app/widgetchange.h"
#include "widgets/announcer.h"
#include "widgets/evenlines.h"
#include "widgets/painting.h"

#include <QKeyEvent>
#include <QLabel>

MessageWidget::MessageWidget(const QString& title, QWidget* parent)
    : QWidget(parent), m_label(new QLabel(this))
{
    setObjectName(QStringLiteral("MessageWidget"));
    setFocusPolicy(Qt::StrongFocus);
    resize(painting::ScreenWidth, painting::ScreenHeight);
    m_label->setObjectName(QStringLiteral("label"));
    m_label->setGeometry(0, 0, painting::ScreenWidth, painting::ScreenHeight);
    m_label->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setFont(painting::screenFont());
    m_label->setWordWrap(true);
    setTitle(title);
}

void MessageWidget::setTitle(const QString& title)
{
    m_title = title;
    // A label would show the middle of a text that is too long.
    m_label->setText(evenlines::evenLines(title, m_label->width(), painting::MaxLines).join(u'\n'));
}

void MessageWidget::setPrevWidget(QWidget* widget)
{
    m_prevWidget = widget;
}

QWidget* MessageWidget::getPrevWidget() const
{
    return m_prevWidget;
}

void MessageWidget::goBack()
{
    if (m_prevWidget)
        WidgetChange::Instance()->Go2PrevWidget(this, m_prevWidget);
}

bool MessageWidget::focusNextPrevChild(bool)
{
    return false;
}

void MessageWidget::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_Return) {
        announcer::hush();
        emit escpressed();
    } else {
        event->ignore();
    }
}

void MessageWidget::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    announcer::announce(m_title);
}
