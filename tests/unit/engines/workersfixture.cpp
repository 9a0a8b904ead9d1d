#include "tests/unit/engines/workersfixture.h"

#include "engines/ocrpen.h"
#include "engines/translater.h"
#include "engines/ttsplayer.h"
#include "tests/fakes/calls.h"
#include "tests/unit/engines/freshsettings.h"

void WorkersFixture::init()
{
    m_root = std::make_unique<TestRoot>();
    fakes::reset();
    freshSettings();
    TTSPlayer::Instance();
    CallLog::clear();
}

void WorkersFixture::cleanup()
{
    Translater::quitFun();
    fakes::reset();
    OCRPen::quitFun();
    TTSPlayer::quitFun();
    m_root.reset();
}
