#include "tests/contract/penhost.h"
#include "tests/fakes/fakeiap.h"

void penhost::begin() {}

bool penhost::connected()
{
    return FakeIap::isStarted();
}

void penhost::disconnected() {}

void penhost::end() {}

void penhost::press()
{
    FakeIap::press();
}

void penhost::liftAfterLine()
{
    FakeIap::lift(FakeIap::pattern(120, 40));
}

void penhost::liftAfterBlank()
{
    FakeIap::liftWithoutLine();
}
