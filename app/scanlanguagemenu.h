#ifndef SCANLANGUAGEMENU_H
#define SCANLANGUAGEMENU_H

#include "store/languageinfo.h"

#include <QLocale>
#include <QVector>

class QCollator;

/* The order of the menu of scan languages. No state. */

/* The locale of an interface language's code, for its collation; English for codes that have
 * none. */
QLocale localeOfLanguage(int code);

/* Whether the displayed name of `left` comes before that of `right`. */
bool comQt(const QCollator& order, const ScanLanInfoForSort& left, const ScanLanInfoForSort& right);

/* Sorts by displayed name in the order of the locale; languages of the same name keep their
 * order. */
void sortScanLanMenu(QVector<ScanLanInfoForSort>& languages, const QLocale& locale);

/* The place of the language with this row in the scan-language table; 0 when it is not in the
 * list. */
int placeOfLanguage(const QVector<ScanLanInfoForSort>& languages, int row);

#endif
