#include "store/awayfiles.h"

#include "store/filelist.h"

#include <algorithm>

namespace {

qsizetype placeOf(const QVector<FileInfo>& files, const QString& name)
{
    const auto at = std::find_if(files.begin(), files.end(),
                                 [&](const FileInfo& info) { return info.name == name; });
    return at == files.end() ? -1 : at - files.begin();
}

} // namespace

void AwayFiles::add(const FileInfo& info, bool current)
{
    if (placeOf(m_files, info.name) < 0)
        m_files.append(info);
    if (current)
        m_current = info.name;
}

void AwayFiles::bringBack(QVector<FileInfo>& files, int& current,
                          const std::function<bool(const FileInfo&)>& isBack)
{
    QVector<FileInfo> back;
    m_files.removeIf([&](const FileInfo& info) {
        const bool listed = placeOf(files, info.name) >= 0;
        if (!listed && !isBack(info))
            return false;
        if (!listed)
            back.append(info);
        return true;
    });
    if (back.isEmpty())
        return;
    current += static_cast<int>(back.size());
    files = back + files;
    for (qsizetype place = 0; place < files.size(); ++place)
        files[place].id = static_cast<int>(place);
    if (const qsizetype place = m_current.isNull() ? -1 : placeOf(back, m_current); place >= 0) {
        current = static_cast<int>(place);
        m_current.clear();
    }
}

QByteArray AwayFiles::save() const
{
    if (m_files.isEmpty())
        return {};
    const qsizetype current = m_current.isNull() ? -1 : placeOf(m_files, m_current);
    return filelist::format(static_cast<int>(current), m_files);
}

void AwayFiles::restore(const QByteArray& bytes)
{
    const filelist::List list = filelist::parse(bytes);
    for (const FileInfo& info : list.files)
        add(info, m_current.isNull() && info.id == list.current && list.current >= 0);
}
