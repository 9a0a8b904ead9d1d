#ifndef WORDS_H
#define WORDS_H

#include <string_view>
#include <vector>

namespace fakes {

struct Stretch
{
    int offset; // code units
    int length;
};

/* Where the pause tags <vtml_pause time="N"/> stand in a text for the speech engine. */
std::vector<Stretch> pauseTagsOf(std::u16string_view text);

/* The stretches without blanks of a text for the speech engine, pause tags left out. */
std::vector<Stretch> wordsOf(std::u16string_view text);

} // namespace fakes

#endif
