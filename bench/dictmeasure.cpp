#include "bench/dictmeasure.h"

#include "open/dic/dictindex.h"

#include <algorithm>
#include <cstdio>
#include <time.h>

namespace dictmeasure {

double microseconds(const std::function<void()>& work)
{
    const auto now = [] {
        timespec time = {};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return double(time.tv_sec) * 1e6 + double(time.tv_nsec) / 1e3;
    };
    const double start = now();
    work();
    return now() - start;
}

double percentile(std::vector<double> values, double share)
{
    if (values.empty())
        return 0;
    std::sort(values.begin(), values.end());
    return values[std::min(values.size() - 1, std::size_t(share * double(values.size())))];
}

std::vector<std::string> sampleWords(const dic::Source& source, std::size_t count)
{
    std::vector<std::string> words;
    dic::DictFacts facts;
    dic::IndexReport report;
    const dic::PlainFile index = dic::PlainFile::open(dic::mainFile(source));
    dic::readDictIndex(
        index, [](const dic::Row&) {}, facts, report);
    const std::size_t step = std::max<std::size_t>(1, report.rows / count);
    std::size_t row = 0;
    const auto keep = [&](const dic::Row& found) {
        if (row++ % step == 0 && (words.empty() || words.back() != found.head))
            words.emplace_back(found.head);
    };
    dic::readDictIndex(index, keep, facts, report);
    std::sort(words.begin(), words.end(), [](const std::string& a, const std::string& b) {
        return std::hash<std::string>()(a) < std::hash<std::string>()(b);
    });
    return words;
}

std::string verdict(double value, double limit, const char* unit)
{
    char text[80];
    std::snprintf(text, sizeof text, "(%s %g%s)", value <= limit ? "within" : "ABOVE", limit, unit);
    return text;
}

} // namespace dictmeasure
