#ifndef TESTS_TTSFIXTURE_H
#define TESTS_TTSFIXTURE_H

#include <QList>
#include <QObject>
#include <QString>
#include <QTemporaryDir>

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

constexpr int SamplesPerSecond = 22050;

struct Report
{
    int offset;
    int length;
    int kind;
    bool operator==(const Report&) const = default;
};

/* What the engine reports; the callback has no argument of its own. */
struct Reports
{
    std::mutex mutex;
    std::condition_variable changed;
    QList<Report> all;
    std::atomic<bool> playing = false;
    bool outsidePlay = false;
    int stopAt = 0; // the report on which to stop; 0 never

    void clear()
    {
        const std::lock_guard lock(mutex);
        all.clear();
        outsidePlay = false;
        stopAt = 0;
    }

    void waitFor(int count)
    {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this, count] { return all.size() >= count; });
    }

    QStringList words(const QString& text)
    {
        const std::lock_guard lock(mutex);
        QStringList result;
        for (const Report& report : all)
            result.append(text.mid(report.offset, report.length));
        return result;
    }

    int count()
    {
        const std::lock_guard lock(mutex);
        return static_cast<int>(all.size());
    }
};

extern Reports s_reports;

/* Speaks a text on this thread; what the engine's function returns. */
int play(const QString& text);

/* The pause tag of so many milliseconds. */
QString tag(int milliseconds);

/*
 * Tests of the speech engine: each has the engine started anew, in English at normal speed and
 * full volume, and writes a WAV file of its own at many times the pace of speech.
 */
class TtsFixture : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

protected:
    void start();
    /* Closes the engine and starts it with the output at `pace` times the pace of speech. */
    void restart(const char* pace);
    /* What has been heard since the test began. Starts the engine anew. */
    std::vector<std::int16_t> recorded();
    /* Samples that a text takes: the shortest of so many rounds. */
    std::size_t lengthOf(const QString& text, int rounds = 1);

    QString m_wav;

private:
    std::unique_ptr<QTemporaryDir> m_folder;
};

#endif
