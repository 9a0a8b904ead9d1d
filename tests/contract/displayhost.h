#ifndef DISPLAYHOST_H
#define DISPLAYHOST_H

/* Takes the display away and brings it. */
namespace displayhost {

void remove();
void attach();

} // namespace displayhost

#endif
