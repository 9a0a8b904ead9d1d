#ifndef PRINTSHEET_H
#define PRINTSHEET_H

#include <QImage>
#include <QRectF>
#include <QString>
#include <QStringList>

#include <vector>

/* How text is set. */
struct PrintSettings
{
    QString family = QStringLiteral("DejaVu Serif");
    double points = 11.0;
    double leading = 1.25; // distance of lines, in sizes of the type
    double dpi = 600.0;
    double marginMm = 15.0;
    int ink = 20;          // grey level of the print
    int paper = 255;       // and of what it is printed on
    bool vertical = false; // one column a line, from right to left
};

/* One printed line (or column) and where its print lies. */
struct PrintedLine
{
    QString text;
    QRectF inkMm; // from the page's upper left corner; the type's height, the text's width
};

/* A page of plain text, a line of print for each line given. Needs a QGuiApplication. */
class PrintSheet
{
public:
    PrintSheet(const QStringList& lines, const PrintSettings& settings);

    const QImage& picture() const { return m_picture; } // Format_Grayscale8
    double dpi() const { return m_settings.dpi; }
    const std::vector<PrintedLine>& lines() const { return m_lines; }

private:
    QImage blankPage(double width, double height) const;
    void printRows(const QStringList& lines, const class QFont& font);
    void printColumns(const QStringList& lines, const class QFont& font);

    PrintSettings m_settings;
    QImage m_picture;
    std::vector<PrintedLine> m_lines;
};

#endif
