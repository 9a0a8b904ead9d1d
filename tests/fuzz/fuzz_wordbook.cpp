/* Any file: what is read from it is read again from what is written of it, but for the line end
 * that every translation gets. Any text: nothing of it is lost. */
#include "store/wordbook.h"
#include "tests/fuzz/require.h"

#include <QByteArray>
#include <algorithm>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QVector<WordItem> items = wordbook::parse(bytes);

    QString text(static_cast<qsizetype>(size / 2), Qt::Uninitialized);
    std::copy_n(data, 2 * (size / 2), reinterpret_cast<std::uint8_t*>(text.data()));
    items.append({text.left(text.size() / 2), text.mid(text.size() / 2)});

    const QVector<WordItem> again = wordbook::parse(wordbook::format(items));
    REQUIRE(again.size() == items.size());
    for (qsizetype i = 0; i < items.size(); ++i) {
        REQUIRE(again.at(i).word == items.at(i).word);
        REQUIRE(again.at(i).translation == items.at(i).translation + u'\n');
    }
    return 0;
}
