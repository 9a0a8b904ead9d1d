#include "store/localetext.h"

#include <QStringDecoder>
#include <QStringEncoder>
#include <QtEndian>

namespace localetext {

namespace {
constexpr const char* Codec = "GBK";
}

Mark markOf(const QByteArray& bytes)
{
    if (bytes.startsWith("\xEF\xBB\xBF"))
        return Mark::Utf8;
    if (bytes.startsWith("\xFF\xFE"))
        return Mark::Utf16Little;
    if (bytes.startsWith("\xFE\xFF"))
        return Mark::Utf16Big;
    return Mark::None;
}

QString decodeUtf16(QByteArrayView bytes, bool bigEndian)
{
    const qsizetype length = bytes.size() / 2;
    QString text(length, Qt::Uninitialized);
    if (bigEndian)
        qFromBigEndian<char16_t>(bytes.data(), length, text.data());
    else
        qFromLittleEndian<char16_t>(bytes.data(), length, text.data());
    return text;
}

std::optional<QString> decodeMarked(const QByteArray& bytes)
{
    const QByteArrayView view(bytes);
    switch (markOf(bytes)) {
    case Mark::Utf8:
        return QString::fromUtf8(view.sliced(3));
    case Mark::Utf16Little:
        return decodeUtf16(view.sliced(2), false);
    case Mark::Utf16Big:
        return decodeUtf16(view.sliced(2), true);
    case Mark::None:
        break;
    }
    return std::nullopt;
}

QString decode(const QByteArray& bytes)
{
    if (auto text = decodeMarked(bytes))
        return *text;
    QStringDecoder decoder(Codec);
    return decoder(bytes);
}

QByteArray encode(const QString& text)
{
    QStringEncoder encoder(Codec);
    return encoder(text);
}

bool isGbk(QByteArrayView bytes)
{
    const auto at = [&](qsizetype i) { return static_cast<uchar>(bytes[i]); };
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        if (at(i) < 0x80)
            continue;
        if (at(i) == 0x80 || at(i) == 0xFF || ++i == bytes.size())
            return false;
        if (at(i) < 0x40 || at(i) == 0x7F || at(i) == 0xFF)
            return false;
    }
    return true;
}

QStringList lines(const QString& text)
{
    QString plain = text;
    plain.remove(u'\r');
    if (plain.endsWith(u'\n'))
        plain.chop(1);
    else if (plain.isEmpty())
        return {};
    return plain.split(u'\n');
}

} // namespace localetext
