#include "open/qcop/qcopmessage.h"

#include <QStringDecoder>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace qcop {

namespace {
constexpr char Magic[] = {'Q', 'C', 'P', '1'};
}

bool isChannelName(const QString& channel)
{
    if (channel.isEmpty() || channel.size() > MaxChannelLength)
        return false;
    return std::all_of(channel.cbegin(), channel.cend(), [](QChar c) {
        return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9')
               || c == u'-' || c == u'_';
    });
}

QByteArray pack(const QString& message, const QByteArray& payload)
{
    const QByteArray name = message.toUtf8();
    if (name.isEmpty() || name.size() > MaxNameBytes || payload.size() > MaxPayloadBytes)
        return {};
    const auto nameLength = static_cast<std::uint16_t>(name.size());
    const auto payloadLength = static_cast<std::uint32_t>(payload.size());
    QByteArray datagram(Magic, sizeof Magic);
    datagram.append(reinterpret_cast<const char*>(&nameLength), sizeof nameLength);
    datagram.append(reinterpret_cast<const char*>(&payloadLength), sizeof payloadLength);
    return datagram + name + payload;
}

bool unpack(const QByteArray& datagram, QString& message, QByteArray& payload)
{
    if (datagram.size() < HeadBytes || std::memcmp(datagram.constData(), Magic, sizeof Magic) != 0)
        return false;
    std::uint16_t nameLength = 0;
    std::uint32_t payloadLength = 0;
    std::memcpy(&nameLength, datagram.constData() + sizeof Magic, sizeof nameLength);
    std::memcpy(&payloadLength, datagram.constData() + sizeof Magic + sizeof nameLength,
                sizeof payloadLength);
    if (nameLength == 0 || nameLength > MaxNameBytes || payloadLength > MaxPayloadBytes
        || datagram.size() != HeadBytes + nameLength + qsizetype(payloadLength))
        return false;
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString name = decoder(QByteArrayView(datagram).sliced(HeadBytes, nameLength));
    if (decoder.hasError())
        return false;
    message = name;
    payload = datagram.mid(HeadBytes + nameLength);
    return true;
}

} // namespace qcop
