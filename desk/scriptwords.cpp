#include "desk/scriptwords.h"

#include <QtNumeric>
#include <algorithm>

bool scriptwords::split(const QString& line, QStringList& words)
{
    QString word;
    bool inWord = false;
    bool inQuotes = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const QChar c = line.at(i);
        if (inQuotes && c == QLatin1Char('\\') && i + 1 < line.size()) {
            const QChar next = line.at(++i);
            word.append(next == QLatin1Char('n') ? QLatin1Char('\n') : next);
        } else if (c == QLatin1Char('"')) {
            inQuotes = !inQuotes;
            inWord = true;
        } else if (!inQuotes && c == QLatin1Char('#') && !inWord) {
            break;
        } else if (!inQuotes && c.isSpace()) {
            if (inWord)
                words.append(word);
            word.clear();
            inWord = false;
        } else {
            word.append(c);
            inWord = true;
        }
    }
    if (inWord)
        words.append(word);
    return !inQuotes;
}

bool scriptwords::readPoint(const QString& word, QPointF& point)
{
    const QStringList parts = word.split(QLatin1Char(','));
    if (parts.size() != 2)
        return false;
    bool okX = false;
    bool okY = false;
    point = QPointF(parts.at(0).toDouble(&okX), parts.at(1).toDouble(&okY));
    return okX && okY && qIsFinite(point.x()) && qIsFinite(point.y());
}

QString scriptwords::quoted(const QString& word)
{
    const bool plain = !word.isEmpty() && std::all_of(word.begin(), word.end(), [](QChar c) {
        return !c.isSpace() && c != u'"' && c != u'\\' && c != u'#';
    });
    if (plain)
        return word;
    QString text = word;
    text.replace(u'\\', QLatin1String("\\\\")).replace(u'"', QLatin1String("\\\""));
    return u'"' + text.replace(u'\n', QLatin1String("\\n")) + u'"';
}
