#ifndef PENKEYS_H
#define PENKEYS_H

#include <QString>
#include <QStringList>
#include <optional>
#include <span>

/*
 * The keys of the pen: what they are called in scripts, what stands on them, and which key of the
 * desk's keyboard stands for which.
 */
namespace penkeys {

struct PenKey
{
    Qt::Key key;
    const char* name;    // in scripts, matched without regard to case
    const char* label;   // on the key, empty for one that only the keyboard has
    const char* purpose; // tool tip and accessible description
};

/* All keys: those on the pen's picture in the order of the Tab key, then those that only the
 * keyboard has. */
std::span<const PenKey> all();

/* The key of that name; also "Return", "Enter" and "Escape" for OK and Esc. */
std::optional<Qt::Key> fromName(const QString& name);

/* The pen's key that a key of the keyboard stands for (Enter of the number pad is OK). */
std::optional<Qt::Key> fromKeyboard(int key);

/* What a key of the pen is called in scripts; empty for another key. */
QString nameOf(Qt::Key key);

/* All names, for messages. */
QStringList names();

} // namespace penkeys

#endif
