#include "desk/launcher.h"

#include <algorithm>

namespace {

const QString ExecuteMessage = QStringLiteral("execute(QString)");
const QString UsbMessage = QStringLiteral("USB(QString)");
const QString EscapeMessage = QStringLiteral("ESC(QString)");

} // namespace

Launcher::Launcher(QObject* parent) : QObject(parent), m_channel(QStringLiteral("mainprocess"))
{
    connect(&m_channel, &QCopChannel::received, this, &Launcher::receive);
}

bool Launcher::send(const QString& message, const QByteArray& payload)
{
    const bool delivered = QCopChannel::send(QStringLiteral("scanprocess"), message, payload);
    append(true, message, payload, delivered);
    return delivered;
}

void Launcher::pressPower()
{
    send(ExecuteMessage, "presspoweroff");
}

void Launcher::plugUsb()
{
    if (m_usbPlugged)
        return;
    m_usbPlugged = true;
    send(ExecuteMessage, "plugusb");
    send(UsbMessage, "plug");
    emit usbChanged(true);
}

void Launcher::unplugUsb()
{
    if (!m_usbPlugged)
        return;
    m_usbPlugged = false;
    send(UsbMessage, "delete");
    emit usbChanged(false);
}

void Launcher::save()
{
    send(ExecuteMessage, "save");
}

void Launcher::stop()
{
    send(ExecuteMessage, "stop");
}

void Launcher::reset()
{
    if (m_sounding) {
        m_sounding = false;
        emit soundingChanged(false);
    }
    if (m_usbPlugged) {
        m_usbPlugged = false;
        emit usbChanged(false);
    }
}

bool Launcher::hasHeard(const QString& message, const QByteArray& payload, qsizetype first) const
{
    const auto begin = m_log.begin() + std::min(first, m_log.size());
    return std::any_of(begin, m_log.end(), [&](const Entry& entry) {
        return !entry.sent && entry.message == message && entry.payload == payload;
    });
}

void Launcher::receive(const QString& message, const QByteArray& payload)
{
    append(false, message, payload, true);
    if (message == ExecuteMessage && (payload == "soundyes" || payload == "soundno")) {
        const bool sounding = payload == "soundyes";
        if (m_sounding != sounding) {
            m_sounding = sounding;
            emit soundingChanged(sounding);
        }
    } else if (message == EscapeMessage && payload == "escpressed") {
        emit penLeft();
    }
}

void Launcher::append(bool sent, const QString& message, const QByteArray& payload, bool delivered)
{
    m_log.append({QTime::currentTime(), sent, message, payload, delivered});
    emit logged(m_log.last());
}
