// MainWindow, dictionaries: the list of them, the choice, and opening the chosen one in the
// background.

#include "app/mainwindow.h"

#include "app/widgetchange.h"
#include "dict/dictscanedit.h"
#include "dict/dictswitch.h"
#include "dict/pairname.h"
#include "editor/myedit.h"
#include "engines/csoundthread.h"
#include "engines/cttsthread_setup.h"
#include "engines/translater.h"
#include "store/configreader.h"

#include <QApplication>
#include <algorithm>

// The engine's order is stable, and settings refer to places in it: it is kept.
void MainWindow::sortDictLoad()
{
    Translater* const translater = Translater::Instance();
    m_dictionaries.clear();
    translater->GetDict(m_dictionaries);

    m_dictSwitch = new DictSwitch(this);
    m_dictSwitch->setFocus(Qt::OtherFocusReason);
    m_dictSwitch->hide();
    for (int pair = 0; pair < m_dictionaries.size(); ++pair) {
        QVector<QString> names;
        for (int dict = 0; dict < m_dictionaries.at(pair).dicts.size(); ++dict)
            names.append(translater->dictName(pair, dict));
        m_dictSwitch->addPair(pairname::shown(m_dictionaries.at(pair).name), names);
    }
    connect(m_dictSwitch, &DictSwitch::selectChangedSignal, this, &MainWindow::changeDict);
    connect(m_dictSwitch, &DictSwitch::escTriggerSignal, this, &MainWindow::escTriggerSlot);
    connect(m_dictSwitch, &DictSwitch::okTriggerSignal, this, &MainWindow::okTriggerSlot);
    connect(m_dictSwitch, qOverload<int, QString, int>(&DictSwitch::signalShow), this,
            &MainWindow::dictSelctShowSlot);
    const auto speak = [this](int, const QString& text) { talkingMenuTTS(0, text, QString()); };
    connect(m_dictSwitch, &DictSwitch::signalUp, this, speak);
    connect(m_dictSwitch, &DictSwitch::signalDown, this, speak);
}

void MainWindow::dictSelctShowSlot(int index, const QString& text, int last)
{
    Q_UNUSED(index)
    Q_UNUSED(text)
    Q_UNUSED(last)
    talkingMenuTTS(0,
                   m_dictSwitch->windowTitle() + QStringLiteral(". ") + m_dictSwitch->spokenText(),
                   tr("Press left or right for the languages, up or down for the dictionary, OK to "
                      "go back."));
}

// The selection screen leads back by itself.
void MainWindow::escTriggerSlot() {}
void MainWindow::okTriggerSlot() {}

bool MainWindow::hasDictionaries() const
{
    return std::any_of(m_dictionaries.begin(), m_dictionaries.end(),
                       [](const _stTransLan& pair) { return !pair.dicts.isEmpty(); });
}

bool MainWindow::dictionaryIsReady() const
{
    const ConfigReader* config = ConfigReader::Instance();
    return !m_dictJob
           && Translater::Instance()->isOpen(config->getLanDict(), config->getLanDictInfo());
}

QString MainWindow::dictionaryName() const
{
    const ConfigReader* config = ConfigReader::Instance();
    return Translater::Instance()->dictName(config->getLanDict(), config->getLanDictInfo());
}

void MainWindow::tellNoDictionary()
{
    showMessage(hasDictionaries()
                    ? tr("The dictionary cannot be opened. Please select another one.")
                    : tr("No dictionary is installed."));
}

void MainWindow::selectDicFun()
{
    if (!m_dictSwitch)
        return;
    if (m_dictionaries.isEmpty()) {
        tellNoDictionary();
        return;
    }
    const ConfigReader* config = ConfigReader::Instance();
    m_dictSwitch->setDictIndex(config->getLanDict());
    m_dictSwitch->reloadDictInfoIndex(config->getLanDictInfo());
    m_dictSwitch->setPrevWidget(WidgetChange::Instance()->getCurWidget());
    WidgetChange::Instance()->Go2NewWidget(m_dictSwitch);
}

void MainWindow::changeDict(int pair, int dict, int flag)
{
    m_chosenDict = {pair, dict, flag};
    m_dictSwitch->setLRFlag(false);
    // At once, too: from here on it is the chosen one, whatever becomes of the worker's run.
    ConfigReader::Instance()->setLanDict(pair);
    ConfigReader::Instance()->setLanDictInfo(dict);
    runDictJob(DictJob::Change);
    showDictBusy();
}

// One at a time; of several that wait the last is run. What was chosen is in the settings.
void MainWindow::runDictJob(DictJob job)
{
    if (m_dictJob) {
        m_nextDictJob = job;
        return;
    }
    m_dictJob = job;
    if (job == DictJob::Change)
        m_setupThread->setFlag(m_chosenDict[0], m_chosenDict[1]);
    else if (job == DictJob::Open)
        m_setupThread->setOpen();
    else
        m_setupThread->setClose();
    m_setupThread->start(QThread::InheritPriority);
}

void MainWindow::openDictionary()
{
    if (hasDictionaries())
        runDictJob(DictJob::Open);
}

// A card cannot be given away while a file on it is open.
void MainWindow::closeDictionary()
{
    m_wordInWait.clear();
    if (hasDictionaries())
        runDictJob(DictJob::Close);
}

void MainWindow::showDictBusy()
{
    m_dictIsAwaited = true;
    showSandGlass();
}

// The editor's keys rest meanwhile; what is scanned goes into the file.
void MainWindow::awaitDictionary(const QString& word)
{
    if (!hasDictionaries()) {
        tellNoDictionary();
        return;
    }
    m_wordInWait = word;
    if (!m_dictJob)
        runDictJob(DictJob::Open);
    showDictBusy();
    talkingMenuTTS(0, tr("Please wait."), QString());
}

void MainWindow::finishTtsSet()
{
    if (m_setupThread->isRunning())
        return;
    const std::optional<DictJob> job = std::exchange(m_dictJob, std::nullopt);
    if (m_nextDictJob) {
        runDictJob(*std::exchange(m_nextDictJob, std::nullopt));
        return;
    }
    // Without anybody waiting for it the sign is another's.
    if (std::exchange(m_dictIsAwaited, false) || !job)
        endSetUpSign();
    m_dictSwitch->setLRFlag(true);
    m_dictChanged = m_dictChanged || !m_dictSwitch->isChanged();
    if (job && job != DictJob::Close)
        dictionaryIsThere(*job);
}

// What has waited for the dictionary goes on, and the user hears what has become of the choice.
void MainWindow::dictionaryIsThere(DictJob job)
{
    const QString word = std::exchange(m_wordInWait, QString());
    const bool open = dictionaryIsReady();
    if (!open && (job == DictJob::Change || !word.isEmpty() || !m_waitingScans.isEmpty())) {
        tellNoDictionary();
    } else if (!word.isEmpty()) {
        if (!isFrozen() && beginTranslation())
            translate(word);
    } else if (job == DictJob::Change) {
        tellSetUp(dictionaryName());
    }
    if (m_transEdit)
        resumeTranslation();
    for (const QString& scan : std::exchange(m_waitingScans, {}))
        showTransScan(scan);
}

bool MainWindow::keysAreHeld(const QObject* screen) const
{
    return (m_editor && screen == m_editor && !m_wordInWait.isEmpty())
           || (m_transEdit && screen == m_transEdit && m_dictJob);
}
