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

/* Who may speak: the menus' voice and the screens that read aloud, each with a worker of its own.
 */
enum class Speaker { Menu, Editor, Translation, Source };

/*
 * A speaker begins, and ends: the launcher switches the sound output.
 *
 * Each beginning is told, also of a speaker that speaks already. An end is told once nobody speaks
 * any more: one that is heard late, when another speaker has begun, would switch that one off.
 */
void tellSoundBegins(Speaker speaker);
void tellSoundEnds(Speaker speaker);

/* A speaker is destroyed: tells its end unless that was told. */
void speakerLeaves(Speaker speaker);

/* A line was swiped. */
void tellSwipe();

} // namespace launcher

#endif
