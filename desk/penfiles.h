#ifndef PENFILES_H
#define PENFILES_H

#include <QString>
#include <QVector>

/*
 * The scan files on the pen's card and internal flash, as somebody sees them who plugs the pen
 * into a computer. Only ever read.
 */
namespace penfiles {

struct ScanFile
{
    QString path; // below the run root
    qint64 bytes;
    QString text;
};

/* All scan files below a run root, card first, in the order of their names. Files of more than
 * 1 MB are listed without their text. */
QVector<ScanFile> list(const QString& root);

/* Whether a scan file whose name matches the wildcard pattern `name` ("*" for any) holds `text`;
 * the amount of blank space does not count. */
bool contains(const QString& root, const QString& name, const QString& text);

/* The text of a file's bytes: UTF-16 by its byte-order mark, else UTF-8. */
QString decode(const QByteArray& bytes);

} // namespace penfiles

#endif
