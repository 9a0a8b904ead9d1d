#include "tests/fakes/words.h"

namespace {

constexpr std::u16string_view TagBegin = u"<vtml_pause time=\"";
constexpr std::u16string_view TagEnd = u"\"/>";

// Code units of the pause tag that begins here, 0 when none does.
std::size_t tagLength(std::u16string_view rest)
{
    if (!rest.starts_with(TagBegin))
        return 0;
    std::size_t end = TagBegin.size();
    while (end < rest.size() && rest[end] >= u'0' && rest[end] <= u'9')
        ++end;
    const bool number = end > TagBegin.size();
    return number && rest.substr(end).starts_with(TagEnd) ? end + TagEnd.size() : 0;
}

bool isBlank(char16_t unit)
{
    return unit <= u' ' || unit == 0x2028 || unit == 0x2029 || unit == 0x3000
           || (unit & 0xf800) == 0xd800;
}

} // namespace

namespace fakes {

std::vector<Stretch> pauseTagsOf(std::u16string_view text)
{
    std::vector<Stretch> tags;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = tagLength(text.substr(i));
        if (length)
            tags.push_back({static_cast<int>(i), static_cast<int>(length)});
        i += length ? length : 1;
    }
    return tags;
}

std::vector<Stretch> wordsOf(std::u16string_view text)
{
    std::vector<Stretch> words;
    std::size_t begin = 0;
    const auto endWord = [&](std::size_t end) {
        if (end > begin)
            words.push_back({static_cast<int>(begin), static_cast<int>(end - begin)});
    };
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t tag = tagLength(text.substr(i));
        if (!tag && !isBlank(text[i])) {
            ++i;
            continue;
        }
        endWord(i);
        i += tag ? tag : 1;
        begin = i;
    }
    endWord(text.size());
    return words;
}

} // namespace fakes
