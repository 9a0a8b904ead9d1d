#include "widgets/comboboxborder.h"

#include <QMouseEvent>
#include <QPainter>

ComboBoxBorder::ComboBoxBorder(QWidget* parent) : QComboBox(parent) {}

void ComboBoxBorder::paintEvent(QPaintEvent* event)
{
    QComboBox::paintEvent(event);
    QPainter painter(this);
    painter.setPen(Qt::white);
    painter.drawLine(rect().topLeft(), rect().topRight());
    painter.drawLine(rect().topRight(), rect().bottomRight());
    painter.drawLine(rect().bottomRight(), rect().bottomLeft());
    painter.drawLine(rect().bottomLeft(), rect().topLeft());
}

void ComboBoxBorder::mousePressEvent(QMouseEvent* event)
{
    event->ignore();
}
