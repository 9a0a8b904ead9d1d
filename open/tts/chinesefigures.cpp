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
    {U'+', U"加"}, {U'=', U"等于"},   {U'×', U"乘以"}, {U'÷', U"除以"}, {U'%', U"百分号"},
    {U'~', U"到"}, {U'℃', U"摄氏度"}, {U'°', U"度"},   {U'#', U"号"},   {U'&', U"和"},
    {U'$', U"元"}, {U'¥', U"元"},     {U'€', U"欧元"}, {U'£', U"镑"},   {U'№', U"号"},
    {U'/', U" "},  {U'-', U" "},      {U'*', U"星号"}, {U',', U"，"},   {U':', U"："},
};

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

class Reader
{
public:
    Reader(std::u32string_view figure, char32_t before, char32_t after)
        : m_text(figure), m_before(before), m_after(after)
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
        std::u32string number = quantity(digits);
        if (isLast() && m_after == U'年' && digits.size() == Group)
            number = digitByDigit(digits);
        else if (first && isLast() && digits == U"2" && m_before != U'第'
                 && Counted.find(m_after) != std::u32string_view::npos)
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

    /* Two numbers and no more: else it is a date. */
    bool isFraction() const
    {
        const std::size_t end = m_text.find_first_not_of(U"0123456789", m_at + 1);
        return at(m_at) == U'/' && isDigit(at(m_at + 1)) && end == std::u32string_view::npos;
    }

    bool isRange(std::u32string_view from) const
    {
        return from.size() < Group && isDigit(at(m_at + 1))
               && std::ranges::count(m_text, U'-') == 1;
    }

    /* A time of the day has two digits there, all else is a ratio. */
    std::u32string readMinutes()
    {
        ++m_at;
        const std::u32string_view minutes = takeDigits();
        if (minutes.size() != 2)
            return U'比' + quantity(minutes);
        if (minutes == U"00")
            return U"点";
        return U'点' + quantity(minutes) + (minutes[0] == U'0' ? std::u32string() : U"分");
    }

    void readSign()
    {
        const char32_t sign = m_text[m_at++];
        const auto* const found =
            std::ranges::find(Signs, sign, [](const auto& s) { return s.first; });
        if (found == std::end(Signs)) {
            m_said += sign;
            return;
        }
        const bool money = sign == U'$' || sign == U'¥' || sign == U'€' || sign == U'£';
        while (money && at(m_at) == U' ')
            ++m_at;
        if (money && isDigit(at(m_at)))
            m_unit = found->second;
        else
            m_said += found->second;
    }

    const std::u32string_view m_text;
    const char32_t m_before;
    const char32_t m_after;
    std::size_t m_at = 0;
    std::u32string m_said;
    std::u32string_view m_unit; // behind the next number
};

} // namespace

std::u32string chineseFigure(std::u32string_view figure, char32_t before, char32_t after)
{
    return Reader(figure, before, after).read();
}

} // namespace tts
