<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>DictList</name>
    <message>
        <source>No dictionary.</source>
        <translation>Aucun dictionnaire.</translation>
    </message>
</context>
<context>
    <name>DictScanEdit</name>
    <message>
        <source>Form</source>
        <translation>Traduction</translation>
    </message>
    <message>
        <source>Current source language is chinese. Please scan chinese text.</source>
        <translation>Langue source&#xa0;: chinois. Scannez un texte chinois.</translation>
    </message>
    <message>
        <source>No translation result.</source>
        <translation>Aucune traduction trouvée.</translation>
    </message>
    <message>
        <source>Last entry.</source>
        <translation>Dernière entrée.</translation>
    </message>
    <message>
        <source>First entry.</source>
        <translation>Première entrée.</translation>
    </message>
    <message>
        <source>Entry %1 of %2</source>
        <translation>Entrée %1 sur %2</translation>
    </message>
    <message>
        <source>Start of text.</source>
        <translation>Début du texte.</translation>
    </message>
    <message>
        <source>End of entry.</source>
        <translation>Fin de l&apos;entrée.</translation>
    </message>
    <message>
        <source>End of text.</source>
        <translation>Fin du texte.</translation>
    </message>
</context>
<context>
    <name>DictSwitch</name>
    <message>
        <source>Select dictionary</source>
        <translation>Choisir le dictionnaire</translation>
    </message>
    <message>
        <source>Scan language does not match dictionary source language!</source>
        <translation>La langue du scan ne correspond pas à la langue source du dictionnaire&#xa0;!</translation>
    </message>
</context>
<context>
    <name>FileManager</name>
    <message>
        <source>File system is damaged, please connect to PC and repair.</source>
        <translation>Mémoire endommagée. Connectez le stylo à un ordinateur pour la réparer.</translation>
    </message>
</context>
<context>
    <name>LanguageNames</name>
    <message>
        <source>English</source>
        <translation>Anglais</translation>
    </message>
    <message>
        <source>French</source>
        <translation>Français</translation>
    </message>
    <message>
        <source>German</source>
        <translation>Allemand</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>Espagnol</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>Italien</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>Suédois</translation>
    </message>
    <message>
        <source>Danish</source>
        <translation>Danois</translation>
    </message>
    <message>
        <source>Norwegian</source>
        <translation>Norvégien</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>Néerlandais</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>Portugais</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>Russe</translation>
    </message>
    <message>
        <source>Chinese, simplified</source>
        <translation>Chinois simplifié</translation>
    </message>
</context>
<context>
    <name>LanguagePairs</name>
    <message>
        <source>Chinese-</source>
        <translation>Chinois-</translation>
    </message>
    <message>
        <source>Chinese</source>
        <translation>chinois</translation>
    </message>
    <message>
        <source>English-</source>
        <translation>Anglais-</translation>
    </message>
    <message>
        <source>English</source>
        <translation>anglais</translation>
    </message>
    <message>
        <source>French-</source>
        <translation>Français-</translation>
    </message>
    <message>
        <source>French</source>
        <translation>français</translation>
    </message>
    <message>
        <source>German-</source>
        <translation>Allemand-</translation>
    </message>
    <message>
        <source>German</source>
        <translation>allemand</translation>
    </message>
    <message>
        <source>Spanish-</source>
        <translation>Espagnol-</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>espagnol</translation>
    </message>
    <message>
        <source>Italian-</source>
        <translation>Italien-</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>italien</translation>
    </message>
    <message>
        <source>Swedish-</source>
        <translation>Suédois-</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>suédois</translation>
    </message>
    <message>
        <source>Danish-</source>
        <translation>Danois-</translation>
    </message>
    <message>
        <source>Danish</source>
        <translation>danois</translation>
    </message>
    <message>
        <source>Norwegian-</source>
        <translation>Norvégien-</translation>
    </message>
    <message>
        <source>Norwegian</source>
        <translation>norvégien</translation>
    </message>
    <message>
        <source>Dutch-</source>
        <translation>Néerlandais-</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>néerlandais</translation>
    </message>
    <message>
        <source>Portuguese-</source>
        <translation>Portugais-</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>portugais</translation>
    </message>
    <message>
        <source>Russian-</source>
        <translation>Russe-</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>russe</translation>
    </message>
    <message>
        <source>Arabic-</source>
        <translation>Arabe-</translation>
    </message>
    <message>
        <source>Arabic</source>
        <translation>arabe</translation>
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
        <translation>Scanner vers un fichier</translation>
    </message>
    <message>
        <source>New file</source>
        <translation>Nouveau fichier</translation>
    </message>
    <message>
        <source>Open file</source>
        <translation>Ouvrir un fichier</translation>
    </message>
    <message>
        <source>Delete file</source>
        <translation>Supprimer un fichier</translation>
    </message>
    <message>
        <source>Scan settings</source>
        <translation>Réglages du scan</translation>
    </message>
    <message>
        <source>Continue scan</source>
        <translation>Continuer le scan</translation>
    </message>
    <message>
        <source>Are you sure to delete it?</source>
        <translation>Supprimer ce fichier&#xa0;?</translation>
    </message>
    <message>
        <source>Press OK to delete, or right to interrupt.</source>
        <translation>Appuyez sur OK pour supprimer, ou sur la flèche droite pour annuler.</translation>
    </message>
    <message>
        <source>Press OK to interrupt, or left to delete.</source>
        <translation>Appuyez sur OK pour annuler, ou sur la flèche gauche pour supprimer.</translation>
    </message>
    <message>
        <source>The file cannot be deleted.</source>
        <translation>Le fichier ne peut pas être supprimé.</translation>
    </message>
    <message>
        <source>No available files!</source>
        <translation>Aucun fichier disponible&#xa0;!</translation>
    </message>
    <message>
        <source>No enough storage space. Please remove some files.</source>
        <translation>Mémoire insuffisante. Supprimez des fichiers.</translation>
    </message>
    <message>
        <source>word is null</source>
        <translation>Il n&apos;y a pas de mot ici.</translation>
    </message>
    <message>
        <source>Nothing recognised.</source>
        <translation>Rien n&apos;a été reconnu.</translation>
    </message>
    <message>
        <source>Press left or right for the languages, up or down for the dictionary, OK to go back.</source>
        <translation>Appuyez sur la flèche gauche ou droite pour les langues, sur la flèche du haut ou du bas pour le dictionnaire, sur OK pour revenir.</translation>
    </message>
    <message>
        <source>The dictionary cannot be opened. Please select another one.</source>
        <translation>Impossible d&apos;ouvrir le dictionnaire. Choisissez-en un autre.</translation>
    </message>
    <message>
        <source>No dictionary is installed.</source>
        <translation>Aucun dictionnaire installé.</translation>
    </message>
    <message>
        <source>Please wait.</source>
        <translation>Veuillez patienter.</translation>
    </message>
    <message>
        <source>Dictionary Read Settings</source>
        <translation>Lecture du dictionnaire</translation>
    </message>
    <message>
        <source>English voice</source>
        <translation>Voix anglaise</translation>
    </message>
    <message>
        <source>Other settings</source>
        <translation>Autres réglages</translation>
    </message>
    <message>
        <source>Read translation</source>
        <translation>Lire la traduction</translation>
    </message>
    <message>
        <source>There are no new words.</source>
        <translation>Il n&apos;y a pas de nouveaux mots.</translation>
    </message>
    <message>
        <source>New words</source>
        <translation>Nouveaux mots</translation>
    </message>
    <message>
        <source>There is no translation.</source>
        <translation>Il n&apos;y a pas de traduction.</translation>
    </message>
    <message>
        <source>Dictionaries</source>
        <translation>Dictionnaires</translation>
    </message>
    <message>
        <source>Select dictionary</source>
        <translation>Choisir le dictionnaire</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>More settings</source>
        <translation>Réglages supplémentaires</translation>
    </message>
    <message>
        <source>Read delay</source>
        <translation>Délai avant la lecture</translation>
    </message>
    <message>
        <source>TTS Setting</source>
        <translation>Voix anglaise</translation>
    </message>
    <message>
        <source>Scan Direction</source>
        <translation>Sens du scan</translation>
    </message>
    <message>
        <source>Line %1 of %2</source>
        <translation>Ligne %1 sur %2</translation>
    </message>
    <message>
        <source>Scan quick settings</source>
        <translation>Réglages rapides</translation>
    </message>
    <message>
        <source>Read again.</source>
        <translation>Relire</translation>
    </message>
    <message>
        <source>Go to beginning</source>
        <translation>Aller au début</translation>
    </message>
    <message>
        <source>Reading settings</source>
        <translation>Réglages de lecture</translation>
    </message>
    <message>
        <source>Translate</source>
        <translation>Traduire</translation>
    </message>
    <message>
        <source>Scan languages</source>
        <translation>Langue du scan</translation>
    </message>
    <message>
        <source>This file cannot be renamed.</source>
        <translation>Ce fichier ne peut pas être renommé.</translation>
    </message>
    <message>
        <source>Scan to rename,press ok to confirm.</source>
        <translation>Scannez le nouveau nom, puis appuyez sur OK.</translation>
    </message>
    <message>
        <source>Sure to rename the file?</source>
        <translation>Renommer ce fichier&#xa0;?</translation>
    </message>
    <message>
        <source>Press OK to rename, or right to interrupt.</source>
        <translation>Appuyez sur OK pour renommer, ou sur la flèche droite pour annuler.</translation>
    </message>
    <message>
        <source>Press OK to interrupt, or left to rename.</source>
        <translation>Appuyez sur OK pour annuler, ou sur la flèche gauche pour renommer.</translation>
    </message>
    <message>
        <source>File exists.</source>
        <translation>Ce nom existe déjà.</translation>
    </message>
    <message>
        <source>The file cannot be renamed.</source>
        <translation>Le fichier ne peut pas être renommé.</translation>
    </message>
    <message>
        <source>File system is damaged, please connect to PC and repair.</source>
        <translation>Mémoire endommagée. Connectez le stylo à un ordinateur pour la réparer.</translation>
    </message>
    <message>
        <source>Max number of files exceeded. Please remove some files.</source>
        <translation>Il y a trop de fichiers. Supprimez-en quelques-uns.</translation>
    </message>
    <message>
        <source>The file is missing.</source>
        <translation>Le fichier est introuvable.</translation>
    </message>
    <message>
        <source>Vertical Text Scan Mode!</source>
        <translation>Mode texte vertical&#xa0;!</translation>
    </message>
    <message>
        <source>none</source>
        <translation>Aucun</translation>
    </message>
    <message>
        <source>1s</source>
        <translation>Une seconde</translation>
    </message>
    <message>
        <source>2s</source>
        <translation>Deux secondes</translation>
    </message>
    <message>
        <source>3s</source>
        <translation>Trois secondes</translation>
    </message>
    <message>
        <source>British English</source>
        <translation>Anglais britannique</translation>
    </message>
    <message>
        <source>American English</source>
        <translation>Anglais américain</translation>
    </message>
    <message>
        <source>Horizontal Text Scan</source>
        <translation>Texte horizontal</translation>
    </message>
    <message>
        <source>Vertical Text Scan</source>
        <translation>Texte vertical</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Vitesse</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>On</source>
        <translation>Oui</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Non</translation>
    </message>
    <message>
        <source>Reading</source>
        <translation>Lecture</translation>
    </message>
    <message>
        <source>Word Pause</source>
        <translation>Pause entre mots</translation>
    </message>
    <message>
        <source>Punc Pause</source>
        <translation>Pause ponctuation</translation>
    </message>
    <message>
        <source>Read OK</source>
        <translation>Lire le mot</translation>
    </message>
    <message>
        <source>Press left or right to change, OK to go back.</source>
        <translation>Appuyez sur la flèche gauche ou droite pour changer, sur OK pour revenir.</translation>
    </message>
    <message>
        <source>Press OK to select, or down for other options.</source>
        <translation>Appuyez sur OK pour choisir, ou sur la flèche du bas pour d&apos;autres options.</translation>
    </message>
    <message>
        <source>Press OK to select, or up or down for more options.</source>
        <translation>Appuyez sur OK pour choisir, sur la flèche du haut ou du bas pour d&apos;autres options.</translation>
    </message>
    <message>
        <source>Press OK to select, or Up for other options.</source>
        <translation>Appuyez sur OK pour choisir, ou sur la flèche du haut pour d&apos;autres options.</translation>
    </message>
    <message>
        <source>Scan to File mode. </source>
        <translation>Scanner vers un fichier. </translation>
    </message>
    <message>
        <source>Scan or press Menu for options.</source>
        <translation>Scannez, ou appuyez sur Menu pour les options.</translation>
    </message>
    <message>
        <source>The name is empty.</source>
        <translation>Il manque un nom.</translation>
    </message>
    <message>
        <source>String is too long.</source>
        <translation>Le nom est trop long.</translation>
    </message>
    <message>
        <source>Invalid character.</source>
        <translation>Caractère non autorisé.</translation>
    </message>
    <message>
        <source>This name cannot be used.</source>
        <translation>Ce nom n&apos;est pas autorisé.</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renommer</translation>
    </message>
    <message>
        <source>to</source>
        <translation>en</translation>
    </message>
</context>
<context>
    <name>MyEdit</name>
    <message>
        <source>The file is too big, do not edit the file in computer.</source>
        <translation>Le fichier est trop grand. Ne le modifiez pas sur un ordinateur.</translation>
    </message>
    <message>
        <source>Not saved. Text is kept here.</source>
        <translation>Non enregistré. Texte conservé.</translation>
    </message>
    <message>
        <source>The text is kept in the pen.</source>
        <translation>Le texte est conservé dans le stylo.</translation>
    </message>
    <message>
        <source>No text.</source>
        <translation>Aucun texte.</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renommer</translation>
    </message>
    <message>
        <source>Nothing recognised.</source>
        <translation>Rien n&apos;a été reconnu.</translation>
    </message>
    <message>
        <source>The file is too big. Please create new file.</source>
        <translation>Le fichier est trop grand. Créez un nouveau fichier.</translation>
    </message>
    <message>
        <source>Start of text.</source>
        <translation>Début du texte.</translation>
    </message>
    <message>
        <source>End of text.</source>
        <translation>Fin du texte.</translation>
    </message>
</context>
<context>
    <name>YesnoSelect</name>
    <message>
        <source>Yes</source>
        <translation>Oui</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Non</translation>
    </message>
    <message>
        <source>Are you sure to delete it?</source>
        <translation>Supprimer ce fichier&#xa0;?</translation>
    </message>
</context>
</TS>
