#include "app/messagelog.h"

#include "platform/devicepaths.h"

#include <QFile>
#include <QTextStream>

namespace {

QString prefixOf(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return QStringLiteral("Debug: ");
    case QtWarningMsg:
        return QStringLiteral("Warning: ");
    case QtCriticalMsg:
        return QStringLiteral("Critical: ");
    case QtFatalMsg:
        return QStringLiteral("Fatal: ");
    default:
        return QString();
    }
}

} // namespace

void customMessageHandler(QtMsgType type, const char* msg)
{
    const QString prefix = prefixOf(type);
    QFile file(devicePath(QStringLiteral("/mnt/mmc/scandebuglog.txt")));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append))
        return;
    QTextStream stream(&file);
    if (!prefix.isEmpty())
        stream << prefix << QString::fromLatin1(msg);
    stream << Qt::endl;
}

void installMessageLog()
{
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& message) {
        customMessageHandler(type, message.toLatin1().constData());
    });
}
