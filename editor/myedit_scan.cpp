// MyEdit, the way of a scan: image, recognition, text in the document.

#include "editor/myedit.h"

#include "editor/appendrules.h"
#include "engines/crecthread.h"
#include "engines/csoundthread.h"
#include "engines/flags.h"
#include "engines/ocrpen.h"
#include "engines/ttsplayer.h"
#include "store/configreader.h"
#include "store/filemanager.h"
#include "widgets/messagedialog.h"
#include "widgets/sandglass.h"

namespace {

constexpr int NoImage = -1;
constexpr int NoText = -2;

} // namespace

void MyEdit::tirggleEditSingal(_stImg* image)
{
    emit signalKeyPress();
    // Speech is silent already, so that the worker may have ended: not it, but whether the end of
    // the reading has been heard tells whether there was one.
    m_scannedWhileReading = m_readingAloud.load();
    if (m_soundThread->isRunning()) {
        TTSPlayer::Instance()->stop();
        m_soundThread->clearContent();
    }
    {
        const QMutexLocker lock(&m_arrivingMutex);
        m_arriving.append(image);
    }
    emit signalEdit(image);
}

void MyEdit::forgetArrival(_stImg* image)
{
    const QMutexLocker lock(&m_arrivingMutex);
    m_arriving.removeOne(image);
}

int MyEdit::Recognize(_stImg* image)
{
    forgetArrival(image);
    // A recognition may have ended unheard yet: its text is taken before this one writes its own.
    // Asked once: one that ends between two questions would be neither waited for nor taken.
    const bool busy = m_recThread->isRunning();
    if (!busy)
        FinishRec();
    if ((!m_bound && !m_rename) || busy || m_recThread->isRunning()) {
        releaseImage(image);
        return -1;
    }
    m_restorePosition = m_keepPosition;
    m_scanIsForTrans = g_InDict && !m_rename;
    if (m_scanIsForTrans)
        emit signalTransScan();
    showBusy();
    m_recThread->setImg(image);
    m_recognitionFailed = false;
    m_recognising = true;
    m_recThread->start();
    if (m_rename)
        emit signalNewInput();
    return 0;
}

// The editor is hidden while the translate screen takes its scans.
void MyEdit::showBusy()
{
    delete m_sandGlass;
    m_sandGlass = new SandGlass(m_scanIsForTrans ? window() : this);
    m_sandGlass->setGeometry(SandGlass::Place);
    m_sandGlass->show();
    m_sandGlass->raise();
}

int MyEdit::RecThread(_stImg* image)
{
    const std::unique_ptr<_stImg, decltype(&releaseImage)> owned(image, &releaseImage);
    if (!image || !image->image)
        return NoImage;
    const int direction = ConfigReader::Instance()->getScanDirectInfo();
    QString text;
    const int result = OCRPen::Instance()->recognize(image->image, image->width, image->height,
                                                     direction, image->flag, text);
    if (result != 0)
        m_recognitionFailed = true;
    if (text.isEmpty())
        return NoText;
    m_pendingText = text;
    return result;
}

void MyEdit::awaitScan()
{
    m_recThread->wait();
    FinishRec();
}

void MyEdit::FinishRec()
{
    // The end of a recognition is heard late: its result may have been taken by then, or the next
    // one be running.
    if (m_recThread->isRunning() || !std::exchange(m_recognising, false))
        return;
    stopSpeech();
    delete m_sandGlass;
    const QString scan = std::exchange(m_pendingText, QString());
    if (std::exchange(m_scanIsForTrans, false) && g_InDict) {
        m_recognitionFailed = m_recognitionFailed || scan.isEmpty();
        emit signalTransText(scan);
        return;
    }
    if (m_rename && !takeScannedName(scan))
        return;
    if (scan.isEmpty()) {
        m_recognitionFailed = true;
        tellHint(tr("Nothing recognised."));
        return;
    }
    stopSeek(); // the scan takes the cursor
    if (!m_rename && !appendText(scan))
        return;
    viewport()->update();
    clearReading();
    {
        const QMutexLocker lock(&m_readQueueMutex);
        m_readQueue.append({scan, textCursor().position()});
    }
    const int delaySeconds = qBound(0, ConfigReader::Instance()->getDelayInfo(), 60);
    m_readDelay.start(delaySeconds * 1000);
}

// A menu that was opened meanwhile has the voice: it is not cut off.
void MyEdit::stopSpeech()
{
    if (isEnabled())
        TTSPlayer::Instance()->stop();
}

bool MyEdit::appendText(const QString& text)
{
    stopSpeech();
    if (text.isEmpty())
        return false;
    const QString document = documentText();
    if (!fitsIntoFile(document, text)) {
        MessageDialog(this, tr("The file is too big. Please create new file.")).exec();
        return false;
    }
    QTextCursor cursor = textCursor();
    cursor.clearSelection();
    if (!m_restorePosition)
        cursor.movePosition(QTextCursor::End);
    const int start = cursor.position();
    cursor.insertText(withTrailingBlank(document, text));
    if (m_bound) {
        // Without the log the next save has it all the same.
        const QString inserted = documentText().mid(start, cursor.position() - start);
        FileManager::Instance()->noteScan(m_file, start, inserted,
                                          static_cast<int>(document.size()));
    }
    moveTo(cursor.position()); // as much of the scan as there is room for comes into view
    moveTo(start);
    return true;
}
