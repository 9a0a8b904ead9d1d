#ifndef OLEDVIEW_H
#define OLEDVIEW_H

#include <QImage>
#include <QWidget>

/*
 * The pen's display, magnified by a whole factor, as it shines behind its glass.
 */
class OledView : public QWidget
{
    Q_OBJECT

public:
    explicit OledView(int factor, QWidget* parent = nullptr);

    /* One bit a pixel. */
    void setScreen(const QImage& oneBit);
    /* Text over a dark display, while the pen is off; empty for none. */
    void setNotice(const QString& notice);
    void setFactor(int factor);

    int factor() const { return m_factor; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_factor;
    int m_step = 0; // pixels of the screen for one of the display
    QImage m_oneBit;
    QImage m_picture;
    QString m_notice;
};

#endif
