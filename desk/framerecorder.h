#ifndef FRAMERECORDER_H
#define FRAMERECORDER_H

#include <QElapsedTimer>
#include <QImage>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QThreadPool>
#include <QTimer>
#include <atomic>
#include <functional>

/*
 * Takes pictures of the desk at even intervals and writes those that differ from the one before,
 * for moving pictures: frame-0001.png, frame-0002.png, ..., and "frames.txt" with one line a
 * picture: its name and for how many milliseconds it stays. The clock stands still while the
 * recorder is switched off. Pictures are packed and written on threads of its own; the functions
 * are for the interface thread.
 */
class FrameRecorder : public QObject
{
    Q_OBJECT

public:
    /* `draw` makes a picture of what is to be seen. */
    FrameRecorder(QString folder, int intervalMs, std::function<QImage()> draw,
                  QObject* parent = nullptr);
    ~FrameRecorder() override;

    /* Takes pictures, or rests. Off at first. */
    void setOn(bool on);

    /* Waits until all pictures are written and writes frames.txt. False when something could not
     * be written. Nothing is taken afterwards. */
    bool finish();

    int count() const { return int(m_names.size()); }

private:
    void take();

    const QString m_folder;
    const std::function<QImage()> m_draw;
    QTimer m_timer;
    QElapsedTimer m_clock; // since the last turn
    QThreadPool m_writers;
    std::atomic<bool> m_failed = false;
    QImage m_last;
    QStringList m_names;
    QVector<qint64> m_durations; // milliseconds
};

#endif
