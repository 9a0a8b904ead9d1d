#include "desk/platformcheck.h"

#include <QByteArray>
#include <QString>
#include <cstdio>
#include <utility>

#include <unistd.h>

namespace {

constexpr int BadUsage = 2;

struct State
{
    QtMessageHandler before = nullptr;
    std::function<void()> tidyUp;
    QByteArray reasons; // what Qt said on the way, for instance which display does not answer
};

State& state()
{
    static State state;
    return state;
}

void take(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (type == QtDebugMsg || type == QtInfoMsg) {
        state().before(type, context, message);
        return;
    }
    if (type != QtFatalMsg) {
        state().reasons += "  " + message.toLocal8Bit() + '\n';
        return;
    }
    std::fprintf(stderr,
                 "swipeline-desk: There is no display on which the window could be opened.\n%s"
                 "Use --headless SCRIPT to run without one.\n",
                 state().reasons.constData());
    std::fflush(stderr);
    state().tidyUp();
    ::_exit(BadUsage);
}

} // namespace

PlatformCheck::PlatformCheck(std::function<void()> tidyUp)
{
    state() = {qInstallMessageHandler(take), std::move(tidyUp), QByteArray()};
}

PlatformCheck::~PlatformCheck()
{
    qInstallMessageHandler(state().before);
    std::fputs(state().reasons.constData(), stderr);
}
