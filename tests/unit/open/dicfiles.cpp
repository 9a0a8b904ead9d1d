#include "tests/unit/open/dicfiles.h"

#include <fstream>
#include <sstream>
#include <zlib.h>

namespace dicfiles {

namespace {

constexpr std::size_t ChunkLength = 512;

std::string littleEndian(std::uint32_t number, int bytes)
{
    std::string text;
    for (int i = 0; i < bytes; ++i)
        text += static_cast<char>(number >> (8 * i) & 0xff);
    return text;
}

std::string trailerOf(const std::string& text)
{
    const auto sum = crc32(0, reinterpret_cast<const Bytef*>(text.data()), uInt(text.size()));
    return littleEndian(std::uint32_t(sum), 4) + littleEndian(std::uint32_t(text.size()), 4);
}

std::string deflated(z_stream& stream, const std::string& text, int flush)
{
    std::string out(text.size() + 1024, '\0');
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
    stream.avail_in = uInt(text.size());
    stream.next_out = reinterpret_cast<Bytef*>(out.data());
    stream.avail_out = uInt(out.size());
    deflate(&stream, flush);
    out.resize(out.size() - stream.avail_out);
    return out;
}

z_stream rawDeflater()
{
    z_stream stream = {};
    deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
    return stream;
}

} // namespace

void write(const std::string& path, const std::string& content)
{
    std::ofstream(path, std::ios::binary) << content;
}

std::string read(const std::string& path)
{
    std::ostringstream content;
    content << std::ifstream(path, std::ios::binary).rdbuf();
    return content.str();
}

std::string gzip(const std::string& text)
{
    z_stream stream = rawDeflater();
    const std::string data = deflated(stream, text, Z_FINISH);
    deflateEnd(&stream);
    return std::string("\x1f\x8b\x08\0\0\0\0\0\0\3", 10) + data + trailerOf(text);
}

std::string dictzip(const std::string& text, std::size_t chunkLength)
{
    z_stream stream = rawDeflater();
    std::string data;
    std::string lengths;
    std::uint32_t chunks = 0;
    for (std::size_t at = 0; at < text.size() || at == 0; at += chunkLength, ++chunks) {
        const bool last = at + chunkLength >= text.size();
        const std::string part =
            deflated(stream, text.substr(at, chunkLength), last ? Z_FINISH : Z_FULL_FLUSH);
        lengths += littleEndian(std::uint32_t(part.size()), 2);
        data += part;
    }
    deflateEnd(&stream);
    const std::string table = littleEndian(1, 2) + littleEndian(std::uint32_t(chunkLength), 2)
                              + littleEndian(chunks, 2) + lengths;
    const std::string extra = "RA" + littleEndian(std::uint32_t(table.size()), 2) + table;
    return std::string("\x1f\x8b\x08\x0c\0\0\0\0\0\3", 10)
           + littleEndian(std::uint32_t(extra.size()), 2) + extra + std::string("name\0", 5) + data
           + trailerOf(text);
}

std::string base64(std::uint64_t number)
{
    static const char digits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    do {
        text.insert(text.begin(), digits[number % 64]);
        number /= 64;
    } while (number > 0);
    return text;
}

std::string bigEndian(std::uint64_t number, int bytes)
{
    std::string text;
    for (int i = bytes - 1; i >= 0; --i)
        text += static_cast<char>(number >> (8 * i) & 0xff);
    return text;
}

void writeDict(const std::string& stem, const std::vector<Entry>& entries, bool compressed,
               const std::string& title)
{
    std::string body;
    std::string index;
    const auto add = [&](const Entry& entry) {
        index += entry.head + "\t" + base64(body.size()) + "\t" + base64(entry.text.size()) + "\n";
        body += entry.text;
    };
    if (!title.empty())
        add({"00-database-short", title + "\n"});
    for (const Entry& entry : entries)
        add(entry);
    write(stem + ".index", index);
    if (compressed)
        write(stem + ".dict.dz", dictzip(body, ChunkLength));
    else
        write(stem + ".dict", body);
}

void writeStarDict(const std::string& stem, const StarDict& content)
{
    std::string body;
    std::string index;
    std::string synonyms;
    for (const Entry& entry : content.entries) {
        index += entry.head + '\0' + bigEndian(body.size(), content.offsetBits / 8)
                 + bigEndian(entry.text.size(), 4);
        body += entry.text;
    }
    for (const auto& [word, number] : content.synonyms)
        synonyms += word + '\0' + bigEndian(number, 4);
    std::string info = "StarDict's dict ifo file\nversion=2.4.2\nwordcount="
                       + std::to_string(content.entries.size()) + "\nidxfilesize="
                       + std::to_string(index.size()) + "\nbookname=" + content.title + "\n";
    if (!content.type.empty())
        info += "sametypesequence=" + content.type + "\n";
    if (content.offsetBits != 32)
        info += "idxoffsetbits=" + std::to_string(content.offsetBits) + "\n";
    if (!content.synonyms.empty()) {
        info += "synwordcount=" + std::to_string(content.synonyms.size()) + "\n";
        write(stem + ".syn", synonyms);
    }
    write(stem + ".ifo", info);
    if (content.compressed) {
        write(stem + ".idx.gz", gzip(index));
        write(stem + ".dict.dz", dictzip(body, ChunkLength));
    } else {
        write(stem + ".idx", index);
        write(stem + ".dict", body);
    }
}

} // namespace dicfiles
