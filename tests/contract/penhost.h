#ifndef PENHOST_H
#define PENHOST_H

/*
 * What only a pen's hand can do: press the tip, swipe, lift. One implementation for the scripted
 * scan engine, one for an engine with a camera. All of it takes effect by and by.
 */
namespace penhost {

/* Before ZEMBRA_IAP_Initialize: there is a camera. */
void begin();

/* After ZEMBRA_IAP_Initialize has started the engine: false when it does not ask for frames. */
bool connected();

/* The engine has been shut down. */
void disconnected();

/* Takes the camera away again. */
void end();

void press();

/* Moves over a line of print and lifts; moves over blank paper and lifts. */
void liftAfterLine();
void liftAfterBlank();

} // namespace penhost

#endif
