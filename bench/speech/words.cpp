/* Every word of a text once, in order, with its exact place, in thirteen languages and with both
 * ways of pausing, prepared as the application prepares it. */
#include "bench/speech/engine.h"
#include "bench/speech/figures.h"
#include "bench/speech/subjects.h"

#include "engines/speechtext.h"
#include "platform/zembra_tts.h"

#include <QFile>
#include <QString>

#include <cstdio>
#include <vector>

namespace {

struct Language
{
    int code;
    const char* name;
    const char* file; // of tests/data/lines
};

constexpr Language Languages[] = {
    {101, "English", "en"},    {103, "French", "fr"},    {104, "German", "de"},
    {105, "Spanish", "es"},    {106, "Italian", "it"},   {107, "Swedish", "sv"},
    {108, "Danish", "da"},     {109, "Norwegian", "no"}, {110, "Dutch", "nl"},
    {111, "Portuguese", "pt"}, {151, "Russian", "ru"},   {152, "Arabic", nullptr},
    {1, "Chinese", "zh"},
};

QString textOf(const Language& language)
{
    if (!language.file)
        return QStringLiteral("كان البحر هادئا، والطيور تحلق فوق الماء. جلس الرجل قرب النافذة، "
                              "وقرأ كتابا قديما عن السفن: أسماءها، وموانئها، ورجالها. هل تعرف "
                              "الطريق إلى المدينة؟ نعم، هي قريبة من هنا. في الكتاب 125 صفحة.");
    QFile file(QStringLiteral(SWIPELINE_SOURCE_DIR "/tests/data/lines/%1.txt")
                   .arg(QLatin1String(language.file)));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).trimmed().replace(QLatin1Char('\n'), QChar(0x2029));
}

struct Span
{
    int offset;
    int length;
    bool operator==(const Span&) const = default;
};

bool isMark(QChar c)
{
    return c.isPunct();
}

bool isHan(QChar c)
{
    return c.script() == QChar::Script_Han;
}

void addWord(std::vector<Span>& words, const QString& text, int begin, int end)
{
    while (begin < end && isMark(text.at(begin)))
        ++begin;
    while (begin < end && isMark(text.at(end - 1)))
        --end;
    if (begin < end)
        words.push_back({begin, end - begin});
}

/* What a reader calls the words: between blanks, without marks around them; Chinese characters one
 * by one. */
std::vector<Span> wordsOf(const QString& text)
{
    std::vector<Span> words;
    int begin = 0;
    for (int i = 0; i < text.size(); ++i) {
        if (!text.at(i).isSpace() && !isHan(text.at(i)))
            continue;
        addWord(words, text, begin, i);
        if (isHan(text.at(i)))
            words.push_back({i, 1});
        begin = i + 1;
    }
    addWord(words, text, begin, static_cast<int>(text.size()));
    return words;
}

/* How many words are not reported as they should be. */
int wrongWords(const std::vector<Span>& words, const SpeechText& prepared)
{
    const auto reports = engine::reports();
    int wrong = std::abs(static_cast<int>(words.size()) - static_cast<int>(reports.size()));
    for (std::size_t i = 0; i < std::min(words.size(), reports.size()); ++i) {
        Span span = {};
        const bool known =
            prepared.sourceRange(reports[i].offset, reports[i].length, span.offset, span.length);
        wrong += !known || span != words[i] || reports[i].length != span.length;
    }
    return wrong;
}

int measureText(const Language& language, const QString& text, const SpeechSettings& settings,
                const char* pauses)
{
    const SpeechText prepared = prepareSpeechText(text, settings);
    const std::vector<Span> words = wordsOf(text);
    const int result = engine::play(prepared.text.toStdU16String());
    const int wrong = result == 0 ? wrongWords(words, prepared) : static_cast<int>(words.size());
    std::printf("%-12s %-22s %4zu words, %d wrong\n", language.name, pauses, words.size(), wrong);
    std::fflush(stdout);
    return wrong;
}

} // namespace

void measureWords(int)
{
    Disk disk(Disk::Pace::Fast);
    if (!engine::start())
        return goals::check("the engine starts", false);
    int wrong = 0;
    for (const Language& language : Languages) {
        ZEMBRA_TTS_SetLang(language.code);
        SpeechSettings settings;
        settings.language = language.code;
        settings.punctuationPause = 2;
        wrong += measureText(language, textOf(language), settings, "pauses after marks");
        settings.wordPause = 1;
        wrong += measureText(language, textOf(language), settings, "pauses after words");
    }
    goals::check("every word once, in order, in its place", wrong == 0);
    engine::close();
}
