#ifndef FAKEIAP_H
#define FAKEIAP_H

#include <optional>
#include <vector>

/*
 * Control of the scripted scan engine behind platform/zembra_iap.h: the test presses and lifts the
 * tip. The callback runs on a thread of the engine's; the picture is in a buffer of the engine's
 * that is overwritten as soon as the callback returns. Any thread.
 */
class FakeIap
{
public:
    /* What fills the engine's buffer after a callback. */
    static constexpr unsigned char Poison = 0xa5;

    struct Picture
    {
        int width = 0;
        int height = 0;
        std::vector<unsigned char> pixels; // may disagree with the size, to try receivers
        unsigned char flag = 0;
    };

    static void reset();

    /* Result of ZEMBRA_IAP_Initialize from now on; other than 0 the engine does not start. */
    static void setInitializeResult(int result);

    /* The tip goes down. False when the engine is not started. */
    static bool press();

    /* The tip goes up after a press: the picture is handed over, by and by. */
    static void lift(Picture picture);

    /* The tip goes up, and no line could be made of the swipe. */
    static void liftWithoutLine();

    /* Waits until the engine is idle; whether it is. */
    static bool waitUntilIdle();
    static bool isIdle();

    /* press(), lift(), waitUntilIdle(). What the callback returned; nothing when no callback was
     * called. */
    static std::optional<int> swipe(Picture picture);

    static bool isStarted();
    static int hand();
    static int direction();
    static int script();
    static bool stopSignal();

    /* Callbacks that have been called. */
    static int deliveries();

    /* A picture of pixels that all differ from their neighbours. */
    static Picture pattern(int width, int height, unsigned char flag = 0);
};

#endif
