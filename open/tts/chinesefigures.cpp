#include "open/tts/chinesefigures.h"

#include "open/tts/characters.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace tts {

namespace {

constexpr std::u32string_view Digits = U"零一二三四五六七八九";
constexpr std::u32string_view Counted =
    U"个個条條项項行页頁本张張次种種位只隻支枝件句段章秒天周週年倍步遍点點分小岁歲元块塊米公斤";
constexpr std::size_t LongestNumber = 8; // longer ones are no quantities
constexpr std::size_t Group = 4;         // digits up to 万

constexpr std::pair<char32_t, std::u32string_view> Signs[] = {
    {U'+', U"加"},   {U'=', U"等于"},   {U'×', U"乘以"}, {U'÷', U"除以"}, {U'%', U"百分号"},
    {U'~', U"到"},   {U'℃', U"摄氏度"}, {U'°', U"度"},   {U'#', U"号"},   {U'&', U"和"},
    {U'$', U"美元"}, {U'¥', U"元"},     {U'€', U"欧元"}, {U'£', U"镑"},   {U'№', U"号"},
    {U'/', U" "},    {U'-', U" "},      {U'*', U"星号"}, {U',', U"，"},   {U':', U"："},
};

/* What an amount may end with. */
constexpr std::u32string_view AmountEnds = U"两十百千万%℃°月日号號";

constexpr std::u32string_view Money = U"$¥€£";

bool has(std::u32string_view characters, char32_t c)
{
    return characters.find(c) != std::u32string_view::npos;
}

std::u32string digitByDigit(std::u32string_view digits)
{
    std::u32string said;
    for (const char32_t c : digits)
        said += Digits[c - U'0'];
    return said;
}

/* Of up to four digits; `inside` is behind 万. */
std::u32string group(std::u32string_view digits, bool inside)
{
    constexpr std::u32string_view Places[] = {U"", U"十", U"百", U"千"};
    std::u32string said;
    bool zero = false;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        const std::size_t place = digits.size() - 1 - i;
        if (digits[i] == U'0') {
            zero = inside || !said.empty();
            continue;
        }
        if (std::exchange(zero, false))
            said += U'零';
        const bool ten = place == 1 && digits[i] == U'1' && said.empty() && !inside;
        const bool thousands = place == 3 && digits[i] == U'2';
        if (!ten)
            said += thousands ? U'两' : Digits[digits[i] - U'0'];
        said += Places[place];
    }
    return said;
}

std::u32string quantity(std::u32string_view digits)
{
    if (digits.size() > LongestNumber || (digits.size() > 1 && digits[0] == U'0'))
        return digitByDigit(digits);
    if (digits == U"0")
        return U"零";
    if (digits.size() <= Group)
        return group(digits, false);
    const std::u32string_view high = digits.substr(0, digits.size() - Group);
    const std::u32string_view low = digits.substr(digits.size() - Group);
    return (high == U"2" ? U"两" : group(high, false)) + U'万' + group(low, true);
}

/* A telephone number or the like, "010-12345678": no quantities, no range. */
bool isCode(std::u32string_view figure)
{
    const std::size_t hyphen = figure.find(U'-');
    if (hyphen == std::u32string_view::npos
        || figure.find_first_not_of(U"0123456789-") != std::u32string_view::npos)
        return false;
    return (hyphen > 1 && figure[0] == U'0') || figure.size() - figure.rfind(U'-') - 1 > Group;
}

/* Years are said digit by digit; "1000年前" and "5000年" are so many years. */
bool isYear(std::u32string_view digits, std::u32string_view behind)
{
    constexpr std::u32string_view First = U"1100";
    constexpr std::u32string_view End = U"2100";
    if (digits.size() != Group || !behind.starts_with(U'年') || digits < First || digits >= End)
        return false;
    const bool counts = behind.size() > 1 && has(U"前历歷来來间間", behind[1]);
    return !(counts && digits.ends_with(U"00"));
}

class Reader
{
public:
    Reader(std::u32string_view figure, char32_t before, std::u32string_view behind)
        : m_text(figure),
          m_before(before),
          m_behind(behind),
          m_after(behind.empty() ? 0 : behind.front()),
          m_isCode(isCode(figure))
    {
    }

    std::u32string read()
    {
        while (m_at < m_text.size()) {
            if (isDigit(m_text[m_at]))
                readNumber();
            else
                readSign();
        }
        return std::move(m_said);
    }

private:
    char32_t at(std::size_t place) const { return place < m_text.size() ? m_text[place] : 0; }
    bool isLast() const { return m_at == m_text.size(); }

    std::u32string_view takeDigits()
    {
        const std::size_t begin = m_at;
        while (isDigit(at(m_at)))
            ++m_at;
        return m_text.substr(begin, m_at - begin);
    }

    std::size_t digitsFrom(std::size_t place) const
    {
        std::size_t count = 0;
        while (isDigit(at(place + count)))
            ++count;
        return count;
    }

    /* "1,000" is one number, "1,2" is two. */
    std::u32string takeThousands()
    {
        constexpr std::size_t Thousands = 3;
        std::u32string digits(takeDigits());
        while (digits.size() <= LongestNumber && at(m_at) == U','
               && digitsFrom(m_at + 1) == Thousands) {
            ++m_at;
            digits += takeDigits();
        }
        return digits;
    }

    void readNumber()
    {
        const bool first = m_at == 0;
        const std::u32string digits = takeThousands();
        std::u32string number = m_isCode || (isLast() && isYear(digits, m_behind))
                                    ? digitByDigit(digits)
                                    : quantity(digits);
        if (first && digits == U"2" && (isTime() || isCounted()))
            number = U"两";
        while (at(m_at) == U'.' && isDigit(at(m_at + 1))) {
            ++m_at;
            number += U'点' + digitByDigit(takeDigits());
        }
        if (at(m_at) == U'%') {
            ++m_at;
            number.insert(0, U"百分之");
        } else if (first && isFraction()) {
            ++m_at;
            number = quantity(takeDigits()) + U"分之" + number;
        } else if (first && at(m_at) == U':' && isDigit(at(m_at + 1))) {
            number += readMinutes();
        } else if (at(m_at) == U'-' && isRange(digits)) {
            ++m_at;
            number += U'到';
        }
        number += std::exchange(m_unit, {});
        m_said += number;
    }

    bool isCounted() const { return isLast() && m_before != U'第' && has(Counted, m_after); }

    /* The minutes have two digits, all else is a ratio. */
    bool isTime() const { return at(m_at) == U':' && digitsFrom(m_at + 1) == 2; }

    /* Two numbers and no more: else it is a date. */
    bool isFraction() const
    {
        const std::size_t end = m_text.find_first_not_of(U"0123456789", m_at + 1);
        return at(m_at) == U'/' && isDigit(at(m_at + 1)) && end == std::u32string_view::npos;
    }

    bool isRange(std::u32string_view from) const
    {
        const bool leadingZero = at(m_at + 1) == U'0' && isDigit(at(m_at + 2));
        return !m_isCode && !leadingZero && from.size() < Group && isDigit(at(m_at + 1))
               && std::ranges::count(m_text, U'-') == 1;
    }

    std::u32string readMinutes()
    {
        const bool time = isTime();
        ++m_at;
        const std::u32string_view minutes = takeDigits();
        if (!time)
            return U'比' + quantity(minutes);
        if (minutes == U"00")
            return U"点";
        return U'点' + quantity(minutes) + (minutes[0] == U'0' ? std::u32string() : U"分");
    }

    /* Whether the sign at `place` is one of numbers, not an ornament: "3~5" but "好~". */
    bool isSpoken(std::size_t place) const
    {
        const char32_t before = place > 0 ? m_text[place - 1] : m_before;
        const char32_t after = place + 1 < m_text.size() ? m_text[place + 1] : m_after;
        if (m_text[place] == U'#')
            return isDigit(before) || isDigit(after);
        if (m_text[place] != U'~')
            return true;
        return (isDigit(after) || has(Money, after))
               && (isDigit(before) || has(Digits, before) || has(AmountEnds, before)
                   || has(Counted, before));
    }

    void readSign()
    {
        if (!isSpoken(m_at)) {
            m_said += U' ';
            ++m_at;
            return;
        }
        const char32_t sign = m_text[m_at++];
        const auto* const found =
            std::ranges::find(Signs, sign, [](const auto& s) { return s.first; });
        if (found == std::end(Signs)) {
            m_said += sign;
            return;
        }
        const bool money = has(Money, sign);
        while (money && at(m_at) == U' ')
            ++m_at;
        if (money && isDigit(at(m_at)))
            m_unit = found->second;
        else
            m_said += found->second;
    }

    const std::u32string_view m_text;
    const char32_t m_before;
    const std::u32string_view m_behind;
    const char32_t m_after;
    const bool m_isCode;
    std::size_t m_at = 0;
    std::u32string m_said;
    std::u32string_view m_unit; // behind the next number
};

} // namespace

std::u32string chineseFigure(std::u32string_view figure, char32_t before,
                             std::u32string_view behind)
{
    return Reader(figure, before, behind).read();
}

} // namespace tts
