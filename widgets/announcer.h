/*
 * Speaks what a screen of the lower folders shows and cannot speak itself: it calls announce(), and
 * the main window says how that is spoken.
 *
 * Interface thread only.
 */
#ifndef ANNOUNCER_H
#define ANNOUNCER_H

#include <QString>
#include <functional>

namespace announcer {

using Speaker = std::function<void(const QString& text)>;

/* Who speaks from now on; an empty one for nobody. A speaker first gets what was announced while
 * there was none, in order: messages of start-up come before the main window. */
void setSpeaker(Speaker speaker);

/* Has a text spoken. */
void announce(const QString& text);

/* Forgets what was announced while there was no speaker. */
void forget();

} // namespace announcer

#endif
