#include "widgets/announcer.h"

#include <utility>

namespace {

announcer::Speaker& currentSpeaker()
{
    static announcer::Speaker speaker;
    return speaker;
}

} // namespace

void announcer::setSpeaker(Speaker speaker)
{
    currentSpeaker() = std::move(speaker);
}

void announcer::announce(const QString& text)
{
    if (currentSpeaker())
        currentSpeaker()(text);
}
