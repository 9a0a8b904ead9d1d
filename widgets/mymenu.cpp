#include "widgets/mymenu.h"

MyMenu::MyMenu(const QString& title, QWidget* parent) : TalkingMenu(title, parent) {}

void MyMenu::announceShow(int index, const QString& text, int)
{
    emit signalShow(index, text);
}

void MyMenu::announceUp(int index, const QString& text, int)
{
    emit signalUp(index, text);
}

void MyMenu::announceDown(int index, const QString& text, int)
{
    emit signalDown(index, text);
}

bool MyMenu::waitsForSpeech() const
{
    return false;
}
