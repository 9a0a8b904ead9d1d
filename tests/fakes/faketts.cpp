#include "tests/fakes/faketts.h"

#include "platform/zembra_tts.h"
#include "tests/fakes/calllog.h"
#include "tests/fakes/words.h"

#include <algorithm>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

namespace {

constexpr int AsTheContractSays = -2;

struct Utterance
{
    unsigned generation = 0; // stops that had come when it was handed over
    std::vector<FakeTts::Report> reports;
    std::size_t reported = 0;
    std::size_t allowed = 0; // reports that the test has asked for
    bool finish = false;
};

struct Settings
{
    FakeTts::Pace pace = FakeTts::Pace::Automatic;
    std::optional<std::vector<FakeTts::Report>> reports;
    int initializeResult = 0;
    int playResult = AsTheContractSays;
    int missedStops = 0;
    bool started = false;
    ZEMBRA_TTS_HighlightCallback callback = nullptr;
    int language = 0;
    int speed = 48;
    int volume = 100;
    int volumeLevel = 0;
    std::vector<std::u16string> texts;
};

struct State
{
    std::mutex mutex;
    std::condition_variable changed;
    Settings set;
    unsigned generation = 0;
    int waiting = 0; // calls of ZEMBRA_TTS_Play that have not returned
    std::shared_ptr<Utterance> current;
};

State& state()
{
    static auto* const state = new State;
    return *state;
}

unsigned stopsSoFar()
{
    const std::lock_guard lock(state().mutex);
    return state().generation;
}

bool stopped(const Utterance& utterance)
{
    return utterance.generation != state().generation;
}

bool runs(const Utterance& utterance)
{
    return state().set.pace == FakeTts::Pace::Automatic || utterance.finish;
}

// The engine's thread for one text.
void speak(const std::shared_ptr<Utterance>& text, ZEMBRA_TTS_HighlightCallback callback)
{
    State& engine = state();
    std::unique_lock lock(engine.mutex);
    for (;;) {
        engine.changed.wait(
            lock, [&] { return stopped(*text) || runs(*text) || text->reported < text->allowed; });
        if (stopped(*text) || text->reported == text->reports.size())
            return;
        const FakeTts::Report report = text->reports[text->reported];
        lock.unlock();
        if (callback)
            callback(report.offset, report.length, report.kind);
        lock.lock();
        ++text->reported;
        engine.changed.notify_all();
    }
}

std::vector<FakeTts::Report> reportsOf(std::u16string_view text)
{
    if (state().set.reports)
        return *state().set.reports;
    std::vector<FakeTts::Report> reports;
    for (const fakes::Stretch& word : fakes::wordsOf(text))
        reports.push_back({word.offset, word.length, ZEMBRA_TTS_WORD});
    return reports;
}

// `stops` are those that had come when the text was handed over.
int play(std::u16string_view text, unsigned stops)
{
    State& engine = state();
    std::unique_lock lock(engine.mutex);
    if (!engine.set.started)
        return -1;
    if (engine.set.playResult != AsTheContractSays)
        return engine.set.playResult;
    if (text.empty())
        return 0;

    auto utterance = std::make_shared<Utterance>();
    utterance->generation = stops;
    utterance->reports = reportsOf(text);
    ++engine.waiting;
    engine.changed.wait(lock, [&] { return !engine.current || stopped(*utterance); });
    if (!stopped(*utterance)) {
        engine.current = utterance;
        engine.changed.notify_all();
        std::thread voice(&speak, utterance, engine.set.callback);
        lock.unlock();
        voice.join();
        lock.lock();
        engine.current.reset();
    }
    --engine.waiting;
    engine.changed.notify_all();
    return stopped(*utterance) ? 1 : 0;
}

template <class Condition> bool waitFor(Condition condition)
{
    State& engine = state();
    std::unique_lock lock(engine.mutex);
    return engine.changed.wait_for(lock, FakePatience, condition);
}

template <class Change> void change(Change&& make)
{
    State& engine = state();
    {
        const std::lock_guard lock(engine.mutex);
        make(engine.set);
    }
    engine.changed.notify_all();
}

template <class Value> Value read(Value Settings::*member)
{
    const std::lock_guard lock(state().mutex);
    return state().set.*member;
}

void logCall(const char* function, int argument)
{
    CallLog::add(std::string(function) + "(" + std::to_string(argument) + ")");
}

bool known(int language)
{
    const bool plain = language >= 101 && language <= 111 && language != 102;
    const bool voice = language >= 200 && language <= 206;
    return plain || voice || language == 0 || language == 1 || language == 2 || language == 151
           || language == 152 || language == 211 || language == 212;
}

} // namespace

void FakeTts::reset()
{
    State& engine = state();
    std::unique_lock lock(engine.mutex);
    ++engine.generation;
    engine.set.pace = Pace::Automatic;
    engine.changed.notify_all();
    engine.changed.wait(lock, [&engine] { return engine.waiting == 0; });
    engine.set = Settings();
}

void FakeTts::setPace(Pace pace)
{
    change([pace](Settings& set) { set.pace = pace; });
}

void FakeTts::setReports(std::vector<Report> reports)
{
    change([&reports](Settings& set) { set.reports = std::move(reports); });
}

void FakeTts::setInitializeResult(int result)
{
    change([result](Settings& set) { set.initializeResult = result; });
}

void FakeTts::setPlayResult(int result)
{
    change([result](Settings& set) { set.playResult = result; });
}

void FakeTts::missStops(int number)
{
    change([number](Settings& set) { set.missedStops = number; });
}

bool FakeTts::waitUntilSpeaking()
{
    return waitFor([] { return state().current != nullptr; });
}

bool FakeTts::waitUntilSilent()
{
    return waitFor([] { return state().waiting == 0; });
}

bool FakeTts::speakWord()
{
    State& engine = state();
    std::unique_lock lock(engine.mutex);
    const std::shared_ptr<Utterance> text = engine.current;
    if (!text || text->allowed >= text->reports.size())
        return false;
    const std::size_t target = ++text->allowed;
    engine.changed.notify_all();
    engine.changed.wait_for(lock, FakePatience,
                            [&] { return text->reported >= target || engine.current != text; });
    return text->reported >= target;
}

bool FakeTts::finish()
{
    State& engine = state();
    std::unique_lock lock(engine.mutex);
    const std::shared_ptr<Utterance> text = engine.current;
    if (!text)
        return false;
    text->finish = true;
    engine.changed.notify_all();
    return engine.changed.wait_for(lock, FakePatience, [&] { return engine.current != text; });
}

bool FakeTts::isSpeaking()
{
    const std::lock_guard lock(state().mutex);
    // A stopped text is silent at once; its thread may take a while to notice.
    return state().current && !stopped(*state().current);
}

bool FakeTts::isStarted()
{
    return read(&Settings::started);
}

bool FakeTts::hasReceiver()
{
    return read(&Settings::callback) != nullptr;
}

int FakeTts::language()
{
    return read(&Settings::language);
}

int FakeTts::speed()
{
    return read(&Settings::speed);
}

int FakeTts::volume()
{
    return read(&Settings::volume);
}

int FakeTts::volumeLevel()
{
    return read(&Settings::volumeLevel);
}

std::vector<std::u16string> FakeTts::texts()
{
    return read(&Settings::texts);
}

int ZEMBRA_TTS_Initialize(const char* dirs[], int count, int value)
{
    std::string text = "ZEMBRA_TTS_Initialize(";
    for (int i = 0; i < count; ++i)
        text += fakes::penPath(dirs[i]) + ", ";
    CallLog::add(text + std::to_string(count) + ", " + std::to_string(value) + ")");

    int result = 0;
    change([&result](Settings& set) {
        result = set.initializeResult;
        set.started = set.started || result == 0;
    });
    return result;
}

int ZEMBRA_TTS_SetLang(int language)
{
    logCall("ZEMBRA_TTS_SetLang", language);
    if (!known(language))
        return -1;
    if (language != 0)
        change([language](Settings& set) { set.language = language; });
    return 0;
}

int ZEMBRA_TTS_SetHighlight_CallBack(ZEMBRA_TTS_HighlightCallback callback)
{
    CallLog::add(callback ? "ZEMBRA_TTS_SetHighlight_CallBack(callback)"
                          : "ZEMBRA_TTS_SetHighlight_CallBack(null)");
    change([callback](Settings& set) { set.callback = callback; });
    return 0;
}

int ZEMBRA_TTS_Play(const unsigned short* text, int bytes, int flag)
{
    const unsigned stops = stopsSoFar(); // first of all: a stop from now on is for this text
    const std::size_t units = text && bytes > 0 ? static_cast<std::size_t>(bytes) / 2 : 0;
    // A copy: what the caller's buffer becomes after the call is its own affair.
    std::u16string copy;
    for (std::size_t i = 0; i < units; ++i)
        copy += static_cast<char16_t>(text[i]);

    CallLog::add("ZEMBRA_TTS_Play(\"" + fakes::utf8(copy) + "\", " + std::to_string(bytes) + ", "
                 + std::to_string(flag) + ")");
    if (!text && bytes > 0)
        return -1;
    change([&copy](Settings& set) { set.texts.push_back(copy); });
    return play(copy, stops);
}

int ZEMBRA_TTS_Stop(void)
{
    CallLog::add("ZEMBRA_TTS_Stop()");
    State& engine = state();
    {
        const std::lock_guard lock(engine.mutex);
        if (engine.set.missedStops > 0)
            --engine.set.missedStops;
        else
            ++engine.generation;
    }
    engine.changed.notify_all();
    return 0;
}

int ZEMBRA_TTS_SetSpeed(int speed)
{
    logCall("ZEMBRA_TTS_SetSpeed", speed);
    change([speed](Settings& set) { set.speed = speed; });
    return 0;
}

int ZEMBRA_TTS_SetVolume(int volume)
{
    logCall("ZEMBRA_TTS_SetVolume", volume);
    change([volume](Settings& set) { set.volume = std::clamp(volume, 0, 100); });
    return 0;
}

int ZEMBRA_TTS_SetVolumeLevel(int level)
{
    logCall("ZEMBRA_TTS_SetVolumeLevel", level);
    change([level](Settings& set) { set.volumeLevel = std::clamp(level, 0, 1000); });
    return 0;
}

int ZEMBRA_TTS_Uninitialize(void)
{
    CallLog::add("ZEMBRA_TTS_Uninitialize()");
    State& engine = state();
    std::unique_lock lock(engine.mutex);
    if (!engine.set.started)
        return -1;
    engine.set.started = false;
    ++engine.generation;
    engine.changed.notify_all();
    engine.changed.wait(lock, [&engine] { return engine.waiting == 0; });
    return 0;
}
