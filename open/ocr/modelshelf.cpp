#include "open/ocr/modelshelf.h"

#include <utility>

namespace ocr {

ModelShelf::ModelShelf(std::string folder) : m_folder(std::move(folder)) {}

ModelShelf::~ModelShelf()
{
    close();
}

void ModelShelf::request(Language language)
{
    const std::lock_guard lock(m_mutex);
    requestLocked(language);
}

void ModelShelf::requestLocked(Language language)
{
    Slot& slot = m_slots[language];
    if (m_closed || slot.state != State::Missing)
        return;
    slot.state = State::Waiting;
    m_wanted.push_back(language);
    if (!m_thread.joinable())
        m_thread = std::thread(&ModelShelf::work, this);
    m_changed.notify_all();
}

LineReader* ModelShelf::waitFor(Language language)
{
    std::unique_lock lock(m_mutex);
    requestLocked(language);
    const Slot& slot = m_slots[language];
    m_changed.wait(lock, [this, &slot] { return m_closed || slot.state != State::Waiting; });
    return m_closed ? nullptr : slot.reader.get();
}

void ModelShelf::close()
{
    std::thread thread;
    {
        const std::lock_guard lock(m_mutex);
        m_closed = true;
        m_changed.notify_all();
        thread = std::move(m_thread);
    }
    if (thread.joinable())
        thread.join();
}

void ModelShelf::work()
{
    std::unique_lock lock(m_mutex);
    while (true) {
        m_changed.wait(lock, [this] { return m_closed || !m_wanted.empty(); });
        if (m_closed)
            return;
        const Language language = m_wanted.front();
        m_wanted.pop_front();
        lock.unlock();
        std::unique_ptr<LineReader> reader = LineReader::load(m_folder, language);
        lock.lock();
        Slot& slot = m_slots[language];
        slot.state = reader ? State::Ready : State::Missing;
        slot.reader = std::move(reader);
        m_changed.notify_all();
    }
}

} // namespace ocr
