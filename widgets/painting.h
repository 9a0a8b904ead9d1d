/*
 * What menus, pages and dialogs share in drawing: the one look of a screen of 256 x 64 pixels,
 * white on black, four lines of 16 pixels.
 *
 * Interface thread only. Text is always plain: no mark-up is guessed in it.
 */
#ifndef PAINTING_H
#define PAINTING_H

#include <QFont>
#include <QRect>
#include <QString>
#include <QStringList>

class QPainter;

namespace painting {

constexpr int ScreenWidth = 256; /* pixels */
constexpr int ScreenHeight = 64; /* pixels */
constexpr int LineHeight = 16;   /* pixels: four lines fill the screen */
constexpr int MaxLines = ScreenHeight / LineHeight;

/* The screen's font for drawing: family "nits" at 16 pixels whatever the resolution that the
 * display claims, without antialiasing. */
QFont screenFont();

/* Width of `text` in pixels when drawn with drawLine(). */
int textWidth(const QString& text);

/* `text` as one line: line breaks, tabs and other controls become blanks. */
QString oneLine(const QString& text);

/* `text` cut into lines of at most `width` pixels: at blanks and between Chinese characters,
 * inside a word only when it is too long for a line of its own. A line break in the text breaks
 * the line. At most `maxLines`; when there is more, the last line ends with an ellipsis. */
QStringList wrapText(const QString& text, int width, int maxLines);

/* Draws one line at the top left corner of `box`, which is LineHeight high, shifted `scroll`
 * pixels to the left and clipped to the box, in the painter's pen. */
void drawLine(QPainter& painter, const QRect& box, const QString& text, int scroll = 0);

/* Draws `text` in the middle of `box` in both directions, wrapped, in the painter's pen. A frame
 * of one pixel goes round the box as long as three lines are enough. */
void drawMessage(QPainter& painter, const QRect& box, const QString& text);

} // namespace painting

#endif
