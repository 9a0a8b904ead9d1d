<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>DictList</name>
    <message>
        <source>No dictionary.</source>
        <translation>No dictionary.</translation>
    </message>
</context>
<context>
    <name>DictScanEdit</name>
    <message>
        <source>Form</source>
        <translation>Form</translation>
    </message>
    <message>
        <source>Current source language is chinese. Please scan chinese text.</source>
        <translation>Current source language is chinese. Please scan chinese text.</translation>
    </message>
    <message>
        <source>No translation result.</source>
        <translation>No translation result.</translation>
    </message>
    <message>
        <source>Last entry.</source>
        <translation>Last entry.</translation>
    </message>
    <message>
        <source>First entry.</source>
        <translation>First entry.</translation>
    </message>
    <message>
        <source>Entry %1 of %2</source>
        <translation>Entry %1 of %2</translation>
    </message>
    <message>
        <source>Start of text.</source>
        <translation>Start of text.</translation>
    </message>
    <message>
        <source>End of entry.</source>
        <translation>End of entry.</translation>
    </message>
    <message>
        <source>End of text.</source>
        <translation>End of text.</translation>
    </message>
</context>
<context>
    <name>DictSwitch</name>
    <message>
        <source>Select dictionary</source>
        <translation>Select dictionary</translation>
    </message>
    <message>
        <source>Scan language does not match dictionary source language!</source>
        <translation>Scan language does not match dictionary source language!</translation>
    </message>
</context>
<context>
    <name>FileManager</name>
    <message>
        <source>File system is damaged, please connect to PC and repair.</source>
        <translation>File system is damaged, please connect to PC and repair.</translation>
    </message>
</context>
<context>
    <name>LanguageNames</name>
    <message>
        <source>English</source>
        <translation>English</translation>
    </message>
    <message>
        <source>French</source>
        <translation>French</translation>
    </message>
    <message>
        <source>German</source>
        <translation>German</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>Spanish</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>Italian</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>Swedish</translation>
    </message>
    <message>
        <source>Danish</source>
        <translation>Danish</translation>
    </message>
    <message>
        <source>Norwegian</source>
        <translation>Norwegian</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>Dutch</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>Portuguese</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>Russian</translation>
    </message>
    <message>
        <source>Chinese, simplified</source>
        <translation>Chinese, simplified</translation>
    </message>
</context>
<context>
    <name>LanguagePairs</name>
    <message>
        <source>Chinese-</source>
        <translation>Chinese-</translation>
    </message>
    <message>
        <source>Chinese</source>
        <translation>Chinese</translation>
    </message>
    <message>
        <source>English-</source>
        <translation>English-</translation>
    </message>
    <message>
        <source>English</source>
        <translation>English</translation>
    </message>
    <message>
        <source>French-</source>
        <translation>French-</translation>
    </message>
    <message>
        <source>French</source>
        <translation>French</translation>
    </message>
    <message>
        <source>German-</source>
        <translation>German-</translation>
    </message>
    <message>
        <source>German</source>
        <translation>German</translation>
    </message>
    <message>
        <source>Spanish-</source>
        <translation>Spanish-</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>Spanish</translation>
    </message>
    <message>
        <source>Italian-</source>
        <translation>Italian-</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>Italian</translation>
    </message>
    <message>
        <source>Swedish-</source>
        <translation>Swedish-</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>Swedish</translation>
    </message>
    <message>
        <source>Danish-</source>
        <translation>Danish-</translation>
    </message>
    <message>
        <source>Danish</source>
        <translation>Danish</translation>
    </message>
    <message>
        <source>Norwegian-</source>
        <translation>Norwegian-</translation>
    </message>
    <message>
        <source>Norwegian</source>
        <translation>Norwegian</translation>
    </message>
    <message>
        <source>Dutch-</source>
        <translation>Dutch-</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>Dutch</translation>
    </message>
    <message>
        <source>Portuguese-</source>
        <translation>Portuguese-</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>Portuguese</translation>
    </message>
    <message>
        <source>Russian-</source>
        <translation>Russian-</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>Russian</translation>
    </message>
    <message>
        <source>Arabic-</source>
        <translation>Arabic-</translation>
    </message>
    <message>
        <source>Arabic</source>
        <translation>Arabic</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>MainWindow</source>
        <translation>MainWindow</translation>
    </message>
    <message>
        <source>Scan to file</source>
        <translation>Scan to file</translation>
    </message>
    <message>
        <source>New file</source>
        <translation>New file</translation>
    </message>
    <message>
        <source>Open file</source>
        <translation>Open file</translation>
    </message>
    <message>
        <source>Delete file</source>
        <translation>Delete file</translation>
    </message>
    <message>
        <source>Scan settings</source>
        <translation>Scan settings</translation>
    </message>
    <message>
        <source>Continue scan</source>
        <translation>Continue scan</translation>
    </message>
    <message>
        <source>Are you sure to delete it?</source>
        <translation>Are you sure to delete it?</translation>
    </message>
    <message>
        <source>Press OK to delete, or right to interrupt.</source>
        <translation>Press OK to delete, or right to interrupt.</translation>
    </message>
    <message>
        <source>Press OK to interrupt, or left to delete.</source>
        <translation>Press OK to interrupt, or left to delete.</translation>
    </message>
    <message>
        <source>The file cannot be deleted.</source>
        <translation>The file cannot be deleted.</translation>
    </message>
    <message>
        <source>No available files!</source>
        <translation>No available files!</translation>
    </message>
    <message>
        <source>No enough storage space. Please remove some files.</source>
        <translation>No enough storage space. Please remove some files.</translation>
    </message>
    <message>
        <source>word is null</source>
        <translation>word is null</translation>
    </message>
    <message>
        <source>Nothing recognised.</source>
        <translation>Nothing recognised.</translation>
    </message>
    <message>
        <source>Press left or right for the languages, up or down for the dictionary, OK to go back.</source>
        <translation>Press left or right for the languages, up or down for the dictionary, OK to go back.</translation>
    </message>
    <message>
        <source>The dictionary cannot be opened. Please select another one.</source>
        <translation>The dictionary cannot be opened. Please select another one.</translation>
    </message>
    <message>
        <source>No dictionary is installed.</source>
        <translation>No dictionary is installed.</translation>
    </message>
    <message>
        <source>Please wait.</source>
        <translation>Please wait.</translation>
    </message>
    <message>
        <source>Dictionary Read Settings</source>
        <translation>Dictionary Read Settings</translation>
    </message>
    <message>
        <source>English voice</source>
        <translation>English voice</translation>
    </message>
    <message>
        <source>Other settings</source>
        <translation>Other settings</translation>
    </message>
    <message>
        <source>Read translation</source>
        <translation>Read translation</translation>
    </message>
    <message>
        <source>There are no new words.</source>
        <translation>There are no new words.</translation>
    </message>
    <message>
        <source>New words</source>
        <translation>New words</translation>
    </message>
    <message>
        <source>There is no translation.</source>
        <translation>There is no translation.</translation>
    </message>
    <message>
        <source>Dictionaries</source>
        <translation>Dictionaries</translation>
    </message>
    <message>
        <source>Select dictionary</source>
        <translation>Select dictionary</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 of %2</translation>
    </message>
    <message>
        <source>More settings</source>
        <translation>More settings</translation>
    </message>
    <message>
        <source>Read delay</source>
        <translation>Read delay</translation>
    </message>
    <message>
        <source>TTS Setting</source>
        <translation>TTS Setting</translation>
    </message>
    <message>
        <source>Scan Direction</source>
        <translation>Scan Direction</translation>
    </message>
    <message>
        <source>Line %1 of %2</source>
        <translation>Line %1 of %2</translation>
    </message>
    <message>
        <source>Scan quick settings</source>
        <translation>Scan quick settings</translation>
    </message>
    <message>
        <source>Read again.</source>
        <translation>Read again.</translation>
    </message>
    <message>
        <source>Go to beginning</source>
        <translation>Go to beginning</translation>
    </message>
    <message>
        <source>Reading settings</source>
        <translation>Reading settings</translation>
    </message>
    <message>
        <source>Translate</source>
        <translation>Translate</translation>
    </message>
    <message>
        <source>Scan languages</source>
        <translation>Scan languages</translation>
    </message>
    <message>
        <source>This file cannot be renamed.</source>
        <translation>This file cannot be renamed.</translation>
    </message>
    <message>
        <source>Scan to rename,press ok to confirm.</source>
        <translation>Scan to rename,press ok to confirm.</translation>
    </message>
    <message>
        <source>Sure to rename the file?</source>
        <translation>Sure to rename the file?</translation>
    </message>
    <message>
        <source>Press OK to rename, or right to interrupt.</source>
        <translation>Press OK to rename, or right to interrupt.</translation>
    </message>
    <message>
        <source>Press OK to interrupt, or left to rename.</source>
        <translation>Press OK to interrupt, or left to rename.</translation>
    </message>
    <message>
        <source>File exists.</source>
        <translation>File exists.</translation>
    </message>
    <message>
        <source>The file cannot be renamed.</source>
        <translation>The file cannot be renamed.</translation>
    </message>
    <message>
        <source>File system is damaged, please connect to PC and repair.</source>
        <translation>File system is damaged, please connect to PC and repair.</translation>
    </message>
    <message>
        <source>Max number of files exceeded. Please remove some files.</source>
        <translation>Max number of files exceeded. Please remove some files.</translation>
    </message>
    <message>
        <source>The file is missing.</source>
        <translation>The file is missing.</translation>
    </message>
    <message>
        <source>Vertical Text Scan Mode!</source>
        <translation>Vertical Text Scan Mode!</translation>
    </message>
    <message>
        <source>none</source>
        <translation>none</translation>
    </message>
    <message>
        <source>1s</source>
        <translation>1s</translation>
    </message>
    <message>
        <source>2s</source>
        <translation>2s</translation>
    </message>
    <message>
        <source>3s</source>
        <translation>3s</translation>
    </message>
    <message>
        <source>British English</source>
        <translation>British English</translation>
    </message>
    <message>
        <source>American English</source>
        <translation>American English</translation>
    </message>
    <message>
        <source>Horizontal Text Scan</source>
        <translation>Horizontal Text Scan</translation>
    </message>
    <message>
        <source>Vertical Text Scan</source>
        <translation>Vertical Text Scan</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Speed</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>On</source>
        <translation>On</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Off</translation>
    </message>
    <message>
        <source>Reading</source>
        <translation>Reading</translation>
    </message>
    <message>
        <source>Word Pause</source>
        <translation>Word Pause</translation>
    </message>
    <message>
        <source>Punc Pause</source>
        <translation>Punc Pause</translation>
    </message>
    <message>
        <source>Read OK</source>
        <translation>Read OK</translation>
    </message>
    <message>
        <source>Press left or right to change, OK to go back.</source>
        <translation>Press left or right to change, OK to go back.</translation>
    </message>
    <message>
        <source>Press OK to select, or down for other options.</source>
        <translation>Press OK to select, or down for other options.</translation>
    </message>
    <message>
        <source>Press OK to select, or up or down for more options.</source>
        <translation>Press OK to select, or up or down for more options.</translation>
    </message>
    <message>
        <source>Press OK to select, or Up for other options.</source>
        <translation>Press OK to select, or Up for other options.</translation>
    </message>
    <message>
        <source>Scan to File mode. </source>
        <translation>Scan to File mode. </translation>
    </message>
    <message>
        <source>Scan or press Menu for options.</source>
        <translation>Scan or press Menu for options.</translation>
    </message>
    <message>
        <source>The name is empty.</source>
        <translation>The name is empty.</translation>
    </message>
    <message>
        <source>String is too long.</source>
        <translation>String is too long.</translation>
    </message>
    <message>
        <source>Invalid character.</source>
        <translation>Invalid character.</translation>
    </message>
    <message>
        <source>This name cannot be used.</source>
        <translation>This name cannot be used.</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Rename</translation>
    </message>
    <message>
        <source>to</source>
        <translation>to</translation>
    </message>
</context>
<context>
    <name>MyEdit</name>
    <message>
        <source>The file is too big, do not edit the file in computer.</source>
        <translation>The file is too big, do not edit the file in computer.</translation>
    </message>
    <message>
        <source>Not saved. Text is kept here.</source>
        <translation>Not saved. Text is kept here.</translation>
    </message>
    <message>
        <source>The text is kept in the pen.</source>
        <translation>The text is kept in the pen.</translation>
    </message>
    <message>
        <source>No text.</source>
        <translation>No text.</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Rename</translation>
    </message>
    <message>
        <source>Nothing recognised.</source>
        <translation>Nothing recognised.</translation>
    </message>
    <message>
        <source>The file is too big. Please create new file.</source>
        <translation>The file is too big. Please create new file.</translation>
    </message>
    <message>
        <source>Start of text.</source>
        <translation>Start of text.</translation>
    </message>
    <message>
        <source>End of text.</source>
        <translation>End of text.</translation>
    </message>
</context>
<context>
    <name>YesnoSelect</name>
    <message>
        <source>Yes</source>
        <translation>Yes</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
    <message>
        <source>Are you sure to delete it?</source>
        <translation>Are you sure to delete it?</translation>
    </message>
</context>
</TS>
