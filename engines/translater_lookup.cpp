// Translater: searches in the open dictionary.
#include "engines/translater.h"

#include "engines/dicrecords.h"
#include "store/configreader.h"

#include <algorithm>
#include <cstring>
#include <utility>

using namespace dicrecords;

namespace {

constexpr int SearchKind = 1; // the only kind of search
constexpr int SearchFlag = 0;
constexpr int French = 103;

constexpr int MaxCandidateUnits = 80;

const std::uint16_t* unitsOf(const QString& text)
{
    return reinterpret_cast<const std::uint16_t*>(text.utf16());
}

int bytesOf(const QString& text)
{
    return static_cast<int>(2 * text.size());
}

void copyHeadword(const tagResultNodeInfo& node, tagWordPropertyIfo& property)
{
    property.wordBytes = fieldBytes(node.wordBytes);
    std::memcpy(property.word, node.word, static_cast<std::size_t>(property.wordBytes));
    property.zero = 0;
    property.property = node.property;
}

} // namespace

// French dictionaries spell their headwords with the small ligature only.
QString Translater::adapted(const QString& word, int lanIndex)
{
    QString searched = word;
    if (getLanID(lanIndex) == French)
        searched.replace(u'\u00c6', u'\u00e6');
    return searched;
}

int Translater::transWord(const QString& shown, const QString& word, QVector<_stTransItem>& items,
                          bool& found, tagWordPropertyIfo& property)
{
    Q_UNUSED(shown)
    found = false;
    const QString searched = adapted(word, ConfigReader::Instance()->getLanDict());

    const std::lock_guard engine(m_engine);
    if (!initialized || searched.isEmpty())
        return NotFound;
    tagResultNodeInfo* result = nullptr;
    if (ZEMBRA_DIC_SearchWord(&result, unitsOf(searched), bytesOf(searched), SearchKind, SearchFlag)
        < 0) {
        countAsClosed();
        return SearchFailed;
    }
    if (!result)
        return NotFound;
    copyHeadword(*result, property);
    for (const tagResultNodeInfo* node = result; node; node = node->next)
        items.append(
            {textOf(node->text, node->textBytes), textOf(node->word, fieldBytes(node->wordBytes))});
    if (ZEMBRA_DIC_FreeSearchResult(&result) < 0)
        return NotFreed;
    return static_cast<int>(items.size());
}

int Translater::transWordFirst(const QString& text, QVector<QString>& candidates, int& position,
                               bool& found)
{
    found = false;
    const std::lock_guard engine(m_engine);
    if (!initialized || text.isEmpty())
        return NotFound;
    tagResultNodeInfo* result = nullptr;
    if (ZEMBRA_DIC_GetFirstComment(&result, &position, unitsOf(text), bytesOf(text)) < 0) {
        countAsClosed();
        return SearchFailed;
    }
    if (!result)
        return NotFound;
    for (const tagResultNodeInfo* node = result; node; node = node->next)
        candidates.append(textOf(node->text, node->textBytes));
    if (ZEMBRA_DIC_FreeSearchResult(&result) < 0)
        return NotFreed;
    return static_cast<int>(candidates.size());
}

int Translater::GetDefineStr(tagResultNodeInfo* first, tagResultNodeInfo* node, int flag)
{
    Q_UNUSED(first)
    Q_UNUSED(flag)
    return node ? 0 : -1;
}

int Translater::soundWord(char* text, int flag)
{
    return text && *text && flag != 0 ? 0 : -1;
}

int GetCandStrings(const unsigned short* buffer, int length, QStringList& out)
{
    if (!buffer)
        return -1;
    out.clear();
    QString current;
    for (int i = 0; i < std::min(length, MaxCandidateUnits); ++i) {
        if (buffer[i] != 0) {
            current += QChar(buffer[i]);
            continue;
        }
        if (i > 0 && buffer[i - 1] == 0)
            break;
        if (!current.isEmpty())
            out.append(std::exchange(current, QString()));
    }
    return static_cast<int>(out.size());
}
