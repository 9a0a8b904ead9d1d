// MainWindow, settings pages: rows of values, each stored as soon as it is shown.

#include "app/mainwindow.h"

#include "app/settingsvalues.h"
#include "app/widgetchange.h"
#include "editor/myedit.h"
#include "store/configreader.h"
#include "widgets/spinmulti.h"
#include "widgets/spinvolum.h"
#include "widgets/ttsconfig.h"
#include "widgets/zbspinvolumt.h"

using settingsvalues::Values;

namespace {

constexpr int PausesSideBySide = 5;

// A row shows the offered value next to the stored one, and stores nothing by that.
SpinItems* fill(SpinItems* row, const QString& label, const QStringList& texts, Values values,
                int stored)
{
    row->setText1(label + u' '); // the page speaks it with the value behind it
    row->setLeftRightClick(true);
    for (const QString& text : texts)
        row->addItem(text);
    row->setCurIndex(settingsvalues::nearestIndex(values, stored));
    return row;
}

SpinItems* switchRow(const QString& label, int stored)
{
    return fill(new SpinItems, label, MainWindow::switchTexts(), settingsvalues::reading(), stored);
}

// The bars that are full at the highest speed and volume offered.
SpinItems* speedRow(int stored)
{
    const Values values = settingsvalues::speed();
    return fill(new ZbSpinVolumt, MainWindow::tr("Speed"), settingsvalues::numbers(values), values,
                stored);
}

SpinItems* volumeRow(int stored)
{
    const Values values = settingsvalues::volume();
    return fill(new SpinVolum, MainWindow::tr("Volume"), settingsvalues::numbers(values), values,
                stored);
}

SpinItems* pauseRow(const QString& label, int stored)
{
    const Values values = settingsvalues::pauses();
    auto* row = new SpinMulti;
    row->setShowMax(PausesSideBySide);
    return fill(row, label, settingsvalues::numbers(values), values, stored);
}

// What a row shows is stored, unless it is what stands for the stored number already.
void storeValue(Values values, int index, int stored, void (ConfigReader::*store)(int))
{
    if (settingsvalues::changes(values, index, stored))
        (ConfigReader::Instance()->*store)(values[index]);
}

} // namespace

QStringList MainWindow::switchTexts()
{
    return {tr("On"), tr("Off")};
}

void MainWindow::addRow(TTSConfig* page, SpinItems* row, ChangeSlot change)
{
    connect(row, &SpinItems::triggered, this, change);
    page->addItem(row);
}

void MainWindow::newTTS()
{
    const ConfigReader* config = ConfigReader::Instance();
    auto* page = new TTSConfig(this);
    page->setWindowTitle(tr("Reading settings"));
    addRow(page, switchRow(tr("Reading"), config->getReadControlInfo()), &MainWindow::readChange);
    addRow(page, speedRow(config->getReadSpeedInfo()), &MainWindow::speedChange);
    addRow(page, pauseRow(tr("Word Pause"), config->getWordPauseInfo()),
           &MainWindow::wordPauseChange);
    addRow(page, pauseRow(tr("Punc Pause"), config->getPuncPauseInfo()),
           &MainWindow::puncPauseChange);
    addRow(page, volumeRow(config->getVolumInfo()), &MainWindow::volumChange);
    openPage(page);
}

void MainWindow::newOtherReadingSet()
{
    const ConfigReader* config = ConfigReader::Instance();
    auto* page = new TTSConfig(this);
    page->setWindowTitle(tr("Other settings"));
    addRow(page, switchRow(tr("Read OK"), config->getReadControlDict()),
           &MainWindow::readChangeForDict);
    addRow(page, speedRow(config->getReadSpeedInfoForDict()), &MainWindow::speedChangeForDict);
    addRow(page, volumeRow(config->getVolumDict()), &MainWindow::volumChangeForDict);
    openPage(page);
}

void MainWindow::openPage(TTSConfig* page)
{
    page->setPrevWidget(WidgetChange::Instance()->getCurWidget());
    page->setPrevQuickWidget(workScreen());
    page->setQuickFlag(workScreen() != nullptr);
    const auto speakRow = [this](int index, const QString& text) {
        talkingMenuTTS(index, text.trimmed(), QString());
    };
    connect(page, &TTSConfig::signalShow, this, [this](int index, const QString& text) {
        talkingMenuTTS(index, text, tr("Press left or right to change, OK to go back."));
    });
    connect(page, &TTSConfig::signalUp, this, speakRow);
    connect(page, &TTSConfig::signalDown, this, speakRow);
    connect(page, &TTSConfig::okPressed, this, &MainWindow::setBiState);
    connect(page, &TTSConfig::okPressedForQuick, this, &MainWindow::setBiStateFlag);
    connect(page, &TTSConfig::escPressed, this, &MainWindow::escFromVolumeSetSlot);
    openFlowScreen(page);
}

void MainWindow::readChange(int index, const QString& text)
{
    Q_UNUSED(text)
    storeValue(settingsvalues::reading(), index, ConfigReader::Instance()->getReadControlInfo(),
               &ConfigReader::setReadConrolInfo);
}

void MainWindow::speedChange(int index, const QString& text)
{
    Q_UNUSED(text)
    storeValue(settingsvalues::speed(), index, ConfigReader::Instance()->getReadSpeedInfo(),
               &ConfigReader::setReadSpeedInfo);
}

void MainWindow::wordPauseChange(int index, const QString& text)
{
    Q_UNUSED(text)
    storeValue(settingsvalues::pauses(), index, ConfigReader::Instance()->getWordPauseInfo(),
               &ConfigReader::setWordPauseInfo);
}

void MainWindow::puncPauseChange(int index, const QString& text)
{
    Q_UNUSED(text)
    storeValue(settingsvalues::pauses(), index, ConfigReader::Instance()->getPuncPauseInfo(),
               &ConfigReader::setPuncPauseInfo);
}

void MainWindow::volumChange(int index, const QString& text)
{
    Q_UNUSED(text)
    storeValue(settingsvalues::volume(), index, ConfigReader::Instance()->getVolumInfo(),
               &ConfigReader::setVolumInfo);
}

void MainWindow::readChangeForDict(int index, const QString& text)
{
    Q_UNUSED(text)
    storeValue(settingsvalues::reading(), index, ConfigReader::Instance()->getReadControlDict(),
               &ConfigReader::setReadConrolDict);
}

void MainWindow::speedChangeForDict(int index, const QString& text)
{
    Q_UNUSED(text)
    storeValue(settingsvalues::speed(), index, ConfigReader::Instance()->getReadSpeedInfoForDict(),
               &ConfigReader::setReadSpeedInfoForDict);
}

void MainWindow::volumChangeForDict(int index, const QString& text)
{
    Q_UNUSED(text)
    storeValue(settingsvalues::volume(), index, ConfigReader::Instance()->getVolumDict(),
               &ConfigReader::setVolumDict);
}

void MainWindow::escFromVolumeSetSlot()
{
    if (auto* page = qobject_cast<QWidget*>(sender()))
        endFlowScreen(page);
}
