#ifndef TESTDESK_H
#define TESTDESK_H

#include "desk/desksession.h"

#include <QTemporaryDir>
#include <memory>

/* A page is set, a process starts, on a busy machine. */
constexpr int LongMs = 30'000;

/* A desk without a window, with a run root of its own and "testpen" for the pen. */
class TestDesk
{
public:
    /* `program` stands for the pen. */
    explicit TestDesk(const QString& program = QStringLiteral(TESTPEN));

    bool open() { return m_session.open(); }
    DeskSession& session() { return m_session; }

    /* A file or folder below the run root. */
    QString path(const QString& name) const { return m_root.filePath(name); }

    /* True once the pen shows its window, whose left half is lit. */
    bool startPen();
    bool isLeftLit() const;
    bool isRightLit() const;

    /* True once the page is laid. */
    bool layPage(const PageSource& source);
    /* A page for a pen whose camera is on. */
    bool layPageForSwipes();

private:
    QTemporaryDir m_root;
    DeskSession m_session;
};

#endif
