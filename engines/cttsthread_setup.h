#ifndef CTTSTHREAD_SETUP_H
#define CTTSTHREAD_SETUP_H

#include <QThread>
#include <atomic>

/* Applies a change of the dictionary language in the background. The destructor waits. */
class CTtsThread : public QThread
{
    Q_OBJECT

public:
    CTtsThread() = default;
    ~CTtsThread() override;

    /* What the next run stores: the dictionary's index, and the dictionary language info. */
    void setFlag(int dict, int value);

protected:
    void run() override;

private:
    std::atomic<int> m_dict{0};
    std::atomic<int> m_value{0};
};

#endif
