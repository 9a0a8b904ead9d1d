#include "engines/translater.h"

#include "engines/dicrecords.h"
#include "platform/devicepaths.h"
#include "store/languagemanager.h"

#include <QByteArray>
#include <QFile>
#include <QSettings>
#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>
#include <vector>

std::atomic<Translater*> Translater::transInstance{nullptr};

using namespace dicrecords;

namespace {

std::mutex instanceMutex;

constexpr int DirectoryCount = 5;

constexpr std::array<const char*, DirectoryCount> Directories = {
    "/mnt/hidmmc/sysdict/defaultdict/", "/mnt/hidmmc/sysdict/fredict/", "/mnt/hidmmc/sysdict/",
    "/apps/data/dict/", "/mnt/mmc/usrdict/"};

constexpr int DictionaryKind = 1; // the only kind that the engine selects from
constexpr int MaxSourceUnits = 8192;

_stTransLan pairOf(const tagDictTypeInfo& type)
{
    _stTransLan pair;
    pair.lanID = type.lanID;
    pair.endLanID = static_cast<quint16>(type.endLanID);
    pair.name = textOf(type.name, fieldBytes(type.nameBytes));
    for (const tagDictLink* link = type.dicts; link; link = link->next)
        pair.dicts.append(link->dict);
    return pair;
}

QString described(const tagDictInfo* dict, int what, int maxUnits)
{
    std::vector<std::uint16_t> units(static_cast<std::size_t>(maxUnits));
    return textOf(
        units.data(),
        std::min(ZEMBRA_DIC_DescribeDic(dict, what, units.data(), 2 * maxUnits), 2 * maxUnits));
}

QHash<const tagDictInfo*, QString> namesOf(const QVector<_stTransLan>& pairs)
{
    QHash<const tagDictInfo*, QString> names;
    for (const _stTransLan& pair : pairs) {
        for (qsizetype i = 0; i < pair.dicts.size(); ++i) {
            QString name = described(pair.dicts.at(i), ZEMBRA_DIC_NAME, ZEMBRA_DIC_WORD_UNITS);
            if (name.trimmed().isEmpty())
                name = pair.name + u' ' + QString::number(i + 1);
            names.insert(pair.dicts.at(i), name);
        }
    }
    return names;
}

} // namespace

Translater* Translater::Instance()
{
    const std::lock_guard lock(instanceMutex);
    if (!transInstance)
        transInstance = new Translater;
    return transInstance;
}

void Translater::quitFun()
{
    const std::lock_guard lock(instanceMutex);
    delete transInstance.exchange(nullptr);
}

Translater::Translater()
{
    init(0);
}

Translater::~Translater()
{
    destroy();
}

int Translater::init(int unused)
{
    Q_UNUSED(unused)
    const std::lock_guard engine(m_engine);
    dicList = nullptr;
    curDict = nullptr;

    std::array<QByteArray, DirectoryCount> paths;
    std::array<const char*, DirectoryCount> dirs{};
    for (int i = 0; i < DirectoryCount; ++i) {
        paths[i] = QFile::encodeName(devicePath(QString::fromLatin1(Directories[i])));
        dirs[i] = paths[i].constData();
    }
    if (ZEMBRA_DIC_GetDicList(&dicList, dirs.data(), DirectoryCount) < 0)
        return NotFound;
    readPairs();
    initialized = 1;
    return 0;
}

int Translater::destroy()
{
    const std::lock_guard engine(m_engine);
    if (!initialized)
        return NotFound;
    initialized = 0;
    if (closeCurrent() < 0)
        return NotClosed;
    // The dictionaries in it are about to vanish.
    sortClear();
    if (typeList) {
        if (ZEMBRA_DIC_FreeTypeDicList(&typeList) < 0)
            return NotFound;
        typeList = nullptr;
    }
    const int status = ZEMBRA_DIC_FreeDicList(&dicList);
    if (status < 0)
        return ListNotFreed;
    dicList = nullptr;
    return status;
}

int Translater::GetDict()
{
    const std::lock_guard engine(m_engine);
    return readPairs();
}

// With m_engine held.
int Translater::readPairs()
{
    sortClear();
    // The language of the menus is looked up and left aside: pairs are asked for in English, so
    // that a pair is called the same on every pen.
    const QSettings settings(devicePath(QStringLiteral("/apps/config/config.ini")),
                             QSettings::IniFormat);
    LanguageManager::Instance()->getLanIntByID(
        settings.value(QStringLiteral("SystemSet/Lan"), 0).toInt());
    if (typeList) {
        if (ZEMBRA_DIC_FreeTypeDicList(&typeList) < 0)
            return NotFound;
        typeList = nullptr;
    }
    if (!dicList)
        return NotFound;
    const int status = ZEMBRA_DIC_GetDicTypeList(&typeList, dicList, "ENGLISH");
    if (status < 0)
        return NotFound;
    QVector<_stTransLan> pairs;
    for (const tagDictTypeInfo* type = typeList; type; type = type->next)
        pairs.append(pairOf(*type));
    QHash<const tagDictInfo*, QString> names = namesOf(pairs);

    const std::lock_guard table(m_table);
    transLans = std::move(pairs);
    m_names = std::move(names);
    return status;
}

int Translater::GetDict(QVector<_stTransLan>& pairs)
{
    const std::lock_guard table(m_table);
    pairs = transLans;
    return static_cast<int>(pairs.size());
}

// With m_table held, as dictAt().
bool Translater::hasPair(int lanIndex) const
{
    return lanIndex >= 0 && lanIndex < transLans.size();
}

tagDictInfo* Translater::dictAt(int lanIndex, int dictIndex) const
{
    return hasPair(lanIndex) ? transLans.at(lanIndex).dicts.value(dictIndex) : nullptr;
}

int Translater::getLanID(int index)
{
    const std::lock_guard table(m_table);
    return hasPair(index) ? transLans.at(index).lanID : -1;
}

int Translater::getEndLanID(int index)
{
    const std::lock_guard table(m_table);
    return hasPair(index) ? transLans.at(index).endLanID : -1;
}

bool Translater::isOpen(int lanIndex, int dictIndex)
{
    const std::lock_guard table(m_table);
    const tagDictInfo* const dict = dictAt(lanIndex, dictIndex);
    return dict && dict == m_open;
}

QString Translater::dictName(int lanIndex, int dictIndex)
{
    const std::lock_guard table(m_table);
    return m_names.value(dictAt(lanIndex, dictIndex));
}

QString Translater::dictSource(int lanIndex, int dictIndex)
{
    const std::lock_guard engine(m_engine);
    const tagDictInfo* dict = nullptr;
    {
        const std::lock_guard table(m_table);
        dict = dictAt(lanIndex, dictIndex);
    }
    return dict ? described(dict, ZEMBRA_DIC_ORIGIN, MaxSourceUnits) : QString();
}

// A dictionary that cannot be searched any more is to be opened again.
void Translater::countAsClosed()
{
    const std::lock_guard table(m_table);
    m_open = nullptr;
}

// With m_engine held, as openCurrent().
int Translater::closeCurrent()
{
    countAsClosed();
    return ZEMBRA_DIC_Uninitialize(std::exchange(curDict, nullptr)) < 0 ? int(NotClosed) : 0;
}

int Translater::openCurrent()
{
    const int status = ZEMBRA_DIC_Initialize(curDict);
    if (status < 0)
        return NotOpened;
    const std::lock_guard table(m_table);
    m_open = curDict;
    return status;
}

int Translater::setDict(int dictNumber)
{
    const std::lock_guard engine(m_engine);
    if (curDict && closeCurrent() < 0)
        return NotClosed;
    if (!dicList || ZEMBRA_DIC_SelectDic(&curDict, dicList, DictionaryKind, dictNumber) < 0) {
        curDict = nullptr;
        return NoDictionary;
    }
    return openCurrent();
}

int Translater::setDict(int lanIndex, int dictIndex)
{
    const std::lock_guard engine(m_engine);
    if (curDict && closeCurrent() < 0)
        return NotClosed;
    {
        const std::lock_guard table(m_table);
        if (!hasPair(lanIndex))
            return NotFound;
        if (dictIndex < 0 || dictIndex >= transLans.at(lanIndex).dicts.size())
            return NoDictionary;
        curDict = dictAt(lanIndex, dictIndex);
    }
    std::puts("setDict ZEMBRA_DIC_Initialize().....");
    return openCurrent();
}

void Translater::sortTransLan(const _stTransLan& pair)
{
    const std::lock_guard table(m_table);
    transLans.append(pair);
}

void Translater::sortClear()
{
    const std::lock_guard table(m_table);
    transLans.clear();
    m_names.clear();
}
