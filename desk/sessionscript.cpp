#include "desk/sessionscript.h"

#include "desk/scriptwords.h"

#include <QLineF>
#include <algorithm>
#include <cmath>

namespace {

constexpr qint64 LeastPauseMs = 200;
constexpr int SteadyWords = 6;
constexpr double NearMm = 0.1;
constexpr qint64 MaxPauseMs = 60'000; // whoever went away meant nothing by it

QString seconds(qint64 milliseconds)
{
    return QString::number(std::round(double(milliseconds) / 100.0) / 10.0);
}

QString step(const PathPoint& point)
{
    return QStringLiteral("%1,%2@%3")
        .arg(QString::number(std::round(point.mm.x() * 100.0) / 100.0),
             QString::number(std::round(point.mm.y() * 100.0) / 100.0),
             QString::number(std::round(point.seconds * 1000.0) / 1000.0));
}

/* How far a point lies from where the hand would be on the straight way between two others. */
double distance(const PathPoint& point, const PathPoint& from, const PathPoint& to)
{
    const double span = to.seconds - from.seconds;
    const double share = span > 0.0 ? (point.seconds - from.seconds) / span : 0.0;
    return QLineF(point.mm, from.mm + (to.mm - from.mm) * share).length();
}

/* Marks the points between two marked ones that are needed, by halves: an explicit stack, since a
 * long swipe has thousands. */
std::vector<bool> needed(const std::vector<PathPoint>& path)
{
    std::vector<bool> keep(path.size(), false);
    keep.front() = keep.back() = true;
    std::vector<std::pair<std::size_t, std::size_t>> open = {{0, path.size() - 1}};
    while (!open.empty()) {
        const auto [first, last] = open.back();
        open.pop_back();
        double farthest = NearMm;
        std::size_t at = first;
        for (std::size_t i = first + 1; i < last; ++i) {
            const double off = distance(path[i], path[first], path[last]);
            if (off > farthest) {
                farthest = off;
                at = i;
            }
        }
        if (at == first)
            continue;
        keep[at] = true;
        open.emplace_back(first, at);
        open.emplace_back(at, last);
    }
    return keep;
}

} // namespace

void SessionScript::begin(const QStringList& lines)
{
    m_lines = lines;
}

void SessionScript::act(const QString& line, qint64 atMs, bool atRest)
{
    m_lines += waits();
    const qint64 taken = std::min(atMs - m_lastMs, MaxPauseMs);
    if (m_actions > 0 || !m_spoken.isEmpty()) {
        if (atRest)
            m_lines.append(QStringLiteral("wait idle"));
        else if (taken >= LeastPauseMs)
            m_lines.append(QLatin1String("pause ") + seconds(taken));
    }
    m_lines.append(line);
    ++m_actions;
    m_spoken.clear();
    m_outcome.clear();
    m_ended = false;
    m_lastMs = atMs;
}

void SessionScript::set(const QString& line)
{
    m_lines += waits();
    m_lines.append(line);
    m_spoken.clear();
    m_outcome.clear();
    m_ended = false;
}

void SessionScript::spoke(const QString& text, qint64 atMs)
{
    m_spoken = steadyWords(text);
    m_lastMs = atMs;
}

void SessionScript::swiped(const QString& outcome)
{
    m_outcome = outcome;
}

void SessionScript::ended()
{
    m_ended = true;
}

QStringList SessionScript::waits() const
{
    QStringList lines;
    if (!m_outcome.isEmpty())
        lines.append(QLatin1String("wait swipe ") + m_outcome);
    if (!m_spoken.isEmpty())
        lines.append(QLatin1String("wait spoken ") + scriptwords::quoted(m_spoken));
    if (m_ended)
        lines.append(QStringLiteral("wait exit"));
    return lines;
}

QString SessionScript::text() const
{
    QStringList lines = m_lines;
    // To save and end is what "quit" does, too.
    if (m_ended && lines.last() == QLatin1String("send execute(QString) stop"))
        lines.removeLast();
    else
        lines += waits();
    if (!m_ended && m_actions > 0)
        lines.append(QStringLiteral("wait idle"));
    lines.append(QStringLiteral("quit"));
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

QString SessionScript::pathLine(const std::vector<PathPoint>& path)
{
    QString line = QStringLiteral("swipe path");
    if (path.empty())
        return line;
    const std::vector<bool> keep = needed(path);
    QString last;
    for (std::size_t i = 0; i < path.size(); ++i) {
        const QString word = step(path[i]);
        const QString time = word.section(QLatin1Char('@'), 1);
        if (!keep[i] || time == last)
            continue;
        line += QLatin1Char(' ') + word;
        last = time;
    }
    return line;
}

QString SessionScript::steadyWords(const QString& text)
{
    QStringList words;
    const QStringList all = text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& word : all) {
        const bool changes =
            std::any_of(word.begin(), word.end(), [](QChar c) { return c.isDigit(); });
        if (changes && words.isEmpty())
            continue;
        if (changes || words.size() == SteadyWords)
            break;
        words.append(word);
    }
    return words.join(QLatin1Char(' '));
}
