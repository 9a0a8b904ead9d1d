#include "desk/penkeys.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<penkeys::PenKey, 13> Keys = {{
    {Qt::Key_Escape, "Esc", "Esc", QT_TRANSLATE_NOOP("KeyButton", "Back, or the menu above")},
    {Qt::Key_F12, "F12", "Set", QT_TRANSLATE_NOOP("KeyButton", "Quick settings (F12)")},
    {Qt::Key_Left, "Left", "\u25C0", QT_TRANSLATE_NOOP("KeyButton", "Left")},
    {Qt::Key_Up, "Up", "\u25B2", QT_TRANSLATE_NOOP("KeyButton", "Up")},
    {Qt::Key_Return, "OK", "OK", QT_TRANSLATE_NOOP("KeyButton", "OK (Return)")},
    {Qt::Key_Down, "Down", "\u25BC", QT_TRANSLATE_NOOP("KeyButton", "Down")},
    {Qt::Key_Right, "Right", "\u25B6", QT_TRANSLATE_NOOP("KeyButton", "Right")},
    {Qt::Key_F7, "F7", "\u23EA\uFE0E",
     QT_TRANSLATE_NOOP("KeyButton", "Seek backwards while held (F7)")},
    {Qt::Key_F8, "F8", "\u23E9\uFE0E",
     QT_TRANSLATE_NOOP("KeyButton", "Seek forwards while held (F8)")},
    {Qt::Key_F9, "F9", "", QT_TRANSLATE_NOOP("KeyButton", "More settings (F9)")},
    {Qt::Key_F10, "F10", "", QT_TRANSLATE_NOOP("KeyButton", "Say where one is (F10)")},
    {Qt::Key_F11, "F11", "", QT_TRANSLATE_NOOP("KeyButton", "Rename (F11)")},
    {Qt::Key_Space, "Space", "", QT_TRANSLATE_NOOP("KeyButton", "Say it again (Space)")},
}};

} // namespace

namespace penkeys {

std::span<const PenKey> all()
{
    return Keys;
}

std::optional<Qt::Key> fromName(const QString& name)
{
    const auto is = [&name](const char* other) {
        return name.compare(QLatin1String(other), Qt::CaseInsensitive) == 0;
    };
    if (is("Return") || is("Enter"))
        return Qt::Key_Return;
    if (is("Escape"))
        return Qt::Key_Escape;
    const auto found =
        std::ranges::find_if(Keys, [&is](const PenKey& key) { return is(key.name); });
    if (found == Keys.end())
        return std::nullopt;
    return found->key;
}

std::optional<Qt::Key> fromKeyboard(int key)
{
    if (key == Qt::Key_Enter)
        return Qt::Key_Return;
    const auto found =
        std::ranges::find_if(Keys, [key](const PenKey& penKey) { return penKey.key == key; });
    if (found == Keys.end())
        return std::nullopt;
    return found->key;
}

QString nameOf(Qt::Key key)
{
    const auto found =
        std::ranges::find_if(Keys, [key](const PenKey& penKey) { return penKey.key == key; });
    return found == Keys.end() ? QString() : QLatin1String(found->name);
}

QStringList names()
{
    QStringList result;
    for (const PenKey& key : Keys)
        result.append(QLatin1String(key.name));
    return result;
}

} // namespace penkeys
