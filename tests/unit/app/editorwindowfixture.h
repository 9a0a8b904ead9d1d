#ifndef EDITORWINDOWFIXTURE_H
#define EDITORWINDOWFIXTURE_H

#include "engines/csoundthread.h"
#include "tests/shared/windowfixture.h"

/* The editor with a file open and a text in it, silent. */
class EditorWindowFixture : public WindowFixture
{
public:
    /* What the quick menu offers. */
    enum Item { ReadAgain, GoToBeginning, ReadingSettings, Translate, SelectDictionary, Languages };

    explicit EditorWindowFixture(const QString& text = QStringLiteral("one two three"))
    {
        openNewFile();
        settle();
        if (!text.isEmpty())
            window->editor()->appendText(text);
    }

    void settle()
    {
        QTRY_VERIFY(!window->menuSpeech()->isRunning()
                    && !window->editor()->soundThread()->isRunning());
        QCoreApplication::processEvents();
    }

    /* Opens the quick menu and triggers an item. */
    void chooseQuick(int item)
    {
        press(Qt::Key_F12);
        for (int i = 0; i < item; ++i)
            press(Qt::Key_Down);
        press(Qt::Key_Return);
    }
};

#endif
