/*
 * What platform/zembra_dic.h promises, as far as a caller can see it. Built once for each engine;
 * nothing here knows which one it is.
 */
#include "platform/zembra_dic.h"
#include "tests/contract/dichost.h"

#include <QTest>
#include <string>
#include <vector>

namespace {

std::vector<std::uint16_t> units(const char* text)
{
    return std::vector<std::uint16_t>(text, text + std::char_traits<char>::length(text));
}

int32_t search(tagResultNodeInfo** result, const char* word)
{
    const std::vector<std::uint16_t> text = units(word);
    return ZEMBRA_DIC_SearchWord(result, text.data(), static_cast<int32_t>(2 * text.size()), 1, 0);
}

std::u16string told(const tagDictInfo* dict, int32_t what, int32_t bytes)
{
    std::vector<std::uint16_t> text(std::size_t(bytes) / 2 + 1, 0xdead);
    const int32_t written = ZEMBRA_DIC_DescribeDic(dict, what, text.data(), bytes);
    if (written < 0 || written > bytes || written % 2 != 0)
        return u"failed";
    if (text[std::size_t(written) / 2] != 0xdead)
        return u"written beyond what is told";
    return std::u16string(text.begin(), text.begin() + written / 2);
}

tagResultNodeInfo* const Unset = reinterpret_cast<tagResultNodeInfo*>(8);

} // namespace

class ContractDic : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void missingFoldersAreNoError();
    void thePairsAreTold();
    void theOrderIsStable();
    void releasingStoresNull();
    void releasingNullSucceeds();
    void numbersCountThroughThePairs();
    void aNumberOutsideTheListFails();
    void everyDictionaryHasAName();
    void nameAndOriginAreTold();
    void aDescriptionIsCutBetweenCharacters();
    void wrongQuestionsFail();
    void aDictionaryThatIsAwayKeepsItsPlace();
    void openingNullFails();
    void closingWhatIsNotOpenSucceeds();
    void searchingWithoutOpenDictionaryFails();
    void aWordIsFound();
    void aResultOutlivesTheNextSearch();
    void aWordThatIsNotThereIsSuccessWithNull();
    void oddAndNegativeLengthsFail();
    void theFirstWordOfALineIsFound();
    void aLineWithoutWordsIsSuccessWithNull();

private:
    tagDictTypeInfo* pairs();
    bool openFirst();

    void* m_list = nullptr;
    tagDictTypeInfo* m_pairs = nullptr;
    tagDictInfo* m_dict = nullptr;
};

void ContractDic::init()
{
    const std::vector<std::string> folders = dichost::installDictionaries();
    std::vector<const char*> dirs;
    dirs.reserve(folders.size());
    for (const std::string& folder : folders)
        dirs.push_back(folder.c_str());
    QVERIFY(ZEMBRA_DIC_GetDicList(&m_list, dirs.data(), int32_t(dirs.size())) >= 0);
    QVERIFY(m_list);
}

void ContractDic::cleanup()
{
    QVERIFY(ZEMBRA_DIC_Uninitialize(m_dict) >= 0);
    m_dict = nullptr;
    QVERIFY(ZEMBRA_DIC_FreeTypeDicList(&m_pairs) >= 0);
    QVERIFY(ZEMBRA_DIC_FreeDicList(&m_list) >= 0);
}

tagDictTypeInfo* ContractDic::pairs()
{
    return ZEMBRA_DIC_GetDicTypeList(&m_pairs, m_list, "ENGLISH") >= 0 ? m_pairs : nullptr;
}

bool ContractDic::openFirst()
{
    return ZEMBRA_DIC_SelectDic(&m_dict, m_list, 1, 0) >= 0 && m_dict
           && ZEMBRA_DIC_Initialize(m_dict) >= 0;
}

void ContractDic::missingFoldersAreNoError()
{
    void* list = nullptr;
    QVERIFY(ZEMBRA_DIC_GetDicList(&list, nullptr, 0) >= 0);
    QVERIFY(list);
    QVERIFY(ZEMBRA_DIC_FreeDicList(&list) >= 0);
}

void ContractDic::thePairsAreTold()
{
    tagDictTypeInfo* const first = pairs();
    QVERIFY(first);
    for (const tagDictTypeInfo* pair = first; pair; pair = pair->next) {
        QVERIFY(pair->nameBytes > 0 && pair->nameBytes <= 2 * ZEMBRA_DIC_WORD_UNITS);
        QVERIFY(pair->nameBytes % 2 == 0);
        for (const tagDictLink* link = pair->dicts; link; link = link->next)
            QVERIFY(link->dict);
    }
}

void ContractDic::theOrderIsStable()
{
    std::vector<std::pair<int, tagDictInfo*>> seen[2];
    for (auto& order : seen) {
        for (const tagDictTypeInfo* pair = pairs(); pair; pair = pair->next) {
            for (const tagDictLink* link = pair->dicts; link; link = link->next)
                order.emplace_back(pair->lanID, link->dict);
        }
        QVERIFY(ZEMBRA_DIC_FreeTypeDicList(&m_pairs) >= 0);
    }
    QCOMPARE(seen[0], seen[1]);
}

void ContractDic::releasingStoresNull()
{
    pairs();
    QVERIFY(ZEMBRA_DIC_FreeTypeDicList(&m_pairs) >= 0);
    QVERIFY(!m_pairs);
    QVERIFY(ZEMBRA_DIC_FreeDicList(&m_list) >= 0);
    QVERIFY(!m_list);
}

void ContractDic::releasingNullSucceeds()
{
    void* list = nullptr;
    tagDictTypeInfo* types = nullptr;
    tagResultNodeInfo* result = nullptr;
    QVERIFY(ZEMBRA_DIC_FreeDicList(nullptr) >= 0);
    QVERIFY(ZEMBRA_DIC_FreeDicList(&list) >= 0);
    QVERIFY(ZEMBRA_DIC_FreeTypeDicList(nullptr) >= 0);
    QVERIFY(ZEMBRA_DIC_FreeTypeDicList(&types) >= 0);
    QVERIFY(ZEMBRA_DIC_FreeSearchResult(nullptr) >= 0);
    QVERIFY(ZEMBRA_DIC_FreeSearchResult(&result) >= 0);
}

void ContractDic::numbersCountThroughThePairs()
{
    int32_t number = 0;
    for (const tagDictTypeInfo* pair = pairs(); pair; pair = pair->next) {
        for (const tagDictLink* link = pair->dicts; link; link = link->next) {
            tagDictInfo* dict = nullptr;
            QVERIFY(ZEMBRA_DIC_SelectDic(&dict, m_list, 1, number++) >= 0);
            QCOMPARE(dict, link->dict);
        }
    }
    tagDictInfo* beyond = reinterpret_cast<tagDictInfo*>(8);
    QVERIFY(ZEMBRA_DIC_SelectDic(&beyond, m_list, 1, number) < 0);
    QVERIFY(!beyond);
}

void ContractDic::aNumberOutsideTheListFails()
{
    for (const int32_t number : {-1, 1000}) {
        tagDictInfo* dict = reinterpret_cast<tagDictInfo*>(8);
        QVERIFY(ZEMBRA_DIC_SelectDic(&dict, m_list, 1, number) < 0);
        QVERIFY(!dict);
    }
}

void ContractDic::everyDictionaryHasAName()
{
    for (const tagDictTypeInfo* pair = pairs(); pair; pair = pair->next) {
        for (const tagDictLink* link = pair->dicts; link; link = link->next) {
            std::vector<std::uint16_t> text(1000);
            const int32_t written =
                ZEMBRA_DIC_DescribeDic(link->dict, ZEMBRA_DIC_NAME, text.data(), 2000);
            if (pair->next == nullptr && link == pair->dicts)
                QVERIFY(written < 0); // away
            else
                QVERIFY(written > 0 && written <= 2 * ZEMBRA_DIC_WORD_UNITS);
        }
    }
}

void ContractDic::nameAndOriginAreTold()
{
    QVERIFY(ZEMBRA_DIC_SelectDic(&m_dict, m_list, 1, 0) >= 0);
    QCOMPARE(told(m_dict, ZEMBRA_DIC_NAME, 256), std::u16string(u"Clef \U0001D11E"));
    QCOMPARE(told(m_dict, ZEMBRA_DIC_ORIGIN, 256), std::u16string(u"Old prints\nPublic domain"));
    QVERIFY(ZEMBRA_DIC_Initialize(m_dict) >= 0);
    QCOMPARE(told(m_dict, ZEMBRA_DIC_NAME, 256), std::u16string(u"Clef \U0001D11E"));
}

void ContractDic::aDescriptionIsCutBetweenCharacters()
{
    QVERIFY(ZEMBRA_DIC_SelectDic(&m_dict, m_list, 1, 0) >= 0);
    QCOMPARE(told(m_dict, ZEMBRA_DIC_NAME, 14), std::u16string(u"Clef \U0001D11E"));
    QCOMPARE(told(m_dict, ZEMBRA_DIC_NAME, 12), std::u16string(u"Clef "));
    QCOMPARE(told(m_dict, ZEMBRA_DIC_NAME, 8), std::u16string(u"Clef"));
    QCOMPARE(told(m_dict, ZEMBRA_DIC_NAME, 0), std::u16string());
    QCOMPARE(ZEMBRA_DIC_DescribeDic(m_dict, ZEMBRA_DIC_NAME, nullptr, 0), 0);
}

void ContractDic::wrongQuestionsFail()
{
    std::vector<std::uint16_t> text(100);
    QVERIFY(ZEMBRA_DIC_SelectDic(&m_dict, m_list, 1, 0) >= 0);
    QVERIFY(ZEMBRA_DIC_DescribeDic(nullptr, ZEMBRA_DIC_NAME, text.data(), 200) < 0);
    QVERIFY(ZEMBRA_DIC_DescribeDic(m_dict, -1, text.data(), 200) < 0);
    QVERIFY(ZEMBRA_DIC_DescribeDic(m_dict, 2, text.data(), 200) < 0);
    QVERIFY(ZEMBRA_DIC_DescribeDic(m_dict, ZEMBRA_DIC_NAME, nullptr, 200) < 0);
    QVERIFY(ZEMBRA_DIC_DescribeDic(m_dict, ZEMBRA_DIC_NAME, text.data(), -2) < 0);
    QVERIFY(ZEMBRA_DIC_DescribeDic(m_dict, ZEMBRA_DIC_NAME, text.data(), 3) < 0);
}

void ContractDic::aDictionaryThatIsAwayKeepsItsPlace()
{
    const tagDictTypeInfo* const first = pairs();
    const tagDictTypeInfo* const second = first ? first->next : nullptr;
    if (!second || !second->dicts || !second->dicts->next)
        QFAIL("no second pair with two dictionaries");
    tagDictInfo* const away = second->dicts->dict;
    QVERIFY(away);
    std::vector<std::uint16_t> text(100);
    QVERIFY(ZEMBRA_DIC_DescribeDic(away, ZEMBRA_DIC_NAME, text.data(), 200) < 0);
    QVERIFY(ZEMBRA_DIC_DescribeDic(away, ZEMBRA_DIC_ORIGIN, text.data(), 200) < 0);
    QVERIFY(ZEMBRA_DIC_Initialize(away) < 0);
    QVERIFY(ZEMBRA_DIC_DescribeDic(second->dicts->next->dict, ZEMBRA_DIC_NAME, text.data(), 200)
            > 0);
}

void ContractDic::openingNullFails()
{
    QVERIFY(ZEMBRA_DIC_Initialize(nullptr) < 0);
}

void ContractDic::closingWhatIsNotOpenSucceeds()
{
    QVERIFY(ZEMBRA_DIC_Uninitialize(nullptr) >= 0);
    QVERIFY(openFirst());
    QVERIFY(ZEMBRA_DIC_Uninitialize(m_dict) >= 0);
    QVERIFY(ZEMBRA_DIC_Uninitialize(m_dict) >= 0);
}

void ContractDic::searchingWithoutOpenDictionaryFails()
{
    tagResultNodeInfo* result = Unset;
    int32_t position = 7;
    const std::vector<std::uint16_t> line = units("a house");
    QVERIFY(search(&result, "house") < 0);
    QVERIFY(ZEMBRA_DIC_GetFirstComment(&result, &position, line.data(), 14) < 0);
}

void ContractDic::aWordIsFound()
{
    tagResultNodeInfo* result = nullptr;
    QVERIFY(openFirst());
    QVERIFY(search(&result, "house") >= 0);
    QVERIFY(result != nullptr);
    int nodes = 0;
    for (const tagResultNodeInfo* node = result; node; node = node->next) {
        QVERIFY(node->wordBytes > 0 && node->wordBytes <= 254 && node->wordBytes % 2 == 0);
        QVERIFY(node->text && node->textBytes > 0 && node->textBytes % 2 == 0);
        ++nodes;
    }
    QVERIFY(nodes <= ZEMBRA_DIC_MAX_RESULTS);
    QVERIFY(ZEMBRA_DIC_FreeSearchResult(&result) >= 0);
    QVERIFY(!result);
}

void ContractDic::aResultOutlivesTheNextSearch()
{
    tagResultNodeInfo* first = nullptr;
    tagResultNodeInfo* second = nullptr;
    QVERIFY(openFirst());
    QVERIFY(search(&first, "house") >= 0);
    QVERIFY(first);
    const std::u16string before(first->text, first->text + first->textBytes / 2);
    QVERIFY(search(&second, "house") >= 0);
    QVERIFY(ZEMBRA_DIC_FreeSearchResult(&second) >= 0);
    QCOMPARE(std::u16string(first->text, first->text + first->textBytes / 2), before);
    QVERIFY(ZEMBRA_DIC_FreeSearchResult(&first) >= 0);
}

void ContractDic::aWordThatIsNotThereIsSuccessWithNull()
{
    tagResultNodeInfo* result = Unset;
    QVERIFY(openFirst());
    QVERIFY(search(&result, "xyzzyx") >= 0);
    QVERIFY(!result);
}

void ContractDic::oddAndNegativeLengthsFail()
{
    tagResultNodeInfo* result = nullptr;
    const std::vector<std::uint16_t> word = units("house");
    QVERIFY(openFirst());
    QVERIFY(ZEMBRA_DIC_SearchWord(&result, word.data(), 9, 1, 0) < 0);
    QVERIFY(ZEMBRA_DIC_SearchWord(&result, word.data(), -2, 1, 0) < 0);
}

void ContractDic::theFirstWordOfALineIsFound()
{
    tagResultNodeInfo* result = nullptr;
    int32_t position = -1;
    const std::vector<std::uint16_t> line = units("xyzzyx house");
    QVERIFY(openFirst());
    const int32_t status =
        ZEMBRA_DIC_GetFirstComment(&result, &position, line.data(), int32_t(2 * line.size()));
    QVERIFY(status >= 0);
    QVERIFY(result);
    QCOMPARE(position, 8);
    QVERIFY(ZEMBRA_DIC_FreeSearchResult(&result) >= 0);
}

void ContractDic::aLineWithoutWordsIsSuccessWithNull()
{
    tagResultNodeInfo* result = nullptr;
    int32_t position = -1;
    const std::vector<std::uint16_t> line = units("xyzzyx");
    QVERIFY(openFirst());
    const int32_t status =
        ZEMBRA_DIC_GetFirstComment(&result, &position, line.data(), int32_t(2 * line.size()));
    QVERIFY(status >= 0);
    QVERIFY(!result);
    QCOMPARE(position, 0);
}

QTEST_APPLESS_MAIN(ContractDic)
#include "tst_contract_dic.moc"
