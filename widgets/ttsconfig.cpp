#include "widgets/ttsconfig.h"

#include "widgets/painting.h"
#include "widgets/scanbusy.h"
#include "widgets/spinitems.h"

#include <QKeyEvent>
#include <QPainter>

namespace {

constexpr int FirstRowTop = 4;

} // namespace

TTSConfig::TTSConfig(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("TTSConfig"));
    setFont(QFont(QStringLiteral("nits")));
    setFocusPolicy(Qt::StrongFocus);
    resize(painting::ScreenWidth, painting::ScreenHeight);
}

void TTSConfig::addItem(SpinItems* row)
{
    if (!row || m_rows.contains(row))
        return;
    row->setParent(this);
    row->hide();
    m_rows.append(row);
    if (isVisible())
        showPage();
}

void TTSConfig::hideAll()
{
    for (SpinItems* row : std::as_const(m_rows))
        row->hide();
}

int TTSConfig::firstOnPage() const
{
    return m_index / RowsPerPage * RowsPerPage;
}

int TTSConfig::endOfPage() const
{
    return qMin(static_cast<int>(m_rows.size()), firstOnPage() + RowsPerPage);
}

void TTSConfig::showPage()
{
    hideAll();
    for (SpinItems* row : std::as_const(m_rows))
        row->setSelect(row == currentRow());
    for (int i = firstOnPage(); i < endOfPage(); ++i) {
        SpinItems* row = m_rows.at(i);
        row->setEnabled(true);
        row->move(0, FirstRowTop + (i - firstOnPage()) * m_rows.first()->height());
        row->show();
    }
    update();
}

SpinItems* TTSConfig::currentRow() const
{
    return m_rows.value(m_index);
}

QString TTSConfig::currentText() const
{
    const SpinItems* row = currentRow();
    return row ? row->getText1() + row->getCurItem() : QString();
}

bool TTSConfig::setCurIndex(int index)
{
    if (index < 0 || index >= m_rows.size())
        return false;
    m_index = index;
    showPage();
    return true;
}

int TTSConfig::getCurIndex() const
{
    return m_index;
}

bool TTSConfig::focusNextPrevChild(bool)
{
    return false;
}

void TTSConfig::keyPressEvent(QKeyEvent* event)
{
    if (scanEngineIsBusy())
        return;
    switch (event->key()) {
    case Qt::Key_Up:
        moveUp();
        break;
    case Qt::Key_Down:
        moveDown();
        break;
    case Qt::Key_Left:
        step(&SpinItems::movePrev);
        break;
    case Qt::Key_Right:
        step(&SpinItems::moveNext);
        break;
    case Qt::Key_Return:
        enter();
        break;
    case Qt::Key_Escape:
        escape(this);
        break;
    default:
        event->ignore();
    }
}

void TTSConfig::moveUp()
{
    setCurIndex(m_index - 1);
    if (currentRow())
        emit signalUp(m_index, currentText());
}

void TTSConfig::moveDown()
{
    setCurIndex(m_index + 1);
    if (currentRow())
        emit signalDown(m_index, currentText());
}

void TTSConfig::step(void (SpinItems::*change)())
{
    const QPointer<SpinItems> row = currentRow();
    if (!row)
        return;
    (row->*change)();
    row->trigger(row->getCurIndex(), row->getCurItem());
    // The page's rows go with it: a row that is there means that the page is, too.
    if (row)
        emit signalUp(m_index, QStringLiteral("   ") + row->getCurItem());
}

void TTSConfig::enter()
{
    SpinItems* row = currentRow();
    if (!row || row->isLeftRightClick()) {
        accept(this);
        return;
    }
    row->movePrev();
    row->trigger(row->getCurIndex(), row->getCurItem());
}

void TTSConfig::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    showPage();
    if (currentRow())
        emit signalShow(m_index, currentText());
}

void TTSConfig::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    painter.setPen(palette().color(QPalette::WindowText));
    if (firstOnPage() > 0)
        painting::drawMark(painter, m_rows.at(firstOnPage())->geometry(), painting::Mark::Up);
    if (endOfPage() < m_rows.size())
        painting::drawMark(painter, m_rows.at(endOfPage() - 1)->geometry(), painting::Mark::Down);
}
