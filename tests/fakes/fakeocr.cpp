#include "tests/fakes/fakeocr.h"

#include "platform/zembra_ocr.h"
#include "tests/fakes/calllog.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <map>
#include <memory>
#include <mutex>

namespace {

enum class HandleState { Open, Exited, Freed };

struct Handle
{
    HandleState state = HandleState::Open;
    std::vector<int> languages;
};

struct Reading
{
    std::u16string text;
    int code = 0;
};

struct Result
{
    std::vector<unsigned short> units;
    bool released = false;
};

struct Settings
{
    Reading always;
    std::deque<Reading> queued;
    std::map<int, Reading> byWidth;
    bool initializeFails = false;
    bool held = false;
    int recognizing = 0;
    bool languagesHeld = false;
    int changingLanguage = 0;
    std::vector<FakeOcr::Image> images;
    std::vector<std::unique_ptr<Handle>> handles; // freed ones too, so that misuse is seen
    std::map<const unsigned short*, Result> results;
    int misuses = 0;
};

struct State
{
    std::mutex mutex;
    std::condition_variable changed;
    Settings set;
};

State& state()
{
    static auto* const state = new State;
    return *state;
}

Handle* find(void* handle)
{
    const auto& all = state().set.handles;
    const auto found =
        std::find_if(all.begin(), all.end(), [handle](const auto& h) { return h.get() == handle; });
    return found == all.end() ? nullptr : found->get();
}

// The handle when it is in the state that the call needs; anything but null is a misuse else.
Handle* use(void* handle, HandleState needed)
{
    Handle* const known = find(handle);
    if (known && known->state == needed)
        return known;
    if (handle)
        ++state().set.misuses;
    return nullptr;
}

bool isLanguage(int language)
{
    return language >= ZEMBRA_OCR_LANG_CHINESE && language <= ZEMBRA_OCR_LANG_CYRILLIC;
}

// The list without its end mark; empty when it is wrong.
std::vector<int> languageList(const int* languages)
{
    std::vector<int> list;
    for (; languages && *languages != ZEMBRA_OCR_LANG_END; ++languages) {
        if (!isLanguage(*languages))
            return {};
        list.push_back(*languages);
    }
    return list;
}

Reading nextReading(int width)
{
    Settings& set = state().set;
    const auto known = set.byWidth.find(width);
    if (known != set.byWidth.end())
        return known->second;
    if (set.queued.empty())
        return set.always;
    Reading reading = std::move(set.queued.front());
    set.queued.pop_front();
    return reading;
}

template <class Value> Value read(Value Settings::*member)
{
    const std::lock_guard lock(state().mutex);
    return state().set.*member;
}

} // namespace

void FakeOcr::reset()
{
    release();
    releaseLanguages();
    std::unique_lock lock(state().mutex);
    state().changed.wait(
        lock, [] { return state().set.recognizing == 0 && state().set.changingLanguage == 0; });
    state().set = Settings();
}

void FakeOcr::setResult(std::u16string text, int code)
{
    const std::lock_guard lock(state().mutex);
    state().set.always = {std::move(text), code};
}

void FakeOcr::queueResult(std::u16string text, int code)
{
    const std::lock_guard lock(state().mutex);
    state().set.queued.push_back({std::move(text), code});
}

void FakeOcr::setResultOf(int width, std::u16string text, int code)
{
    const std::lock_guard lock(state().mutex);
    state().set.byWidth[width] = {std::move(text), code};
}

void FakeOcr::setInitializeFails(bool fails)
{
    const std::lock_guard lock(state().mutex);
    state().set.initializeFails = fails;
}

void FakeOcr::hold()
{
    const std::lock_guard lock(state().mutex);
    state().set.held = true;
}

void FakeOcr::release()
{
    {
        const std::lock_guard lock(state().mutex);
        state().set.held = false;
    }
    state().changed.notify_all();
}

bool FakeOcr::waitUntilRecognizing()
{
    std::unique_lock lock(state().mutex);
    return state().changed.wait_for(lock, FakePatience, [] { return state().set.recognizing > 0; });
}

bool FakeOcr::isRecognizing()
{
    return read(&Settings::recognizing) > 0;
}

void FakeOcr::holdLanguages()
{
    const std::lock_guard lock(state().mutex);
    state().set.languagesHeld = true;
}

void FakeOcr::releaseLanguages()
{
    {
        const std::lock_guard lock(state().mutex);
        state().set.languagesHeld = false;
    }
    state().changed.notify_all();
}

bool FakeOcr::waitUntilChangingLanguage()
{
    std::unique_lock lock(state().mutex);
    return state().changed.wait_for(lock, FakePatience,
                                    [] { return state().set.changingLanguage > 0; });
}

std::vector<int> FakeOcr::languages()
{
    const std::lock_guard lock(state().mutex);
    for (const auto& handle : state().set.handles) {
        if (handle->state == HandleState::Open)
            return handle->languages;
    }
    return {};
}

std::vector<FakeOcr::Image> FakeOcr::images()
{
    return read(&Settings::images);
}

FakeOcr::Image FakeOcr::lastImage()
{
    const std::vector<Image> all = images();
    return all.empty() ? Image() : all.back();
}

int FakeOcr::openHandles()
{
    const std::lock_guard lock(state().mutex);
    const auto& all = state().set.handles;
    return static_cast<int>(std::count_if(
        all.begin(), all.end(), [](const auto& h) { return h->state != HandleState::Freed; }));
}

int FakeOcr::openResults()
{
    const std::lock_guard lock(state().mutex);
    const auto& all = state().set.results;
    return static_cast<int>(std::count_if(
        all.begin(), all.end(), [](const auto& result) { return !result.second.released; }));
}

int FakeOcr::misuses()
{
    return read(&Settings::misuses);
}

int ZEMBRA_OCR_Initialize(void** handle, char* dataDir)
{
    CallLog::add("ZEMBRA_OCR_Initialize(" + fakes::penPath(dataDir) + ")");
    const std::lock_guard lock(state().mutex);
    if (!handle)
        return ZEMBRA_OCR_ERROR;
    *handle = nullptr;
    if (!dataDir || state().set.initializeFails)
        return ZEMBRA_OCR_ERROR;
    *handle = state().set.handles.emplace_back(std::make_unique<Handle>()).get();
    return ZEMBRA_OCR_OK;
}

int ZEMBRA_OCR_SetActiveLanguages(void* handle, int* languages)
{
    std::vector<int> list = languageList(languages);
    std::string text = "ZEMBRA_OCR_SetActiveLanguages(";
    for (const int language : list)
        text += std::to_string(language) + ", ";
    CallLog::add(text + "-1)");

    State& engine = state();
    std::unique_lock lock(engine.mutex);
    ++engine.set.changingLanguage;
    engine.changed.notify_all();
    engine.changed.wait(lock, [&engine] { return !engine.set.languagesHeld; });
    --engine.set.changingLanguage;
    engine.changed.notify_all();
    Handle* const known = use(handle, HandleState::Open);
    if (!known || list.empty())
        return ZEMBRA_OCR_ERROR;
    known->languages = std::move(list);
    return ZEMBRA_OCR_OK;
}

int ZEMBRA_OCR_Recognize(void* handle, unsigned char* image, int width, int height,
                         unsigned short** text, int* length, int direction, unsigned char flag)
{
    CallLog::add("ZEMBRA_OCR_Recognize(" + std::to_string(width) + "x" + std::to_string(height)
                 + ", " + std::to_string(direction) + ", " + std::to_string(flag) + ")");
    if (text)
        *text = nullptr;
    if (length)
        *length = 0;
    State& engine = state();
    std::unique_lock lock(engine.mutex);
    if (!use(handle, HandleState::Open) || !image || !text || !length || width < 0 || height < 0)
        return ZEMBRA_OCR_ERROR;

    const std::size_t size = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    engine.set.images.push_back(
        {width, height, direction, flag, std::vector<unsigned char>(image, image + size)});
    ++engine.set.recognizing;
    engine.changed.notify_all();
    engine.changed.wait(lock, [&engine] { return !engine.set.held; });
    --engine.set.recognizing;
    engine.changed.notify_all();

    const Reading reading = size == 0 ? Reading() : nextReading(width);
    if (reading.text.empty())
        return reading.code;
    Result result{{reading.text.begin(), reading.text.end()}, false};
    *text = result.units.data();
    *length = static_cast<int>(result.units.size());
    engine.set.results.emplace(*text, std::move(result));
    return reading.code;
}

int ZEMBRA_OCR_FreeRecogResult(unsigned short* text)
{
    if (!text)
        return ZEMBRA_OCR_OK;
    CallLog::add("ZEMBRA_OCR_FreeRecogResult(text)");
    const std::lock_guard lock(state().mutex);
    const auto found = state().set.results.find(text);
    if (found == state().set.results.end() || found->second.released) {
        ++state().set.misuses;
        return ZEMBRA_OCR_OK;
    }
    Result& result = found->second;
    std::fill(result.units.begin(), result.units.end(), FakeOcr::Poison);
    result.released = true;
    return ZEMBRA_OCR_OK;
}

int ZEMBRA_OCR_ExitEngine(void* handle)
{
    CallLog::add(handle ? "ZEMBRA_OCR_ExitEngine(handle)" : "ZEMBRA_OCR_ExitEngine(null)");
    const std::lock_guard lock(state().mutex);
    Handle* const known = use(handle, HandleState::Open);
    if (!known)
        return ZEMBRA_OCR_ERROR;
    if (state().set.recognizing > 0)
        ++state().set.misuses;
    known->state = HandleState::Exited;
    return ZEMBRA_OCR_OK;
}

int ZEMBRA_OCR_FreeEngine(void* handle)
{
    CallLog::add(handle ? "ZEMBRA_OCR_FreeEngine(handle)" : "ZEMBRA_OCR_FreeEngine(null)");
    const std::lock_guard lock(state().mutex);
    Handle* const known = use(handle, HandleState::Exited);
    if (!known)
        return ZEMBRA_OCR_ERROR;
    known->state = HandleState::Freed;
    return ZEMBRA_OCR_OK;
}
