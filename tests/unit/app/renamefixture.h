#ifndef RENAMEFIXTURE_H
#define RENAMEFIXTURE_H

#include "tests/shared/swipes.h"
#include "tests/shared/windowfixture.h"

/* Two files are listed newest first: b, a; a is the current file of the store. */
class RenameFixture : public WindowFixture
{
public:
    explicit RenameFixture(const QStringList& files = {QStringLiteral("a"), QStringLiteral("b")},
                           const std::function<void()>& prepare = nullptr)
        : WindowFixture(files, prepare)
    {
    }

    bool exists(const char* name) const
    {
        return state.root.exists(placeOf(QString::fromLatin1(name)));
    }

    MyEdit* input() const { return window->renameEditor(); }

    void openList(int index = 0)
    {
        window->openFileMenu();
        QCOMPARE(menu()->title(), QStringLiteral("Open file"));
        QVERIFY(menu()->setCurIndex(index));
    }

    /* Swipes a name over the list, which opens the input. */
    void startInput(const char16_t* text, int index = 0)
    {
        openList(index);
        swipeOver(text);
        QTRY_VERIFY(input() && current() == input());
    }
};

#endif
