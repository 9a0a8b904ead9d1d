#include "desk/desklink.h"
#include "desk/framerecorder.h"
#include "desk/handmodel.h"
#include "desk/penstorage.h"
#include "platform/systemcalls.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <limits>

namespace {

bool write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

/* The hand, the pen's memory and the film: what the desk can be set to. */
class TestDeskModels : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir(m_dir->path()).mkpath("mnt/mmc/e_ScanFile"));
        QVERIFY(write(m_dir->filePath("mnt/mmc/e_ScanFile/a.txt"), "a"));
    }

    void aHandMakesMotionAndLight()
    {
        HandModel hand;
        QCOMPARE(hand.motion(7).wobbleDeg, HandSettings().wobbleDeg);
        QCOMPARE(hand.motion(7).speedMmPerS, HandSettings().speedMmPerS);
        const CameraSettings usual = hand.seenBy({});
        QCOMPARE(usual.lightGradient, CameraSettings().lightGradient);
        QCOMPARE(usual.noise, CameraSettings().noise);
        QCOMPARE(usual.blurPx, CameraSettings().blurPx);
        hand.left = true;
        hand.tiltDeg = -4.0;
        hand.shadePercent = 60.0;
        const CameraSettings odd = hand.seenBy({});
        QVERIFY(odd.mount.leftHand);
        QCOMPARE(odd.rotationDeg, -4.0);
        QCOMPARE(odd.lightGradient, 0.6);
        QCOMPARE(hand.motion(9).seed, 9U);
    }

    void valuesStayInTheirRange()
    {
        HandModel hand;
        for (const HandModel::Trait& trait : HandModel::traits()) {
            hand.set(trait, 1e9);
            QCOMPARE(hand.*trait.value, trait.most);
            hand.set(trait, -1e9);
            QCOMPARE(hand.*trait.value, trait.least);
            hand.set(trait, std::numeric_limits<double>::quiet_NaN());
            QCOMPARE(hand.*trait.value, HandModel().*trait.value);
            QCOMPARE(HandModel::trait(trait.name), &trait);
        }
        QVERIFY(hand == HandModel());
        QVERIFY(!HandModel::trait("steady"));
    }

    void aHandIsToldAsScript()
    {
        HandModel hand;
        hand.left = true;
        hand.speedMmPerS = 250.0;
        hand.wobbleMm = 0.05;
        QCOMPARE(hand.scriptLines({}),
                 QStringList({"hand left", "hand speed 250", "hand wobble 0.05"}));
        QCOMPARE(HandModel().scriptLines(hand),
                 QStringList({"hand right", "hand speed 150", "hand wobble 0.15"}));
        QCOMPARE(hand.scriptLines(hand), QStringList());
    }

    void theCardGoesOutAndIn()
    {
        PenStorage storage(m_dir->path());
        QSignalSpy changed(&storage, &PenStorage::cardChanged);
        QVERIFY(storage.setCardOut(true));
        QVERIFY(storage.isCardOut());
        QVERIFY(!QDir(m_dir->filePath("mnt/mmc")).exists());
        QVERIFY(storage.setCardOut(true));
        QVERIFY(storage.setCardOut(false));
        QVERIFY(!storage.isCardOut());
        QCOMPARE(read(m_dir->filePath("mnt/mmc/e_ScanFile/a.txt")), "a");
        QCOMPARE(changed.size(), 2);
    }

    void theCardIsPutBackAtTheEnd()
    {
        {
            PenStorage storage(m_dir->path());
            QVERIFY(storage.setCardOut(true));
            QVERIFY(storage.setFull(true));
        }
        QCOMPARE(read(m_dir->filePath("mnt/mmc/e_ScanFile/a.txt")), "a");
        QVERIFY(!PenStorage(m_dir->path()).isFull());
    }

    void aCardLeftOutIsPutBack()
    {
        QVERIFY(QFile::rename(m_dir->filePath("mnt/mmc"), m_dir->filePath("mnt/mmc.out")));
        QVERIFY(QDir(m_dir->path()).mkpath("mnt/mmc")); // an empty folder is no card
        const PenStorage storage(m_dir->path());
        QVERIFY(!storage.isCardOut());
        QCOMPARE(read(m_dir->filePath("mnt/mmc/e_ScanFile/a.txt")), "a");
    }

    void nothingIsLostWhenTheSlotIsTaken()
    {
        PenStorage storage(m_dir->path());
        QVERIFY(storage.setCardOut(true));
        QVERIFY(QDir(m_dir->path()).mkpath("mnt/mmc/e_ScanFile"));
        QVERIFY(write(m_dir->filePath("mnt/mmc/e_ScanFile/b.txt"), "b"));
        QVERIFY(!storage.setCardOut(false));
        QVERIFY2(storage.errorString().contains("mnt/mmc"), qPrintable(storage.errorString()));
        QVERIFY(storage.isCardOut());
        QCOMPARE(read(m_dir->filePath("mnt/mmc/e_ScanFile/b.txt")), "b");
        QCOMPARE(read(m_dir->filePath("mnt/mmc.out/e_ScanFile/a.txt")), "a");
    }

    void aFullMemoryIsToldToThePen()
    {
        qputenv("SWIPELINE_ROOT", QFile::encodeName(m_dir->path()));
        PenStorage storage(m_dir->path());
        quint64 bytes = 0;
        QVERIFY(systemcalls::freeBytes(m_dir->path(), bytes));
        QVERIFY(bytes > 0);
        QVERIFY(storage.setFull(true));
        QVERIFY(storage.isFull());
        QVERIFY(systemcalls::freeBytes(m_dir->path(), bytes));
        QCOMPARE(bytes, quint64(0));
        QVERIFY(storage.setFull(false));
        QVERIFY(systemcalls::freeBytes(m_dir->path(), bytes));
        QVERIFY(bytes > 0);
        qunsetenv("SWIPELINE_ROOT");
    }

    void aFilmHoldsWhatChanges()
    {
        QImage picture(4, 4, QImage::Format_RGB32);
        picture.fill(Qt::white);
        int drawn = 0;
        FrameRecorder film(m_dir->path(), 20, [&] {
            ++drawn;
            return picture;
        });
        film.setOn(true);
        QTRY_VERIFY(drawn >= 3);
        QCOMPARE(film.count(), 1);
        picture.fill(Qt::black);
        QTRY_COMPARE(film.count(), 2);
        film.setOn(false);
        const int before = drawn;
        picture.fill(Qt::red); // while it is off nothing is taken
        QTest::qWait(0);
        QCOMPARE(drawn, before);
        QVERIFY(film.finish());
        QCOMPARE(QImage(m_dir->filePath("frame-0001.png")).pixelColor(0, 0), QColor(Qt::white));
        QCOMPARE(QImage(m_dir->filePath("frame-0002.png")).pixelColor(0, 0), QColor(Qt::black));
        const QList<QByteArray> lines = read(m_dir->filePath("frames.txt")).trimmed().split('\n');
        QCOMPARE(lines.size(), 2);
        QCOMPARE(lines[0].split(' ').first(), "frame-0001.png");
        QVERIFY(lines[0].split(' ').last().toInt() >= 40);
    }

    void aFilmThatCannotBeWrittenSaysSo()
    {
        FrameRecorder film(m_dir->filePath("nowhere"), 20,
                           [] { return QImage(4, 4, QImage::Format_RGB32); });
        film.setOn(true);
        QVERIFY(!film.finish());
    }

private:
    std::unique_ptr<QTemporaryDir> m_dir;
};

QTEST_GUILESS_MAIN(TestDeskModels)
#include "tst_deskmodels.moc"
