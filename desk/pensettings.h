#ifndef PENSETTINGS_H
#define PENSETTINGS_H

#include <QString>

/*
 * Numbers in the pen's settings file below a run root, as its launcher stores them
 * (docs/formats.md lists them). All other settings stay.
 */
namespace pensettings {

/* The hand that holds the pen: 0 right, 1 left. Read each time that the scan engine starts, so that
 * it may be stored while the pen runs. */
inline const QString HandKey = QStringLiteral("SystemSet/HandLR");

/* 0 when it is not set. */
int value(const QString& root, const QString& key);

/* Leaves the file alone when it has that value. False when it cannot be written. */
bool store(const QString& root, const QString& key, int value);

} // namespace pensettings

#endif
