#include "open/tts/pausetag.h"
#include "open/tts/respelling.h"
#include "open/tts/textreader.h"
#include "tests/unit/open/cutpieces.h"

#include <QTest>

using namespace tts;

class TstTtsWords : public QObject
{
    Q_OBJECT

private slots:
    void findsWords_data();
    void findsWords();
    void findsChineseWords_data();
    void findsChineseWords();
    void tagIsExact_data();
    void tagIsExact();
    void wordSpansSkipMarkUp();
    void wordSpansCountSurrogatePairs();
    void fullWidthFormsAreNarrowed();
    void unspeakableBecomesBlank_data();
    void unspeakableBecomesBlank();
    void silentMarksStayInTheirWord();
    void saysWhatTheVoiceGetsWrong_data();
    void saysWhatTheVoiceGetsWrong();
    void respelledWordsKeepTheirPlaces();
    void gapIsAComma();
};

namespace {

/* The pieces as they reach the synthesizer. */
QString saidOf(const QString& text, Script script, const char* latinVoice)
{
    QStringList said;
    for (Piece piece : cut(text, script)) {
        const bool latin = piece.script == Script::Latin;
        const bool chinese = piece.script == Script::Chinese;
        respell(piece, latin ? latinVoice : chinese ? "sit/cmn-Latn-pinyin+f3" : "zle/ru");
        said.append(QString::fromStdU32String(piece.text).simplified());
    }
    return said.join(QLatin1Char('|'));
}

} // namespace

void TstTtsWords::findsWords_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("words");
    const auto add = [](const char* name, const char* text, const char* words) {
        QTest::newRow(name) << QString::fromUtf8(text)
                            << QString::fromUtf8(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    };
    add("plain", "One two  three", "One two three");
    add("punctuation around", "\"One,\" (two) - three... four!?", "One two three four");
    add("numbers", "Pi is 3.14, not 1,000 at 12:30.", "Pi is 3.14 not 1,000 at 12:30");
    add("apostrophes and hyphens", "Don't re-read o\u2019clock 'tis",
        "Don't re-read o\u2019clock tis");
    add("no blank after comma", "one,two;three", "one two three");
    add("dash without blanks", "the end\u2014of it\u2026now", "the end of it now");
    add("abbreviation", "e.g. this", "e.g this");
    add("address", "write to a@b.example now", "write to a@b.example now");
    add("signs that are spoken", "this & that = 5 %", "this & that = 5 %");
    add("lines", "one\ntwo\r\nthree\tfour", "one two three four");
    add("Spanish marks", "\u00bfQu\u00e9? \u00a1No!", "Qu\u00e9 No");
    add("Russian", "Да, «нет».", "Да нет");
    add("Arabic", "مرحبا، كيف؟", "مرحبا كيف");
    add("emoji", "so \U0001f600 it is", "so \U0001f600 it is");
    add("entities", "&lt;b&gt;", "&lt b&gt");
    add("letters look like mark-up", "<b>bold</b>", "<b>bold</b>");
    add("only punctuation", "... - ( ) !", "");
    add("soft line", "a\u2028b\u00a0c", "a b c");
}

void TstTtsWords::findsWords()
{
    QFETCH(QString, text);
    QFETCH(QStringList, words);
    QCOMPARE(wordsOf(text), words);
    QVERIFY(areOrdered(cut(text), text.size()));
}

void TstTtsWords::findsChineseWords_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("words");
    const auto add = [](const char* name, const char* text, const char* words) {
        QTest::newRow(name) << QString::fromUtf8(text)
                            << QString::fromUtf8(words).split(QLatin1Char(' '));
    };
    add("characters one by one", "你好，世界。", "你 好 世 界");
    add("numbers stay whole", "共12页", "共 12 页");
    add("Latin words", "用Linux系统", "用 Linux 系 统");
    add("letters and digits", "看MP3吧", "看 MP3 吧");
    add("folded punctuation", "你好,\"世界\".[一]", "你 好 世 界 一");
    add("beyond the basic plane", "\U00020000好", "\U00020000 好");
}

void TstTtsWords::findsChineseWords()
{
    QFETCH(QString, text);
    QFETCH(QStringList, words);
    QCOMPARE(wordsOf(text, Script::Chinese), words);
    QVERIFY(areOrdered(cut(text, Script::Chinese), text.size()));
}

void TstTtsWords::tagIsExact_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("milliseconds"); // -1: no tag
    QTest::newRow("usual") << "<vtml_pause time=\"400\"/>" << 400;
    QTest::newRow("none") << "<vtml_pause time=\"0\"/>" << 0;
    QTest::newRow("longest") << "<vtml_pause time=\"65535\"/>" << 65535;
    QTest::newRow("text after it") << "<vtml_pause time=\"7\"/>x" << 7;
    QTest::newRow("too long") << "<vtml_pause time=\"65536\"/>" << -1;
    QTest::newRow("overflow") << "<vtml_pause time=\"99999999999999999999\"/>" << -1;
    QTest::newRow("negative") << "<vtml_pause time=\"-1\"/>" << -1;
    QTest::newRow("no number") << "<vtml_pause time=\"\"/>" << -1;
    QTest::newRow("letters") << "<vtml_pause time=\"4x\"/>" << -1;
    QTest::newRow("capitals") << "<VTML_pause time=\"4\"/>" << -1;
    QTest::newRow("blank inside") << "<vtml_pause  time=\"4\"/>" << -1;
    QTest::newRow("single quotes") << "<vtml_pause time='4'/>" << -1;
    QTest::newRow("not closed") << "<vtml_pause time=\"4\">" << -1;
    QTest::newRow("cut off") << "<vtml_pause time=\"4" << -1;
    QTest::newRow("cut off early") << "<vtml_pau" << -1;
    QTest::newRow("other tag") << "<vtml_volume time=\"4\"/>" << -1;
    QTest::newRow("empty") << "" << -1;
}

void TstTtsWords::tagIsExact()
{
    QFETCH(QString, text);
    QFETCH(int, milliseconds);
    const auto read = readPauseTag(text.toStdU16String());
    QCOMPARE(read ? read->milliseconds : -1, milliseconds);
    if (!read && !text.isEmpty()) {
        // What is no tag is spoken as it stands: nothing of it is lost.
        QString spoken;
        const std::u16string units = text.toStdU16String();
        for (TextReader reader(units); !reader.atEnd();)
            for (const Character& character : reader.next().characters)
                spoken += QChar(static_cast<char16_t>(character.code));
        QCOMPARE(spoken, text);
    }
}

void TstTtsWords::wordSpansSkipMarkUp()
{
    const QString text = QStringLiteral("One") + tag(200) + QStringLiteral(" two");
    const auto pieces = cut(text);
    QCOMPARE(pieces[1].words[0].offset, 3 + tag(200).size() + 1);
    QCOMPARE(pieces[1].words[0].length, 3);
    QCOMPARE(wordsOf(text), QStringList({"One", "two"}));
}

void TstTtsWords::wordSpansCountSurrogatePairs()
{
    const QString text = QStringLiteral("\U0001f600\U0001f44d a\U0001f44db c");
    const auto pieces = cut(text);
    QCOMPARE(pieces.size(), std::size_t(1));
    const auto& words = pieces[0].words;
    QCOMPARE(words.size(), std::size_t(3));
    QCOMPARE(words[0].offset, 0);
    QCOMPARE(words[0].length, 4);
    QCOMPARE(words[1].offset, 5);
    QCOMPARE(words[1].length, 4);
    QCOMPARE(words[1].begin, std::size_t(4));
    QCOMPARE(words[2].offset, 10);
}

void TstTtsWords::fullWidthFormsAreNarrowed()
{
    const QString text = QStringLiteral("共\uff11\uff12页\uff2d\uff30\uff13。");
    QCOMPARE(piecesOf(text, Script::Chinese), QStringList({"共12页,", "MP3。"}));
    QCOMPARE(wordsOf(text, Script::Chinese),
             QStringList({"共", QStringLiteral("\uff11\uff12"), "页",
                          QStringLiteral("\uff2d\uff30\uff13")}));
}

void TstTtsWords::unspeakableBecomesBlank_data()
{
    QTest::addColumn<char16_t>("unit");
    QTest::newRow("null") << u'\0';
    QTest::newRow("embedded command") << u'\x01';
    QTest::newRow("escape") << u'\x1b';
    QTest::newRow("delete") << u'\x7f';
    QTest::newRow("next line") << u'\x85';
    QTest::newRow("Braille first") << u'\u2800';
    QTest::newRow("Braille last") << u'\u28ff';
    QTest::newRow("private use") << u'\ue000';
    QTest::newRow("private use last") << u'\uf8ff';
    QTest::newRow("lone high surrogate") << char16_t(0xd800);
    QTest::newRow("lone low surrogate") << char16_t(0xdfff);
    QTest::newRow("no character") << u'\uffff';
}

void TstTtsWords::unspeakableBecomesBlank()
{
    QFETCH(char16_t, unit);
    const QString text = QStringLiteral("one") + QChar(unit) + QStringLiteral("two") + QChar(unit);
    QCOMPARE(wordsOf(text), QStringList({"one", "two"}));
    for (const Piece& piece : cut(text))
        QVERIFY(piece.text.find(char32_t(unit)) == std::u32string::npos || unit == 0);
    QCOMPARE(piecesOf(text), QStringList({"one two"}));
}

void TstTtsWords::silentMarksStayInTheirWord()
{
    const QString text = QStringLiteral("know\u00adledge is\u200b on");
    QCOMPARE(wordsOf(text), QStringList({"know\u00adledge", "is", "on"}));
    QCOMPARE(piecesOf(text), QStringList({"knowledge is on"}));
    QVERIFY(areOrdered(cut(text), text.size()));
}

void TstTtsWords::saysWhatTheVoiceGetsWrong_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("said");
    QTest::addColumn<int>("script");
    QTest::addColumn<QString>("voice");
    const auto add = [](const char* name, Script script, const char* voice, const char* text,
                        const char* said) {
        QTest::newRow(name) << QString::fromUtf8(text) << QString::fromUtf8(said)
                            << static_cast<int>(script) << QString::fromLatin1(voice);
    };
    const auto chinese = [&add](const char* name, const char* text, const char* said) {
        add(name, Script::Chinese, "gmw/en", text, said);
    };
    chinese("narrow stops", "你好!吗?好.是,的:嗯;\"对.\"完",
            "你好！吗？好。是，的：嗯；\"对。\"完");
    chinese("point of a number", "共3.14元.", "共三点一四元。");
    chinese("number of an entry", "3.打开", "三。打开");
    chinese("quantities", "10 15 110 101 1010 2000 12345 10005 20000 1,000",
            "十 十五 一百一十 一百零一 一千零一十 两千 一万两千三百四十五 一万零五 两万 一千");
    chinese("large quantities", "1000000 12000000 20000002", "一百万 一千二百万 两千万零二");
    chinese("no quantities", "13812345678 007", "一三八一二三四五六七八 零零七");
    chinese("two", "第2条，共2条；2月2日", "第二条，共两条；二月二日");
    chinese("a year", "2026年11月", "二零二六年十一月");
    chinese("shares", "50%和3/4", "百分之五十和四分之三");
    chinese("times of the day", "8:00到9:05到10:30", "八点到九点零五到十点三十分");
    chinese("no thousands", "选1,2,3和1,000,000", "选一，二，三和一百万");
    chinese("a score", "3:2胜", "三比二胜");
    chinese("ranges", "3-5天，2026-11-22", "三到五天，两千零二十六 十一 二十二");
    chinese("full-width signs", "￥１００，５０％", "一百元，百分之五十");
    chinese("signs", "3×4=12，+86", "三 乘以 四等于十二，加八十六");
    chinese("lines", "第2行，行走", "第二航，行走");
    chinese("two readings", "重新，重要，银行，自行车", "虫新，重要，银航，自行车");
    chinese("traditional characters", "重新命名，音樂，快樂", "虫新命名，音月，快樂");
    chinese("everywhere but in some words", "於是擦乾，乾坤", "鱼是擦干，乾坤");
    chinese("no such word", "了解，为了解决", "瞭解，为了解决");
    chinese("one of two", "他的目的。我的目的是", "他的目帝。我的目帝是");
    chinese("characters twice", "一个个，一個個，姥姥", "一各各，一各各，老老");
    chinese("counting", "数数，數數，数一数，數一數，参数数量",
            "鼠数，鼠數，鼠一鼠，鼠一鼠，参数数量");
    chinese("no share too many", "通过分析，通过分享，通過分析，过分，十分外向，分外",
            "通过分析，通过分享，通過分析，过份，十分外向，份外");
    chinese("reasons", "因为主要，因为难，因为空，因为首，因为准，因为期，为主，原因为主",
            "因为主要，因为难，因为空，因为首，因为准，因为期，维主，原因维主");
    chinese("reasons in traditional characters", "因為主要，因為難，因為空，為主",
            "因為主要，因為難，因為空，维主");
    chinese("upon relations", "关系上，联系上，体系上，關係上，聯繫上，系上，繫上",
            "关系上，联系上，体系上，關係上，聯繫上，记上，记上");
    chinese("weights", "带着重物，随着重新，有着重要，帶著重物，着重，著重",
            "带着重物，随着虫新，有着重要，帶著重物，卓重，卓重");
    chinese("famous works", "名著重要", "名住重要");
    chinese("pleased", "十分得意", "十分德意");
    chinese("accounts", "学会计算，机会计，會計算，机会计较，会计",
            "学会计算，机会计，會計算，机会计较，快计");
    chinese("remembered", "记得到，值得到，記得到，得到", "记得到，值得到，記得到，德到");
    chinese("on purpose", "有目的地，目的地，没有目的地", "有目帝地，目帝帝，没有目帝帝");
    chinese("ornaments", "你好～，#话题#，第#5，3~5天，10%～20%，3元~5元",
            "你好 ， 话题 ，第号五，三到五天，百分之十到百分之二十，三元到五元");
    chinese("telephone numbers", "010-12345678，0755-12345678，08-09",
            "零一零 一二三四五六七八，零七五五 一二三四五六七八，零八 零九");
    chinese("a long telephone number", "400-1234567，5-0123", "四零零 一二三四五六七，五 零一二三");
    chinese("years and how many", "5000年历史，1000年前，2000年前，1900年，2000年，1999年前",
            "五千年历史，一千年前，两千年前，一九零零年，二零零零年，一九九九年前");
    chinese("two o'clock", "2:05，2:00，2:1", "两点零五，两点，二比一");
    chinese("dollars", "$5，5$，¥5", "五美元，五美元， 五元");
    chinese("words said twice", "瑞典语", "锐典语");
    chinese("dot in a name", "张三・李四", "张三·李四");
    chinese("other words", "用USB", "用,|USB");
    add("Russian", Script::Cyrillic, "gmw/en", "К столу. Мы уже [тут]; буква К.",
        "[[k]] столу. Мы [[uZ'E]] (тут]; буква К.");
    add("Russian preposition", Script::Cyrillic, "gmw/en",
        "к 5 часам, к «дому», к \"дому\", к (дому), «к» и",
        "[[k]] пять часам, [[k]] «дому», [[k]] \"дому\", [[k]] (дому), «к» и");
    add("Russian numbers", Script::Cyrillic, "gmw/en", "1 и 21, 101; 11 и 01 и 1,1",
        "один и двадцать один, сто один; одиннадцать и 01 и 1,1");
    add("Russian quantities", Script::Cyrillic, "gmw/en",
        "0 7 40 112 999 1000 2005 11000 21000 1000000",
        "ноль семь [[s'orVk]] сто двенадцать девятьсот девяносто девять одна тысяча две тысячи "
        "пять "
        "одиннадцать тысяч двадцать одна тысяча один миллион");
    add("large Russian quantities", Script::Cyrillic, "gmw/en", "3000011 999000000 1234567890",
        "три миллиона одиннадцать девятьсот девяносто девять миллионов 1234567890");
    add("English seconds", Script::Latin, "gmw/en-US+f3", "1s 3s 10s x1s",
        "1 second 3 seconds 10s x1s");
    add("German", Script::Latin, "gmw/de", "1s USB usb OK", "1s U S B usb OK");
    add("Spanish", Script::Latin, "roa/es-419", "OK & 3 × 4", "okey y 3 por 4");
    add("German abbreviations", Script::Latin, "gmw/de",
        "Dr. Lenz, Nr. 5 usw. Die Nr 3/4 z.B. km/h",
        "Doktor Lenz, Nummer 5 und so weiter. Die Nr drei Viertel zum Beispiel. Kilometer pro "
        "Stunde");
    add("German ends of sentences", Script::Latin, "gmw/de",
        "Das steht in Kap. Danach Kap. IV und Kap. 3, Bd. A. Der 2. Abs. „Er“ ist von Dr. Lenz, "
        "geb. Kurz, Bd. zwei.",
        "Das steht in Kapitel. Danach Kapitel IV und Kapitel 3, Band A. Der 2. Absatz. „Er“ ist "
        "von "
        "Doktor Lenz, geboren Kurz, Band zwei.");
    add("English units", Script::Latin, "gmw/en", "1 km, 5 km, 1 kg, 1 cm, 1, kg, 11 km, 1 km/h",
        "1 kilometre, 5 kilometres, 1 kilogram, 1 centimetre, 1, kilograms, 11 kilometres, "
        "1 kilometre per hour");
    add("Spanish units", Script::Latin, "roa/es", "1 km, 5 km, 1 cm",
        "1 kilómetro, 5 kilómetros, 1 centímetro");
    add("Italian units", Script::Latin, "roa/it", "1 km, 5 km, 1 kg, 1 cm",
        "1 chilometro, 5 chilometri, 1 chilogrammo, 1 centimetro");
    add("French titles", Script::Latin, "roa/fr", "Voici M. Lenoir. Ou MM. Lenoir",
        "Voici monsieur Lenoir. Ou messieurs Lenoir");
    add("French abbreviations", Script::Latin, "roa/fr", "M. Lenoir, le n° 5, au 19e siècle, M",
        "monsieur Lenoir, le numéro 5, au dix-neuvième siècle, M");
    add("Italian abbreviations", Script::Latin, "roa/it", "pane ecc. e 1/2",
        "pane eccetera. e un mezzo");
    add("Russian abbreviations", Script::Cyrillic, "gmw/en", "стр. 5 и т.д.",
        "страница пять и так далее.");
    add("no language", Script::Latin, "", "OK 1s", "OK 1s");
}

void TstTtsWords::saysWhatTheVoiceGetsWrong()
{
    QFETCH(QString, text);
    QFETCH(QString, said);
    QFETCH(int, script);
    QFETCH(QString, voice);
    QCOMPARE(saidOf(text, static_cast<Script>(script), qPrintable(voice)), said);
}

void TstTtsWords::respelledWordsKeepTheirPlaces()
{
    const QString text = QStringLiteral("共12345页，第2行50%的。");
    auto pieces = cut(text, Script::Chinese);
    QCOMPARE(pieces.size(), std::size_t(1));
    const std::vector<Word> before = pieces[0].words;
    respell(pieces[0], "sit/cmn-Latn-pinyin");
    QVERIFY(areOrdered(pieces, text.size()));
    QStringList spoken;
    for (std::size_t i = 0; i < before.size(); ++i) {
        const Word& word = pieces[0].words[i];
        QCOMPARE(word.offset, before[i].offset);
        QCOMPARE(word.length, before[i].length);
        spoken.append(
            QString::fromStdU32String(pieces[0].text.substr(word.begin, word.end - word.begin)));
    }
    QCOMPARE(spoken,
             QStringList({"共", "一万两千三百四十五", "页", "第", "二", "航", "百分之五十", "的"}));
}

void TstTtsWords::gapIsAComma()
{
    const QString text = QStringLiteral("Settings    Press OK.    Or  not   ");
    QCOMPARE(piecesOf(text), QStringList({"Settings, Press OK. Or not,"}));
    QCOMPARE(wordsOf(text), QStringList({"Settings", "Press", "OK", "Or", "not"}));
    QVERIFY(areOrdered(cut(text), text.size()));
}

QTEST_APPLESS_MAIN(TstTtsWords)
#include "tst_tts_words.moc"
