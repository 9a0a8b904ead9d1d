#include "app/renamerules.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>

namespace renamerules {

namespace {

bool isNumberedDevice(QStringView name)
{
    return name.size() == 4 && name.at(3) >= u'1' && name.at(3) <= u'9'
           && (name.startsWith(u"COM", Qt::CaseInsensitive)
               || name.startsWith(u"LPT", Qt::CaseInsensitive));
}

} // namespace

bool judgeName(const QString& name)
{
    static const QString refused = QStringLiteral("|<>?:\"\\/*");
    return std::none_of(name.begin(), name.end(), [](QChar c) { return refused.contains(c); });
}

bool isReserved(const QString& name)
{
    static const QStringList devices = {QStringLiteral("CON"), QStringLiteral("PRN"),
                                        QStringLiteral("AUX"), QStringLiteral("NUL")};
    const QString base = name.section(u'.', 0, 0).trimmed();
    return devices.contains(base, Qt::CaseInsensitive) || isNumberedDevice(base)
           || name.contains(QLatin1String(".txt"));
}

Refusal judge(const QString& name)
{
    if (name.isEmpty())
        return Refusal::Empty;
    if (name.size() > MaxLength)
        return Refusal::TooLong;
    // Half a surrogate pair has no place in a file name: the file would get another one.
    if (!judgeName(name) || !name.isValidUtf16())
        return Refusal::InvalidCharacter;
    return isReserved(name) ? Refusal::Reserved : Refusal::None;
}

QString text(Refusal refusal)
{
    switch (refusal) {
    case Refusal::None:
        break;
    case Refusal::Empty:
        return QCoreApplication::translate("MainWindow", "The name is empty.");
    case Refusal::TooLong:
        return QCoreApplication::translate("MainWindow", "String is too long.");
    case Refusal::InvalidCharacter:
        return QCoreApplication::translate("MainWindow", "Invalid character.");
    case Refusal::Reserved:
        return QCoreApplication::translate("MainWindow", "This name cannot be used.");
    }
    return {};
}

QString question(const QString& oldName, const QString& newName)
{
    return QCoreApplication::translate("MainWindow", "Rename") + QLatin1String(" [") + oldName
           + QLatin1String("] ") + QCoreApplication::translate("MainWindow", "to")
           + QLatin1String(" [") + newName + u']';
}

} // namespace renamerules
