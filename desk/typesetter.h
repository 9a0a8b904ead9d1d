#ifndef TYPESETTER_H
#define TYPESETTER_H

#include "desk/printedpage.h"

/*
 * Sets text in type on a page of A5 paper, 600 dots an inch, as a printer would: black, serif, in
 * a size that books use. Any thread; the objects are not shared between threads.
 */
namespace typesetter {

struct Style
{
    QString language;         // two letters; chooses the font ("zh" a Song face)
    QString family;           // empty: by the language
    double sizePt = 12.0;     // of the running text
    double lineHeight = 1.45; // of the font's own line height
};

/* A page of the HTML text. Headings and emphasis come out as a book has them. What does not fit
 * on the page is left out. */
PrintedPage setHtml(const QString& name, const QString& html, const Style& style);

/* A page of plain text: every line of the file is a line of print (long ones are broken). */
PrintedPage setPlain(const QString& name, const QString& text, const Style& style);

/* The font family for a language. */
QString familyFor(const QString& language);

} // namespace typesetter

#endif
