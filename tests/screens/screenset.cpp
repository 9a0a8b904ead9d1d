#include "tests/screens/screenset.h"

#include "app/mystyle.h"
#include "app/palette.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>

namespace {

// The font of the package is registered by its path; "nits" then means it.
void registerFont()
{
    const int id = QFontDatabase::addApplicationFont(QStringLiteral(SWIPELINE_SCREEN_FONT));
    if (id == -1)
        qFatal("cannot load the font %s", SWIPELINE_SCREEN_FONT);
    QFont::insertSubstitutions(QStringLiteral("nits"), QFontDatabase::applicationFontFamilies(id));
}

} // namespace

void screenset::beforeApplication()
{
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    for (const char* name : {"QT_SCALE_FACTOR", "QT_FONT_DPI", "QT_SCREEN_SCALE_FACTORS",
                             "QT_STYLE_OVERRIDE", "QT_QPA_PLATFORMTHEME"})
        qunsetenv(name);
}

void screenset::afterApplication()
{
    if (!qEnvironmentVariableIsSet("FONTCONFIG_FILE"))
        registerFont();
    QApplication::setStyle(new MyStyle);
    QApplication::setFont(QFont(QStringLiteral("nits")));
    QApplication::setPalette(screenPalette());
}
