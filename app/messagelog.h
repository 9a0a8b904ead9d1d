#ifndef MESSAGELOG_H
#define MESSAGELOG_H

#include <QtGlobal>

/*
 * Appends one diagnostic line to "/mnt/mmc/scandebuglog.txt": "Debug: ", "Warning: ", "Critical: "
 * or "Fatal: " and the message (ASCII); an empty line for any other type. A file that cannot be
 * opened is no error, and a fatal message does not end the process. Any thread, one at a time.
 *
 * Not installed by the application; installMessageLog() does it when a log on the card is wanted.
 */
void customMessageHandler(QtMsgType type, const char* msg);

/* Sends Qt's own messages to customMessageHandler. */
void installMessageLog();

#endif
