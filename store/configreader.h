#ifndef CONFIGREADER_H
#define CONFIGREADER_H

#include "store/settingstable.h"

#include <array>
#include <atomic>
#include <memory>

class QSettings;

/*
 * The user's settings: "/apps/config/config.ini" and a copy of every value in memory.
 *
 * No range is checked. A value that is no number reads as 0, a missing one as its preset
 * (store/settingstable.h). Setters write to the file at once; some also tell the engines.
 *
 * Getters may be called by any thread, once the interface thread has made the instance; setters by
 * the interface thread, and by a worker that it waits for.
 */
class ConfigReader
{
public:
    static ConfigReader* reader;

    /* The one instance; the first call reads the file and tells the speech engine its boost. */
    static ConfigReader* Instance();

    /* Writes what is pending and deletes the instance. Nothing may call Instance() afterwards:
     * the pointer stays as it is. */
    static void quitFun();

    /* Which hand holds the pen; read from the file at each call. */
    int getHandLR();

    int getStatisInfo() const { return value(settings::Slot::Statistic); }
    int getPuncPauseInfo() const { return value(settings::Slot::PuncPause); }
    int getWordPauseInfo() const { return value(settings::Slot::WordPause); }
    int getTTSInfo() const { return value(settings::Slot::Voice); }   // voice index
    int getDelayInfo() const { return value(settings::Slot::Delay); } // seconds
    int getLanInfo() const { return value(settings::Slot::ScanLan); } // row of the scan languages
    int getScanDirectInfo() const { return value(settings::Slot::ScanDirect); }
    int getReadControlInfo() const { return value(settings::Slot::ReadControl); }
    int getVolumInfo() const { return value(settings::Slot::Volume); }
    int getReadSpeedInfo() const { return value(settings::Slot::Speed); }
    int getTTSDict() const { return value(settings::Slot::VoiceDict); }
    int getLanDict() const { return value(settings::Slot::LanDict); } // row of the dictionaries
    int getScanDirectDict() const { return value(settings::Slot::ScanDirectDict); }
    int getVolumDict() const { return value(settings::Slot::VolumeDict); }
    int getReadControlDict() const { return value(settings::Slot::ReadControlDict); }
    int getReadTransDict() const { return value(settings::Slot::ReadTransDict); }
    int getLanDictInfo() const { return value(settings::Slot::LanDictInfo); }
    int getTalkingMenuInfo() const { return value(settings::Slot::TalkingMenu); }
    int getMenuLanInfo() const { return value(settings::Slot::MenuLan); } // row of the languages
    int getReadSpeedInfoForDict() const { return value(settings::Slot::SpeedDict); }
    int getSpanishInfo() const { return value(settings::Slot::Spanish); }

    /* The language code of the current dictionary's headwords; -1 when there is none. */
    int getCurLanDict() const;

    /* The recognition engine's language for a scan language's code. */
    int getEngineID(int language) const;

    void setStatisInfo(int v) { store(settings::Slot::Statistic, v); }
    void setPuncPauseInfo(int v) { store(settings::Slot::PuncPause, v); }
    void setWordPauseInfo(int v) { store(settings::Slot::WordPause, v); }
    void setDelayInfo(int v) { store(settings::Slot::Delay, v); }
    void setReadConrolInfo(int v) { store(settings::Slot::ReadControl, v); }
    void setScanDirectInfo(int v) { store(settings::Slot::ScanDirect, v); }
    void setReadConrolDict(int v) { store(settings::Slot::ReadControlDict, v); }
    void setReadTransDict(int v) { store(settings::Slot::ReadTransDict, v); }
    void setScanDirectDict(int v) { store(settings::Slot::ScanDirectDict, v); }
    void setVolumDict(int v) { store(settings::Slot::VolumeDict, v); }
    void setReadSpeedInfoForDict(int v) { store(settings::Slot::SpeedDict, v); }
    void setLanDictInfo(int v) { store(settings::Slot::LanDictInfo, v); }
    void setLanDict(int v) { store(settings::Slot::LanDict, v); }

    /* Tells the speech engine the volume (setting x 20). */
    void setVolumInfo(int v);

    /* 1: the variant of the Spanish voice, from the next choice of a voice or language on. Tells
     * the speech engine the volume. */
    void setSpanishInfo(int v);

    /* Tells the speech engine the voice and the volume: for the scan language, for the current
     * dictionary. */
    void setTTSInfo(int v);
    void setTTSDict(int v);

    /* Tells the speech engine the speed (setting x 8; x 15 for the Spanish variant). */
    void setReadSpeedInfo(int v);

    /* Tells both engines the scan language, and the speech engine voice, speed (setting x 8) and
     * volume. Called once at start, too. */
    void setLanInfo(int v);

private:
    ConfigReader();
    ~ConfigReader();

    void init();
    int value(settings::Slot slot) const;
    int readFresh(settings::Slot slot) const;
    void store(settings::Slot slot, int v);
    int scanLanguage() const;
    void applyVolume() const;

    std::array<std::atomic<int>, settings::SlotCount> m_values = {};
    std::unique_ptr<QSettings> m_settings;
};

#endif
