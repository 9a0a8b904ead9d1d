#include "dict/dictscanedit.h"

DictScanEdit::DictScanEdit(QWidget* parent) : QWidget(parent) {}

void DictScanEdit::tirggleTTShignlight(int offset, int length, int kind)
{
    emit signalTTShignlight(offset, length, kind);
}
