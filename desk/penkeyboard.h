#ifndef PENKEYBOARD_H
#define PENKEYBOARD_H

#include <QObject>
#include <QSet>

class DeskSession;
class PenView;

/*
 * Gives the pen the keys of the computer's keyboard: arrow keys, Return and Space while the focus
 * is on the pen; Escape and F7 to F12 always, save in dialogs and pop-ups.
 */
class PenKeyboard : public QObject
{
    Q_OBJECT

public:
    /* Listens to the whole program. Both must outlive this object; `view` lies in the window. */
    PenKeyboard(DeskSession& session, PenView& view);

    /* A key of the pen goes down or up. */
    void press(Qt::Key key, bool pressed);
    /* The releases of keys that are down would go to another window. */
    void releaseAll();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool goesToPen(int key) const;

    DeskSession& m_session;
    PenView& m_view;
    QSet<Qt::Key> m_down; // keys that the pen has been told of
};

#endif
