#ifndef EDITORFIXTURE_H
#define EDITORFIXTURE_H

#include "editor/myedit.h"
#include "tests/fakes/qcoprecorder.h"
#include "tests/shared/applicationstate.h"
#include "tests/shared/messagewatcher.h"
#include "tests/shared/swipes.h"

#include <memory>

/* What the tests of the editor share: the application over scripted engines, made anew for each
 * test function, and an editor in it. */
class EditorFixture : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

protected:
    /* An editor on a file with this text, shown, with a screen to go back to. */
    void open(const QString& text);

    /* The text of that file on the card. */
    QString savedText() const;

    /* An editor on an empty file, with a scan that is read once its delay ends, in 3 s. */
    void scanWithDelay(const char16_t* text);

    /* Reads the text from its beginning; the voice is held. */
    void beginReading();

    /* The voice speaks a word, which is not marked, and the rest. */
    void nextWordIsNotMarked();

    std::unique_ptr<ApplicationState> m_state;
    std::unique_ptr<MessageWatcher> m_messages;
    std::unique_ptr<QCopRecorder> m_launcher;
    std::unique_ptr<QWidget> m_previous;
    std::unique_ptr<MyEdit> m_edit;
};

#endif
