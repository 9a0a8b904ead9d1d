#!/usr/bin/env python3
"""Dictionaries are gathered in their order, each with what it says about itself; what is missing is
named and does not stop the rest; nothing is made twice."""
import gzip
import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPTS = Path(__file__).resolve().parent.parent.parent / "scripts"
sys.dont_write_bytecode = True
sys.path.insert(0, str(SCRIPTS))
import dictfiles  # noqa: E402
CEDICT = """# CC-CEDICT
#! date=2020-01-02T03:04:05Z
#! license=https://creativecommons.org/licenses/by-sa/4.0/
房 房 [fang3] /variant of 房[fang2]/
房 房 [fang2] /house/room/CL:間|间[jian1]/
綠 绿 [lu:4] /green/see 房[fang2]/
二 二 [er4] /two/
歐 欧 [Ou1] /Europe/
damaged line
餃子 饺子 [jiao3 zi5] /dumpling/also pr. [jiao3zi4]/
"""
RUSSIAN = """house
   1. _n. [haʊs], _pl. [↗haʊzɪz]
      1) дом; жилище; to keep house вести
      хозяйство
      2) _ам. (тж. the H.) палата; house-dog {см.}
         а) ещё
   2. _v. [haʊz] поселить
"""
FRENCH = ("<i><small>(pe-ti, ti-t') s. m.</small></i>\n\n<b>1°</b> Qui a peu d'étendue. Un petit champ. \n"
          '<span foreground="#0000CD">Petit &amp; grand</span>, <span foreground="#B22222">LA FONT.</span>, '
          '<span foreground="#556B2F">V, 3</span>.\n'
          "<b>2°</b> Terme de chasse. Le jeune animal.\n<b>1°</b> Encore.\n"
          "<b><big>HISTORIQUE</big></b>\n XIe s. <b>3°</b> Rien")
MAKER = """#!/bin/sh
echo called >>"$(dirname "$0")/calls"
printf 'house\\tA\\tE\\n' >"$1/self-made.index"
printf 'casa' >"$1/self-made.dict"
printf 'languages=eng-spa\\nname=Self-made\\nsource=here\\nlicence=free\\n' >"$1/self-made.about"
printf 'went\\tgo\\n' >"$1/eng.forms"
"""


class Scripts(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="a tree ")
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)

    def write(self, name, text, mode=0o644):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")
        path.chmod(mode)
        return path

    def run_script(self, *command):
        return subprocess.run([str(part) for part in command], text=True, cwd="/", check=False,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)


class Gather(Scripts):
    def setUp(self):
        super().setUp()
        for name in ("make-dictionaries", "dictfiles.py"):
            (self.root / "scripts").mkdir(exist_ok=True)
            shutil.copy2(SCRIPTS / name, self.root / "scripts" / name)
        self.write("scripts/make-one", MAKER, 0o755)
        self.write("scripts/make-none", "#!/bin/sh\necho first >&2\necho no network >&2\nexit 1\n", 0o755)
        self.book = self.write("share/book.index", "Haus\tA\tF\n")
        self.write("share/book.dict.dz", "not read here")
        self.write("share/book.index.old", "")

    def table(self, *lines):
        self.write("scripts/dictionaries.txt", "# a comment\n\n" + "\n".join(lines) + "\n")

    def book_row(self):
        return f"deu-eng | {self.root}/share/book | no-such-package | A Book | GPL | https://e.org"

    def gather(self):
        return self.run_script(self.root / "scripts/make-dictionaries", self.root / "cache")

    def pen(self):
        pen = self.root / "cache/pen"
        return sorted(str(path.relative_to(pen)) for path in pen.rglob("*") if path.is_file())

    def test_order_and_descriptors(self):
        self.table("eng-spa | make-one", self.book_row(), "forms | make-one")
        done = self.gather()
        self.assertEqual(done.returncode, 0, done.stdout)
        place = "mnt/hidmmc/sysdict/defaultdict/"
        self.assertEqual([name for name in self.pen() if name.startswith(place)],
                         [place + "01-self-made.about", place + "01-self-made.dict",
                          place + "01-self-made.index", place + "02-book.about",
                          place + "02-book.dict.dz", place + "02-book.index"])
        self.assertIn("apps/data/wordforms/eng.forms", self.pen())
        about = (self.root / "cache/pen" / place / "02-book.about").read_text()
        self.assertEqual(about, "languages=deu-eng\nname=A Book\nsource=https://e.org\n"
                                "source=Debian package no-such-package ?\nlicence=GPL\n")
        self.assertEqual(done.stdout.splitlines()[0], "dictionaries: scripts/make-one works, once")
        self.assertRegex(done.stdout, r"2, none of them .*:\n  eng-spa +Self-made +free +here\n"
                                      r"  deu-eng +A Book +GPL +https://e.org\n")

    def test_missing_ones_are_named(self):
        self.table("zho-eng | make-none", "fra-deu | /nowhere/book | dict-book | B | GPL | x",
                   "spa-eng | make-one", "ita-eng | make-gone", self.book_row())
        done = self.gather()
        self.assertEqual(done.returncode, 0, done.stdout)
        lines = done.stdout.splitlines()
        self.assertIn("dictionaries: zho-eng: left out: no network", lines)
        self.assertIn("dictionaries: fra-deu: left out: the package dict-book is not installed", lines)
        self.assertIn("dictionaries: spa-eng: left out: scripts/make-one made none", lines)
        self.assertIn("dictionaries: ita-eng: left out: no scripts/make-gone", lines)
        self.assertIn("dictionaries: 1, none of them part of this project:", lines)
        self.assertEqual(len(self.pen()), 3)

    def test_a_script_that_fails_is_called_once(self):
        self.write("scripts/make-none", MAKER + "exit 1\n", 0o755)
        self.table("eng-spa | make-none", "spa-eng | make-none", self.book_row())
        done = self.gather()
        self.assertEqual((self.root / "scripts/calls").read_text(), "called\n")
        self.assertIn("dictionaries: spa-eng: left out: scripts/make-none failed", done.stdout)
        self.gather() # perhaps the network is there now
        self.assertEqual((self.root / "scripts/calls").read_text(), "called\n" * 2)

    def test_nothing_is_made_twice(self):
        self.table("eng-spa | make-one", self.book_row())
        self.gather()
        index = self.root / "cache/pen/apps/data/dictindex/kept"
        index.parent.mkdir(parents=True)
        index.write_text("")
        again = self.gather()
        self.assertEqual((self.root / "scripts/calls").read_text(), "called\n")
        self.assertTrue(index.exists())
        self.assertRegex(again.stdout, r"\Adictionaries: 2, none of them part of this project; .*/cache/list\n\Z")
        self.assertIn("A Book", (self.root / "cache/list").read_text())

    def test_what_changed_is_listed(self):
        self.table("eng-spa | make-one")
        self.gather()
        self.table("eng-spa | make-one", self.book_row())
        self.assertIn("\n  deu-eng  A Book", self.gather().stdout)

    def test_what_a_script_uses_counts_as_the_script(self):
        self.write("scripts/make-one", "#!/usr/bin/env python3\nimport helper\nimport sys\n"
                                       "helper.call(sys.argv[1])\n", 0o755)
        helper = ("import subprocess\nfrom pathlib import Path\nHERE = Path(__file__).parent\n"
                  "def call(folder):\n    subprocess.run(['sh', HERE / 'words/maker', folder])\n")
        self.write("scripts/helper.py", helper)
        self.write("scripts/words/maker", MAKER.replace("$0", "$1/../../../scripts/x"))
        self.write("scripts/other.py", "")
        self.table("eng-spa | make-one")
        calls = self.root / "scripts/calls"
        for name, text, times in (("other.py", "# not used\n", 1), ("helper.py", helper + "\n", 2),
                                  ("words/maker", MAKER.replace("$0", "$1/../../../scripts/y"), 3)):
            self.assertIn("dictionaries: 1,", self.gather().stdout)
            self.write(f"scripts/{name}", text)
            self.gather()
            self.assertEqual(calls.read_text(), "called\n" * times, name)

    def test_changes_are_seen(self):
        self.table("eng-spa | make-one", self.book_row())
        self.gather()
        self.write("scripts/make-one", MAKER + "# changed\n", 0o755)
        self.gather()
        self.assertEqual((self.root / "scripts/calls").read_text(), "called\n" * 2)
        self.book.write_text("Haus\tA\tG\n")
        self.gather()
        copy = self.root / "cache/pen/mnt/hidmmc/sysdict/defaultdict/02-book.index"
        self.assertEqual(copy.read_text(), "Haus\tA\tG\n")
        self.table(self.book_row())
        self.gather()
        self.assertEqual(len(self.pen()), 3)


class Table(unittest.TestCase):
    """The table of this tree: what it names is there."""

    def setUp(self):
        lines = (SCRIPTS / "dictionaries.txt").read_text(encoding="utf-8").splitlines()
        self.rows = [[column.strip() for column in line.split("|")] for line in lines
                     if line and not line.startswith("#")]

    def test_packages_are_installed_by_set_up(self):
        listed = {line.split()[0] for line in (SCRIPTS / "packages.txt").read_text().splitlines()
                  if line and not line.startswith("#")}
        for row in self.rows:
            if row[1].startswith("/"):
                self.assertEqual(len(row), 6, row)
                self.assertIn(row[2], listed)
                self.assertTrue(Path(row[1] + ".index").is_file() or Path(row[1] + ".ifo").is_file(), row)

    def test_scripts_can_be_called(self):
        for row in self.rows:
            if not row[1].startswith("/"):
                self.assertEqual(len(row), 2, row)
                self.assertTrue(os.access(SCRIPTS / row[1], os.X_OK), row)

    def test_a_new_pen_begins_with_english(self):
        self.assertEqual(self.rows[0][0], "eng-deu")
        for row in self.rows:
            self.assertRegex(row[0], r"^([a-z]{3}-[a-z]{3}|forms)$")


class Chinese(Scripts):
    def make(self, text):
        (self.root / "out").mkdir()
        return self.run_script(SCRIPTS / "make-chinese-dictionary", self.root / "out",
                               self.write("cedict.u8", text))

    def test_entries(self):
        done = self.make(CEDICT)
        self.assertEqual(done.returncode, 0, done.stdout)
        body = (self.root / "out/cc-cedict.dict").read_bytes()
        # Names behind words, references behind both.
        self.assertEqual(body.decode().splitlines(),
                         ["房 房 [fáng] /house/room/CL:間|间[jiān]/", "綠 绿 [lǜ] /green/see 房[fáng]/",
                          "二 二 [èr] /two/", "餃子 饺子 [jiǎo zi] /dumpling/also pr. [jiǎozì]/",
                          "歐 欧 [Ōu] /Europe/", "房 房 [fǎng] /variant of 房[fáng]/"])
        rows = [line.split("\t") for line in (self.root / "out/cc-cedict.index").read_text().splitlines()]
        self.assertEqual([row[0] for row in rows], sorted("房 房 绿 綠 二 欧 歐 饺子 餃子".split()))
        for head, *place in rows:
            offset, size = map(dictfiles.number, place)
            self.assertIn(head, body[offset:offset + size].decode().split()[:2])

    def test_descriptor(self):
        self.make(CEDICT)
        about = (self.root / "out/cc-cedict.about").read_text()
        self.assertIn("languages=zho-eng\nname=CC-CEDICT\n", about)
        self.assertIn("2020-01-02", about)
        self.assertIn("licence=CC BY-SA 4.0\n", about)

    def test_another_licence_is_refused(self):
        self.assertNotEqual(self.make(CEDICT.replace("by-sa", "by-nc")).returncode, 0)
        self.assertEqual(os.listdir(self.root / "out"), [])

    def test_nothing_is_refused(self):
        self.assertNotEqual(self.make("#! license=https://creativecommons.org/licenses/by-sa/4.0/\n").returncode, 0)


class LaidOut(Scripts):
    def make(self, script, stem):
        (self.root / "out").mkdir()
        done = self.run_script(SCRIPTS / script, self.root / "out", stem)
        self.assertEqual(done.returncode, 0, done.stdout)
        about = next((self.root / "out").glob("*.about"))
        return [(heads, text.splitlines()) for heads, text in self.entries(str(about)[:-len(".about")])]

    def entries(self, stem):
        Path(stem + ".dict.dz").write_bytes(gzip.compress(Path(stem + ".dict").read_bytes()))
        return dictfiles.read_dict(stem)

    def test_russian(self):
        text = RUSSIAN.encode()
        only_words = b"ooh\n   only English\n"
        stem = self.root / "mueller7"
        Path(f"{stem}.dict.dz").write_bytes(gzip.compress(text + only_words))
        self.write("mueller7.index", f"00-database-short\tA\tB\nhouse\tA\t{dictfiles.base64(len(text))}\n"
                                     f"ooh\t{dictfiles.base64(len(text))}\t{dictfiles.base64(len(only_words))}\n")
        self.assertEqual(self.make("make-russian-dictionary", stem),
                         [(["house"], ["house /haʊs/", "1. [n] дом; жилище", "2. [ам.] (тж. the H.) палата",
                                       "3. ещё", "4. [v] поселить", '"to keep house" - вести хозяйство']),
                          (["ooh"], only_words.decode().splitlines() + [""])])

    def test_french(self):
        text = FRENCH.encode()
        rows = b"".join(head.encode() + b"\0" + bytes(4) + len(text).to_bytes(4, "big")
                        for head in ("PÉTIT, ITE.2", "PETIT, ITE.2", "SOUS (SE)"))
        (self.root / "XMLittre.idx").write_bytes(rows)
        (self.root / "XMLittre.dict.dz").write_bytes(gzip.compress(text))
        self.assertEqual(self.make("make-french-dictionary", self.root / "XMLittre"),
                         [(["pétit", "sous"], ["pétit, ite /pe-ti/ <masc>", "1. Qui a peu d'étendue",
                                               "2. [Terme de chasse] Le jeune animal",
                                               '"Petit & grand" (LA FONT.)'])])

    def test_without_their_packages(self):
        for script in ("make-russian-dictionary", "make-french-dictionary"):
            done = self.run_script(SCRIPTS / script, self.root, self.root / "nothing")
            self.assertEqual(done.returncode, 1)
            self.assertIn("is not installed", done.stdout)


if __name__ == "__main__":
    unittest.main()
