#include "open/ocr/plausibility.h"

#include <cstddef>

namespace ocr {

namespace {

constexpr int LeastConfidence = 45;
constexpr int LeastForFewLetters = 60;
constexpr int CertainConfidence = 75; // whatever was read
constexpr std::size_t FewRepeats = 4;
constexpr std::size_t FewLetters = 8;
constexpr double LeastLetters = 0.7;     // of all characters
constexpr double ShortestMeanWord = 2.5; // letters, in scripts that part words by blanks

struct Counts
{
    std::size_t letters = 0; // and digits
    std::size_t marks = 0;
    std::size_t words = 0;
    std::size_t repeats = 0; // the third and later ones of equal characters
    bool chinese = false;
};

bool isMark(char32_t c)
{
    const bool plain = c < 0x80;
    if (plain)
        return !((c >= U'0' && c <= U'9') || (c >= U'A' && c <= U'Z') || (c >= U'a' && c <= U'z'));
    constexpr char32_t One = U'一'; // and any other horizontal line
    constexpr char32_t Two = U'二';
    return c == One || c == Two || c < 0xc0 || c == 0xd7 || c == 0xf7 || (c >= 0x2000 && c < 0x2e80)
           || (c >= 0x3000 && c < 0x3040) || (c >= 0xff00 && c < 0xff10);
}

Counts countsOf(std::u32string_view text)
{
    Counts counts;
    bool inWord = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char32_t c = text[i];
        counts.repeats += i >= 2 && c == text[i - 1] && c == text[i - 2] ? 1 : 0;
        counts.words += c != U' ' && !inWord ? 1 : 0;
        inWord = c != U' ';
        if (!inWord)
            continue;
        ++(isMark(c) ? counts.marks : counts.letters);
        counts.chinese = counts.chinese || c >= 0x2e80;
    }
    return counts;
}

} // namespace

bool isPlausible(std::u32string_view text, int confidence)
{
    if (text.empty() || confidence < LeastConfidence)
        return false;
    if (confidence >= CertainConfidence)
        return true;
    const Counts counts = countsOf(text);
    const auto letters = static_cast<double>(counts.letters);
    if (counts.letters < FewLetters && confidence < LeastForFewLetters)
        return false;
    if (letters < LeastLetters * static_cast<double>(counts.letters + counts.marks))
        return false;
    if (counts.repeats > FewRepeats)
        return false;
    return counts.chinese || letters >= ShortestMeanWord * static_cast<double>(counts.words);
}

} // namespace ocr
