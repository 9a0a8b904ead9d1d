#ifndef SCANTEXT_H
#define SCANTEXT_H

#include <QByteArray>
#include <QString>

/* The text of a scan file, as bytes and back; the excerpts of it. No state. */
namespace scantext {

/* Bytes of a text that the editor takes, as savedSize() counts them; and of a file that is read at
 * all: above that no encoding makes its text small enough. */
constexpr qint64 MaxSavedBytes = 65536;
constexpr qint64 MaxFileBytes = 4 * MaxSavedBytes;

/* A byte-order mark (FF FE), then the text's code units, little-endian, as they are. */
QByteArray encode(const QString& text);

/* The text with "\r\n" for each "\n". */
QString withCarriageReturns(const QString& text);

/* As encode(), with carriage returns: what is stored when an existing file is saved. */
QByteArray encodeSaved(const QString& text);

/* The text of a file. Our own files are UTF-16 with a mark. Files from a PC may be anything: a mark
 * decides, else what the bytes look like (store/encodingguess.h). Line ends of all kinds become
 * "\n". */
QString decode(const QByteArray& bytes);

/* Bytes that the text takes in a saved file, without the mark: each "\n" counts as two units. */
qint64 savedSize(const QString& text);

/* The excerpt of a new file: the last 6 characters. */
QString briefOfNew(const QString& text);

/* The excerpt of a file that is saved again: the last 6 characters that are no blank, tab or line
 * feed, in their order. */
QString briefOfSaved(const QString& text);

} // namespace scantext

#endif
