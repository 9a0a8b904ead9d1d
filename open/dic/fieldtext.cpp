#include "open/dic/fieldtext.h"

#include "open/dic/utf.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace dic {

namespace {

struct Field
{
    char type = 0;
    std::string_view data;
};

// Takes the next field from `raw`; false at the end or when it is cut off.
bool takeField(std::string_view& raw, char type, bool last, Field& field)
{
    field.type = type;
    if (last) {
        field.data = raw;
        raw = {};
        return true;
    }
    if (type >= 'A' && type <= 'Z') {
        if (raw.size() < 4)
            return false;
        std::uint64_t length = 0;
        for (const char c : raw.substr(0, 4))
            length = length << 8 | static_cast<unsigned char>(c);
        field.data = raw.substr(4, std::min<std::uint64_t>(length, raw.size() - 4));
        raw.remove_prefix(4 + field.data.size());
        return true;
    }
    const std::size_t end = std::min(raw.find('\0'), raw.size());
    field.data = raw.substr(0, end);
    raw.remove_prefix(std::min(end + 1, raw.size()));
    return true;
}

void append(std::string& out, const Field& field)
{
    std::string text;
    switch (field.type) {
    case 'm':
    case 'l':
    case 'n':
        text = field.data;
        break;
    case 't':
    case 'y':
        text = "/" + std::string(trimmed(field.data)) + "/";
        break;
    case 'g':
    case 'h':
    case 'k':
    case 'w':
    case 'x':
        text = withoutMarkup(field.data);
        break;
    default:
        return;
    }
    if (!out.empty() && !out.ends_with('\n'))
        out += '\n';
    out += text;
}

bool isBlock(std::string_view name)
{
    static constexpr std::array<std::string_view, 14> Blocks = {
        "br", "p",  "div", "li", "ul",  "ol", "dd",
        "dt", "dl", "tr",  "ar", "def", "ex", "blockquote"};
    return std::find(Blocks.begin(), Blocks.end(), name) != Blocks.end();
}

std::string nameOfTag(std::string_view tag)
{
    if (tag.starts_with('/'))
        tag.remove_prefix(1);
    std::string name;
    for (const char c : tag) {
        if (c >= 'A' && c <= 'Z')
            name += static_cast<char>(c - 'A' + 'a');
        else if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'))
            name += c;
        else
            break;
    }
    return name;
}

std::string characterOf(unsigned long code)
{
    if (code < 0x20 || code > 0x10ffff || (code >= 0xd800 && code < 0xe000))
        return " ";
    if (code < 0x10000)
        return toUtf8(std::u16string(1, static_cast<char16_t>(code)));
    code -= 0x10000;
    return toUtf8(std::u16string{static_cast<char16_t>(0xd800 + (code >> 10)),
                                 static_cast<char16_t>(0xdc00 + (code & 0x3ff))});
}

// What "&name;" stands for; empty when it is none.
std::string resolved(std::string_view name)
{
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 6> Names = {
        {{"lt", "<"}, {"gt", ">"}, {"amp", "&"}, {"quot", "\""}, {"apos", "'"}, {"nbsp", " "}}};
    for (const auto& [known, text] : Names) {
        if (name == known)
            return std::string(text);
    }
    if (!name.starts_with('#'))
        return {};
    name.remove_prefix(1);
    const bool hex = name.starts_with('x') || name.starts_with('X');
    if (hex)
        name.remove_prefix(1);
    unsigned long code = 0;
    const auto result =
        std::from_chars(name.data(), name.data() + name.size(), code, hex ? 16 : 10);
    return result.ec == std::errc() && result.ptr == name.data() + name.size() ? characterOf(code)
                                                                               : std::string();
}

} // namespace

std::string plainText(std::string_view raw, std::string_view types)
{
    std::string out;
    Field field;
    if (types.empty()) {
        while (!raw.empty()) {
            const char type = raw.front();
            raw.remove_prefix(1);
            if (!takeField(raw, type, false, field))
                break;
            append(out, field);
        }
    }
    for (std::size_t i = 0; i < types.size(); ++i) {
        if (!takeField(raw, types[i], i + 1 == types.size(), field))
            break;
        append(out, field);
    }
    return out;
}

std::string withoutMarkup(std::string_view text)
{
    constexpr std::size_t LongestReference = 10;
    std::string out;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (c == '<') {
            const std::size_t end = text.find('>', at);
            if (end == std::string_view::npos)
                break;
            if (isBlock(nameOfTag(text.substr(at + 1, end - at - 1))))
                out += '\n';
            at = end;
            continue;
        }
        // Near by, or it is no reference.
        const std::size_t near =
            c == '&' ? text.substr(at, LongestReference + 1).find(';') : std::string_view::npos;
        const std::size_t end = at + near;
        const std::string known = near != std::string_view::npos
                                      ? resolved(text.substr(at + 1, near - 1))
                                      : std::string();
        if (known.empty()) {
            out += c;
        } else {
            out += known;
            at = end;
        }
    }
    return out;
}

} // namespace dic
