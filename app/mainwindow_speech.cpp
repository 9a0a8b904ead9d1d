// MainWindow, menu speech: one path by which every menu is spoken.

#include "app/mainwindow.h"

#include "dict/dictscanedit.h"
#include "editor/myedit.h"
#include "engines/csoundthread.h"
#include "engines/cttsthread.h"
#include "engines/flags.h"
#include "engines/speechtext.h"
#include "engines/ttsplayer.h"
#include "store/launcher.h"

namespace {

constexpr int HelpPauseMs = 500;

QString confirmed(const QString& confirmation, const QString& text)
{
    if (confirmation.isEmpty() || text.isEmpty())
        return confirmation + text;
    return confirmation + pauseTag(HelpPauseMs) + text;
}

} // namespace

void MainWindow::keyPressSlot()
{
    if (!m_menuSpeech || !m_menuSpeech->isRunning())
        return;
    g_KeyFlag = true;
    m_messageIsSpoken = false;
    hushMenu();
    TTSPlayer::Instance()->stop();
}

void MainWindow::hushMenu()
{
    if (!m_menuSpeech)
        return;
    m_menuSpeech->clearContent();
    m_menuSpeech->clearInstruct();
    m_menuSpeech->forgetQueued();
}

void MainWindow::menuShowSlot(int index, const QString& text, int last)
{
    QString help;
    if (index == 0)
        help = tr("Press OK to select, or down for other options.");
    else if (index < last)
        help = tr("Press OK to select, or up or down for more options.");
    else
        help = tr("Press OK to select, or Up for other options.");
    talkingMenuTTS(index, text, help);
}

void MainWindow::menuUpSlot(int index, const QString& text, int last)
{
    menuShowSlot(index, text, last);
}

void MainWindow::menuDownSlot(int index, const QString& text, int last)
{
    menuShowSlot(index, text, last);
}

void MainWindow::mainMenuShowSlot(int index, const QString& text, int last)
{
    Q_UNUSED(index)
    Q_UNUSED(last)
    talkingMenuTTS(0, tr("Scan to File mode. "),
                   text + QStringLiteral("    ")
                       + tr("Press OK to select, or down for other options."));
}

void MainWindow::talkingMenuTTS(int index, const QString& text, const QString& instruction)
{
    Q_UNUSED(index)
    m_saidText = confirmed(std::exchange(m_confirmation, QString()), text);
    m_saidInstruction = instruction;
    m_pendingText = m_saidText;
    m_pendingInstruction = instruction;
    m_utterancePending = true;
    speakSoon();
}

void MainWindow::announceMessage(const QString& text)
{
    m_saidText = text;
    m_saidInstruction.clear();
    m_messages.append(text);
    m_utterancePending = false; // it told of what the message lies over
    speakSoon();
}

// What is spoken gives way, other than a message: the screen below speaks when it is left, and
// another message may come with it.
void MainWindow::speakSoon()
{
    m_lastVoice = Voice::Menu;
    if (m_editor)
        m_editor->setStopSoundFlag(false);
    const bool speaks = m_menuSpeech && m_menuSpeech->isRunning();
    if (!speaks || !m_messageIsSpoken) {
        // Before the stop: an older item that the worker has not taken yet would be spoken after
        // it.
        if (m_menuSpeech)
            m_menuSpeech->forgetQueued();
        TTSPlayer::Instance()->stop();
    }
    // Before the worker exists too: the first menu is shown while the window is being built.
    if (m_menuSpeech && !speaks)
        startSlot();
}

void MainWindow::confirm(const QString& text)
{
    m_confirmation = text;
}

void MainWindow::speak(const QString& text, const QString& instruction)
{
    if (text.isEmpty())
        m_menuSpeech->setInstructStr(instruction);
    else if (instruction.isEmpty())
        m_menuSpeech->setContent(text);
    else
        m_menuSpeech->setContent(text + pauseTag(HelpPauseMs) + instruction);
    if (m_editor)
        m_editor->setStopSoundFlag(false);
    m_menuSpeech->start(QThread::InheritPriority);
    launcher::tellSoundBegins(launcher::Speaker::Menu);
}

void MainWindow::startSlot()
{
    m_messageIsSpoken = !m_messages.isEmpty();
    if (m_messageIsSpoken) {
        speak(m_messages.takeFirst(), QString());
        return;
    }
    if (!std::exchange(m_utterancePending, false))
        return;
    speak(std::exchange(m_pendingText, QString()), std::exchange(m_pendingInstruction, QString()));
}

// Whether a screen has the voice, or is about to have it.
bool MainWindow::isReadingAloud() const
{
    const auto reads = [](const MyEdit* edit) { return edit && edit->soundThread()->isRunning(); };
    return reads(m_editor) || reads(m_renameEdit) || (m_transEdit && m_transEdit->isReading());
}

void MainWindow::finishTalkingMenu()
{
    // The end is heard late: a newer utterance, or the editor, may have the voice by now. It must
    // not be silenced, and it tells of its own end.
    if (m_menuSpeech->isRunning())
        return;
    launcher::tellSoundEnds(launcher::Speaker::Menu);
    if (!isReadingAloud())
        TTSPlayer::Instance()->stop();
    if (m_editor)
        m_editor->setStopSoundFlag(true);
    if (m_messages.isEmpty())
        carryOutRequests();
    if (m_utterancePending || !m_messages.isEmpty())
        startSlot();
    else if (m_editor)
        m_editor->readAfterTalkingMenu();
}

// What the user asked for in the quick menu is heard instead of the hint.
void MainWindow::editShowSlot(int index, const QString& text)
{
    Q_UNUSED(text)
    if (m_readAgainPending || m_gotoBeginPending || m_editorHintHeld)
        return;
    talkingMenuTTS(index, QString(), tr("Scan or press Menu for options."));
}

// A message that is still being spoken is heard to its end: a hint never cuts anything short.
void MainWindow::hintSlot(const QString& text)
{
    if (!m_menuSpeech->isRunning()) {
        talkingMenuTTS(0, QString(), text);
        return;
    }
    m_pendingText.clear();
    m_pendingInstruction = text;
    m_utterancePending = true;
}
