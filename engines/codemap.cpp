#include "engines/codemap.h"

#include "platform/devicepaths.h"

#include <QFile>
#include <QtEndian>
#include <array>

namespace {

constexpr int RecordCount = 45;
constexpr int RecordBytes = 10;
constexpr int MarkBytes = 2;
constexpr int ValueOffset = 4;

} // namespace

int CodeMap::Init()
{
    QFile file(devicePath(QStringLiteral("/tmp/list.txt")));
    if (!file.open(QIODevice::ReadOnly))
        return 1;

    std::array<char, MarkBytes + RecordCount * RecordBytes> bytes{};
    file.read(bytes.data(), bytes.size());
    for (int i = 0; i < RecordCount; ++i) {
        const char* const record = bytes.data() + MarkBytes + i * RecordBytes;
        m_codes[qFromLittleEndian<quint16>(record)] =
            qFromLittleEndian<quint16>(record + ValueOffset);
    }
    return 0;
}

unsigned short CodeMap::Trans(unsigned short code) const
{
    const auto found = m_codes.find(code);
    return found == m_codes.end() ? 0 : found->second;
}

int CodeMap::GetKeys(QVector<unsigned short>& keys) const
{
    for (const auto& [key, value] : m_codes)
        keys.append(key);
    return static_cast<int>(m_codes.size());
}
