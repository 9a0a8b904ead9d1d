#ifndef KEYBUTTON_H
#define KEYBUTTON_H

#include "desk/penkeys.h"

#include <QAbstractButton>

/*
 * A key of the pen. pressed() and released() follow the finger: mouse button or space bar on the
 * key, or showPressed() for the same key of the keyboard.
 */
class KeyButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit KeyButton(const penkeys::PenKey& key, QWidget* parent = nullptr);

    Qt::Key key() const { return m_key; }

    /* Draws the key as held down, or not, without a signal. */
    void showPressed(bool pressed);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintSymbol(QPainter& painter, const QRectF& face) const;

    const Qt::Key m_key;
    bool m_shownPressed = false;
};

#endif
