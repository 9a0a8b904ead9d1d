#include "platform/zembra_iap.h"

#include "open/iap/scansession.h"

#include <cstdio>
#include <exception>
#include <memory>
#include <mutex>

namespace {

/* The one engine of the process. Never destroyed: a thread of it may outlive main's statics. */
class Engine
{
public:
    static Engine& instance()
    {
        static Engine* const engine = new Engine;
        return *engine;
    }

    ScanControl& control() { return m_control; }

    std::shared_ptr<ScanSession> current() const
    {
        const std::lock_guard lock(m_mutex);
        return m_session;
    }

    int start(bool leftHand, bool vertical)
    {
        const auto order = lifecycleLock();
        const std::shared_ptr<ScanSession> running = current();
        if (!running)
            m_control.setHan(false);
        m_control.setHolding(leftHand, vertical);
        if (running && running->isAlive())
            return 0;
        if (running) {
            if (const std::shared_ptr<ScanSession> dead = exchange(nullptr))
                dead->stop();
        }
        const std::shared_ptr<ScanSession> fresh = ScanSession::start(makeFrameSource(), m_control);
        if (!fresh)
            return -1;
        if (const std::shared_ptr<ScanSession> other = exchange(fresh))
            other->stop();
        return 0;
    }

    int stop()
    {
        const auto order = lifecycleLock();
        const std::shared_ptr<ScanSession> session = exchange(nullptr);
        if (!session)
            return -1;
        session->stop();
        return 0;
    }

private:
    /* Starts and stops come one after the other, but for those from inside a callback: a stop by
     * another thread may be waiting for that very callback. */
    std::unique_lock<std::mutex> lifecycleLock()
    {
        std::unique_lock lock(m_lifecycle, std::defer_lock);
        if (!ScanSession::isInCallback())
            lock.lock();
        return lock;
    }

    std::shared_ptr<ScanSession> exchange(std::shared_ptr<ScanSession> session)
    {
        const std::lock_guard lock(m_mutex);
        m_session.swap(session);
        return session;
    }

    ScanControl m_control;
    std::mutex m_lifecycle;
    mutable std::mutex m_mutex; // of m_session
    std::shared_ptr<ScanSession> m_session;
};

/* The answer of a call, -1 when it fails by an exception: none leaves a C function. */
template <typename Call> int answer(const char* function, const Call& call) noexcept
{
    try {
        return call(Engine::instance());
    } catch (const std::exception& trouble) {
        std::fprintf(stderr, "scan engine: %s: %s\n", function, trouble.what());
    } catch (...) {
        std::fprintf(stderr, "scan engine: %s fails\n", function);
    }
    return -1;
}

} // namespace

int ZEMBRA_IAP_Initialize(int hand, int direction, int, int)
{
    return answer(__func__, [&](Engine& engine) {
        return engine.start(hand == ZEMBRA_IAP_LEFT_HAND, direction != ZEMBRA_IAP_HORIZONTAL);
    });
}

int ZEMBRA_IAP_SetLangPara(int mode)
{
    return answer(__func__, [&](Engine& engine) {
        if (!engine.current())
            return -1;
        engine.control().setHan(mode == ZEMBRA_IAP_SCRIPT_HAN);
        return 0;
    });
}

int ZEMBRA_IAP_SetReceivePanoImageCallBackFunc(int, ZEMBRA_IAP_PanoImageCallback callback)
{
    return answer(__func__, [&](Engine& engine) {
        engine.control().setReceiver(callback);
        return 0;
    });
}

int ZEMBRA_IAP_GetWorkState(int* state)
{
    return answer(__func__, [&](Engine& engine) {
        const std::shared_ptr<ScanSession> session = engine.current();
        if (!session || !state)
            return -1;
        *state = session->isBusy() ? ZEMBRA_IAP_BUSY : ZEMBRA_IAP_IDLE;
        return 0;
    });
}

int ZEMBRA_IAP_SetStopSignal(int flag)
{
    return answer(__func__, [&](Engine& engine) {
        engine.control().setStop(flag != 0);
        return 0;
    });
}

int ZEMBRA_IAP_Uninitialize(void)
{
    return answer(__func__, [](Engine& engine) { return engine.stop(); });
}
