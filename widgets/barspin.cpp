#include "widgets/barspin.h"

#include <QPainter>
#include <QProgressBar>

namespace {

constexpr int BarHeight = 18;

// The box behind the bar reaches past the brackets, which begin below the bar's top.
constexpr int BoxMargin = 3;
constexpr int BracketTop = 2;

} // namespace

BarSpin::BarSpin(const Look& look, QWidget* parent)
    : SpinItems(parent), m_look(look), m_bar(new QProgressBar(this))
{
    m_bar->setFocusPolicy(Qt::NoFocus);
    m_bar->setTextVisible(false);
    m_bar->setStyleSheet(QLatin1String(look.styleSheet));
    showSpin();
}

void BarSpin::moveNext()
{
    values().next(m_look.last);
    valueChanged();
}

void BarSpin::movePrev()
{
    values().previous(ValueList::End::Stop);
    valueChanged();
}

void BarSpin::showSpin()
{
    const int last = qMax(1, count() - 1) * m_look.step;
    const int maximum = m_look.maximum > 0 ? m_look.maximum : last;
    m_bar->setRange(0, maximum);
    m_bar->setValue(qMin(maximum, getCurIndex() * m_look.step));
}

void BarSpin::valueChanged()
{
    showSpin();
    SpinItems::valueChanged();
}

int BarSpin::wantedValueWidth() const
{
    return 0;
}

void BarSpin::paintValue(QPainter& painter, const rowlayout::Place&) const
{
    const QRect bar = m_bar->geometry();
    const int above = m_look.framed ? 1 : 0; // a border of the bar needs black all round it
    painter.fillRect(bar.adjusted(-BoxMargin, -above, BoxMargin, above),
                     palette().color(QPalette::Window));
    if (m_look.framed)
        return;
    painter.setPen(palette().color(QPalette::WindowText));
    const int top = bar.top() + BracketTop;
    const int bottom = bar.bottom() - BracketTop;
    for (const int side : {-1, 1}) {
        const int foot = side < 0 ? bar.left() - 1 : bar.right() + 1;
        const int stem = foot + side;
        painter.drawLine(stem, top, stem, bottom);
        painter.drawPoint(foot, top);
        painter.drawPoint(foot, bottom);
    }
}

void BarSpin::resizeEvent(QResizeEvent* event)
{
    SpinItems::resizeEvent(event);
    m_bar->setGeometry(place().valueX + rowlayout::ValueIndent, top() + rowlayout::ValueTop,
                       m_look.width - rowlayout::ValueIndent, BarHeight);
}
