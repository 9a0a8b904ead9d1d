#include "store/launcher.h"

#include "platform/qcopchannel.h"

#include <mutex>

namespace launcher {

namespace {

void tell(const char* message, const QByteArray& word)
{
    QCopChannel::send(QStringLiteral("mainprocess"), QString::fromLatin1(message), word);
}

void tellToExecute(const QByteArray& word)
{
    tell("execute(QString)", word);
}

// Held while sending, too: the launcher hears of changes in the order in which they happened.
std::mutex speakersMutex;
unsigned speakers = 0; // one bit for each that speaks

unsigned bit(Speaker speaker)
{
    return 1U << static_cast<unsigned>(speaker);
}

void end(Speaker speaker)
{
    speakers &= ~bit(speaker);
    if (speakers == 0)
        tellToExecute("soundno");
}

} // namespace

void tellShown()
{
    tell("Show(QString)", "scan");
}

void tellLeft()
{
    tell("ESC(QString)", "escpressed");
}

void tellSoundBegins(Speaker speaker)
{
    const std::lock_guard lock(speakersMutex);
    speakers |= bit(speaker);
    tellToExecute("soundyes");
}

void tellSoundEnds(Speaker speaker)
{
    const std::lock_guard lock(speakersMutex);
    end(speaker);
}

void speakerLeaves(Speaker speaker)
{
    const std::lock_guard lock(speakersMutex);
    if ((speakers & bit(speaker)) != 0)
        end(speaker);
}

void tellSwipe()
{
    tellToExecute("trigger");
}

} // namespace launcher
