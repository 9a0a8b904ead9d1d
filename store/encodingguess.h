#ifndef ENCODINGGUESS_H
#define ENCODINGGUESS_H

#include <QByteArray>
#include <QString>

/* The text of bytes that carry no byte-order mark and may come from any PC. No state. */
namespace encodingguess {

/*
 * Takes the first that fits:
 *  - zero bytes: UTF-16, big-endian when most of them are the first of two bytes;
 *  - UTF-8, even with a few damaged places (they become U+FFFD);
 *  - GBK, unless its pairs look like accented letters within Western words;
 *  - mostly ASCII: Windows-1252;
 *  - UTF-16, little-endian.
 */
QString decode(const QByteArray& bytes);

} // namespace encodingguess

#endif
