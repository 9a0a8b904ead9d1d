#ifndef LANGUAGENAME_H
#define LANGUAGENAME_H

#include <QString>

/*
 * The name of a scan language in the language of the interface. The device's table names languages
 * in English; a user reads and hears them in his own language. A name that has no translation, as
 * in a table with each language's own name, stays as it is.
 *
 * Interface thread only, after the translation was installed.
 */
namespace languagename {

QString shown(const QString& tableName);

} // namespace languagename

#endif
