#include "desk/sessionrecorder.h"

#include "desk/desksession.h"
#include "desk/penkeys.h"
#include "desk/penlanguages.h"
#include "desk/scriptwords.h"

#include <QDateTime>
#include <QSaveFile>
#include <algorithm>
#include <utility>

namespace {

constexpr int RestMs = 500; // as long as "wait idle" wants
constexpr int HoldMs = 400; // a key that is down for less was pressed, not held
constexpr int MaxHoldMs = 600'000;

} // namespace

SessionRecorder::SessionRecorder(DeskSession& session, QObject* parent)
    : QObject(parent), m_session(session)
{
    m_clock.start();
    begin();
    connect(&session, &DeskSession::keySent, this, &SessionRecorder::takeKey);
    connect(&session, &DeskSession::lineSwiped, this, [this](int line, double speed) {
        act(QStringLiteral("swipe line %1").arg(line + 1)
            + (speed > 0.0 ? QStringLiteral(" speed %1").arg(speed) : QString()));
    });
    connect(&session, &DeskSession::waySwiped, this,
            [this](QPointF from, QPointF to, double speed) {
                act(QStringLiteral("swipe %1,%2 %3,%4")
                        .arg(from.x())
                        .arg(from.y())
                        .arg(to.x())
                        .arg(to.y())
                    + (speed > 0.0 ? QStringLiteral(" speed %1").arg(speed) : QString()));
            });
    connect(&session, &DeskSession::handTouches, this, [this] {
        m_handSince = m_clock.elapsed();
        m_handAtRest = isAtRest();
    });
    connect(&session, &DeskSession::handSwiped, this, [this](const std::vector<PathPoint>& path) {
        act(SessionScript::pathLine(path), m_handSince, m_handAtRest);
    });
    connect(&session, &DeskSession::pageChanged, this, &SessionRecorder::takePage);
    connect(&session, &DeskSession::handChanged, this, &SessionRecorder::takeHand);
    connect(&session, &DeskSession::speechChanged, this, &SessionRecorder::takeSpeech);
    connect(&session, &DeskSession::swipeReported, this, [this](const SwipeReport& report) {
        m_script.swiped(report.outcomeName());
        emit changed();
    });
    connect(&session, &DeskSession::penEnded, this, [this] {
        if (m_changesLanguage)
            return;
        m_script.ended();
        emit changed();
    });
    connect(&session, &DeskSession::startWanted, this, [this] {
        const bool meant = !std::exchange(m_changesLanguage, false);
        if (meant && m_session.penRuns() > 1) // the first comes with every script
            act(QStringLiteral("start"));
    });
    connect(&session, &DeskSession::languageChosen, this, [this](int row) {
        m_changesLanguage = m_session.pen().isRunning(); // it is stopped and started for it
        act(languageLine(row));
    });
    connect(&session.launcher(), &Launcher::logged, this, &SessionRecorder::takeMessage);
    connect(&session.storage(), &PenStorage::cardChanged, this, [this](bool out) {
        act(out ? QStringLiteral("card out") : QStringLiteral("card in"));
    });
    connect(&session.storage(), &PenStorage::fullChanged, this, [this](bool full) {
        act(full ? QStringLiteral("storage full") : QStringLiteral("storage free"));
    });
}

void SessionRecorder::begin()
{
    const QString now = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm"));
    QStringList head = {QStringLiteral("# Recorded on the desk, %1.").arg(now)};
    const int language = penlanguages::chosen(m_session.setting().root);
    if (language > 0)
        head.append(languageLine(language));
    m_script.begin(head);
}

QString SessionRecorder::languageLine(int row) const
{
    const auto languages = penlanguages::list(m_session.setting().root);
    const bool known = row >= 0 && row < languages.size();
    return QLatin1String("language ")
           + scriptwords::quoted(known ? languages.at(row).name : QString::number(row));
}

bool SessionRecorder::isAtRest() const
{
    return m_session.quietBeforeMs() >= RestMs;
}

void SessionRecorder::act(const QString& line)
{
    act(line, m_clock.elapsed(), isAtRest());
}

void SessionRecorder::act(const QString& line, qint64 sinceMs, bool atRest)
{
    m_script.act(line, sinceMs, atRest);
    emit changed();
}

void SessionRecorder::set(const QString& line)
{
    m_script.set(line);
    emit changed();
}

void SessionRecorder::takeKey(Qt::Key key, bool pressed)
{
    const QString name = penkeys::nameOf(key);
    if (name.isEmpty())
        return;
    if (pressed) {
        m_keysDown.insert(key, m_clock.elapsed());
        m_keyAtRest = isAtRest();
        return;
    }
    if (!m_keysDown.contains(key))
        return;
    const qint64 since = m_keysDown.take(key);
    const qint64 held = std::min<qint64>(m_clock.elapsed() - since, MaxHoldMs);
    act(held < HoldMs ? QLatin1String("key ") + name
                      : QStringLiteral("hold %1 %2").arg(name).arg(held),
        since, m_keyAtRest);
}

void SessionRecorder::takeMessage(const Launcher::Entry& entry)
{
    if (!entry.sent || !entry.delivered)
        return;
    if (m_changesLanguage)
        return;
    const bool execute = entry.message == QLatin1String("execute(QString)");
    if (execute && entry.payload == "plugusb") {
        m_cableAtRest = isAtRest(); // the plug's own message follows
        return;
    }
    if (entry.message == QLatin1String("USB(QString)") && entry.payload == "plug")
        act(QStringLiteral("usb plug"), m_clock.elapsed(), m_cableAtRest);
    else if (entry.message == QLatin1String("USB(QString)"))
        act(QStringLiteral("usb unplug"));
    else if (execute && entry.payload == "presspoweroff")
        act(QStringLiteral("power"));
    else
        act(QLatin1String("send ") + scriptwords::quoted(entry.message) + QLatin1Char(' ')
            + scriptwords::quoted(QString::fromUtf8(entry.payload)));
}

void SessionRecorder::takePage()
{
    const PageSource& page = m_session.pageLoader().source();
    if (m_hasPage && page == m_page)
        return;
    m_hasPage = true;
    m_page = page;
    set(page.scriptLine());
}

void SessionRecorder::takeHand()
{
    const QStringList lines = m_session.hand().scriptLines(m_hand);
    m_hand = m_session.hand();
    for (const QString& line : lines)
        set(line);
}

void SessionRecorder::takeSpeech()
{
    const auto& utterances = m_session.transcript().utterances();
    if (utterances.size() == m_utterances)
        return;
    m_utterances = utterances.size();
    m_script.spoke(utterances.last().plain(), m_clock.elapsed());
    emit changed();
}

QString SessionRecorder::save(const QString& path) const
{
    QSaveFile file(path);
    const QByteArray bytes = script().toUtf8();
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
        return QString();
    return tr("The script %1 cannot be written: %2").arg(path, file.errorString());
}
