#include "desk/pageview.h"

#include "desk/desklook.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QtConcurrentRun>
#include <algorithm>

namespace {

constexpr int PaperMargin = 18;
constexpr double MostPixelsPerMm = 6.0;
constexpr int RestMs = 8;
constexpr double DragThreshold = 4.0; // pixels; less is a click
constexpr double TrailStepMm = 0.5;
constexpr int ReadMs = 1500; // an outcome is shown so long
constexpr int LostMs = 4000;

} // namespace

PageView::PageView(QWidget* parent) : QAbstractScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setAccessibleName(tr("The printed page"));
    setAccessibleDescription(
        tr("Up and Down choose a line, Return swipes it; a drag with the mouse is a swipe"));
    setToolTip(tr("Drag over a line to swipe it, or double-click it. "
                  "With the keyboard: F6, Up and Down, Return."));
    setFocusPolicy(Qt::TabFocus); // a swipe with the mouse leaves the keys to the pen
    viewport()->setAutoFillBackground(false);
    viewport()->setMouseTracking(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(&m_scaler, &QFutureWatcher<QImage>::finished, this, [this] {
        m_scaled = m_scaler.result();
        viewport()->update();
    });
    m_restTimer.setInterval(RestMs);
    connect(&m_restTimer, &QTimer::timeout, this, [this] { emit swipeMoves(handAt(m_mouse)); });
    m_outcomeTimer.setSingleShot(true);
    connect(&m_outcomeTimer, &QTimer::timeout, this, &PageView::clearOutcome);
}

void PageView::setPage(const PrintedPage& page)
{
    endDrag(m_mouse); // its line is one of the old page
    m_page = page;
    m_notice.clear();
    m_scaled = QImage();
    m_line = -1;
    clearOutcome();
    arrange();
    scale();
    verticalScrollBar()->setValue(0);
}

void PageView::setNotice(const QString& notice)
{
    m_notice = notice;
    viewport()->update();
}

void PageView::showCamera(QPointF mm, double angleDeg)
{
    if (!m_cameraShown)
        clearOutcome();
    m_cameraShown = true;
    m_cameraMm = mm;
    m_cameraAngle = angleDeg;
    if (m_trail.empty() || QLineF(m_trail.back(), mm).length() >= TrailStepMm)
        m_trail.push_back(mm);
    viewport()->update();
}

void PageView::hideCamera()
{
    m_cameraShown = false;
    viewport()->update();
}

void PageView::setLeftHand(bool left)
{
    m_leftHand = left;
    viewport()->update();
}

void PageView::showOutcome(const QString& text, bool lost)
{
    if (m_cameraShown)
        return; // the next swipe has begun
    m_outcome = text;
    m_outcomeKind = lost ? penonpaper::Outcome::Lost : penonpaper::Outcome::Read;
    m_outcomeTimer.start(lost ? LostMs : ReadMs);
    viewport()->update();
}

void PageView::clearOutcome()
{
    m_outcomeTimer.stop();
    m_outcome.clear();
    m_outcomeKind = penonpaper::Outcome::Open;
    m_trail.clear();
    viewport()->update();
}

double PageView::pixelsPerMm() const
{
    const double width = viewport()->width() - 2 * PaperMargin;
    return std::clamp(width / m_page.sizeMm().width(), 1.0, MostPixelsPerMm);
}

QPointF PageView::paperOrigin() const
{
    const double paperWidth = m_page.sizeMm().width() * pixelsPerMm();
    const double left = std::max<double>(PaperMargin, (viewport()->width() - paperWidth) / 2);
    return {left, double(PaperMargin - verticalScrollBar()->value())};
}

QPointF PageView::toMm(QPointF viewportPoint) const
{
    return (viewportPoint - paperOrigin()) / pixelsPerMm();
}

QRectF PageView::toViewport(const QRectF& mm) const
{
    return {mm.topLeft() * pixelsPerMm() + paperOrigin(), mm.size() * pixelsPerMm()};
}

QPointF PageView::handAt(QPointF viewportPoint) const
{
    QPointF mm = toMm(viewportPoint);
    if (m_ruler && m_dragLine >= 0)
        mm.setY(m_page.lines.at(m_dragLine).mm.center().y());
    return mm;
}

void PageView::arrange()
{
    if (m_page.isEmpty())
        return;
    const int paperHeight = int(m_page.sizeMm().height() * pixelsPerMm()) + 2 * PaperMargin;
    verticalScrollBar()->setRange(0, std::max(0, paperHeight - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(24);
}

void PageView::scale()
{
    if (m_page.isEmpty())
        return;
    const double ratio = devicePixelRatioF();
    const QSize size = (m_page.sizeMm() * (pixelsPerMm() * ratio)).toSize();
    m_scaler.setFuture(QtConcurrent::run([image = m_page.image, size] {
        return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }));
}

void PageView::chooseLine(int line)
{
    if (line == m_line)
        return;
    m_line = line;
    if (line >= 0)
        setAccessibleDescription(m_page.lines.at(line).text);
    viewport()->update();
}

bool PageView::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::Leave && m_drag == Drag::None && !hasFocus())
        chooseLine(-1);
    return QAbstractScrollArea::viewportEvent(event);
}

void PageView::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    arrange();
    scale();
}

void PageView::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setPen(Qt::NoPen);
    painter.setBrush(desklook::colours().mat);
    painter.drawRoundedRect(viewport()->rect(), 8, 8);
    if (m_page.isEmpty() || !m_notice.isEmpty()) {
        painter.setPen(desklook::colours().quietText);
        painter.drawText(viewport()->rect().adjusted(40, 40, -40, -40),
                         Qt::AlignCenter | Qt::TextWordWrap, m_notice);
        return;
    }
    paintPaper(painter);
    paintSwipe(painter);
    if (hasFocus()) {
        painter.setPen(QPen(desklook::colours().accent, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(viewport()->rect()).adjusted(1, 1, -1, -1), 6, 6);
    }
}

void PageView::paintPaper(QPainter& painter)
{
    const QRectF paper = toViewport(QRectF(QPointF(0, 0), m_page.sizeMm()));
    painter.setPen(Qt::NoPen);
    for (int i = 6; i > 0; i -= 2) {
        painter.setBrush(QColor(20, 30, 45, 10));
        painter.drawRoundedRect(paper.adjusted(-i / 2.0, 0, i / 2.0, i), 3, 3);
    }
    painter.setBrush(Qt::white);
    painter.drawRect(paper);
    // Until it has been scaled well the page is drawn roughly, which is quick.
    painter.setRenderHint(QPainter::SmoothPixmapTransform, !m_scaled.isNull());
    painter.drawImage(paper, m_scaled.isNull() ? m_page.image : m_scaled);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (m_line < 0 || m_line >= m_page.lines.size())
        return;
    QColor mark = desklook::Focus; // on paper, which is white on every desk
    if (hasFocus())
        painter.setPen(QPen(mark, 1.5));
    mark.setAlpha(hasFocus() ? 40 : 28);
    painter.setBrush(mark);
    painter.drawRoundedRect(toViewport(m_page.lines.at(m_line).mm).adjusted(-6, -4, 6, 4), 5, 5);
}

void PageView::paintSwipe(QPainter& painter)
{
    std::vector<QPointF> trail;
    trail.reserve(m_trail.size());
    for (const QPointF& mm : m_trail)
        trail.push_back(mm * pixelsPerMm() + paperOrigin());
    penonpaper::paintTrail(painter, trail, pixelsPerMm(), m_outcomeKind);
    if (m_cameraShown) {
        painter.save();
        painter.translate(m_cameraMm * pixelsPerMm() + paperOrigin());
        painter.rotate(m_cameraAngle);
        painter.scale(pixelsPerMm(), pixelsPerMm());
        penonpaper::paintPen(painter, m_leftHand);
        painter.restore();
    }
    if (!m_outcome.isEmpty())
        penonpaper::paintNote(painter, m_outcome, m_outcomeKind, noteAnchor(), viewport()->rect());
}

/* Where the swipe ended; without one, the line that was chosen. */
QPointF PageView::noteAnchor() const
{
    if (!m_trail.empty())
        return m_trail.back() * pixelsPerMm() + paperOrigin();
    if (m_line >= 0 && m_line < m_page.lines.size())
        return toViewport(m_page.lines.at(m_line).mm).center();
    return QRectF(viewport()->rect()).center();
}

void PageView::showLine(int line)
{
    chooseLine(line);
    const QRectF box = toViewport(m_page.lines.at(m_line).mm);
    QScrollBar* const bar = verticalScrollBar();
    if (box.top() < 30)
        bar->setValue(bar->value() + int(box.top()) - 30);
    else if (box.bottom() > viewport()->height() - 30)
        bar->setValue(bar->value() + int(box.bottom()) - viewport()->height() + 30);
}

void PageView::keyPressEvent(QKeyEvent* event)
{
    const int count = int(m_page.lines.size());
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down: {
        const int step = event->key() == Qt::Key_Up ? -1 : 1;
        if (count == 0)
            return;
        showLine(std::clamp(m_line + step, 0, count - 1));
        return;
    }
    case Qt::Key_Home:
    case Qt::Key_End:
        if (count > 0)
            showLine(event->key() == Qt::Key_Home ? 0 : count - 1);
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_line >= 0 && m_line < count)
            emit lineWanted(m_line);
        return;
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

void PageView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || m_page.isEmpty())
        return;
    m_drag = Drag::Pressed;
    m_pressed = m_mouse = event->position();
    m_dragLine = m_page.lineAt(toMm(m_pressed));
}

void PageView::mouseMoveEvent(QMouseEvent* event)
{
    m_mouse = event->position();
    if (m_drag == Drag::None) {
        const QPointF mm = toMm(m_mouse);
        const bool onPaper = QRectF(QPointF(), m_page.sizeMm()).contains(mm);
        viewport()->setCursor(onPaper ? Qt::CrossCursor : Qt::ArrowCursor);
        if (!m_page.isEmpty())
            chooseLine(m_page.lineAt(mm));
        return;
    }
    if (m_drag == Drag::Pressed) {
        if (QLineF(m_pressed, m_mouse).length() < DragThreshold)
            return;
        m_drag = Drag::Swiping;
        m_restTimer.start();
        emit swipeBegins(handAt(m_pressed));
    }
    emit swipeMoves(handAt(m_mouse));
}

void PageView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        endDrag(event->position());
}

void PageView::endDrag(QPointF viewportPoint)
{
    if (m_drag == Drag::Swiping)
        emit swipeEnds(handAt(viewportPoint));
    m_drag = Drag::None;
    m_dragLine = -1;
    m_restTimer.stop();
}

void PageView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || m_page.isEmpty())
        return;
    const int line = m_page.lineAt(toMm(event->position()));
    if (line >= 0)
        emit lineWanted(line);
}
