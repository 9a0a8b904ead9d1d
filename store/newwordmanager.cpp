#include "store/newwordmanager.h"

#include "platform/devicepaths.h"
#include "platform/systemcalls.h"
#include "store/filewriter.h"
#include "store/plainfile.h"

NewWordManager* NewWordManager::manager = nullptr;

namespace {

// A hundred words with the longest entries that dictionaries have are a fraction of this.
constexpr qint64 MaxBytes = 16 * 1024 * 1024;

QString bookPath()
{
    return devicePath(QStringLiteral("/apps/config/newword.cfg"));
}

} // namespace

NewWordManager* NewWordManager::Instance()
{
    if (manager == nullptr)
        manager = new NewWordManager;
    return manager;
}

void NewWordManager::quitFun()
{
    delete manager;
    manager = nullptr;
}

int NewWordManager::init()
{
    m_items.clear();
    m_file = File::Loaded;
    QByteArray bytes;
    if (plainfile::read(bookPath(), MaxBytes, bytes) == plainfile::Result::Done) {
        m_items = wordbook::parse(bytes);
        return 0;
    }
    if (FileWriter().create(bookPath(), {}) != FileWriter::Result::Done) {
        if (plainfile::isAnything(bookPath()))
            m_file = File::Unreadable;
        return -1;
    }
    systemcalls::syncStorage();
    return 0;
}

void NewWordManager::setMaxNum(int number)
{
    m_maxNum = number;
}

int NewWordManager::getSize() const
{
    return static_cast<int>(m_items.size());
}

bool NewWordManager::get(int index, WordItem& item) const
{
    if (index < 0 || index >= m_items.size())
        return false;
    item = m_items.at(index);
    return true;
}

int NewWordManager::put(const QString& word, const QString& translation)
{
    if (m_file == File::NotLoaded)
        init();
    if (!m_items.isEmpty() && m_items.size() >= m_maxNum)
        m_items.removeFirst();
    m_items.append({word, translation});
    return flush();
}

// The internal flash keeps the old file or the new one, whatever happens to the power.
int NewWordManager::flush()
{
    if (m_file == File::Unreadable
        || FileWriter().replace(bookPath(), wordbook::format(m_items)) != FileWriter::Result::Done)
        return -1;
    systemcalls::syncStorage();
    return 0;
}
