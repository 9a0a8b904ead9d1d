#include "open/dic/folding.h"

#include "open/dic/utf.h"

#include <algorithm>
#include <unicode/uchar.h>
#include <unicode/unorm2.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

namespace dic {

namespace {

bool isPunctuation(UChar32 c)
{
    return (U_GET_GC_MASK(c) & U_GC_P_MASK) != 0;
}

bool isPlainLetterOrDigit(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
}

// With the normalizer's result; the text itself when it fails.
std::u16string normalized(const UNormalizer2* normalizer, const std::u16string& text)
{
    UErrorCode error = U_ZERO_ERROR;
    std::u16string out(text.size() * 2 + 16, u'\0');
    int32_t length = unorm2_normalize(normalizer, text.data(), static_cast<int32_t>(text.size()),
                                      out.data(), static_cast<int32_t>(out.size()), &error);
    if (error == U_BUFFER_OVERFLOW_ERROR) {
        error = U_ZERO_ERROR;
        out.resize(static_cast<std::size_t>(length));
        length = unorm2_normalize(normalizer, text.data(), static_cast<int32_t>(text.size()),
                                  out.data(), length, &error);
    }
    if (U_FAILURE(error))
        return text;
    out.resize(static_cast<std::size_t>(length));
    return out;
}

const UNormalizer2* caseFolder()
{
    UErrorCode error = U_ZERO_ERROR;
    static const UNormalizer2* const folder = unorm2_getNFKCCasefoldInstance(&error);
    return folder;
}

const UNormalizer2* decomposer()
{
    UErrorCode error = U_ZERO_ERROR;
    static const UNormalizer2* const decomposer = unorm2_getNFDInstance(&error);
    return decomposer;
}

// Letters whose mark is no accent that can be taken off.
std::u16string_view plainLetters(char16_t c)
{
    switch (c) {
    case u'ø':
        return u"o";
    case u'đ':
        return u"d";
    case u'ð':
        return u"d";
    case u'ł':
        return u"l";
    case u'ı':
        return u"i";
    case u'æ':
        return u"ae";
    case u'œ':
        return u"oe";
    case u'þ':
        return u"th";
    default:
        return {};
    }
}

std::u16string withoutPunctuation(const std::u16string& text)
{
    std::u16string out;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t start = i;
        UChar32 c = 0;
        U16_NEXT(text, i, text.size(), c);
        if (u_isUWhiteSpace(c)) {
            if (!out.empty() && out.back() != u' ')
                out += u' ';
        } else if (!isPunctuation(c)) {
            out.append(text, start, i - start);
        }
    }
    if (out.ends_with(u' '))
        out.pop_back();
    return out;
}

} // namespace

std::string foldedKey(std::string_view word)
{
    if (std::all_of(word.begin(), word.end(), isPlainLetterOrDigit))
        return std::string(word);
    const UNormalizer2* const folder = caseFolder();
    if (!folder)
        return std::string(word);
    const std::u16string folded = normalized(folder, toUtf16(word));
    const std::u16string key = withoutPunctuation(folded);
    return toUtf8(key.empty() ? folded : key);
}

std::string accentFreeKey(std::string_view key)
{
    const UNormalizer2* const normalizer = decomposer();
    if (!normalizer || std::all_of(key.begin(), key.end(), isPlainLetterOrDigit))
        return std::string(key);
    std::u16string out;
    const std::u16string text = normalized(normalizer, toUtf16(key));
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t start = i;
        UChar32 c = 0;
        U16_NEXT(text, i, text.size(), c);
        if (u_charType(c) == U_NON_SPACING_MARK)
            continue;
        const std::u16string_view plain = plainLetters(text[start]);
        if (plain.empty())
            out.append(text, start, i - start);
        else
            out += plain;
    }
    return toUtf8(out);
}

std::string capitalized(std::string_view word)
{
    std::u16string text = toUtf16(word);
    std::size_t end = 0;
    if (text.empty())
        return {};
    UChar32 c = 0;
    U16_NEXT(text, end, text.size(), c);
    c = u_totitle(c);
    std::u16string first;
    if (c < 0x10000)
        first = static_cast<char16_t>(c);
    else
        first = {static_cast<char16_t>(U16_LEAD(c)), static_cast<char16_t>(U16_TRAIL(c))};
    return toUtf8(first + text.substr(end));
}

bool beginsWithCapital(std::string_view word)
{
    const std::u16string text = toUtf16(word.substr(0, 4));
    if (text.empty())
        return false;
    std::size_t at = 0;
    UChar32 c = 0;
    U16_NEXT(text, at, text.size(), c);
    return u_isupper(c) || u_istitle(c);
}

std::size_t characterCount(std::string_view text)
{
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return !U8_IS_TRAIL(static_cast<uint8_t>(c)); }));
}

} // namespace dic
