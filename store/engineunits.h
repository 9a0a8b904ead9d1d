#ifndef ENGINEUNITS_H
#define ENGINEUNITS_H

/* Settings in the speech engine's units. A damaged file may hold any number: what is out of any
 * sense stays within what an int holds. No state. */
namespace engineunits {

int volume(int setting);              // 20 a step
int speed(int setting);               // 8 a step
int spanishVariantSpeed(int setting); // 15 a step

} // namespace engineunits

#endif
