#ifndef OPEN_OCR_SECONDREADING_H
#define OPEN_OCR_SECONDREADING_H

#include <string>
#include <vector>

namespace ocr {

/* A word as a model read it, and where: columns of the picture, `right` past the last. */
struct Word
{
    std::u32string text;
    float confidence = 0; // 0 to 100
    int left = 0;
    int right = 0;
};

/*
 * Whether a word that the Russian model read should be shown to the English one, too: the model
 * doubts it, or English has all of its letters, too. Such a one is read with confidence also when
 * it is English: DNA as ОМА, Peace as Реасе.
 */
bool deservesSecondReading(const Word& russian);

/*
 * The words of a line of Russian with English in it. `english` is a reading of the same line, or of
 * a part of it in which every word that deserves it lies. Of what lies at the same place, the more
 * confident reading is taken, with these exceptions: an abbreviation of capitals that both
 * alphabets have is English when the English reading has one that Russian has not (DNA, but not
 * РОТА or ВВС); what Russian print looks like to English eyes ("TaBaHb") has to be clearly ahead; a
 * word that may be either is English beside English.
 */
std::vector<Word> mergedReadings(const std::vector<Word>& russian,
                                 const std::vector<Word>& english);

} // namespace ocr

#endif
