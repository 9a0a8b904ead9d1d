#include "open/iap/pgmpicture.h"

#include <fstream>
#include <sstream>

namespace {

constexpr int DefaultDpi = 300;

/* The next number of the head, past blanks and comments; -1 when there is none. A comment may set
 * the resolution. */
int headNumber(std::istream& in, int& dpi)
{
    while (in) {
        in >> std::ws;
        if (in.peek() != '#') {
            int value = -1;
            return in >> value ? value : -1;
        }
        std::string comment;
        std::getline(in, comment);
        std::istringstream words(comment);
        std::string mark;
        std::string name;
        int value = 0;
        if (words >> mark >> name >> value && name == "dpi")
            dpi = value;
    }
    return -1;
}

} // namespace

Frame readPgm(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    char magic[2] = {};
    if (!in.read(magic, 2) || magic[0] != 'P' || magic[1] != '5')
        return {};
    Frame frame;
    frame.dpi = DefaultDpi;
    frame.width = headNumber(in, frame.dpi);
    frame.height = headNumber(in, frame.dpi);
    const int levels = headNumber(in, frame.dpi);
    const bool sizeFits = frame.width >= MinFrameSide && frame.width <= MaxFrameSide
                          && frame.height >= MinFrameSide && frame.height <= MaxFrameSide;
    if (levels != 255 || !sizeFits)
        return {};
    in.get(); // the one blank before the pixels
    frame.pixels.resize(static_cast<std::size_t>(frame.width) * frame.height);
    in.read(reinterpret_cast<char*>(frame.pixels.data()),
            static_cast<std::streamsize>(frame.pixels.size()));
    if (in.gcount() != static_cast<std::streamsize>(frame.pixels.size()))
        return {};
    return frame;
}
