#include "app/mainwindow.h"

#include "app/widgetchange.h"
#include "dict/dictscanedit.h"
#include "editor/myedit.h"
#include "engines/charscanner.h"
#include "engines/cttsthread.h"
#include "engines/cttsthread_setup.h"
#include "engines/cttsthreadforset.h"
#include "engines/flags.h"
#include "engines/ocrpen.h"
#include "engines/ttsplayer.h"
#include "platform/qcopchannel.h"
#include "platform/zembra_iap.h"
#include "store/configreader.h"
#include "store/filemanager.h"
#include "store/launcher.h"
#include "store/newwordmanager.h"
#include "store/statisticmanager.h"
#include "widgets/announcer.h"
#include "widgets/heldkeys.h"
#include "widgets/mysubmenu.h"
#include "widgets/painting.h"

#include <QAction>
#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>
#include <utility>

namespace {

const QString ContinueItemName = QStringLiteral("continueItem");

} // namespace

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent)
{
    setupUi();
    move(0, 0);
    setWindowFlags(Qt::FramelessWindowHint);

    m_channel = new QCopChannel(QStringLiteral("scanprocess"), this);
    connect(m_channel, &QCopChannel::received, this, &MainWindow::handleReceived);

    sortDictLoad();
    ScanWindow();

    m_setupThread = std::make_unique<CTtsThread>();
    connect(m_setupThread.get(), &QThread::finished, this, &MainWindow::finishTtsSet);
    m_settingsThread = std::make_unique<CTtsThreadForSet>();
    connect(m_settingsThread.get(), &QThread::finished, this, &MainWindow::finishTtsSetForSet);
    m_menuSpeech = std::make_unique<CTTSThread>();
    connect(m_menuSpeech.get(), &QThread::finished, this, &MainWindow::finishTalkingMenu);
    m_mainMenu->setSpeechWorker(m_menuSpeech.get());
    announcer::setSpeaker([this](const QString& text) { announceMessage(text); },
                          [this] { keyPressSlot(); });
    NewWordManager::Instance()->init();
    openDictionary(); // ahead of the first translation; nothing waits for it
}

MainWindow::~MainWindow()
{
    CharScanner::forget(this);
    ZEMBRA_IAP_Uninitialize(); // the list of files scans, too
    announcer::setSpeaker(nullptr);
    // The workers and the screens use the singletons: they go first.
    TTSPlayer::Instance()->stop();
    m_menuSpeech.reset();
    launcher::speakerLeaves(launcher::Speaker::Menu);
    m_settingsThread.reset();
    m_setupThread.reset();
    g_InDict = false; // it may be left in any mode
    delete std::exchange(m_transEdit, nullptr);
    for (MyEdit** edit : {&m_renameEdit, &m_editor})
        delete std::exchange(*edit, nullptr);

    NewWordManager::quitFun();
    StatisticManager::quitFun();
    Translater::quitFun();

    // Each is made if it is not there yet, so that it is always a live object that is quit.
    OCRPen::Instance();
    OCRPen::quitFun();
    TTSPlayer::Instance();
    TTSPlayer::quitFun();
    FileManager::Instance();
    FileManager::quitFun();
    ConfigReader::Instance();
    ConfigReader::quitFun();
    WidgetChange::Instance();
    WidgetChange::quitFun();
}

void MainWindow::setupUi()
{
    if (objectName().isEmpty())
        setObjectName(QStringLiteral("MainWindow"));
    setFixedSize(painting::ScreenWidth, painting::ScreenHeight);
    auto* central = new QWidget(this);
    central->setObjectName(QStringLiteral("centralWidget"));
    setCentralWidget(central);
    setWindowTitle(QCoreApplication::translate("MainWindow", "MainWindow"));
    QCoreApplication::instance()->installEventFilter(new HeldKeys(this));
    QMetaObject::connectSlotsByName(this);
}

void MainWindow::tirggleEditSingal(const QString& text)
{
    emit signalEdit(text);
}

void MainWindow::ScanWindow()
{
    FileInfo current;
    FileManager::Instance()->getCurInfo(current);
    if (!m_mainMenu)
        m_mainMenu = newScanMenu(current.name);
    WidgetChange::Instance()->Go2NewWidget(m_mainMenu);
}

MySubMenu* MainWindow::newScanMenu(const QString& fileName)
{
    auto* menu = new MySubMenu(tr("Scan to file"), this);
    menu->setGeometry(rect());
    const auto add = [&](const QString& text, void (MainWindow::*slot)()) {
        connect(menu->addAction(text), &QAction::triggered, this, slot);
    };
    add(tr("New file"), &MainWindow::newFile);
    add(tr("Open file"), &MainWindow::openFileMenu);
    add(tr("Delete file"), &MainWindow::deleteFileMenu);
    add(tr("Scan settings"), &MainWindow::newSet);
    if (!fileName.isEmpty())
        setContinueItem(menu, fileName);
    connectMenu(menu, &MainWindow::mainMenuShowSlot);
    return menu;
}

void MainWindow::setContinueItem(MySubMenu* menu, const QString& fileName)
{
    auto* item = menu->findChild<QAction*>(ContinueItemName, Qt::FindDirectChildrenOnly);
    if (!item) {
        item = new QAction(menu);
        item->setObjectName(ContinueItemName);
        connect(item, &QAction::triggered, this, &MainWindow::continueFile);
        menu->insertAction(menu->actions().value(0), item);
    }
    item->setText(tr("Continue scan") + u' ' + fileName);
}

// The item stays where the user is: what comes or goes is above the current one.
void MainWindow::updateContinueItem()
{
    FileInfo current;
    if (FileManager::Instance()->getCurInfo(current) && !current.name.isEmpty()) {
        setContinueItem(m_mainMenu, current.name);
        return;
    }
    const int index = m_mainMenu->getCurIndex();
    if (auto* item =
            m_mainMenu->findChild<QAction*>(ContinueItemName, Qt::FindDirectChildrenOnly)) {
        delete item;
        m_mainMenu->setCurIndex(qMax(0, index - 1));
    }
}

// A menu tells how many entries follow the current one; the speech wants the last one's index.
void MainWindow::connectMenu(MySubMenu* menu, MenuSlot onShow)
{
    const auto speakWith = [this](MenuSlot slot) {
        return [this, slot](int index, const QString& text, int following) {
            (this->*slot)(index, text, index + following);
        };
    };
    menu->setSpeechWorker(m_menuSpeech.get());
    connect(menu, &MySubMenu::signalKeyPress, this, &MainWindow::keyPressSlot);
    connect(menu, &MySubMenu::signalShow, this, speakWith(onShow));
    connect(menu, &MySubMenu::signalUp, this, speakWith(&MainWindow::menuUpSlot));
    connect(menu, &MySubMenu::signalDown, this, speakWith(&MainWindow::menuDownSlot));
}

void MainWindow::setKeyForwarder(QWidget* widget)
{
    if (m_keyForwarder)
        m_keyForwarder->removeEventFilter(this);
    m_keyForwarder = widget;
    if (widget)
        widget->installEventFilter(this);
}

void MainWindow::hideButton()
{
    if (m_keyForwarder)
        m_keyForwarder->show();
}

bool MainWindow::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && keysAreHeld(object)) {
        if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_F10)
            sayPlace();
        return true;
    }
    if (m_transEdit && object == m_transEdit && event->type() == QEvent::Show) {
        ZEMBRA_IAP_SetStopSignal(m_storedIsShown || m_dictJob ? 1 : 0);
        QMetaObject::invokeMethod(this, &MainWindow::resumeTranslation, Qt::QueuedConnection);
        return false;
    }
    const bool isEditor = object && (object == m_editor || object == m_renameEdit);
    if (isEditor && event->type() == QEvent::Show) {
        ZEMBRA_IAP_SetStopSignal(0);
        return false;
    }
    if (m_keyForwarder && object == m_keyForwarder && event->type() == QEvent::KeyPress) {
        MyEdit* const editor = forwardedEditor();
        if (!editor)
            return true;
        editor->setFocus(Qt::OtherFocusReason);
        QCoreApplication::sendEvent(editor, event); // marks it as not spontaneous
        return true;
    }
    return false;
}
