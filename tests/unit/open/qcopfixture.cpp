#include "tests/unit/open/qcopfixture.h"

#include <QFile>
#include <QTest>

QByteArray payloadAt(const QSignalSpy& spy, int i)
{
    return spy.at(i).at(1).toByteArray();
}

void QCopFixture::init()
{
    m_dir.emplace();
    QVERIFY(m_dir->isValid());
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_dir->path()));
    qputenv("SWIPELINE_ROOT", QFile::encodeName(m_dir->filePath(QStringLiteral("root"))));
}
