#include "store/settingstable.h"

#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

class TestSettingsTable : public QObject
{
    Q_OBJECT

private slots:
    void rowsStandInTheOrderOfTheSlots();
    void onlyTheVoicesShareAKey();
    void groups();
    void isWhatTheDocumentSays();
};

void TestSettingsTable::rowsStandInTheOrderOfTheSlots()
{
    for (int slot = 0; slot < settings::SlotCount; ++slot)
        QCOMPARE(int(settings::rowOf(settings::Slot(slot)).slot), slot);
}

void TestSettingsTable::onlyTheVoicesShareAKey()
{
    QSet<QString> keys;
    for (const settings::Row& row : settings::Table)
        if (row.slot != settings::Slot::VoiceDict) {
            QVERIFY(!keys.contains(row.key));
            keys.insert(row.key);
        }
    QVERIFY(keys.contains(settings::rowOf(settings::Slot::VoiceDict).key));
}

void TestSettingsTable::groups()
{
    for (const settings::Row& row : settings::Table) {
        const QString group = QString(row.key).section(u'/', 0, 0);
        QVERIFY(group == u"SystemSet" || group == u"InfoScan" || group == u"DictTrans");
    }
}

void TestSettingsTable::isWhatTheDocumentSays()
{
    QFile document(QStringLiteral(SWIPELINE_SOURCE_DIR "/docs/formats.md"));
    QVERIFY(document.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(document.readAll());
    QMap<QString, int> documented;
    static const QRegularExpression rowExpression(
        QStringLiteral("^\\| `(\\w+/\\w+)` \\| (-?\\d+) \\|"), QRegularExpression::MultilineOption);
    auto matches = rowExpression.globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        QVERIFY(!documented.contains(match.captured(1)));
        documented.insert(match.captured(1), match.captured(2).toInt());
    }
    QMap<QString, int> table;
    for (const settings::Row& row : settings::Table)
        table.insert(row.key, row.preset);
    QCOMPARE(documented, table);
}

QTEST_GUILESS_MAIN(TestSettingsTable)
#include "tst_settingstable.moc"
