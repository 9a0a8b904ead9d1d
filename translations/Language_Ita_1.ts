<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it" sourcelanguage="en">
<context>
    <name>DictList</name>
    <message>
        <source>No dictionary.</source>
        <translation>Nessun dizionario.</translation>
    </message>
</context>
<context>
    <name>DictScanEdit</name>
    <message>
        <source>Form</source>
        <translation>Traduzione</translation>
    </message>
    <message>
        <source>Current source language is chinese. Please scan chinese text.</source>
        <translation>Lingua di partenza: cinese. Scansionare un testo cinese.</translation>
    </message>
    <message>
        <source>No translation result.</source>
        <translation>Nessuna traduzione trovata.</translation>
    </message>
    <message>
        <source>Last entry.</source>
        <translation>Ultimo risultato.</translation>
    </message>
    <message>
        <source>First entry.</source>
        <translation>Primo risultato.</translation>
    </message>
    <message>
        <source>Entry %1 of %2</source>
        <translation>Risultato %1 di %2</translation>
    </message>
    <message>
        <source>Start of text.</source>
        <translation>Inizio del testo.</translation>
    </message>
    <message>
        <source>End of entry.</source>
        <translation>Fine del risultato.</translation>
    </message>
    <message>
        <source>End of text.</source>
        <translation>Fine del testo.</translation>
    </message>
</context>
<context>
    <name>DictSwitch</name>
    <message>
        <source>Select dictionary</source>
        <translation>Scegli dizionario</translation>
    </message>
    <message>
        <source>Scan language does not match dictionary source language!</source>
        <translation>La lingua di scansione non corrisponde alla lingua di partenza del dizionario!</translation>
    </message>
</context>
<context>
    <name>FileManager</name>
    <message>
        <source>File system is damaged, please connect to PC and repair.</source>
        <translation>Memoria danneggiata. Collegare la penna a un computer e ripararla.</translation>
    </message>
</context>
<context>
    <name>LanguageNames</name>
    <message>
        <source>English</source>
        <translation>Inglese</translation>
    </message>
    <message>
        <source>French</source>
        <translation>Francese</translation>
    </message>
    <message>
        <source>German</source>
        <translation>Tedesco</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>Spagnolo</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>Italiano</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>Svedese</translation>
    </message>
    <message>
        <source>Danish</source>
        <translation>Danese</translation>
    </message>
    <message>
        <source>Norwegian</source>
        <translation>Norvegese</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>Olandese</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>Portoghese</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>Russo</translation>
    </message>
    <message>
        <source>Chinese, simplified</source>
        <translation>Cinese semplificato</translation>
    </message>
</context>
<context>
    <name>LanguagePairs</name>
    <message>
        <source>Chinese-</source>
        <translation>Cinese-</translation>
    </message>
    <message>
        <source>Chinese</source>
        <translation>cinese</translation>
    </message>
    <message>
        <source>English-</source>
        <translation>Inglese-</translation>
    </message>
    <message>
        <source>English</source>
        <translation>inglese</translation>
    </message>
    <message>
        <source>French-</source>
        <translation>Francese-</translation>
    </message>
    <message>
        <source>French</source>
        <translation>francese</translation>
    </message>
    <message>
        <source>German-</source>
        <translation>Tedesco-</translation>
    </message>
    <message>
        <source>German</source>
        <translation>tedesco</translation>
    </message>
    <message>
        <source>Spanish-</source>
        <translation>Spagnolo-</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>spagnolo</translation>
    </message>
    <message>
        <source>Italian-</source>
        <translation>Italiano-</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>italiano</translation>
    </message>
    <message>
        <source>Swedish-</source>
        <translation>Svedese-</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>svedese</translation>
    </message>
    <message>
        <source>Danish-</source>
        <translation>Danese-</translation>
    </message>
    <message>
        <source>Danish</source>
        <translation>danese</translation>
    </message>
    <message>
        <source>Norwegian-</source>
        <translation>Norvegese-</translation>
    </message>
    <message>
        <source>Norwegian</source>
        <translation>norvegese</translation>
    </message>
    <message>
        <source>Dutch-</source>
        <translation>Olandese-</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>olandese</translation>
    </message>
    <message>
        <source>Portuguese-</source>
        <translation>Portoghese-</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>portoghese</translation>
    </message>
    <message>
        <source>Russian-</source>
        <translation>Russo-</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>russo</translation>
    </message>
    <message>
        <source>Arabic-</source>
        <translation>Arabo-</translation>
    </message>
    <message>
        <source>Arabic</source>
        <translation>arabo</translation>
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
        <translation>Scansione in un documento</translation>
    </message>
    <message>
        <source>New file</source>
        <translation>Nuovo documento</translation>
    </message>
    <message>
        <source>Open file</source>
        <translation>Apri documento</translation>
    </message>
    <message>
        <source>Delete file</source>
        <translation>Elimina documento</translation>
    </message>
    <message>
        <source>Scan settings</source>
        <translation>Impostazioni di scansione</translation>
    </message>
    <message>
        <source>Continue scan</source>
        <translation>Continua scansione</translation>
    </message>
    <message>
        <source>Are you sure to delete it?</source>
        <translation>Eliminare questo documento?</translation>
    </message>
    <message>
        <source>Press OK to delete, or right to interrupt.</source>
        <translation>Premere OK per eliminare, oppure destra per annullare.</translation>
    </message>
    <message>
        <source>Press OK to interrupt, or left to delete.</source>
        <translation>Premere OK per annullare, oppure sinistra per eliminare.</translation>
    </message>
    <message>
        <source>The file cannot be deleted.</source>
        <translation>Impossibile eliminare il documento.</translation>
    </message>
    <message>
        <source>No available files!</source>
        <translation>Nessun documento disponibile!</translation>
    </message>
    <message>
        <source>No enough storage space. Please remove some files.</source>
        <translation>Memoria insufficiente. Eliminare alcuni documenti.</translation>
    </message>
    <message>
        <source>word is null</source>
        <translation>Qui non c&apos;è nessuna parola.</translation>
    </message>
    <message>
        <source>Nothing recognised.</source>
        <translation>Nessun testo riconosciuto.</translation>
    </message>
    <message>
        <source>Press left or right for the languages, up or down for the dictionary, OK to go back.</source>
        <translation>Premere sinistra o destra per le lingue, su o giù per il dizionario, OK per tornare indietro.</translation>
    </message>
    <message>
        <source>The dictionary cannot be opened. Please select another one.</source>
        <translation>Impossibile aprire il dizionario. Sceglierne un altro.</translation>
    </message>
    <message>
        <source>No dictionary is installed.</source>
        <translation>Nessun dizionario installato.</translation>
    </message>
    <message>
        <source>Please wait.</source>
        <translation>Attendere, prego.</translation>
    </message>
    <message>
        <source>Dictionary Read Settings</source>
        <translation>Lettura del dizionario</translation>
    </message>
    <message>
        <source>English voice</source>
        <translation>Voce inglese</translation>
    </message>
    <message>
        <source>Other settings</source>
        <translation>Altre impostazioni</translation>
    </message>
    <message>
        <source>Read translation</source>
        <translation>Leggi traduzione</translation>
    </message>
    <message>
        <source>There are no new words.</source>
        <translation>Non ci sono parole nuove.</translation>
    </message>
    <message>
        <source>New words</source>
        <translation>Parole nuove</translation>
    </message>
    <message>
        <source>There is no translation.</source>
        <translation>Non c&apos;è nessuna traduzione.</translation>
    </message>
    <message>
        <source>Dictionaries</source>
        <translation>Dizionari</translation>
    </message>
    <message>
        <source>Select dictionary</source>
        <translation>Scegli dizionario</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 di %2</translation>
    </message>
    <message>
        <source>More settings</source>
        <translation>Ulteriori impostazioni</translation>
    </message>
    <message>
        <source>Read delay</source>
        <translation>Attesa prima di leggere</translation>
    </message>
    <message>
        <source>TTS Setting</source>
        <translation>Voce inglese</translation>
    </message>
    <message>
        <source>Scan Direction</source>
        <translation>Direzione di scansione</translation>
    </message>
    <message>
        <source>Line %1 of %2</source>
        <translation>Riga %1 di %2</translation>
    </message>
    <message>
        <source>Scan quick settings</source>
        <translation>Impostazioni rapide</translation>
    </message>
    <message>
        <source>Read again.</source>
        <translation>Rileggi</translation>
    </message>
    <message>
        <source>Go to beginning</source>
        <translation>Vai all&apos;inizio</translation>
    </message>
    <message>
        <source>Reading settings</source>
        <translation>Impostazioni di lettura</translation>
    </message>
    <message>
        <source>Translate</source>
        <translation>Traduci</translation>
    </message>
    <message>
        <source>Scan languages</source>
        <translation>Lingua di scansione</translation>
    </message>
    <message>
        <source>This file cannot be renamed.</source>
        <translation>Questo documento non si può rinominare.</translation>
    </message>
    <message>
        <source>Scan to rename,press ok to confirm.</source>
        <translation>Scansionare il nuovo nome, poi premere OK.</translation>
    </message>
    <message>
        <source>Sure to rename the file?</source>
        <translation>Rinominare questo documento?</translation>
    </message>
    <message>
        <source>Press OK to rename, or right to interrupt.</source>
        <translation>Premere OK per rinominare, oppure destra per annullare.</translation>
    </message>
    <message>
        <source>Press OK to interrupt, or left to rename.</source>
        <translation>Premere OK per annullare, oppure sinistra per rinominare.</translation>
    </message>
    <message>
        <source>File exists.</source>
        <translation>Questo nome esiste già.</translation>
    </message>
    <message>
        <source>The file cannot be renamed.</source>
        <translation>Impossibile rinominare il documento.</translation>
    </message>
    <message>
        <source>File system is damaged, please connect to PC and repair.</source>
        <translation>Memoria danneggiata. Collegare la penna a un computer e ripararla.</translation>
    </message>
    <message>
        <source>Max number of files exceeded. Please remove some files.</source>
        <translation>Ci sono troppi documenti. Eliminarne alcuni.</translation>
    </message>
    <message>
        <source>The file is missing.</source>
        <translation>Documento non trovato.</translation>
    </message>
    <message>
        <source>Vertical Text Scan Mode!</source>
        <translation>Modalità testo verticale!</translation>
    </message>
    <message>
        <source>none</source>
        <translation>Nessuna</translation>
    </message>
    <message>
        <source>1s</source>
        <translation>Un secondo</translation>
    </message>
    <message>
        <source>2s</source>
        <translation>Due secondi</translation>
    </message>
    <message>
        <source>3s</source>
        <translation>Tre secondi</translation>
    </message>
    <message>
        <source>British English</source>
        <translation>Inglese britannico</translation>
    </message>
    <message>
        <source>American English</source>
        <translation>Inglese americano</translation>
    </message>
    <message>
        <source>Horizontal Text Scan</source>
        <translation>Testo orizzontale</translation>
    </message>
    <message>
        <source>Vertical Text Scan</source>
        <translation>Testo verticale</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Velocità</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>On</source>
        <translation>Sì</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>No</translation>
    </message>
    <message>
        <source>Reading</source>
        <translation>Lettura</translation>
    </message>
    <message>
        <source>Word Pause</source>
        <translation>Pausa tra parole</translation>
    </message>
    <message>
        <source>Punc Pause</source>
        <translation>Pausa punteggiatura</translation>
    </message>
    <message>
        <source>Read OK</source>
        <translation>Leggi parola</translation>
    </message>
    <message>
        <source>Press left or right to change, OK to go back.</source>
        <translation>Premere sinistra o destra per cambiare, OK per tornare indietro.</translation>
    </message>
    <message>
        <source>Press OK to select, or down for other options.</source>
        <translation>Premere OK per scegliere, oppure giù per altre opzioni.</translation>
    </message>
    <message>
        <source>Press OK to select, or up or down for more options.</source>
        <translation>Premere OK per scegliere, oppure su o giù per altre opzioni.</translation>
    </message>
    <message>
        <source>Press OK to select, or Up for other options.</source>
        <translation>Premere OK per scegliere, oppure su per altre opzioni.</translation>
    </message>
    <message>
        <source>Scan to File mode. </source>
        <translation>Scansione in un documento. </translation>
    </message>
    <message>
        <source>Scan or press Menu for options.</source>
        <translation>Scansionare, oppure premere Menu per le opzioni.</translation>
    </message>
    <message>
        <source>The name is empty.</source>
        <translation>Manca il nome.</translation>
    </message>
    <message>
        <source>String is too long.</source>
        <translation>Il nome è troppo lungo.</translation>
    </message>
    <message>
        <source>Invalid character.</source>
        <translation>Carattere non valido.</translation>
    </message>
    <message>
        <source>This name cannot be used.</source>
        <translation>Questo nome non si può usare.</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Rinomina</translation>
    </message>
    <message>
        <source>to</source>
        <translation>in</translation>
    </message>
</context>
<context>
    <name>MyEdit</name>
    <message>
        <source>The file is too big, do not edit the file in computer.</source>
        <translation>Il documento è troppo grande. Non modificarlo al computer.</translation>
    </message>
    <message>
        <source>Not saved. Text is kept here.</source>
        <translation>Non salvato. Il testo resta qui.</translation>
    </message>
    <message>
        <source>The text is kept in the pen.</source>
        <translation>Il testo resta nella penna.</translation>
    </message>
    <message>
        <source>No text.</source>
        <translation>Nessun testo.</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Rinomina</translation>
    </message>
    <message>
        <source>Nothing recognised.</source>
        <translation>Nessun testo riconosciuto.</translation>
    </message>
    <message>
        <source>The file is too big. Please create new file.</source>
        <translation>Il documento è troppo grande. Creare un nuovo documento.</translation>
    </message>
    <message>
        <source>Start of text.</source>
        <translation>Inizio del testo.</translation>
    </message>
    <message>
        <source>End of text.</source>
        <translation>Fine del testo.</translation>
    </message>
</context>
<context>
    <name>YesnoSelect</name>
    <message>
        <source>Yes</source>
        <translation>Sì</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
    <message>
        <source>Are you sure to delete it?</source>
        <translation>Eliminare questo documento?</translation>
    </message>
</context>
</TS>
