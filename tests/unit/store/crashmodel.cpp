#include "tests/unit/store/crashmodel.h"

#include <QDirIterator>
#include <QFile>

#include <algorithm>
#include <fcntl.h>

namespace {

constexpr qsizetype AllChoicesUpTo = 6; // pieces
constexpr int RandomChoices = 24;

QByteArray folderOf(const QByteArray& path)
{
    return path.left(path.lastIndexOf('/'));
}

} // namespace

CrashModel::CrashModel(const QString& folder) : m_folder(QFile::encodeName(folder))
{
    QDirIterator files(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QByteArray content = file.readAll();
        m_first.names.insert(below(QFile::encodeName(file.fileName())), m_files++);
        m_first.files.append({content, content, {}});
    }
    m_names = m_first.names;
    setCurrent(this);
}

CrashModel::~CrashModel()
{
    setCurrent(nullptr);
}

QByteArray CrashModel::below(const QByteArray& path) const
{
    return path.mid(m_folder.size());
}

void CrashModel::add(Event::Type type, int file, const QByteArray& path, qint64 number,
                     const QByteArray& data, bool withNext)
{
    m_events.append({type, file, path, number, data, withNext});
}

int CrashModel::open(const QByteArray& path, int flags)
{
    const int descriptor = FileOperations::open(path, flags);
    if (descriptor < 0)
        return descriptor;
    const QByteArray place = below(path);
    if (!m_names.contains(place)) {
        m_names.insert(place, m_files);
        add(Event::Name, m_files++, place);
    }
    m_open.insert(descriptor, m_names.value(place));
    return descriptor;
}

qint64 CrashModel::write(int file, const char* data, qint64 length, qint64 offset)
{
    const qint64 written = FileOperations::write(file, data, length, offset);
    add(Event::Write, m_open.value(file), {}, offset, QByteArray(data, written));
    return written;
}

int CrashModel::truncate(int file, qint64 size)
{
    add(Event::Size, m_open.value(file), {}, size);
    return FileOperations::truncate(file, size);
}

int CrashModel::flush(int file)
{
    add(Event::Flush, m_open.value(file), {});
    return 0;
}

int CrashModel::close(int file)
{
    m_open.remove(file);
    return FileOperations::close(file);
}

int CrashModel::remove(const QByteArray& path)
{
    const int result = FileOperations::remove(path);
    if (result == 0) {
        m_names.remove(below(path));
        add(Event::Name, None, below(path));
    }
    return result;
}

int CrashModel::renameToNew(const QByteArray& from, const QByteArray& to)
{
    return renamed(from, to, FileOperations::renameToNew(from, to));
}

int CrashModel::renameOver(const QByteArray& from, const QByteArray& to)
{
    return renamed(from, to, FileOperations::renameOver(from, to));
}

int CrashModel::renamed(const QByteArray& from, const QByteArray& to, int result)
{
    if (result != 0)
        return result;
    const int file = m_names.take(below(from));
    m_names.insert(below(to), file);
    add(Event::Name, file, below(to), 0, {}, true);
    add(Event::Name, None, below(from));
    return result;
}

int CrashModel::flushFolder(const QByteArray& path)
{
    add(Event::FlushFolder, None, folderOf(below(path)));
    return 0;
}

void CrashModel::writeInto(File& file, const Event& event)
{
    const qint64 end = event.number + event.data.size();
    if (file.seen.size() < end)
        file.seen.append(QByteArray(end - file.seen.size(), '\0'));
    file.seen.replace(event.number, event.data.size(), event.data);
    for (qint64 sector = event.number / Sector; sector * Sector < end; ++sector)
        file.dirty.insert(sector);
}

void CrashModel::Name::applyTo(QMap<QByteArray, int>& names) const
{
    if (file == None)
        names.remove(path);
    else
        names.insert(path, file);
}

void CrashModel::settleFile(Storage& storage, int file, Kind kind)
{
    File& flushed = storage.files[file];
    flushed.stored = flushed.seen;
    flushed.dirty.clear();
    storage.changes.removeIf([&](const Change& change) {
        // Sizes of other files stay open: that is the harder case.
        if (!change.isName)
            return change.file == file;
        if (kind != Kind::Ext4)
            return false;
        change.name.applyTo(storage.names);
        return true;
    });
}

void CrashModel::settleFolder(Storage& storage, const QByteArray& folder)
{
    storage.changes.removeIf([&](const Change& change) {
        if (!change.isName || folderOf(change.name.path) != folder)
            return false;
        change.name.applyTo(storage.names);
        return true;
    });
}

void CrashModel::play(Storage& storage, const Event& event, Kind kind)
{
    const auto changeContent = [&](const auto& change) {
        File& file = storage.files[event.file];
        const qint64 before = file.seen.size();
        change(file);
        if (file.seen.size() != before)
            storage.changes.append({false, {}, event.file, file.seen.size()});
    };
    switch (event.type) {
    case Event::Name:
        while (event.file >= storage.files.size())
            storage.files.append(File());
        storage.changes.append({true, {event.path, event.file, event.withNext}, None, 0});
        break;
    case Event::Write:
        changeContent([&](File& file) { writeInto(file, event); });
        break;
    case Event::Size:
        changeContent([&](File& file) {
            file.seen = file.seen.left(event.number).leftJustified(event.number, '\0');
        });
        break;
    case Event::Flush:
        settleFile(storage, event.file, kind);
        break;
    case Event::FlushFolder:
        settleFolder(storage, event.path);
        break;
    }
}

CrashModel::Storage CrashModel::play(int events, Kind kind) const
{
    Storage storage = m_first;
    for (int i = 0; i < events; ++i)
        play(storage, m_events.at(i), kind);
    return storage;
}

CrashModel::State CrashModel::seen(const Storage& storage)
{
    QMap<QByteArray, int> names = storage.names;
    for (const Change& change : storage.changes) {
        if (change.isName)
            change.name.applyTo(names);
    }
    State state;
    for (auto name = names.cbegin(); name != names.cend(); ++name)
        state.insert(name.key(), storage.files.at(name.value()).seen);
    return state;
}

QVector<CrashModel::Piece> CrashModel::piecesOf(const Storage& storage, Kind kind)
{
    QVector<Piece> pieces;
    QSet<QByteArray> paths;
    for (int i = 0; i < storage.files.size(); ++i) {
        const File& file = storage.files.at(i);
        QList<qint64> sectors = file.dirty.values();
        std::sort(sectors.begin(), sectors.end());
        for (const qint64 sector : std::as_const(sectors))
            pieces.append({i, sector, {}});
        if (kind == Kind::Fat && file.seen.size() != file.stored.size())
            pieces.append({i, None, {}});
    }
    if (kind == Kind::Fat)
        for (const Change& change : storage.changes)
            if (change.isName && !paths.contains(change.name.path)) {
                paths.insert(change.name.path);
                pieces.append({None, None, change.name.path});
            }
    return pieces;
}

// `changes`: how many changes of names and sizes have reached an ordered storage.
CrashModel::State CrashModel::stateWith(const Storage& storage, const QVector<Piece>& pieces,
                                        const QVector<bool>& kept, qsizetype changes, Kind kind)
{
    QMap<QByteArray, int> names = storage.names;
    QHash<int, qint64> sizes;
    const auto isKept = [&](int file, qint64 sector, const QByteArray& path) {
        for (qsizetype i = 0; i < pieces.size(); ++i)
            if (pieces.at(i).file == file && pieces.at(i).sector == sector
                && pieces.at(i).path == path)
                return kept.at(i);
        return false;
    };
    for (qsizetype i = 0; i < storage.changes.size(); ++i) {
        const Change& change = storage.changes.at(i);
        const bool reached = kind == Kind::Ext4 ? i < changes
                             : change.isName    ? isKept(None, None, change.name.path)
                                                : isKept(change.file, None, {});
        if (!reached)
            continue;
        if (change.isName)
            change.name.applyTo(names);
        else
            sizes.insert(change.file, change.size);
    }
    State state;
    for (auto name = names.cbegin(); name != names.cend(); ++name) {
        const File& file = storage.files.at(name.value());
        const qint64 size = sizes.value(name.value(), file.stored.size());
        QByteArray content = file.stored.left(size);
        content.append(QByteArray(size - content.size(), kind == Kind::Ext4 ? '\0' : '\xE5'));
        for (const qint64 sector : file.dirty) {
            const qint64 begin = sector * Sector;
            const qint64 length =
                std::min({qint64(Sector), size - begin, file.seen.size() - begin});
            if (length > 0 && isKept(name.value(), sector, {}))
                content.replace(begin, length, file.seen.mid(begin, length));
        }
        state.insert(name.key(), content);
    }
    return state;
}

void CrashModel::addChoices(QVector<State>& states, const Storage& storage, Kind kind,
                            qsizetype changes)
{
    const QVector<Piece> pieces = piecesOf(storage, kind);
    const qsizetype count = pieces.size();
    const auto addChoice = [&](const auto& isKept) {
        QVector<bool> kept(count);
        for (qsizetype i = 0; i < count; ++i)
            kept[i] = isKept(i);
        states.append(stateWith(storage, pieces, kept, changes, kind));
    };
    if (count <= AllChoicesUpTo) {
        for (unsigned choice = 0; choice < 1U << count; ++choice)
            addChoice([&](qsizetype i) { return (choice >> i & 1U) != 0; });
        return;
    }
    addChoice([](qsizetype) { return true; });
    addChoice([](qsizetype) { return false; });
    for (qsizetype one = 0; one < count; ++one) {
        addChoice([&](qsizetype i) { return i == one; });
        addChoice([&](qsizetype i) { return i != one; });
    }
    std::mt19937 random(1); // the same choice each time
    for (int i = 0; i < RandomChoices; ++i)
        addChoice([&](qsizetype) { return (random() & 1U) != 0; });
}

QVector<CrashModel::State> CrashModel::statesAfter(int events, Kind kind) const
{
    Storage storage = play(events, kind);
    if (kind == Kind::Killed) {
        QVector<State> states{seen(storage)};
        if (events < m_events.size() && m_events.at(events).type == Event::Write) {
            Event half = m_events.at(events);
            half.data.truncate(half.data.size() / 2);
            play(storage, half, kind);
            states.append(seen(storage));
        }
        return states;
    }
    QVector<State> states;
    if (kind == Kind::Fat) {
        addChoices(states, storage, kind, 0);
        return states;
    }
    for (qsizetype changes = 0; changes <= storage.changes.size(); ++changes) {
        const bool midway = changes > 0 && storage.changes.at(changes - 1).isName
                            && storage.changes.at(changes - 1).name.withNext;
        if (!midway)
            addChoices(states, storage, kind, changes);
    }
    return states;
}
