#ifndef SCRIPTARGUMENTS_H
#define SCRIPTARGUMENTS_H

#include "desk/deskscript.h"

#include <QStringList>

/* Reads the arguments of one command of a script, from left to right, into its fields. Each reader
 * returns what is wrong, or nothing. */
class ScriptArguments
{
public:
    ScriptArguments(QStringList words, DeskCommand& command);

    bool atEnd() const { return m_words.isEmpty(); }
    QString take() { return m_words.isEmpty() ? QString() : m_words.takeFirst(); }
    bool takeIf(const char* word);

    QString text(QString DeskCommand::*field) { return text(m_command.*field); }
    QString text(QString& into);

    QString language(QString& into);

    QString real(double& into, double least, double most);

    QString key();

    QString number(int least, int most);

    QString seconds();

    QString choice(const char* one, const char* zero);

    QString point(QPointF DeskCommand::*field);

    /* Places with the seconds at which the hand was there, growing; to the end of the line. */
    QString path();

    QString speed();

    QString message();

private:
    QStringList m_words;
    DeskCommand& m_command;
};

#endif
