#include "open/tts/respelling.h"

#include "open/tts/characters.h"
#include "open/tts/chinesereading.h"
#include "open/tts/respellings.h"
#include "open/tts/russiannumbers.h"

#include <algorithm>
#include <string>

namespace tts {

namespace {

/* "gmw/en-GB-scotland" is of "en". */
std::string_view languageOf(std::string_view voiceFile)
{
    const std::size_t begin = voiceFile.find('/') + 1;
    return voiceFile.substr(begin, voiceFile.find_first_of("+-", begin) - begin);
}

char32_t smallRussian(char32_t c)
{
    constexpr char32_t Distance = U'а' - U'А';
    return c >= U'А' && c <= U'Я' ? c + Distance : c;
}

std::u32string textOf(const Piece& piece, const Word& word)
{
    std::u32string text = piece.text.substr(word.begin, word.end - word.begin);
    std::ranges::transform(text, text.begin(), smallRussian);
    return text;
}

bool isNumber(std::u32string_view text)
{
    return !text.empty() && std::ranges::all_of(text, isDigit);
}

/* "1s" is otherwise one with a plural's end. */
std::u32string englishSeconds(std::u32string_view word)
{
    if (word.size() != 2 || word[1] != U's' || word[0] < U'1' || word[0] > U'9')
        return {};
    return std::u32string(1, word[0]) + (word[0] == U'1' ? U" second" : U" seconds");
}

/* Where the word behind the blank at `from` begins, quotes and brackets left out. */
std::size_t nextWordAt(const std::u32string& text, std::size_t from)
{
    if (from >= text.size() || text[from] != U' ')
        return std::u32string::npos;
    return text.find_first_not_of(U" «„“\"(", from);
}

/* Before another word it is a preposition, which would be spelled out; elsewhere a letter. */
bool isPreposition(const Piece& piece, const Word& word)
{
    const std::size_t next = nextWordAt(piece.text, word.end);
    return next != std::u32string::npos
           && (isLetter(piece.text[next]) || isDigit(piece.text[next]));
}

bool isCapital(char32_t c)
{
    return (c >= U'A' && c <= U'Z') || (c >= U'À' && c <= U'Þ' && c != U'×')
           || (c >= U'А' && c <= U'Я') || c == U'Ё';
}

/* Whether the stop behind an abbreviation is the sentence's own too: a word with a capital follows,
 * and no "IV" or "B". */
bool endsSentence(const Piece& piece, const Word& word)
{
    const std::u32string& text = piece.text;
    const std::size_t next = nextWordAt(text, word.end + 1);
    return next != std::u32string::npos && next + 1 < text.size() && isCapital(text[next])
           && isLetter(text[next + 1]) && !isCapital(text[next + 1]);
}

const Respelling* entryOf(std::string_view language, std::u32string_view text, bool stop)
{
    const auto found = std::ranges::find_if(respellings(), [&](const Respelling& respelling) {
        std::u32string_view written = respelling.written;
        if (stop && written.ends_with(U'.'))
            written.remove_suffix(1);
        return written == text && respelling.language == language;
    });
    return found == respellings().end() ? nullptr : &*found;
}

bool isStopBehind(const Piece& piece, const Word& word)
{
    return word.end < piece.text.size() && piece.text[word.end] == U'.';
}

/* Whether "1" stands before the word: the unit is singular. */
bool isBehindOne(const Piece& piece, std::size_t index)
{
    if (index == 0)
        return false;
    const std::size_t end = piece.words[index - 1].end;
    return textOf(piece, piece.words[index - 1]) == U"1"
           && piece.text.find_first_not_of(U' ', end) == piece.words[index].begin;
}

const Respelling* entryFor(std::string_view language, const Piece& piece, std::size_t index)
{
    const Word& word = piece.words[index];
    const std::u32string text = textOf(piece, word);
    const bool stop = isStopBehind(piece, word);
    const Respelling* one =
        isBehindOne(piece, index) ? entryOf(language, U"1 " + text, stop) : nullptr;
    return one ? one : entryOf(language, text, stop);
}

/* What no list can have. */
std::u32string ruleFor(std::string_view language, const Piece& piece, const Word& word)
{
    const std::u32string text = textOf(piece, word);
    if (language == "en")
        return englishSeconds(text);
    if (language != "ru")
        return {};
    if (text == U"к" && isPreposition(piece, word))
        return U"[[k]]";
    return isNumber(text) ? russianNumber(text) : std::u32string();
}

void respellWordOf(std::string_view language, Piece& piece, std::size_t index)
{
    const Word& word = piece.words[index];
    const Respelling* entry = entryFor(language, piece, index);
    const std::u32string said =
        entry ? std::u32string(entry->said) : ruleFor(language, piece, word);
    if (said.empty())
        return;
    piece.hasPhonemes = piece.hasPhonemes || said.find(U"[[") != std::u32string::npos;
    respellWord(piece, index, said);
    if (!entry || !entry->written.ends_with(U'.') || index + 1 == piece.words.size())
        return;
    if (!entry->mayEndSentence || !endsSentence(piece, word))
        piece.text[word.end] = U' ';
}

} // namespace

void respellWord(Piece& piece, std::size_t word, std::u32string_view text)
{
    const std::size_t begin = piece.words[word].begin;
    const std::size_t before = piece.words[word].end - begin;
    piece.text.replace(begin, before, text);
    piece.words[word].end = begin + text.size();
    for (std::size_t i = word + 1; i < piece.words.size(); ++i) {
        piece.words[i].begin += text.size() - before;
        piece.words[i].end += text.size() - before;
    }
}

void respell(Piece& piece, const char* voiceFile)
{
    if (!voiceFile)
        return;
    const std::string_view language = languageOf(voiceFile);
    if (language == "cmn") {
        readChinese(piece);
        return;
    }
    // No bracket of the text is taken for one of ours.
    if (language == "ru")
        std::ranges::replace(piece.text, U'[', U'(');
    for (std::size_t i = 0; i < piece.words.size(); ++i)
        respellWordOf(language, piece, i);
}

} // namespace tts
