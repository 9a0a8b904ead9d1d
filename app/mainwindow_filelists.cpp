// MainWindow, the lists of scan files: to open one, to delete one.

#include "app/mainwindow.h"

#include "app/widgetchange.h"
#include "store/filemanager.h"
#include "widgets/mysubmenu.h"

#include <QAction>

namespace {

QString entryText(const FileInfo& file)
{
    return file.name + QLatin1String("  [") + file.brief + u']';
}

} // namespace

// Newest first, as the store lists them; files that came from a PC meanwhile are among them.
void MainWindow::showFileMenu(FileMenuUse use)
{
    FileManager* files = FileManager::Instance();
    files->getFileList();
    if (files->getFileNum() == 0) {
        showMessage(tr("No available files!"));
        return;
    }
    delete m_fileMenu;
    const bool opens = use == FileMenuUse::Open;
    m_fileMenuUse = use;
    m_fileMenu = new MySubMenu(opens ? tr("Open file") : tr("Delete file"), this);
    m_fileMenu->setGeometry(rect());
    connectMenu(m_fileMenu);
    connect(m_fileMenu, &MySubMenu::escPressed, this,
            opens ? &MainWindow::escFromfilemenuSlot : &MainWindow::releaseFileMenu);
    refreshFileMenu();
    m_fileMenu->setCurIndex(files->getCurFileIndex());
    m_fileMenu->setPrevWidget(WidgetChange::Instance()->getCurWidget());
    WidgetChange::Instance()->Go2NewWidget(m_fileMenu);
}

// The entries as the store has them now; the place of the current one stays.
void MainWindow::refreshFileMenu()
{
    if (!m_fileMenu)
        return;
    QVector<FileInfo> files;
    FileManager::Instance()->getInfoList(files);
    const QList<QAction*> entries = m_fileMenu->actions();
    for (qsizetype i = 0; i < files.size(); ++i) {
        if (i < entries.size())
            entries.at(i)->setText(entryText(files.at(i)));
        else
            addFileEntry(entryText(files.at(i)));
    }
    for (qsizetype i = files.size(); i < entries.size(); ++i) {
        m_fileMenu->removeAction(entries.at(i));
        entries.at(i)->deleteLater(); // it may be the one that is being carried out
    }
}

void MainWindow::addFileEntry(const QString& text)
{
    const auto slot =
        m_fileMenuUse == FileMenuUse::Open ? &MainWindow::openFile : &MainWindow::deleteFile;
    connect(m_fileMenu->addAction(text), &QAction::triggered, this, slot);
}

// The menu leaves by itself, and ends once it has.
void MainWindow::releaseFileMenu()
{
    if (m_fileMenu)
        m_fileMenu->deleteLater();
    m_fileMenu = nullptr;
}

void MainWindow::speakCurrentFile()
{
    const int index = m_fileMenu->getCurIndex();
    const QList<QAction*> entries = m_fileMenu->actions();
    menuShowSlot(index, entries.at(index)->text(), static_cast<int>(entries.size()) - 1);
}

bool MainWindow::openListIsShown() const
{
    return m_fileMenu && m_fileMenuUse == FileMenuUse::Open
           && WidgetChange::Instance()->getCurWidget() == m_fileMenu;
}
