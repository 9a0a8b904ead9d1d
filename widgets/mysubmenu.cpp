#include "widgets/mysubmenu.h"

MySubMenu::MySubMenu(const QString& title, QWidget* parent) : TalkingMenu(title, parent) {}

void MySubMenu::announceKeyPress()
{
    emit signalKeyPress();
}

void MySubMenu::announceShow(int index, const QString& text, int fromEnd)
{
    emit signalShow(index, text, fromEnd);
}

void MySubMenu::announceUp(int index, const QString& text, int fromEnd)
{
    emit signalUp(index, text, fromEnd);
}

void MySubMenu::announceDown(int index, const QString& text, int fromEnd)
{
    emit signalDown(index, text, fromEnd);
}

bool MySubMenu::waitsForSpeech() const
{
    return true;
}
