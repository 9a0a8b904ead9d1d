#ifndef LOCALETEXT_H
#define LOCALETEXT_H

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

/*
 * Text in the device's locale encoding, GBK: device tables, payloads of messages, files that come
 * from outside. Holds no state; any thread.
 */
namespace localetext {

/* Byte-order marks. */
enum class Mark { None, Utf8, Utf16Little, Utf16Big };

/* The mark that `bytes` begin with. */
Mark markOf(const QByteArray& bytes);

/* The text behind a byte-order mark; nothing when there is no mark. Bytes that are no text become
 * U+FFFD in UTF-8; lone surrogates stay; an odd last byte of UTF-16 is left out. */
std::optional<QString> decodeMarked(const QByteArray& bytes);

/* UTF-16 without a mark, `bigEndian` or not, as it stands. An odd last byte is left out. */
QString decodeUtf16(QByteArrayView bytes, bool bigEndian);

/* Text in the locale encoding, or in the encoding that a byte-order mark tells. What is no GBK
 * becomes U+FFFD; half a pair at the end is left out. */
QString decode(const QByteArray& bytes);

/* Text to the locale encoding, without a mark. Characters that GBK does not have become "?". */
QByteArray encode(const QString& text);

/* Whether all bytes are ASCII or well-formed pairs of GBK. */
bool isGbk(QByteArrayView bytes);

/* The lines of a text as a text stream reads them: ended by a line feed, carriage returns left
 * out, no empty line after the last line feed. */
QStringList lines(const QString& text);

} // namespace localetext

#endif
