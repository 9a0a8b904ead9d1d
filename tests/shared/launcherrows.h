#ifndef LAUNCHERROWS_H
#define LAUNCHERROWS_H

#include <QTest>

/* Rows of test data: what the launcher may send. */
namespace launcherrows {

/* Messages that end whatever is on the screen, as "message" and "payload". */
inline void addEnding()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<QByteArray>("payload");
    const QString execute = QStringLiteral("execute(QString)");
    QTest::newRow("plug") << QStringLiteral("USB(QString)") << QByteArray("plug");
    QTest::newRow("stop") << execute << QByteArray("stop");
    QTest::newRow("stoponly") << execute << QByteArray("stoponly");
}

/* Words of "execute(QString)" that silence the pen, as "word". */
inline void addSilencing()
{
    QTest::addColumn<QByteArray>("word");
    QTest::newRow("power") << QByteArray("presspoweroff");
    QTest::newRow("USB") << QByteArray("plugusb");
}

} // namespace launcherrows

#endif
