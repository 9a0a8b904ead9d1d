#include "open/ocr/modelshelf.h"

#include <exception>
#include <utility>
#include <vector>

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
    if (slot.loading.joinable())
        slot.loading.join(); // has said that the model is missing: it is at its end
    slot.loading = std::thread(&ModelShelf::load, this, language);
    slot.state = State::Waiting;
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
    std::vector<std::thread> threads;
    {
        const std::lock_guard lock(m_mutex);
        m_closed = true;
        m_changed.notify_all();
        for (auto& [language, slot] : m_slots)
            threads.push_back(std::move(slot.loading));
    }
    for (std::thread& thread : threads)
        if (thread.joinable())
            thread.join();
}

void ModelShelf::load(Language language)
{
    std::unique_ptr<LineReader> reader;
    try {
        reader = LineReader::load(m_folder, language);
    } catch (const std::exception&) {
        // Short of memory, or no model: missing for now, and looked for again.
    }
    const std::lock_guard lock(m_mutex);
    Slot& slot = m_slots[language];
    slot.state = reader ? State::Ready : State::Missing;
    slot.reader = std::move(reader);
    m_changed.notify_all();
}

} // namespace ocr
