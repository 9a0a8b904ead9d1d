<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_TW" sourcelanguage="en">
<context>
    <name>DictList</name>
    <message>
        <source>No dictionary.</source>
        <translation>沒有辭典。</translation>
    </message>
</context>
<context>
    <name>DictScanEdit</name>
    <message>
        <source>Form</source>
        <translation>翻譯</translation>
    </message>
    <message>
        <source>Current source language is chinese. Please scan chinese text.</source>
        <translation>來源語言是中文，請掃描中文。</translation>
    </message>
    <message>
        <source>No translation result.</source>
        <translation>找不到譯文。</translation>
    </message>
    <message>
        <source>Last entry.</source>
        <translation>已經是最後一條。</translation>
    </message>
    <message>
        <source>First entry.</source>
        <translation>已經是第一條。</translation>
    </message>
    <message>
        <source>Entry %1 of %2</source>
        <translation>第%1條，共%2條</translation>
    </message>
    <message>
        <source>Start of text.</source>
        <translation>文字開頭。</translation>
    </message>
    <message>
        <source>End of entry.</source>
        <translation>本條結束。</translation>
    </message>
    <message>
        <source>End of text.</source>
        <translation>文字結尾。</translation>
    </message>
</context>
<context>
    <name>DictSwitch</name>
    <message>
        <source>Select dictionary</source>
        <translation>選擇辭典</translation>
    </message>
    <message>
        <source>Scan language does not match dictionary source language!</source>
        <translation>掃描語言與辭典的來源語言不符！</translation>
    </message>
</context>
<context>
    <name>FileManager</name>
    <message>
        <source>File system is damaged, please connect to PC and repair.</source>
        <translation>檔案系統已損壞，請連接電腦修復。</translation>
    </message>
</context>
<context>
    <name>LanguageNames</name>
    <message>
        <source>English</source>
        <translation>英語</translation>
    </message>
    <message>
        <source>French</source>
        <translation>法語</translation>
    </message>
    <message>
        <source>German</source>
        <translation>德語</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>西班牙語</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>義大利語</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>瑞典語</translation>
    </message>
    <message>
        <source>Danish</source>
        <translation>丹麥語</translation>
    </message>
    <message>
        <source>Norwegian</source>
        <translation>挪威語</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>荷蘭語</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>葡萄牙語</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>俄語</translation>
    </message>
    <message>
        <source>Chinese, simplified</source>
        <translation>簡體中文</translation>
    </message>
</context>
<context>
    <name>LanguagePairs</name>
    <message>
        <source>Chinese-</source>
        <translation>中文-</translation>
    </message>
    <message>
        <source>Chinese</source>
        <translation>中文</translation>
    </message>
    <message>
        <source>English-</source>
        <translation>英語-</translation>
    </message>
    <message>
        <source>English</source>
        <translation>英語</translation>
    </message>
    <message>
        <source>French-</source>
        <translation>法語-</translation>
    </message>
    <message>
        <source>French</source>
        <translation>法語</translation>
    </message>
    <message>
        <source>German-</source>
        <translation>德語-</translation>
    </message>
    <message>
        <source>German</source>
        <translation>德語</translation>
    </message>
    <message>
        <source>Spanish-</source>
        <translation>西班牙語-</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>西班牙語</translation>
    </message>
    <message>
        <source>Italian-</source>
        <translation>義大利語-</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>義大利語</translation>
    </message>
    <message>
        <source>Swedish-</source>
        <translation>瑞典語-</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>瑞典語</translation>
    </message>
    <message>
        <source>Danish-</source>
        <translation>丹麥語-</translation>
    </message>
    <message>
        <source>Danish</source>
        <translation>丹麥語</translation>
    </message>
    <message>
        <source>Norwegian-</source>
        <translation>挪威語-</translation>
    </message>
    <message>
        <source>Norwegian</source>
        <translation>挪威語</translation>
    </message>
    <message>
        <source>Dutch-</source>
        <translation>荷蘭語-</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>荷蘭語</translation>
    </message>
    <message>
        <source>Portuguese-</source>
        <translation>葡萄牙語-</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>葡萄牙語</translation>
    </message>
    <message>
        <source>Russian-</source>
        <translation>俄語-</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>俄語</translation>
    </message>
    <message>
        <source>Arabic-</source>
        <translation>阿拉伯語-</translation>
    </message>
    <message>
        <source>Arabic</source>
        <translation>阿拉伯語</translation>
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
        <translation>掃描到檔案</translation>
    </message>
    <message>
        <source>New file</source>
        <translation>新增檔案</translation>
    </message>
    <message>
        <source>Open file</source>
        <translation>開啟檔案</translation>
    </message>
    <message>
        <source>Delete file</source>
        <translation>刪除檔案</translation>
    </message>
    <message>
        <source>Scan settings</source>
        <translation>掃描設定</translation>
    </message>
    <message>
        <source>Continue scan</source>
        <translation>繼續掃描</translation>
    </message>
    <message>
        <source>Are you sure to delete it?</source>
        <translation>確定要刪除檔案嗎？</translation>
    </message>
    <message>
        <source>Press OK to delete, or right to interrupt.</source>
        <translation>按OK鍵刪除，按向右鍵取消。</translation>
    </message>
    <message>
        <source>Press OK to interrupt, or left to delete.</source>
        <translation>按OK鍵取消，按向左鍵刪除。</translation>
    </message>
    <message>
        <source>The file cannot be deleted.</source>
        <translation>無法刪除檔案。</translation>
    </message>
    <message>
        <source>No available files!</source>
        <translation>沒有檔案！</translation>
    </message>
    <message>
        <source>No enough storage space. Please remove some files.</source>
        <translation>儲存空間不足，請刪除一些檔案。</translation>
    </message>
    <message>
        <source>word is null</source>
        <translation>此處沒有單字。</translation>
    </message>
    <message>
        <source>Nothing recognised.</source>
        <translation>沒有辨識到文字。</translation>
    </message>
    <message>
        <source>Press left or right for the languages, up or down for the dictionary, OK to go back.</source>
        <translation>按向左或向右鍵選擇語言，按向上或向下鍵選擇辭典，按OK鍵返回。</translation>
    </message>
    <message>
        <source>The dictionary cannot be opened. Please select another one.</source>
        <translation>無法開啟辭典，請選擇其他辭典。</translation>
    </message>
    <message>
        <source>No dictionary is installed.</source>
        <translation>未安裝辭典。</translation>
    </message>
    <message>
        <source>Please wait.</source>
        <translation>請稍候。</translation>
    </message>
    <message>
        <source>Dictionary Read Settings</source>
        <translation>辭典朗讀設定</translation>
    </message>
    <message>
        <source>English voice</source>
        <translation>英語語音</translation>
    </message>
    <message>
        <source>Other settings</source>
        <translation>其他設定</translation>
    </message>
    <message>
        <source>Read translation</source>
        <translation>朗讀譯文</translation>
    </message>
    <message>
        <source>There are no new words.</source>
        <translation>沒有生字。</translation>
    </message>
    <message>
        <source>New words</source>
        <translation>生字簿</translation>
    </message>
    <message>
        <source>There is no translation.</source>
        <translation>沒有譯文。</translation>
    </message>
    <message>
        <source>Dictionaries</source>
        <translation>辭典</translation>
    </message>
    <message>
        <source>Select dictionary</source>
        <translation>選擇辭典</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>第%1項，共%2項</translation>
    </message>
    <message>
        <source>More settings</source>
        <translation>更多設定</translation>
    </message>
    <message>
        <source>Read delay</source>
        <translation>朗讀延遲</translation>
    </message>
    <message>
        <source>TTS Setting</source>
        <translation>英語語音</translation>
    </message>
    <message>
        <source>Scan Direction</source>
        <translation>掃描方向</translation>
    </message>
    <message>
        <source>Line %1 of %2</source>
        <translation>第%1行，共%2行</translation>
    </message>
    <message>
        <source>Scan quick settings</source>
        <translation>掃描快速設定</translation>
    </message>
    <message>
        <source>Read again.</source>
        <translation>重新朗讀</translation>
    </message>
    <message>
        <source>Go to beginning</source>
        <translation>回到開頭</translation>
    </message>
    <message>
        <source>Reading settings</source>
        <translation>朗讀設定</translation>
    </message>
    <message>
        <source>Translate</source>
        <translation>翻譯</translation>
    </message>
    <message>
        <source>Scan languages</source>
        <translation>掃描語言</translation>
    </message>
    <message>
        <source>This file cannot be renamed.</source>
        <translation>此檔案不能重新命名。</translation>
    </message>
    <message>
        <source>Scan to rename,press ok to confirm.</source>
        <translation>掃描新名稱，按OK鍵確認。</translation>
    </message>
    <message>
        <source>Sure to rename the file?</source>
        <translation>確定要重新命名檔案嗎？</translation>
    </message>
    <message>
        <source>Press OK to rename, or right to interrupt.</source>
        <translation>按OK鍵重新命名，按向右鍵取消。</translation>
    </message>
    <message>
        <source>Press OK to interrupt, or left to rename.</source>
        <translation>按OK鍵取消，按向左鍵重新命名。</translation>
    </message>
    <message>
        <source>File exists.</source>
        <translation>已有同名檔案。</translation>
    </message>
    <message>
        <source>The file cannot be renamed.</source>
        <translation>無法重新命名檔案。</translation>
    </message>
    <message>
        <source>File system is damaged, please connect to PC and repair.</source>
        <translation>檔案系統已損壞，請連接電腦修復。</translation>
    </message>
    <message>
        <source>Max number of files exceeded. Please remove some files.</source>
        <translation>檔案數量已達上限，請刪除一些檔案。</translation>
    </message>
    <message>
        <source>The file is missing.</source>
        <translation>找不到檔案。</translation>
    </message>
    <message>
        <source>Vertical Text Scan Mode!</source>
        <translation>直排文字掃描模式！</translation>
    </message>
    <message>
        <source>none</source>
        <translation>不延遲</translation>
    </message>
    <message>
        <source>1s</source>
        <translation>一秒</translation>
    </message>
    <message>
        <source>2s</source>
        <translation>兩秒</translation>
    </message>
    <message>
        <source>3s</source>
        <translation>三秒</translation>
    </message>
    <message>
        <source>British English</source>
        <translation>英式英語</translation>
    </message>
    <message>
        <source>American English</source>
        <translation>美式英語</translation>
    </message>
    <message>
        <source>Horizontal Text Scan</source>
        <translation>橫排文字掃描</translation>
    </message>
    <message>
        <source>Vertical Text Scan</source>
        <translation>直排文字掃描</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>語速</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>音量</translation>
    </message>
    <message>
        <source>On</source>
        <translation>開</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>關</translation>
    </message>
    <message>
        <source>Reading</source>
        <translation>朗讀</translation>
    </message>
    <message>
        <source>Word Pause</source>
        <translation>詞間停頓</translation>
    </message>
    <message>
        <source>Punc Pause</source>
        <translation>標點停頓</translation>
    </message>
    <message>
        <source>Read OK</source>
        <translation>朗讀單字</translation>
    </message>
    <message>
        <source>Press left or right to change, OK to go back.</source>
        <translation>按向左或向右鍵變更，按OK鍵返回。</translation>
    </message>
    <message>
        <source>Press OK to select, or down for other options.</source>
        <translation>按OK鍵選擇，按向下鍵查看其他選項。</translation>
    </message>
    <message>
        <source>Press OK to select, or up or down for more options.</source>
        <translation>按OK鍵選擇，按向上或向下鍵查看更多選項。</translation>
    </message>
    <message>
        <source>Press OK to select, or Up for other options.</source>
        <translation>按OK鍵選擇，按向上鍵查看其他選項。</translation>
    </message>
    <message>
        <source>Scan to File mode. </source>
        <translation>掃描到檔案模式。 </translation>
    </message>
    <message>
        <source>Scan or press Menu for options.</source>
        <translation>掃描文字，或按選單鍵查看選項。</translation>
    </message>
    <message>
        <source>The name is empty.</source>
        <translation>沒有名稱。</translation>
    </message>
    <message>
        <source>String is too long.</source>
        <translation>名稱太長。</translation>
    </message>
    <message>
        <source>Invalid character.</source>
        <translation>含有無效字元。</translation>
    </message>
    <message>
        <source>This name cannot be used.</source>
        <translation>此名稱不能使用。</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>將</translation>
    </message>
    <message>
        <source>to</source>
        <translation>重新命名為</translation>
    </message>
</context>
<context>
    <name>MyEdit</name>
    <message>
        <source>The file is too big, do not edit the file in computer.</source>
        <translation>檔案過大，請不要在電腦上編輯。</translation>
    </message>
    <message>
        <source>Not saved. Text is kept here.</source>
        <translation>未儲存，文字還在這裡。</translation>
    </message>
    <message>
        <source>The text is kept in the pen.</source>
        <translation>文字已保留在筆中。</translation>
    </message>
    <message>
        <source>No text.</source>
        <translation>沒有文字。</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>重新命名</translation>
    </message>
    <message>
        <source>Nothing recognised.</source>
        <translation>沒有辨識到文字。</translation>
    </message>
    <message>
        <source>The file is too big. Please create new file.</source>
        <translation>檔案過大，請新增檔案。</translation>
    </message>
    <message>
        <source>Start of text.</source>
        <translation>文字開頭。</translation>
    </message>
    <message>
        <source>End of text.</source>
        <translation>文字結尾。</translation>
    </message>
</context>
<context>
    <name>YesnoSelect</name>
    <message>
        <source>Yes</source>
        <translation>是</translation>
    </message>
    <message>
        <source>No</source>
        <translation>否</translation>
    </message>
    <message>
        <source>Are you sure to delete it?</source>
        <translation>確定要刪除檔案嗎？</translation>
    </message>
</context>
</TS>
