#ifndef OPEN_TTS_ATEND_H
#define OPEN_TTS_ATEND_H

#include <utility>

namespace tts {

/* Does something at the end of its block, also when an exception ends it. What the action itself
 * throws is dropped. */
template <class Action> class AtEnd
{
public:
    explicit AtEnd(Action action) : m_action(std::move(action)) {}
    ~AtEnd()
    {
        try {
            m_action();
        } catch (...) { // NOLINT(bugprone-empty-catch): a destructor has nobody to tell
        }
    }
    AtEnd(const AtEnd&) = delete;
    AtEnd& operator=(const AtEnd&) = delete;

private:
    Action m_action;
};

} // namespace tts

#endif
