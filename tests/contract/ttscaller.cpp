#include "tests/contract/ttscaller.h"

#include "platform/zembra_tts.h"
#include "tests/fakes/words.h"

#include <QChar>
#include <QTest>
#include <algorithm>
#include <iterator>

namespace ttscaller {

Heard heard;

namespace {

std::u16string lettersOf(const std::u16string& text)
{
    std::u16string letters;
    std::copy_if(text.begin(), text.end(), std::back_inserter(letters), [](char16_t unit) {
        return QChar(unit).isLetterOrNumber() || QChar(unit).isSurrogate();
    });
    return letters;
}

bool overlapsTag(const std::u16string& text, const Report& report)
{
    const auto tags = fakes::pauseTagsOf(text);
    return std::any_of(tags.begin(), tags.end(), [&report](const fakes::Stretch& tag) {
        return report.offset < tag.offset + tag.length
               && tag.offset < report.offset + report.length;
    });
}

} // namespace

int receive(int offset, int length, int kind)
{
    std::function<void()> reaction;
    {
        const std::lock_guard lock(heard.mutex);
        heard.reports.push_back({offset, length, kind});
        reaction = heard.onReport;
    }
    if (reaction)
        reaction();
    return 0;
}

int initialize()
{
    const char* dirs[] = {"/nowhere/ttsrec", "/nowhere/languages"};
    return ZEMBRA_TTS_Initialize(dirs, 2, 80);
}

void prepareEngine()
{
    QCOMPARE(initialize(), 0);
    QCOMPARE(ZEMBRA_TTS_SetLang(200), 0);
    QCOMPARE(ZEMBRA_TTS_SetSpeed(150), 0);
    QCOMPARE(ZEMBRA_TTS_SetVolume(80), 0);
    QCOMPARE(ZEMBRA_TTS_SetHighlight_CallBack(&receive), 0);
    heard.begin();
}

int play(const std::u16string& text)
{
    // Exactly the text's size on the heap: an engine that reads on is seen by AddressSanitizer.
    const std::vector<unsigned short> units(text.begin(), text.end());
    return ZEMBRA_TTS_Play(units.data(), static_cast<int>(2 * units.size()), 0);
}

Words wordsHeard(const std::u16string& text)
{
    Words words;
    for (const Report& report : heard.all()) {
        words.push_back(lettersOf(text.substr(static_cast<std::size_t>(report.offset),
                                              static_cast<std::size_t>(report.length))));
    }
    return words;
}

bool lawful(const std::u16string& text)
{
    int end = 0;
    for (const Report& report : heard.all()) {
        const bool inside = report.offset >= end && report.length >= 1
                            && report.offset + report.length <= static_cast<int>(text.size());
        if (!inside || report.kind != ZEMBRA_TTS_WORD || overlapsTag(text, report))
            return false;
        end = report.offset + report.length;
    }
    return true;
}

} // namespace ttscaller
