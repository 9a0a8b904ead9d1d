#ifndef PRINTEDPAGE_H
#define PRINTEDPAGE_H

#include <QImage>
#include <QLineF>
#include <QMetaType>
#include <QRectF>
#include <QString>
#include <QVector>

/*
 * A printed page: what the camera sees, and where the lines of print are. Places are in
 * millimetres from the upper left corner.
 */
struct PrintedPage
{
    struct Line
    {
        QRectF mm;    // box around the ink
        QString text; // empty when the page is a picture
    };

    QString name;     // for the user
    QString language; // of the text, "" unknown
    QImage image;     // Format_Grayscale8
    double dpi = 300.0;
    QVector<Line> lines; // from top to bottom
    int sheet = 0;       // of a PDF file, from 0
    int sheets = 1;

    bool isEmpty() const { return image.isNull(); }
    QSizeF sizeMm() const { return QSizeF(image.size()) * (MmPerInch / dpi); }

    /* The way a hand takes over a line (0 is the first): from a little before its first letter to
     * a little behind its last, through the middle of its letters. */
    QLineF wayOver(int line) const;

    /* The line whose box, or the space around it, holds the point; -1 when none is near. */
    int lineAt(QPointF mm) const;

    static constexpr double MmPerInch = 25.4;
};

Q_DECLARE_METATYPE(PrintedPage)

#endif
