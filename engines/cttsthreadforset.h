#ifndef CTTSTHREADFORSET_H
#define CTTSTHREADFORSET_H

#include <QThread>
#include <atomic>

/* Applies a change of the scan language in the background: stores it and sets recognition and
 * speech to it. The destructor waits. */
class CTtsThreadForSet : public QThread
{
    Q_OBJECT

public:
    CTtsThreadForSet() = default;
    ~CTtsThreadForSet() override;

    /* The row of the scan-language table that the next run sets. */
    void setFlag(int language);

protected:
    void run() override;

private:
    std::atomic<int> m_language{0};
};

#endif
