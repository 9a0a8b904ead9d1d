#include "tests/unit/dict/dictfixture.h"

#include "app/mystyle.h"
#include "app/palette.h"
#include "engines/csoundsrcthread.h"
#include "engines/csoundtransthread.h"
#include "engines/translater.h"
#include "tests/fakes/faketts.h"
#include "widgets/announcer.h"

#include <QApplication>
#include <QRegularExpression>
#include <QTest>
#include <QTextEdit>

void DictFixture::initTestCase()
{
    QApplication::setStyle(new MyStyle);
    QApplication::setPalette(screenPalette());
}

void DictFixture::init()
{
    m_state = std::make_unique<ApplicationState>();
    m_launcher = std::make_unique<QCopRecorder>();
    m_announced.clear();
    announcer::setSpeaker([this](const QString& text) { m_announced.append(text); });
    QVERIFY(translatescreen::installMark(m_state->root));
}

void DictFixture::cleanup()
{
    m_edit.reset();
    m_previous.reset();
    announcer::setSpeaker(nullptr);
    Translater::quitFun();
    m_launcher.reset();
    m_state.reset();
}

void DictFixture::open(int language, int endLanguage, const QList<Entry>& entries)
{
    translatescreen::addDictionary(language, endLanguage, entries);
    m_state->load();
    m_previous = std::make_unique<QWidget>();
    WidgetChange::Instance()->Go2NewWidget(m_previous.get());
    m_edit = std::make_unique<DictScanEdit>(nullptr, true);
    m_edit->setTransLan(0, 0);
    m_edit->setClock([this] { return m_time; });
    m_edit->setPrevWidget(m_previous.get());
    g_InDict = true;
    WidgetChange::Instance()->Go2NewWidget(m_edit.get());
    m_edit->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_edit.get()));
}

void DictFixture::openEnglish()
{
    open(101, 104,
         {{"house", "Haus [n], Heim [n]\n[haus]"},
          {"green", "grün"},
          {"run", "laufen\n[ran]"},
          {"run", "Lauf [m]"},
          {"run", "Flucht [f]\nNote: rare"},
          {"ran", "laufen", "run"},
          {"international", "international"},
          {"well-known", "bekannt"},
          {"well", "gut"},
          {"don't", "nicht tun"}});
}

void DictFixture::press(Qt::Key key)
{
    m_time += 1'000'000;
    QTest::keyClick(m_edit.get(), key);
}

void DictFixture::holdWord(const QString& text)
{
    FakeTts::setPace(FakeTts::Pace::Held);
    m_edit->setScanText(text, true);
    QTRY_VERIFY(FakeTts::isSpeaking());
    QVERIFY(m_edit->srcThread()->isRunning());
}

void DictFixture::holdEntry(const QString& text)
{
    holdWord(text);
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(m_edit->transThread()->isRunning() && FakeTts::isSpeaking());
}

void DictFixture::waitUntilSilent()
{
    // What is to be read begins with the next turn of the event loop.
    QCoreApplication::processEvents();
    QTRY_VERIFY(!m_edit->isReading());
    QTRY_VERIFY(!m_edit->srcThread()->isRunning() && !m_edit->transThread()->isRunning());
}

QStringList DictFixture::spoken()
{
    static const QRegularExpression tags(QStringLiteral("<vtml_pause[^>]*>"));
    QStringList texts;
    for (const std::u16string& text : FakeTts::texts())
        texts.append(QString::fromStdU16String(text).remove(tags));
    return texts;
}

QString DictFixture::scanText() const
{
    return m_edit->findChild<QTextEdit*>(QStringLiteral("editScan"))->toPlainText();
}

QString DictFixture::marked() const
{
    const auto* pane = m_edit->findChild<QTextEdit*>(QStringLiteral("editTrans"));
    const QList<QTextEdit::ExtraSelection> marks = pane->extraSelections();
    return marks.isEmpty() ? QString() : marks.first().cursor.selectedText();
}
