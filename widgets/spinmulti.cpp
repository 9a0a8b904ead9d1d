#include "widgets/spinmulti.h"

#include "widgets/painting.h"

#include <QPainter>

namespace {

constexpr int CellMargin = 3; // at both sides of a value
constexpr int MarkRoom = 8;   // at both sides of the values
constexpr int MarkSize = 4;   // columns of a mark

void drawMark(QPainter& painter, int tip, int middle, int direction)
{
    for (int i = 0; i < MarkSize; ++i)
        painter.drawLine(tip + direction * i, middle - i, tip + direction * i, middle + i);
}

} // namespace

SpinMulti::SpinMulti(QWidget* parent) : SpinItems(parent) {}

void SpinMulti::moveNext()
{
    addIndex(1);
}

void SpinMulti::movePrev()
{
    addIndex(-1);
}

void SpinMulti::setShowMax(int count)
{
    m_showMax = qMax(1, count);
    valueChanged();
}

void SpinMulti::addIndex(int steps)
{
    if (values().advance(steps))
        valueChanged();
}

int SpinMulti::shownCount() const
{
    return qMin(m_showMax, count());
}

int SpinMulti::cellWidth() const
{
    int widest = 0;
    for (int i = 0; i < count(); ++i)
        widest = qMax(widest, textWidth(painting::oneLine(values().at(i))));
    return widest + 2 * CellMargin;
}

int SpinMulti::wantedValueWidth() const
{
    return shownCount() * cellWidth() + 2 * MarkRoom;
}

void SpinMulti::paintValue(QPainter& painter, const rowlayout::Place& place) const
{
    if (count() == 0)
        return;
    // A long label takes the place of values: fewer of them are better than cut ones.
    const int room = qMin(place.valueRoom, wantedValueWidth()) - 2 * MarkRoom;
    const int shown = qBound(1, room / cellWidth(), shownCount());
    const int first = values().firstShown(shown);
    const int left = place.valueX + rowlayout::ValueIndent + MarkRoom;
    const int width = qMin(cellWidth(), room / shown);
    const int middle = top() + rowlayout::Height / 2;
    if (first > 0)
        drawMark(painter, left - MarkRoom + 1, middle, 1);
    if (first + shown < count())
        drawMark(painter, left + width * shown + MarkRoom - 2, middle, -1);
    for (int i = 0; i < shown; ++i) {
        const QRect cell(left + i * width, top() + rowlayout::ValueTop, width,
                         rowlayout::Height - 2 * rowlayout::ValueTop);
        painter.save();
        if (first + i == getCurIndex()) {
            painter.fillRect(cell, painter.pen().color());
            painter.setPen(palette().color(isSelected() ? QPalette::Highlight : QPalette::Window));
        }
        const QString text = painting::elide(painting::oneLine(values().at(first + i)),
                                             width - 2 * CellMargin, textFont());
        const int x = cell.left() + (width - textWidth(text)) / 2;
        painting::drawLine(
            painter,
            QRect(x, top() + rowlayout::TextTop, cell.right() + 1 - x, painting::LineHeight), text,
            0, textFont());
        painter.restore();
    }
}
