#ifndef PENVIEW_H
#define PENVIEW_H

#include "desk/oledview.h"

#include <QMap>
#include <QWidget>

class KeyButton;
class QHBoxLayout;
class QLabel;

/*
 * The pen as it lies on the desk: its body with display, keys, tip and loudspeaker.
 */
class PenView : public QWidget
{
    Q_OBJECT

public:
    explicit PenView(int factor, QWidget* parent = nullptr);

    OledView& display() { return *m_display; }

    /* How many times the display is magnified; compact: with less body around it. */
    void setFactor(int factor, bool compact);

    /* A key of the keyboard that stands for a key of the pen was pressed or released. */
    void showKey(Qt::Key key, bool pressed);

    void setCameraOn(bool on);
    void setTipPressed(bool pressed);
    void setSpeaking(bool speaking);

signals:
    void keyPressed(Qt::Key key);
    void keyReleased(Qt::Key key);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    static QLabel* makeBrand();
    void addKeys(QHBoxLayout& row, int first, int count);
    void paintTip(QPainter& painter, const QRectF& body) const;
    void paintBody(QPainter& painter, const QRectF& body) const;
    void paintGrille(QPainter& painter, const QRectF& body) const;

    OledView* m_display;
    QMap<Qt::Key, KeyButton*> m_keys;
    int m_grilleRow = 0; // above the body's lower edge
    bool m_cameraOn = false;
    bool m_tipPressed = false;
    bool m_speaking = false;
};

#endif
