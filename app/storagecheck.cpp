#include "app/storagecheck.h"

#include "platform/devicepaths.h"
#include "platform/systemcalls.h"
#include "widgets/messagedialog.h"

#include <QCoreApplication>
#include <QDir>

namespace {

constexpr unsigned SettleMicroseconds = 50'000;

void flushToCard()
{
    systemcalls::syncStorage();
    systemcalls::dropPageCache();
    systemcalls::sleepMicroseconds(SettleMicroseconds);
}

} // namespace

bool isStorageLow()
{
    quint64 bytes = 0;
    return !systemcalls::freeBytes(devicePath(QStringLiteral("/mnt/mtdblock3/")), bytes)
           || bytes < MinimumFreeBytes;
}

void warnWhenStorageLow()
{
    if (!isStorageLow())
        return;
    MessageDialog(nullptr, QCoreApplication::translate(
                               "MainWindow", "No enough storage space. Please remove some files."))
        .exec();
}

void ensureScanFolder()
{
    const QString folder = devicePath(QStringLiteral("/mnt/mmc/e_ScanFile"));
    if (QDir(folder).exists())
        return;
    flushToCard();
    systemcalls::makeDirectory(folder);
    flushToCard();
}
