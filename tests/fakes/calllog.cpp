#include "tests/fakes/calllog.h"

#include <algorithm>
#include <condition_variable>
#include <cstdlib>
#include <mutex>

namespace {

struct State
{
    std::mutex mutex;
    std::condition_variable changed;
    std::vector<CallLog::Call> calls;
};

// Never destroyed: engine threads may still log while the process ends.
State& state()
{
    static auto* const state = new State;
    return *state;
}

bool begins(const CallLog::Call& call, std::string_view prefix)
{
    return call.text.starts_with(prefix);
}

void appendUtf8(std::string& out, char32_t point)
{
    const auto byte = [&out](char32_t value) { out += static_cast<char>(value); };
    if (point < 0x80) {
        byte(point);
    } else if (point < 0x800) {
        byte(0xc0 | (point >> 6));
        byte(0x80 | (point & 0x3f));
    } else if (point < 0x10000) {
        byte(0xe0 | (point >> 12));
        byte(0x80 | ((point >> 6) & 0x3f));
        byte(0x80 | (point & 0x3f));
    } else {
        byte(0xf0 | (point >> 18));
        byte(0x80 | ((point >> 12) & 0x3f));
        byte(0x80 | ((point >> 6) & 0x3f));
        byte(0x80 | (point & 0x3f));
    }
}

} // namespace

void CallLog::add(std::string text)
{
    State& log = state();
    {
        const std::lock_guard lock(log.mutex);
        log.calls.push_back({std::move(text), std::this_thread::get_id()});
    }
    log.changed.notify_all();
}

void CallLog::clear()
{
    const std::lock_guard lock(state().mutex);
    state().calls.clear();
}

std::vector<CallLog::Call> CallLog::calls(std::string_view prefix)
{
    const std::lock_guard lock(state().mutex);
    std::vector<Call> found;
    std::copy_if(state().calls.begin(), state().calls.end(), std::back_inserter(found),
                 [prefix](const Call& call) { return begins(call, prefix); });
    return found;
}

std::vector<std::string> CallLog::texts(std::string_view prefix)
{
    std::vector<std::string> found;
    for (Call& call : calls(prefix))
        found.push_back(std::move(call.text));
    return found;
}

int CallLog::count(std::string_view prefix)
{
    return static_cast<int>(calls(prefix).size());
}

bool CallLog::waitFor(std::string_view prefix, int number)
{
    State& log = state();
    std::unique_lock lock(log.mutex);
    return log.changed.wait_for(lock, FakePatience, [&] {
        return std::count_if(log.calls.begin(), log.calls.end(),
                             [prefix](const Call& call) { return begins(call, prefix); })
               >= number;
    });
}

namespace fakes {

std::string penPath(const char* path)
{
    if (!path)
        return "null";
    const char* const root = std::getenv("SWIPELINE_ROOT");
    std::string_view rest(path);
    if (root && rest.starts_with(root))
        rest.remove_prefix(std::string_view(root).size());
    return std::string(rest);
}

std::string utf8(std::u16string_view text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        const bool high = unit >= 0xd800 && unit < 0xdc00;
        const bool pair = high && i + 1 < text.size() && (text[i + 1] & 0xfc00) == 0xdc00;
        if (pair)
            appendUtf8(out, 0x10000 + ((unit - 0xd800u) << 10) + (text[++i] - 0xdc00u));
        else
            appendUtf8(out, (unit & 0xf800) == 0xd800 ? U'?' : char32_t{unit});
    }
    return out;
}

} // namespace fakes
