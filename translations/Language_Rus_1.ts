<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru" sourcelanguage="en">
<context>
    <name>DictList</name>
    <message>
        <source>No dictionary.</source>
        <translation>Нет словаря.</translation>
    </message>
</context>
<context>
    <name>DictScanEdit</name>
    <message>
        <source>Form</source>
        <translation>Перевод</translation>
    </message>
    <message>
        <source>Current source language is chinese. Please scan chinese text.</source>
        <translation>Исходный язык: китайский. Отсканируйте китайский текст.</translation>
    </message>
    <message>
        <source>No translation result.</source>
        <translation>Перевод не найден.</translation>
    </message>
    <message>
        <source>Last entry.</source>
        <translation>Последняя статья.</translation>
    </message>
    <message>
        <source>First entry.</source>
        <translation>Первая статья.</translation>
    </message>
    <message>
        <source>Entry %1 of %2</source>
        <translation>Статья %1, всего %2</translation>
    </message>
    <message>
        <source>Start of text.</source>
        <translation>Начало текста.</translation>
    </message>
    <message>
        <source>End of entry.</source>
        <translation>Конец статьи.</translation>
    </message>
    <message>
        <source>End of text.</source>
        <translation>Конец текста.</translation>
    </message>
</context>
<context>
    <name>DictSwitch</name>
    <message>
        <source>Select dictionary</source>
        <translation>Выбрать словарь</translation>
    </message>
    <message>
        <source>Scan language does not match dictionary source language!</source>
        <translation>Язык сканирования не совпадает с исходным языком словаря!</translation>
    </message>
</context>
<context>
    <name>FileManager</name>
    <message>
        <source>File system is damaged, please connect to PC and repair.</source>
        <translation>Файловая система повреждена. Подключите ручку к&#xa0;компьютеру для исправления.</translation>
    </message>
</context>
<context>
    <name>LanguageNames</name>
    <message>
        <source>English</source>
        <translation>Английский</translation>
    </message>
    <message>
        <source>French</source>
        <translation>Французский</translation>
    </message>
    <message>
        <source>German</source>
        <translation>Немецкий</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>Испанский</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>Итальянский</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>Шведский</translation>
    </message>
    <message>
        <source>Danish</source>
        <translation>Датский</translation>
    </message>
    <message>
        <source>Norwegian</source>
        <translation>Норвежский</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>Нидерландский</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>Португальский</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>Русский</translation>
    </message>
    <message>
        <source>Chinese, simplified</source>
        <translation>Китайский упрощённый</translation>
    </message>
</context>
<context>
    <name>LanguagePairs</name>
    <message>
        <source>Chinese-</source>
        <translation>Китайско-</translation>
    </message>
    <message>
        <source>Chinese</source>
        <translation>китайский</translation>
    </message>
    <message>
        <source>English-</source>
        <translation>Англо-</translation>
    </message>
    <message>
        <source>English</source>
        <translation>английский</translation>
    </message>
    <message>
        <source>French-</source>
        <translation>Французско-</translation>
    </message>
    <message>
        <source>French</source>
        <translation>французский</translation>
    </message>
    <message>
        <source>German-</source>
        <translation>Немецко-</translation>
    </message>
    <message>
        <source>German</source>
        <translation>немецкий</translation>
    </message>
    <message>
        <source>Spanish-</source>
        <translation>Испанско-</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>испанский</translation>
    </message>
    <message>
        <source>Italian-</source>
        <translation>Итальянско-</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>итальянский</translation>
    </message>
    <message>
        <source>Swedish-</source>
        <translation>Шведско-</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>шведский</translation>
    </message>
    <message>
        <source>Danish-</source>
        <translation>Датско-</translation>
    </message>
    <message>
        <source>Danish</source>
        <translation>датский</translation>
    </message>
    <message>
        <source>Norwegian-</source>
        <translation>Норвежско-</translation>
    </message>
    <message>
        <source>Norwegian</source>
        <translation>норвежский</translation>
    </message>
    <message>
        <source>Dutch-</source>
        <translation>Нидерландско-</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>нидерландский</translation>
    </message>
    <message>
        <source>Portuguese-</source>
        <translation>Португальско-</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>португальский</translation>
    </message>
    <message>
        <source>Russian-</source>
        <translation>Русско-</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>русский</translation>
    </message>
    <message>
        <source>Arabic-</source>
        <translation>Арабско-</translation>
    </message>
    <message>
        <source>Arabic</source>
        <translation>арабский</translation>
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
        <translation>Сканирование в файл</translation>
    </message>
    <message>
        <source>New file</source>
        <translation>Новый файл</translation>
    </message>
    <message>
        <source>Open file</source>
        <translation>Открыть файл</translation>
    </message>
    <message>
        <source>Delete file</source>
        <translation>Удалить файл</translation>
    </message>
    <message>
        <source>Scan settings</source>
        <translation>Настройки сканирования</translation>
    </message>
    <message>
        <source>Continue scan</source>
        <translation>Продолжить файл</translation>
    </message>
    <message>
        <source>Are you sure to delete it?</source>
        <translation>Удалить этот файл?</translation>
    </message>
    <message>
        <source>Press OK to delete, or right to interrupt.</source>
        <translation>Нажмите OK для удаления, вправо для отмены.</translation>
    </message>
    <message>
        <source>Press OK to interrupt, or left to delete.</source>
        <translation>Нажмите OK для отмены, влево для удаления.</translation>
    </message>
    <message>
        <source>The file cannot be deleted.</source>
        <translation>Не удалось удалить файл.</translation>
    </message>
    <message>
        <source>No available files!</source>
        <translation>Файлов нет!</translation>
    </message>
    <message>
        <source>No enough storage space. Please remove some files.</source>
        <translation>Недостаточно памяти. Удалите ненужные файлы.</translation>
    </message>
    <message>
        <source>word is null</source>
        <translation>Здесь нет слова.</translation>
    </message>
    <message>
        <source>Nothing recognised.</source>
        <translation>Ничего не распознано.</translation>
    </message>
    <message>
        <source>Press left or right for the languages, up or down for the dictionary, OK to go back.</source>
        <translation>Нажмите влево или вправо для выбора языков, вверх или вниз для выбора словаря, OK для возврата.</translation>
    </message>
    <message>
        <source>The dictionary cannot be opened. Please select another one.</source>
        <translation>Не удалось открыть словарь. Выберите другой.</translation>
    </message>
    <message>
        <source>No dictionary is installed.</source>
        <translation>Словари не установлены.</translation>
    </message>
    <message>
        <source>Please wait.</source>
        <translation>Подождите, пожалуйста.</translation>
    </message>
    <message>
        <source>Dictionary Read Settings</source>
        <translation>Чтение в словаре</translation>
    </message>
    <message>
        <source>English voice</source>
        <translation>Английский голос</translation>
    </message>
    <message>
        <source>Other settings</source>
        <translation>Другие настройки</translation>
    </message>
    <message>
        <source>Read translation</source>
        <translation>Чтение перевода</translation>
    </message>
    <message>
        <source>There are no new words.</source>
        <translation>Новых слов нет.</translation>
    </message>
    <message>
        <source>New words</source>
        <translation>Список новых слов</translation>
    </message>
    <message>
        <source>There is no translation.</source>
        <translation>Перевода нет.</translation>
    </message>
    <message>
        <source>Dictionaries</source>
        <translation>Словари</translation>
    </message>
    <message>
        <source>Select dictionary</source>
        <translation>Выбрать словарь</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>Пункт %1, всего %2</translation>
    </message>
    <message>
        <source>More settings</source>
        <translation>Дополнительные настройки</translation>
    </message>
    <message>
        <source>Read delay</source>
        <translation>Задержка чтения</translation>
    </message>
    <message>
        <source>TTS Setting</source>
        <translation>Английский голос</translation>
    </message>
    <message>
        <source>Scan Direction</source>
        <translation>Направление сканирования</translation>
    </message>
    <message>
        <source>Line %1 of %2</source>
        <translation>Строка %1, всего %2</translation>
    </message>
    <message>
        <source>Scan quick settings</source>
        <translation>Быстрые настройки</translation>
    </message>
    <message>
        <source>Read again.</source>
        <translation>Прочитать ещё раз</translation>
    </message>
    <message>
        <source>Go to beginning</source>
        <translation>В начало</translation>
    </message>
    <message>
        <source>Reading settings</source>
        <translation>Настройки чтения</translation>
    </message>
    <message>
        <source>Translate</source>
        <translation>Перевести</translation>
    </message>
    <message>
        <source>Scan languages</source>
        <translation>Язык сканирования</translation>
    </message>
    <message>
        <source>This file cannot be renamed.</source>
        <translation>Этот файл нельзя переименовать.</translation>
    </message>
    <message>
        <source>Scan to rename,press ok to confirm.</source>
        <translation>Отсканируйте новое имя, затем нажмите OK.</translation>
    </message>
    <message>
        <source>Sure to rename the file?</source>
        <translation>Переименовать этот файл?</translation>
    </message>
    <message>
        <source>Press OK to rename, or right to interrupt.</source>
        <translation>Нажмите OK для переименования, вправо для отмены.</translation>
    </message>
    <message>
        <source>Press OK to interrupt, or left to rename.</source>
        <translation>Нажмите OK для отмены, влево для переименования.</translation>
    </message>
    <message>
        <source>File exists.</source>
        <translation>Такое имя уже есть.</translation>
    </message>
    <message>
        <source>The file cannot be renamed.</source>
        <translation>Не удалось переименовать файл.</translation>
    </message>
    <message>
        <source>File system is damaged, please connect to PC and repair.</source>
        <translation>Файловая система повреждена. Подключите ручку к&#xa0;компьютеру для исправления.</translation>
    </message>
    <message>
        <source>Max number of files exceeded. Please remove some files.</source>
        <translation>Слишком много файлов. Удалите ненужные.</translation>
    </message>
    <message>
        <source>The file is missing.</source>
        <translation>Файл не найден.</translation>
    </message>
    <message>
        <source>Vertical Text Scan Mode!</source>
        <translation>Режим вертикального текста!</translation>
    </message>
    <message>
        <source>none</source>
        <translation>Без задержки</translation>
    </message>
    <message>
        <source>1s</source>
        <translation>Одна секунда</translation>
    </message>
    <message>
        <source>2s</source>
        <translation>Две секунды</translation>
    </message>
    <message>
        <source>3s</source>
        <translation>Три секунды</translation>
    </message>
    <message>
        <source>British English</source>
        <translation>Британский английский</translation>
    </message>
    <message>
        <source>American English</source>
        <translation>Американский английский</translation>
    </message>
    <message>
        <source>Horizontal Text Scan</source>
        <translation>Горизонтальный текст</translation>
    </message>
    <message>
        <source>Vertical Text Scan</source>
        <translation>Вертикальный текст</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Скорость</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Громкость</translation>
    </message>
    <message>
        <source>On</source>
        <translation>Включено</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Выключено</translation>
    </message>
    <message>
        <source>Reading</source>
        <translation>Чтение</translation>
    </message>
    <message>
        <source>Word Pause</source>
        <translation>Пауза после слов</translation>
    </message>
    <message>
        <source>Punc Pause</source>
        <translation>Пауза после знаков</translation>
    </message>
    <message>
        <source>Read OK</source>
        <translation>Чтение слова</translation>
    </message>
    <message>
        <source>Press left or right to change, OK to go back.</source>
        <translation>Нажмите влево или вправо для изменения, OK для возврата.</translation>
    </message>
    <message>
        <source>Press OK to select, or down for other options.</source>
        <translation>Нажмите OK для выбора, вниз для других пунктов.</translation>
    </message>
    <message>
        <source>Press OK to select, or up or down for more options.</source>
        <translation>Нажмите OK для выбора, вверх или вниз для других пунктов.</translation>
    </message>
    <message>
        <source>Press OK to select, or Up for other options.</source>
        <translation>Нажмите OK для выбора, вверх для других пунктов.</translation>
    </message>
    <message>
        <source>Scan to File mode. </source>
        <translation>Сканирование в файл. </translation>
    </message>
    <message>
        <source>Scan or press Menu for options.</source>
        <translation>Сканируйте или нажмите «Меню» для настроек.</translation>
    </message>
    <message>
        <source>The name is empty.</source>
        <translation>Нет имени.</translation>
    </message>
    <message>
        <source>String is too long.</source>
        <translation>Имя слишком длинное.</translation>
    </message>
    <message>
        <source>Invalid character.</source>
        <translation>Недопустимый символ.</translation>
    </message>
    <message>
        <source>This name cannot be used.</source>
        <translation>Это имя использовать нельзя.</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Переименовать</translation>
    </message>
    <message>
        <source>to</source>
        <translation>в</translation>
    </message>
</context>
<context>
    <name>MyEdit</name>
    <message>
        <source>The file is too big, do not edit the file in computer.</source>
        <translation>Файл слишком большой. Не&#xa0;изменяйте его на&#xa0;компьютере.</translation>
    </message>
    <message>
        <source>Not saved. Text is kept here.</source>
        <translation>Не сохранено. Текст пока здесь.</translation>
    </message>
    <message>
        <source>The text is kept in the pen.</source>
        <translation>Текст сохранён в ручке.</translation>
    </message>
    <message>
        <source>No text.</source>
        <translation>Нет текста.</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Переименование</translation>
    </message>
    <message>
        <source>Nothing recognised.</source>
        <translation>Ничего не распознано.</translation>
    </message>
    <message>
        <source>The file is too big. Please create new file.</source>
        <translation>Файл слишком большой. Создайте новый файл.</translation>
    </message>
    <message>
        <source>Start of text.</source>
        <translation>Начало текста.</translation>
    </message>
    <message>
        <source>End of text.</source>
        <translation>Конец текста.</translation>
    </message>
</context>
<context>
    <name>YesnoSelect</name>
    <message>
        <source>Yes</source>
        <translation>Да</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Нет</translation>
    </message>
    <message>
        <source>Are you sure to delete it?</source>
        <translation>Удалить этот файл?</translation>
    </message>
</context>
</TS>
