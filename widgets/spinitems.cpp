#include "widgets/spinitems.h"

#include "widgets/painting.h"
#include "widgets/talkinglist.h"

#include <QPainter>
#include <QTimerEvent>

SpinItems::SpinItems(QWidget* parent) : QWidget(parent), m_font(painting::screenFont())
{
    setObjectName(QStringLiteral("SpinItems"));
    setFont(QFont(QStringLiteral("nits")));
    setFocusPolicy(Qt::NoFocus);
    resize(rowlayout::Width, rowlayout::Height);
}

void SpinItems::moveNext()
{
    m_values.next(ValueList::End::Wrap);
    valueChanged();
}

void SpinItems::movePrev()
{
    m_values.previous(ValueList::End::Wrap);
    valueChanged();
}

void SpinItems::setCurIndex(int index)
{
    if (m_values.setIndex(index))
        valueChanged();
}

void SpinItems::setTextFont(const QFont& font)
{
    m_font = painting::onScreen(font);
    refresh();
}

void SpinItems::addItem(const QString& text)
{
    m_values.append(text);
    valueChanged();
}

void SpinItems::setText1(const QString& text)
{
    m_label = text;
    refresh();
}

QString SpinItems::getText1() const
{
    return m_label;
}

QString SpinItems::getCurItem() const
{
    return m_values.current();
}

int SpinItems::getCurIndex() const
{
    return m_values.index();
}

int SpinItems::count() const
{
    return m_values.count();
}

void SpinItems::setSelect(bool on)
{
    if (m_selected == on)
        return;
    m_selected = on;
    refresh();
}

bool SpinItems::isSelected() const
{
    return m_selected;
}

void SpinItems::setInterSpace(int pixels)
{
    m_interSpace = qMax(0, pixels);
    refresh();
}

void SpinItems::setLeftRightClick(bool on)
{
    m_leftRightClick = on;
}

bool SpinItems::isLeftRightClick() const
{
    return m_leftRightClick;
}

void SpinItems::setChoice(bool on)
{
    m_choice = on;
    refresh();
}

void SpinItems::trigger(int index, const QString& text)
{
    emit triggered(index, text);
}

void SpinItems::valueChanged()
{
    refresh();
}

QFont SpinItems::textFont() const
{
    return m_font;
}

int SpinItems::textWidth(const QString& text) const
{
    return painting::textWidth(text, m_font);
}

int SpinItems::wantedValueWidth() const
{
    return textWidth(painting::oneLine(m_values.current()));
}

rowlayout::Place SpinItems::place() const
{
    const int label = textWidth(painting::oneLine(m_label));
    return rowlayout::place(width(), label, wantedValueWidth(), m_interSpace);
}

int SpinItems::top() const
{
    return qMax(0, (height() - rowlayout::Height) / 2);
}

void SpinItems::paintText(QPainter& painter, int x, int room, const QString& text) const
{
    const bool scrolls = m_scrollTimer.isActive();
    const int scroll = scrolls ? slowscroll::offset(m_scrollTick, textWidth(text), room) : 0;
    painting::drawLine(painter, QRect(x, top() + rowlayout::TextTop, room, painting::LineHeight),
                       scrolls ? text : painting::elide(text, room, m_font), scroll, m_font);
}

void SpinItems::paintValue(QPainter& painter, const rowlayout::Place& place) const
{
    paintText(painter, place.valueX + rowlayout::ValueIndent, place.valueRoom,
              painting::oneLine(m_values.current()));
}

void SpinItems::paintChoice(QPainter& painter) const
{
    const QRect box(0, 0, width(), painting::LineHeight);
    if (m_selected)
        painter.fillRect(box, palette().color(QPalette::Highlight));
    const int room = box.width() - 2 * rowlayout::Margin;
    const QString text = painting::elide(painting::oneLine(m_label), room, m_font);
    const int left = (box.width() - textWidth(text)) / 2;
    painting::drawLine(painter, box.adjusted(left, 0, 0, 0), text, 0, m_font);
}

void SpinItems::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(m_selected ? QPalette::HighlightedText : QPalette::WindowText));
    if (m_choice) {
        paintChoice(painter);
        return;
    }
    if (m_selected)
        painter.fillRect(rect(), palette().color(QPalette::Highlight));
    const rowlayout::Place where = place();
    paintText(painter, rowlayout::Margin, where.labelRoom, painting::oneLine(m_label));
    paintValue(painter, where);
}

void SpinItems::refresh()
{
    m_scrollTick = 0;
    m_scrollTimer.stop();
    update();
    if (!m_animated || !m_selected || m_choice || !isVisible())
        return;
    const rowlayout::Place where = place();
    if (textWidth(painting::oneLine(m_label)) > where.labelRoom
        || wantedValueWidth() > where.valueRoom)
        m_scrollTimer.start(slowscroll::TickMilliseconds, this);
}

void SpinItems::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    refresh();
}

void SpinItems::hideEvent(QHideEvent* event)
{
    m_scrollTimer.stop();
    QWidget::hideEvent(event);
}

void SpinItems::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != scrollTimerId()) {
        QWidget::timerEvent(event);
        return;
    }
    ++m_scrollTick;
    update();
}

bool SpinItems::isAnimated() const
{
    return m_animated;
}

void SpinItems::setAnimated(bool on)
{
    m_animated = on;
    refresh();
}

int SpinItems::scrollTimerId() const
{
    return m_scrollTimer.isActive() ? m_scrollTimer.timerId() : -1;
}
