#ifndef FAKEOLED_H
#define FAKEOLED_H

/* Control of the scripted display switch behind platform/oled.h. Any thread. */
class FakeOled
{
public:
    static void reset();

    /* Whether there is a display; there is one after reset(). */
    static void setPresent(bool present);

    /* Whether the display follows the frame buffer; it does after reset(). */
    static bool follows();
};

#endif
