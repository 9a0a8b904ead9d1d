// StoreJournal, what waits: made at a start, or when a card is back.

#include "store/storejournal.h"

#include "platform/devicepaths.h"
#include "store/cardstate.h"
#include "store/filewriter.h"
#include "store/plainfile.h"
#include "store/scannames.h"
#include "store/scantext.h"

#include <QSet>

#include <algorithm>

using journalformat::Kind;
using journalformat::printOf;
using Written = FileWriter::Result;

namespace {

bool overwriteFile(const QString& path, const QByteArray& content)
{
    return FileWriter().overwrite(devicePath(path), content) == Written::Done;
}

} // namespace

QStringList StoreJournal::recover()
{
    QStringList written;
    work(true, written);
    return written;
}

QStringList StoreJournal::retry()
{
    QStringList written;
    work(false, written);
    return written;
}

// In the order in which things were done. What cannot be made holds back what follows on the same
// file only.
void StoreJournal::work(bool start, QStringList& written)
{
    if (start)
        m_openPath.clear();
    const QVector<Record> records = m_journal.waiting();
    QSet<QString> heldBack;
    for (const Record& record : records) {
        const bool isOpen = record.kind == Kind::Scan && record.path == m_openPath;
        if (record.kind == Kind::Known || isOpen || !isWaiting(record.number)
            || heldBack.contains(record.path))
            continue;
        if (!cardstate::isThere(record.path) || !redo(record, written))
            heldBack.insert(record.path);
    }
}

bool StoreJournal::isWaiting(quint64 number)
{
    const QVector<Record>& records = m_journal.waiting();
    return std::any_of(records.begin(), records.end(),
                       [&](const Record& record) { return record.number == number; });
}

bool StoreJournal::redo(const Record& record, QStringList& written)
{
    bool done = true;
    switch (record.kind) {
    case Kind::Write:
        done = redoWrite(record);
        break;
    case Kind::Scan:
        done = redoScans(record.path); // the first takes the others with it
        break;
    case Kind::Create:
        done = redoCreate(record);
        break;
    case Kind::Remove:
        // One that fails now is given up: by the next time the name may have another file.
        if (!isMissing(record.path))
            FileWriter().remove(devicePath(record.path));
        break;
    case Kind::Rename:
        done = redoRename(record);
        break;
    default:
        break;
    }
    if (!done)
        return false;
    if (isWaiting(record.number))
        m_journal.forget({record.number}, false);
    written.append(record.path);
    return true;
}

// Scans that were logged later go on waiting for their turn.
bool StoreJournal::redoWrite(const Record& record)
{
    QByteArray content;
    if (isScanFile(record.path) && record.untouched && !isMissing(record.path)) {
        const plainfile::Result read = readFile(record.path, content);
        if (read == plainfile::Result::Failed)
            return false;
        if (read != plainfile::Result::Done
            || (record.before != printOf(content) && content != record.content))
            return writeBeside(record.path, record.content);
    }
    // From here on it is not known to be as it was.
    if (record.untouched && !mark(record.number, false))
        return false;
    if (!overwriteFile(record.path, record.content)) {
        if (record.untouched && (isMissing(record.path) || isUntouched(record)))
            mark(record.number, true);
        return false;
    }
    m_seen[record.path] = printOf(record.content);
    return true;
}

// All scans that were logged for a file since it was saved.
bool StoreJournal::redoScans(const QString& path)
{
    QByteArray content;
    const plainfile::Result result = readFile(path, content);
    if (result != plainfile::Result::Done && !isMissing(path))
        return false;
    QString text = scantext::decode(content);
    QString scans;
    QVector<quint64> numbers;
    for (const Record& record : m_journal.waiting()) {
        if (record.kind != Kind::Scan || record.path != path)
            continue;
        text = journalformat::withScan(text, record);
        scans += record.text;
        numbers.append(record.number);
    }
    if (scantext::savedSize(text) <= scantext::MaxSavedBytes)
        return write(path, scantext::encodeSaved(text)) == Result::Done;
    // Together they could not be opened any more.
    if (!writeBeside(path, scantext::encodeSaved(scans)))
        return false;
    m_journal.forget(numbers, false);
    return true;
}

// What is there is a beginning of ours, unless it is more than ours would ever be.
bool StoreJournal::redoCreate(const Record& record)
{
    QByteArray content;
    if (isMissing(record.path))
        return FileWriter().create(devicePath(record.path), record.content) == Written::Done;
    if (readFile(record.path, content) != plainfile::Result::Done
        || content.size() > record.content.size())
        return writeBeside(record.path, record.content);
    return overwriteFile(record.path, record.content);
}

// The old file goes only when the new one is whole: without the old one there is nothing to do.
bool StoreJournal::redoRename(const Record& record)
{
    if (isMissing(record.path)) {
        if (isMissing(record.target))
            FileWriter().create(devicePath(record.target), record.content);
        return true;
    }
    // Given up when it fails: the text is under its old name.
    if (overwriteFile(record.target, record.content))
        FileWriter().remove(devicePath(record.path));
    return true;
}

// Into a new file of the scan folder, named after the one that it was meant for.
bool StoreJournal::writeBeside(const QString& path, const QByteArray& content)
{
    QString name = scannames::listedName(path.mid(path.lastIndexOf(u'/') + 1));
    Result result = Result::Exists;
    while (result == Result::Exists) {
        name = scannames::following(name);
        result = create(scannames::devicePlaceOfScan(name), content);
    }
    return result == Result::Done;
}
