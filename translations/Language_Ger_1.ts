<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>DictList</name>
    <message>
        <source>No dictionary.</source>
        <translation>Kein Wörterbuch.</translation>
    </message>
</context>
<context>
    <name>DictScanEdit</name>
    <message>
        <source>Form</source>
        <translation>Übersetzung</translation>
    </message>
    <message>
        <source>Current source language is chinese. Please scan chinese text.</source>
        <translation>Quellsprache: Chinesisch. Bitte chinesischen Text scannen.</translation>
    </message>
    <message>
        <source>No translation result.</source>
        <translation>Keine Übersetzung gefunden.</translation>
    </message>
    <message>
        <source>Last entry.</source>
        <translation>Letzter Eintrag.</translation>
    </message>
    <message>
        <source>First entry.</source>
        <translation>Erster Eintrag.</translation>
    </message>
    <message>
        <source>Entry %1 of %2</source>
        <translation>Eintrag %1 von %2</translation>
    </message>
    <message>
        <source>Start of text.</source>
        <translation>Textanfang.</translation>
    </message>
    <message>
        <source>End of entry.</source>
        <translation>Ende des Eintrags.</translation>
    </message>
    <message>
        <source>End of text.</source>
        <translation>Textende.</translation>
    </message>
</context>
<context>
    <name>DictSwitch</name>
    <message>
        <source>Select dictionary</source>
        <translation>Wörterbuch wählen</translation>
    </message>
    <message>
        <source>Scan language does not match dictionary source language!</source>
        <translation>Scansprache passt nicht zur Quellsprache des Wörterbuchs!</translation>
    </message>
</context>
<context>
    <name>FileManager</name>
    <message>
        <source>File system is damaged, please connect to PC and repair.</source>
        <translation>Speicher beschädigt. Bitte an einen Computer anschließen und reparieren.</translation>
    </message>
</context>
<context>
    <name>LanguageNames</name>
    <message>
        <source>English</source>
        <translation>Englisch</translation>
    </message>
    <message>
        <source>French</source>
        <translation>Französisch</translation>
    </message>
    <message>
        <source>German</source>
        <translation>Deutsch</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>Spanisch</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>Italienisch</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>Schwedisch</translation>
    </message>
    <message>
        <source>Danish</source>
        <translation>Dänisch</translation>
    </message>
    <message>
        <source>Norwegian</source>
        <translation>Norwegisch</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>Niederländisch</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>Portugiesisch</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>Russisch</translation>
    </message>
    <message>
        <source>Chinese, simplified</source>
        <translation>Chinesisch, vereinfacht</translation>
    </message>
</context>
<context>
    <name>LanguagePairs</name>
    <message>
        <source>Chinese-</source>
        <translation>Chinesisch-</translation>
    </message>
    <message>
        <source>Chinese</source>
        <translation>Chinesisch</translation>
    </message>
    <message>
        <source>English-</source>
        <translation>Englisch-</translation>
    </message>
    <message>
        <source>English</source>
        <translation>Englisch</translation>
    </message>
    <message>
        <source>French-</source>
        <translation>Französisch-</translation>
    </message>
    <message>
        <source>French</source>
        <translation>Französisch</translation>
    </message>
    <message>
        <source>German-</source>
        <translation>Deutsch-</translation>
    </message>
    <message>
        <source>German</source>
        <translation>Deutsch</translation>
    </message>
    <message>
        <source>Spanish-</source>
        <translation>Spanisch-</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>Spanisch</translation>
    </message>
    <message>
        <source>Italian-</source>
        <translation>Italienisch-</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>Italienisch</translation>
    </message>
    <message>
        <source>Swedish-</source>
        <translation>Schwedisch-</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>Schwedisch</translation>
    </message>
    <message>
        <source>Danish-</source>
        <translation>Dänisch-</translation>
    </message>
    <message>
        <source>Danish</source>
        <translation>Dänisch</translation>
    </message>
    <message>
        <source>Norwegian-</source>
        <translation>Norwegisch-</translation>
    </message>
    <message>
        <source>Norwegian</source>
        <translation>Norwegisch</translation>
    </message>
    <message>
        <source>Dutch-</source>
        <translation>Niederländisch-</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>Niederländisch</translation>
    </message>
    <message>
        <source>Portuguese-</source>
        <translation>Portugiesisch-</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>Portugiesisch</translation>
    </message>
    <message>
        <source>Russian-</source>
        <translation>Russisch-</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>Russisch</translation>
    </message>
    <message>
        <source>Arabic-</source>
        <translation>Arabisch-</translation>
    </message>
    <message>
        <source>Arabic</source>
        <translation>Arabisch</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>MainWindow</source>
        <translation>Swipeline</translation>
    </message>
    <message>
        <source>Scan to file</source>
        <translation>In Datei scannen</translation>
    </message>
    <message>
        <source>New file</source>
        <translation>Neue Datei</translation>
    </message>
    <message>
        <source>Open file</source>
        <translation>Datei öffnen</translation>
    </message>
    <message>
        <source>Delete file</source>
        <translation>Datei löschen</translation>
    </message>
    <message>
        <source>Scan settings</source>
        <translation>Scan-Einstellungen</translation>
    </message>
    <message>
        <source>Continue scan</source>
        <translation>Weiterscannen</translation>
    </message>
    <message>
        <source>Are you sure to delete it?</source>
        <translation>Datei wirklich löschen?</translation>
    </message>
    <message>
        <source>Press OK to delete, or right to interrupt.</source>
        <translation>Zum Löschen OK drücken, zum Abbrechen rechts.</translation>
    </message>
    <message>
        <source>Press OK to interrupt, or left to delete.</source>
        <translation>Zum Abbrechen OK drücken, zum Löschen links.</translation>
    </message>
    <message>
        <source>The file cannot be deleted.</source>
        <translation>Die Datei lässt sich nicht löschen.</translation>
    </message>
    <message>
        <source>No available files!</source>
        <translation>Keine Dateien vorhanden!</translation>
    </message>
    <message>
        <source>No enough storage space. Please remove some files.</source>
        <translation>Zu wenig Speicherplatz. Bitte einige Dateien löschen.</translation>
    </message>
    <message>
        <source>word is null</source>
        <translation>Hier steht kein Wort.</translation>
    </message>
    <message>
        <source>Nothing recognised.</source>
        <translation>Nichts erkannt.</translation>
    </message>
    <message>
        <source>Press left or right for the languages, up or down for the dictionary, OK to go back.</source>
        <translation>Für die Sprachen links oder rechts drücken, für das Wörterbuch nach oben oder unten, zum Zurückgehen OK.</translation>
    </message>
    <message>
        <source>The dictionary cannot be opened. Please select another one.</source>
        <translation>Das Wörterbuch lässt sich nicht öffnen. Bitte ein anderes wählen.</translation>
    </message>
    <message>
        <source>No dictionary is installed.</source>
        <translation>Kein Wörterbuch installiert.</translation>
    </message>
    <message>
        <source>Please wait.</source>
        <translation>Bitte warten.</translation>
    </message>
    <message>
        <source>Dictionary Read Settings</source>
        <translation>Vorlesen im Wörterbuch</translation>
    </message>
    <message>
        <source>English voice</source>
        <translation>Englische Stimme</translation>
    </message>
    <message>
        <source>Other settings</source>
        <translation>Andere Einstellungen</translation>
    </message>
    <message>
        <source>Read translation</source>
        <translation>Übersetzung vorlesen</translation>
    </message>
    <message>
        <source>There are no new words.</source>
        <translation>Es gibt keine neuen Wörter.</translation>
    </message>
    <message>
        <source>New words</source>
        <translation>Neue Wörter</translation>
    </message>
    <message>
        <source>There is no translation.</source>
        <translation>Es gibt keine Übersetzung.</translation>
    </message>
    <message>
        <source>Dictionaries</source>
        <translation>Wörterbücher</translation>
    </message>
    <message>
        <source>Select dictionary</source>
        <translation>Wörterbuch wählen</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>More settings</source>
        <translation>Weitere Einstellungen</translation>
    </message>
    <message>
        <source>Read delay</source>
        <translation>Wartezeit vor dem Vorlesen</translation>
    </message>
    <message>
        <source>TTS Setting</source>
        <translation>Englische Stimme</translation>
    </message>
    <message>
        <source>Scan Direction</source>
        <translation>Scanrichtung</translation>
    </message>
    <message>
        <source>Line %1 of %2</source>
        <translation>Zeile %1 von %2</translation>
    </message>
    <message>
        <source>Scan quick settings</source>
        <translation>Schnelleinstellungen</translation>
    </message>
    <message>
        <source>Read again.</source>
        <translation>Noch einmal vorlesen</translation>
    </message>
    <message>
        <source>Go to beginning</source>
        <translation>Zum Anfang</translation>
    </message>
    <message>
        <source>Reading settings</source>
        <translation>Vorlese-Einstellungen</translation>
    </message>
    <message>
        <source>Translate</source>
        <translation>Übersetzen</translation>
    </message>
    <message>
        <source>Scan languages</source>
        <translation>Scansprache</translation>
    </message>
    <message>
        <source>This file cannot be renamed.</source>
        <translation>Diese Datei lässt sich nicht umbenennen.</translation>
    </message>
    <message>
        <source>Scan to rename,press ok to confirm.</source>
        <translation>Neuen Namen scannen, mit OK bestätigen.</translation>
    </message>
    <message>
        <source>Sure to rename the file?</source>
        <translation>Datei wirklich umbenennen?</translation>
    </message>
    <message>
        <source>Press OK to rename, or right to interrupt.</source>
        <translation>Zum Umbenennen OK drücken, zum Abbrechen rechts.</translation>
    </message>
    <message>
        <source>Press OK to interrupt, or left to rename.</source>
        <translation>Zum Abbrechen OK drücken, zum Umbenennen links.</translation>
    </message>
    <message>
        <source>File exists.</source>
        <translation>Diesen Namen gibt es schon.</translation>
    </message>
    <message>
        <source>The file cannot be renamed.</source>
        <translation>Die Datei lässt sich nicht umbenennen.</translation>
    </message>
    <message>
        <source>File system is damaged, please connect to PC and repair.</source>
        <translation>Speicher beschädigt. Bitte an einen Computer anschließen und reparieren.</translation>
    </message>
    <message>
        <source>Max number of files exceeded. Please remove some files.</source>
        <translation>Es gibt zu viele Dateien. Bitte einige löschen.</translation>
    </message>
    <message>
        <source>The file is missing.</source>
        <translation>Die Datei fehlt.</translation>
    </message>
    <message>
        <source>Vertical Text Scan Mode!</source>
        <translation>Scanmodus: senkrechter Text!</translation>
    </message>
    <message>
        <source>none</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>1s</source>
        <translation>Eine Sekunde</translation>
    </message>
    <message>
        <source>2s</source>
        <translation>Zwei Sekunden</translation>
    </message>
    <message>
        <source>3s</source>
        <translation>Drei Sekunden</translation>
    </message>
    <message>
        <source>British English</source>
        <translation>Britisches Englisch</translation>
    </message>
    <message>
        <source>American English</source>
        <translation>Amerikanisches Englisch</translation>
    </message>
    <message>
        <source>Horizontal Text Scan</source>
        <translation>Waagerechter Text</translation>
    </message>
    <message>
        <source>Vertical Text Scan</source>
        <translation>Senkrechter Text</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Geschwindigkeit</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>On</source>
        <translation>Ein</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Reading</source>
        <translation>Vorlesen</translation>
    </message>
    <message>
        <source>Word Pause</source>
        <translation>Wortpause</translation>
    </message>
    <message>
        <source>Punc Pause</source>
        <translation>Satzzeichenpause</translation>
    </message>
    <message>
        <source>Read OK</source>
        <translation>Wort vorlesen</translation>
    </message>
    <message>
        <source>Press left or right to change, OK to go back.</source>
        <translation>Zum Ändern links oder rechts drücken, zum Zurückgehen OK.</translation>
    </message>
    <message>
        <source>Press OK to select, or down for other options.</source>
        <translation>Zum Auswählen OK drücken, für weitere Optionen nach unten.</translation>
    </message>
    <message>
        <source>Press OK to select, or up or down for more options.</source>
        <translation>Zum Auswählen OK drücken, für weitere Optionen nach oben oder unten.</translation>
    </message>
    <message>
        <source>Press OK to select, or Up for other options.</source>
        <translation>Zum Auswählen OK drücken, für weitere Optionen nach oben.</translation>
    </message>
    <message>
        <source>Scan to File mode. </source>
        <translation>In Datei scannen. </translation>
    </message>
    <message>
        <source>Scan or press Menu for options.</source>
        <translation>Scannen, oder für Optionen Menü drücken.</translation>
    </message>
    <message>
        <source>The name is empty.</source>
        <translation>Der Name fehlt.</translation>
    </message>
    <message>
        <source>String is too long.</source>
        <translation>Der Name ist zu lang.</translation>
    </message>
    <message>
        <source>Invalid character.</source>
        <translation>Dieses Zeichen ist nicht erlaubt.</translation>
    </message>
    <message>
        <source>This name cannot be used.</source>
        <translation>Dieser Name ist nicht erlaubt.</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>to</source>
        <translation>umbenennen in</translation>
    </message>
</context>
<context>
    <name>MyEdit</name>
    <message>
        <source>The file is too big, do not edit the file in computer.</source>
        <translation>Die Datei ist zu groß. Bitte nicht am Computer bearbeiten.</translation>
    </message>
    <message>
        <source>Not saved. Text is kept here.</source>
        <translation>Nicht gespeichert. Text bleibt.</translation>
    </message>
    <message>
        <source>The text is kept in the pen.</source>
        <translation>Der Text bleibt im Stift.</translation>
    </message>
    <message>
        <source>No text.</source>
        <translation>Kein Text.</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Nothing recognised.</source>
        <translation>Nichts erkannt.</translation>
    </message>
    <message>
        <source>The file is too big. Please create new file.</source>
        <translation>Die Datei ist zu groß. Bitte eine neue Datei anlegen.</translation>
    </message>
    <message>
        <source>Start of text.</source>
        <translation>Textanfang.</translation>
    </message>
    <message>
        <source>End of text.</source>
        <translation>Textende.</translation>
    </message>
</context>
<context>
    <name>YesnoSelect</name>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Are you sure to delete it?</source>
        <translation>Datei wirklich löschen?</translation>
    </message>
</context>
</TS>
