#ifndef PENLANGUAGES_H
#define PENLANGUAGES_H

#include <QString>
#include <QVector>

/*
 * The languages of the pen's interface, as its launcher offers them: the pen's table of menu
 * languages, and the setting that names a row of it. The application reads the setting at its
 * start.
 */
namespace penlanguages {

struct Language
{
    QString name;    // English: "German"
    QString ownName; // "Deutsch"
    int code;        // 104
};

/* The rows of the table below a run root; empty when there is none. */
QVector<Language> list(const QString& root);

/* The row that the name means: English or own name in any case, or the code. -1 for none. */
int rowOf(const QVector<Language>& languages, const QString& name);

/* The row that the pen's settings name, 0 without settings. */
int chosen(const QString& root);

/* Stores a row; all other settings stay. False when the settings cannot be written. The pen must
 * not run: it would write its own settings over it. */
bool choose(const QString& root, int row);

} // namespace penlanguages

#endif
