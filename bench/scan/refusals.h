#ifndef SCAN_REFUSALS_H
#define SCAN_REFUSALS_H

#include "bench/scan/trial.h"

/* Swipes that cannot be read: what the engine hands over of them nevertheless. */
struct Refusal
{
    QString name;
    int swipes = 0;
    int pictures = 0; // handed over
    int letters = 0;  // that the recogniser takes them for
};

/* `count` seeded swipes of each kind. */
std::vector<Refusal> refusals(Trial& trial, int count, std::uint32_t seed);

#endif
