// MainWindow, settings: the menus of which one value is chosen, and how menus and pages open and
// end.

#include "app/mainwindow.h"

#include "app/languagename.h"
#include "app/scanlanguagemenu.h"
#include "app/settingsvalues.h"
#include "app/widgetchange.h"
#include "dict/dictscanedit.h"
#include "editor/myedit.h"
#include "engines/csoundthread.h"
#include "engines/cttsthreadforset.h"
#include "engines/flags.h"
#include "engines/scanstart.h"
#include "platform/zembra_iap.h"
#include "store/configreader.h"
#include "store/languagemanager.h"
#include "widgets/mysubmenu.h"
#include "widgets/sandglass.h"

#include <QAction>
#include <QApplication>

namespace {

// Places in the lists are those of settingsvalues.
QStringList delayTexts()
{
    return {MainWindow::tr("none"), MainWindow::tr("1s"), MainWindow::tr("2s"),
            MainWindow::tr("3s")};
}

QStringList voiceTexts()
{
    return {MainWindow::tr("British English"), MainWindow::tr("American English")};
}

QStringList directionTexts()
{
    return {MainWindow::tr("Horizontal Text Scan"), MainWindow::tr("Vertical Text Scan")};
}

} // namespace

MySubMenu* MainWindow::newMenu(const QString& title,
                               const QVector<std::pair<QString, ItemSlot>>& items)
{
    auto* menu = new MySubMenu(title, this);
    for (const auto& [text, slot] : items)
        connect(menu->addAction(text), &QAction::triggered, this, slot);
    return menu;
}

void MainWindow::openMenu(MySubMenu* menu)
{
    menu->setPrevWidget(WidgetChange::Instance()->getCurWidget());
    menu->setPrevQuickWidget(workScreen());
    menu->setQuickFlag(workScreen() != nullptr);
    connectMenu(menu);
    connect(menu, &MySubMenu::escPressed, this, [this, menu] { endFlowScreen(menu); });
    openFlowScreen(menu);
}

void MainWindow::openFlowScreen(QWidget* screen)
{
    screen->setGeometry(rect());
    m_flowScreens.append(screen);
    WidgetChange::Instance()->Go2NewWidget(screen);
    if (m_sandGlass)
        m_sandGlass->raise(); // what it tells of goes on
}

// Deleted later, as the key event that leaves the screen is the screen's own.
void MainWindow::endFlowScreen(QWidget* screen)
{
    if (m_flowScreens.removeOne(screen))
        screen->deleteLater();
}

// A translation that was called up from a menu leads back to it.
void MainWindow::endFlowScreens()
{
    const QWidget* const kept = g_InDict && m_transEdit ? m_transEdit->getPrevWidget() : nullptr;
    while (!m_flowScreens.isEmpty() && m_flowScreens.last() != kept)
        endFlowScreen(m_flowScreens.last());
}

bool MainWindow::editorIsBelow() const
{
    return m_editor && m_editor->isBound();
}

// Where Enter on a value leads: the translate screen, or the editor with a file open.
QWidget* MainWindow::workScreen() const
{
    if (g_InDict)
        return m_transEdit;
    return editorIsBelow() ? m_editor : nullptr;
}

void MainWindow::returnToEditor()
{
    WidgetChange* screens = WidgetChange::Instance();
    if (!editorIsBelow() || screens->getCurWidget() == m_editor)
        return;
    if (g_InDict) {
        m_transEdit->stopReading();
        leaveTranslation();
    }
    screens->Go2PrevWidget(screens->getCurWidget(), m_editor);
    endFlowScreens();
}

void MainWindow::openChoice(const Choice& choice)
{
    MySubMenu* menu = newMenu(choice.title, {});
    for (const QString& value : choice.values)
        menu->addAction(value);
    menu->setCurIndex(choice.current);
    menu->setLeafNode(true);
    connect(menu, &MySubMenu::escPressed, this, choice.change);
    connect(menu, &MySubMenu::okPressed, this, &MainWindow::setBiState);
    openMenu(menu);
}

void MainWindow::newSet()
{
    openMenu(newMenu(tr("Scan settings"), {{tr("Scan languages"), &MainWindow::newLanguage},
                                           {tr("Reading settings"), &MainWindow::newTTS}}));
}

QVector<ScanLanInfoForSort> MainWindow::scanLanguages() const
{
    const LanguageManager* manager = LanguageManager::Instance();
    QVector<ScanLanInfoForSort> languages;
    for (int row = 0; row < manager->getLanguageSize(); ++row)
        languages.append({languagename::shown(manager->getChnByID(row)), row});
    const int interfaceLanguage =
        manager->getLanIntByID(ConfigReader::Instance()->getMenuLanInfo());
    sortScanLanMenu(languages, localeOfLanguage(interfaceLanguage));
    return languages;
}

// A language that is still being set up counts as chosen.
int MainWindow::scanLanguageRow() const
{
    return m_wantedLanguage >= 0 ? m_wantedLanguage : ConfigReader::Instance()->getLanInfo();
}

void MainWindow::newLanguage()
{
    const QVector<ScanLanInfoForSort> languages = scanLanguages();
    QStringList names;
    for (const ScanLanInfoForSort& language : languages)
        names.append(language.displayName);
    openChoice({tr("Scan languages"), names, placeOfLanguage(languages, scanLanguageRow()),
                &MainWindow::scanLanChange});
}

void MainWindow::scanLanChange(int index, const QString& text)
{
    Q_UNUSED(text)
    const QVector<ScanLanInfoForSort> languages = scanLanguages();
    if (index < 0 || index >= languages.size()
        || index == placeOfLanguage(languages, scanLanguageRow()))
        return;
    m_wantedLanguage = languages.at(index).index;
    showSandGlass();
    if (!m_settingsThread->isRunning())
        applyScanLanguage();
}

void MainWindow::applyScanLanguage()
{
    m_languageInSetUp = m_wantedLanguage;
    m_settingsThread->setFlag(m_languageInSetUp);
    m_settingsThread->start(QThread::InheritPriority);
}

// The user may have chosen another language while the worker was busy with one.
void MainWindow::finishTtsSetForSet()
{
    if (m_settingsThread->isRunning())
        return;
    if (m_wantedLanguage != m_languageInSetUp) {
        applyScanLanguage();
        return;
    }
    const int row = std::exchange(m_wantedLanguage, -1);
    m_languageInSetUp = -1;
    endSetUpSign();
    if (row < 0)
        return;
    scanstart::applyLanguage();
    tellSetUp(languagename::shown(LanguageManager::Instance()->getChnByID(row)));
}

// The sign is one for all who work in the background.
void MainWindow::endSetUpSign()
{
    if (m_wantedLanguage < 0 && !m_dictIsAwaited)
        endBusy();
}

// What has been set up is told in front of what was said last; a message is not said twice.
void MainWindow::tellSetUp(const QString& what)
{
    if (isReadingAloud())
        return; // what the user listens to goes on
    if (QApplication::activeModalWidget()) {
        talkingMenuTTS(0, what, QString());
        return;
    }
    confirm(what);
    talkingMenuTTS(0, m_saidText, m_saidInstruction);
}

void MainWindow::delaySet()
{
    const int stored = ConfigReader::Instance()->getDelayInfo();
    openChoice({tr("Read delay"), delayTexts(),
                settingsvalues::nearestIndex(settingsvalues::readDelays(), stored),
                &MainWindow::delayChange});
}

void MainWindow::delayChange(int index, const QString& text)
{
    Q_UNUSED(text)
    ConfigReader* config = ConfigReader::Instance();
    const auto values = settingsvalues::readDelays();
    if (!settingsvalues::changes(values, index, config->getDelayInfo()))
        return;
    config->setDelayInfo(values[index]);
    confirm(delayTexts().at(index));
}

void MainWindow::newTTSSet()
{
    const int stored = ConfigReader::Instance()->getTTSInfo();
    openChoice({tr("TTS Setting"), voiceTexts(),
                settingsvalues::nearestIndex(settingsvalues::voices(), stored),
                &MainWindow::scanTTSChange});
}

// Both modes store the voice under one key, and each has a way of its own to choose the voice's
// code.
void MainWindow::scanTTSChange(int index, const QString& text)
{
    Q_UNUSED(text)
    ConfigReader* config = ConfigReader::Instance();
    const auto values = settingsvalues::voices();
    if (!settingsvalues::changes(values, index, config->getTTSInfo()))
        return;
    config->setTTSInfo(values[index]);
    if (g_InDict)
        config->setTTSDict(values[index]);
    confirm(voiceTexts().at(index));
}

void MainWindow::newDic()
{
    openDirections(&MainWindow::scanDirectChange);
}

void MainWindow::newDicQuick()
{
    openDirections(&MainWindow::scanDirectChangeQuick);
}

void MainWindow::openDirections(ChangeSlot change)
{
    const int stored = ConfigReader::Instance()->getScanDirectInfo();
    openChoice({tr("Scan Direction"), directionTexts(),
                settingsvalues::nearestIndex(settingsvalues::directions(), stored), change});
}

bool MainWindow::chooseDirection(int index)
{
    ConfigReader* config = ConfigReader::Instance();
    const auto values = settingsvalues::directions();
    if (!settingsvalues::changes(values, index, config->getScanDirectInfo()))
        return false;
    config->setScanDirectInfo(values[index]);
    confirm(directionTexts().at(index));
    return true;
}

void MainWindow::scanDirectChange(int index, const QString& text)
{
    Q_UNUSED(text)
    chooseDirection(index);
}

void MainWindow::scanDirectChangeQuick(int index, const QString& text)
{
    Q_UNUSED(text)
    if (!chooseDirection(index) || !editorIsBelow())
        return;
    m_editor->switchScanRection();
    m_editor->setScanInit();
    m_editor->setStopFlag(true); // the start has cleared it, and a menu is still open
}
