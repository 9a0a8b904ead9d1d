#include "store/filemanager.h"

#include "platform/devicepaths.h"
#include "platform/systemcalls.h"
#include "store/cardstate.h"
#include "store/filelist.h"
#include "store/filewriter.h"
#include "store/plainfile.h"
#include "store/scannames.h"
#include "store/scantext.h"

#include <QDate>
#include <QDir>
#include <QSet>

#include <algorithm>
#include <iterator>

namespace {

constexpr int MaxFiles = 1000;
constexpr qint64 MaxListBytes = 16 * 1024 * 1024;
const QString ListPlace = QStringLiteral("/apps/config/filelist.cfg");

bool isFileThere(const FileInfo& info)
{
    const QString path = scannames::devicePlace(info);
    return !path.isEmpty() && plainfile::isPlainFile(devicePath(path));
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
    m_away = AwayFiles();
    const QStringList written = m_journal.recover();
    QByteArray bytes;
    if (plainfile::read(devicePath(ListPlace), MaxListBytes, bytes) != plainfile::Result::Done) {
        if (FileWriter().create(devicePath(ListPlace), {}) != FileWriter::Result::Done)
            return -1;
        m_away.restore(m_journal.known());
        bringBack();
        systemcalls::syncStorage();
        return 0;
    }
    const filelist::List list = filelist::parse(bytes);
    m_current = list.current;
    m_files = list.files;
    if (!list.wellFormed)
        return -1;
    dropVanished();
    m_away.restore(m_journal.known());
    bringBack();
    refresh(written);
    return 0;
}

// The ids are the places before; the current index follows its entry. Files of a card that is not
// there have not vanished; those whose text waits for the card can be opened.
void FileManager::dropVanished()
{
    const bool cardIsAway = !cardstate::isCardThere();
    int place = 0;
    while (place < m_files.size()) {
        const FileInfo& info = m_files.at(place);
        if (!isFileThere(info) && !m_journal.waitingText(scannames::devicePlace(info))) {
            if (cardIsAway && info.storage == 0)
                m_away.add(info, info.id == m_current);
            m_files.removeAt(place);
            continue;
        }
        if (m_files.at(place).id == m_current)
            m_current = place;
        m_files[place].id = place;
        ++place;
    }
}

void FileManager::bringBack()
{
    if (!m_away.isEmpty() && cardstate::isCardThere())
        m_away.bringBack(m_files, m_current, isFileThere);
}

// Texts that have come to the card at last: their entries tell what the files hold.
void FileManager::refresh(const QStringList& paths)
{
    for (FileInfo& info : m_files) {
        QByteArray bytes;
        const QString path = scannames::devicePlace(info);
        if (!paths.contains(path)
            || plainfile::read(devicePath(path), MaxListBytes, bytes) != plainfile::Result::Done)
            continue;
        info.brief = scantext::briefOfSaved(scantext::decode(bytes));
        info.date = scannames::dateText(QDate::currentDate());
    }
}

int FileManager::getFileList()
{
    const QDir folder(devicePath(scannames::scanFolder()));
    if (!folder.exists() || !folder.isReadable())
        return -1;
    refresh(m_journal.retry());
    bringBack();
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
    if (path.isEmpty() || m_journal.remove(path) != StoreJournal::Result::Done)
        return -1;
    m_files.removeAt(index);
    renumberFrom(index);
    if (m_current == index)
        m_current = getFileNum() - 1;
    if (flush() != 0)
        showDamaged();
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

int FileManager::flush()
{
    m_journal.setKnown(m_away.save());
    if (m_journal.write(ListPlace, filelist::format(m_current, m_files))
        != StoreJournal::Result::Done)
        return -1;
    systemcalls::syncStorage();
    return 0;
}
