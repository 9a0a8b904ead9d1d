#include "store/launcher.h"

#include "platform/qcopchannel.h"

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

} // namespace

void tellShown()
{
    tell("Show(QString)", "scan");
}

void tellLeft()
{
    tell("ESC(QString)", "escpressed");
}

void tellSoundBegins()
{
    tellToExecute("soundyes");
}

void tellSoundEnds()
{
    tellToExecute("soundno");
}

void tellSwipe()
{
    tellToExecute("trigger");
}

} // namespace launcher
