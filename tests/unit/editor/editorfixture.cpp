#include "tests/unit/editor/editorfixture.h"

#include "app/mystyle.h"
#include "app/palette.h"
#include "engines/csoundthread.h"
#include "tests/fakes/faketts.h"

#include <QSignalSpy>
#include <QTest>

namespace {

QByteArray utf16File(const QString& text)
{
    QByteArray bytes("\xff\xfe", 2);
    bytes.append(reinterpret_cast<const char*>(text.utf16()), 2 * text.size());
    return bytes;
}

} // namespace

void EditorFixture::initTestCase()
{
    QApplication::setStyle(new MyStyle);
    QApplication::setPalette(screenPalette());
}

void EditorFixture::init()
{
    m_state = std::make_unique<ApplicationState>();
    m_messages = std::make_unique<MessageWatcher>();
    m_launcher = std::make_unique<QCopRecorder>();
}

void EditorFixture::cleanup()
{
    FakeOcr::release(); // the editor waits for a recognition that a failed test left held
    m_edit.reset();
    m_previous.reset();
    m_launcher.reset();
    m_messages.reset();
    m_state.reset();
}

void EditorFixture::open(const QString& text)
{
    m_state->root.write(QStringLiteral("/mnt/mmc/e_ScanFile/notes.txt"), utf16File(text));
    m_state->load();
    m_previous = std::make_unique<QWidget>();
    WidgetChange::Instance()->Go2NewWidget(m_previous.get());
    m_edit = std::make_unique<MyEdit>();
    m_edit->setFixedSize(256, 64);
    TTSPlayer::Instance()->setEdit(m_edit.get());
    FileInfo info;
    QVERIFY(FileManager::Instance()->getInfoByID(0, info));
    if (m_edit->setFileInfo(info) == 0) {
        m_edit->setPrevWidget(m_previous.get());
        WidgetChange::Instance()->Go2NewWidget(m_edit.get());
        m_edit->activateWindow();
    }
}

QString EditorFixture::savedText() const
{
    const QByteArray bytes = m_state->root.read(QStringLiteral("/mnt/mmc/e_ScanFile/notes.txt"));
    return QString(reinterpret_cast<const QChar*>(bytes.constData() + 2), bytes.size() / 2 - 1);
}

void EditorFixture::scanWithDelay(const char16_t* text)
{
    m_state->root.setSetting(QStringLiteral("SystemSet/Delay"), 3);
    open(QString());
    swipeOver(text);
    QTRY_COMPARE(m_edit->documentText(), QString::fromUtf16(text) + u' ');
}

void EditorFixture::beginReading()
{
    FakeTts::setPace(FakeTts::Pace::Held);
    m_edit->gotoBeginEdit();
    QTest::keyClick(m_edit.get(), Qt::Key_Return);
    QVERIFY(FakeTts::waitUntilSpeaking());
    QCoreApplication::processEvents();
}

void EditorFixture::nextWordIsNotMarked()
{
    QSignalSpy reports(m_edit.get(), &MyEdit::signalTTShignlight);
    QVERIFY(FakeTts::speakWord());
    QTRY_COMPARE(reports.count(), 1);
    QCoreApplication::processEvents();
    QVERIFY(m_edit->extraSelections().isEmpty());
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
}
