#include "open/tts/wavfile.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

#include <cstdint>
#include <string>
#include <vector>

using namespace tts;

/* Sound files near the largest size that their header can tell. */
class TstTtsSoundFile : public QObject
{
    Q_OBJECT

private slots:
    void soundFileEndsAtItsLimit_data();
    void soundFileEndsAtItsLimit();
    void fullSoundFileStaysValid();
};

void TstTtsSoundFile::soundFileEndsAtItsLimit_data()
{
    QTest::addColumn<quint32>("bytes");
    QTest::addColumn<quint32>("samples");
    QTest::addColumn<quint32>("fitting");
    QTest::newRow("empty") << 0u << 512u << 512u;
    QTest::newRow("nothing") << 100u << 0u << 0u;
    QTest::newRow("just fits") << 4294966234u << 512u << 512u;
    QTest::newRow("a sample too many") << 4294966236u << 512u << 511u;
    QTest::newRow("one") << 4294967256u << 512u << 1u;
    QTest::newRow("full") << 4294967258u << 512u << 0u;
    QTest::newRow("more than full") << 4294967295u << 512u << 0u;
}

void TstTtsSoundFile::soundFileEndsAtItsLimit()
{
    QFETCH(quint32, bytes);
    QFETCH(quint32, samples);
    QFETCH(quint32, fitting);
    QCOMPARE(samplesThatFit(bytes, samples), std::size_t(fitting));
    // The length of the whole file, less eight bytes, is in the header, too.
    QVERIFY(std::uint64_t(bytes) + 2 * fitting + 36 <= 0xffffffffu || fitting == 0);
}

/* Almost full from the start; but for its ends the file is a hole and takes no room. */
void TstTtsSoundFile::fullSoundFileStaysValid()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("full.wav"));
    const std::string name = QFile::encodeName(path).toStdString();
    constexpr quint32 Most = 4294967258u;
    WavFile::open(name).reset();
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    const quint32 bytes = qToLittleEndian(Most - 1000);
    QVERIFY(file.seek(40));
    QCOMPARE(file.write(reinterpret_cast<const char*>(&bytes), 4), 4);
    QVERIFY(file.resize(44 + qint64(Most) - 1000));
    file.close();

    const auto wav = WavFile::open(name);
    QVERIFY(wav);
    const std::vector<std::int16_t> samples(400, 1234);
    for (int i = 0; i < 3; ++i)
        wav->write(samples);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.size(), 44 + qint64(Most));
    const QByteArray header = file.read(44);
    QCOMPARE(qFromLittleEndian<quint32>(header.constData() + 4), Most + 36);
    QCOMPARE(qFromLittleEndian<quint32>(header.constData() + 40), Most);
    QVERIFY(file.seek(file.size() - 2));
    const QByteArray last = file.read(2);
    QCOMPARE(qFromLittleEndian<qint16>(last.constData()), qint16(1234));
}

QTEST_GUILESS_MAIN(TstTtsSoundFile)
#include "tst_tts_soundfile.moc"
