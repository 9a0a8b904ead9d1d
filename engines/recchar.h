#ifndef RECCHAR_H
#define RECCHAR_H

#include "engines/receiver.h"

#include <QStack>

class MyEdit;

/*
 * The scan engine for the editor: a swipe becomes a record that the editor recognises later.
 *
 * The state is class-wide: one editor at a time receives scans; those that were receiving before
 * wait on a stack. Interface thread, except the callback.
 */
class RecChar
{
public:
    /* The editor that receives scans now; not owned. */
    static Receiver<MyEdit> editScan;

    /* Editors that received scans before, newest on top; not owned. */
    static QStack<MyEdit*> editStatck;

    /* Makes `edit` the receiver; the present one, if any, goes on the stack. */
    explicit RecChar(MyEdit* edit);

    /* Stops the engine, and makes the editor on top of the stack, if any, the receiver again. */
    ~RecChar();

    RecChar(const RecChar&) = delete;
    RecChar& operator=(const RecChar&) = delete;

    /* Makes `edit` the receiver without touching the stack. */
    void setEdit(MyEdit* edit);

    /* Starts the engine for the hand, the file-scan direction and the scan language of the
     * settings. 0, or -1 when the engine does not start. */
    int init();

    /* Stops the engine. 0, or -1 when it was not running. */
    int Uninitial();

    /* An editor is about to be destroyed: on return no scan reaches it any more, and it is not
     * on the stack. To be called before its RecChar is deleted. */
    static void forget(const MyEdit* edit);

    /* The engine's callback, on the engine's thread: stops speech, tells the launcher, and hands
     * a copy of the picture to the receiver. 0, or -1 for a null picture. */
    static int ReceivePanoImage(void* context, unsigned char* image, int width, int height,
                                unsigned char flag, char* extra);
};

#endif
