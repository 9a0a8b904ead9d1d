#include "desk/penfiles.h"

#include <QDir>
#include <QFile>
#include <QStringDecoder>
#include <algorithm>
#include <array>

namespace {

constexpr std::array Folders = {"mnt/mmc/e_ScanFile", "mnt/mtdblock3/e_ListenFile"};
constexpr qint64 MaxBytes = 1024 * 1024;

penfiles::ScanFile read(const QString& root, const QString& path)
{
    QFile file(root + QLatin1Char('/') + path);
    penfiles::ScanFile scan = {path, file.size(), QString()};
    if (scan.bytes <= MaxBytes && file.open(QIODevice::ReadOnly))
        scan.text = penfiles::decode(file.readAll());
    return scan;
}

} // namespace

namespace penfiles {

QVector<ScanFile> list(const QString& root)
{
    QVector<ScanFile> files;
    for (const char* folder : Folders) {
        const QString relative = QLatin1String(folder);
        const QDir dir(root + QLatin1Char('/') + relative);
        for (const QString& name : dir.entryList(QDir::Files, QDir::Name))
            files.append(read(root, relative + QLatin1Char('/') + name));
    }
    return files;
}

bool contains(const QString& root, const QString& name, const QString& text)
{
    const QVector<ScanFile> files = list(root);
    const QString wanted = text.simplified();
    return std::ranges::any_of(files, [&](const ScanFile& file) {
        const QString base = file.path.section(QLatin1Char('/'), -1);
        return QDir::match(name, base) && file.text.simplified().contains(wanted);
    });
}

QString decode(const QByteArray& bytes)
{
    const auto encoding = QStringConverter::encodingForData(bytes);
    QStringDecoder decoder(encoding.value_or(QStringConverter::Utf8));
    return decoder(bytes);
}

} // namespace penfiles
