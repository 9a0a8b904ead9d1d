#include "open/dic/indexshelf.h"

#include "open/dic/log.h"

#include <cstdio>
#include <exception>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>
#include <utility>

namespace dic {

namespace {

constexpr int LowPriority = 10;

// FNV-1a: file names of a fixed length for places of any.
std::string hashOf(std::string_view text)
{
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    char digits[17];
    std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(hash));
    return digits;
}

PlainFile anotherHandle(const std::string& path)
{
    // Through its link in /proc, which PlainFile::open would not follow.
    return PlainFile(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
}

} // namespace

IndexShelf::IndexShelf(std::string folder) : m_folder(std::move(folder)) {}

IndexShelf::~IndexShelf()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stop = true;
        m_changed.notify_all();
    }
    if (m_thread.joinable())
        m_thread.join();
}

void IndexShelf::prepare(const std::vector<Source>& sources)
{
    for (const Source& source : sources)
        request(source, {}, false);
}

void IndexShelf::request(const Source& source, std::string fingerprint, bool first)
{
    const std::lock_guard lock(m_mutex);
    const auto [place, isNew] = m_slots.try_emplace(source.place);
    Slot& slot = place->second;
    if (isNew || slot.fingerprint != fingerprint) {
        slot.state = Slot::State::Waiting;
        slot.fingerprint = std::move(fingerprint);
        slot.source = source;
        slot.inMemory = PlainFile();
    }
    if (slot.state != Slot::State::Waiting)
        return;
    if (first)
        m_wanted.push_front(source.place);
    else
        m_wanted.push_back(source.place);
    if (!m_thread.joinable())
        m_thread = std::thread(&IndexShelf::work, this);
    m_changed.notify_all();
}

void IndexShelf::work()
{
    // This thread only: whoever reads or scans meanwhile goes first.
    setpriority(PRIO_PROCESS, 0, LowPriority);
    std::unique_lock lock(m_mutex);
    while (true) {
        m_changed.wait(lock, [this] { return m_stop || !m_wanted.empty(); });
        if (m_stop)
            return;
        Slot& slot = m_slots[m_wanted.front()];
        m_wanted.pop_front();
        if (slot.state == Slot::State::Waiting)
            see(slot, lock);
    }
}

void IndexShelf::see(Slot& slot, std::unique_lock<std::mutex>& lock)
{
    const Source source = slot.source;
    const std::string asked = slot.fingerprint;
    std::string fingerprint = asked;
    PlainFile inMemory;
    bool ready = false;
    lock.unlock();
    try {
        if (fingerprint.empty())
            fingerprint = fingerprintOf(source);
        ready = openFile(source, fingerprint) || make(source, fingerprint, inMemory);
    } catch (const std::exception& error) {
        note(mainFile(source), error.what());
    }
    lock.lock();
    if (slot.fingerprint != asked)
        return; // changed meanwhile, and asked for again
    slot.fingerprint = fingerprint;
    slot.state = ready ? Slot::State::Ready : Slot::State::Failed;
    slot.inMemory = std::move(inMemory);
    m_changed.notify_all();
}

std::unique_ptr<Sidecar> IndexShelf::open(const Source& source)
{
    const std::string fingerprint = fingerprintOf(source);
    if (auto sidecar = openFile(source, fingerprint))
        return sidecar;
    request(source, fingerprint, true);
    std::unique_lock lock(m_mutex);
    const Slot& slot = m_slots[source.place];
    m_changed.wait(lock, [&] { return slot.state != Slot::State::Waiting; });
    if (slot.state == Slot::State::Failed)
        return nullptr;
    if (slot.inMemory.isOpen())
        return Sidecar::open(anotherHandle(slot.inMemory.link()), fingerprint);
    return openFile(source, fingerprint);
}

bool IndexShelf::make(const Source& source, const std::string& fingerprint, PlainFile& inMemory)
{
    SidecarBuilder builder;
    std::string why;
    if (!readRows(source, builder, m_stop, why)) {
        if (!m_stop)
            note(mainFile(source), why);
        return false;
    }
    if (!makeInFolder(builder, source, fingerprint)) {
        const int descriptor = memfd_create("dictionary", MFD_CLOEXEC);
        if (descriptor < 0 || !builder.write(descriptor, fingerprint, m_stop)) {
            if (descriptor >= 0)
                ::close(descriptor);
            if (!m_stop)
                note(mainFile(source), "its index has no room in memory");
            return false;
        }
        inMemory = PlainFile(descriptor);
    }
    ++m_made;
    return true;
}

bool IndexShelf::makeInFolder(SidecarBuilder& builder, const Source& source,
                              const std::string& fingerprint)
{
    if (m_folder.empty())
        return false;
    const std::string path = pathOf(source);
    const std::string temporary = path + ".new";
    unlink(temporary.c_str());
    const int file =
        ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0644);
    if (file < 0)
        return false;
    bool good = builder.write(file, fingerprint, m_stop) && fdatasync(file) == 0;
    good = ::close(file) == 0 && good && std::rename(temporary.c_str(), path.c_str()) == 0;
    if (!good)
        unlink(temporary.c_str());
    return good;
}

std::string IndexShelf::pathOf(const Source& source) const
{
    return m_folder + hashOf(source.place) + ".rows";
}

std::unique_ptr<Sidecar> IndexShelf::openFile(const Source& source,
                                              const std::string& fingerprint) const
{
    if (m_folder.empty())
        return nullptr;
    return Sidecar::open(PlainFile::open(pathOf(source)), fingerprint);
}

} // namespace dic
