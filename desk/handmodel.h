#ifndef HANDMODEL_H
#define HANDMODEL_H

#include "desk/camera/handpath.h"

#include <QString>
#include <QStringList>
#include <span>

/*
 * The hand that moves the pen, and the light in which the camera looks: what can be adjusted of
 * both. The values of a new object are those of an ordinary reader at a well-lit desk.
 */
struct HandModel
{
    double speedMmPerS = 150.0; // of swipes that the desk makes; a drag with the mouse has its own
    double wobbleMm = 0.15;     // how far a swipe sways off its way; the pen turns along
    double tiltDeg = 0.0;       // the pen is turned on the paper, clockwise
    double shadePercent = 15.0; // how much darker one end of the camera's field is
    double noiseLevels = 2.0;   // sigma of the camera's noise, in grey levels of 256
    double blurPx = 0.5;        // sigma of the lens, in pixels of the camera
    bool left = false;          // held in the left hand: the camera looks the other way up

    /* One of the values: what it is called, and its range. */
    struct Trait
    {
        const char* name; // in scripts and in the settings file
        const char* label;
        const char* unit;
        const char* hint; // for the user
        double least;
        double most;
        double step;
        int decimals;
        double HandModel::*value;
    };
    static std::span<const Trait> traits();
    static const Trait* trait(const QString& name);
    static QStringList traitNames();

    /* Moves a value into its range. What is no number becomes the usual value. */
    void set(const Trait& trait, double value);

    /* How the hand moves; `seed` tells one swipe from the next. */
    HandSettings motion(std::uint32_t seed) const;
    /* A camera's settings as this hand and light make them. */
    CameraSettings seenBy(CameraSettings camera) const;

    bool operator==(const HandModel&) const = default;

    /* The lines of a script that change `before` into this one. */
    QStringList scriptLines(const HandModel& before) const;
};

#endif
