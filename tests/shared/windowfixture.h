#ifndef WINDOWFIXTURE_H
#define WINDOWFIXTURE_H

#include "app/mainwindow.h"
#include "editor/myedit.h"
#include "engines/cttsthread.h"
#include "tests/fakes/faketts.h"
#include "tests/fakes/qcoprecorder.h"
#include "tests/shared/applicationstate.h"
#include "tests/shared/messagewatcher.h"
#include "widgets/mysubmenu.h"

#include <QDate>
#include <QTest>
#include <functional>

/* The running application over scripted engines: main window on screen, launcher listening. */
class WindowFixture
{
public:
    explicit WindowFixture(const QStringList& files = {},
                           const std::function<void()>& prepare = nullptr)
    {
        for (const QString& name : files)
            state.root.write(placeOf(name), QByteArray("\xff\xfet\0", 4));
        if (prepare)
            prepare();
        state.load();
        window = std::make_unique<MainWindow>();
        window->show();
        window->activateWindow();
        if (!QTest::qWaitForWindowActive(window.get()))
            QTest::qFail("The main window does not become active", __FILE__, __LINE__);
    }

    ~WindowFixture()
    {
        window.reset();
        state.singletonsAreGone();
    }

    /* Where a file of the user's lies. */
    static QString placeOf(const QString& name)
    {
        return QStringLiteral("/mnt/mmc/e_ScanFile/%1.txt").arg(name);
    }

    /* What the pen calls the first file of the day. */
    static QString newFileName() { return QDate::currentDate().toString(QStringLiteral("yyMMdd")); }

    /* That file in the editor, with this text. */
    void openNewFile(const QString& text = {})
    {
        window->newFile();
        QTRY_COMPARE(current(), window->editor());
        if (!text.isEmpty())
            window->editor()->appendText(text);
    }

    /* What it holds on the card. */
    QByteArray newFileOnCard() const { return state.root.read(placeOf(newFileName())); }

    QWidget* current() const { return WidgetChange::Instance()->getCurWidget(); }
    MySubMenu* menu() const { return qobject_cast<MySubMenu*>(current()); }

    QStringList entries() const
    {
        QStringList texts;
        for (const QAction* action : menu()->actions())
            texts.append(action->text());
        return texts;
    }

    void press(Qt::Key key) { QTest::keyClick(current(), key); }
    void press(std::initializer_list<Qt::Key> keys)
    {
        for (const Qt::Key key : keys)
            press(key);
    }

    /* Messages of the launcher. */
    void execute(const QByteArray& word)
    {
        window->handleReceived(QStringLiteral("execute(QString)"), word);
    }
    void usb(const QByteArray& word)
    {
        window->handleReceived(QStringLiteral("USB(QString)"), word);
    }

    /* The texts handed to the voice so far. */
    static QStringList spoken()
    {
        QStringList texts;
        for (const std::u16string& text : FakeTts::texts())
            texts.append(QString::fromStdU16String(text));
        return texts;
    }

    /* Those since hush(), and the newest of them; empty before the first. */
    QStringList heard() const { return spoken().mid(m_hushed); }
    QString lastHeard() const { return heard().isEmpty() ? QString() : heard().last(); }

    /* Waits until nothing is spoken or waits to be, and forgets what was heard. */
    void hush()
    {
        // The end of one utterance begins the next.
        for (int i = 0; i < 3; ++i) {
            QTRY_VERIFY(!window->menuSpeech()->isRunning());
            window->menuSpeech()->wait(); // its end is in the queue of events then
            QCoreApplication::processEvents();
        }
        m_hushed = spoken().size();
    }

    /* The newest of them, empty before the first. Asked once: the voice speaks on meanwhile. */
    static QString lastSpoken()
    {
        const auto all = spoken();
        return all.value(all.size() - 1);
    }

    ApplicationState state;
    MessageWatcher messages;
    QCopRecorder launcher;
    std::unique_ptr<MainWindow> window;

private:
    qsizetype m_hushed = 0;
};

#endif
