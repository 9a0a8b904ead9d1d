#include "store/filelist.h"

#include "store/localetext.h"
#include "store/scantext.h"

#include <QStringList>

namespace filelist {

namespace {

constexpr int Columns = 4;

// A field must not end its column or its line, neither for this reader nor for others.
QString field(QString text)
{
    for (const char16_t separator : {u'\t', u'\n', u'\r'})
        text.replace(QChar(separator), u' ');
    return text;
}

} // namespace

List parse(const QByteArray& bytes)
{
    List list;
    QStringList lines = localetext::lines(localetext::decode(bytes));
    if (lines.isEmpty())
        return list;
    list.current = lines.takeFirst().toInt();
    for (const QString& line : std::as_const(lines)) {
        const QStringList parts = line.split(u'\t');
        if (parts.size() != Columns) {
            list.wellFormed = false;
            return list;
        }
        FileInfo info;
        info.name = parts.at(0);
        info.brief = parts.at(1);
        info.date = parts.at(2);
        info.storage = parts.at(3).toInt();
        info.id = static_cast<int>(list.files.size());
        list.files.append(info);
    }
    return list;
}

QByteArray format(int current, const QVector<FileInfo>& files)
{
    QString text = QString::number(current) + u'\n';
    for (const FileInfo& info : files)
        text += field(info.name) + u'\t' + field(info.brief) + u'\t' + field(info.date) + u'\t'
                + QString::number(info.storage) + u'\n';
    return scantext::encode(text);
}

} // namespace filelist
