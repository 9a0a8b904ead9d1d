#include "bench/speech/figures.h"

#include <algorithm>
#include <cstdio>

namespace {

int s_missed = 0;

} // namespace

double Figures::at(double share) const
{
    if (m_values.empty())
        return 0;
    std::vector<double> sorted = m_values;
    std::sort(sorted.begin(), sorted.end());
    const auto last = static_cast<double>(sorted.size() - 1);
    return sorted[static_cast<std::size_t>(share * last + 0.5)];
}

void Figures::printTitle(const char* unit)
{
    std::printf("%-40s %8s %8s %8s %8s %8s       n\n", unit, "min", "median", "p95", "p99", "max");
}

void Figures::print(const char* name) const
{
    std::printf("%-40s %8.2f %8.2f %8.2f %8.2f %8.2f  %6zu\n", name, at(0), at(0.5), at(0.95),
                at(0.99), at(1), m_values.size());
    std::fflush(stdout);
}

void goals::check(const std::string& what, bool reached)
{
    s_missed += reached ? 0 : 1;
    std::printf("  %-6s %s\n", reached ? "ok" : "MISSED", what.c_str());
    std::fflush(stdout);
}

void goals::atMost(const std::string& what, double value, double limit)
{
    char text[160];
    std::snprintf(text, sizeof text, "%s: %.2f, at most %g", what.c_str(), value, limit);
    check(text, value <= limit);
}

int goals::missed()
{
    return s_missed;
}
