#ifndef Y4MPARSER_H
#define Y4MPARSER_H

#include "open/iap/camerapicture.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/*
 * Takes a video in the YUV4MPEG2 form apart, in pieces of any length as they come. Of each picture
 * only the brightness is used; 8 bits a sample, every usual arrangement of colour, or none
 * ("mono"). "XDPI=300" among the words of the head tells the resolution on the paper.
 */
class Y4mParser
{
public:
    enum class Found { Nothing, Picture, Rubbish };

    void add(const std::uint8_t* bytes, std::size_t count);
    /* The next picture of what was added, once: then picture() is it until the next call. */
    Found next();
    /* Reads the head only; no picture is taken. */
    Found peekHead();

    /* Whether the head has been read, so that what follows is known. */
    bool hasHead() const { return m_width > 0; }
    bool isInPicture() const { return m_begin < m_bytes.size(); } // of which some is missing
    CameraPicture picture() const;                                // without a time
    double picturesPerSecond() const { return m_rate; }           // 0 when the head does not tell
    double dpi() const { return m_dpi; }                          // the same
    const std::string& problem() const { return m_problem; }

private:
    Found rubbish(const std::string& problem); // from then on
    Found readLine(std::string_view mark, const char* problem, std::string_view& line);
    bool readHead(std::string_view head);

    std::vector<std::uint8_t> m_bytes; // added and not used up
    std::size_t m_begin = 0;
    const std::uint8_t* m_picture = nullptr;
    int m_width = 0;
    int m_height = 0;
    std::size_t m_pictureBytes = 0; // with colours
    double m_rate = 0.0;
    double m_dpi = 0.0;
    std::string m_problem;
};

#endif
