#include "app/processglobals.h"

bool g_Lan = false;
QTranslator* translatorpass = nullptr;
QApplication* qApp1 = nullptr;
QMutex mutexScan;
QMutex pinyinMutex;
QMutex searchDate;
