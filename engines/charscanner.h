#ifndef CHARSCANNER_H
#define CHARSCANNER_H

#include "engines/receiver.h"

class MainWindow;

/*
 * The scan engine for a new file name: a swipe is recognised at once, inside the callback, and
 * the text goes to the main window.
 */
class CharScanner
{
public:
    /* The window that receives the text; not owned. It calls forget() before it dies. */
    static Receiver<MainWindow> editScan;

    /* Makes `window` the receiver. */
    explicit CharScanner(MainWindow* window);

    /* Starts the engine for the hand, the dictionary-scan direction and the scan language of the
     * settings. That the engine does not start is not reported. */
    void start();

    /* Stops the engine; 0. */
    int stop();

    /* The window is about to be destroyed: on return no text reaches it any more. */
    static void forget(const MainWindow* window);

    /* The engine's callback, on the engine's thread: tells the launcher, recognises the picture
     * and hands text that is not empty to the receiver. 0, or -1 for a null picture. */
    static int ReceivePanoImage(void* context, unsigned char* image, int width, int height,
                                unsigned char flag, char* extra);
};

#endif
