#include "app/settingsvalues.h"

#include <cstdlib>

namespace settingsvalues {

namespace {

constexpr int Switch[] = {0, 1};
constexpr int Steps[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 12, 18, 24, 30};
constexpr int StepsOfSpeed = 11;
constexpr int StepsOfVolume = 6;
constexpr int Seconds[] = {0, 1, 2, 3};

long long distance(int a, int b)
{
    return std::llabs(static_cast<long long>(a) - b);
}

} // namespace

Values reading()
{
    return Switch;
}

Values speed()
{
    return Values(Steps).first(StepsOfSpeed);
}

Values volume()
{
    return Values(Steps).first(StepsOfVolume);
}

Values pauses()
{
    return Steps;
}

Values readDelays()
{
    return Seconds;
}

Values voices()
{
    return Switch;
}

Values directions()
{
    return Switch;
}

int nearestIndex(Values values, int stored)
{
    int nearest = 0;
    for (int i = 1; i < static_cast<int>(values.size()); ++i)
        if (distance(values[i], stored) < distance(values[nearest], stored))
            nearest = i;
    return nearest;
}

bool changes(Values values, int index, int stored)
{
    return index >= 0 && index < static_cast<int>(values.size())
           && index != nearestIndex(values, stored);
}

QStringList numbers(Values values)
{
    QStringList texts;
    for (const int value : values)
        texts.append(QString::number(value));
    return texts;
}

} // namespace settingsvalues
