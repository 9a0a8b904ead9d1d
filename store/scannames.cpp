#include "store/scannames.h"

#include <algorithm>
#include <limits>

namespace scannames {

namespace {

constexpr qint64 LargestNumber = std::numeric_limits<qint64>::max() - 1;

// The number behind the day, 0 when there is none that can be counted on from.
qint64 numberOf(const QString& name, qsizetype dayLength)
{
    bool ok = false;
    const qint64 number = name.mid(dayLength + 1).toLongLong(&ok);
    return ok && number > 0 && number <= LargestNumber ? number : 0;
}

QString numbered(const QString& day, qint64 number)
{
    return day + u'_' + QString::number(number);
}

} // namespace

QString next(const QVector<FileInfo>& files, const QDate& today)
{
    const QString day = today.toString(QStringLiteral("yyMMdd"));
    qint64 largest = -1;
    for (const FileInfo& info : files)
        if (info.name.contains(day))
            largest = std::max(largest, numberOf(info.name, day.size()));
    return largest < 0 ? day : numbered(day, largest + 1);
}

QString following(const QString& name)
{
    const qsizetype mark = name.lastIndexOf(u'_');
    if (mark < 0)
        return numbered(name, 1);
    const qint64 number = name.mid(mark + 1).toLongLong();
    return number > LargestNumber ? numbered(name, 1) : numbered(name.left(mark), number + 1);
}

QString dateText(const QDate& today)
{
    return today.toString(QStringLiteral("yyyyMMdd"));
}

QString listedName(const QString& fileName)
{
    const qsizetype end = fileName.indexOf(QStringLiteral(".txt"));
    return end < 0 ? QString() : fileName.left(end) + QStringLiteral("");
}

QString scanFolder()
{
    return QStringLiteral("/mnt/mmc/e_ScanFile");
}

QString devicePlaceOfScan(const QString& name)
{
    return scanFolder() + u'/' + name + QStringLiteral(".txt");
}

QString devicePlace(const FileInfo& info)
{
    if (info.storage == 0)
        return devicePlaceOfScan(info.name);
    if (info.storage == 1)
        return QStringLiteral("/mnt/mtdblock3/e_ListenFile/") + info.name + QStringLiteral(".txt");
    return {};
}

bool isUsable(const QString& name)
{
    return !name.isEmpty() && !name.contains(u'/') && !name.contains(QChar(0));
}

} // namespace scannames
