#ifndef MYMENU_H
#define MYMENU_H

#include "widgets/talkingmenu.h"

/* A talking list menu; its entries are announced by index and text. */
class MyMenu : public TalkingMenu
{
    Q_OBJECT

public:
    /* `title` is shown in the first line. */
    explicit MyMenu(const QString& title, QWidget* parent = nullptr);

signals:
    /* The menu is shown and has entries. */
    void signalShow(int index, const QString& text);

    /* Up or Down moved to this entry. */
    void signalUp(int index, const QString& text);
    void signalDown(int index, const QString& text);

protected:
    void announceShow(int index, const QString& text, int fromEnd) override;
    void announceUp(int index, const QString& text, int fromEnd) override;
    void announceDown(int index, const QString& text, int fromEnd) override;
    bool waitsForSpeech() const override;
};

#endif
