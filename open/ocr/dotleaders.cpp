#include "open/ocr/dotleaders.h"

#include "open/ocr/linepieces.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <vector>

namespace ocr {

namespace {

constexpr std::uint8_t White = 255;

/* An ellipsis at the end of a sentence has four dots on the line; the Chinese one six, which stand
 * at half height. */
constexpr std::size_t LeastOnLine = 5;
constexpr std::size_t LeastAnywhere = 8;
constexpr int KeptDots = 3;

/* Lengths as shares of the height of the line's ink. */
constexpr double LargestDot = 0.25;
constexpr double OnLine = 0.55;     // dots that stand on the line begin below that
constexpr double LargestStep = 1.5; // from dot to dot
constexpr double Gap = 0.6;         // at least, to what stands before and behind

constexpr double DotStep = 2.3;    // of the kept dots, in widths of a dot
constexpr double Unevenness = 0.3; // of the steps, and of the sizes

using Pieces = std::vector<Piece>;

bool isDot(const Piece& piece, const Piece& line)
{
    const double largest = LargestDot * line.height();
    const int width = piece.width();
    const int height = piece.height();
    return width <= largest && height <= largest && 2 * width >= height && 2 * height >= width;
}

/* Whether two dots could be neighbours in a row. */
bool match(const Piece& a, const Piece& b, const Piece& line)
{
    const double larger = std::max({a.height(), b.height(), 3});
    return std::abs(a.bottom - b.bottom) <= Unevenness * larger + 1
           && std::abs(a.height() - b.height()) <= Unevenness * larger + 1
           && b.left - a.left <= LargestStep * line.height();
}

bool isEven(int step, int before)
{
    return std::abs(step - before) <= Unevenness * std::max(step, before) + 1;
}

/* The end of the row of dots that begins with piece `first`; `first` itself when none does. */
std::size_t endOfRow(const Pieces& pieces, std::size_t first, const Piece& line)
{
    if (!isDot(pieces[first], line))
        return first;
    std::size_t end = first + 1;
    for (; end < pieces.size(); ++end) {
        const int step = pieces[end].left - pieces[end - 1].left;
        if (!isDot(pieces[end], line) || !match(pieces[end - 1], pieces[end], line)
            || (end - first >= 2 && !isEven(step, pieces[end - 1].left - pieces[end - 2].left)))
            break;
    }
    const bool onLine = pieces[first].top - line.top > OnLine * line.height();
    return end - first >= (onLine ? LeastOnLine : LeastAnywhere) ? end : first;
}

/* Builds a picture from left to right out of columns of another. */
class Assembly
{
public:
    explicit Assembly(const GreyPicture& source) : m_source(source) {}

    void addColumns(int left, int right)
    {
        for (int x = left; x < right; ++x)
            m_columns.push_back(x);
    }

    void addWhite(int columns) { m_columns.insert(m_columns.end(), std::max(0, columns), Blank); }

    GreyPicture picture() const
    {
        GreyPicture result = {static_cast<int>(m_columns.size()), m_source.height, {}};
        result.pixels.reserve(m_columns.size() * static_cast<std::size_t>(m_source.height));
        for (int y = 0; y < m_source.height; ++y) {
            const std::uint8_t* row =
                m_source.pixels.data() + static_cast<std::ptrdiff_t>(y) * m_source.width;
            for (const int x : m_columns)
                result.pixels.push_back(x == Blank ? White : row[x]);
        }
        return result;
    }

private:
    static constexpr int Blank = -1;

    const GreyPicture& m_source;
    std::vector<int> m_columns;
};

/* The kept dots of a row, with white around that parts them from what else there is. */
void addRow(Assembly& assembly, const Pieces& pieces, std::size_t first, std::size_t end,
            const Piece& line)
{
    const int wanted = static_cast<int>(Gap * line.height());
    const Piece& dot = pieces[first];
    const int white = std::max(2, static_cast<int>((DotStep - 1) * dot.width()));
    if (first > 0)
        assembly.addWhite(wanted - (dot.left - pieces[first - 1].right));
    for (int i = 0; i < KeptDots; ++i) {
        assembly.addWhite(i == 0 ? 0 : white);
        assembly.addColumns(dot.left, dot.right);
    }
    if (end < pieces.size())
        assembly.addWhite(wanted - (pieces[end].left - pieces[end - 1].right));
}

} // namespace

void shortenDotLeaders(GreyPicture& line)
{
    const Pieces pieces = piecesOf(line);
    if (pieces.size() < LeastOnLine)
        return;
    const Piece box = boxAround(pieces);
    Assembly assembly(line);
    int copied = 0;
    for (std::size_t at = 0; at < pieces.size();) {
        const std::size_t end = endOfRow(pieces, at, box);
        if (end == at) {
            ++at;
            continue;
        }
        assembly.addColumns(copied, pieces[at].left);
        addRow(assembly, pieces, at, end, box);
        copied = pieces[end - 1].right;
        at = end;
    }
    if (copied == 0)
        return;
    assembly.addColumns(copied, line.width);
    line = assembly.picture();
}

} // namespace ocr
