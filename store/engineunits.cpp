#include "store/engineunits.h"

#include "store/voicecodes.h"

#include <algorithm>
#include <limits>

namespace {

int scaled(int setting, int step)
{
    using Limits = std::numeric_limits<int>;
    const long long product = static_cast<long long>(setting) * step;
    return static_cast<int>(std::clamp<long long>(product, Limits::min(), Limits::max()));
}

} // namespace

int engineunits::volume(int setting)
{
    return scaled(setting, 20);
}

int engineunits::speed(int setting)
{
    return scaled(setting, 8);
}

int engineunits::spanishVariantSpeed(int setting)
{
    return scaled(setting, 15);
}

int engineunits::readingSpeed(int setting, int voice)
{
    return voice == voicecodes::SpanishVariant ? spanishVariantSpeed(setting) : speed(setting);
}
