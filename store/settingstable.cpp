#include "store/settingstable.h"

namespace settings {

// The spelling of "Volum" is what the files of existing devices have. Both voices share one key,
// so that they are the same after each start.
const std::array<Row, SlotCount> Table = {{
    {Slot::HandLR, QLatin1String("SystemSet/HandLR"), 0, Use::Fresh},
    {Slot::Statistic, QLatin1String("SystemSet/Statistic"), 0, Use::Cached},
    {Slot::PuncPause, QLatin1String("SystemSet/PUNCTUATIONPAUSE"), 1, Use::Cached},
    {Slot::WordPause, QLatin1String("SystemSet/WORDPAUSE"), 0, Use::Cached},
    {Slot::Voice, QLatin1String("SystemSet/TTS"), 0, Use::Cached},
    {Slot::Delay, QLatin1String("SystemSet/Delay"), 0, Use::Cached},
    {Slot::ScanLan, QLatin1String("SystemSet/scanLan"), 0, Use::Cached},
    {Slot::ScanDirect, QLatin1String("InfoScan/ScanDirect"), 0, Use::Cached},
    {Slot::ReadControl, QLatin1String("InfoScan/ReadControl"), 0, Use::Cached},
    {Slot::Volume, QLatin1String("SystemSet/Volum"), 4, Use::Cached},
    {Slot::Speed, QLatin1String("SystemSet/Speed"), 6, Use::Cached},
    {Slot::VoiceDict, QLatin1String("SystemSet/TTS"), 0, Use::Cached},
    {Slot::LanDict, QLatin1String("DictTrans/LanDict"), 0, Use::Cached},
    {Slot::ScanDirectDict, QLatin1String("DictTrans/ScanDirect"), 0, Use::Cached},
    {Slot::VolumeDict, QLatin1String("DictTrans/Volum"), 4, Use::Cached},
    {Slot::ReadControlDict, QLatin1String("DictTrans/ReadControl"), 0, Use::Cached},
    {Slot::ReadTransDict, QLatin1String("DictTrans/ReadTrans"), 0, Use::Cached},
    {Slot::LanDictInfo, QLatin1String("DictTrans/LanDictInfo"), 0, Use::Cached},
    {Slot::TalkingMenu, QLatin1String("SystemSet/MenuTalking"), 0, Use::Cached},
    {Slot::MenuLan, QLatin1String("SystemSet/Lan"), 0, Use::Cached},
    {Slot::SpeedDict, QLatin1String("DictTrans/ReadSpeed"), 5, Use::Cached},
    {Slot::Spanish, QLatin1String("SystemSet/SPANISH"), 0, Use::Cached},
    {Slot::Boost, QLatin1String("SystemSet/Boost"), 1, Use::Fresh},
    {Slot::BoostLevel, QLatin1String("SystemSet/BoostLevel"), 0, Use::Fresh},
}};

const Row& rowOf(Slot slot)
{
    return Table[static_cast<size_t>(slot)];
}

} // namespace settings
