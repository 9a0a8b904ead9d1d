// MyEdit as the one-line input of a new file name: no file is bound, a scan replaces the name.

#include "editor/myedit.h"

#include "app/widgetchange.h"
#include "editor/caret.h"
#include "editor/scannedname.h"
#include "engines/crecthread.h"
#include "widgets/painting.h"
#include "widgets/sandglass.h"

#include <QKeyEvent>
#include <QPainter>

namespace {

// The title line, the old name below it, and the new one in a box that fills the lower half.
const QRect OldNamePlace(2, 16, 252, painting::LineHeight);
const QRect BoxPlace(0, 38, 256, 24);
constexpr int NameLeft = 4;
constexpr int NameTop = 42;
constexpr int CaretRoom = 4;

} // namespace

void MyEdit::setRenameFlag(bool on)
{
    m_rename = on && !m_bound;
    viewport()->update();
}

void MyEdit::startRename(const QString& oldName, const QString& proposal, int longest)
{
    setRenameFlag(true);
    if (!m_rename)
        return;
    m_oldName = oldName;
    m_longestName = longest;
    setScanInit();
    showName(proposal);
}

void MyEdit::showName(const QString& name)
{
    clear();
    clearReading();
    insertPlainText(nameFromScan(name));
    viewport()->update();
}

bool MyEdit::renameKey(int key)
{
    switch (key) {
    case Qt::Key_Escape:
        leaveRename();
        emit signalCancelRename();
        return true;
    case Qt::Key_Return:
        // The name that is being recognised is not to be confirmed unseen.
        if (!m_recognising) {
            const QString name = documentText();
            leaveRename();
            emit signalConfirmRename(name);
        }
        return true;
    case Qt::Key_F12: // no quick settings here
        return true;
    default:
        return false;
    }
}

// A scan that is still being recognised is dropped with the input.
void MyEdit::leaveRename()
{
    m_recThread->wait();
    m_recognising = false;
    m_pendingText.clear();
    delete m_sandGlass;
    StopTTS();
    leaveEngine();
    setRenameFlag(false);
    WidgetChange::Instance()->Go2PrevWidget(this, m_previous);
}

// False when nothing was recognised that could be a name.
bool MyEdit::takeScannedName(const QString& scan)
{
    setStopFlag(false); // the next scan may come
    const QString name = nameFromScan(scan);
    if (name.isEmpty()) {
        m_recognitionFailed = true;
        emit signalShow(0, documentText()); // asks for a scan once more
        return false;
    }
    showName(name);
    return true;
}

void MyEdit::paintRename()
{
    QPainter painter(viewport());
    painter.fillRect(rect(), Qt::black);
    painter.setPen(Qt::white);
    const QString name = documentText();
    painting::drawTitle(painter, tr("Rename"),
                        QString::number(name.size()) + u'/' + QString::number(m_longestName));
    const QString old = painting::oneLine(m_oldName);
    painting::drawLine(painter, OldNamePlace, painting::elide(old, OldNamePlace.width()));
    painter.drawRect(BoxPlace.adjusted(0, 0, -1, -1));

    // As much as is needed is shifted out at the left to keep the caret in view.
    const QRect line(NameLeft, NameTop, BoxPlace.width() - 2 * NameLeft, painting::LineHeight);
    const int before = painting::textWidth(name.left(textCursor().position()));
    const int shift = qMax(0, before + CaretRoom - line.width());
    painting::drawLine(painter, line, name, shift);
    painter.fillRect(line.left() + before - shift, line.top(), caret::Width, line.height(),
                     Qt::white);
}
