#include "open/tts/russiannumbers.h"

#include <array>
#include <cstddef>

namespace tts {

namespace {

using Words = std::array<std::u32string_view, 10>;

constexpr std::array<std::u32string_view, 20> Units = {
    U"ноль",       U"один",        U"два",        U"три",          U"четыре",
    U"пять",       U"шесть",       U"семь",       U"восемь",       U"девять",
    U"десять",     U"одиннадцать", U"двенадцать", U"тринадцать",   U"четырнадцать",
    U"пятнадцать", U"шестнадцать", U"семнадцать", U"восемнадцать", U"девятнадцать"};
constexpr Words Tens = {U"",          U"",           U"двадцать",  U"тридцать",    U"[[s'orVk]]",
                        U"пятьдесят", U"шестьдесят", U"семьдесят", U"восемьдесят", U"девяносто"};
constexpr Words Hundreds = {U"",        U"сто",      U"двести",  U"триста",    U"четыреста",
                            U"пятьсот", U"шестьсот", U"семьсот", U"восемьсот", U"девятьсот"};

/* What is counted: one, two to four, more. */
using Forms = std::array<std::u32string_view, 3>;
constexpr Forms Thousands = {U"тысяча", U"тысячи", U"тысяч"};
constexpr Forms Millions = {U"миллион", U"миллиона", U"миллионов"};

std::u32string_view formFor(unsigned number, const Forms& forms)
{
    const unsigned ten = number / 10 % 10;
    const unsigned unit = number % 10;
    if (ten == 1 || unit == 0 || unit > 4)
        return forms[2];
    return unit == 1 ? forms[0] : forms[1];
}

void append(std::u32string& words, std::u32string_view word)
{
    if (!words.empty())
        words += U' ';
    words += word;
}

/* Below a thousand; thousands are feminine. */
void appendGroup(std::u32string& words, unsigned number, bool feminine)
{
    if (number >= 100)
        append(words, Hundreds[number / 100]);
    const unsigned rest = number % 100;
    if (rest >= 20)
        append(words, Tens[rest / 10]);
    const unsigned unit = rest < 20 ? rest : rest % 10;
    if (unit == 0)
        return;
    if (feminine && unit <= 2)
        append(words, unit == 1 ? U"одна" : U"две");
    else
        append(words, Units[unit]);
}

} // namespace

std::u32string russianNumber(std::u32string_view digits)
{
    constexpr std::size_t LongestNumber = 9;
    constexpr unsigned Thousand = 1000;
    if (digits == U"0")
        return std::u32string(Units[0]);
    if (digits.empty() || digits.size() > LongestNumber || digits[0] == U'0')
        return {};
    unsigned number = 0;
    for (const char32_t c : digits)
        number = number * 10 + (c - U'0');

    std::u32string words;
    if (const unsigned millions = number / (Thousand * Thousand); millions > 0) {
        appendGroup(words, millions, false);
        append(words, formFor(millions, Millions));
    }
    if (const unsigned thousands = number / Thousand % Thousand; thousands > 0) {
        appendGroup(words, thousands, true);
        append(words, formFor(thousands, Thousands));
    }
    appendGroup(words, number % Thousand, false);
    return words;
}

} // namespace tts
