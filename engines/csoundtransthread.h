#ifndef CSOUNDTRANSTHREAD_H
#define CSOUNDTRANSTHREAD_H

#include "engines/readingthread.h"

#include <atomic>

/*
 * Reads the translation aloud. What prepares a text for speech asks getnewScanState() between two
 * words, and gives the reading up when the user has scanned again.
 */
class CSoundTransThread : public ReadingThread
{
    Q_OBJECT

public:
    /* `sound` prepares and speaks a text; called on this thread. */
    explicit CSoundTransThread(Sound sound);

    /* Queues a text, which belongs to the scans up to now. Any thread. */
    void setContent(const QString& text);

    /* Whether a scan was recognised since the last text was queued. Any thread. */
    bool getnewScanState() const { return m_newScan; }

public slots:
    void haveNewScan();

private:
    std::atomic<bool> m_newScan{false};
};

#endif
