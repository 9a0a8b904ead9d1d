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

/* Who speaks from now on; an empty one for nobody. */
void setSpeaker(Speaker speaker);

/* Has a text spoken; without a speaker nothing happens. */
void announce(const QString& text);

} // namespace announcer

#endif
