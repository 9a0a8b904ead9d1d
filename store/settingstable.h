#ifndef SETTINGSTABLE_H
#define SETTINGSTABLE_H

#include <QLatin1String>

#include <array>

/* The settings of the device, as one table. Each is an integer. */
namespace settings {

/* Where a setting is held in memory. */
enum class Slot {
    HandLR,
    Statistic,
    PuncPause,
    WordPause,
    Voice,
    Delay,
    ScanLan,
    ScanDirect,
    ReadControl,
    Volume,
    Speed,
    VoiceDict,
    LanDict,
    ScanDirectDict,
    VolumeDict,
    ReadControlDict,
    ReadTransDict,
    LanDictInfo,
    TalkingMenu,
    MenuLan,
    SpeedDict,
    Spanish,
    Boost,
    BoostLevel,
    Count
};

/* When a setting is read. */
enum class Use {
    Cached, // at start; from then on memory is right
    Fresh   // from the file each time it is asked for
};

struct Row
{
    Slot slot;
    QLatin1String key; // group/key of config.ini
    int preset;        // when the file does not have the key
    Use use;
};

constexpr int SlotCount = static_cast<int>(Slot::Count);

/* The rows in the order of the slots. */
extern const std::array<Row, SlotCount> Table;

const Row& rowOf(Slot slot);

} // namespace settings

#endif
