#include "open/ocr/linepieces.h"

#include <algorithm>
#include <cstddef>

namespace ocr {

namespace {

constexpr int Ink = 192; // grey values below it are ink

} // namespace

std::vector<Piece> piecesOf(const GreyPicture& line)
{
    std::vector<Piece> pieces;
    bool inPiece = false;
    for (int x = 0; x < line.width; ++x) {
        int top = line.height;
        int bottom = 0;
        for (int y = 0; y < line.height; ++y) {
            if (line.pixels[static_cast<std::size_t>(y) * line.width + x] >= Ink)
                continue;
            top = std::min(top, y);
            bottom = y + 1;
        }
        if (bottom == 0) {
            inPiece = false;
            continue;
        }
        if (!inPiece)
            pieces.push_back({x, x, top, bottom});
        inPiece = true;
        Piece& piece = pieces.back();
        piece.right = x + 1;
        piece.top = std::min(piece.top, top);
        piece.bottom = std::max(piece.bottom, bottom);
    }
    return pieces;
}

Piece boxAround(const std::vector<Piece>& pieces)
{
    Piece box = pieces.front();
    for (const Piece& piece : pieces) {
        box.right = piece.right;
        box.top = std::min(box.top, piece.top);
        box.bottom = std::max(box.bottom, piece.bottom);
    }
    return box;
}

} // namespace ocr
