#ifndef MENUVOICE_H
#define MENUVOICE_H

/* The voice that speaks menus in the language with that number: English has a voice for each
 * choice 0 to 5 (3 and 5 the same one), Spanish the one of Latin America when the Spanish setting
 * is 1; every other language and choice speaks with the language number itself. */
int menuVoice(int languageNumber, int voiceChoice, int spanishSetting);

#endif
