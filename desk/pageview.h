#ifndef PAGEVIEW_H
#define PAGEVIEW_H

#include "desk/penonpaper.h"
#include "desk/printedpage.h"

#include <QAbstractScrollArea>
#include <QFutureWatcher>
#include <QTimer>
#include <vector>

/*
 * The page of print on the desk. A drag is a swipe with the user's own hand, a double click swipes
 * the line below it; with the keyboard, Up and Down choose a line and Return swipes it.
 */
class PageView : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit PageView(QWidget* parent = nullptr);

    void setPage(const PrintedPage& page);
    /* Something to read instead of a page: it is being made, or could not be. */
    void setNotice(const QString& notice);

    /* With a ruler a drag follows the line on which it began, as far as the page knows its lines;
     * the hand's pace stays. */
    void setRuler(bool on) { m_ruler = on; }

    /* Where a part of the page is shown, in pixels of the viewport; it may be scrolled away. */
    QRectF toViewport(const QRectF& mm) const;

    /* Shows the pen where its camera looks, and the way that it has gone since it was hidden. */
    void showCamera(QPointF mm, double angleDeg);
    void hideCamera();
    void setLeftHand(bool left);

    /* Shows for a moment what became of the last swipe, where it ended. */
    void showOutcome(const QString& text, bool lost);
    /* What is shown so; empty when nothing is. */
    QString outcome() const { return m_outcome; }

signals:
    void swipeBegins(QPointF mm);
    void swipeMoves(QPointF mm);
    void swipeEnds(QPointF mm);
    void lineWanted(int line);

protected:
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    enum class Drag { None, Pressed, Swiping };

    void scale();
    void arrange();
    double pixelsPerMm() const;
    QPointF paperOrigin() const;
    QPointF toMm(QPointF viewportPoint) const;
    QPointF handAt(QPointF viewportPoint) const;
    void endDrag(QPointF viewportPoint);
    void chooseLine(int line);
    void showLine(int line);
    void paintPaper(QPainter& painter);
    void paintSwipe(QPainter& painter);
    void clearOutcome();
    QPointF noteAnchor() const;

    PrintedPage m_page;
    QString m_notice;
    QImage m_scaled;
    QFutureWatcher<QImage> m_scaler;
    bool m_ruler = true;
    int m_line = -1; // chosen or below the mouse
    Drag m_drag = Drag::None;
    QPointF m_pressed; // in the viewport
    QPointF m_mouse;
    int m_dragLine = -1;
    QTimer m_restTimer; // the camera goes on while the hand rests
    bool m_cameraShown = false;
    QPointF m_cameraMm;
    double m_cameraAngle = 0.0;
    bool m_leftHand = false;
    std::vector<QPointF> m_trail; // of the camera, mm
    QString m_outcome;
    penonpaper::Outcome m_outcomeKind = penonpaper::Outcome::Open;
    QTimer m_outcomeTimer;
};

#endif
