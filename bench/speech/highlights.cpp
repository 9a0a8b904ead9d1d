/* When a word is reported, against when it is heard. */
#include "bench/speech/engine.h"
#include "bench/speech/figures.h"
#include "bench/speech/subjects.h"

#include "platform/zembra_tts.h"

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

namespace {

struct Language
{
    int code;
    const char* name;
    std::vector<std::u16string> words;
};

/* Six words or more of each, with soft and hard beginnings. */
const std::vector<Language>& languages()
{
    static const std::vector<Language> all = {
        {101, "English", {u"moon", u"boat", u"dog", u"garden", u"tea", u"kitchen", u"apple"}},
        {103, "French", {u"lune", u"arbre", u"neige", u"pain", u"table", u"oiseau"}},
        {104, "German", {u"Mond", u"Apfel", u"Lampe", u"Insel", u"Pferd", u"Tag"}},
        {105, "Spanish", {u"luna", u"árbol", u"perro", u"tarde", u"mesa", u"uva"}},
        {106, "Italian", {u"luna", u"albero", u"neve", u"isola", u"mare", u"uva"}},
        {107, "Swedish", {u"måne", u"äpple", u"lampa", u"ö", u"natt", u"vinter"}},
        {108, "Danish", {u"måne", u"æble", u"lampe", u"ø", u"nat", u"vinter"}},
        {109, "Norwegian", {u"måne", u"eple", u"lampe", u"øy", u"natt", u"vinter"}},
        {110, "Dutch", {u"maan", u"appel", u"lamp", u"eiland", u"nacht", u"winter"}},
        {111, "Portuguese", {u"lua", u"árvore", u"neve", u"ilha", u"mar", u"uva"}},
        {151, "Russian", {u"луна", u"яблоко", u"лампа", u"остров", u"поле", u"дом"}},
        {152, "Arabic", {u"ليل", u"بحر", u"نهر", u"ملح", u"لون", u"نور"}},
        {1, "Chinese", {u"月", u"马", u"路", u"年", u"门", u"外"}},
    };
    return all;
}

/* Adds report minus sound of every word. False when not each was heard and reported. */
bool measureLanguage(Tape& tape, const Language& language, Figures& figures)
{
    ZEMBRA_TTS_SetLang(language.code);
    std::u16string text;
    for (const std::u16string& word : language.words)
        text += word + pauseOf(500) + u" ";
    tape.clear();
    const int result = engine::play(text);
    const auto reports = engine::reports();
    const auto onsets = tape.onsets(450);
    if (result != 0 || onsets.size() != language.words.size() || reports.size() != onsets.size()) {
        std::printf("%s: %zu words, %zu heard, %zu reported\n", language.name,
                    language.words.size(), onsets.size(), reports.size());
        return false;
    }
    for (std::size_t i = 0; i < onsets.size(); ++i)
        figures.add(msBetween(onsets[i], reports[i].at));
    return true;
}

} // namespace

void measureHighlights(int rounds)
{
    Disk disk(Disk::Pace::Speech);
    if (!engine::start())
        return goals::check("the engine starts", false);
    const int count = rounds > 0 ? rounds : 4;
    Figures::printTitle("report after sound, one word (ms)");
    Figures all;
    Figures distance;
    bool complete = true;
    for (const Language& language : languages()) {
        Figures figures;
        for (int round = 0; round < count; ++round)
            complete = measureLanguage(disk.tape(), language, figures) && complete;
        figures.print(language.name);
        for (const double value : figures.values()) {
            all.add(value);
            distance.add(std::abs(value));
        }
    }
    all.print("all");
    goals::check("every word was heard and reported", complete);
    goals::atMost("distance of report and sound, p95", distance.at(0.95), 25);
    goals::atMost("report after sound, largest", all.largest(), 45);
    engine::close();
}
