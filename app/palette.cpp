#include "app/palette.h"

#include <QBrush>

QPalette screenPalette()
{
    const QBrush white(Qt::white);
    const QBrush black(Qt::black);
    QPalette palette(white, black, black, black, black, white, black, black, black);
    palette.setBrush(QPalette::All, QPalette::Highlight, white);
    palette.setBrush(QPalette::All, QPalette::HighlightedText, black);
    return palette;
}
