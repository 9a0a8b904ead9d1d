#include "tests/fakes/fakeoled.h"

#include "platform/oled.h"
#include "tests/fakes/calllog.h"

#include <atomic>

namespace {

std::atomic<bool> present{true};
std::atomic<bool> following{true};

} // namespace

void FakeOled::reset()
{
    present = true;
    following = true;
}

void FakeOled::setPresent(bool isPresent)
{
    present = isPresent;
}

bool FakeOled::follows()
{
    return following;
}

int oled_update_set(int on)
{
    CallLog::add("oled_update_set(" + std::to_string(on) + ")");
    if (!present)
        return -1;
    following = on != 0;
    return 0;
}
