#include "widgets/yesnoselect.h"

#include "widgets/evenlines.h"
#include "widgets/painting.h"
#include "widgets/spinitems.h"
#include "widgets/talkinglist.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QTimerEvent>
#include <limits>

namespace {

constexpr int ChoiceHeight = 69;
constexpr int ChoiceTop = painting::ScreenHeight - painting::LineHeight;
constexpr int MessageLines = 3;
constexpr int MessageMargin = 4; // at both sides of a message that is in the middle
constexpr int Leading = 2;       // between lines that leave room: Chinese characters fill theirs
constexpr int TicksPerStep = 3;  // reading lines takes longer than following one

} // namespace

// A dialog with a parent needs Qt::Dialog besides the frameless hint: with the hint alone it
// would be a child widget, and no key would reach it.
YesnoSelect::YesnoSelect(QWidget* parent) : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint)
{
    setObjectName(QStringLiteral("YesnoSelect"));
    setFixedSize(painting::ScreenWidth, painting::ScreenHeight);
    move(0, 0);
    addChoice(tr("Yes"));
    addChoice(tr("No"));
    m_choices.first()->setSelect(true);
    setMsgText(tr("Are you sure to delete it?"));
}

YesnoSelect::YesnoSelect(const QString& message) : YesnoSelect()
{
    setMsgText(message);
}

void YesnoSelect::addChoice(const QString& label)
{
    constexpr int width = painting::ScreenWidth / 2;
    auto* row = new SpinItems(this);
    row->setText1(label);
    row->setChoice(true);
    row->setGeometry(static_cast<int>(m_choices.size()) * width, ChoiceTop, width, ChoiceHeight);
    m_choices.append(row);
}

void YesnoSelect::setMsgText(const QString& text)
{
    m_message = text;
    m_lines = evenlines::evenLines(m_message, width() - 2 * MessageMargin,
                                   std::numeric_limits<int>::max());
    restartScroll();
    update();
}

int YesnoSelect::getValue() const
{
    return m_value;
}

// Closing the windows of the application closes the dialog, too. The value Yes of the beginning
// must not pass for an answer then.
void YesnoSelect::reject()
{
    m_value = 2;
    QDialog::reject();
}

bool YesnoSelect::focusNextPrevChild(bool)
{
    return false;
}

void YesnoSelect::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
        answer();
        break;
    case Qt::Key_Escape:
        leave();
        break;
    case Qt::Key_Left:
        choose(qMax(0, m_index - 1), 0);
        break;
    case Qt::Key_Right:
        choose(qMin(static_cast<int>(m_choices.size()) - 1, m_index + 1), 1);
        break;
    default:
        QDialog::keyPressEvent(event);
    }
}

void YesnoSelect::choose(int index, int direction)
{
    m_index = index;
    for (SpinItems* row : std::as_const(m_choices))
        row->setSelect(row == m_choices.at(m_index));
    update();
    emit singalLR(direction, m_choices.at(m_index)->getText1());
}

void YesnoSelect::answer()
{
    const QPointer<YesnoSelect> self(this);
    emit signalEsc();
    if (!self)
        return;
    m_value = m_index;
    done(Accepted);
}

void YesnoSelect::leave()
{
    const QPointer<YesnoSelect> self(this);
    emit signalEsc();
    if (self)
        reject();
}

void YesnoSelect::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    restartScroll();
    emit signalShow(m_index, m_choices.at(m_index)->getText1());
}

void YesnoSelect::hideEvent(QHideEvent* event)
{
    m_scrollTimer.stop();
    QDialog::hideEvent(event);
}

void YesnoSelect::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    painter.setPen(palette().color(QPalette::WindowText));
    const QRect box(0, 0, width(), ChoiceTop);
    painter.setClipRect(box);
    const int count = static_cast<int>(m_lines.size());
    const int leading = count < MessageLines ? Leading : 0;
    const int height = count * (painting::LineHeight + leading) - leading;
    int top = qMax(0, (box.height() - height) / 2)
              - slowscroll::offset(m_scrollTick / TicksPerStep, height, box.height());
    for (const QString& line : m_lines) {
        const int left = (box.width() - painting::textWidth(line)) / 2;
        painting::drawLine(painter, QRect(left, top, box.width() - left, painting::LineHeight),
                           line);
        top += painting::LineHeight + leading;
    }
}

void YesnoSelect::restartScroll()
{
    m_scrollTick = 0;
    m_scrollTimer.stop();
    if (m_animated && isVisible() && m_lines.size() > MessageLines)
        m_scrollTimer.start(slowscroll::TickMilliseconds, this);
}

void YesnoSelect::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != scrollTimerId()) {
        QDialog::timerEvent(event);
        return;
    }
    ++m_scrollTick;
    update();
}

bool YesnoSelect::isAnimated() const
{
    return m_animated;
}

void YesnoSelect::setAnimated(bool on)
{
    m_animated = on;
    restartScroll();
    update();
}

int YesnoSelect::scrollTimerId() const
{
    return m_scrollTimer.isActive() ? m_scrollTimer.timerId() : -1;
}
