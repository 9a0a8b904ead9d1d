#include "tests/fakes/calllog.h"
#include "tests/fakes/fakedic.h"
#include "tests/fakes/fakeiap.h"
#include "tests/fakes/fakeocr.h"
#include "tests/fakes/fakeoled.h"
#include "tests/fakes/faketts.h"

void fakes::reset()
{
    FakeOcr::release();
    FakeIap::reset();
    FakeTts::reset();
    FakeOcr::reset();
    FakeDic::reset();
    FakeOled::reset();
    CallLog::clear();
}
