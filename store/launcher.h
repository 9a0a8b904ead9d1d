#ifndef STORE_LAUNCHER_H
#define STORE_LAUNCHER_H

/*
 * What the application tells the launcher, the process that owns the device. Any thread. Nothing
 * happens when no launcher listens.
 */
namespace launcher {

/* The application is on the screen. */
void tellShown();

/* The user leaves the application. */
void tellLeft();

/* Speech begins, and ends: the launcher switches the sound output. */
void tellSoundBegins();
void tellSoundEnds();

/* A line was swiped. */
void tellSwipe();

} // namespace launcher

#endif
