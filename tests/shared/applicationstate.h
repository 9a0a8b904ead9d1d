#ifndef APPLICATIONSTATE_H
#define APPLICATIONSTATE_H

#include "app/widgetchange.h"
#include "engines/flags.h"
#include "engines/ocrpen.h"
#include "engines/recchar.h"
#include "engines/translater.h"
#include "engines/ttsplayer.h"
#include "store/configreader.h"
#include "store/filemanager.h"
#include "store/languagemanager.h"
#include "tests/fakes/calllog.h"
#include "tests/fakes/testroot.h"

/*
 * The application as it stands before its main window is made: a run root of its own, fresh
 * scripted engines, stores loaded. Undone with the object, so that each test begins anew.
 */
class ApplicationState
{
public:
    ApplicationState() { fakes::reset(); }

    ~ApplicationState()
    {
        forgetSingletons();
        fakes::reset();
    }

    /* Loads the stores as start-up does; call it after settings and files have been written. */
    void load()
    {
        LanguageManager::Instance()->init();
        ConfigReader::Instance()->setLanInfo(ConfigReader::Instance()->getLanInfo());
        FileManager::Instance()->init();
        FileManager::Instance()->getFileList();
    }

    /* For what the main window's end has deleted already: pointers stay as they are then. */
    void singletonsAreGone()
    {
        ConfigReader::reader = nullptr;
        FileManager::manager = nullptr;
        WidgetChange::myChange = nullptr;
    }

    TestRoot root;

private:
    void forgetSingletons()
    {
        OCRPen::quitFun();
        TTSPlayer::quitFun();
        Translater::quitFun();
        FileManager::quitFun();
        if (ConfigReader::reader)
            ConfigReader::quitFun();
        if (WidgetChange::myChange)
            WidgetChange::quitFun();
        LanguageManager::quitFun();
        singletonsAreGone();
        g_KeyFlag = false;
        g_InDict = false;
    }
};

#endif
