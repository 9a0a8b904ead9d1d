// MainWindow, the keys that every screen has.

#include "app/mainwindow.h"

#include "app/widgetchange.h"
#include "dict/dictscanedit.h"
#include "dict/dictswitch.h"
#include "editor/myedit.h"
#include "platform/zembra_iap.h"
#include "store/filemanager.h"
#include "widgets/mysubmenu.h"
#include "widgets/sandglass.h"
#include "widgets/scanbusy.h"
#include "widgets/spinitems.h"
#include "widgets/ttsconfig.h"

#include <QAction>
#include <QKeyEvent>
#include <QTextBlock>
#include <QTextLayout>

namespace {

const QString Between = QStringLiteral(". ");

QString placeIn(const QString& title, const QStringList& items, int index)
{
    if (items.isEmpty())
        return title;
    return title + Between + items.at(index) + Between
           + MainWindow::tr("%1 of %2").arg(index + 1).arg(items.size());
}

QString placeOf(const TalkingMenu& menu)
{
    QStringList items;
    for (const QAction* item : menu.actions())
        items.append(item->text());
    return placeIn(menu.title(), items, menu.getCurIndex());
}

QString placeOf(const TTSConfig& page)
{
    QStringList items;
    for (const SpinItems* row : page.findChildren<SpinItems*>(Qt::FindDirectChildrenOnly))
        items.append(row->getText1() + row->getCurItem());
    return placeIn(page.windowTitle(), items, page.getCurIndex());
}

// Lines as they are seen: the document wraps them.
struct Lines
{
    int current = 0; // from 1
    int count = 0;
};

Lines linesOf(const QTextCursor& cursor)
{
    Lines lines;
    for (QTextBlock block = cursor.document()->begin(); block.isValid(); block = block.next()) {
        const QTextLayout* layout = block.layout();
        if (block == cursor.block()) {
            const QTextLine line = layout->lineForTextPosition(cursor.positionInBlock());
            lines.current = lines.count + (line.isValid() ? line.lineNumber() : 0) + 1;
        }
        lines.count += qMax(1, layout->lineCount());
    }
    return lines;
}

} // namespace

// Only what the current screen left unused comes here.
void MainWindow::keyPressEvent(QKeyEvent* event)
{
    if (isFrozen() || scanEngineIsBusy())
        return;
    switch (event->key()) {
    case Qt::Key_F9:
        moreSettings();
        break;
    case Qt::Key_F10:
        sayPlace();
        break;
    case Qt::Key_F11:
        renameCurrentFile();
        break;
    case Qt::Key_Space:
        sayAgain();
        break;
    default:
        QMainWindow::keyPressEvent(event);
    }
}

// The one menu of what the given menus have no entry for.
void MainWindow::moreSettings()
{
    const QWidget* current = WidgetChange::Instance()->getCurWidget();
    if (!current || current == m_renameEdit || current == m_dictSwitch
        || m_flowScreens.contains(m_moreMenu) || m_sandGlass) {
        sayPlace();
        return;
    }
    if (current == m_editor) {
        m_editor->StopTTS();
        m_editor->setStopFlag(true);
    } else if (current == m_transEdit) {
        m_transEdit->stopReading();
        ZEMBRA_IAP_SetStopSignal(1);
    }
    const ItemSlot direction = editorIsBelow() ? &MainWindow::newDicQuick : &MainWindow::newDic;
    m_moreMenu =
        newMenu(tr("More settings"), {{tr("Read delay"), &MainWindow::delaySet},
                                      {tr("TTS Setting"), &MainWindow::newTTSSet},
                                      {tr("Scan Direction"), direction},
                                      {tr("Read translation"), &MainWindow::newReadTrans},
                                      {tr("New words"), &MainWindow::newWords},
                                      {tr("Dictionaries"), &MainWindow::aboutDictionaries}});
    openMenu(m_moreMenu);
}

QString MainWindow::placeInEditor() const
{
    FileInfo file;
    FileManager::Instance()->getCurInfo(file);
    const Lines lines = linesOf(m_editor->textCursor());
    QString place = file.name + Between + tr("Line %1 of %2").arg(lines.current).arg(lines.count);
    const QString word = m_editor->getWordFromMyEdit();
    if (!word.isEmpty())
        place += Between + word;
    return place;
}

void MainWindow::sayPlace()
{
    const QWidget* current = WidgetChange::Instance()->getCurWidget();
    if (m_renameEdit && current == m_renameEdit) {
        editRenameShowSlot(0, m_renameEdit->documentText());
        return;
    }
    QString place;
    if (const auto* menu = qobject_cast<const TalkingMenu*>(current))
        place = placeOf(*menu);
    else if (m_dictSwitch && current == m_dictSwitch)
        place = m_dictSwitch->windowTitle() + Between + m_dictSwitch->spokenText();
    else if (const auto* page = qobject_cast<const TTSConfig*>(current))
        place = placeOf(*page);
    else if (m_editor && current == m_editor)
        place = placeInEditor();
    else if (m_transEdit && current == m_transEdit)
        place = m_transEdit->placeText() + Between + dictionaryName();
    if (findChild<SandGlass*>())
        place = tr("Please wait.") + QChar(u' ') + place;
    if (!place.isEmpty())
        talkingMenuTTS(0, place, QString());
}

void MainWindow::sayAgain()
{
    if (m_lastVoice == Voice::Editor && m_editor && m_editor->isVisible())
        m_editor->soundAgain();
    else if (m_lastVoice == Voice::Translation && m_transEdit && m_transEdit->isVisible())
        m_transEdit->soundOnlySrcForTrans();
    else if (!m_saidText.isEmpty() || !m_saidInstruction.isEmpty())
        talkingMenuTTS(0, m_saidText, m_saidInstruction);
}
