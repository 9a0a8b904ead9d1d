#ifndef FAKEDIC_H
#define FAKEDIC_H

#include <cstdint>
#include <map>
#include <string>
#include <vector>

/*
 * Control of the scripted dictionary engine behind platform/zembra_dic.h.
 *
 * Records belong to the engine; they are overwritten when they are released, and a release that
 * is missing or double is counted. One thread at a time: a call during another one is counted, too.
 */
class FakeDic
{
public:
    struct Entry
    {
        std::u16string word; // as the dictionary spells it
        std::u16string definition;
        std::uint8_t property = 0;
    };

    struct Dictionary
    {
        std::map<std::u16string, std::vector<Entry>> entries; // by the word looked up
        bool unreadable = false;
        std::u16string name = u"A Dictionary";
        std::u16string origin = {}; // and licence
        bool away = false;          // keeps its place in its pair
    };

    static void reset();

    /* A language pair that lists made from now on have. */
    static void addPair(std::int32_t language, std::int16_t endLanguage, std::u16string name,
                        std::vector<Dictionary> dictionaries);

    /* Makes a function ("ZEMBRA_DIC_SearchWord") return that status, doing nothing; 0 or more
     * makes it work again. */
    static void fail(const std::string& function, std::int32_t status);

    /* While on, opening a dictionary takes its time: ZEMBRA_DIC_Initialize returns once this is
     * off (or after FakePatience). */
    static void holdInitialize(bool on);

    /* Dictionaries that are open, and lists, pairs and results that have not been released. */
    static int openDictionaries();
    static int openRecords();

    /* Releases and calls with what the engine does not own (any more), and calls that came while
     * another one was not over. */
    static int misuses();
};

#endif
