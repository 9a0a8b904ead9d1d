#include "tests/unit/editor/editorfixture.h"

#include "app/mystyle.h"
#include "app/palette.h"
#include "tests/fakes/fakeiap.h"
#include "tests/fakes/fakeocr.h"

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

void EditorFixture::swipe(const char16_t* text)
{
    FakeOcr::setResult(text);
    QCOMPARE(FakeIap::swipe(FakeIap::pattern(40, 10)), std::optional(0));
}
