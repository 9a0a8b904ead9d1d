#ifndef SCANBUSY_H
#define SCANBUSY_H

/* Whether a swipe is in progress, from the press of the tip to the delivery of the line: menus and
 * pages ignore keys then. Interface thread. */
bool scanEngineIsBusy();

#endif
