#ifndef FRESHSETTINGS_H
#define FRESHSETTINGS_H

#include "store/configreader.h"
#include "store/languagemanager.h"

/* Reads settings and language tables of the run root anew, as at the start of the process. */
inline void freshSettings()
{
    LanguageManager::quitFun();
    LanguageManager::Instance()->init();
    if (ConfigReader::reader) {
        ConfigReader::quitFun();
        ConfigReader::reader = nullptr;
    }
    ConfigReader::Instance();
}

#endif
