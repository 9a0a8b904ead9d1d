#ifndef ENTERDEBOUNCE_H
#define ENTERDEBOUNCE_H

#include <optional>

/*
 * Tells the presses of Enter from the bounces of its contact: one that follows another within 300
 * milliseconds does not count, nor one that follows that one so soon. No clock of its own.
 */
class EnterDebounce
{
public:
    /* A press at that time, in microseconds; whether it counts. Two within one millisecond are two
     * presses: no contact bounces so fast, but a test or a script may press so. */
    bool counts(long long microseconds)
    {
        const std::optional<long long> last = m_last;
        m_last = microseconds;
        if (!last)
            return true;
        // Unsigned, so that a clock that was set back counts as a long time.
        constexpr unsigned long long Milliseconds = 1000;
        const auto elapsed =
            static_cast<unsigned long long>((microseconds - *last) / long(Milliseconds));
        constexpr unsigned long long Bouncing = 299;
        return elapsed - 1 >= Bouncing;
    }

private:
    std::optional<long long> m_last;
};

#endif
