#include "tests/fakes/testroot.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

namespace {

constexpr const char* ScanLanguages = "English\t101\tEnglish\t1\t1\t1\t1\n"
                                      "French\t103\tFran\xc3\xa7"
                                      "ais\t1\t1\t1\t0\n"
                                      "German\t104\tDeutsch\t1\t1\t1\t0\n"
                                      "Spanish\t105\tEspa\xc3\xb1ol\t1\t1\t1\t0\n"
                                      "Russian\t151\t\xd0\xa0\xd1\x83\xd1\x81\xd1\x81\xd0\xba"
                                      "\xd0\xb8\xd0\xb9\t1\t1\t1\t0\n"
                                      "Chinese\t1\t\xe4\xb8\xad\xe6\x96\x87\t1\t1\t1\t0\n";

constexpr const char* MenuLanguages = "English\tEnglish\nChinese\t\xe4\xb8\xad\xe6\x96\x87\n";

// UTF-16 with a byte-order mark, which every codec of the application recognises.
QByteArray utf16(const char* utf8)
{
    const QString text = QChar(QChar::ByteOrderMark) + QString::fromUtf8(utf8);
    return QByteArray(reinterpret_cast<const char*>(text.utf16()), 2 * text.size());
}

void restore(const char* name, const QByteArray& value)
{
    if (value.isNull())
        qunsetenv(name);
    else
        qputenv(name, value);
}

} // namespace

TestRoot::TestRoot()
    : m_oldRoot(qgetenv("SWIPELINE_ROOT")), m_oldRuntimeDir(qgetenv("XDG_RUNTIME_DIR"))
{
    for (const char* folder :
         {"/apps/config", "/apps/res", "/apps/data/ocrrec", "/tmp", "/mnt/mmc",
          "/mnt/mmc/e_ScanFile", "/mnt/mtdblock3/e_ListenFile", "/mnt/hidmmc/sysdict", "/run"})
        QDir().mkpath(path(QString::fromLatin1(folder)));
    QFile::setPermissions(path(QStringLiteral("/run")),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("SWIPELINE_ROOT", QFile::encodeName(m_dir.path()));
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(path(QStringLiteral("/run"))));
    write(QStringLiteral("/apps/config/scanlanguage.cfg"), utf16(ScanLanguages));
    write(QStringLiteral("/apps/config/menulan.cfg"), utf16(MenuLanguages));
    write(QStringLiteral("/apps/config/config.ini"), QByteArray());
}

TestRoot::~TestRoot()
{
    restore("SWIPELINE_ROOT", m_oldRoot);
    restore("XDG_RUNTIME_DIR", m_oldRuntimeDir);
}

QString TestRoot::path(const QString& penPath) const
{
    return m_dir.path() + penPath;
}

void TestRoot::write(const QString& penPath, const QByteArray& bytes) const
{
    QFile file(path(penPath));
    QDir().mkpath(QFileInfo(file).path());
    const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    Q_ASSERT_X(written, "TestRoot::write", qPrintable(penPath));
}

QByteArray TestRoot::read(const QString& penPath) const
{
    QFile file(path(penPath));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool TestRoot::exists(const QString& penPath) const
{
    return QFileInfo::exists(path(penPath));
}

void TestRoot::setSetting(const QString& key, int value) const
{
    QSettings(path(QStringLiteral("/apps/config/config.ini")), QSettings::IniFormat)
        .setValue(key, value);
}
