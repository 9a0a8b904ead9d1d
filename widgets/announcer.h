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
using Silencer = std::function<void()>;

/* Who speaks from now on, and who ends what is spoken; empty ones for nobody. */
void setSpeaker(Speaker speaker, Silencer silencer = nullptr);

/* Has a text spoken; without a speaker nothing happens. */
void announce(const QString& text);

/* Cuts short what is spoken: the user has gone on. */
void hush();

} // namespace announcer

#endif
