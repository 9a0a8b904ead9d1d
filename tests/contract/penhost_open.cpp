#include "tests/contract/penhost.h"
#include "tests/unit/open/fakedesk.h"
#include "tests/unit/open/iappictures.h"

namespace {

std::optional<FakeDesk> desk;

void lift(const std::vector<Frame>& frames)
{
    for (const Frame& frame : frames)
        desk->sendFrame(frame);
    desk->lift();
}

} // namespace

void penhost::begin()
{
    desk.emplace();
}

bool penhost::connected()
{
    if (!desk->accept())
        return false;
    const auto hello = desk->receive();
    const auto camera = desk->receive();
    return hello && hello->kind == desklink::Kind::Hello && camera
           && camera->kind == desklink::Kind::CameraOn;
}

void penhost::disconnected()
{
    desk->hangUp();
}

void penhost::end()
{
    desk.reset();
}

void penhost::press()
{
    desk->press();
}

void penhost::liftAfterLine()
{
    static const std::vector<Frame> frames = swipeFrames(threeLines(), 1, {});
    lift(frames);
}

void penhost::liftAfterBlank()
{
    static const std::vector<Frame> frames = swipeFrames(blankPage(), 0, {});
    lift(frames);
}
