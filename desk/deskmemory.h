#ifndef DESKMEMORY_H
#define DESKMEMORY_H

#include "desk/handmodel.h"
#include "desk/pagesource.h"

#include <QByteArray>
#include <optional>

/* What the desk remembers from one time to the next. */
struct DeskMemory
{
    QByteArray geometry; // of the window
    PageSource page;
    HandModel hand;
    bool ruler = true;
    std::optional<bool> dark; // nothing: as the user's desktop is
    int tab = 0;

    /* Reads the settings file (INI). What is missing or makes no sense is as it is at first; a page
     * whose file has gone is the first sample. */
    static DeskMemory read(const QString& path);
    /* False when the file cannot be written. */
    bool write(const QString& path) const;

    /* The file in the user's configuration. */
    static QString usualPath();
};

#endif
