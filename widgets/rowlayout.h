/*
 * Where label and value of a settings row stand. Plain arithmetic in pixels, no widget.
 */
#ifndef ROWLAYOUT_H
#define ROWLAYOUT_H

namespace rowlayout {

constexpr int Width = 246;       /* of a row: the column of marks at its right is not part of it */
constexpr int Height = 20;       /* of a row */
constexpr int Margin = 2;        /* free at both ends of a row */
constexpr int ValueColumn = 170; /* where values stand, so that those of a page are below another */
constexpr int ValueTop = 1;      /* a bar of 18 pixels is in the middle of the row */
constexpr int ValueIndent = 3;   /* between the value's position and what is drawn there */
constexpr int TextTop = 2;       /* a text of 16 pixels is in the middle of the row */

struct Place
{
    int labelRoom; /* pixels for the label, from Margin on */
    int valueX;    /* position of the value */
    int valueRoom; /* pixels for the value, from valueX + ValueIndent on */
};

/* Places a label and a value of the given widths, `space` pixels or more between them, in a row of
 * `width` pixels. The value stands in its column. One that is too long for it begins further left,
 * as far as the label leaves room; a label never pushes a value to the right. */
Place place(int width, int labelWidth, int valueWidth, int space);

} // namespace rowlayout

#endif
