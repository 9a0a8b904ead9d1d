#ifndef QCOPMESSAGE_H
#define QCOPMESSAGE_H

#include <QByteArray>
#include <QString>

/*
 * The datagram that carries one message, and the limits of what is sent.
 *
 * Layout: the four bytes "QCP1", the length of the name (16 bits), the length of the payload
 * (32 bits), both in the machine's byte order (sender and receiver are one machine), then the name
 * in UTF-8 and the payload.
 */
namespace qcop {

constexpr qsizetype MaxChannelLength = 64; // characters
constexpr qsizetype MaxNameBytes = 255;    // of a message's name in UTF-8
constexpr qsizetype MaxPayloadBytes = 32768;
constexpr qsizetype HeadBytes = 10;
constexpr qsizetype MaxDatagramBytes = HeadBytes + MaxNameBytes + MaxPayloadBytes;

/* 1 to 64 characters out of A-Z, a-z, 0-9, "-" and "_"; so it is a safe file name, too. */
bool isChannelName(const QString& channel);

/* The datagram; empty when the name or the payload passes its limit. */
QByteArray pack(const QString& message, const QByteArray& payload);

/* The reverse. False, and nothing is touched, when the bytes are no well-formed datagram. */
bool unpack(const QByteArray& datagram, QString& message, QByteArray& payload);

} // namespace qcop

#endif
