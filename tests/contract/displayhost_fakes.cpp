#include "tests/contract/displayhost.h"
#include "tests/fakes/fakeoled.h"

void displayhost::remove()
{
    FakeOled::setPresent(false);
}

void displayhost::attach()
{
    FakeOled::setPresent(true);
}
