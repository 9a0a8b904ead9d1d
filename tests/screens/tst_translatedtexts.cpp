#include "tests/screens/screenset.h"
#include "widgets/painting.h"

#include <QApplication>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QTest>
#include <QXmlStreamReader>
#include <limits>

namespace {

struct Room
{
    int width = 0; // pixels
    int lines = 0; // 0: no limit
};

struct Text
{
    QString context;
    QString source;
    QString translation;
};

QString folder()
{
    return QStringLiteral(SWIPELINE_SOURCE_DIR "/translations/");
}

QString keyOf(const QString& context, const QString& source)
{
    return context + QLatin1String(": ") + source.trimmed();
}

// "Context: text" -> the places where it stands, of translations/places.txt.
QMultiHash<QString, Room> readPlaces()
{
    static const QRegularExpression place(
        QStringLiteral("^place (\\w+)\\s+([\\d-]+)\\s+([\\d-]+): "));
    static const QRegularExpression rule(QStringLiteral("^([\\w+]+) (\\w+: .*)$"));
    QHash<QString, Room> rooms;
    QMultiHash<QString, Room> places;
    QFile file(folder() + QLatin1String("places.txt"));
    if (!file.open(QIODevice::ReadOnly))
        return places;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        if (const auto match = place.match(line); match.hasMatch()) {
            rooms[match.captured(1)] = {match.captured(2).toInt(), match.captured(3).toInt()};
        } else if (const auto found = rule.match(line); found.hasMatch()) {
            for (const QString& name : found.captured(1).split(u'+'))
                places.insert(found.captured(2), rooms.value(name));
        }
    }
    return places;
}

QVector<Text> readTexts(const QString& name)
{
    QVector<Text> texts;
    QFile file(folder() + name);
    if (!file.open(QIODevice::ReadOnly))
        return texts;
    QXmlStreamReader xml(&file);
    Text text;
    while (!xml.atEnd()) {
        if (!xml.readNextStartElement())
            continue;
        if (xml.name() == u"name")
            text.context = xml.readElementText();
        else if (xml.name() == u"source")
            text.source = xml.readElementText();
        else if (xml.name() == u"translation")
            texts.append({text.context, text.source, xml.readElementText()});
    }
    return texts;
}

bool fits(const QString& text, const Room& room)
{
    if (room.lines == 1)
        return painting::textWidth(text) <= room.width;
    constexpr int Any = std::numeric_limits<int>::max();
    return room.lines == 0 || painting::wrapText(text, room.width, Any).size() <= room.lines;
}

} // namespace

/* Every text of every language fits where it stands, measured and broken by what draws it. */
class TestTranslatedTexts : public QObject
{
    Q_OBJECT

private slots:
    void theyFit_data();
    void theyFit();
    void whatDoesNotFitIsSeen();
};

void TestTranslatedTexts::theyFit_data()
{
    QTest::addColumn<QString>("file");
    for (const char* name : {"Chn", "Eng", "Ger", "Fre", "Ita", "Spa", "Rus", "Tw"})
        QTest::newRow(name) << QStringLiteral("Language_%1_1.ts").arg(QLatin1String(name));
}

void TestTranslatedTexts::theyFit()
{
    QFETCH(QString, file);
    const QMultiHash<QString, Room> places = readPlaces();
    const QVector<Text> texts = readTexts(file);
    QVERIFY(texts.size() > 100);
    for (const Text& text : texts) {
        const QString key = keyOf(text.context, text.source);
        const QString own = places.contains(key) ? key : keyOf(text.context, QStringLiteral("*"));
        QVERIFY2(places.contains(own), qPrintable(key));
        for (const Room& room : places.values(own))
            QVERIFY2(fits(text.translation, room), qPrintable(text.translation));
    }
}

void TestTranslatedTexts::whatDoesNotFitIsSeen()
{
    QVERIFY(fits(QStringLiteral("four"), {32, 1}));
    QVERIFY(!fits(QStringLiteral("fives"), {32, 1}));
    QVERIFY(fits(QStringLiteral("four four"), {32, 2}));
    QVERIFY(!fits(QStringLiteral("four four four"), {32, 2}));
    QVERIFY(!fits(QStringLiteral("扫描文件"), {16, 3}));
    QVERIFY(fits(QStringLiteral("as long as it likes"), {}));
}

SCREEN_TEST_MAIN(TestTranslatedTexts)
#include "tst_translatedtexts.moc"
