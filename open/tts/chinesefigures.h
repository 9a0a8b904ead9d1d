#ifndef OPEN_TTS_CHINESEFIGURES_H
#define OPEN_TTS_CHINESEFIGURES_H

#include <string>
#include <string_view>

namespace tts {

/*
 * How a figure or a sign between Chinese characters is said, in such characters: "12345" as
 * 一万两千三百四十五, "50%" as 百分之五十, "2026" before 年 digit by digit. `before` is the
 * character before it, 0 for none, `behind` the text behind it: 2 is 两 before what is counted, but
 * 二 behind 第.
 */
std::u32string chineseFigure(std::u32string_view figure, char32_t before,
                             std::u32string_view behind);

} // namespace tts

#endif
