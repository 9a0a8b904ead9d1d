#include "open/iap/y4mparser.h"

#include <algorithm>
#include <charconv>

namespace {

constexpr std::string_view Magic = "YUV4MPEG2";
constexpr std::string_view FrameMark = "FRAME";
constexpr std::size_t LongestLine = 512;

template <typename Number> bool readNumber(std::string_view text, Number& value)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size();
}

bool readSide(std::string_view text, int& side)
{
    return readNumber(text, side) && side >= SmallestPictureSide && side <= LargestPictureSide;
}

/* "30000:1001"; 0:0 is "not known". */
bool readRate(std::string_view text, double& rate)
{
    int above = 0;
    int below = 0;
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos || !readNumber(text.substr(0, colon), above)
        || !readNumber(text.substr(colon + 1), below) || above < 0 || below < 0)
        return false;
    rate = below > 0 ? double(above) / below : 0.0;
    return true;
}

/* Calls `use` for each word of the line until it returns false; whether it never did. */
template <typename Use> bool forEachWord(std::string_view line, Use use)
{
    while (!line.empty()) {
        const std::size_t end = std::min(line.find(' '), line.size());
        if (end > 0 && !use(line.substr(0, end)))
            return false;
        line.remove_prefix(std::min(end + 1, line.size()));
    }
    return true;
}

/* Samples of all planes but the first; nothing for more than eight bits and what is unknown. */
bool colourSamples(std::string_view colours, std::size_t width, std::size_t height,
                   std::size_t& samples)
{
    const std::size_t halfWidth = (width + 1) / 2;
    if (colours == "mono")
        samples = 0;
    else if (colours.substr(0, 4) == "420p" && colours.size() > 4 && colours[4] == '1')
        return false; // 420p10 and so on
    else if (colours.substr(0, 3) == "420")
        samples = 2 * halfWidth * ((height + 1) / 2);
    else if (colours == "422")
        samples = 2 * halfWidth * height;
    else if (colours == "411")
        samples = 2 * ((width + 3) / 4) * height;
    else if (colours == "444")
        samples = 2 * width * height;
    else
        return false;
    return true;
}

} // namespace

void Y4mParser::add(const std::uint8_t* bytes, std::size_t count)
{
    m_bytes.erase(m_bytes.begin(), m_bytes.begin() + std::ptrdiff_t(m_begin));
    m_begin = 0;
    m_picture = nullptr;
    m_bytes.insert(m_bytes.end(), bytes, bytes + count);
}

Y4mParser::Found Y4mParser::rubbish(const std::string& problem)
{
    m_problem = problem;
    return Found::Rubbish;
}

/* The line at the beginning of what is left, which starts with a mark. */
Y4mParser::Found Y4mParser::readLine(std::string_view mark, const char* problem,
                                     std::string_view& line)
{
    if (!m_problem.empty())
        return Found::Rubbish;
    const std::string_view rest(reinterpret_cast<const char*>(m_bytes.data()) + m_begin,
                                m_bytes.size() - m_begin);
    if (rest.substr(0, mark.size()) != mark.substr(0, rest.size()))
        return rubbish(problem);
    const std::size_t end = rest.find('\n');
    if (end == std::string_view::npos)
        return rest.size() > LongestLine ? rubbish("a line of the video's head never ends")
                                         : Found::Nothing;
    line = rest.substr(0, end);
    return Found::Picture;
}

Y4mParser::Found Y4mParser::peekHead()
{
    std::string_view line;
    if (hasHead())
        return Found::Picture;
    const Found found = readLine(Magic, "this is no video in the YUV4MPEG2 form (.y4m)", line);
    if (found != Found::Picture)
        return found;
    if (!readHead(line.substr(Magic.size())))
        return Found::Rubbish;
    m_begin += line.size() + 1;
    return found;
}

Y4mParser::Found Y4mParser::next()
{
    if (const Found head = peekHead(); head != Found::Picture)
        return head;
    std::string_view line;
    const Found found =
        readLine(FrameMark, "a picture of the video does not begin where it should", line);
    if (found != Found::Picture || m_bytes.size() - m_begin - line.size() - 1 < m_pictureBytes)
        return found == Found::Rubbish ? found : Found::Nothing;
    m_picture = m_bytes.data() + m_begin + line.size() + 1;
    m_begin += line.size() + 1 + m_pictureBytes;
    return found;
}

bool Y4mParser::readHead(std::string_view head)
{
    int width = 0;
    int height = 0;
    std::string_view colours = "420";
    const bool isUsable = forEachWord(head, [&](std::string_view word) {
        const std::string_view value = word.substr(1);
        switch (word.front()) {
        case 'W':
            return readSide(value, width);
        case 'H':
            return readSide(value, height);
        case 'F':
            return readRate(value, m_rate);
        case 'C':
            colours = value;
            return true;
        case 'X': // no resolution when it cannot be read
            if (value.substr(0, 4) == "DPI=" && !readNumber(value.substr(4), m_dpi))
                m_dpi = 0.0;
            return true;
        default:
            return true;
        }
    });
    if (!isUsable || width == 0 || height == 0) {
        rubbish("the video's head has no usable size or rate");
        return false;
    }
    std::size_t others = 0;
    if (!colourSamples(colours, std::size_t(width), std::size_t(height), others)) {
        rubbish("the video's pictures are of a form that is not read (C" + std::string(colours)
                + "); mono and 420 are");
        return false;
    }
    m_width = width;
    m_height = height;
    m_pictureBytes = std::size_t(width) * std::size_t(height) + others;
    return true;
}

CameraPicture Y4mParser::picture() const
{
    CameraPicture picture;
    picture.pixels = m_picture;
    picture.width = m_width;
    picture.height = m_height;
    picture.rowBytes = std::size_t(m_width);
    return picture;
}
