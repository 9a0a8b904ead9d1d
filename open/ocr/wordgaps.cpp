#include "open/ocr/wordgaps.h"

#include <algorithm>
#include <cstddef>

namespace ocr {

namespace {

bool isBlank(const GreyPicture& line, int x)
{
    constexpr int Ink = 160; // grey values below it are ink
    for (int y = 0; y < line.height; ++y)
        if (line.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(line.width)
                        + static_cast<std::size_t>(x)]
            < Ink)
            return false;
    return true;
}

/* The middle of the widest white between two words of which one is said to end there and the other
 * to begin. */
int gapBetween(const GreyPicture& line, int end, int begin)
{
    const int reach = line.height / 3;
    const int from = std::max(0, std::min(end, begin) - reach);
    const int to = std::min(line.width, std::max(end, begin) + reach);
    int gap = (std::clamp(end, 0, line.width) + std::clamp(begin, 0, line.width)) / 2;
    int widest = 0;
    int run = 0;
    for (int x = from; x < to; ++x) {
        run = isBlank(line, x) ? run + 1 : 0;
        if (run > widest) {
            widest = run;
            gap = x - run / 2;
        }
    }
    return gap;
}

} // namespace

std::vector<Span> doubtfulSpans(const GreyPicture& line, const std::vector<Word>& words)
{
    std::vector<Span> spans;
    for (auto first = words.begin(); first != words.end();) {
        first = std::find_if(first, words.end(), deservesSecondReading);
        if (first == words.end())
            break;
        const auto end = std::find_if_not(first, words.end(), deservesSecondReading);
        Span span = {0, line.width};
        if (first != words.begin())
            span.left = gapBetween(line, (first - 1)->right, first->left);
        if (end != words.end())
            span.right = gapBetween(line, (end - 1)->right, end->left);
        if (span.left < span.right)
            spans.push_back(span);
        first = end;
    }
    return spans;
}

} // namespace ocr
