// MainWindow, dictionary mode: its menus. The reading settings of the translate screen, the
// new-word book, and what there is to know about the dictionary.

#include "app/mainwindow.h"

#include "app/settingsvalues.h"
#include "app/widgetchange.h"
#include "dict/dictscanedit.h"
#include "dict/dictswitch.h"
#include "engines/flags.h"
#include "engines/translater.h"
#include "platform/zembra_iap.h"
#include "store/configreader.h"
#include "store/newwordmanager.h"
#include "widgets/mysubmenu.h"

#include <QAction>

void MainWindow::quickSetSlotForDict(bool on)
{
    Q_UNUSED(on)
    ZEMBRA_IAP_SetStopSignal(1);
    quickSetForDict();
}

// Built once: it is the only menu that stays.
void MainWindow::quickSetForDict()
{
    if (!m_dictMenu) {
        m_dictMenu = newMenu(tr("Dictionary Read Settings"),
                             {{tr("English voice"), &MainWindow::newTTSSet},
                              {tr("Other settings"), &MainWindow::newOtherReadingSet}});
        m_dictMenu->setGeometry(rect());
        connectMenu(m_dictMenu);
    }
    WidgetChange* const screens = WidgetChange::Instance();
    m_dictMenu->setQuickFlag(true);
    m_dictMenu->setCurIndex(0);
    m_dictMenu->setGeometry(rect());
    m_dictMenu->setPrevWidget(screens->getCurWidget());
    screens->Go2NewWidget(m_dictMenu);
}

void MainWindow::newReadTrans()
{
    const int stored = ConfigReader::Instance()->getReadTransDict();
    openChoice({tr("Read translation"), switchTexts(),
                settingsvalues::nearestIndex(settingsvalues::reading(), stored),
                &MainWindow::readTransChange});
}

void MainWindow::readTransChange(int index, const QString& text)
{
    Q_UNUSED(text)
    ConfigReader* config = ConfigReader::Instance();
    const auto values = settingsvalues::reading();
    if (!settingsvalues::changes(values, index, config->getReadTransDict()))
        return;
    config->setReadTransDict(values[index]);
    confirm(switchTexts().at(index));
}

// The newest first, as in the lists of files.
void MainWindow::newWords()
{
    const NewWordManager* book = NewWordManager::Instance();
    if (book->getSize() == 0) {
        showMessage(tr("There are no new words."));
        return;
    }
    MySubMenu* const menu = newMenu(tr("New words"), {});
    for (int i = book->getSize() - 1; i >= 0; --i) {
        WordItem item;
        book->get(i, item);
        connect(menu->addAction(item.word.simplified()), &QAction::triggered, this,
                [this, item] { showNewWord(item); });
    }
    openMenu(menu);
}

// Over a translation it takes that one's place: one screen shows both, and leads back to where the
// translation came from.
void MainWindow::showNewWord(const WordItem& item)
{
    WidgetChange* const screens = WidgetChange::Instance();
    ensureTransEdit();
    const int pair = ConfigReader::Instance()->getLanDict(); // the book does not keep the languages
    m_transEdit->setPair(pair);
    if (!m_transEdit->showStored(item.word, item.translation)) {
        showMessage(tr("There is no translation."));
        return;
    }
    const bool replaces = g_InDict;
    if (!replaces)
        m_transEdit->setPrevWidget(screens->getCurWidget());
    g_InDict = true;
    m_storedIsShown = true;
    screens->Go2NewWidget(m_transEdit);
    if (replaces)
        endFlowScreens();
    if (Translater::Instance()->getLanID(pair)
        < 0) // nothing tells the languages, and the screen is silent
        talkingMenuTTS(0, item.word, item.translation);
}

// The name of the current dictionary, where it comes from, and the way to another one.
void MainWindow::aboutDictionaries()
{
    if (!hasDictionaries()) {
        tellNoDictionary();
        return;
    }
    if (m_dictJob) {
        showMessage(tr("Please wait."));
        return;
    }
    const ConfigReader* config = ConfigReader::Instance();
    const QString source =
        Translater::Instance()->dictSource(config->getLanDict(), config->getLanDictInfo());
    QStringList lines = source.split(u'\n', Qt::SkipEmptyParts);
    lines.prepend(dictionaryName());
    MySubMenu* const menu = newMenu(tr("Dictionaries"), {});
    for (const QString& line : std::as_const(lines)) {
        if (!line.trimmed().isEmpty())
            connect(menu->addAction(line.simplified()), &QAction::triggered, this,
                    &MainWindow::sayPlace);
    }
    connect(menu->addAction(tr("Select dictionary")), &QAction::triggered, this, [this, menu] {
        selectDicFun();
        m_dictSwitch->setPrevWidget(menu->getPrevWidget()); // what is told here may be another's
        endFlowScreen(menu);
    });
    openMenu(menu);
}
