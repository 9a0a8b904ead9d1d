#ifndef OPEN_OCR_MODELSHELF_H
#define OPEN_OCR_MODELSHELF_H

#include "open/ocr/language.h"
#include "open/ocr/linereader.h"

#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace ocr {

/* The models of one data folder: each is loaded on a thread of its own when first asked for, then
 * kept, so that changing back to a language costs nothing and none waits for another one's model.
 * Any thread. */
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
     * shelf is closed. It lives as long as the shelf, and any thread may use it. */
    LineReader* waitFor(Language language);

    /* Waits for what is being loaded. Nothing is loaded any more. */
    void close();

private:
    enum class State { Waiting, Ready, Missing };

    struct Slot
    {
        State state = State::Missing;
        std::unique_ptr<LineReader> reader;
        std::thread loading; // of the last attempt; ended unless the state is Waiting
    };

    void requestLocked(Language language);
    void load(Language language);

    const std::string m_folder;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::map<Language, Slot> m_slots;
    bool m_closed = false;
};

} // namespace ocr

#endif
