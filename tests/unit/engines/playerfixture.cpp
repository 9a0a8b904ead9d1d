#include "tests/unit/engines/playerfixture.h"

#include "engines/flags.h"
#include "engines/ttsplayer.h"
#include "tests/fakes/calls.h"

void PlayerFixture::init()
{
    m_root = std::make_unique<TestRoot>();
    fakes::reset();
    TTSPlayer::editScan = nullptr;
    TTSPlayer::editDict = nullptr;
    TTSPlayer::scanPlayFlag = true;
    g_InDict = false;
}

void PlayerFixture::cleanup()
{
    TTSPlayer::quitFun();
    fakes::reset();
    m_root.reset();
}
