#include "editor/myedit.h"

MyEdit::MyEdit(QWidget* parent) : QTextEdit(parent) {}

MyEdit::~MyEdit() = default;

void MyEdit::tirggleEditSingal(_stImg* image)
{
    emit signalEdit(image);
}

void MyEdit::tirggleTTShignlight(int offset, int length, int kind)
{
    emit signalTTShignlight(offset, length, kind);
}

int MyEdit::RecThread(_stImg* image)
{
    releaseImage(image);
    return -1;
}

int MyEdit::Recognize(_stImg* image)
{
    releaseImage(image);
    return -1;
}

void MyEdit::Sound(QString& text)
{
    Q_UNUSED(text)
}
