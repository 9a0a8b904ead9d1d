#include "testdesk.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTest>

namespace {

/* The files of a pen that the desk reads. */
QString furnish(const QString& root)
{
    if (!QDir(root).mkpath(QStringLiteral("apps/config"))
        || !QDir(root).mkpath(QStringLiteral("mnt/mmc/e_ScanFile"))
        || !QFile::copy(QStringLiteral(SWIPELINE_SOURCE_DIR "/device/apps/config/menulan.cfg"),
                        root + QLatin1String("/apps/config/menulan.cfg")))
        qWarning("the run root cannot be made");
    return root;
}

DeskSetting settingFor(const QString& program, const QString& root)
{
    DeskSetting setting;
    setting.penProgram = program;
    setting.root = furnish(root);
    return setting;
}

bool isLit(const QImage& screen, int x)
{
    return screen.pixelIndex(x, screen.height() / 2) == 1;
}

} // namespace

TestDesk::TestDesk(const QString& program) : m_session(settingFor(program, m_root.path())) {}

bool TestDesk::startPen()
{
    m_session.startPen();
    return QTest::qWaitFor([this] { return isLeftLit(); }, LongMs);
}

bool TestDesk::isLeftLit() const
{
    return isLit(m_session.screen(), 64);
}

bool TestDesk::isRightLit() const
{
    return isLit(m_session.screen(), 192);
}

bool TestDesk::layPage(const PageSource& source)
{
    QSignalSpy changed(&m_session, &DeskSession::pageChanged);
    m_session.pageLoader().load(source);
    return changed.wait(LongMs);
}

bool TestDesk::layPageForSwipes()
{
    return QTest::qWaitFor([this] { return m_session.link().isCameraOn(); }, LongMs)
           && layPage(PageLoader::named(QStringLiteral("english")));
}
