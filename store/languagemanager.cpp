#include "store/languagemanager.h"

#include "platform/devicepaths.h"
#include "platform/systemcalls.h"
#include "store/filewriter.h"
#include "store/localetext.h"
#include "store/plainfile.h"

namespace {

constexpr qint64 MaxTableBytes = 1024 * 1024;

// The rows of a table. A missing table is made, with no rows. False when there is none and none
// can be made.
bool readTable(const QString& devicePathOfTable, QStringList& rows)
{
    const QString path = devicePath(devicePathOfTable);
    QByteArray bytes;
    if (plainfile::read(path, MaxTableBytes, bytes) == plainfile::Result::Done) {
        rows = localetext::lines(localetext::decode(bytes));
        return true;
    }
    if (FileWriter().create(path, {}) != FileWriter::Result::Done)
        return false;
    systemcalls::syncStorage();
    return true;
}

template <typename List> bool isIn(const List& list, int index)
{
    return index >= 0 && index < list.size();
}

} // namespace

LanguageManager* LanguageManager::manager = nullptr;

LanguageManager* LanguageManager::Instance()
{
    if (manager == nullptr)
        manager = new LanguageManager;
    return manager;
}

void LanguageManager::quitFun()
{
    delete manager;
    manager = nullptr;
}

bool LanguageManager::addLanguage(const QString& line)
{
    const QStringList fields = line.split(u'\t');
    if (fields.size() != 7)
        return false;
    languageInfo info;
    info.name = fields.at(0);
    info.code = fields.at(1);
    info.displayName = fields.at(2);
    info.scanFlag = fields.at(3).toInt();
    info.speechFlag = fields.at(4).toInt();
    info.showFlag = fields.at(5).toInt();
    info.defaultFlag = fields.at(6).toInt();
    info.id = getLanguageSize();
    if (info.scanFlag == 1)
        m_scanLanguages.append(info);
    if (info.showFlag == 1)
        m_showLanguages.append(info);
    return true;
}

int LanguageManager::init()
{
    m_scanLanguages.clear();
    m_showLanguages.clear();
    m_menuLanguages.clear();
    QStringList rows;
    if (!readTable(QStringLiteral("/apps/config/scanlanguage.cfg"), rows))
        return -1;
    for (const QString& row : std::as_const(rows))
        if (!addLanguage(row))
            return -1;

    rows.clear();
    if (!readTable(QStringLiteral("/apps/config/menulan.cfg"), rows))
        return -1;
    for (const QString& row : std::as_const(rows)) {
        QStringList fields = row.split(u'\t');
        MenuLanInfo info;
        info.name = fields.takeFirst();
        info.texts = fields;
        m_menuLanguages.append(info);
    }
    return 0;
}

int LanguageManager::getLanguageSize() const
{
    return static_cast<int>(m_scanLanguages.size());
}

int LanguageManager::getShowLanSize() const
{
    return static_cast<int>(m_showLanguages.size());
}

int LanguageManager::getMenuLanSize() const
{
    return static_cast<int>(m_menuLanguages.size());
}

int LanguageManager::getIntByID(int index) const
{
    return isIn(m_scanLanguages, index) ? m_scanLanguages.at(index).code.toInt() : 0;
}

QString LanguageManager::getChnByID(int index) const
{
    return isIn(m_scanLanguages, index) ? m_scanLanguages.at(index).displayName : QString();
}

int LanguageManager::getTTSFlagByID(int index) const
{
    return isIn(m_scanLanguages, index) ? m_scanLanguages.at(index).speechFlag : 0;
}

bool LanguageManager::getInfoByID(int index, languageInfo& info) const
{
    if (!isIn(m_scanLanguages, index))
        return false;
    info = m_scanLanguages.at(index);
    return true;
}

QString LanguageManager::getShowLanByID(int index) const
{
    return isIn(m_showLanguages, index) ? m_showLanguages.at(index).displayName : QString();
}

int LanguageManager::getLanIntByID(int index) const
{
    return isIn(m_showLanguages, index) ? m_showLanguages.at(index).code.toInt() : 0;
}

int LanguageManager::getIDByLanINT(int code) const
{
    int index = 0;
    while (index < getShowLanSize() && getLanIntByID(index) != code)
        ++index;
    return index;
}

int LanguageManager::getDefaultShowLan() const
{
    for (const languageInfo& info : m_scanLanguages)
        if (info.defaultFlag == 1)
            return info.code.toInt();
    return getLanguageSize();
}
