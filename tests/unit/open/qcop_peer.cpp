// The other process of the message tests.
//
//   qcop_peer echo CHANNEL REPLY   answers each message on REPLY, "quit" ends it
//   qcop_peer crash CHANNEL        listens, then dies without cleaning up on the first message
//   qcop_peer hang CHANNEL         listens and never reads; its standard input ends it
//   qcop_peer flood CHANNEL COUNT  sends COUNT numbered messages, each until it is taken
// The first three print "ready" once they listen.
#include "platform/qcopchannel.h"

#include <QCoreApplication>

#include <csignal>
#include <cstdio>
#include <thread>

namespace {

void sayReady()
{
    std::puts("ready");
    std::fflush(stdout);
}

int flood(const QString& channel, int count)
{
    for (int i = 0; i < count; ++i)
        while (!QCopChannel::send(channel, QStringLiteral("n(int)"), QByteArray::number(i)))
            std::this_thread::yield();
    return 0;
}

int hang()
{
    sayReady();
    while (std::getchar() != EOF) {}
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.size() < 3)
        return 2;
    const QString& mode = words.at(1);
    if (mode == u"flood")
        return flood(words.at(2), words.value(3).toInt());
    QCopChannel channel(words.at(2));
    if (!channel.isListening())
        return 3;
    if (mode == u"hang")
        return hang();
    const QString reply = words.value(3);
    QObject::connect(&channel, &QCopChannel::received, &channel,
                     [&](const QString& message, const QByteArray& payload) {
                         if (mode == u"crash")
                             std::raise(SIGKILL);
                         QCopChannel::send(reply, message, payload);
                         if (message == u"quit")
                             QCoreApplication::quit();
                     });
    sayReady();
    return QCoreApplication::exec();
}
