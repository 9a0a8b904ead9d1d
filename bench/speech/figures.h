#ifndef BENCH_SPEECH_FIGURES_H
#define BENCH_SPEECH_FIGURES_H

#include <string>
#include <vector>

/* Figures of one kind, printed as a line: smallest, median, 95th and 99th per cent, largest. */
class Figures
{
public:
    void add(double value) { m_values.push_back(value); }
    const std::vector<double>& values() const { return m_values; }
    /* The value below which that share of all lies; 0 without any. */
    double at(double share) const;
    double largest() const { return at(1); }

    static void printTitle(const char* unit);
    void print(const char* name) const;

private:
    std::vector<double> m_values;
};

/* What is to be reached. A goal that is missed is marked and counted. */
namespace goals {

void check(const std::string& what, bool reached);
void atMost(const std::string& what, double value, double limit);
int missed();

} // namespace goals

#endif
