#include "widgets/announcer.h"

#include <utility>

namespace {

struct State
{
    announcer::Speaker speaker;
    announcer::Silencer silencer;
};

State& state()
{
    static State theState;
    return theState;
}

} // namespace

void announcer::setSpeaker(Speaker speaker, Silencer silencer)
{
    state().speaker = std::move(speaker);
    state().silencer = std::move(silencer);
}

void announcer::announce(const QString& text)
{
    if (state().speaker)
        state().speaker(text);
}

void announcer::hush()
{
    if (state().silencer)
        state().silencer();
}
