#ifndef SCRIPTCONDITIONS_H
#define SCRIPTCONDITIONS_H

#include "desk/deskscript.h"

#include <QImage>
#include <functional>

class DeskSession;

/*
 * What a script waits for and expects, looked up on a desk. Waits for the screen, for speech,
 * messages and swipes look at what happened since the last mark(); expectations look at the whole
 * run.
 */
class ScriptConditions
{
public:
    /* `session` must outlive this object. */
    explicit ScriptConditions(DeskSession& session);

    /* An action begins: waits look at what comes from now on. */
    void mark();

    /* What a wait command waits for; empty for every other command. The condition looks at this
     * object. */
    std::function<bool()> of(const DeskCommand& command) const;

    /* Whether what an expect command says is true now. */
    bool expected(const DeskCommand& command) const { return holds(command, false); }

private:
    /* How things stood at the last action. */
    struct Mark
    {
        QImage screen;
        qsizetype utterances = 0;
        qsizetype messages = 0;
        qsizetype swipes = 0;
    };

    std::function<bool()> stillness() const;
    bool holds(const DeskCommand& command, bool sinceMark) const;

    DeskSession& m_session;
    Mark m_mark;
};

#endif
