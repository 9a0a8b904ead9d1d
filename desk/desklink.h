/*
 * Everything that the desk and the pen may do to each other, on one page.
 *
 * The pen is a process of its own. It meets the desk in five places:
 *
 *  1. Screen and keys: the pen is a Wayland client of the desk (WAYLAND_DISPLAY).
 *  2. Launcher messages: the desk listens on the channel "mainprocess" and sends to "scanprocess"
 *     (platform/qcopchannel.h); both share XDG_RUNTIME_DIR.
 *  3. Files: the pen's storage is the run root (SWIPELINE_ROOT); the desk prepares it and looks
 *     at it. While the pen runs it does two things to it that a hand could do: it takes the card
 *     out and puts it back (the folder mnt/mmc is moved away and back), and it fills the memory
 *     (while the file FullMarker is there, no byte is free and no file on the card can grow).
 *  4. Sound: SDL's audio output, or a WAV file written at the pace of speech
 *     (SWIPELINE_WAV names the file; then nothing sounds).
 *  5. The link described here: camera frames to the pen, reports from the pen.
 *
 * The link is an AF_UNIX socket of type SOCK_SEQPACKET, at the path in SWIPELINE_DESK. The desk
 * listens. Each engine of the pen that wants to talk connects on its own and says who it is with
 * a Hello. Without the variable, or without a desk, the engines work on their own (and the scan
 * engine has no camera).
 *
 * One packet is one message: a Header, then `length` bytes of body. Both ends run on the
 * same machine from the same build: native byte order, no negotiation. A packet with another
 * magic number or version, with an unknown kind, or whose length does not fit is ignored.
 * Times are microseconds of CLOCK_MONOTONIC.
 */
#ifndef DESKLINK_H
#define DESKLINK_H

#include <cstdint>

namespace desklink {

constexpr std::uint32_t Magic = 0x4c445753; // "SWDL"
constexpr std::uint16_t Version = 1;
constexpr std::uint32_t MaxPacketBytes = 112 * 1024; // holds the largest frame
constexpr const char* SocketVariable = "SWIPELINE_DESK";
constexpr const char* FullMarker = "proc/storage-full"; // below the run root
constexpr const char* WavVariable = "SWIPELINE_WAV";

enum class Kind : std::uint16_t {
    // pen to desk, first packet of a connection: which engine this is (Hello)
    Hello = 1,

    // desk to scan engine
    TipDown = 10, // the tip is pressed on the paper (Tip)
    Frame = 11,   // one camera frame (FrameHead, then width x height bytes, 0 black to 255 white)
    TipUp = 12,   // the tip is lifted (Tip)

    // scan engine to desk
    CameraOn = 20,    // the engine was started and wants frames; no body
    CameraOff = 21,   // the engine was stopped; no body
    SwipeResult = 22, // what became of a swipe (SwipeResultHead, then the reason in UTF-8)

    // speech engine to desk
    SpeechBegin = 30, // a text begins to be spoken (SpeechBeginHead, then the text in
                      // UTF-16, cut to what fits into a packet)
    SpeechWord = 31,  // a word begins to be heard (SpeechWordBody)
    SpeechEnd = 32,   // the text is finished (SpeechEndBody)

    // display switch to desk
    Refresh = 40 // oled_update_set was called (RefreshBody)
};

enum class Role : std::uint32_t { Scan = 1, Speech = 2, Display = 3 };

struct Header
{
    std::uint32_t magic;
    std::uint16_t version;
    Kind kind;
    std::uint32_t length; // bytes of the body
};

struct Hello
{
    Role role;
    std::uint32_t pid;
};

struct Tip
{
    std::int64_t timeUs;
};

struct FrameHead
{
    std::int64_t timeUs; // when the frame was exposed
    std::uint16_t width; // pixels, 16 to 320
    std::uint16_t height;
    std::uint16_t dpi; // resolution on the paper
    std::uint16_t reserved;
};

enum class SwipeOutcome : std::uint32_t {
    Delivered = 0, // a panorama went to the receiver
    NoPrint = 1,   // nothing dark on the paper
    BadMotion = 2, // the frames do not join
    Stopped = 3    // the stop signal was set, or nobody receives
};

struct SwipeResultHead
{
    SwipeOutcome outcome;
    std::uint32_t frames; // frames received
    std::uint32_t width;  // of the panorama, 0 without one
    std::uint32_t height;
};

struct SpeechBeginHead
{
    std::int64_t timeUs;
    std::uint32_t utterance; // counts from 1; the same in the words and the end that follow
    std::int32_t language;   // voice code in force
    std::int32_t speed;
    std::int32_t volume;
};

struct SpeechWordBody
{
    std::int64_t timeUs; // when the word is heard
    std::uint32_t utterance;
    std::int32_t offset; // UTF-16 code units into the text of SpeechBegin
    std::int32_t length;
    std::uint32_t reserved;
};

struct SpeechEndBody
{
    std::int64_t timeUs;
    std::uint32_t utterance;
    std::uint32_t stopped; // 1 when it was cut short
};

struct RefreshBody
{
    std::int32_t on;
};

} // namespace desklink

#endif
