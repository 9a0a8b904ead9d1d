#ifndef CTTSTHREAD_SETUP_H
#define CTTSTHREAD_SETUP_H

#include <QThread>
#include <atomic>

/*
 * Changes, opens and closes the dictionary in the background: opening one for the first time may
 * take seconds. What a run does is told beforehand; the last word counts. The destructor waits.
 */
class CTtsThread : public QThread
{
    Q_OBJECT

public:
    CTtsThread() = default;
    ~CTtsThread() override;

    /* The next run stores the dictionary's language pair and its place in it, and opens it. */
    void setFlag(int dict, int value);

    /* The next run opens the dictionary of the settings unless it is open; closes the one that is
     * open. Nothing is stored. */
    void setOpen();
    void setClose();

protected:
    void run() override;

private:
    enum class Job { Change, Open, Close };

    std::atomic<Job> m_job{Job::Change};
    std::atomic<int> m_dict{0};
    std::atomic<int> m_value{0};
};

#endif
