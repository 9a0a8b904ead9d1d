#ifndef STOPREQUESTS_H
#define STOPREQUESTS_H

#include <atomic>

/*
 * Closes the gap between "a worker has taken a text" and "the speech engine speaks it".
 *
 * The engine's own stop ends only what it speaks already; a stop that comes while the worker still
 * prepares the text would be lost. So stops are counted: a worker notes the count when it takes a
 * text, and speaks the text only while the count is the same. Any thread.
 */
class StopRequests
{
public:
    using Mark = unsigned;

    /* Everything whose mark was taken before is cancelled. */
    void request() { m_count.fetch_add(1); }

    Mark mark() const { return m_count.load(); }

    bool cancelled(Mark mark) const { return mark != m_count.load(); }

private:
    std::atomic<Mark> m_count{0};
};

#endif
