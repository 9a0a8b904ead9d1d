#ifndef ENGINEUNITS_H
#define ENGINEUNITS_H

/* Settings in the speech engine's units. A damaged file may hold any number: what is out of any
 * sense stays within what an int holds. No state. */
namespace engineunits {

int volume(int setting);              // 20 a step
int speed(int setting);               // 8 a step
int spanishVariantSpeed(int setting); // 15 a step

/* The speed for texts read in the voice with that code. */
int readingSpeed(int setting, int voice);

} // namespace engineunits

#endif
