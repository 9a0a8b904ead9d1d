// FileManager, the files: their texts and names.

#include "store/filemanager.h"

#include "platform/devicepaths.h"
#include "platform/systemcalls.h"
#include "store/plainfile.h"
#include "store/scannames.h"
#include "store/scantext.h"
#include "widgets/messagedialog.h"

#include <QDate>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <optional>

namespace {

constexpr unsigned SettleMicroseconds = 50000;

// For a terminal: a name may hold anything.
QByteArray printable(QString text)
{
    for (QChar& c : text)
        if (c.category() == QChar::Other_Control)
            c = u'?';
    return text.toUtf8();
}

} // namespace

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
    m_journal.leave();
    refresh(m_journal.retry());
    return m_journal.rename(scannames::devicePlaceOfScan(oldName),
                            scannames::devicePlaceOfScan(newName))
           == StoreJournal::Result::Done;
}

QString FileManager::readFile(const FileInfo& info)
{
    const QString path = scannames::devicePlace(info);
    if (path.isEmpty())
        return {};
    // First the scans that nobody saved: they belong to the text.
    m_journal.leave();
    refresh(m_journal.retry());
    if (const std::optional<QString> text = m_journal.waitingText(path)) {
        m_readSize = static_cast<int>(scantext::savedSize(*text));
        return *text;
    }
    QByteArray bytes;
    qint64 fileSize = 0;
    switch (plainfile::read(devicePath(path), scantext::MaxFileBytes, bytes, &fileSize)) {
    case plainfile::Result::Missing:
        m_journal.noteRead(path, std::nullopt);
        return {};
    case plainfile::Result::TooLarge:
        m_readSize = static_cast<int>(std::min<qint64>(fileSize, std::numeric_limits<int>::max()));
        return {};
    case plainfile::Result::Failed:
        m_readSize = scantext::MaxFileBytes;
        return {};
    case plainfile::Result::Done:
        break;
    }
    m_journal.noteRead(path, bytes);
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
        switch (m_journal.create(scannames::devicePlaceOfScan(name), content)) {
        case StoreJournal::Result::Done:
            return name;
        case StoreJournal::Result::Exists:
            name = scannames::following(name);
            break;
        default:
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
    if (path.isEmpty()
        || m_journal.write(path, scantext::encodeSaved(text)) != StoreJournal::Result::Done) {
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

bool FileManager::isKept(const FileInfo& info, const QString& text)
{
    const QString path = scannames::devicePlace(info);
    return !path.isEmpty()
           && m_journal.waitingText(path) == scantext::decode(scantext::encodeSaved(text));
}

bool FileManager::noteScan(const FileInfo& info, int position, const QString& inserted, int length)
{
    const QString path = scannames::devicePlace(info);
    return !path.isEmpty() && m_journal.noteScan(path, position, inserted, length);
}
