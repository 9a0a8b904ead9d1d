#include "widgets/evenlines.h"

#include "widgets/painting.h"

#include <QList>
#include <QTextBoundaryFinder>
#include <algorithm>
#include <limits>
#include <optional>

namespace evenlines {

namespace {

// Room that stays free in a line counts by its square, in characters; the end of a sentence or a
// clause makes good for some of it. Found by looking at the messages in all languages.
constexpr int Character = 8; // pixels
constexpr int SentenceBonus = 200;
constexpr int ClauseBonus = 100;
constexpr int NoBlankBonus = -100; // within a Chinese word, perhaps

int bonusOf(const QString& piece, const QString& visible)
{
    if (visible.isEmpty())
        return 0;
    const QChar last = visible.back();
    if (QStringLiteral(".!?。！？").contains(last))
        return SentenceBonus;
    if (QStringLiteral(",;，；").contains(last))
        return ClauseBonus;
    return piece.size() == visible.size() ? NoBlankBonus : 0;
}

// A stretch between two places where a line may end. What stands in brackets is the name of a file.
struct Piece
{
    int begin = 0;
    int width = 0;   // with the blanks behind it
    int visible = 0; // without them
    int bonus = 0;   // for a line that ends with it
};

QList<Piece> piecesOf(const QString& text)
{
    QList<Piece> pieces;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Line, text);
    int begin = 0;
    for (auto end = finder.toNextBoundary(); end > begin; end = finder.toNextBoundary()) {
        const QString whole = text.mid(begin, static_cast<int>(end) - begin);
        if (end < text.size() && whole.count(u'[') > whole.count(u']'))
            continue;
        const QString visible = whole.trimmed();
        pieces.append({begin, painting::textWidth(whole), painting::textWidth(visible),
                       bonusOf(whole, visible)});
        begin = static_cast<int>(end);
    }
    return pieces;
}

struct Choice
{
    int cost = 0;
    QList<int> begins; // the first piece of each line
};

// The best way to set the pieces from `first` on in so many lines; none when they do not fit.
std::optional<Choice> best(const QList<Piece>& pieces, int first, int lines, int width)
{
    std::optional<Choice> found;
    const int last = static_cast<int>(pieces.size()) - lines; // leaves one for each line to come
    int before = 0;
    for (int i = first; i <= last; ++i) {
        const int visible = before + pieces.at(i).visible;
        if (visible > width)
            break;
        before += pieces.at(i).width;
        const bool atEnd = i + 1 == pieces.size();
        if (atEnd != (lines == 1))
            continue;
        const int room = (width - visible) / Character;
        Choice choice{room * room - (atEnd ? 0 : pieces.at(i).bonus), {}};
        if (!atEnd) {
            const std::optional<Choice> rest = best(pieces, i + 1, lines - 1, width);
            if (!rest)
                continue;
            choice = {choice.cost + rest->cost, rest->begins};
        }
        choice.begins.prepend(first);
        if (!found || choice.cost < found->cost)
            found = choice;
    }
    return found;
}

QStringList evenParagraph(const QString& text, int width)
{
    const QStringList plain = painting::wrapText(text, width, std::numeric_limits<int>::max());
    const int count = static_cast<int>(plain.size());
    if (count < 2 || count > painting::MaxLines)
        return plain;
    const QList<Piece> pieces = piecesOf(text);
    const std::optional<Choice> choice = best(pieces, 0, count, width);
    if (!choice)
        return plain;
    QStringList lines;
    for (int i = 0; i < count; ++i) {
        const int begin = pieces.at(choice->begins.at(i)).begin;
        const int end = i + 1 < count ? pieces.at(choice->begins.at(i + 1)).begin
                                      : static_cast<int>(text.size());
        lines.append(text.mid(begin, end - begin).trimmed());
    }
    return lines;
}

} // namespace

QStringList evenLines(const QString& text, int width, int maxLines)
{
    QStringList lines;
    const QStringList paragraphs = text.split(u'\n');
    for (const QString& paragraph : paragraphs)
        lines += evenParagraph(painting::oneLine(paragraph), width);
    return lines.size() <= maxLines ? lines : painting::wrapText(text, width, maxLines);
}

} // namespace evenlines
