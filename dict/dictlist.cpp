#include "dict/dictlist.h"

#include "widgets/painting.h"
#include "widgets/talkinglist.h"

#include <QPainter>
#include <QStyleOptionComboBox>
#include <QTimerEvent>

namespace {

constexpr int Margin = 3; // between the frame and the text
constexpr int Gap = 6;    // between the text and the place

} // namespace

DictList::DictList(QWidget* parent) : ComboBoxBorder(parent)
{
    setFocusPolicy(Qt::NoFocus);
    connect(this, &QComboBox::currentIndexChanged, this, &DictList::refresh);
}

void DictList::setNames(const QVector<QString>& names)
{
    clear();
    for (const QString& name : names)
        addItem(name);
    refresh();
}

void DictList::selectNext()
{
    if (count() > 0)
        setCurrentIndex((currentIndex() + 1) % count());
}

void DictList::selectPrevious()
{
    if (count() > 0)
        setCurrentIndex(currentIndex() > 0 ? currentIndex() - 1 : count() - 1);
}

QString DictList::shownText() const
{
    return count() > 0 ? painting::oneLine(currentText()) : tr("No dictionary.");
}

QString DictList::place() const
{
    if (count() < 2 || currentIndex() < 0)
        return {};
    return QString::number(currentIndex() + 1) + u'/' + QString::number(count());
}

QRect DictList::textBox() const
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    const int width = field.right() + 1 - Margin - (rect().left() + Margin);
    return {rect().left() + Margin, (height() - painting::LineHeight) / 2, width,
            painting::LineHeight};
}

void DictList::refresh()
{
    m_scrollTick = 0;
    m_scrollTimer.stop();
    update();
    const QString number = place();
    const int taken = number.isEmpty() ? 0 : painting::textWidth(number) + Gap;
    if (m_animated && isVisible() && painting::textWidth(shownText()) > textBox().width() - taken)
        m_scrollTimer.start(slowscroll::TickMilliseconds, this);
}

// The style draws all but the text, which it would cut off.
void DictList::initStyleOption(QStyleOptionComboBox* option) const
{
    ComboBoxBorder::initStyleOption(option);
    option->currentText.clear();
}

void DictList::paintEvent(QPaintEvent* event)
{
    ComboBoxBorder::paintEvent(event);
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    QRect box = textBox();
    const QString number = place();
    if (!number.isEmpty()) {
        const int width = painting::textWidth(number);
        painting::drawLine(painter, QRect(box.right() + 1 - width, box.top(), width, box.height()),
                           number);
        box.setWidth(box.width() - width - Gap);
    }
    const QString text = shownText();
    const bool scrolls = m_scrollTimer.isActive();
    const int scroll =
        scrolls ? slowscroll::offset(m_scrollTick, painting::textWidth(text), box.width()) : 0;
    painting::drawLine(painter, box, scrolls ? text : painting::elide(text, box.width()), scroll);
}

void DictList::resizeEvent(QResizeEvent* event)
{
    ComboBoxBorder::resizeEvent(event);
    refresh();
}

void DictList::showEvent(QShowEvent* event)
{
    ComboBoxBorder::showEvent(event);
    refresh();
}

void DictList::hideEvent(QHideEvent* event)
{
    m_scrollTimer.stop();
    ComboBoxBorder::hideEvent(event);
}

void DictList::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != scrollTimerId()) {
        ComboBoxBorder::timerEvent(event);
        return;
    }
    ++m_scrollTick;
    update();
}

void DictList::setAnimated(bool on)
{
    m_animated = on;
    refresh();
}

int DictList::scrollTimerId() const
{
    return m_scrollTimer.isActive() ? m_scrollTimer.timerId() : -1;
}
