#include "desk/pagesource.h"

#include "desk/scriptwords.h"

using scriptwords::quoted;

QString PageSource::scriptLine() const
{
    switch (kind) {
    case Kind::Sample:
        return QLatin1String("page ") + quoted(name);
    case Kind::Text:
        return QLatin1String("text ") + quoted(name) + QLatin1Char(' ') + quoted(language);
    case Kind::Typed: {
        QString line = QLatin1String("type ") + quoted(text) + QLatin1Char(' ') + quoted(language);
        if (!family.isEmpty())
            line += QLatin1String(" font ") + quoted(family);
        return line + QLatin1String(" size ") + QString::number(sizePt);
    }
    case Kind::File:
        break;
    }
    QString line = QLatin1String("page ") + quoted(name);
    if (pdfPage > 0)
        line += QLatin1String(" sheet ") + QString::number(pdfPage + 1);
    if (pictureDpi > 0.0)
        line += QLatin1String(" dpi ") + QString::number(pictureDpi);
    return line;
}
