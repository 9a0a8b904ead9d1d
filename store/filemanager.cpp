#include "store/filemanager.h"

#include "platform/devicepaths.h"
#include "platform/systemcalls.h"
#include "store/filelist.h"
#include "store/filewriter.h"
#include "store/plainfile.h"
#include "store/scannames.h"
#include "store/scantext.h"
#include "widgets/messagedialog.h"

#include <QDate>
#include <QDir>
#include <QSet>

#include <algorithm>
#include <cstdio>
#include <limits>

namespace {

constexpr int MaxFiles = 1000;
constexpr qint64 MaxListBytes = 16 * 1024 * 1024;
constexpr unsigned SettleMicroseconds = 50000;
// Four times what the editor takes: above it no encoding makes the text small enough.
constexpr qint64 MaxReadBytes = 4 * 65536;

QString listPath()
{
    return devicePath(QStringLiteral("/apps/config/filelist.cfg"));
}

// For a terminal: a name may hold anything.
QByteArray printable(QString text)
{
    for (QChar& c : text)
        if (c.category() == QChar::Other_Control)
            c = u'?';
    return text.toUtf8();
}

} // namespace

FileManager* FileManager::manager = nullptr;

FileManager* FileManager::Instance()
{
    if (manager == nullptr)
        manager = new FileManager;
    return manager;
}

void FileManager::quitFun()
{
    delete manager;
    manager = nullptr;
}

int FileManager::init()
{
    m_readSize = 0;
    m_current = 0;
    m_files.clear();
    QByteArray bytes;
    if (plainfile::read(listPath(), MaxListBytes, bytes) != plainfile::Result::Done) {
        if (FileWriter().create(listPath(), {}) != FileWriter::Result::Done)
            return -1;
        systemcalls::syncStorage();
        return 0;
    }
    const filelist::List list = filelist::parse(bytes);
    m_current = list.current;
    m_files = list.files;
    if (!list.wellFormed)
        return -1;
    dropVanished();
    return 0;
}

// The ids are the places before; the current index follows its entry.
void FileManager::dropVanished()
{
    int place = 0;
    while (place < m_files.size()) {
        const QString path = scannames::devicePlace(m_files.at(place));
        if (path.isEmpty() || !plainfile::isPlainFile(devicePath(path))) {
            m_files.removeAt(place);
            continue;
        }
        if (m_files.at(place).id == m_current)
            m_current = place;
        m_files[place].id = place;
        ++place;
    }
}

int FileManager::getFileList()
{
    const QDir folder(devicePath(scannames::scanFolder()));
    if (!folder.exists() || !folder.isReadable())
        return -1;
    QSet<QString> known;
    for (const FileInfo& info : std::as_const(m_files))
        known.insert(info.name);
    // Links are left out: what they lead to is not ours to write.
    const QStringList names =
        folder.entryList(QDir::Files | QDir::Hidden | QDir::NoSymLinks, QDir::Name);
    const QString today = scannames::dateText(QDate::currentDate());
    for (const QString& fileName : names) {
        const QString name = scannames::listedName(fileName);
        if (name.isNull() || known.contains(name))
            continue;
        known.insert(name);
        m_files.append({name, QStringLiteral("Import"), today, 0, getFileNum()});
    }
    return 0;
}

int FileManager::getFileNum() const
{
    return static_cast<int>(m_files.size());
}

bool FileManager::exceedMaxNum() const
{
    return getFileNum() < MaxFiles;
}

bool FileManager::isListed(int storedIndex) const
{
    return storedIndex >= 0 && storedIndex < getFileNum();
}

int FileManager::storedIndexOf(int displayIndex) const
{
    if (!isListed(displayIndex))
        return -1;
    return getFileNum() - 1 - displayIndex;
}

bool FileManager::copyEntry(int storedIndex, FileInfo& info) const
{
    if (!isListed(storedIndex))
        return false;
    info = m_files.at(storedIndex);
    return true;
}

void FileManager::getInfoList(QVector<FileInfo>& list) const
{
    std::copy(m_files.crbegin(), m_files.crend(), std::back_inserter(list));
}

bool FileManager::getInfoByID(int displayIndex, FileInfo& info) const
{
    return copyEntry(storedIndexOf(displayIndex), info);
}

bool FileManager::getCurInfo(FileInfo& info) const
{
    return copyEntry(m_current, info);
}

bool FileManager::getLatestFile(FileInfo& info) const
{
    return copyEntry(getFileNum() - 1, info);
}

QString FileManager::getLatestFile() const
{
    return m_files.isEmpty() ? QString() : m_files.last().name;
}

void FileManager::setCurFileIndex(int storedIndex)
{
    if (isListed(storedIndex))
        m_current = storedIndex;
}

int FileManager::getCurFileIndex() const
{
    return getFileNum() - m_current - 1;
}

QString FileManager::newFileName() const
{
    return scannames::next(m_files, QDate::currentDate());
}

bool FileManager::judgeSameName(int, QString name) const
{
    const QString place = scannames::devicePlaceOfScan(name);
    std::printf("newfile name is %s\n", printable(place).constData());
    return !plainfile::isAnything(devicePath(place));
}

bool FileManager::renameFile(QString oldName, QString newName)
{
    if (!scannames::isUsable(oldName) || !scannames::isUsable(newName))
        return false;
    const FileWriter::Result result =
        FileWriter().rename(devicePath(scannames::devicePlaceOfScan(oldName)),
                            devicePath(scannames::devicePlaceOfScan(newName)));
    return result == FileWriter::Result::Done;
}

bool FileManager::saveCfg(int displayIndex, QString name)
{
    const int index = storedIndexOf(displayIndex);
    if (!isListed(index))
        return false;
    m_files[index].name = name;
    return flush() == 0;
}

int FileManager::removeAt(int displayIndex)
{
    const int index = storedIndexOf(displayIndex);
    if (!isListed(index))
        return -1;
    const QString path = scannames::devicePlace(m_files.at(index));
    if (path.isEmpty() || FileWriter().remove(devicePath(path)) != FileWriter::Result::Done)
        return -1;
    m_files.removeAt(index);
    renumberFrom(index);
    if (m_current == index)
        m_current = getFileNum() - 1;
    flush();
    return 0;
}

// After a removal: the ids are still the places before it, and the current index follows.
void FileManager::renumberFrom(int storedIndex)
{
    if (m_files.isEmpty())
        m_current = 0;
    for (int place = storedIndex; place < getFileNum(); ++place) {
        if (m_files.at(place).id == m_current)
            m_current = place;
        m_files[place].id = place;
    }
}

QString FileManager::readFile(const FileInfo& info)
{
    const QString path = scannames::devicePlace(info);
    QByteArray bytes;
    qint64 fileSize = 0;
    switch (path.isEmpty() ? plainfile::Result::Missing
                           : plainfile::read(devicePath(path), MaxReadBytes, bytes, &fileSize)) {
    case plainfile::Result::Missing:
        return {};
    case plainfile::Result::TooLarge:
        m_readSize = static_cast<int>(std::min<qint64>(fileSize, std::numeric_limits<int>::max()));
        return {};
    case plainfile::Result::Failed:
        m_readSize = MaxReadBytes;
        return {};
    case plainfile::Result::Done:
        break;
    }
    const QString text = scantext::decode(bytes);
    m_readSize = static_cast<int>(scantext::savedSize(text));
    return text;
}

int FileManager::getReturnSize() const
{
    return m_readSize;
}

void FileManager::showDamaged() const
{
    MessageDialog dialog(nullptr, tr("File system is damaged, please connect to PC and repair."));
    dialog.exec();
}

// The list only knows the files that it has read: the card may hold others. Returns the name, null
// when no file could be made.
QString FileManager::createFile(const QByteArray& content)
{
    QString name = newFileName();
    for (;;) {
        switch (FileWriter().create(devicePath(scannames::devicePlaceOfScan(name)), content)) {
        case FileWriter::Result::Done:
            return name;
        case FileWriter::Result::Exists:
            name = scannames::following(name);
            break;
        case FileWriter::Result::Failed:
            return {};
        }
    }
}

// After the list was written: nothing of it shall be left in memory only when the power goes or a
// PC takes the card over.
void FileManager::settle(bool listWritten) const
{
    systemcalls::dropPageCache();
    systemcalls::sleepMicroseconds(SettleMicroseconds);
    if (!listWritten)
        showDamaged();
}

QString FileManager::saveFile(const QString& text)
{
    const QString name = createFile(scantext::encode(text));
    if (name.isNull()) {
        showDamaged();
        return {};
    }
    systemcalls::syncStorage();
    m_files.append({name, scantext::briefOfNew(text), scannames::dateText(QDate::currentDate()), 0,
                    getFileNum()});
    settle(flush() == 0);
    return name;
}

QString FileManager::saveFile(const FileInfo& info, const QString& text)
{
    if (!isListed(info.id))
        return {};
    const QString path = scannames::devicePlace(info);
    const QByteArray content = scantext::encode(scantext::withCarriageReturns(text));
    if (path.isEmpty()
        || FileWriter().overwrite(devicePath(path), content) != FileWriter::Result::Done) {
        showDamaged();
        return {};
    }
    systemcalls::syncStorage();
    FileInfo& entry = m_files[info.id];
    entry.brief = scantext::briefOfSaved(text);
    entry.date = scannames::dateText(QDate::currentDate());
    const bool listWritten = flush() == 0;
    systemcalls::syncStorage();
    settle(listWritten);
    return info.name;
}

int FileManager::flush()
{
    const FileWriter::Result result =
        FileWriter().replace(listPath(), filelist::format(m_current, m_files));
    if (result != FileWriter::Result::Done)
        return -1;
    systemcalls::syncStorage();
    return 0;
}
