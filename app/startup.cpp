#include "app/startup.h"

#include "app/mainwindow.h"
#include "app/mystyle.h"
#include "app/palette.h"
#include "app/processglobals.h"
#include "app/storagecheck.h"
#include "platform/devicepaths.h"
#include "store/configreader.h"
#include "store/filemanager.h"
#include "store/languagemanager.h"

#include <QApplication>
#include <QFont>
#include <QSettings>
#include <QTranslator>
#include <iterator>

namespace {

constexpr int Failed = -1;

struct Translation
{
    int code;
    const char* file;
};

constexpr Translation Translations[] = {
    {1, "/apps/res/Language_Chn_1.qm"},   {101, "/apps/res/Language_Eng_1.qm"},
    {104, "/apps/res/Language_Ger_1.qm"}, {103, "/apps/res/Language_Fre_1.qm"},
    {106, "/apps/res/Language_Ita_1.qm"}, {105, "/apps/res/Language_Spa_1.qm"},
    {151, "/apps/res/Language_Rus_1.qm"}, {2, "/apps/res/Language_Tw_1.qm"},
};

int readSetting(const QString& key)
{
    const QSettings settings(devicePath(QStringLiteral("/apps/config/config.ini")),
                             QSettings::IniFormat);
    return settings.value(key, 0).toInt();
}

void installTranslation(QApplication& application, QTranslator& translator, int languageCode)
{
    const char* file = translationFor(languageCode);
    if (!file)
        return;
    const bool loaded =
        translator.load(devicePath(QString::fromLatin1(file)), QString(), QString(), QString());
    if (loaded)
        application.installTranslator(&translator);
}

// From the settings to the end of the event loop; the main window lives in here.
int runWindow(QApplication& application)
{
    ConfigReader::Instance()->setLanInfo(readSetting(QStringLiteral("SystemSet/scanLan")));
    if (Init() == Failed)
        return Failed;

    MainWindow window;
    window.show();
    window.SendShow();
    QApplication::setPalette(screenPalette());
    warnWhenStorageLow();
    // The launcher may have closed the window while the warning was shown, and the event loop to
    // come would not hear of it.
    return window.isVisible() ? application.exec() : 0;
}

} // namespace

const char* translationFor(int languageCode)
{
    for (const Translation& translation : Translations) {
        if (translation.code != languageCode)
            continue;
        if (languageCode == 1)
            g_Lan = true;
        else if (languageCode == 101)
            g_Lan = false;
        return translation.file;
    }
    return nullptr;
}

int Init()
{
    FileManager* files = FileManager::Instance();
    const int result = files->init();
    files->getFileList();
    return result;
}

int languageInit()
{
    return LanguageManager::Instance()->init();
}

int runApplication(int argc, char** argv)
{
    ensureScanFolder();

    QApplication application(argc, argv);
    qApp1 = &application;
    QApplication::setStyle(new MyStyle);
    QApplication::setFont(QFont(QStringLiteral("nits")));
    QApplication::setCursorFlashTime(0);

    int result = Failed;
    {
        QTranslator translator;
        translatorpass = &translator;
        const int language = readSetting(QStringLiteral("SystemSet/Lan"));
        if (languageInit() != Failed) {
            installTranslation(application, translator,
                               LanguageManager::Instance()->getLanIntByID(language));
            result = runWindow(application);
        }
        translatorpass = nullptr;
    }
    qApp1 = nullptr;
    return result;
}
