<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>DictList</name>
    <message>
        <source>No dictionary.</source>
        <translation>没有词典。</translation>
    </message>
</context>
<context>
    <name>DictScanEdit</name>
    <message>
        <source>Form</source>
        <translation>翻译</translation>
    </message>
    <message>
        <source>Current source language is chinese. Please scan chinese text.</source>
        <translation>源语言是中文，请扫描中文。</translation>
    </message>
    <message>
        <source>No translation result.</source>
        <translation>没有找到译文。</translation>
    </message>
    <message>
        <source>Last entry.</source>
        <translation>已经是最后一条。</translation>
    </message>
    <message>
        <source>First entry.</source>
        <translation>已经是第一条。</translation>
    </message>
    <message>
        <source>Entry %1 of %2</source>
        <translation>第%1条，共%2条</translation>
    </message>
    <message>
        <source>Start of text.</source>
        <translation>文本开头。</translation>
    </message>
    <message>
        <source>End of entry.</source>
        <translation>本条结束。</translation>
    </message>
    <message>
        <source>End of text.</source>
        <translation>文本末尾。</translation>
    </message>
</context>
<context>
    <name>DictSwitch</name>
    <message>
        <source>Select dictionary</source>
        <translation>选择词典</translation>
    </message>
    <message>
        <source>Scan language does not match dictionary source language!</source>
        <translation>扫描语言与词典的源语言不一致！</translation>
    </message>
</context>
<context>
    <name>FileManager</name>
    <message>
        <source>File system is damaged, please connect to PC and repair.</source>
        <translation>文件系统已损坏，请连接电脑修复。</translation>
    </message>
</context>
<context>
    <name>LanguageNames</name>
    <message>
        <source>English</source>
        <translation>英语</translation>
    </message>
    <message>
        <source>French</source>
        <translation>法语</translation>
    </message>
    <message>
        <source>German</source>
        <translation>德语</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>西班牙语</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>意大利语</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>瑞典语</translation>
    </message>
    <message>
        <source>Danish</source>
        <translation>丹麦语</translation>
    </message>
    <message>
        <source>Norwegian</source>
        <translation>挪威语</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>荷兰语</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>葡萄牙语</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>俄语</translation>
    </message>
    <message>
        <source>Chinese, simplified</source>
        <translation>简体中文</translation>
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
        <translation>英语-</translation>
    </message>
    <message>
        <source>English</source>
        <translation>英语</translation>
    </message>
    <message>
        <source>French-</source>
        <translation>法语-</translation>
    </message>
    <message>
        <source>French</source>
        <translation>法语</translation>
    </message>
    <message>
        <source>German-</source>
        <translation>德语-</translation>
    </message>
    <message>
        <source>German</source>
        <translation>德语</translation>
    </message>
    <message>
        <source>Spanish-</source>
        <translation>西班牙语-</translation>
    </message>
    <message>
        <source>Spanish</source>
        <translation>西班牙语</translation>
    </message>
    <message>
        <source>Italian-</source>
        <translation>意大利语-</translation>
    </message>
    <message>
        <source>Italian</source>
        <translation>意大利语</translation>
    </message>
    <message>
        <source>Swedish-</source>
        <translation>瑞典语-</translation>
    </message>
    <message>
        <source>Swedish</source>
        <translation>瑞典语</translation>
    </message>
    <message>
        <source>Danish-</source>
        <translation>丹麦语-</translation>
    </message>
    <message>
        <source>Danish</source>
        <translation>丹麦语</translation>
    </message>
    <message>
        <source>Norwegian-</source>
        <translation>挪威语-</translation>
    </message>
    <message>
        <source>Norwegian</source>
        <translation>挪威语</translation>
    </message>
    <message>
        <source>Dutch-</source>
        <translation>荷兰语-</translation>
    </message>
    <message>
        <source>Dutch</source>
        <translation>荷兰语</translation>
    </message>
    <message>
        <source>Portuguese-</source>
        <translation>葡萄牙语-</translation>
    </message>
    <message>
        <source>Portuguese</source>
        <translation>葡萄牙语</translation>
    </message>
    <message>
        <source>Russian-</source>
        <translation>俄语-</translation>
    </message>
    <message>
        <source>Russian</source>
        <translation>俄语</translation>
    </message>
    <message>
        <source>Arabic-</source>
        <translation>阿拉伯语-</translation>
    </message>
    <message>
        <source>Arabic</source>
        <translation>阿拉伯语</translation>
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
        <translation>扫描到文件</translation>
    </message>
    <message>
        <source>New file</source>
        <translation>新建文件</translation>
    </message>
    <message>
        <source>Open file</source>
        <translation>打开文件</translation>
    </message>
    <message>
        <source>Delete file</source>
        <translation>删除文件</translation>
    </message>
    <message>
        <source>Scan settings</source>
        <translation>扫描设置</translation>
    </message>
    <message>
        <source>Continue scan</source>
        <translation>继续扫描</translation>
    </message>
    <message>
        <source>Are you sure to delete it?</source>
        <translation>确定要删除文件吗？</translation>
    </message>
    <message>
        <source>Press OK to delete, or right to interrupt.</source>
        <translation>按OK键删除，按向右键取消。</translation>
    </message>
    <message>
        <source>Press OK to interrupt, or left to delete.</source>
        <translation>按OK键取消，按向左键删除。</translation>
    </message>
    <message>
        <source>The file cannot be deleted.</source>
        <translation>无法删除文件。</translation>
    </message>
    <message>
        <source>No available files!</source>
        <translation>没有文件！</translation>
    </message>
    <message>
        <source>No enough storage space. Please remove some files.</source>
        <translation>存储空间不足，请删除一些文件。</translation>
    </message>
    <message>
        <source>word is null</source>
        <translation>此处没有单词。</translation>
    </message>
    <message>
        <source>Nothing recognised.</source>
        <translation>没有识别到文字。</translation>
    </message>
    <message>
        <source>Press left or right for the languages, up or down for the dictionary, OK to go back.</source>
        <translation>按向左或向右键选择语言，按向上或向下键选择词典，按OK键返回。</translation>
    </message>
    <message>
        <source>The dictionary cannot be opened. Please select another one.</source>
        <translation>无法打开词典，请选择其他词典。</translation>
    </message>
    <message>
        <source>No dictionary is installed.</source>
        <translation>未安装词典。</translation>
    </message>
    <message>
        <source>Please wait.</source>
        <translation>请稍候。</translation>
    </message>
    <message>
        <source>Dictionary Read Settings</source>
        <translation>词典朗读设置</translation>
    </message>
    <message>
        <source>English voice</source>
        <translation>英语语音</translation>
    </message>
    <message>
        <source>Other settings</source>
        <translation>其他设置</translation>
    </message>
    <message>
        <source>Read translation</source>
        <translation>朗读译文</translation>
    </message>
    <message>
        <source>There are no new words.</source>
        <translation>没有生词。</translation>
    </message>
    <message>
        <source>New words</source>
        <translation>生词本</translation>
    </message>
    <message>
        <source>There is no translation.</source>
        <translation>没有译文。</translation>
    </message>
    <message>
        <source>Dictionaries</source>
        <translation>词典</translation>
    </message>
    <message>
        <source>Select dictionary</source>
        <translation>选择词典</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>第%1项，共%2项</translation>
    </message>
    <message>
        <source>More settings</source>
        <translation>更多设置</translation>
    </message>
    <message>
        <source>Read delay</source>
        <translation>朗读延迟</translation>
    </message>
    <message>
        <source>TTS Setting</source>
        <translation>英语语音</translation>
    </message>
    <message>
        <source>Scan Direction</source>
        <translation>扫描方向</translation>
    </message>
    <message>
        <source>Line %1 of %2</source>
        <translation>第%1行，共%2行</translation>
    </message>
    <message>
        <source>Scan quick settings</source>
        <translation>扫描快捷设置</translation>
    </message>
    <message>
        <source>Read again.</source>
        <translation>重新朗读</translation>
    </message>
    <message>
        <source>Go to beginning</source>
        <translation>回到开头</translation>
    </message>
    <message>
        <source>Reading settings</source>
        <translation>朗读设置</translation>
    </message>
    <message>
        <source>Translate</source>
        <translation>翻译</translation>
    </message>
    <message>
        <source>Scan languages</source>
        <translation>扫描语言</translation>
    </message>
    <message>
        <source>This file cannot be renamed.</source>
        <translation>此文件不能重命名。</translation>
    </message>
    <message>
        <source>Scan to rename,press ok to confirm.</source>
        <translation>扫描新名称，按OK键确认。</translation>
    </message>
    <message>
        <source>Sure to rename the file?</source>
        <translation>确定要重命名文件吗？</translation>
    </message>
    <message>
        <source>Press OK to rename, or right to interrupt.</source>
        <translation>按OK键重命名，按向右键取消。</translation>
    </message>
    <message>
        <source>Press OK to interrupt, or left to rename.</source>
        <translation>按OK键取消，按向左键重命名。</translation>
    </message>
    <message>
        <source>File exists.</source>
        <translation>已有同名文件。</translation>
    </message>
    <message>
        <source>The file cannot be renamed.</source>
        <translation>无法重命名文件。</translation>
    </message>
    <message>
        <source>File system is damaged, please connect to PC and repair.</source>
        <translation>文件系统已损坏，请连接电脑修复。</translation>
    </message>
    <message>
        <source>Max number of files exceeded. Please remove some files.</source>
        <translation>文件数量已达上限，请删除一些文件。</translation>
    </message>
    <message>
        <source>The file is missing.</source>
        <translation>找不到文件。</translation>
    </message>
    <message>
        <source>Vertical Text Scan Mode!</source>
        <translation>竖排文字扫描模式！</translation>
    </message>
    <message>
        <source>none</source>
        <translation>不延迟</translation>
    </message>
    <message>
        <source>1s</source>
        <translation>一秒</translation>
    </message>
    <message>
        <source>2s</source>
        <translation>两秒</translation>
    </message>
    <message>
        <source>3s</source>
        <translation>三秒</translation>
    </message>
    <message>
        <source>British English</source>
        <translation>英式英语</translation>
    </message>
    <message>
        <source>American English</source>
        <translation>美式英语</translation>
    </message>
    <message>
        <source>Horizontal Text Scan</source>
        <translation>横排文字扫描</translation>
    </message>
    <message>
        <source>Vertical Text Scan</source>
        <translation>竖排文字扫描</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>语速</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>音量</translation>
    </message>
    <message>
        <source>On</source>
        <translation>开</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>关</translation>
    </message>
    <message>
        <source>Reading</source>
        <translation>朗读</translation>
    </message>
    <message>
        <source>Word Pause</source>
        <translation>词间停顿</translation>
    </message>
    <message>
        <source>Punc Pause</source>
        <translation>标点停顿</translation>
    </message>
    <message>
        <source>Read OK</source>
        <translation>朗读单词</translation>
    </message>
    <message>
        <source>Press left or right to change, OK to go back.</source>
        <translation>按向左或向右键更改，按OK键返回。</translation>
    </message>
    <message>
        <source>Press OK to select, or down for other options.</source>
        <translation>按OK键选择，按向下键查看其他选项。</translation>
    </message>
    <message>
        <source>Press OK to select, or up or down for more options.</source>
        <translation>按OK键选择，按向上或向下键查看更多选项。</translation>
    </message>
    <message>
        <source>Press OK to select, or Up for other options.</source>
        <translation>按OK键选择，按向上键查看其他选项。</translation>
    </message>
    <message>
        <source>Scan to File mode. </source>
        <translation>扫描到文件模式。 </translation>
    </message>
    <message>
        <source>Scan or press Menu for options.</source>
        <translation>扫描文字，或按菜单键查看选项。</translation>
    </message>
    <message>
        <source>The name is empty.</source>
        <translation>没有名称。</translation>
    </message>
    <message>
        <source>String is too long.</source>
        <translation>名称太长。</translation>
    </message>
    <message>
        <source>Invalid character.</source>
        <translation>含有无效字符。</translation>
    </message>
    <message>
        <source>This name cannot be used.</source>
        <translation>此名称不能使用。</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>将</translation>
    </message>
    <message>
        <source>to</source>
        <translation>重命名为</translation>
    </message>
</context>
<context>
    <name>MyEdit</name>
    <message>
        <source>The file is too big, do not edit the file in computer.</source>
        <translation>文件过大，请不要在电脑上编辑。</translation>
    </message>
    <message>
        <source>Not saved. Text is kept here.</source>
        <translation>未保存，文本还在这里。</translation>
    </message>
    <message>
        <source>The text is kept in the pen.</source>
        <translation>文本已保留在笔中。</translation>
    </message>
    <message>
        <source>No text.</source>
        <translation>没有文字。</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>重命名</translation>
    </message>
    <message>
        <source>Nothing recognised.</source>
        <translation>没有识别到文字。</translation>
    </message>
    <message>
        <source>The file is too big. Please create new file.</source>
        <translation>文件过大，请新建文件。</translation>
    </message>
    <message>
        <source>Start of text.</source>
        <translation>文本开头。</translation>
    </message>
    <message>
        <source>End of text.</source>
        <translation>文本末尾。</translation>
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
        <translation>确定要删除文件吗？</translation>
    </message>
</context>
</TS>
