#include "engines/codemap.h"
#include "tests/fakes/testroot.h"

#include <QTest>
#include <QtEndian>

namespace {

void append(QByteArray& bytes, quint16 unit)
{
    const quint16 little = qToLittleEndian(unit);
    bytes.append(reinterpret_cast<const char*>(&little), 2);
}

// A table whose record i maps key(i) to value(i).
template <class Key, class Value> QByteArray table(int records, Key key, Value value)
{
    QByteArray bytes("\xff\xfe");
    for (int i = 0; i < records; ++i) {
        append(bytes, static_cast<quint16>(key(i)));
        append(bytes, '=');
        append(bytes, static_cast<quint16>(value(i)));
        append(bytes, '\r');
        append(bytes, '\n');
    }
    return bytes;
}

} // namespace

class TestCodeMap : public QObject
{
    Q_OBJECT

private slots:
    void aMissingFileGivesOneAndAnEmptyTable();
    void codesAreMapped();
    void aCodeThatIsNotThereMapsToZero();
    void keysAscendWithoutDuplicates();
    void aRepeatedKeyTakesTheLaterValue();
    void onlyFortyFiveRecordsAreRead();
    void aShortFileIsNotNoticed();
    void codesAboveTheSignedRange();
    void keysAreAppended();

private:
    void write(const QByteArray& bytes) { m_root.write(QStringLiteral("/tmp/list.txt"), bytes); }

    TestRoot m_root;
};

void TestCodeMap::aMissingFileGivesOneAndAnEmptyTable()
{
    QVERIFY(!m_root.exists(QStringLiteral("/tmp/list.txt")));
    CodeMap map;
    QCOMPARE(map.Init(), 1);
    for (int code = 0; code < 0x10000; ++code)
        QCOMPARE(map.Trans(static_cast<unsigned short>(code)), 0);
    QVector<unsigned short> keys;
    QCOMPARE(map.GetKeys(keys), 0);
    QVERIFY(keys.isEmpty());
}

void TestCodeMap::codesAreMapped()
{
    write(table(
        45, [](int i) { return 'a' + i; }, [](int i) { return 0x4e00 + i; }));
    CodeMap map;
    QCOMPARE(map.Init(), 0);
    QCOMPARE(map.Trans('a'), 0x4e00);
    QCOMPARE(map.Trans('a' + 44), 0x4e00 + 44);
}

void TestCodeMap::aCodeThatIsNotThereMapsToZero()
{
    write(table(
        45, [](int i) { return 100 + i; }, [](int) { return 7; }));
    CodeMap map;
    map.Init();
    QCOMPARE(map.Trans(99), 0);
    QCOMPARE(map.Trans(145), 0);
}

void TestCodeMap::keysAscendWithoutDuplicates()
{
    write(table(
        45, [](int i) { return 100 - i / 2; }, [](int i) { return i; }));
    CodeMap map;
    map.Init();
    QVector<unsigned short> keys;
    QCOMPARE(map.GetKeys(keys), 23);
    QCOMPARE(keys.size(), 23);
    for (int i = 0; i < keys.size(); ++i)
        QCOMPARE(keys[i], 78 + i);
}

void TestCodeMap::aRepeatedKeyTakesTheLaterValue()
{
    write(table(
        45, [](int) { return 5; }, [](int i) { return 1000 + i; }));
    CodeMap map;
    map.Init();
    QCOMPARE(map.Trans(5), 1044);
}

void TestCodeMap::onlyFortyFiveRecordsAreRead()
{
    write(table(
        60, [](int i) { return 1 + i; }, [](int i) { return 1 + i; }));
    CodeMap map;
    map.Init();
    QCOMPARE(map.Trans(45), 45);
    QCOMPARE(map.Trans(46), 0);
}

void TestCodeMap::aShortFileIsNotNoticed()
{
    write(table(
        2, [](int i) { return 10 + i; }, [](int i) { return 20 + i; }));
    CodeMap map;
    QCOMPARE(map.Init(), 0);
    QCOMPARE(map.Trans(10), 20);
    QCOMPARE(map.Trans(11), 21);

    write(QByteArray());
    CodeMap empty;
    QCOMPARE(empty.Init(), 0);
    QCOMPARE(empty.Trans(10), 0);
}

void TestCodeMap::codesAboveTheSignedRange()
{
    write(table(
        45, [](int i) { return i == 0 ? 0xfffe : i; }, [](int) { return 0x8001; }));
    CodeMap map;
    map.Init();
    QCOMPARE(map.Trans(0xfffe), 0x8001);
    QVector<unsigned short> keys;
    map.GetKeys(keys);
    QCOMPARE(keys.last(), 0xfffe);
}

void TestCodeMap::keysAreAppended()
{
    write(table(
        45, [](int) { return 5; }, [](int) { return 1; }));
    CodeMap map;
    map.Init();
    QVector<unsigned short> keys{42};
    QCOMPARE(map.GetKeys(keys), 1);
    QCOMPARE(keys, (QVector<unsigned short>{42, 5}));
}

QTEST_APPLESS_MAIN(TestCodeMap)
#include "tst_codemap.moc"
