#include "desk/penstorage.h"

#include "desk/desklink.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

constexpr const char* Slot = "mnt/mmc";
constexpr const char* CardOnDesk = "mnt/mmc.out";

} // namespace

PenStorage::PenStorage(QString root, QObject* parent) : QObject(parent), m_root(std::move(root))
{
    // A desk that was cut off left things as they were.
    if (isCardOut())
        setCardOut(false);
    if (isFull())
        setFull(false);
}

PenStorage::~PenStorage()
{
    blockSignals(true);
    setCardOut(false);
    setFull(false);
}

QString PenStorage::place(const char* name) const
{
    return m_root + QLatin1Char('/') + QLatin1String(name);
}

bool PenStorage::fail(const QString& error)
{
    m_error = error;
    return false;
}

bool PenStorage::isCardOut() const
{
    return !m_root.isEmpty() && QFileInfo(place(CardOnDesk)).isDir();
}

bool PenStorage::isFull() const
{
    return !m_root.isEmpty() && QFileInfo::exists(place(desklink::FullMarker));
}

bool PenStorage::setCardOut(bool out)
{
    if (out == isCardOut())
        return true;
    const QString slot = place(Slot);
    // What somebody made in the empty slot is in the way only when it holds something.
    if (!out && QFileInfo::exists(slot) && !QDir().rmdir(slot))
        return fail(tr("The card cannot be put back: something lies at %1.").arg(slot));
    const QString from = out ? slot : place(CardOnDesk);
    const QString to = out ? place(CardOnDesk) : slot;
    if (!QFile::rename(from, to))
        return fail(tr("The card cannot be moved from %1 to %2.").arg(from, to));
    emit cardChanged(out);
    return true;
}

bool PenStorage::setFull(bool full)
{
    if (full == isFull())
        return true;
    const QString path = place(desklink::FullMarker);
    QFile marker(path);
    QDir().mkpath(QFileInfo(path).path());
    if (full ? !marker.open(QIODevice::WriteOnly) : !marker.remove())
        return fail(
            tr("The pen's memory cannot be made full or free: %1").arg(marker.errorString()));
    emit fullChanged(full);
    return true;
}
