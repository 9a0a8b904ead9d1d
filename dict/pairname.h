#ifndef PAIRNAME_H
#define PAIRNAME_H

#include <QString>

/*
 * The name of a language pair in the language of the interface. Engines name pairs in English
 * ("English-German"), so that a pair is called the same on every pen; a user reads and hears it in
 * his own language, as its dictionaries are called there ("Anglais-allemand"). A name that is not
 * made of two known languages stays as it is.
 *
 * Interface thread only, after the translation was installed.
 */
namespace pairname {

QString shown(const QString& engineName);

} // namespace pairname

#endif
