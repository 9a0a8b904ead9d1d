#ifndef CRECTHREAD_H
#define CRECTHREAD_H

#include <QThread>
#include <atomic>

class MyEdit;
struct _stImg;

/*
 * Recognises one image off the interface thread, by MyEdit::RecThread(). The destructor waits for
 * a recognition in progress.
 */
class CRecThread : public QThread
{
    Q_OBJECT

public:
    /* `edit` is not owned and outlives the thread object. */
    explicit CRecThread(MyEdit* edit);
    ~CRecThread() override;

    /* Takes over the image that the next run recognises; one that was set and never recognised
     * is freed. */
    void setImg(_stImg* image);

protected:
    void run() override;

private:
    MyEdit* m_edit;
    std::atomic<_stImg*> m_image{nullptr};
};

#endif
