#include "engines/csoundthread.h"
#include "tests/fakes/faketts.h"
#include "tests/shared/testobjects.h"
#include "tests/unit/editor/editorfixture.h"

#include <QSignalSpy>
#include <QTest>
#include <atomic>

/* The editor reading aloud. */
class TestMyEditReading : public EditorFixture
{
    Q_OBJECT

private slots:
    void spokenWordIsMarked_data();
    void spokenWordIsMarked();
    void changedTextIsNotMarked();
    void readingTakesTheVoiceOfTheScanLanguage_data();
    void readingTakesTheVoiceOfTheScanLanguage();
    void readingSwitchedOffStaysSilent();
    void delayComesBeforeReading();
    void okReadsFromTheWordAtTheCursorAndStops();
    void readAgainReadsTheLastText();
    void foldedTextIsHandedBackAndStillMarked();
    void stopDuringPreparationSilencesThatReadingOnly();
};

void TestMyEditReading::spokenWordIsMarked_data()
{
    QTest::addColumn<int>("wordPause");
    QTest::newRow("punctuation pauses") << 0;
    QTest::newRow("word pauses") << 2;
}

void TestMyEditReading::spokenWordIsMarked()
{
    QFETCH(int, wordPause);
    m_state->root.setSetting(QStringLiteral("SystemSet/WORDPAUSE"), wordPause);
    open(QStringLiteral("Old. "));
    FakeTts::setPace(FakeTts::Pace::Held);
    swipeOver(u"Pi, say, is 3.14 ok");
    QTRY_VERIFY(FakeTts::isSpeaking());
    for (const auto& word : {u"Pi", u"say", u"is", u"3.14", u"ok"}) {
        const QString expected = QString::fromUtf16(word);
        QVERIFY(FakeTts::speakWord());
        QTRY_VERIFY(m_edit->getStartPosition() >= 0
                    && m_edit->documentText()
                           .mid(m_edit->getStartPosition(),
                                m_edit->getEndPosition() - m_edit->getStartPosition())
                           .startsWith(expected));
        QCOMPARE(m_edit->extraSelections().size(), 1);
        QCOMPARE(m_edit->getCurPosition(), m_edit->getStartPosition());
    }
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(m_edit->extraSelections().isEmpty());
}

void TestMyEditReading::changedTextIsNotMarked()
{
    open(QString());
    FakeTts::setPace(FakeTts::Pace::Held);
    swipeOver(u"one two");
    QTRY_VERIFY(FakeTts::isSpeaking());
    m_edit->setPlainText(QStringLiteral("different"));
    nextWordIsNotMarked();
}

void TestMyEditReading::readingTakesTheVoiceOfTheScanLanguage_data()
{
    QTest::addColumn<int>("language");
    QTest::addColumn<QString>("setting");
    QTest::addColumn<int>("voice");
    QTest::newRow("German") << 104 << QString() << 104;
    QTest::newRow("Chinese") << 1 << QString() << 1;
    QTest::newRow("English") << 101 << QString() << 200;
    QTest::newRow("English, voice 2") << 101 << "SystemSet/TTS=2" << 203;
    QTest::newRow("German, voice 2") << 104 << "SystemSet/TTS=2" << 104;
    QTest::newRow("Spanish variant") << 105 << "SystemSet/SPANISH=1" << 202;
}

void TestMyEditReading::readingTakesTheVoiceOfTheScanLanguage()
{
    QFETCH(int, language);
    QFETCH(QString, setting);
    QFETCH(int, voice);
    m_state->root.write(QStringLiteral("/apps/config/scanlanguage.cfg"),
                        "x\t" + QByteArray::number(language) + "\tx\t1\t1\t1\t1\n");
    if (!setting.isEmpty())
        m_state->root.setSetting(setting.section(u'=', 0, 0), setting.section(u'=', 1).toInt());
    open(QString());
    TTSPlayer::Instance()->setLan(206); // what a menu left behind
    swipeOver(u"text");
    QTRY_COMPARE(FakeTts::texts(), (std::vector<std::u16string>{u"text"}));
    QCOMPARE(FakeTts::language(), voice);
}

void TestMyEditReading::readingSwitchedOffStaysSilent()
{
    m_state->root.setSetting(QStringLiteral("InfoScan/ReadControl"), 1);
    open(QString());
    swipeOver(u"silent");
    QTRY_COMPARE(m_edit->documentText(), QStringLiteral("silent "));
    m_edit->readDelaySlot(); // what the delay's end does
    QVERIFY(!m_edit->soundThread()->isRunning());
    QVERIFY(FakeTts::texts().empty());
}

void TestMyEditReading::delayComesBeforeReading()
{
    scanWithDelay(u"later");
    QVERIFY(!m_edit->soundThread()->isRunning());
    m_edit->readDelaySlot();
    QTRY_COMPARE(FakeTts::texts(), (std::vector<std::u16string>{u"later"}));
    // The timer of the delay finds nothing left to read.
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
    m_edit->readDelaySlot();
    QVERIFY(!m_edit->soundThread()->isRunning());
}

void TestMyEditReading::okReadsFromTheWordAtTheCursorAndStops()
{
    open(QStringLiteral("one two three"));
    FakeTts::setPace(FakeTts::Pace::Held);
    m_edit->gotoBeginEdit();
    QTest::keyClick(m_edit.get(), Qt::Key_Right);
    QTest::keyClick(m_edit.get(), Qt::Key_Return);
    QTRY_VERIFY(!FakeTts::texts().empty() && FakeTts::texts().back() == u"two three");
    QVERIFY(FakeTts::waitUntilSpeaking());
    QVERIFY(FakeTts::speakWord());
    QTRY_COMPARE(m_edit->getStartPosition(), 4);
    QTest::keyClick(m_edit.get(), Qt::Key_Return);
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
    QTRY_VERIFY(m_edit->extraSelections().isEmpty());
    QCOMPARE(m_edit->getCurPosition(), 4); // stays where reading stopped
}

void TestMyEditReading::readAgainReadsTheLastText()
{
    open(QString());
    swipeOver(u"again");
    QVERIFY(m_launcher->waitFor(QStringLiteral("execute(QString) soundno")));
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
    m_edit->soundAgain();
    QTRY_COMPARE(FakeTts::texts(), (std::vector<std::u16string>{u"again", u"again"}));
}

// What a Chinese voice is given differs from what is on the screen.
void TestMyEditReading::foldedTextIsHandedBackAndStillMarked()
{
    m_state->root.write(QStringLiteral("/apps/config/scanlanguage.cfg"), "x\t1\tx\t1\t1\t1\t1\n");
    open(QStringLiteral("it's\uff0cok"));
    QString text = m_edit->documentText();
    m_edit->Sound(text);
    QCOMPARE(text, QStringLiteral("it\"s,ok"));
    QCOMPARE(FakeTts::texts(), (std::vector<std::u16string>{u"it\"s,ok"}));

    beginReading();
    QVERIFY(FakeTts::speakWord());
    QTRY_COMPARE(m_edit->extraSelections().size(), 1);
    QCOMPARE(m_edit->getStartPosition(), 0);
    QVERIFY(FakeTts::finish());
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
}

// The text is prepared and not yet with the engine, which knows of no stop then.
void TestMyEditReading::stopDuringPreparationSilencesThatReadingOnly()
{
    open(QStringLiteral("one two"));
    m_edit->gotoBeginEdit();
    std::atomic<int> prepared = 0;
    const auto stopping = connect(
        m_edit.get(), &MyEdit::readingPrepared, m_edit.get(),
        [&prepared] {
            ++prepared;
            TTSPlayer::Instance()->stop();
        },
        Qt::DirectConnection);
    QTest::keyClick(m_edit.get(), Qt::Key_Return);
    QTRY_COMPARE(prepared, 1);
    QTRY_VERIFY(!m_edit->soundThread()->isRunning());
    QVERIFY(FakeTts::texts().empty());

    disconnect(stopping);
    QCoreApplication::processEvents(); // the end is heard
    QTest::keyClick(m_edit.get(), Qt::Key_Return);
    QTRY_COMPARE(FakeTts::texts(), (std::vector<std::u16string>{u"one two"}));
}

TEST_OBJECT(TestMyEditReading)
#include "tst_myedit_reading.moc"
