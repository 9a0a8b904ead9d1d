#ifndef OPEN_DIC_INDEXSHELF_H
#define OPEN_DIC_INDEXSHELF_H

#include "open/dic/sidecar.h"
#include "open/dic/source.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace dic {

/*
 * Keeps the sidecars of all dictionaries: makes those that are missing or out of date, on a thread
 * of its own, and opens them. In a folder that cannot be written they are kept in memory.
 */
class IndexShelf
{
public:
    /* `folder` is where sidecars are kept; empty for none. */
    explicit IndexShelf(std::string folder);

    /* Gives up what is being made. */
    ~IndexShelf();

    /* Lets the thread see to these dictionaries, one after the other. */
    void prepare(const std::vector<Source>& sources);

    /* Opens a sidecar. One that is not there yet is made before all others, and waited for. Null
     * when the dictionary cannot be used; the log has the reason. */
    std::unique_ptr<Sidecar> open(const Source& source);

    /* How many sidecars were made. */
    int made() const { return m_made; }

private:
    struct Slot
    {
        enum class State { Waiting, Ready, Failed };

        State state = State::Waiting;
        std::string fingerprint; // empty until the thread has looked
        PlainFile inMemory;      // where the folder cannot be written
        Source source;
    };

    void request(const Source& source, std::string fingerprint, bool first);
    void work();
    void see(Slot& slot, std::unique_lock<std::mutex>& lock);
    bool make(const Source& source, const std::string& fingerprint, PlainFile& inMemory);
    bool makeInFolder(SidecarBuilder& builder, const Source& source,
                      const std::string& fingerprint);
    std::string pathOf(const Source& source) const;
    std::unique_ptr<Sidecar> openFile(const Source& source, const std::string& fingerprint) const;

    const std::string m_folder;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::map<std::string, Slot> m_slots; // by the dictionary's place
    std::deque<std::string> m_wanted;
    std::atomic<bool> m_stop = false;
    std::atomic<int> m_made = 0;
    std::thread m_thread;
};

} // namespace dic

#endif
