#include "engines/translater.h"

#include "platform/devicepaths.h"
#include "platform/zembra_dic.h"

#include <QByteArray>
#include <QFile>
#include <algorithm>
#include <array>

std::atomic<Translater*> Translater::transInstance{nullptr};

namespace {

std::mutex instanceMutex;

constexpr int DirectoryCount = 5;

constexpr std::array<const char*, DirectoryCount> Directories = {
    "/mnt/hidmmc/sysdict/defaultdict/", "/mnt/hidmmc/sysdict/fredict/", "/mnt/hidmmc/sysdict/",
    "/apps/data/dict/", "/mnt/mmc/usrdict/"};

_stTransLan pairOf(const tagDictTypeInfo& type)
{
    _stTransLan pair;
    pair.lanID = type.lanID;
    pair.endLanID = static_cast<quint16>(type.endLanID);
    pair.name = QString(reinterpret_cast<const QChar*>(type.name),
                        std::clamp(type.nameBytes / 2, 0, int(ZEMBRA_DIC_WORD_UNITS)));
    for (const tagDictLink* link = type.dicts; link; link = link->next)
        pair.dicts.append(link->dict);
    return pair;
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
    dicList = nullptr;
    curDict = nullptr;

    std::array<QByteArray, DirectoryCount> paths;
    std::array<const char*, DirectoryCount> dirs{};
    for (int i = 0; i < DirectoryCount; ++i) {
        paths[i] = QFile::encodeName(devicePath(QString::fromLatin1(Directories[i])));
        dirs[i] = paths[i].constData();
    }
    if (ZEMBRA_DIC_GetDicList(&dicList, dirs.data(), DirectoryCount) < 0)
        return -1;
    GetDict();
    initialized = 1;
    return 0;
}

int Translater::destroy()
{
    if (!initialized)
        return -1;
    initialized = 0;
    if (ZEMBRA_DIC_Uninitialize(curDict) < 0)
        return -8;
    if (typeList) {
        if (ZEMBRA_DIC_FreeTypeDicList(&typeList) < 0)
            return -1;
        typeList = nullptr;
    }
    const int status = ZEMBRA_DIC_FreeDicList(&dicList);
    if (status < 0)
        return -9;
    dicList = nullptr;
    curDict = nullptr;
    return status;
}

int Translater::GetDict()
{
    sortClear();
    if (typeList) {
        if (ZEMBRA_DIC_FreeTypeDicList(&typeList) < 0)
            return -1;
        typeList = nullptr;
    }
    // The pairs are asked for in English whatever the language of the menus.
    const int status = ZEMBRA_DIC_GetDicTypeList(&typeList, dicList, "ENGLISH");
    if (status < 0)
        return -1;
    for (const tagDictTypeInfo* type = typeList; type; type = type->next)
        sortTransLan(pairOf(*type));
    return status;
}

int Translater::GetDict(QVector<_stTransLan>& pairs)
{
    const std::lock_guard lock(m_mutex);
    pairs = transLans;
    return static_cast<int>(transLans.size());
}

int Translater::getLanID(int index)
{
    const std::lock_guard lock(m_mutex);
    return index >= 0 && index < transLans.size() ? transLans.at(index).lanID : -1;
}

int Translater::getEndLanID(int index)
{
    const std::lock_guard lock(m_mutex);
    return index >= 0 && index < transLans.size() ? transLans.at(index).endLanID : -1;
}

void Translater::sortTransLan(const _stTransLan& pair)
{
    const std::lock_guard lock(m_mutex);
    transLans.append(pair);
}

void Translater::sortClear()
{
    const std::lock_guard lock(m_mutex);
    transLans.clear();
}
