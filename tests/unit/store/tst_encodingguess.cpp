#include "store/encodingguess.h"
#include "store/localetext.h"
#include "store/scantext.h"

#include <QTest>

class TestEncodingGuess : public QObject
{
    Q_OBJECT

private slots:
    void decodes_data();
    void decodes();
    void anyBytesAreTaken();
};

void TestEncodingGuess::decodes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    const auto western = [](const char* what, const QString& text) {
        QTest::newRow(what) << text.toLatin1() << text;
    };
    western("French", QStringLiteral("Un été à la mer, déjà vu. Où est le garçon?"));
    western("German", QStringLiteral("Die Größe der Flüsse in Österreich, ungefähr."));
    western("Spanish", QStringLiteral("El niño tenía mañana una canción pequeña."));
    western("accent before a letter only", QStringLiteral("The facade of the c\u00E9t building."));
    QTest::newRow("marks of Windows") << QByteArray("\x93quoted\x94 \x96 caf\xE9 text, 5 \x80")
                                      << QStringLiteral("“quoted” – café text, 5 €");

    const QString chinese = QStringLiteral("床前明月光，疑是地上霜。举头望明月，低头思故乡。");
    QTest::newRow("GBK") << localetext::encode(chinese) << chinese;
    const QString mixed = QStringLiteral("The word 你好 means hello; 再见 means good bye.");
    QTest::newRow("GBK within English") << localetext::encode(mixed) << mixed;
    QTest::newRow("GBK, cut off") << localetext::encode(chinese).chopped(1) << chinese.chopped(1);
    QTest::newRow("UTF-16 Chinese without a blank")
        << scantext::encode(chinese).sliced(2) << chinese;

    const QString russian = QStringLiteral("Съешь же ещё этих мягких французских булок");
    QTest::newRow("UTF-8") << russian.toUtf8() << russian;
    QTest::newRow("UTF-8, cut off")
        << russian.toUtf8().chopped(1) << russian.chopped(1) + QChar(QChar::ReplacementCharacter);
    QTest::newRow("ascii") << QByteArray("plain\ttext\r\n") << QStringLiteral("plain\ttext\r\n");
    QTest::newRow("nothing") << QByteArray() << QString();
}

void TestEncodingGuess::decodes()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, text);
    QCOMPARE(encodingguess::decode(bytes), text);
}

void TestEncodingGuess::anyBytesAreTaken()
{
    for (int first = 0; first < 256; ++first)
        for (int second = 0; second < 256; second += 5) {
            QByteArray bytes(1, char(first));
            QVERIFY(encodingguess::decode(bytes).size() <= 1);
            bytes.append(char(second));
            QVERIFY(encodingguess::decode(bytes).size() <= 2);
        }
}

QTEST_GUILESS_MAIN(TestEncodingGuess)
#include "tst_encodingguess.moc"
