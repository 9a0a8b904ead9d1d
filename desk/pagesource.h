#ifndef PAGESOURCE_H
#define PAGESOURCE_H

#include <QString>

/* Where a page comes from. */
struct PageSource
{
    enum class Kind {
        Sample, // one of the desk's own pages, by its name
        File,   // a picture (png, jpg, ...) or a PDF file
        Text,   // a text file in UTF-8, to be set in type
        Typed   // a text of the user's own, to be set in type
    };
    Kind kind = Kind::Sample;
    QString name;            // of the sample, or the path of the file
    QString language;        // of a text, two letters
    QString text;            // Typed: what is set
    QString family;          // Typed: font; empty: by the language
    double sizePt = 12.0;    // Typed: size of the type
    int pdfPage = 0;         // from 0
    double pictureDpi = 0.0; // 0: 300

    static constexpr double LeastPt = 5.0;
    static constexpr double MostPt = 36.0;
    static constexpr double LeastDpi = 50.0;
    static constexpr double MostDpi = 2400.0;

    bool operator==(const PageSource&) const = default;

    /* The line of a script that lays this page on the desk. */
    QString scriptLine() const;
};

#endif
