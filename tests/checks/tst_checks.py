#!/usr/bin/env python3
"""The checks see what they are there for: each planted fault fails, and the clean tree passes."""
import os
import subprocess
import tempfile
import unittest

SCRIPTS = os.path.join(os.path.dirname(os.path.realpath(__file__)), "..", "..", "scripts")
CLEAN = {
    "platform/oled.h": "#pragma once\n",
    "store/a.h": '#include "platform/oled.h"\n',
    "engines/b.h": '#include "store/a.h"\n#include <QString>\n',
    "engines/b.cpp": '#include "engines/b.h"\nint x = ZEMBRA_DIC_Init(0);\n',
    "app/c.h": '#include "engines/b.h"\n',
    "editor/e.h": "",
    "dict/d.h": "",
    "store/a.cpp": '#include "app/c.h"\n',
    "open/o.cpp": '#include <opencv2/core.hpp>\n#include "desk/link.h"\n',
    "open/CMakeLists.txt": "find_package(OpenCV REQUIRED)\n",
    "desk/link.h": "",
    "tests/t.cpp": '#include "app/c.h"\n',
    "docs/layer-exceptions.txt": "# comment\nstore/a.cpp -> app/c.h: tells the screen\n",
}


class Tree(unittest.TestCase):
    def run_check(self, script, files):
        with tempfile.TemporaryDirectory(prefix="a tree ") as root:
            for name, text in files.items():
                path = os.path.join(root, name)
                os.makedirs(os.path.dirname(path), exist_ok=True)
                with open(path, "wb") as file:
                    file.write(text if isinstance(text, bytes) else text.encode())
            return subprocess.run([os.path.join(SCRIPTS, script), root], text=True,
                                  stdout=subprocess.PIPE, stderr=subprocess.STDOUT, cwd="/")


class Layers(Tree):
    def fails(self, words, **files):
        changed = {name.replace("__", "/"): text for name, text in files.items()}
        done = self.run_check("check-layers", {**CLEAN, **changed})
        self.assertEqual(done.returncode, 1, done.stdout)
        self.assertIn(words, done.stdout)
        self.assertEqual(len(done.stdout.splitlines()), 1, done.stdout)

    def plant(self, words, name, text):
        self.fails(words, **{name: CLEAN.get(name, "") + text})

    def test_clean_tree_passes(self):
        done = self.run_check("check-layers", CLEAN)
        self.assertEqual(done.returncode, 0, done.stdout)

    def test_empty_tree_fails(self):
        done = self.run_check("check-layers", {"docs/layer-exceptions.txt": ""})
        self.assertEqual(done.returncode, 1, done.stdout)

    def test_header_upwards(self):
        self.plant("downwards only", "store/a.h", '#include "widgets/w.h"\n')

    def test_header_across(self):
        self.plant("downwards only", "editor/e.h", '#include "dict/d.h"\n')

    def test_header_cycle_in_a_folder(self):
        self.fails("each other", **{"app/x.h": '#include "app/y.h"\n',
                                    "app/y.h": '#include "app/x.h"\n'})

    def test_new_upward_include(self):
        self.plant("does not list", "engines/b.cpp", '#include "editor/e.h"\n')

    def test_upward_include_beside_a_path_of_its_own(self):
        self.plant("does not list", "engines/b.cpp", '#include "../app/c.h"\n')

    def test_vanished_upward_include(self):
        self.fails("is gone", **{"store/a.cpp": ""})

    def test_commented_include_does_not_count(self):
        self.fails("is gone", **{"store/a.cpp": '// #include "app/c.h"\n'})

    def test_exception_without_reason(self):
        self.fails("expected", **{"docs/layer-exceptions.txt":
                                  CLEAN["docs/layer-exceptions.txt"] + "a.cpp -> b.h\n"})

    def test_application_includes_open(self):
        self.plant("knows nothing of open/", "store/a.h", '#include "open/o.h"\n')

    def test_application_includes_tests(self):
        self.plant("knows nothing of tests/", "engines/b.cpp", '#include "tests/fakes/f.h"\n')

    def test_open_includes_application(self):
        self.plant("knows nothing of store/", "open/o.cpp", '#include "store/a.h"\n')

    def test_desk_includes_application(self):
        self.plant("knows nothing of engines/", "desk/link.h", '#include "engines/b.h"\n')

    def test_condition_for_a_build(self):
        self.plant("no special cases", "engines/b.cpp", "#ifdef SWIPELINE_DESK\n#endif\n")

    def test_include_guard_is_no_condition(self):
        done = self.run_check("check-layers", {**CLEAN, "app/c.h":
                              "#ifndef OPENMENU_H\n#define OPENMENU_H\n#endif\n"})
        self.assertEqual(done.returncode, 0, done.stdout)

    def test_engine_header_outside_open(self):
        self.plant("only open/ may", "engines/b.cpp", "#include <tesseract/baseapi.h>\n")

    def test_engine_package_outside_open(self):
        self.plant("only open/ may", "app/CMakeLists.txt", "find_package(SDL2 REQUIRED)\n")

    def test_dictionary_call_outside_engines(self):
        self.plant("only engines/ may", "dict/d.cpp", "int y = ZEMBRA_DIC_Init(0);\n")


class Texts(Tree):
    def fails(self, name, text):
        done = self.run_check("check-text", {"README.md": "fine\n", name: text})
        self.assertEqual(done.returncode, 1, done.stdout)
        self.assertIn(name, done.stdout)

    def test_clean_tree_passes(self):
        done = self.run_check("check-text", {"README.md": "fine\n", "build/x": "TO" "DO\n",
                                             "run.log": "[1/9] \r\n", "a b/c.png": b"\xff \n"})
        self.assertEqual(done.returncode, 0, done.stdout)

    def test_foreign_words(self):
        for words in ("see Par" "t 3.1", "as the spec" "ification says", "in spec" ".md",
                      "at /wor" "k/main", "TO" "DO: later", "FIX" "ME", "a sub" "-agent"):
            with self.subTest(words):
                self.fails("app/x.cpp", f"// {words}\n")

    def test_broken_link(self):
        self.fails("docs/x.md", "[there](nowhere.md)\n")

    def test_link_to_no_heading(self):
        self.fails("docs/x.md", "# A menu: F9\n[there](#a-menu)\n")
        self.fails("docs/x.md", "[there](../README.md#fine)\n")
        self.fails("docs/x.md", "```\n# a comment\n```\n[there](#a-comment)\n")

    def test_name_of_no_file(self):
        for name in ("docs/y", "docs/y/", "docs/y/z.md", "docs/y/README.md", "y.h"):
            with self.subTest(name):
                self.fails("docs/x.md", f"see `{name}`\n")

    def test_links_and_names_that_lead_somewhere(self):
        done = self.run_check("check-text", {
            "README.md": "[d](docs/x.md#a-menu-f9) [w](https://e.org/x#y) `docs/x` `docs/` `build/x/y`\n",
            "docs/x.md": "# A menu: F9\n[up](../README.md) [here](#a-menu-f9)\n"
                         "`docs/x.md` `z/b.h` `b.h` `z/NAME.h`\n",
            "docs/z/b.h": "", "device/README.md": "`docs/of/a/pen`\n"})
        self.assertEqual(done.returncode, 0, done.stdout)

    def test_trailing_blank(self):
        self.fails("app/x.cpp", "int x; \n")

    def test_carriage_return(self):
        self.fails("app/x.cpp", "int x;\r\n")

    def test_not_utf8(self):
        self.fails("docs/x.md", b"na\xefve\n")


GUIDE = {
    "translations/Language_Eng_1.ts":
        "<TS><context><name>M</name>"
        "<message><source>No files!</source><translation>No files here!</translation></message>"
        "<message><source>%1 of %2</source><translation>%1 of %2</translation></message>"
        "</context></TS>",
    "docs/guide/README.md": '# The pen\n"No files\nhere!" "2 of 5" ![menu](images/menu.png)\n'
                            "[menu](menu.md)\n",
    "docs/guide/menu.md": "## A menu: F9\n",
    "docs/guide/images/menu.png": "",
    "docs/guide/pictures/menu.desk": "screenshot menu\n",
}


class Guide(Tree):
    def fails(self, words, **files):
        changed = {name.replace("__", "/"): text for name, text in files.items()}
        done = self.run_check("check-guide", {**GUIDE, **changed})
        self.assertEqual(done.returncode, 1, done.stdout)
        self.assertIn(words, done.stdout)
        self.assertEqual(len(done.stdout.splitlines()), 1, done.stdout)

    def plant(self, words, text):
        self.fails(words, **{"docs/guide/README.md": GUIDE["docs/guide/README.md"] + text})

    def test_clean_guide_passes(self):
        done = self.run_check("check-guide", GUIDE)
        self.assertEqual(done.returncode, 0, done.stdout)

    def test_text_that_is_not_explained(self):
        ts = "translations/Language_Eng_1.ts"
        self.fails("is not explained", **{ts: GUIDE[ts].replace(
            "</context>", "<message><source>New</source><translation>New</translation></message>"
            "</context>")})

    def test_text_without_quotation_marks_does_not_count(self):
        readme = "docs/guide/README.md"
        self.fails("is not explained", **{readme: GUIDE[readme].replace('"2 of 5"', "2 of 5")})

    def test_quotation_of_no_text(self):
        self.plant('README.md: "No file here!" is no text of the pen', '"No file\nhere!"\n')
        self.plant("is no text of the pen", '![List: "No files"](images/menu.png)\n')

    def test_code_is_no_quotation(self):
        for text in ('`a "b" c`', '```\n"b"\n```\n'):
            readme = GUIDE["docs/guide/README.md"] + text
            done = self.run_check("check-guide", {**GUIDE, "docs/guide/README.md": readme})
            self.assertEqual(done.returncode, 0, done.stdout)

    def test_other_quotations(self):
        listed = {"docs/guide/quotations.txt": '# others\n\n"tea": the name of a file\n'}
        readme = GUIDE["docs/guide/README.md"]
        for quotation in ("tea", "tea. 2 of 5", "2 of 5 tea"):
            text = f'{readme}"{quotation}"\n'
            done = self.run_check("check-guide", {**GUIDE, **listed, "docs/guide/README.md": text})
            self.assertEqual(done.returncode, 0, f"{quotation}: {done.stdout}")
        self.fails('no page quotes "tea"', **listed)
        self.fails("expected", **{"docs/guide/quotations.txt": "tea\n"})

    def test_missing_picture(self):
        self.plant("is missing", "![x](images/x.png)\n")

    def test_picture_that_no_page_shows(self):
        self.fails("no page shows it", **{"docs/guide/pictures/x.desk": "screenshot x\n"})

    def test_picture_that_no_script_makes(self):
        self.fails("no script", **{"docs/guide/pictures/menu.desk": "quit\n"})


if __name__ == "__main__":
    unittest.main()
