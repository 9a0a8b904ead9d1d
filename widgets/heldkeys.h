#ifndef HELDKEYS_H
#define HELDKEYS_H

#include <QObject>

/*
 * Lets a key that is held down act once. The presses that the system repeats go to whatever is on
 * the screen by then: a press of OK that lasts half a second would choose an entry and answer the
 * question that follows, unseen and unheard; Escape would leave one screen after the other. Only
 * the arrow keys repeat.
 *
 * Install it as an event filter on the application. Interface thread only.
 */
class HeldKeys : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /* Whether a key counts as pressed once, however long it is held. */
    static bool actsOnce(int key);

    bool eventFilter(QObject* object, QEvent* event) override;
};

#endif
