#include "desk/scriptreport.h"

#include "desk/desksession.h"
#include "desk/penfiles.h"

#include <QFileInfo>
#include <algorithm>
#include <cstdio>

namespace {

constexpr qsizetype LastUtterances = 5;
constexpr qsizetype LastMessages = 20;

QString seconds(qint64 microseconds)
{
    return QString::number(double(microseconds) / 1e6, 'f', 3);
}

QString printable(QString text)
{
    for (QChar& c : text) {
        if (c.category() == QChar::Other_Control || c.category() == QChar::Other_Format)
            c = QLatin1Char(' ');
    }
    return text;
}

QString messageLine(const Launcher::Entry& entry)
{
    const QString arrow = QLatin1String(entry.sent ? "to the pen:   " : "from the pen: ");
    return entry.time.toString(QStringLiteral("HH:mm:ss.zzz  ")) + arrow + entry.message
           + QLatin1String("  ") + QString::fromUtf8(entry.payload)
           + QLatin1String(entry.delivered ? "" : "  (nobody listens)");
}

} // namespace

ScriptReport::ScriptReport()
{
    m_clock.start();
    m_startUs = desklink::nowUs();
}

void ScriptReport::line(const QString& text) const
{
    const QByteArray bytes = printable(text).toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, std::size_t(bytes.size()), stdout);
    std::fflush(stdout);
}

void ScriptReport::heading(const QString& text) const
{
    line(QString());
    line(text);
}

void ScriptReport::event(const QString& text) const
{
    line(QStringLiteral("%1  ").arg(double(m_clock.elapsed()) / 1000.0, 8, 'f', 3) + text);
}

void ScriptReport::spoken(const Transcript::Utterance& utterance) const
{
    event(QStringLiteral("          says \"") + utterance.plain()
          + QLatin1String(utterance.stopped ? "\" (cut short)" : "\""));
}

void ScriptReport::summary(DeskSession& session, const QStringList& pictures) const
{
    heading(QStringLiteral("Files on the pen (below %1):").arg(session.setting().root));
    const QVector<penfiles::ScanFile> files = penfiles::list(session.setting().root);
    for (const penfiles::ScanFile& file : files) {
        line(QLatin1String("  ") + file.path + QStringLiteral(" (%1 bytes)").arg(file.bytes));
        line(QLatin1String("    \"") + file.text + QLatin1Char('"'));
    }
    if (files.isEmpty())
        line(QStringLiteral("  none"));

    heading(QStringLiteral("Words spoken (seconds since the start):"));
    for (const Transcript::Utterance& utterance : session.transcript().utterances()) {
        QString words = QLatin1String("  ") + seconds(utterance.beginUs - m_startUs)
                        + QStringLiteral("  language %1:").arg(utterance.language);
        for (const Transcript::Word& word : utterance.words)
            words += QLatin1String("  ") + seconds(word.timeUs - m_startUs) + QLatin1Char(' ')
                     + utterance.wordText(word);
        line(words);
    }
    const QFileInfo wav(session.setting().wav);
    heading(QStringLiteral("Sound:"));
    if (wav.exists())
        line(QLatin1String("  ") + wav.absoluteFilePath()
             + QStringLiteral(" (%1 bytes)").arg(wav.size()));
    else
        line(QStringLiteral("  none recorded"));
    heading(QStringLiteral("Pictures:"));
    for (const QString& picture : pictures)
        line(QLatin1String("  ") + picture);
    if (pictures.isEmpty())
        line(QStringLiteral("  none"));
}

void ScriptReport::failure(DeskSession& session, const QString& reason,
                           const QString& screenPicture) const
{
    heading(QLatin1String("FAILED: ") + reason);
    line(QLatin1String("The screen at that moment: ") + screenPicture);
    line(session.pen().isRunning() ? QStringLiteral("The pen is running.")
                                   : session.pen().lastEnd());
    heading(QStringLiteral("Last spoken:"));
    const auto& spoken = session.transcript().utterances();
    for (qsizetype i = std::max<qsizetype>(0, spoken.size() - LastUtterances); i < spoken.size();
         ++i)
        line(QLatin1String("  \"") + spoken.at(i).plain() + QLatin1Char('"'));
    heading(QStringLiteral("Swipes:"));
    for (const SwipeReport& report : session.swipeReports())
        line(QLatin1String("  ") + report.told());
    heading(QStringLiteral("Last messages:"));
    const auto& log = session.launcher().log();
    for (qsizetype i = std::max<qsizetype>(0, log.size() - LastMessages); i < log.size(); ++i)
        line(QLatin1String("  ") + messageLine(log.at(i)));
    heading(QStringLiteral("Last output of the pen:"));
    for (const QString& output : session.pen().lastOutput())
        line(QLatin1String("  ") + output);
}
