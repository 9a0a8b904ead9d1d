#ifndef PROCESSGLOBALS_H
#define PROCESSGLOBALS_H

#include <QMutex>

class QApplication;
class QTranslator;

/* True when the interface language is Simplified Chinese; false when it is English; left as it
 * was for every other language. */
extern bool g_Lan;

/* The one translator; owned by the start-up. Null before and after the run. */
extern QTranslator* translatorpass;

/* The application object; owned by the start-up. Null before and after the run. */
extern QApplication* qApp1;

/* Process-wide locks: scanning, pinyin look-ups, dictionary searches. */
extern QMutex mutexScan;
extern QMutex pinyinMutex;
extern QMutex searchDate;

#endif
