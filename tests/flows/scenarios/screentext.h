#ifndef SCREENTEXT_H
#define SCREENTEXT_H

#include <QMap>
#include <QString>
#include <QStringList>

/* What stands on the screen, in words: its kind ("menu", "editor", "message"...) and its fields
 * as Scenario::screenFields() names them. */
struct ScreenText
{
    QString kind = QStringLiteral("none");
    QMap<QString, QStringList> fields;

    bool operator==(const ScreenText& other) const
    {
        return kind == other.kind && fields == other.fields;
    }

    /* As it would stand in a scenario behind "screen". */
    QString toString() const;
};

/* The screen that has the keys now: a dialog when there is one, else what WidgetChange holds as
 * current. To be called while there is a main window, on the interface thread. */
ScreenText describeScreen();

#endif
