#ifndef SWIPES_H
#define SWIPES_H

#include "tests/fakes/fakeiap.h"
#include "tests/fakes/fakeocr.h"

#include <QTest>

/* A swipe over a line that reads so, which is recognised while the pen goes on. */
inline void swipeOver(const char16_t* text)
{
    FakeOcr::setResult(text);
    QCOMPARE(FakeIap::swipe(FakeIap::pattern(40, 10)), std::optional(0));
}

/* The same; it is being recognised until FakeOcr::release(). */
inline void swipeAndHold(const char16_t* text)
{
    FakeOcr::hold();
    swipeOver(text);
    QTRY_VERIFY(FakeOcr::isRecognizing());
}

#endif
