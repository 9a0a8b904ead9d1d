#include "desk/pensettings.h"

#include <QSettings>

namespace {

QString fileOf(const QString& root)
{
    return root + QLatin1String("/apps/config/config.ini");
}

} // namespace

int pensettings::value(const QString& root, const QString& key)
{
    return QSettings(fileOf(root), QSettings::IniFormat).value(key, 0).toInt();
}

bool pensettings::store(const QString& root, const QString& key, int value)
{
    QSettings settings(fileOf(root), QSettings::IniFormat);
    if (settings.value(key, 0).toInt() == value)
        return true;
    settings.setValue(key, value);
    settings.sync();
    return settings.status() == QSettings::NoError;
}
