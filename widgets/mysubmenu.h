#ifndef MYSUBMENU_H
#define MYSUBMENU_H

#include "widgets/talkingmenu.h"

/* A talking list menu whose signals also tell how many entries follow the current one: lists of
 * files are shown newest first and stored oldest first. */
class MySubMenu : public TalkingMenu
{
    Q_OBJECT

public:
    /* `title` is shown in the first line. */
    explicit MySubMenu(const QString& title, QWidget* parent = nullptr);

signals:
    /* The menu is shown and has entries. */
    void signalShow(int index, const QString& text, int fromEnd);

    /* Up or Down moved to this entry. */
    void signalUp(int index, const QString& text, int fromEnd);
    void signalDown(int index, const QString& text, int fromEnd);

    /* A key arrived, before anything else is done about it. */
    void signalKeyPress();

protected:
    void announceKeyPress() override;
    void announceShow(int index, const QString& text, int fromEnd) override;
    void announceUp(int index, const QString& text, int fromEnd) override;
    void announceDown(int index, const QString& text, int fromEnd) override;
    bool waitsForSpeech() const override;
};

#endif
