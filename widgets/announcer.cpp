#include "widgets/announcer.h"

#include <QStringList>
#include <utility>

namespace {

struct State
{
    announcer::Speaker speaker;
    QStringList unspoken;
};

State& state()
{
    static State theState;
    return theState;
}

} // namespace

void announcer::setSpeaker(Speaker speaker)
{
    state().speaker = std::move(speaker);
    if (!state().speaker)
        return;
    const QStringList texts = std::exchange(state().unspoken, QStringList());
    for (const QString& text : texts)
        announce(text);
}

void announcer::announce(const QString& text)
{
    if (state().speaker)
        state().speaker(text);
    else
        state().unspoken.append(text);
}

void announcer::forget()
{
    state().unspoken.clear();
}
