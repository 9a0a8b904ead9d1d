#ifndef OPEN_TTS_RUSSIANNUMBERS_H
#define OPEN_TTS_RUSSIANNUMBERS_H

#include <string>
#include <string_view>

namespace tts {

/* A whole number below a thousand million in Russian words, in the nominative, as they are to be
 * spoken; empty for what is no quantity: longer ones, and those that begin with a needless 0. */
std::u32string russianNumber(std::u32string_view digits);

} // namespace tts

#endif
