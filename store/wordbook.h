#ifndef WORDBOOK_H
#define WORDBOOK_H

#include <QByteArray>
#include <QString>
#include <QVector>

/* One entry of the new-word book. */
struct WordItem
{
    QString word;
    QString translation; // may have several lines
};

/* The new-word book as bytes and back. No state. */
namespace wordbook {

/*
 * The blocks of all entries in locale text (see docs/formats.md). Nothing of a text is lost: what
 * the encoding does not have, and what would be taken for the end of a line or of a block, is
 * written as its code point, "&#241;".
 */
QByteArray format(const QVector<WordItem>& items);

/* The entries of a file. What is outside the blocks is left out; a block that the file ends in
 * counts. A translation has a line feed after its last line, which it need not have had when it was
 * written. */
QVector<WordItem> parse(const QByteArray& bytes);

} // namespace wordbook

#endif
