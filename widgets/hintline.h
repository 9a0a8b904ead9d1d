#ifndef HINTLINE_H
#define HINTLINE_H

#include <QWidget>

/*
 * A line of text over the bottom of a screen that goes by itself. Unlike a MessageDialog it takes
 * no keys and holds nothing up: for what a user should know but need not answer.
 *
 * Interface thread only. It only shows; what shows it also speaks it.
 */
class HintLine : public QWidget
{
    Q_OBJECT

public:
    /* How long a hint is shown. */
    static constexpr int Milliseconds = 2000;

    /* `screen` fills the display and owns the line; hidden at first. */
    explicit HintLine(QWidget* screen);

    /* Shows a text, which is plain and cut to one line, in place of the one before. */
    void tell(const QString& text);

    QString text() const { return m_text; }

    /* Number of the timer that runs while a hint is shown, 0 else. A timer event with that number
     * hides the line. */
    int timerId() const { return m_timerId; }

protected:
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void stopTimer();

    QString m_text;
    int m_timerId = 0;
};

#endif
