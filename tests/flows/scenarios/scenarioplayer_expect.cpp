// ScenarioPlayer, what must come of an action.

#include "tests/flows/scenarios/scenarioplayer.h"

#include "desk/scriptwords.h"
#include "store/filemanager.h"
#include "store/newwordmanager.h"

#include <QSettings>

using scriptwords::quoted;

namespace {

// A scan file's text with line ends as the editor has them.
QString textOf(const QByteArray& bytes)
{
    QString text =
        QString::fromUtf16(reinterpret_cast<const char16_t*>(bytes.constData()), bytes.size() / 2);
    if (text.startsWith(QChar(QChar::ByteOrderMark)))
        text.remove(0, 1);
    return text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

} // namespace

bool ScenarioPlayer::expect(const Step& step)
{
    if (m_mode == Mode::Tell)
        return true;
    const qsizetype line = m_story.size();
    m_story.append(QString());
    const bool met = meets(step);
    m_story[line] =
        QStringLiteral("  %1 %2  (%3)").arg(met ? "ok" : "WRONG", step.source, step.place);
    return met;
}

bool ScenarioPlayer::meets(const Step& step)
{
    switch (step.verb) {
    case Verb::Screen:
    case Verb::SameScreen:
    case Verb::KnownScreen:
        return expectScreen(step);
    case Verb::Spoken:
        return expectSpoken(step);
    case Verb::SpokenPerhaps:
        if (!m_spoken.isEmpty() && m_spoken.first().text == step.text)
            m_spoken.removeFirst();
        return true;
    case Verb::SpokenAnything:
        m_spoken.clear();
        return true;
    case Verb::Silent:
        return !m_somethingSpoken || fail(QStringLiteral("something was spoken"));
    case Verb::Sent:
        return expectSent(step);
    case Verb::List:
        return expectList(step);
    case Verb::Book:
    case Verb::Counted:
        return expectWords(step);
    case Verb::Setting:
        return expectSetting(step);
    case Verb::Engine:
        return m_engines.contains(step.text)
               || fail(QStringLiteral("the engine was not called so"));
    case Verb::Ended:
        return fail(QStringLiteral("the application still runs"));
    default:
        return expectFile(step);
    }
}

bool ScenarioPlayer::expectList(const Step& step)
{
    QVector<FileInfo> files;
    FileManager::Instance()->getInfoList(files);
    QStringList names;
    for (const FileInfo& file : files)
        names.append(file.name);
    return names == step.texts || differs("list", step.texts.join(u' '), names.join(u' '));
}

bool ScenarioPlayer::expectWords(const Step& step)
{
    QStringList words;
    if (step.verb == Verb::Book) {
        WordItem item;
        for (int i = NewWordManager::Instance()->getSize() - 1; i >= 0; --i) {
            NewWordManager::Instance()->get(i, item);
            words.append(item.word);
        }
    } else {
        const QString text =
            textOf(m_stage.state().root.read(QStringLiteral("/mnt/mmc/Stastistic_File.txt")));
        for (QString record : text.split(u'\n', Qt::SkipEmptyParts))
            words.append(record.remove(QChar(QChar::ByteOrderMark)).section(u'\t', 0, 0));
    }
    return words == step.texts || differs("words", step.texts.join(u' '), words.join(u' '));
}

bool ScenarioPlayer::expectScreen(const Step& step)
{
    const ScreenText found = describeScreen();
    if (step.verb != Verb::Screen) {
        const ScreenText& known = step.verb == Verb::SameScreen ? m_before : m_remembered;
        return found == known || differs("screen", known.toString(), found.toString());
    }
    if (found.kind != step.name)
        return differs("screen", step.name, found.toString());
    for (auto field = step.fields.begin(); field != step.fields.end(); ++field) {
        if (found.fields.value(field.key()) != field.value())
            return differs(field.key(), field.value().join(u'|'),
                           found.fields.value(field.key()).join(u'|'));
    }
    for (const char* sign : {"busy", "frozen"}) {
        if (found.fields.contains(sign) && !step.fields.contains(sign))
            return fail(QStringLiteral("the screen is %1").arg(QLatin1String(sign)));
    }
    return true;
}

bool ScenarioPlayer::expectSpoken(const Step& step)
{
    if (m_spoken.isEmpty())
        return fail(QStringLiteral("nothing more was spoken"));
    const Utterance spoken = m_spoken.takeFirst();
    const bool same = spoken.text == step.text
                      && spoken.language == step.language.value_or(spoken.language)
                      && spoken.speed == step.speed.value_or(spoken.speed)
                      && spoken.volume == step.volume.value_or(spoken.volume);
    return same || differs("speech", step.source, toldAs(spoken));
}

bool ScenarioPlayer::expectSent(const Step& step)
{
    const QString message = step.name + u' ' + step.text;
    if (m_sent.isEmpty())
        return fail(QStringLiteral("nothing more was sent"));
    const QString sent = m_sent.takeFirst();
    return sent == message || differs("message", message, sent);
}

bool ScenarioPlayer::expectFile(const Step& step)
{
    const TestRoot& root = m_stage.state().root;
    const QString path = scanPath(step.name);
    if (root.exists(path) == (step.verb == Verb::NoFile))
        return fail(QStringLiteral("the file %1 is %2")
                        .arg(step.name, QLatin1String(root.exists(path) ? "there" : "missing")));
    const QString text = textOf(root.read(path));
    if (step.verb == Verb::File)
        return text == step.text || differs("text", quoted(step.text), quoted(text));
    if (step.verb == Verb::Units)
        return text.size() == step.number
               || differs("units", QString::number(step.number), QString::number(text.size()));
    return true;
}

bool ScenarioPlayer::expectSetting(const Step& step)
{
    const QSettings settings(m_stage.state().root.path(QStringLiteral("/apps/config/config.ini")),
                             QSettings::IniFormat);
    const QString value = settings.value(step.name, QStringLiteral("missing")).toString();
    return value == QString::number(step.number)
           || differs("setting", QString::number(step.number), value);
}
