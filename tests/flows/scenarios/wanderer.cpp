#include "tests/flows/scenarios/wanderer.h"

#include "app/mainwindow.h"
#include "app/widgetchange.h"
#include "editor/myedit.h"
#include "store/filemanager.h"
#include "tests/fakes/fakesystem.h"
#include "tests/fakes/faketts.h"
#include "tests/flows/scenarios/dictionaryhost.h"
#include "tests/flows/scenarios/screentext.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <array>

namespace {

constexpr int LongestBurst = 8;
constexpr int EscapesHome = 12;
const QString MainTitle = QStringLiteral("Scan to file");
const QString Card = QStringLiteral("/mnt/mmc");
const QString CardInAPc = QStringLiteral("/mnt/taken-out");

// The likelier keys more than once.
constexpr std::array Keys = {Qt::Key_Down, Qt::Key_Down,   Qt::Key_Down,   Qt::Key_Up,
                             Qt::Key_Up,   Qt::Key_Return, Qt::Key_Return, Qt::Key_Return,
                             Qt::Key_Left, Qt::Key_Right,  Qt::Key_Right,  Qt::Key_Escape,
                             Qt::Key_F7,   Qt::Key_F8,     Qt::Key_F9,     Qt::Key_F10,
                             Qt::Key_F11,  Qt::Key_F12,    Qt::Key_Space};

// Ways that single keys hardly find: to a translation of the word before, to the choice of a
// dictionary, to the new-word book.
const std::array<QList<Qt::Key>, 3> Journeys = {
    {{Qt::Key_Left, Qt::Key_F12, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return},
     {Qt::Key_F12, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return},
     {Qt::Key_F9, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}}};

struct Message
{
    const char* name;
    const char* payload;
};

constexpr std::array Messages = {Message{"execute(QString)", "presspoweroff"},
                                 Message{"execute(QString)", "plugusb"},
                                 Message{"execute(QString)", "save"},
                                 Message{"execute(QString)", "savenochujiao"},
                                 Message{"execute(QString)", "chujiaostop"},
                                 Message{"execute(QString)", "plug"},
                                 Message{"execute(QString)", "STOP"},
                                 Message{"USB(QString)", "plug"},
                                 Message{"USB(QString)", "delete"},
                                 Message{"USB(QString)", "delete"},
                                 Message{"unknown(QString)", "stop"}};

// Texts as they come from paper; each swipe adds a word of its own to one.
const std::array Texts = {u"The keeper of the light",
                          u"was old.",
                          u"",
                          u"1,024 files?",
                          u"灯塔看守人",
                          u"<vtml_pause time=\"9\"/>",
                          u"a/b|c",
                          u"Größe und Maß,",
                          u"<b>bold</b> & more"};

// Two of one pair, and one that cannot be opened.
QVector<GivenDictionary> dictionaries()
{
    const auto entry = [](const char* word, const char* definition) {
        return GivenDictionary::Entry{QString::fromUtf8(word), QString::fromUtf8(definition)};
    };
    return {{QStringLiteral("Small"),
             QStringLiteral("eng-deu"),
             false,
             {entry("keeper", "Wärter"), entry("light", "Licht"), entry("light", "leicht")}},
            {QStringLiteral("Large"),
             QStringLiteral("eng-deu"),
             false,
             {entry("keeper", "der Wärter; der Aufseher"), entry("old", "alt")}},
            {QStringLiteral("Broken"), QStringLiteral("fra-eng"), true, {}}};
}

} // namespace

Wanderer::Wanderer(unsigned seed, int steps)
    : m_random(seed), m_stepsLeft(steps), m_escapesLeft(EscapesHome)
{
    dictionaryhost::install(dictionaries(), m_stage.state().root);
}

int Wanderer::upTo(int number)
{
    return static_cast<int>(m_random() % static_cast<unsigned>(number));
}

bool Wanderer::fail(const QString& what)
{
    if (m_failure.isEmpty())
        m_failure = what;
    return false;
}

bool Wanderer::walk()
{
    while (!m_done && m_failure.isEmpty()) {
        note(QStringLiteral("start"));
        m_frozen = false;
        m_mayHaveEnded = false;
        m_tipIsDown = false;
        Stage::News last;
        const int result = m_stage.run([this](const Stage::News& news) { atRest(news); }, last);
        if (!m_stage.problem().isEmpty())
            fail(m_stage.problem());
        else if (result != 0)
            fail(QStringLiteral("it ends with %1").arg(result));
        else if (!m_done && !m_mayHaveEnded)
            fail(QStringLiteral("it ends by itself"));
        else if (!m_stage.widgetsLeft().isEmpty())
            fail(QLatin1String("widgets are left: ") + m_stage.widgetsLeft().join(u' '));
    }
    return m_failure.isEmpty();
}

void Wanderer::atRest(const Stage::News& news)
{
    Q_UNUSED(news)
    noteDocument();
    if (!look())
        return; // without an action the stage ends the application
    if (m_stepsLeft > 0)
        burst();
    else
        goHome();
}

// Exactly one screen has the keys, unless the PC has the card.
bool Wanderer::look()
{
    const QWidget* const dialog = QApplication::activeModalWidget();
    const QWidget* const screen = dialog ? dialog : WidgetChange::Instance()->getCurWidget();
    note(QLatin1String("    ") + describeScreen().toString().left(160));
    if (!screen)
        return fail(QStringLiteral("there is no screen"));
    if (!screen->isVisible())
        return fail(QStringLiteral("the screen is not visible"));
    if (m_frozen || dialog)
        return true;
    if (!screen->isEnabled())
        return fail(QStringLiteral("the screen takes no keys"));
    const QWidget* const focus = QApplication::focusWidget();
    if (!focus || (focus != screen && !screen->isAncestorOf(focus)))
        return fail(QStringLiteral("the screen has not the focus"));
    return true;
}

void Wanderer::burst()
{
    for (int i = 1 + upTo(LongestBurst); i > 0 && m_stepsLeft > 0; --i, --m_stepsLeft)
        oneStep();
}

void Wanderer::oneStep()
{
    const int choice = upTo(100);
    if (choice < 56)
        pressSomeKey();
    else if (choice < 62)
        goSomewhere();
    else if (choice < 78)
        swipe();
    else if (choice < 86)
        tellSomething();
    else if (choice < 92)
        turnTheVoice();
    else if (choice < 98)
        endSomeTimer();
    else
        changeTheCard();
    m_stage.act([] {}); // each of them counts as an action
}

void Wanderer::pressSomeKey()
{
    const Qt::Key key = Keys.at(static_cast<std::size_t>(upTo(int(Keys.size()))));
    // Escape in the main menu ends the application.
    m_mayHaveEnded |= key == Qt::Key_Escape;
    note(QStringLiteral("key %1").arg(QKeySequence(key).toString()));
    m_stage.press(key);
    if (upTo(8) > 0 || key == Qt::Key_Escape)
        m_stage.release(key);
}

void Wanderer::goSomewhere()
{
    for (const Qt::Key key : Journeys.at(static_cast<std::size_t>(upTo(int(Journeys.size()))))) {
        note(QStringLiteral("key %1").arg(QKeySequence(key).toString()));
        m_stage.press(key);
        m_stage.release(key);
    }
}

void Wanderer::swipe()
{
    if (!std::exchange(m_tipIsDown, true))
        m_stage.tipDown();
    if (upTo(4) == 0) {
        note(QStringLiteral("tip down"));
        return;
    }
    m_tipIsDown = false;
    QString text = QString::fromUtf16(Texts.at(static_cast<std::size_t>(upTo(int(Texts.size())))));
    if (!text.isEmpty())
        text += QStringLiteral(" w%1w").arg(++m_swipes);
    note(QStringLiteral("swipe %1").arg(text));
    if (upTo(3) == 0) {
        m_stage.act([this] { m_stage.holdRecognition(true); });
        m_stage.tipUp(text);
        m_stage.act([this] { m_stage.releaseRecognitionSoon(); });
    } else {
        m_stage.tipUp(text);
    }
}

void Wanderer::tellSomething()
{
    if (upTo(12) == 0) {
        const bool save = upTo(2) == 0;
        note(QStringLiteral("send %1").arg(QLatin1String(save ? "stop" : "stoponly")));
        m_mayHaveEnded = true;
        m_leftWithoutSaving |= !save;
        m_stage.send(QStringLiteral("execute(QString)"), save ? "stop" : "stoponly");
        return;
    }
    const Message& message = Messages.at(static_cast<std::size_t>(upTo(int(Messages.size()))));
    note(QStringLiteral("send %1 %2")
             .arg(QLatin1String(message.name), QLatin1String(message.payload)));
    if (std::string_view(message.name) == "USB(QString)")
        m_frozen = std::string_view(message.payload) == "plug";
    m_stage.send(QLatin1String(message.name), message.payload);
}

void Wanderer::turnTheVoice()
{
    switch (upTo(4)) {
    case 0:
        note(QStringLiteral("voice hold"));
        m_stage.act([this] { m_stage.holdVoice(true); });
        break;
    case 1:
        note(QStringLiteral("voice run"));
        m_stage.act([this] { m_stage.holdVoice(false); });
        break;
    case 2:
        note(QStringLiteral("voice word"));
        m_stage.act([] { FakeTts::speakWord(); });
        break;
    default:
        note(QStringLiteral("voice finish"));
        m_stage.act([] { FakeTts::finish(); });
    }
}

void Wanderer::endSomeTimer()
{
    static const QStringList names = {QStringLiteral("message"), QStringLiteral("message"),
                                      QStringLiteral("autosave"), QStringLiteral("delay")};
    const QString& name = names.at(upTo(int(names.size())));
    note(QStringLiteral("time %1").arg(name));
    m_stage.endTimer(name);
}

void Wanderer::changeTheCard()
{
    const TestRoot& root = m_stage.state().root;
    if (m_cardOut || upTo(2) == 0) {
        note(QStringLiteral("card %1").arg(QLatin1String(m_cardOut ? "in" : "out")));
        const QString from = root.path(m_cardOut ? CardInAPc : Card);
        const QString to = root.path(m_cardOut ? Card : CardInAPc);
        m_stage.act([from, to] { QDir().rename(from, to); });
        m_cardOut = !m_cardOut;
        m_cardWasOut = true;
    } else {
        const qint64 bytes = upTo(2) == 0 ? 0 : 10'000'000;
        note(QStringLiteral("free-space %1").arg(bytes));
        m_stage.act([bytes] { FakeSystem::setFreeBytes(bytes); });
    }
}

bool Wanderer::isAtHome() const
{
    const ScreenText screen = describeScreen();
    return screen.kind == QLatin1String("menu")
           && screen.fields.value(QStringLiteral("title")) == QStringList(MainTitle);
}

// Everything is let go, then Escape leads to the main menu from wherever it is.
void Wanderer::goHome()
{
    if (m_frozen || m_cardOut || m_escapesLeft == EscapesHome) {
        if (m_cardOut)
            changeTheCard();
        m_stage.letGo();
        FakeSystem::setFreeBytes(10'000'000);
        if (std::exchange(m_frozen, false))
            m_stage.send(QStringLiteral("USB(QString)"), "delete");
        m_stage.act([] {});
        --m_escapesLeft;
        return;
    }
    if (isAtHome() && m_cardWasOut) {
        // What waits in the pen for the card is on it after the next start.
        m_cardWasOut = false;
        m_mayHaveEnded = true;
        m_escapesLeft = EscapesHome;
        m_stage.send(QStringLiteral("execute(QString)"), "stop");
        return;
    }
    if (isAtHome()) {
        m_done = scansAreKept();
        return;
    }
    if (--m_escapesLeft < 0) {
        fail(QStringLiteral("Escape does not lead to the main menu"));
        return;
    }
    note(QStringLiteral("key Esc"));
    m_stage.press(Qt::Key_Escape);
    m_stage.release(Qt::Key_Escape);
}

// Which of the scans stand in the document that is open.
void Wanderer::noteDocument()
{
    QVector<FileInfo> files;
    FileManager::Instance()->getInfoList(files);
    for (const FileInfo& file : std::as_const(files))
        m_everListed.insert(file.name);
    if (fileIsGone()) { // a new one may get its name
        m_appended.clear();
        m_everListed.clear();
    }
    const MyEdit* const editor = Stage::window()->editor();
    if (!editor || !editor->isBound())
        return;
    const QString text = editor->documentText();
    for (int i = 1; i <= m_swipes; ++i) {
        const QString word = QStringLiteral("w%1w").arg(i);
        if (text.contains(word))
            m_appended.insert(word);
    }
}

QString Wanderer::everythingOnTheCard() const
{
    const QDir folder(m_stage.state().root.path(QStringLiteral("/mnt/mmc/e_ScanFile")));
    QString all;
    for (const QString& name : folder.entryList(QDir::Files)) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QByteArray bytes = file.readAll();
        all += QString::fromUtf16(reinterpret_cast<const char16_t*>(bytes.constData()),
                                  bytes.size() / 2);
    }
    return all;
}

// Whether a file that was on the list is not on the card any more.
bool Wanderer::fileIsGone() const
{
    const QDir folder(m_stage.state().root.path(QStringLiteral("/mnt/mmc/e_ScanFile")));
    bool gone = false;
    for (const QString& name : std::as_const(m_everListed))
        gone |= !QFile::exists(folder.filePath(name + QLatin1String(".txt")));
    return gone;
}

// In the main menu everything is saved. A file that the user has deleted takes its scans along.
bool Wanderer::scansAreKept()
{
    const QString all = everythingOnTheCard();
    const bool deleted = fileIsGone();
    for (const QString& word : std::as_const(m_appended)) {
        if (!all.contains(word) && !deleted && !m_leftWithoutSaving)
            return fail(QStringLiteral("the scan %1 was lost").arg(word));
    }
    return true;
}
