#include "platform/devicepaths.h"

#include <QTest>

class TestDevicePaths : public QObject
{
    Q_OBJECT

private slots:
    void placesFilesBelowTheRunRoot_data();
    void placesFilesBelowTheRunRoot();
    void withoutARunRootThePathIsThePensOwn();
    void rootIsReadAtEachCall();
};

void TestDevicePaths::placesFilesBelowTheRunRoot_data()
{
    QTest::addColumn<QByteArray>("root");
    QTest::addColumn<QString>("expected");
    QTest::newRow("plain") << QByteArray("/run/pen") << QStringLiteral("/run/pen/apps/config");
    QTest::newRow("slash") << QByteArray("/run/pen/") << QStringLiteral("/run/pen/apps/config");
    QTest::newRow("slashes") << QByteArray("/run/pen//") << QStringLiteral("/run/pen/apps/config");
    QTest::newRow("blank") << QByteArray("/run/a pen") << QStringLiteral("/run/a pen/apps/config");
    QTest::newRow("accents") << QByteArray("/run/plumé")
                             << QStringLiteral("/run/plumé/apps/config");
    QTest::newRow("empty") << QByteArray("") << QStringLiteral("/apps/config");
    QTest::newRow("the root itself") << QByteArray("/") << QStringLiteral("/apps/config");
}

void TestDevicePaths::placesFilesBelowTheRunRoot()
{
    QFETCH(const QByteArray, root);
    QFETCH(const QString, expected);
    qputenv("SWIPELINE_ROOT", root);
    QCOMPARE(devicePath(QStringLiteral("/apps/config")), expected);
}

void TestDevicePaths::withoutARunRootThePathIsThePensOwn()
{
    qunsetenv("SWIPELINE_ROOT");
    QCOMPARE(devicePath(QStringLiteral("/apps/config")), QStringLiteral("/apps/config"));
}

void TestDevicePaths::rootIsReadAtEachCall()
{
    qputenv("SWIPELINE_ROOT", "/one");
    QCOMPARE(devicePath(QStringLiteral("/x")), QStringLiteral("/one/x"));
    qputenv("SWIPELINE_ROOT", "/two");
    QCOMPARE(devicePath(QStringLiteral("/x")), QStringLiteral("/two/x"));
}

QTEST_GUILESS_MAIN(TestDevicePaths)
#include "tst_devicepaths.moc"
