#ifndef OPEN_OCR_MODELSHELF_H
#define OPEN_OCR_MODELSHELF_H

#include "open/ocr/language.h"
#include "open/ocr/linereader.h"

#include <condition_variable>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace ocr {

/* The models of one data folder: loaded on a thread of its own when first asked for, then kept, so
 * that changing back to a language costs nothing. Any thread. */
class ModelShelf
{
public:
    explicit ModelShelf(std::string folder);
    ~ModelShelf();
    ModelShelf(const ModelShelf&) = delete;
    ModelShelf& operator=(const ModelShelf&) = delete;

    /* Begins to load unless loaded or loading. A model that was missing is looked for again. */
    void request(Language language);

    /* The reader of the language, once loaded; requests it. Null when the model is missing or the
     * shelf is closed. It lives as long as the shelf and is used by one thread at a time. */
    LineReader* waitFor(Language language);

    /* Ends the loading thread after what it is loading. Nothing is loaded any more. */
    void close();

private:
    enum class State { Waiting, Ready, Missing };

    struct Slot
    {
        State state = State::Missing;
        std::unique_ptr<LineReader> reader;
    };

    void requestLocked(Language language);
    void work();

    const std::string m_folder;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::map<Language, Slot> m_slots;
    std::deque<Language> m_wanted;
    bool m_closed = false;
    std::thread m_thread; // started with the first request
};

} // namespace ocr

#endif
