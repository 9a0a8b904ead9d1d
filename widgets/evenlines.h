/*
 * The lines of a short text that stands in the middle of a screen: messages, questions, hints.
 */
#ifndef EVENLINES_H
#define EVENLINES_H

#include <QStringList>

namespace evenlines {

/* `text` cut into as few lines of at most `width` pixels as painting::wrapText() makes of it, but
 * even ones: no word is left alone on the last line, and a line ends with a sentence or a clause
 * where that leaves no line much shorter than the others. More than `maxLines`, or a word that is
 * too long for a line, is left to wrapText(). */
QStringList evenLines(const QString& text, int width, int maxLines);

} // namespace evenlines

#endif
