#ifndef DICTMEASURE_H
#define DICTMEASURE_H

#include "open/dic/source.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

/* What the measurements of dictionaries have in common. */
namespace dictmeasure {

/* Of the processor, which is what counts beside other work; this thread's. */
double microseconds(const std::function<void()>& work);

/* The value below which that share of the values lies; 0 for none. */
double percentile(std::vector<double> values, double share);

/* About `count` headwords from all over the index, each once, in no order that would flatter the
 * caches. The same ones every time. */
std::vector<std::string> sampleWords(const dic::Source& source, std::size_t count);

/* "within" or "ABOVE", and the limit. */
std::string verdict(double value, double limit, const char* unit);

} // namespace dictmeasure

#endif
