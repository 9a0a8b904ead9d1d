#include "open/ocr/verticalmarks.h"

#include "open/ocr/linepieces.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <utility>
#include <vector>

namespace ocr {

namespace {

constexpr std::uint8_t White = 255;

/* All lengths below are shares of the line's height, which is that of a character's square. */
constexpr double LargestMark = 0.45;
constexpr double LowestMark = 0.6;   // how far down a mark at the upper right may reach
constexpr double LeastBefore = 0.25; // empty paper to the left of such a mark
constexpr double GapAfterMoving = 0.1;
constexpr double LeastBracket = 0.45; // length of a lying bracket
constexpr double FlattestTurn = 1.3;  // a lying bracket is longer than high by this factor
constexpr double OffMiddle = 0.15;    // its middle is that far from the square's; a dash's is not

class Row
{
public:
    explicit Row(GreyPicture& picture) : m_picture(picture), m_pieces(piecesOf(picture))
    {
        if (!m_pieces.empty())
            m_box = boxAround(m_pieces);
    }

    const std::vector<Piece>& pieces() const { return m_pieces; }
    int top() const { return m_box.top; }
    int height() const { return m_box.height(); }

    /* Takes the pixels of a piece off the picture. */
    GreyPicture lift(const Piece& piece)
    {
        GreyPicture result = {piece.width(), piece.height(), {}};
        for (int y = piece.top; y < piece.bottom; ++y)
            for (int x = piece.left; x < piece.right; ++x)
                result.pixels.push_back(std::exchange(at(x, y), White));
        return result;
    }

    /* Puts them down again; what falls outside is lost. */
    void put(const GreyPicture& ink, int left, int top)
    {
        for (int y = 0; y < ink.height; ++y) {
            for (int x = 0; x < ink.width; ++x) {
                const bool inside = left + x >= 0 && left + x < m_picture.width && top + y >= 0
                                    && top + y < m_picture.height;
                if (!inside)
                    continue;
                std::uint8_t& pixel = at(left + x, top + y);
                pixel = std::min(pixel, ink.pixels[static_cast<std::size_t>(y) * ink.width + x]);
            }
        }
    }

private:
    std::uint8_t& at(int x, int y)
    {
        return m_picture.pixels[static_cast<std::size_t>(y) * m_picture.width + x];
    }

    GreyPicture& m_picture;
    const std::vector<Piece> m_pieces;
    Piece m_box = {};
};

bool isMark(const Piece& piece, int spaceBefore, const Row& row)
{
    const double side = row.height();
    return piece.width() < LargestMark * side && piece.height() < LargestMark * side
           && piece.bottom - row.top() < LowestMark * side && spaceBefore >= LeastBefore * side;
}

bool isLyingBracket(const Piece& piece, const Row& row)
{
    const double side = row.height();
    const double middle = (piece.top + piece.bottom) / 2.0 - row.top();
    return piece.width() >= LeastBracket * side && piece.width() <= side
           && piece.width() >= FlattestTurn * piece.height()
           && std::abs(middle - side / 2) >= OffMiddle * side;
}

GreyPicture turnedBack(const GreyPicture& ink)
{
    GreyPicture result = {ink.height, ink.width, {}};
    for (int y = 0; y < result.height; ++y)
        for (int x = 0; x < result.width; ++x)
            result.pixels.push_back(
                ink.pixels[static_cast<std::size_t>(x) * ink.width + (ink.width - 1 - y)]);
    return result;
}

} // namespace

void setMarksHorizontally(GreyPicture& line)
{
    Row row(line);
    int end = 0; // of the ink before
    for (const Piece& piece : row.pieces()) {
        if (isMark(piece, piece.left - end, row)) {
            const int left = end + static_cast<int>(GapAfterMoving * row.height());
            row.put(row.lift(piece), end > 0 ? left : piece.left,
                    row.top() + row.height() - piece.height());
        } else if (isLyingBracket(piece, row)) {
            const int fromMiddle = (piece.top + piece.bottom) / 2 - row.top() - row.height() / 2;
            const GreyPicture ink = turnedBack(row.lift(piece));
            const int left = (piece.left + piece.right - ink.width) / 2 + fromMiddle;
            row.put(ink, std::clamp(left, 0, line.width - ink.width),
                    row.top() + (row.height() - ink.height) / 2);
        }
        end = piece.right;
    }
}

} // namespace ocr
