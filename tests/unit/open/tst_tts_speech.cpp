#include "platform/zembra_tts.h"
#include "tests/shared/testobjects.h"
#include "ttsfixture.h"
#include "wavfile.h"

#include <QTest>
#include <cstdlib>

/* What is heard and reported of a text. */
class TstTtsSpeech : public TtsFixture
{
    Q_OBJECT

private slots:
    void speaksEveryLanguage_data();
    void speaksEveryLanguage();
    void everyVoiceSpeaks_data();
    void everyVoiceSpeaks();
    void unknownLanguageKeepsVoice();
    void reportsEachWordOnce_data();
    void reportsEachWordOnce();
    void longestTextIsReportedWhole();
    void unpunctuatedTextLosesNothing_data();
    void unpunctuatedTextLosesNothing();
    void foreignWordsAreSpoken_data();
    void foreignWordsAreSpoken();
    void scriptWithoutVoiceIsReported();
    void oddTextIsHarmless_data();
    void oddTextIsHarmless();
};

void TstTtsSpeech::speaksEveryLanguage_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("words");
    const auto add = [](const char* name, int language, const char* text) {
        QStringList words = QString::fromUtf8(text).split(QLatin1Char(' '));
        for (QString& word : words)
            while (!word.isEmpty() && word.back().isPunct())
                word.chop(1);
        QTest::newRow(name) << language << QString::fromUtf8(text) << words;
    };
    add("English", 101, "The harbour lay quiet, and only the gulls were awake.");
    add("French", 103, "Le garçon préfère l'été à Nîmes, près du fleuve.");
    add("German", 104, "Über den Dächern hörte man die Glocken läuten, groß und klein.");
    add("Spanish", 105, "El niño comió una piña en la montaña aquel otoño.");
    add("Italian", 106, "Perché la città è così bella di sera, verso il mare.");
    add("Swedish", 107, "Sjön låg stilla när båten gled förbi ön på kvällen.");
    add("Danish", 108, "Røde æbler hang på træet ved den gamle gård.");
    add("Norwegian", 109, "Båten lå på fjorden, og været var klart og kaldt.");
    add("Dutch", 110, "De molen draait langzaam in de wind bij het water.");
    add("Portuguese", 111, "O pão fresco da manhã não dura até ao serão.");
    add("Russian", 151, "Над рекой уже поднимался туман, и 21 человек шёл к воде.");
    add("Arabic", 152, "كان البحر هادئا، والطيور تحلق فوق الماء.");
    const QString chinese = QStringLiteral("清晨的湖面很安静，只有几只小船。");
    QStringList characters;
    for (const QChar c : chinese)
        if (!c.isPunct())
            characters.append(c);
    QTest::newRow("Chinese") << 1 << chinese << characters;
    QTest::newRow("Chinese, traditional")
        << 2 << QStringLiteral("讀書") << QStringList({"讀", "書"});
}

void TstTtsSpeech::speaksEveryLanguage()
{
    QFETCH(int, language);
    QFETCH(QString, text);
    QFETCH(QStringList, words);
    QCOMPARE(ZEMBRA_TTS_SetLang(language), 0);
    QCOMPARE(play(text), 0);
    QCOMPARE(s_reports.words(text), words);
    const auto samples = recorded();
    QVERIFY(peakOf(samples) > 3000);
    // Nobody speaks more than 20 syllables a second.
    QVERIFY(samples.size() > static_cast<std::size_t>(words.size()) * SamplesPerSecond / 20);
}

void TstTtsSpeech::everyVoiceSpeaks_data()
{
    QTest::addColumn<int>("voice");
    for (const int voice : {200, 201, 202, 203, 204, 205, 206, 211, 212})
        QTest::addRow("%d", voice) << voice;
}

void TstTtsSpeech::everyVoiceSpeaks()
{
    QFETCH(int, voice);
    QCOMPARE(ZEMBRA_TTS_SetLang(voice), 0);
    const QString text = QStringLiteral("one 二 three");
    QCOMPARE(play(text), 0);
    QCOMPARE(s_reports.words(text), QStringList({"one", "二", "three"}));
    QVERIFY(peakOf(recorded()) > 3000);
}

void TstTtsSpeech::unknownLanguageKeepsVoice()
{
    QCOMPARE(ZEMBRA_TTS_SetLang(151), 0);
    const QString text = QStringLiteral("777777");
    const std::size_t russian = lengthOf(text, 4);
    for (const int code : {0, -1, 3, 102, 207, 999})
        QCOMPARE(ZEMBRA_TTS_SetLang(code), -1);
    QVERIFY(std::abs(static_cast<int>(lengthOf(text, 4) - russian)) < 500);
    ZEMBRA_TTS_SetLang(101);
    QVERIFY(std::abs(static_cast<int>(lengthOf(text, 4) - russian)) > 1000);
}

void TstTtsSpeech::reportsEachWordOnce_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("words");
    QTest::newRow("joined by the synthesizer")
        << QStringLiteral("It is one of the best of the day to the end.")
        << QStringList(
               {"It", "is", "one", "of", "the", "best", "of", "the", "day", "to", "the", "end"});
    QTest::newRow("numbers") << QStringLiteral("Pi is 3.14, not 12345 or 1,000.")
                             << QStringList({"Pi", "is", "3.14", "not", "12345", "or", "1,000"});
    QTest::newRow("dots") << QStringLiteral("well.. and so... on")
                          << QStringList({"well", "and", "so", "on"});
    QTest::newRow("tags everywhere")
        << QStringLiteral("One") + tag(100) + QStringLiteral(" two,") + tag(200) + tag(100)
               + QStringLiteral(" three") + tag(100)
        << QStringList({"One", "two", "three"});
    QTest::newRow("looks like mark-up")
        << QStringLiteral("a <vtml_pause time=\"x\"/> b")
        << QStringList({"a", "<vtml_pause", "time=", "x", "/>", "b"});
    QTest::newRow("emoji") << QStringLiteral("so \U0001f600 on")
                           << QStringList({"so", "\U0001f600", "on"});
}

void TstTtsSpeech::reportsEachWordOnce()
{
    QFETCH(QString, text);
    QFETCH(QStringList, words);
    QCOMPARE(play(text), 0);
    QCOMPARE(s_reports.words(text), words);
    for (const Report& report : std::as_const(s_reports.all))
        QCOMPARE(report.kind, int(ZEMBRA_TTS_WORD));
    QVERIFY(!s_reports.outsidePlay);
}

void TstTtsSpeech::longestTextIsReportedWhole()
{
    restart("10000");
    QString text = QStringLiteral("and so it goes on, ").repeated(2000).left(32768);
    ZEMBRA_TTS_SetSpeed(96);
    QCOMPARE(play(text), 0);
    QCOMPARE(s_reports.count(), static_cast<int>(text.split(QLatin1Char(' ')).size()) - 1
                                    + (text.endsWith(QLatin1Char(' ')) ? 0 : 1));
    int after = -1;
    for (const Report& report : std::as_const(s_reports.all)) {
        QVERIFY(report.offset > after);
        after = report.offset + report.length;
    }
}

void TstTtsSpeech::unpunctuatedTextLosesNothing_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("word");
    QTest::addColumn<int>("few");
    QTest::addColumn<int>("many");
    QTest::newRow("Chinese") << 1 << QStringLiteral("人") << 53 << 530;
    QTest::newRow("numbers") << 101 << QStringLiteral("12345 ") << 8 << 80;
    QTest::newRow("words") << 101 << QStringLiteral("harbour ") << 20 << 400;
    QTest::newRow("German numbers") << 104 << QStringLiteral("12345 ") << 8 << 80;
    QTest::newRow("Dutch numbers") << 110 << QStringLiteral("98765 ") << 8 << 80;
    QTest::newRow("French numbers") << 103 << QStringLiteral("98765 ") << 8 << 80;
    QTest::newRow("Russian numbers") << 151 << QStringLiteral("98765 ") << 8 << 80;
    QTest::newRow("Arabic numbers") << 152 << QStringLiteral("98765 ") << 8 << 80;
    QTest::newRow("Chinese numbers") << 1 << QStringLiteral("98765 ") << 8 << 80;
    QTest::newRow("signs") << 104 << QStringLiteral("% & ") << 8 << 80;
    QTest::newRow("emoji") << 101 << QStringLiteral("\U0001f600 ") << 5 << 80;
    QTest::newRow("capitals") << 101 << QStringLiteral("WWW ") << 8 << 200;
    QTest::newRow("Russian words") << 151 << QStringLiteral("деревня ") << 20 << 300;
    QTest::newRow("Arabic words") << 152 << QStringLiteral("مرحبا ") << 20 << 300;
    QTest::newRow("German words") << 104 << QStringLiteral("Donaudampfschiff ") << 8 << 200;
    QTest::newRow("endless word") << 101 << QStringLiteral("banana") << 8 << 200;
}

void TstTtsSpeech::unpunctuatedTextLosesNothing()
{
    QFETCH(int, language);
    QFETCH(QString, word);
    QFETCH(int, few);
    QFETCH(int, many);
    ZEMBRA_TTS_SetLang(language);
    const auto some = static_cast<double>(lengthOf(word.repeated(few)));
    const auto all = static_cast<double>(lengthOf(word.repeated(many)));
    const double share = all / some / (static_cast<double>(many) / few);
    QVERIFY2(share > 0.85 && share < 1.15, qPrintable(QString::number(share)));
}

void TstTtsSpeech::foreignWordsAreSpoken_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("word");
    QTest::newRow("English in Russian") << 151 << QStringLiteral("harbour");
    QTest::newRow("English in Chinese") << 1 << QStringLiteral("harbour");
    QTest::newRow("English in Arabic") << 152 << QStringLiteral("harbour");
    QTest::newRow("Chinese in English") << 101 << QStringLiteral("港口");
    QTest::newRow("Russian in German") << 104 << QStringLiteral("деревня");
    QTest::newRow("Greek in French") << 103 << QStringLiteral("ποταμός");
    QTest::newRow("Arabic in Swedish") << 107 << QStringLiteral("مرحبا");
    QTest::newRow("emoji in Dutch") << 110 << QStringLiteral("\U0001f600");
}

void TstTtsSpeech::foreignWordsAreSpoken()
{
    QFETCH(int, language);
    QFETCH(QString, word);
    ZEMBRA_TTS_SetLang(language);
    const std::size_t length = lengthOf(word);
    QVERIFY2(length > SamplesPerSecond / 4 && length < 3 * SamplesPerSecond / 2,
             qPrintable(QString::number(length)));
    QVERIFY(peakOf(recorded()) > 3000);
}

void TstTtsSpeech::scriptWithoutVoiceIsReported()
{
    const QString text = QStringLiteral("one แม่น้ำ two");
    QCOMPARE(play(text), 0);
    QCOMPARE(s_reports.words(text), text.split(QLatin1Char(' ')));
    s_reports.clear();
    const QString alone = QStringLiteral("แม่น้ำ");
    QCOMPARE(play(alone), 0);
    QCOMPARE(s_reports.words(alone), QStringList(alone));
    s_reports.clear();
    s_reports.stopAt = 1;
    QCOMPARE(play(text), 1);
    QCOMPARE(s_reports.count(), 1);
}

void TstTtsSpeech::oddTextIsHarmless_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("text");
    const QString braille = QStringLiteral("\u28df\u28ef\u28ff");
    const QString controls = QStringLiteral("a\x01"
                                            "b\x1b[31m\x02 30V \x7f");
    QString surrogates;
    for (int i = 0; i < 40; ++i)
        surrogates += QChar(i % 3 == 0 ? 0xdc00 : 0xd83d);
    const QString marks = QStringLiteral("e\u0301\u0301\u0301\u0301\u0301 \u202e\u200f\ufeff x");
    const QString signs = QStringLiteral("[[_^_en]] <speak> %s%n \\ {0} &amp; `date`");
    // Inside one word the synthesizer changed languages, and went on with one that it had freed.
    const QString scripts = QStringLiteral("桥\u0dffa \u09e7\u09e8a \u03be\u038b s\u0173\u6f97");
    QTest::newRow("ornaments alone") << 1 << QStringLiteral("~ #～ #");
    for (const int language : {1, 101, 104, 151, 152}) {
        QTest::addRow("scripts in a word %d", language) << language << scripts;
        QTest::addRow("Braille %d", language) << language << braille;
        QTest::addRow("controls %d", language) << language << controls;
        QTest::addRow("surrogates %d", language) << language << surrogates;
        QTest::addRow("marks %d", language) << language << marks;
        QTest::addRow("signs %d", language) << language << signs;
        QTest::addRow("private use %d", language)
            << language << QStringLiteral("\ue000\uf8ff \U000f0000");
    }
}

void TstTtsSpeech::oddTextIsHarmless()
{
    QFETCH(int, language);
    QFETCH(QString, text);
    QCOMPARE(ZEMBRA_TTS_SetLang(language), 0);
    QCOMPARE(play(text), 0);
    s_reports.clear();
    QCOMPARE(ZEMBRA_TTS_SetLang(101), 0);
    QCOMPARE(play(QStringLiteral("Still here.")), 0);
    QCOMPARE(s_reports.count(), 2);
}

TEST_OBJECT(TstTtsSpeech)
#include "tst_tts_speech.moc"
