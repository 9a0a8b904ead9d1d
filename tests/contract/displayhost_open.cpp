#include "tests/contract/displayhost.h"
#include "tests/unit/open/fakedesk.h"

namespace {

std::optional<FakeDesk> desk;

} // namespace

void displayhost::remove()
{
    qunsetenv(desklink::SocketVariable);
    desk.reset();
}

void displayhost::attach()
{
    if (!desk)
        desk.emplace();
}
