#include "store/storejournal.h"

#include "platform/devicepaths.h"
#include "store/cardstate.h"
#include "store/filewriter.h"
#include "store/plainfile.h"
#include "store/scantext.h"

using journalformat::Kind;
using journalformat::Print;
using journalformat::printOf;
using ReadResult = plainfile::Result;
using Written = FileWriter::Result;

namespace {

StoreJournal::Result resultOf(Written written)
{
    switch (written) {
    case Written::Done:
        return StoreJournal::Result::Done;
    case Written::Exists:
        return StoreJournal::Result::Exists;
    case Written::Failed:
        break;
    }
    return StoreJournal::Result::Failed;
}

// By way of a copy: on a card, an entry that moves may be lost or doubled by a cut of power.
Written renameByCopy(const QString& from, const QString& to, const QByteArray& content)
{
    const Written made = FileWriter().create(devicePath(to), content);
    if (made == Written::Exists)
        return made;
    if (made == Written::Failed) // no room for two
        return FileWriter().rename(devicePath(from), devicePath(to));
    const Written removed = FileWriter().remove(devicePath(from));
    if (removed != Written::Done)
        FileWriter().remove(devicePath(to));
    return removed;
}

} // namespace

plainfile::Result StoreJournal::readFile(const QString& path, QByteArray& content)
{
    return plainfile::read(devicePath(path), scantext::MaxFileBytes, content);
}

bool StoreJournal::isMissing(const QString& path)
{
    return !plainfile::isAnything(devicePath(path));
}

bool StoreJournal::isScanFile(const QString& path)
{
    return path.endsWith(QStringLiteral(".txt"));
}

QVector<quint64> StoreJournal::numbersOf(const QString& path)
{
    QVector<quint64> numbers;
    for (const Record& record : m_journal.waiting())
        if (record.path == path && record.kind != Kind::Known)
            numbers.append(record.number);
    return numbers;
}

void StoreJournal::noteRead(const QString& path, const std::optional<QByteArray>& content)
{
    m_seen[path] = content ? std::optional(printOf(*content)) : std::nullopt;
}

const StoreJournal::Record* StoreJournal::waitingWrite(const QString& path)
{
    for (const Record& record : m_journal.waiting())
        if (record.kind == Kind::Write && record.path == path)
            return &record;
    return nullptr;
}

// What the text to be written replaces: the content known from reading or writing it, else what is
// there now.
std::optional<Print> StoreJournal::lastSeen(const QString& path)
{
    if (const Record* const earlier = waitingWrite(path))
        return earlier->before;
    if (const auto seen = m_seen.constFind(path); seen != m_seen.constEnd())
        return *seen;
    QByteArray content;
    return readFile(path, content) == ReadResult::Done ? std::optional(printOf(content))
                                                       : std::nullopt;
}

// Whether a text stands in a file now that was not there when the file was opened: a card that has
// come back meanwhile.
bool StoreJournal::changedUnseen(const QString& path) const
{
    const auto seen = m_seen.constFind(path);
    return isScanFile(path) && seen != m_seen.constEnd() && !seen->has_value() && !isMissing(path);
}

bool StoreJournal::isUntouched(const Record& record) const
{
    QByteArray content;
    return readFile(record.path, content) == ReadResult::Done && record.before == printOf(content);
}

StoreJournal::Result StoreJournal::write(const QString& path, const QByteArray& content)
{
    Record record;
    record.kind = Kind::Write;
    record.path = path;
    record.content = content;
    record.before = lastSeen(path);
    record.untouched = changedUnseen(path);
    const Record* const earlier = waitingWrite(path);
    const bool touched = earlier != nullptr && !earlier->untouched;
    const bool missing = isMissing(path);
    record.number = m_journal.commit(record);

    const Result otherwise = record.number != 0 ? Result::Kept : Result::Failed;
    if (record.untouched)
        return otherwise;
    if (overwrite(path, content))
        return Result::Done;
    // When nothing has reached the file, this is written down: only then it may be found to be
    // somebody else's later.
    const bool untouched = !touched && (missing ? isMissing(path) : isUntouched(record));
    if (record.number != 0 && untouched)
        mark(record.number, true);
    return otherwise;
}

bool StoreJournal::mark(quint64 number, bool untouched)
{
    Record record;
    record.kind = Kind::Untouched;
    record.numbers = {number};
    record.untouched = untouched;
    return m_journal.commit(record) != 0;
}

// What waits for this file has no meaning any more then.
bool StoreJournal::overwrite(const QString& path, const QByteArray& content)
{
    if (FileWriter().overwrite(devicePath(path), content) != Written::Done)
        return false;
    m_seen[path] = printOf(content);
    m_journal.forget(numbersOf(path), false);
    return true;
}

StoreJournal::Result StoreJournal::create(const QString& path, const QByteArray& content)
{
    // What waits under that name belongs to another file.
    if (!isMissing(path) || !numbersOf(path).isEmpty())
        return Result::Exists;
    Record record;
    record.kind = Kind::Create;
    record.path = path;
    record.content = content;
    const quint64 number = m_journal.commit(record);
    const Written written = FileWriter().create(devicePath(path), content);
    if (number != 0)
        m_journal.forget({number}, written != Written::Done);
    if (written == Written::Done)
        m_seen[path] = printOf(content);
    return resultOf(written);
}

StoreJournal::Result StoreJournal::remove(const QString& path)
{
    const QVector<quint64> waiting = numbersOf(path);
    if (isMissing(path)) {
        // Its text is here only, and is removed here; while the card is out nobody knows, and the
        // file would come back with its old text.
        if (waiting.isEmpty() || !cardstate::isThere(path))
            return Result::Failed;
        m_journal.forget(waiting, true);
        return Result::Done;
    }
    Record record;
    record.kind = Kind::Remove;
    record.path = path;
    const quint64 number = m_journal.commit(record);
    const Written written = FileWriter().remove(devicePath(path));
    if (written == Written::Done) {
        m_seen.remove(path);
        m_journal.forget(numbersOf(path), false);
    } else if (number != 0) {
        m_journal.forget({number}, true);
    }
    return resultOf(written);
}

StoreJournal::Result StoreJournal::rename(const QString& from, const QString& to)
{
    if (!numbersOf(from).isEmpty() || !numbersOf(to).isEmpty())
        return Result::Failed; // its newest text is not in the file
    if (!isMissing(to))
        return Result::Exists;
    Record record;
    record.kind = Kind::Rename;
    record.path = from;
    record.target = to;
    // A longer file is no text of ours: it is renamed without its content in the journal.
    const bool isText = readFile(from, record.content) == ReadResult::Done;
    const quint64 number = isText ? m_journal.commit(record) : 0;
    if (number == 0)
        return resultOf(FileWriter().rename(devicePath(from), devicePath(to)));
    const Written written = renameByCopy(from, to, record.content);
    m_journal.forget({number}, written != Written::Done);
    m_seen.remove(from);
    m_seen.remove(to);
    return resultOf(written);
}

bool StoreJournal::noteScan(const QString& path, int position, const QString& inserted, int length)
{
    Record record;
    record.kind = Kind::Scan;
    record.path = path;
    record.text = inserted;
    record.position = position;
    record.length = length;
    m_openPath = path;
    return m_journal.commit(record) != 0;
}

std::optional<QString> StoreJournal::waitingText(const QString& path)
{
    std::optional<QString> text;
    for (const Record& record : m_journal.waiting()) {
        if (record.path != path)
            continue;
        if (record.kind == Kind::Write)
            text = scantext::decode(record.content);
        else if (record.kind == Kind::Scan) {
            QByteArray content;
            if (!text)
                text = readFile(path, content) == ReadResult::Done ? scantext::decode(content)
                                                                   : QString();
            text = journalformat::withScan(*text, record);
        }
    }
    return text;
}

void StoreJournal::setKnown(const QByteArray& content)
{
    if (known() == content)
        return;
    Record record;
    record.kind = Kind::Known;
    record.content = content;
    if (!content.isEmpty()) {
        m_journal.commit(record);
        return;
    }
    for (const Record& older : QVector<Record>(m_journal.waiting()))
        if (older.kind == Kind::Known)
            m_journal.forget({older.number}, false);
}

QByteArray StoreJournal::known()
{
    for (const Record& record : m_journal.waiting())
        if (record.kind == Kind::Known)
            return record.content;
    return {};
}
