#include "open/tts/piecer.h"

#include "open/tts/characters.h"
#include "open/tts/chinesereading.h"

#include <algorithm>
#include <optional>
#include <span>
#include <utility>

namespace tts {

namespace {

/* Characters [begin, end) of a stretch that are one word, or the part of one in one script. */
struct Token
{
    std::size_t begin;
    std::size_t end;
    Script script;
    std::size_t wordEnd;
    bool beginsWord;
};

using Characters = std::span<const Character>;

/* Whether punctuation inside a run without blanks divides words ("one,two", "end—begin") or is
 * part of one ("3.14", "don't", "well-known", "example.org"). */
bool dividesWords(Characters text, std::size_t at)
{
    const char32_t c = text[at].code;
    if (!isPunctuation(c))
        return false;
    if (c == U'-' || c == U'\'' || c == 0x2010 || c == 0x2011 || c == 0x2019 || c == U'.')
        return false;
    const bool betweenDigits =
        at > 0 && at + 1 < text.size() && isDigit(text[at - 1].code) && isDigit(text[at + 1].code);
    return !((c == U',' || c == U':') && betweenDigits);
}

bool endsRun(Characters text, std::size_t at)
{
    return isBlank(text[at].code) || isHan(text[at].code) || dividesWords(text, at);
}

/* Where letters of another script follow than those from `begin` on. */
std::size_t endOfScript(Characters text, std::size_t begin, std::size_t end)
{
    std::optional<Script> script;
    for (std::size_t at = begin; at < end; ++at) {
        const auto here = scriptOf(text[at].code);
        if (script && here && *here != *script)
            return at;
        script = script ? script : here;
    }
    return end;
}

Script scriptOfPart(Characters text, std::size_t begin, std::size_t end, Script neutral)
{
    for (std::size_t at = begin; at < end; ++at)
        if (const auto script = scriptOf(text[at].code))
            return *script;
    return neutral;
}

/* The word of a run without blanks: less the punctuation around it. */
void addToken(std::vector<Token>& tokens, Characters text, std::size_t begin, std::size_t end,
              Script neutral)
{
    const auto silent = [text](std::size_t at) {
        return isPunctuation(text[at].code) || isSilentMark(text[at].code);
    };
    while (begin < end && silent(begin))
        ++begin;
    while (begin < end && silent(end - 1))
        --end;
    if (begin == end)
        return;
    for (std::size_t at = begin; at < end;) {
        const std::size_t partEnd = endOfScript(text, at, end);
        tokens.push_back({at, partEnd, scriptOfPart(text, at, partEnd, neutral), end, at == begin});
        at = partEnd;
    }
}

std::vector<Token> tokensOf(Characters text, Script neutral)
{
    std::vector<Token> tokens;
    std::size_t begin = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (!endsRun(text, at))
            continue;
        addToken(tokens, text, begin, at, neutral);
        begin = at + 1;
        if (isHan(text[at].code))
            addToken(tokens, text, at, at + 1, neutral);
    }
    addToken(tokens, text, begin, text.size(), neutral);
    return tokens;
}

/* Longer clauses lose text in the synthesizer without a word. Spoken forms count: a digit becomes
 * a word. */
constexpr int ClauseBudget = 500;

int costOf(char32_t c)
{
    if (isDigit(c))
        return 12;
    if (isHan(c))
        return 6;
    return isLetter(c) || isBlank(c) ? 2 : 10;
}

bool isFollowedByBlank(Characters text, std::size_t at)
{
    while (at + 1 < text.size() && isClosing(text[at + 1].code))
        ++at;
    return at + 1 >= text.size() || isBlank(text[at + 1].code);
}

/* Of a run without blanks the synthesizer reads 160 bytes of UTF-8 and drops the rest. */
constexpr int LongestRun = 50;

/* How good a place the end of a character is to cut at; 0 is none. */
int cutQuality(Characters text, std::size_t at)
{
    const char32_t c = text[at].code;
    const bool fullWidth = c >= 0x3000;
    if (isClauseEnd(c) && (fullWidth || isFollowedByBlank(text, at)))
        return isSentenceEnd(c) ? 3 : 2;
    return isBlank(c) ? 1 : 0;
}

/* Where the piece that begins at `begin` ends: at `end` if the budget lets it, else at the best
 * place before. */
std::size_t pieceEnd(Characters text, std::size_t begin, std::size_t end)
{
    int cost = 0;
    int run = 0;
    std::size_t best = begin;
    int bestQuality = 0;
    for (std::size_t at = begin; at < end; ++at) {
        const char32_t c = text[at].code;
        cost += costOf(c);
        run = isBlank(c) || isHan(c) ? 0 : run + 1;
        if (run > LongestRun)
            return at;
        if (cost > ClauseBudget)
            return bestQuality > 0 ? best : std::max(at, begin + 1);
        // A cut in the first quarter would make a tiny piece for little.
        int quality = cutQuality(text, at);
        if (quality > 1 && cost < ClauseBudget / 4)
            quality = 1;
        if (quality > 0 && quality >= bestQuality) {
            bestQuality = quality;
            best = at + 1;
            while (best < end && isClosing(text[best].code))
                ++best;
        }
    }
    return end;
}

/* Whether the last sign before closing quotes and brackets makes a pause. */
bool endsWithClauseEnd(const std::u32string& text)
{
    for (auto it = text.rbegin(); it != text.rend(); ++it)
        if (!isBlank(*it) && !isClosing(*it))
            return isClauseEnd(*it);
    return false;
}

/* A gap, three blanks or more, is heard as a comma is. */
void breatheInGap(std::u32string& text)
{
    constexpr std::u32string_view Gap = U"   ";
    if (text.size() > Gap.size() && text.ends_with(Gap) && !endsWithClauseEnd(text))
        text[text.size() - Gap.size()] = U',';
}

/* Appends a character in the form that the synthesizer takes best: of a run like "..." or "?!"
 * only the first, as it loses its place in the text there; symbols apart from letters, as it may
 * change to another language for them, and letters of this one would end that untimely. */
void appendCharacter(std::u32string& text, char32_t c)
{
    if (isSilentMark(c))
        return;
    if (!text.empty() && text.back() != U' ' && isSymbol(c) != isSymbol(text.back()))
        text += U' ';
    const std::size_t lastMark = text.find_last_not_of(U' ');
    const bool repeats = isClauseEnd(c) && !text.empty() && lastMark != std::u32string::npos
                         && isClauseEnd(text[lastMark]);
    text += repeats || isBlank(c) ? U' ' : c;
    breatheInGap(text);
}

class StretchCutter
{
public:
    StretchCutter(const Stretch& stretch, Script neutral)
        : m_stretch(stretch),
          m_text(stretch.characters),
          m_tokens(tokensOf(m_text, neutral)),
          m_neutral(neutral)
    {
    }

    void cut(std::vector<Piece>& pieces)
    {
        std::size_t begin = 0;
        while (begin < m_text.size()) {
            const std::size_t runEnd = endOfRun();
            while (begin < runEnd) {
                const std::size_t end = pieceEnd(m_text, begin, runEnd);
                addPiece(pieces, begin, end, runEnd);
                begin = end;
            }
        }
        finishStretch(pieces);
    }

private:
    /* The end of the characters of one script, from the first token not yet spoken. */
    std::size_t endOfRun()
    {
        if (m_next >= m_tokens.size())
            return m_text.size();
        m_script = m_tokens[m_next].script;
        for (std::size_t i = m_next; i < m_tokens.size(); ++i)
            if (m_tokens[i].script != m_script)
                return startOfRun(i);
        return m_text.size();
    }

    /* Opening quotes and brackets go with the word that they open. */
    std::size_t startOfRun(std::size_t token) const
    {
        std::size_t begin = m_tokens[token].begin;
        const std::size_t least = m_tokens[token - 1].end;
        while (begin > least && isPunctuation(m_text[begin - 1].code)
               && !isClauseEnd(m_text[begin - 1].code) && !isClosing(m_text[begin - 1].code))
            --begin;
        return begin;
    }

    void addPiece(std::vector<Piece>& pieces, std::size_t begin, std::size_t end,
                  std::size_t runEnd)
    {
        Piece piece;
        piece.script = m_script;
        bool speaks = begin > 0 && isInsideToken(begin);
        std::size_t wordEnd = 0;
        for (std::size_t at = begin; at < end; ++at) {
            if (m_next < m_tokens.size() && m_tokens[m_next].begin == at) {
                if (m_tokens[m_next].beginsWord)
                    piece.words.push_back(wordOf(m_tokens[m_next], piece.text.size()));
                wordEnd = m_tokens[m_next++].wordEnd;
                speaks = true;
            }
            appendCharacter(piece.text, m_text[at].code);
            if (at < wordEnd && !piece.words.empty())
                piece.words.back().end = piece.text.size();
        }
        if (!speaks)
            return;
        if (end < m_text.size() && !endsWithClauseEnd(piece.text)) {
            piece.text.resize(piece.text.find_last_not_of(U' ') + 1);
            piece.text += U',';
            piece.endPause = end < runEnd;
        }
        pieces.push_back(std::move(piece));
    }

    bool isInsideToken(std::size_t at) const
    {
        return m_next > 0 && m_tokens[m_next - 1].begin < at && at < m_tokens[m_next - 1].end;
    }

    Word wordOf(const Token& token, std::size_t begin) const
    {
        const Character& first = m_text[token.begin];
        const Character& last = m_text[token.wordEnd - 1];
        return {first.offset, last.offset + last.units - first.offset, begin, begin + 1};
    }

    /* The last piece takes the pause of the stretch; without words there is only the pause. */
    void finishStretch(std::vector<Piece>& pieces)
    {
        if (!m_tokens.empty()) {
            Piece& last = pieces.back();
            const bool punctuated = endsWithClauseEnd(last.text);
            if (m_stretch.end != StretchEnd::Text && !punctuated)
                last.text += m_stretch.end == StretchEnd::Paragraph ? U'.' : U',';
            // The comma is for the tone: a pause that nothing printed makes is as long as its tag.
            last.endPause = punctuated || m_stretch.end != StretchEnd::Pause;
            last.pauseMs = m_stretch.pauseMs;
        } else if (m_stretch.pauseMs > 0) {
            Piece silence;
            silence.script = m_neutral;
            silence.pauseMs = m_stretch.pauseMs;
            pieces.push_back(std::move(silence));
        }
    }

    const Stretch& m_stretch;
    const Characters m_text;
    const std::vector<Token> m_tokens;
    const Script m_neutral;
    Script m_script = Script::Latin;
    std::size_t m_next = 0; // first token not yet in a piece
};

} // namespace

bool Piecer::atEnd()
{
    while (m_next == m_pieces.size() && !m_reader.atEnd()) {
        m_pieces.clear();
        m_next = 0;
        Stretch stretch = m_reader.next();
        widenChineseStops(stretch.characters);
        StretchCutter(stretch, m_script).cut(m_pieces);
    }
    return m_next == m_pieces.size();
}

Piece Piecer::next()
{
    return std::move(m_pieces[m_next++]);
}

} // namespace tts
