#ifndef SCAN_GENERATOR_H
#define SCAN_GENERATOR_H

#include "bench/handmodel/swipe.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

/* A scan language: its lines are tests/data/lines/CODE.txt, its recognition model is Tesseract's.
 */
struct ScanLanguage
{
    const char* code;
    const char* model;
    bool han = false; // square characters, no blanks
};

const std::vector<ScanLanguage>& scanLanguages();

/* A line of print on a page, and how a pen passes over it. */
struct SwipeCase
{
    QString text;      // of the line that is swiped
    QStringList lines; // of the page; that line is the middle one
    PrintSettings print;
    Swipe swipe;
};

/* What makes a swipe harder than an ordinary one. */
struct Fault
{
    QString name; // "ordinary" for none
    void (*apply)(SwipeCase&) = nullptr;
    bool hanOnly = false;
    bool notHan = false;
};

/* The ordinary hand first, then each fault at its limit. */
const std::vector<Fault>& faults();

/*
 * Swipe number `index` of a language: text, type, size, hand, camera and light are drawn from a
 * generator (mt19937) that is seeded with the three numbers alone; the fault is put on top of what
 * was drawn, so that a fault is tried on the very swipes of the ordinary hand.
 *
 * Drawn evenly: size 6 to 14 points in halves; family of four (Chinese: one); distance of lines
 * 1.15 to 1.4 sizes; ink 10 to 60 of 255; speed 60 to 300 mm/s; sway of the speed 10 to 25 %;
 * wobble 0.05 to 0.25 mm and 0.2 to 1 degree; turn -3 to 3 degrees; aim -0.2 to 0.2 mm; 100 to 200
 * frames a second; noise of 1 to 3 levels; blur 0.4 to 0.7 pixels; light falling off by 0 to 25 %;
 * one in four with the left hand, one in four from the end to the beginning.
 */
SwipeCase swipeCase(const ScanLanguage& language, const Fault& fault, int index,
                    std::uint32_t seed);

#endif
