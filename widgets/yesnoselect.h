#ifndef YESNOSELECT_H
#define YESNOSELECT_H

#include <QBasicTimer>
#include <QDialog>
#include <QList>
#include <QString>
#include <QStringList>

class SpinItems;

/*
 * A question that fills the screen, answered with Yes or No. Run it with exec(): 1 after Yes and
 * after No, 0 when the user left it with Escape or it was closed from outside; getValue() tells
 * which. Whoever asks before something is lost looks at both: exec() == 1 && getValue() == 0.
 *
 * The question is wrapped in the three lines above the choices; a longer one scrolls slowly. The
 * two choice rows stand side by side in the fourth line. As rows they are 69 pixels high and reach
 * below the edge of the display; their box is one line, at their top.
 *
 * The dialog does not speak: whoever asks speaks the question and the choices, on signalShow() and
 * singalLR(). Keys count during a swipe, too: the dialog takes them as they are.
 *
 * Interface thread only. A slot of its signals may delete the dialog when it was shown with show(),
 * not while exec() runs.
 */
class YesnoSelect : public QDialog
{
    Q_OBJECT
    /* Whether a question that is too long scrolls. */
    Q_PROPERTY(bool animated READ isAnimated WRITE setAnimated)

public:
    explicit YesnoSelect(QWidget* parent = nullptr);
    explicit YesnoSelect(const QString& message);

    /* The question, plain text; "Are you sure to delete it?" at first. */
    void setMsgText(const QString& text);
    QString msgText() const { return m_message; }

    /* 0 after Yes, and before any answer; 1 after No; 2 after Escape or a close from outside. */
    int getValue() const;

    /* Closes without an answer: the value is 2, the result 0. */
    void reject() override;

    bool isAnimated() const;
    void setAnimated(bool on);

    /* Number of the timer of the slow scroll, -1 while nothing scrolls. */
    int scrollTimerId() const;

signals:
    /* The dialog is shown: index and label of the current choice. */
    void signalShow(int index, const QString& text);

    /* Left (0) or Right (1) was pressed, whether the choice moved or not: the label of the choice
     * that is current now. The name is the interface. */
    void singalLR(int direction, const QString& text);

    /* Enter or Escape was pressed; the dialog is about to close. */
    void signalEsc();

protected:
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void addChoice(const QString& label);
    void choose(int index, int direction);
    void answer();
    void leave();
    void restartScroll();

    QList<SpinItems*> m_choices; // owned as children
    int m_index = 0;
    int m_value = 0;
    QString m_message;

    QStringList m_lines; // the message, wrapped
    QBasicTimer m_scrollTimer;
    int m_scrollTick = 0;
    bool m_animated = true;
};

#endif
