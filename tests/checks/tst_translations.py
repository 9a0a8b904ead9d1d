#!/usr/bin/env python3
"""check-translations sees what it is there for: each planted fault fails, the clean tree passes."""
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPTS = Path(__file__).resolve().parent.parent.parent / "scripts"
sys.dont_write_bytecode = True
sys.path.insert(0, str(SCRIPTS))
from screenfont import ScreenFont  # noqa: E402

LANGUAGES = ("Chn", "Eng", "Ger", "Fre", "Ita", "Spa", "Rus", "Tw")
SOURCE = """#include <QWidget>
class Menu : public QWidget
{
    Q_OBJECT
public:
    Menu();
};
Menu::Menu()
{
    setTitle(tr("New file"));
    talk(tr("Page %1. ").arg(1));
    ask(QCoreApplication::translate("Menu", "Delete it?"));
    setObjectName(QStringLiteral("menu"));
    print("a note of ours");
}
"""
PLACES = """# places
place title 80 1: the first line
place box 80 2: the middle
place heard - -: nothing is shown
title Menu: New file
heard Menu: Page %1.
box Menu: Delete it?
"""
EXCEPTIONS = 'app/menu.cpp "a note of ours": is printed\n'
TEXTS = ("New file", "Page %1. ", "Delete it?")


def ts(*messages):
    lines = "".join(f"<message><source>{text}</source>{translation}</message>"
                    for text, translation in messages)
    return f'<TS version="2.1"><context><name>Menu</name>{lines}</context></TS>\n'


def finished(**changed):
    return ts(*((text, changed.get(key, f"<translation>{text}</translation>"))
                for key, text in zip(("title", "page", "question"), TEXTS)))


class Translations(unittest.TestCase):
    def run_check(self, **files):
        with tempfile.TemporaryDirectory(prefix="a tree ") as folder:
            root = Path(folder)
            for name in ("app", "store", "engines", "editor", "dict", "widgets", "translations"):
                (root / name).mkdir()
            tree = {"app/menu.cpp": SOURCE, "translations/places.txt": PLACES,
                    "translations/not-translated.txt": EXCEPTIONS,
                    **{f"translations/Language_{name}_1.ts": finished() for name in LANGUAGES},
                    **files}
            for name, text in tree.items():
                if text is not None:
                    (root / name).write_text(text, encoding="utf-8")
            return subprocess.run([str(SCRIPTS / "check-translations"), folder], text=True, cwd="/",
                                  stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)

    def fails(self, words, **files):
        done = self.run_check(**files)
        self.assertEqual(done.returncode, 1, done.stdout)
        self.assertIn(words, done.stdout)
        self.assertEqual(len(done.stdout.splitlines()), 1, done.stdout)

    def german(self, words, text=None, **changed):
        self.fails(words, **{"translations/Language_Ger_1.ts": text or finished(**changed)})

    def source(self, words, statement):
        self.fails(words, **{"app/menu.cpp": SOURCE.replace("    print", statement + "\n    print")})

    def test_clean_tree_passes(self):
        done = self.run_check()
        self.assertEqual(done.returncode, 0, done.stdout)

    def test_tree_without_texts(self):
        done = self.run_check(**{"app/menu.cpp": ""})
        self.assertEqual(done.returncode, 1, done.stdout)
        self.assertIn("the source holds no texts", done.stdout)

    def test_missing_language(self):
        self.fails("is missing", **{"translations/Language_Tw_1.ts": None})

    def test_damaged_file(self):
        self.german("cannot be read", finished()[:-10])

    def test_text_that_stands_there_twice(self):
        self.german("twice in Menu", finished().replace(
            "</context>", "<message><source>New file</source><translation>Neu</translation></message>"
            "</context>"))

    def test_unfinished(self):
        self.german("is not translated", title='<translation type="unfinished">Neu</translation>')

    def test_empty(self):
        self.german("is not translated", title="<translation></translation>")

    def test_missing_text(self):
        self.german('no "New file"', ts(*((text, f"<translation>{text}</translation>")
                                          for text in TEXTS[1:])))

    def test_vanished(self):
        self.german("is gone from the source",
                    finished().replace("</context>", "<message><source>Old</source><translation "
                                       'type="vanished">Alt</translation></message></context>'))

    def test_left_over(self):
        self.german("is gone from the source",
                    finished().replace("</context>", "<message><source>Old</source><translation>Alt"
                                       "</translation></message></context>"))

    def test_placeholder(self):
        for text in ("Seite. ", "Seite %2. ", "Seite %1 %1. "):
            with self.subTest(text):
                self.german("placeholders", page=f"<translation>{text}</translation>")

    def test_english_of_its_own(self):
        self.fails("not the text of the source, \"New file\"",
                   **{"translations/Language_Eng_1.ts":
                      finished(title="<translation>New page</translation>")})

    def test_blanks(self):
        for text in ("Seite %1.", " Seite %1. ", "Seite %1.  "):
            with self.subTest(text):
                self.german("blanks", page=f"<translation>{text}</translation>")

    def test_markup(self):
        self.german("mark-up", page="<translation>Seite &lt;%1&gt;. </translation>")

    def test_glyph(self):
        self.german("the font has no \U0001f600", page="<translation>\U0001f600 %1. </translation>")

    def test_wide_line(self):
        self.german("88 pixels wide", title="<translation>Neue Datei!</translation>")
        self.german("96 pixels wide", title="<translation>新的文件文件</translation>")

    def test_too_many_lines(self):
        self.german("takes 3 lines", question="<translation>Wirklich ganz löschen?</translation>")

    def test_text_without_a_place(self):
        self.fails('no place for "New file"',
                   **{"translations/places.txt": PLACES.replace("title Menu: New file\n", "")})

    def test_place_without_a_text(self):
        self.fails("is gone from the source", **{"translations/places.txt": PLACES + "box Menu: Old\n"})

    def test_unknown_place(self):
        self.fails("no place row", **{"translations/places.txt": PLACES + "row Menu: New file\n"})

    def test_place_without_a_reason(self):
        self.fails("expected", **{"translations/places.txt": PLACES + "place row 1 1\n"})

    def test_phrase(self):
        self.source("not translatable", 'say("Please wait");')

    def test_word_that_is_shown(self):
        self.source("not translatable", 'addAction(QStringLiteral("open"));')
        self.source("not translatable", 'new MessageDialog(nullptr, QStringLiteral("lost"), 1);')

    def test_word_beside_a_translated_one(self):
        self.source('"open"', 'setText(tr("New file") + f(1, QLatin1String("open")));')

    def test_name_that_is_not_shown(self):
        done = self.run_check(**{"app/menu.cpp": SOURCE + '// setText("open")\nQString s("open");\n'})
        self.assertEqual(done.returncode, 0, done.stdout)

    def test_text_that_lupdate_does_not_find(self):
        self.source("lupdate does not find",
                    'ask(tr(QT_TRANSLATE_NOOP("Menu", "Really?")));')

    def test_exception_that_is_gone(self):
        self.fails("holds no", **{"translations/not-translated.txt":
                                  EXCEPTIONS + 'app/menu.cpp "an old note": is printed\n'})

    def test_exception_without_a_reason(self):
        self.fails("expected", **{"translations/not-translated.txt": EXCEPTIONS + 'app/menu.cpp "x"\n'})


class Lines(unittest.TestCase):
    """As the pen breaks them, in a font of 8 and 16 pixels."""

    def lines(self, text, width):
        return ScreenFont().lines(text, width)

    def test_words(self):
        self.assertEqual(self.lines("one two", 56), 1)
        self.assertEqual(self.lines("one two", 55), 2)
        self.assertEqual(self.lines("one two ", 56), 1)

    def test_no_break_space(self):
        self.assertEqual(self.lines("a one\u00a0!", 40), 2)
        self.assertEqual(self.lines("abcd e !", 48), 2)

    def test_chinese(self):
        self.assertEqual(self.lines("新的文件", 32), 2)
        self.assertEqual(self.lines("新的文。", 48), 2)

    def test_long_word(self):
        self.assertEqual(self.lines("abcdefgh", 24), 3)


if __name__ == "__main__":
    unittest.main()
