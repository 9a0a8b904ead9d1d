// The whole run of the application, from the first step of its start to its end.

#include "app/startup.h"

#include "app/mainwindow.h"
#include "app/processglobals.h"
#include "tests/fakes/calls.h"
#include "tests/fakes/fakesystem.h"
#include "tests/fakes/qcoprecorder.h"
#include "tests/shared/applicationstate.h"
#include "widgets/messagedialog.h"

#include <QApplication>
#include <QFont>
#include <QStyle>
#include <QTest>
#include <QTimer>

namespace {

const QString LowStorage = QStringLiteral("No enough storage space. Please remove some files.");

// What was seen of the run. It ends the application as the launcher does: over the warning when
// there is one, else over the first screen.
class Onlooker : public QObject
{
public:
    explicit Onlooker(bool warningExpected) : m_warningExpected(warningExpected)
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() != QEvent::Show)
            return false;
        if (qobject_cast<MainWindow*>(object))
            showWindow();
        else if (const auto* dialog = qobject_cast<MessageDialog*>(object))
            showWarning(dialog->text());
        return false;
    }

    bool windowShown = false;
    bool windowWasThere = false; // when the warning came
    QStringList warnings;
    QString style;
    QString font;
    QColor windowColour;
    QStringList heard; // by the launcher

private:
    void showWindow()
    {
        windowShown = true;
        if (!m_warningExpected)
            QTimer::singleShot(0, this, [this] { end(); });
    }

    void showWarning(const QString& text)
    {
        warnings.append(text);
        windowWasThere = windowShown;
        QTimer::singleShot(0, this, [this] { end(); });
    }

    void end()
    {
        style = QString::fromLatin1(QApplication::style()->metaObject()->className());
        font = QApplication::font().family();
        windowColour = QApplication::palette().color(QPalette::Window);
        m_launcher.waitFor(QStringLiteral("Show(QString) scan"));
        heard = m_launcher.messages();
        QCopChannel::send(QStringLiteral("scanprocess"), QStringLiteral("execute(QString)"),
                          "stoponly");
    }

    bool m_warningExpected;
    QCopRecorder m_launcher;
};

std::unique_ptr<Onlooker> onlooker;
bool warningExpected = false;

void look()
{
    onlooker = std::make_unique<Onlooker>(warningExpected);
}

} // namespace

class TestStartupRun : public QObject
{
    Q_OBJECT

private slots:
    // Called as soon as there is an application to look at, in each run.
    void initTestCase() { qAddPreRoutine(look); }
    void init();
    void cleanup();

    void malformedLanguageTableEndsBeforeAnyWindow();
    void malformedFileListEndsBeforeAnyWindow();
    void windowComesUpAndTheLauncherEndsIt();
    void warningComesOverTheFirstScreen();
    void missingTranslationLeavesTheSourceTexts();
    void absentLanguageIsTheFirstOfTheTable();

private:
    int run(bool warning = false);

    std::unique_ptr<ApplicationState> m_state;
};

void TestStartupRun::init()
{
    m_state = std::make_unique<ApplicationState>();
    g_Lan = false;
}

void TestStartupRun::cleanup()
{
    if (onlooker && onlooker->windowShown)
        m_state->singletonsAreGone();
    onlooker.reset();
    m_state.reset();
}

int TestStartupRun::run(bool warning)
{
    warningExpected = warning;
    QByteArray name("pen");
    char* arguments[] = {name.data(), nullptr};
    return runApplication(1, arguments);
}

void TestStartupRun::malformedLanguageTableEndsBeforeAnyWindow()
{
    m_state->root.write(QStringLiteral("/apps/config/scanlanguage.cfg"), "only\tthree\tfields\n");
    QCOMPARE(run(), -1);
    QVERIFY(!onlooker->windowShown);
    QCOMPARE(fakes::calls("ZEMBRA_TTS_Initialize"), QStringList());
    QVERIFY(!translatorpass && !qApp1);
}

void TestStartupRun::malformedFileListEndsBeforeAnyWindow()
{
    m_state->root.write(QStringLiteral("/apps/config/filelist.cfg"), "0\nonly\tthree\tparts\n");
    QCOMPARE(run(), -1);
    QVERIFY(!onlooker->windowShown);
}

void TestStartupRun::windowComesUpAndTheLauncherEndsIt()
{
    QCOMPARE(run(), 0);
    QVERIFY(onlooker->windowShown);
    QVERIFY(onlooker->warnings.isEmpty());
    QVERIFY(onlooker->heard.contains(QStringLiteral("Show(QString) scan")));
    QCOMPARE(onlooker->style, QStringLiteral("MyStyle"));
    QCOMPARE(onlooker->font, QStringLiteral("nits"));
    QCOMPARE(onlooker->windowColour, QColor(Qt::black));
    QVERIFY(!fakes::calls("ZEMBRA_TTS_Uninitialize").isEmpty());
}

// The launcher ends the application while the warning is still shown.
void TestStartupRun::warningComesOverTheFirstScreen()
{
    FakeSystem::setFreeBytes(1'048'575);
    QCOMPARE(run(true), 0);
    QCOMPARE(onlooker->warnings, QStringList{LowStorage});
    QVERIFY(onlooker->windowWasThere);
    QCOMPARE(onlooker->windowColour, QColor(Qt::black));
    QVERIFY(onlooker->heard.contains(QStringLiteral("Show(QString) scan")));
}

void TestStartupRun::missingTranslationLeavesTheSourceTexts()
{
    m_state->root.write(QStringLiteral("/apps/config/scanlanguage.cfg"),
                        "zh\t1\tChinese\t1\t1\t1\t1\n");
    QVERIFY(!m_state->root.exists(QStringLiteral("/apps/res/Language_Chn_1.qm")));
    FakeSystem::setFreeBytes(0);
    QCOMPARE(run(true), 0);
    QVERIFY(g_Lan);
    QCOMPARE(onlooker->warnings, QStringList{LowStorage});
}

// Its code has no translation: the interface stays as it is written.
void TestStartupRun::absentLanguageIsTheFirstOfTheTable()
{
    m_state->root.write(QStringLiteral("/apps/config/scanlanguage.cfg"),
                        "sv\t107\tSvenska\t1\t1\t1\t0\nzh\t1\tChinese\t1\t1\t1\t1\n");
    FakeSystem::setFreeBytes(0);
    QCOMPARE(run(true), 0);
    QVERIFY(!g_Lan);
    QCOMPARE(onlooker->warnings, QStringList{LowStorage});
}

QTEST_APPLESS_MAIN(TestStartupRun)
#include "tst_startuprun.moc"
