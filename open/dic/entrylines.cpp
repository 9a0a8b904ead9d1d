#include "open/dic/entrylines.h"

#include "open/dic/folding.h"
#include "open/dic/utf.h"

#include <algorithm>
#include <array>

namespace dic {

namespace {

constexpr std::size_t LongestHeadLine = 1000;

// What is shown of grammar in angle brackets: "neut, n, sg" is "n".
std::string shownGrammar(std::string_view tag)
{
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 6> Shown = {
        {{"masc", "m"}, {"fem", "f"}, {"neut", "n"}, {"ut", "c"}, {"common", "c"}, {"pl", "pl"}}};
    std::string shown;
    while (!tag.empty()) {
        const std::size_t end = std::min(tag.find(','), tag.size());
        const std::string_view word = trimmed(tag.substr(0, end));
        tag.remove_prefix(std::min(end + 1, tag.size()));
        for (const auto& [name, sign] : Shown) {
            if (word == name)
                shown += (shown.empty() ? "" : ", ") + std::string(sign);
        }
    }
    return shown.empty() ? shown : "[" + shown + "]";
}

void appendSingleBlanks(std::string& out, char c)
{
    if (c != ' ' && c != '\t' && c != '\n')
        out += c;
    else if (!out.empty() && out.back() != ' ')
        out += ' ';
}

bool isBlankAt(std::string_view text, std::size_t at)
{
    return at >= text.size()
           || std::string_view(" \t,;()").find(text[at]) != std::string_view::npos;
}

/* A group of brackets or slashes that begins at `at`: its end behind the closing sign, or `at` when
 * there is none. */
std::size_t groupEnd(std::string_view text, std::size_t at)
{
    static constexpr std::string_view Opening = "<[(/";
    static constexpr std::string_view Closing = ">])/";
    const std::size_t kind = Opening.find(text[at]);
    if (kind == std::string_view::npos)
        return at;
    if (text[at] == '/') {
        if (at > 0 && !isBlankAt(text, at - 1))
            return at;
        // Some set two.
        const std::string_view sign = text.substr(at).starts_with("//") ? "//" : "/";
        const std::size_t end = text.find(sign, at + sign.size());
        return end == std::string_view::npos || end == at + sign.size()
                       || !isBlankAt(text, end + sign.size())
                   ? at
                   : end + sign.size();
    }
    int depth = 0;
    for (std::size_t i = at; i < text.size(); ++i) {
        depth += text[i] == text[at];
        depth -= text[i] == Closing[kind];
        if (depth == 0)
            return i + 1;
    }
    return at;
}

// The end of phonetics in slashes that begin at `at`, else `at`.
std::size_t phoneticsEnd(std::string_view text, std::size_t at)
{
    constexpr std::size_t Longest = 100;
    if (text[at] != '/' || (at > 0 && !isBlankAt(text, at - 1)))
        return at;
    const std::string_view near = text.substr(at + 1, Longest);
    const std::size_t length = near.find('/');
    const bool isForeign =
        length != std::string_view::npos
        && std::any_of(near.begin(), near.begin() + static_cast<std::ptrdiff_t>(length),
                       [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
    return isForeign && isBlankAt(text, at + length + 2) ? at + length + 2 : at;
}

// Without a comma behind which nothing came.
void dropOpenComma(std::string& out)
{
    while (!out.empty() && (out.back() == ' ' || out.back() == ','))
        out.pop_back();
}

void putGrammar(std::string& out, const std::string& shown)
{
    if (shown.empty() && out.ends_with(' '))
        out.pop_back();
    else if (!shown.empty() && !out.empty() && !out.ends_with(' '))
        out += ' ';
    out += shown;
}

// Of the word itself, as its line tells it.
std::string grammarOf(std::string_view line)
{
    const std::size_t start = line.rfind('<');
    const std::size_t end = line.rfind('>');
    const bool inOrder =
        start != std::string_view::npos && end != std::string_view::npos && start < end;
    return inOrder ? shownGrammar(line.substr(start + 1, end - start - 1)) : std::string();
}

std::string withoutSlashes(std::string_view text)
{
    while (text.starts_with('/'))
        text.remove_prefix(1);
    while (text.ends_with('/'))
        text.remove_suffix(1);
    return std::string(text);
}

/* The line without groups of the kinds; the first phonetics that it had. */
std::string withoutGroups(std::string_view line, std::string_view kinds, std::string& phonetics)
{
    std::string out;
    for (std::size_t at = 0; at < line.size();) {
        const bool opens = kinds.find(line[at]) != std::string_view::npos;
        const std::size_t end = opens ? groupEnd(line, at) : at;
        if (end == at) {
            appendSingleBlanks(out, line[at++]);
            continue;
        }
        if (phonetics.empty() && (line[at] == '/' || line[at] == '['))
            phonetics = withoutSlashes(line.substr(at + 1, end - at - 2));
        at = end;
    }
    return std::string(trimmed(out));
}

} // namespace

std::vector<EntryLine> linesOf(std::string_view raw)
{
    std::vector<EntryLine> lines;
    while (!raw.empty()) {
        const std::size_t end = std::min(raw.find('\n'), raw.size());
        const std::string_view line = raw.substr(0, end);
        raw.remove_prefix(std::min(end + 1, raw.size()));
        const std::string_view text = trimmed(line);
        if (!text.empty())
            lines.push_back({text, static_cast<std::size_t>(text.data() - line.data())});
    }
    return lines;
}

bool takeHeadLine(const EntryLine& line, std::string_view head, EntryText& entry)
{
    if (line.text.size() > LongestHeadLine)
        return false;
    const std::string key = foldedKey(head);
    for (const std::string_view kinds : {"", "/<", "/<(["}) {
        std::string phonetics;
        const std::string rest = withoutGroups(line.text, kinds, phonetics);
        if (rest.empty() || foldedKey(rest) != key)
            continue;
        entry.word = rest;
        entry.phonetics = phonetics;
        entry.grammar = grammarOf(line.text);
        entry.wordClass = wordClassOf(line.text);
        return true;
    }
    // Another spelling of the word, with what only head lines have.
    std::string phonetics;
    const std::string rest = withoutGroups(line.text, "/<([", phonetics);
    if (phonetics.empty() || rest.empty() || line.indent > 0)
        return false;
    entry.word = rest;
    entry.phonetics = phonetics;
    entry.grammar = grammarOf(line.text);
    entry.wordClass = wordClassOf(line.text);
    return true;
}

char wordClassOf(std::string_view text)
{
    static constexpr std::array<std::pair<std::string_view, char>, 9> Classes = {{{"v", 'v'},
                                                                                  {"n", 'n'},
                                                                                  {"masc", 'n'},
                                                                                  {"fem", 'n'},
                                                                                  {"neut", 'n'},
                                                                                  {"ut", 'n'},
                                                                                  {"pl", 'n'},
                                                                                  {"adj", 'a'},
                                                                                  {"adv", 'a'}}};
    const std::size_t start = text.find('<');
    const std::size_t end = text.find('>', std::min(start, text.size()));
    if (end == std::string_view::npos)
        return 0;
    const std::string_view tag = text.substr(start + 1, end - start - 1);
    const std::string_view first = trimmed(tag.substr(0, std::min(tag.find(','), tag.size())));
    const auto known = std::find_if(Classes.begin(), Classes.end(),
                                    [first](const auto& entry) { return entry.first == first; });
    return known == Classes.end() ? char(0) : known->second;
}

std::string tidy(std::string_view text)
{
    std::string out;
    const std::size_t lastClosing = text.rfind('>');
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        const bool opens = c == '<' && lastClosing != std::string_view::npos && at < lastClosing;
        const std::size_t end = opens ? text.find('>', at) : phoneticsEnd(text, at);
        if (opens) {
            putGrammar(out, shownGrammar(text.substr(at + 1, end - at - 1)));
            at = end;
            if (at + 1 < text.size() && !isBlankAt(text, at + 1))
                out += ' ';
        } else if (end > at) {
            dropOpenComma(out);
            at = end - 1;
        } else if (c != '{' && c != '}') {
            if (c == ',' && out.ends_with(' '))
                out.pop_back();
            appendSingleBlanks(out, c);
        }
    }
    dropOpenComma(out);
    return out;
}

unsigned takeNumber(std::string_view& text, char mark)
{
    std::size_t digits = 0;
    unsigned number = 0;
    while (digits < text.size() && digits < 3 && text[digits] >= '0' && text[digits] <= '9')
        number = number * 10 + static_cast<unsigned>(text[digits++] - '0');
    if (digits == 0 || digits == text.size() || text[digits] != mark)
        return 0;
    const std::string_view rest = text.substr(digits + 1);
    if (!rest.empty() && rest.front() != ' ' && rest.front() != '\n')
        return 0;
    text = trimmed(rest);
    return number;
}

} // namespace dic
