#include "tests/unit/store/settingsfixture.h"

#include "engines/ocrpen.h"
#include "engines/translater.h"
#include "engines/ttsplayer.h"
#include "store/languagemanager.h"
#include "tests/fakes/calls.h"

#include <QFile>
#include <QSettings>
#include <QTest>

void SettingsFixture::init()
{
    m_root.emplace();
    QVERIFY(QFile::remove(m_root->path(ConfigFile)));
    fakes::reset();
    QCOMPARE(LanguageManager::Instance()->init(), 0);
}

void SettingsFixture::cleanup()
{
    if (ConfigReader::reader != nullptr)
        ConfigReader::quitFun();
    ConfigReader::reader = nullptr;
    OCRPen::quitFun();
    TTSPlayer::quitFun();
    Translater::quitFun();
    LanguageManager::quitFun();
}

QVariant SettingsFixture::stored(const QString& key) const
{
    ConfigReader::quitFun();
    ConfigReader::reader = nullptr;
    return QSettings(m_root->path(ConfigFile), QSettings::IniFormat).value(key);
}

void SettingsFixture::setOutside(const QString& key, int value) const
{
    QFile file(m_root->path(ConfigFile));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const qsizetype slash = key.indexOf(u'/');
    file.write(QStringLiteral("[%1]\n%2=%3\n")
                   .arg(key.left(slash), key.mid(slash + 1))
                   .arg(value)
                   .toUtf8());
}
