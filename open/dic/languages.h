#ifndef OPEN_DIC_LANGUAGES_H
#define OPEN_DIC_LANGUAGES_H

#include <string>
#include <string_view>

namespace dic {

/* Languages are the codes that the whole pen uses (1 Chinese, 101 English...); 0 is none. */
struct LanguagePair
{
    int from = 0;
    int to = 0;

    bool isKnown() const { return from != 0 && to != 0; }
    bool operator==(const LanguagePair&) const = default;
};

/* The language with that name: two or three letters ("de", "deu", "ger") or the English name, in
 * any case. */
int languageOf(std::string_view name);

/* The English name ("German"), and its three letters ("deu"); empty for none. */
std::string_view languageName(int code);
std::string_view languageLetters(int code);

/* "English-German". */
std::string pairName(const LanguagePair& pair);

/* The pair that a file name tells: two languages side by side ("freedict-deu-eng",
 * "german-english"). Two letters count at the end only, being words as well. */
LanguagePair pairOfFileName(std::string_view name);

/* The pair that a title tells ("German - English Dictionary", "English to Russian"). */
LanguagePair pairOfTitle(std::string_view title);

/* "deu-eng", "de-en". */
LanguagePair pairOfTag(std::string_view tag);

} // namespace dic

#endif
