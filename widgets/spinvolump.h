#ifndef SPINVOLUMP_H
#define SPINVOLUMP_H

#include "widgets/barspin.h"
#include "widgets/pagereturn.h"

/*
 * A volume that is also a page of its own: shown as a screen, with the focus, it takes keys itself.
 * Six values, 0 to 5, fill the bar.
 *
 * Keys: Left and Right step, then triggered() and signalUp() follow; Enter and Escape leave, as
 * they leave a TTSConfig. All other keys go on to the parent; while a swipe is in progress all keys
 * are swallowed. As a page it is not selected, and label and bar stand in the middle of the screen;
 * its owner sets the geometry. Inside a TTSConfig it is a row like every other.
 *
 * A slot of its signals may delete it.
 */
class SpinVolump : public BarSpin, public PageReturn
{
    Q_OBJECT

public:
    explicit SpinVolump(QWidget* parent = nullptr);

signals:
    /* As those of a TTSConfig with this row alone; the index is always 0. */
    void signalShow(int index, const QString& text);
    void signalUp(int index, const QString& text);
    void okPressed(int index, const QString& text);
    void okPressedForQuick(int index, const QString& text);
    void escPressed();

protected:
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void step(void (SpinItems::*change)());
};

#endif
