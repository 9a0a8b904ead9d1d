/*
 * What menus, pages and dialogs share in drawing: the one look of a screen of 256 x 64 pixels,
 * white on black, four lines of 16 pixels.
 *
 * Interface thread only. Text is always plain: no mark-up is guessed in it.
 */
#ifndef PAINTING_H
#define PAINTING_H

#include <QFont>
#include <QPalette>
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

/* A font as the screen can show it: its family, weight and slant, sized and drawn as screenFont().
 */
QFont onScreen(const QFont& font);

/* Width of `text` in pixels when drawn with drawLine(). */
int textWidth(const QString& text, const QFont& font = screenFont());

/* `text` as one line: line breaks, tabs and other controls become blanks. */
QString oneLine(const QString& text);

/* `text` cut into lines of at most `width` pixels: at blanks and between Chinese characters,
 * inside a word only when it is too long for a line of its own. A line break in the text breaks
 * the line. At most `maxLines`; when there is more, the last line ends with an ellipsis. */
QStringList wrapText(const QString& text, int width, int maxLines);

/* Draws one line at the top left corner of `box`, which is LineHeight high, shifted `scroll`
 * pixels to the left and clipped to the box, in the painter's pen. */
void drawLine(QPainter& painter, const QRect& box, const QString& text, int scroll = 0,
              const QFont& font = screenFont());

/* `text`, or as much of its start as fits into `width` pixels with an ellipsis behind it. */
QString elide(const QString& text, int width, const QFont& font = screenFont());

/* The title line of a menu or page: the title at the left, `number` at the right edge, a rule
 * between them. `reserved` pixels at the right edge stay free (for a widget that shows a number
 * instead). */
void drawTitle(QPainter& painter, const QString& title, const QString& number, int reserved = 0);

/* Place of one of the three rows below the title, 0 to 2; the column of marks is not part of
 * it. */
QRect listRow(int row);

/* One row of a list. */
struct Row
{
    QString text;
    QString second;       /* at the right, empty for none */
    bool current = false; /* inverse */
    bool elided = true;   /* a text too long ends with an ellipsis, else it is cut off */
    int scroll = 0;       /* pixels to the left, when not elided */
};

/* Pixels that a row has for its text beside a second text. */
int rowRoom(const QString& second);

/* Draws a row in the palette's text colours, the current one in those of what is selected. */
void drawRow(QPainter& painter, const QRect& box, const QPalette& palette, const Row& row);

/* Marks at the right edge: there is more above, below. */
enum class Mark { Up, Down };

/* Draws a mark beside a row, in the painter's pen. */
void drawMark(QPainter& painter, const QRect& row, Mark mark);

/* Draws `text` in the middle of `box` in both directions, in even lines, in the painter's pen. A
 * frame of one pixel goes round the box as long as three lines are enough. */
void drawMessage(QPainter& painter, const QRect& box, const QString& text);

} // namespace painting

#endif
