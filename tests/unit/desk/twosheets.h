#ifndef TWOSHEETS_H
#define TWOSHEETS_H

#include <QFont>
#include <QPainter>
#include <QPdfWriter>
#include <QString>

/* Writes a PDF file: one line of print on the first sheet, two on the second. */
inline void writeTwoSheets(const QString& path)
{
    QPdfWriter writer(path);
    writer.setPageSize(QPageSize(QPageSize::A5));
    QPainter painter(&writer);
    painter.setFont(QFont("DejaVu Sans", 12));
    painter.drawText(QPoint(300, 1000), "The first sheet");
    writer.newPage();
    painter.drawText(QPoint(300, 1000), "The second sheet");
    painter.drawText(QPoint(300, 2000), "has two lines");
}

#endif
