#ifndef STARTUP_H
#define STARTUP_H

/*
 * Start-up and tear-down of the process.
 *
 * Everything runs on the interface thread; no worker exists before the main window does.
 */

/* Runs the application; returns the event loop's result, or -1 when the language tables or the
 * scan-file store cannot be initialised (no window is then shown). */
int runApplication(int argc, char** argv);

/* Brings the scan-file store up: loads the list, then merges the files found in the folder.
 * Returns the result of FileManager::init(). */
int Init();

/* Brings the language tables up; returns the result of LanguageManager::init(). */
int languageInit();

/* The place on the device of the interface translation for a language code, or null when there is
 * none and the interface stays in English. Sets g_Lan for Chinese and English. */
const char* translationFor(int languageCode);

#endif
