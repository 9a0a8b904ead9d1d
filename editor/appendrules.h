#ifndef APPENDRULES_H
#define APPENDRULES_H

#include <QString>

/* Whether `addition` may be appended to `document` within scantext::MaxSavedBytes. A line end of
 * either, also that of a paragraph break ("\n    "), counts one unit more, for the "\r\n" that it
 * is saved as. */
bool fitsIntoFile(const QString& document, const QString& addition);

/*
 * A scan as it is inserted into `document`: with one blank behind it when it ends in a letter, a
 * digit or one of "?!.,", so that the next scan does not stick to it. The blank is left out when it
 * alone would make the file too big to be opened again.
 */
QString withTrailingBlank(const QString& document, const QString& scan);

#endif
