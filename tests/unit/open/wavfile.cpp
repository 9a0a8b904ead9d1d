#include "wavfile.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

constexpr qsizetype HeaderBytes = 44;

template <typename T> T fieldAt(const QByteArray& bytes, qsizetype offset)
{
    return qFromLittleEndian<T>(bytes.constData() + offset);
}

bool isHeader(const QByteArray& bytes)
{
    if (bytes.size() < HeaderBytes || bytes.left(4) != "RIFF" || bytes.mid(8, 8) != "WAVEfmt "
        || bytes.mid(36, 4) != "data")
        return false;
    const auto data = fieldAt<quint32>(bytes, 40);
    return fieldAt<quint32>(bytes, 4) == data + 36 && fieldAt<quint32>(bytes, 16) == 16
           && fieldAt<quint16>(bytes, 20) == 1 && fieldAt<quint16>(bytes, 22) == 1
           && fieldAt<quint32>(bytes, 24) == 22050 && fieldAt<quint32>(bytes, 28) == 44100
           && fieldAt<quint16>(bytes, 32) == 2 && fieldAt<quint16>(bytes, 34) == 16;
}

} // namespace

std::optional<std::vector<std::int16_t>> readWav(const QString& file)
{
    QFile wav(file);
    if (!wav.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return std::nullopt;
    // The header first: of a file that still grows, what it promises is there by then.
    const QByteArray header = wav.read(HeaderBytes);
    if (!isHeader(header))
        return std::nullopt;
    const auto bytes = static_cast<qsizetype>(fieldAt<quint32>(header, 40));
    const QByteArray data = wav.read(bytes);
    if (data.size() != bytes)
        return std::nullopt;
    std::vector<std::int16_t> samples(static_cast<std::size_t>(bytes) / 2);
    if (!samples.empty())
        std::memcpy(samples.data(), data.constData(), samples.size() * 2);
    return samples;
}

int peakOf(const std::vector<std::int16_t>& samples, std::size_t begin)
{
    int peak = 0;
    for (std::size_t i = begin; i < samples.size(); ++i)
        peak = std::max(peak, std::abs(samples[i]));
    return peak;
}

int longestSilenceOf(const std::vector<std::int16_t>& samples)
{
    constexpr int Audible = 30; // the synthesizer has no noise
    std::ptrdiff_t longest = 0;
    std::ptrdiff_t last = -1;
    for (std::ptrdiff_t i = 0; i < std::ssize(samples); ++i) {
        if (std::abs(samples[static_cast<std::size_t>(i)]) <= Audible)
            continue;
        if (last >= 0)
            longest = std::max(longest, i - last - 1);
        last = i;
    }
    return static_cast<int>(longest);
}
