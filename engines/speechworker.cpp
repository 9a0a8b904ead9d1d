#include "engines/speechworker.h"

#include "engines/ttsplayer.h"

#include <QDeadlineTimer>

namespace {

// A stop that comes just before the engine begins to speak has no effect; it is repeated.
constexpr int StopAgainMs = 50;

} // namespace

SpeechWorker::~SpeechWorker() = default;

void SpeechWorker::finish(SpeechQueue<QString>& queue)
{
    queue.close();
    while (!isFinished() && isRunning()) {
        TTSPlayer::Instance()->stop();
        wait(QDeadlineTimer(StopAgainMs));
    }
    wait();
}
