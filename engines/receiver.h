#ifndef RECEIVER_H
#define RECEIVER_H

#include <mutex>

/*
 * The object that an engine's callback hands its reports to, not owned.
 *
 * Reads and assigns like a plain pointer. The interface thread sets it while an engine's thread
 * may be calling through it: a call holds the receiver, and whoever is about to destroy the object
 * calls forget() first, which waits for a call in progress. Any thread. A call may set or forget
 * the receiver that it came through.
 */
template <class T> class Receiver
{
public:
    Receiver() = default;
    Receiver(const Receiver&) = delete;
    Receiver& operator=(const Receiver&) = delete;

    Receiver& operator=(T* object)
    {
        const std::lock_guard lock(m_mutex);
        m_object = object;
        return *this;
    }

    /* The object, null when there is none. Only good for comparing: it may be gone by the time
     * it is used on another thread than its own. */
    operator T*() const
    {
        const std::lock_guard lock(m_mutex);
        return m_object;
    }

    /* Sets null when `object` is the receiver; on return no call to it is in progress. */
    void forget(const T* object)
    {
        const std::lock_guard lock(m_mutex);
        if (m_object == object)
            m_object = nullptr;
    }

    /* Calls `function` with the object, which stays alive meanwhile. False without a receiver. */
    template <class Function> bool call(Function&& function)
    {
        const std::lock_guard lock(m_mutex);
        if (!m_object)
            return false;
        function(*m_object);
        return true;
    }

private:
    mutable std::recursive_mutex m_mutex;
    T* m_object = nullptr;
};

#endif
