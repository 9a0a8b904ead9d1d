<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>DictList</name>
    <message>
        <source>No dictionary.</source>
        <translation>No hay diccionario.</translation>
    </message>
</context>
<context>
    <name>DictScanEdit</name>
    <message>
        <source>Form</source>
        <translation>Traducción</translation>
    </message>
    <message>
        <source>Current source language is chinese. Please scan chinese text.</source>
        <translation>Idioma de origen: chino. Escanee un texto en chino.</translation>
    </message>
    <message>
        <source>No translation result.</source>
        <translation>No se encontró ninguna traducción.</translation>
    </message>
    <message>
        <source>Last entry.</source>
        <translation>Última entrada.</translation>
    </message>
    <message>
        <source>First entry.</source>
        <translation>Primera entrada.</translation>
    </message>
    <message>
        <source>Entry %1 of %2</source>
        <translation>Entrada %1 de %2</translation>
    </message>
    <message>
        <source>Start of text.</source>
        <translation>Principio del texto.</translation>
    </message>
    <message>
        <source>End of entry.</source>
        <translation>Fin de la entrada.</translation>
    </message>
    <message>
        <source>End of text.</source>
        <translation>Fin del texto.</translation>
    </message>
</context>
<context>
    <name>DictSwitch</name>
    <message>
        <source>Select dictionary</source>
        <translation>Elegir diccionario</translation>
    </message>
    <message>
        <source>Scan language does not match dictionary source language!</source>
        <translation>El idioma de escaneo no coincide con el idioma de origen del diccionario.</translation>
    </message>
</context>
<context>
    <name>FileManager</name>
    <message>
        <source>File system is damaged, please connect to PC and repair.</source>
        <translation>Memoria dañada. Conecte el lápiz a un PC para repararla.</translation>
    </message>
</context>
<context>
    <name>LanguageNames</name>
    <message>
        <source>English</source>
        <translation>Inglés</translation>
    </message>
    <message>
        <source>French</source>
        <translation>Francés</translation>
    </message>
    <message>
        <source>German</source>
        <translation>Alemán</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>Español</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>Italiano</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>Sueco</translation>
    </message>
    <message>
        <source>Danish</source>
        <translation>Danés</translation>
    </message>
    <message>
        <source>Norwegian</source>
        <translation>Noruego</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>Neerlandés</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>Portugués</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>Ruso</translation>
    </message>
    <message>
        <source>Chinese, simplified</source>
        <translation>Chino simplificado</translation>
    </message>
</context>
<context>
    <name>LanguagePairs</name>
    <message>
        <source>Chinese-</source>
        <translation>Chino-</translation>
    </message>
    <message>
        <source>Chinese</source>
        <translation>chino</translation>
    </message>
    <message>
        <source>English-</source>
        <translation>Inglés-</translation>
    </message>
    <message>
        <source>English</source>
        <translation>inglés</translation>
    </message>
    <message>
        <source>French-</source>
        <translation>Francés-</translation>
    </message>
    <message>
        <source>French</source>
        <translation>francés</translation>
    </message>
    <message>
        <source>German-</source>
        <translation>Alemán-</translation>
    </message>
    <message>
        <source>German</source>
        <translation>alemán</translation>
    </message>
    <message>
        <source>Spanish-</source>
        <translation>Español-</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>español</translation>
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
        <translation>Sueco-</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>sueco</translation>
    </message>
    <message>
        <source>Danish-</source>
        <translation>Danés-</translation>
    </message>
    <message>
        <source>Danish</source>
        <translation>danés</translation>
    </message>
    <message>
        <source>Norwegian-</source>
        <translation>Noruego-</translation>
    </message>
    <message>
        <source>Norwegian</source>
        <translation>noruego</translation>
    </message>
    <message>
        <source>Dutch-</source>
        <translation>Neerlandés-</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>neerlandés</translation>
    </message>
    <message>
        <source>Portuguese-</source>
        <translation>Portugués-</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>portugués</translation>
    </message>
    <message>
        <source>Russian-</source>
        <translation>Ruso-</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>ruso</translation>
    </message>
    <message>
        <source>Arabic-</source>
        <translation>Árabe-</translation>
    </message>
    <message>
        <source>Arabic</source>
        <translation>árabe</translation>
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
        <translation>Escanear a un archivo</translation>
    </message>
    <message>
        <source>New file</source>
        <translation>Archivo nuevo</translation>
    </message>
    <message>
        <source>Open file</source>
        <translation>Abrir archivo</translation>
    </message>
    <message>
        <source>Delete file</source>
        <translation>Borrar archivo</translation>
    </message>
    <message>
        <source>Scan settings</source>
        <translation>Ajustes de escaneo</translation>
    </message>
    <message>
        <source>Continue scan</source>
        <translation>Continuar escaneo</translation>
    </message>
    <message>
        <source>Are you sure to delete it?</source>
        <translation>¿Borrar este archivo?</translation>
    </message>
    <message>
        <source>Press OK to delete, or right to interrupt.</source>
        <translation>Pulse OK para borrar, o derecha para cancelar.</translation>
    </message>
    <message>
        <source>Press OK to interrupt, or left to delete.</source>
        <translation>Pulse OK para cancelar, o izquierda para borrar.</translation>
    </message>
    <message>
        <source>The file cannot be deleted.</source>
        <translation>No se puede borrar el archivo.</translation>
    </message>
    <message>
        <source>No available files!</source>
        <translation>¡No hay archivos!</translation>
    </message>
    <message>
        <source>No enough storage space. Please remove some files.</source>
        <translation>Memoria insuficiente. Borre algunos archivos.</translation>
    </message>
    <message>
        <source>word is null</source>
        <translation>Aquí no hay ninguna palabra.</translation>
    </message>
    <message>
        <source>Nothing recognised.</source>
        <translation>No se reconoció nada.</translation>
    </message>
    <message>
        <source>Press left or right for the languages, up or down for the dictionary, OK to go back.</source>
        <translation>Pulse izquierda o derecha para los idiomas, arriba o abajo para el diccionario, OK para volver.</translation>
    </message>
    <message>
        <source>The dictionary cannot be opened. Please select another one.</source>
        <translation>No se puede abrir el diccionario. Elija otro.</translation>
    </message>
    <message>
        <source>No dictionary is installed.</source>
        <translation>No hay diccionarios instalados.</translation>
    </message>
    <message>
        <source>Please wait.</source>
        <translation>Espere, por favor.</translation>
    </message>
    <message>
        <source>Dictionary Read Settings</source>
        <translation>Lectura del diccionario</translation>
    </message>
    <message>
        <source>English voice</source>
        <translation>Voz inglesa</translation>
    </message>
    <message>
        <source>Other settings</source>
        <translation>Otros ajustes</translation>
    </message>
    <message>
        <source>Read translation</source>
        <translation>Leer traducción</translation>
    </message>
    <message>
        <source>There are no new words.</source>
        <translation>No hay palabras nuevas.</translation>
    </message>
    <message>
        <source>New words</source>
        <translation>Palabras nuevas</translation>
    </message>
    <message>
        <source>There is no translation.</source>
        <translation>No hay traducción.</translation>
    </message>
    <message>
        <source>Dictionaries</source>
        <translation>Diccionarios</translation>
    </message>
    <message>
        <source>Select dictionary</source>
        <translation>Elegir diccionario</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
    <message>
        <source>More settings</source>
        <translation>Más ajustes</translation>
    </message>
    <message>
        <source>Read delay</source>
        <translation>Espera antes de leer</translation>
    </message>
    <message>
        <source>TTS Setting</source>
        <translation>Voz inglesa</translation>
    </message>
    <message>
        <source>Scan Direction</source>
        <translation>Dirección de escaneo</translation>
    </message>
    <message>
        <source>Line %1 of %2</source>
        <translation>Línea %1 de %2</translation>
    </message>
    <message>
        <source>Scan quick settings</source>
        <translation>Ajustes rápidos</translation>
    </message>
    <message>
        <source>Read again.</source>
        <translation>Leer otra vez</translation>
    </message>
    <message>
        <source>Go to beginning</source>
        <translation>Ir al principio</translation>
    </message>
    <message>
        <source>Reading settings</source>
        <translation>Ajustes de lectura</translation>
    </message>
    <message>
        <source>Translate</source>
        <translation>Traducir</translation>
    </message>
    <message>
        <source>Scan languages</source>
        <translation>Idioma de escaneo</translation>
    </message>
    <message>
        <source>This file cannot be renamed.</source>
        <translation>Este archivo no se puede renombrar.</translation>
    </message>
    <message>
        <source>Scan to rename,press ok to confirm.</source>
        <translation>Escanee el nuevo nombre y pulse OK.</translation>
    </message>
    <message>
        <source>Sure to rename the file?</source>
        <translation>¿Renombrar este archivo?</translation>
    </message>
    <message>
        <source>Press OK to rename, or right to interrupt.</source>
        <translation>Pulse OK para renombrar, o derecha para cancelar.</translation>
    </message>
    <message>
        <source>Press OK to interrupt, or left to rename.</source>
        <translation>Pulse OK para cancelar, o izquierda para renombrar.</translation>
    </message>
    <message>
        <source>File exists.</source>
        <translation>Ese nombre ya existe.</translation>
    </message>
    <message>
        <source>The file cannot be renamed.</source>
        <translation>No se puede renombrar el archivo.</translation>
    </message>
    <message>
        <source>File system is damaged, please connect to PC and repair.</source>
        <translation>Memoria dañada. Conecte el lápiz a un PC para repararla.</translation>
    </message>
    <message>
        <source>Max number of files exceeded. Please remove some files.</source>
        <translation>Hay demasiados archivos. Borre algunos.</translation>
    </message>
    <message>
        <source>The file is missing.</source>
        <translation>No se encuentra el archivo.</translation>
    </message>
    <message>
        <source>Vertical Text Scan Mode!</source>
        <translation>¡Modo de texto vertical!</translation>
    </message>
    <message>
        <source>none</source>
        <translation>Ninguna</translation>
    </message>
    <message>
        <source>1s</source>
        <translation>Un segundo</translation>
    </message>
    <message>
        <source>2s</source>
        <translation>Dos segundos</translation>
    </message>
    <message>
        <source>3s</source>
        <translation>Tres segundos</translation>
    </message>
    <message>
        <source>British English</source>
        <translation>Inglés británico</translation>
    </message>
    <message>
        <source>American English</source>
        <translation>Inglés americano</translation>
    </message>
    <message>
        <source>Horizontal Text Scan</source>
        <translation>Texto horizontal</translation>
    </message>
    <message>
        <source>Vertical Text Scan</source>
        <translation>Texto vertical</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Velocidad</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volumen</translation>
    </message>
    <message>
        <source>On</source>
        <translation>Sí</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>No</translation>
    </message>
    <message>
        <source>Reading</source>
        <translation>Lectura</translation>
    </message>
    <message>
        <source>Word Pause</source>
        <translation>Pausa palabras</translation>
    </message>
    <message>
        <source>Punc Pause</source>
        <translation>Pausa puntuación</translation>
    </message>
    <message>
        <source>Read OK</source>
        <translation>Leer palabra</translation>
    </message>
    <message>
        <source>Press left or right to change, OK to go back.</source>
        <translation>Pulse izquierda o derecha para cambiar, OK para volver.</translation>
    </message>
    <message>
        <source>Press OK to select, or down for other options.</source>
        <translation>Pulse OK para elegir, o abajo para más opciones.</translation>
    </message>
    <message>
        <source>Press OK to select, or up or down for more options.</source>
        <translation>Pulse OK para elegir, arriba o abajo para más opciones.</translation>
    </message>
    <message>
        <source>Press OK to select, or Up for other options.</source>
        <translation>Pulse OK para elegir, o arriba para más opciones.</translation>
    </message>
    <message>
        <source>Scan to File mode. </source>
        <translation>Escanear a un archivo. </translation>
    </message>
    <message>
        <source>Scan or press Menu for options.</source>
        <translation>Escanee, o pulse Menú para ver las opciones.</translation>
    </message>
    <message>
        <source>The name is empty.</source>
        <translation>Falta el nombre.</translation>
    </message>
    <message>
        <source>String is too long.</source>
        <translation>El nombre es demasiado largo.</translation>
    </message>
    <message>
        <source>Invalid character.</source>
        <translation>Carácter no válido.</translation>
    </message>
    <message>
        <source>This name cannot be used.</source>
        <translation>Este nombre no se puede usar.</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renombrar</translation>
    </message>
    <message>
        <source>to</source>
        <translation>como</translation>
    </message>
</context>
<context>
    <name>MyEdit</name>
    <message>
        <source>The file is too big, do not edit the file in computer.</source>
        <translation>El archivo es demasiado grande. No lo edite en un PC.</translation>
    </message>
    <message>
        <source>Not saved. Text is kept here.</source>
        <translation>No guardado. Texto conservado.</translation>
    </message>
    <message>
        <source>The text is kept in the pen.</source>
        <translation>El texto se conserva en el lápiz.</translation>
    </message>
    <message>
        <source>No text.</source>
        <translation>No hay texto.</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Renombrar</translation>
    </message>
    <message>
        <source>Nothing recognised.</source>
        <translation>No se reconoció nada.</translation>
    </message>
    <message>
        <source>The file is too big. Please create new file.</source>
        <translation>El archivo es demasiado grande. Cree uno nuevo.</translation>
    </message>
    <message>
        <source>Start of text.</source>
        <translation>Principio del texto.</translation>
    </message>
    <message>
        <source>End of text.</source>
        <translation>Fin del texto.</translation>
    </message>
</context>
<context>
    <name>YesnoSelect</name>
    <message>
        <source>Yes</source>
        <translation>Sí</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
    <message>
        <source>Are you sure to delete it?</source>
        <translation>¿Borrar este archivo?</translation>
    </message>
</context>
</TS>
