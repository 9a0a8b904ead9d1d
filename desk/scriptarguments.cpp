#include "desk/scriptarguments.h"

#include "desk/penkeys.h"
#include "desk/scriptwords.h"

#include <QCoreApplication>

namespace {

constexpr double MaxSpeed = 2000.0;

QString tr(const char* text)
{
    return QCoreApplication::translate("DeskScript", text);
}

} // namespace

ScriptArguments::ScriptArguments(QStringList words, DeskCommand& command)
    : m_words(std::move(words)), m_command(command)
{
}

bool ScriptArguments::takeIf(const char* word)
{
    if (m_words.isEmpty() || m_words.first() != QLatin1String(word))
        return false;
    m_words.removeFirst();
    return true;
}

QString ScriptArguments::text(QString& into)
{
    into = take();
    return into.isEmpty() ? tr("a text is missing") : QString();
}

QString ScriptArguments::language(QString& into)
{
    into = take();
    return into.size() == 2 ? QString() : tr("the language is missing, as two letters");
}

QString ScriptArguments::real(double& into, double least, double most)
{
    bool ok = false;
    const QString word = take();
    into = word.toDouble(&ok);
    return ok && into >= least && into <= most
               ? QString()
               : tr("\"%1\" is no number from %2 to %3").arg(word).arg(least).arg(most);
}

QString ScriptArguments::key()
{
    const QString name = take();
    const auto key = penkeys::fromName(name);
    if (!key)
        return tr("there is no key \"%1\"; there are %2")
            .arg(name, penkeys::names().join(QLatin1String(", ")));
    m_command.key = *key;
    return QString();
}

QString ScriptArguments::number(int least, int most)
{
    bool ok = false;
    const QString word = take();
    m_command.number = word.toInt(&ok);
    if (!ok || m_command.number < least || m_command.number > most)
        return tr("\"%1\" is no number from %2 to %3").arg(word).arg(least).arg(most);
    return QString();
}

QString ScriptArguments::seconds()
{
    bool ok = false;
    const QString word = take();
    const double seconds = word.toDouble(&ok);
    if (!ok || seconds <= 0.0 || seconds * 1000.0 > DeskCommand::MaxMs)
        return tr("\"%1\" is no time in seconds").arg(word);
    m_command.number = int(seconds * 1000.0);
    return QString();
}

QString ScriptArguments::choice(const char* one, const char* zero)
{
    const QString word = take();
    if (word != QLatin1String(one) && word != QLatin1String(zero))
        return tr("\"%1\" should be %2 or %3").arg(word, QLatin1String(one), QLatin1String(zero));
    m_command.number = word == QLatin1String(one) ? 1 : 0;
    return QString();
}

QString ScriptArguments::point(QPointF DeskCommand::*field)
{
    const QString word = take();
    return scriptwords::readPoint(word, m_command.*field)
               ? QString()
               : tr("\"%1\" is no place; write X,Y in mm").arg(word);
}

QString ScriptArguments::path()
{
    while (!atEnd()) {
        const QString word = take();
        PathPoint point = {};
        const QString place = word.section(QLatin1Char('@'), 0, 0);
        bool ok = false;
        point.seconds = word.section(QLatin1Char('@'), 1).toDouble(&ok);
        const bool later = m_command.path.empty() || point.seconds > m_command.path.back().seconds;
        if (!ok || !scriptwords::readPoint(place, point.mm) || !later
            || point.seconds > DeskCommand::MaxMs / 1000.0)
            return tr("\"%1\" is no step of a way; write X,Y@S in mm and growing seconds")
                .arg(word);
        m_command.path.push_back(point);
    }
    return m_command.path.size() < 2 ? tr("a way has two steps at least") : QString();
}

QString ScriptArguments::speed()
{
    if (!takeIf("speed"))
        return QString();
    bool ok = false;
    const QString word = take();
    m_command.speed = word.toDouble(&ok);
    return ok && m_command.speed > 0.0 && m_command.speed <= MaxSpeed
               ? QString()
               : tr("\"%1\" is no speed in mm a second").arg(word);
}

QString ScriptArguments::message()
{
    m_command.message = take();
    m_command.payload = take().toUtf8();
    return m_command.message.isEmpty() ? tr("the message is missing") : QString();
}
