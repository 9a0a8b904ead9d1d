#ifndef MESSAGEDIALOG_H
#define MESSAGEDIALOG_H

#include <QDialog>

/*
 * A message that fills the screen and closes itself after a time or on a key. Run it with exec():
 * the result is 1 when the time ran out or Enter was pressed, 0 on Escape.
 *
 * It is spoken through the announcer whenever it is shown, whoever shows it: nobody else speaks it.
 * A key that ends it also ends what is spoken.
 *
 * Interface thread only.
 */
class MessageDialog : public QDialog
{
    Q_OBJECT

public:
    /* How long a message is shown unless it needs more. */
    static constexpr int UsualMilliseconds = 2000;

    /* `text` is plain and shown in up to four lines. `milliseconds` run from the moment the
     * dialog is shown, each time anew; a negative number counts as 0. */
    MessageDialog(QWidget* parent, QString text, int milliseconds = UsualMilliseconds);

    /* The text shown. */
    QString text() const;

    /* Number of the timer that runs while the dialog is shown, 0 when it is not. A timer event
     * with that number ends the dialog. */
    int timerId() const;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void stopTimer();

    QString m_text;
    int m_milliseconds;
    int m_timerId = 0;
};

#endif
