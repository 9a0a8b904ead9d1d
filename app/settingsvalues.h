#ifndef SETTINGSVALUES_H
#define SETTINGSVALUES_H

#include <QStringList>
#include <span>

/*
 * The values that the settings screens offer. Each list holds what is stored, in the order in which
 * it is shown. No state.
 */
namespace settingsvalues {

using Values = std::span<const int>;

/* On, Off: what the settings of reading aloud hold. */
Values reading();

Values speed();  // 0 to 10
Values volume(); // 0 to 5

/* Pauses after words and punctuation, in steps of 200 ms: every step up to 10, then by 6. */
Values pauses();

Values readDelays(); // seconds
Values voices();     // voice index: British, American
Values directions(); // of scanning: across the page, down the page

/* The place of `stored` in the list, or of the value next to it (of two as near the smaller one):
 * a settings file may hold any number. */
int nearestIndex(Values values, int stored);

/* Whether choosing the place `index` changes a setting that holds `stored`. A place outside the
 * list changes nothing, nor does the place that is shown for what is stored already. */
bool changes(Values values, int index, int stored);

/* The values as texts. */
QStringList numbers(Values values);

} // namespace settingsvalues

#endif
