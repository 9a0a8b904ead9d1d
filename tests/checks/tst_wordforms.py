#!/usr/bin/env python3
"""Word forms and dictionaries are made of what packages have: analysers, spelling dictionaries, bilingual
lists, dictionaries the other way round."""
import gzip
import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

SCRIPTS = Path(__file__).resolve().parent.parent.parent / "scripts"
ALPHABET = "<alphabet>abcdefghijklmnopqrstuvwxyzàéñ</alphabet>"
SIGNS = ("n np vblex vbser pr prn adj sg pl pri f m GD compound-only-L web").split()
# "a" is a form of the commonest verb and, without its accent, no form of "à".
ANALYSER = [("cats", "cat", "n pl"), ("cat", "cat", "n sg"), ("went", "go", "vblex"),
            ("saw", "see", "vblex"), ("saw", "saw", "n sg"), ("a", "avoir", "vbser"), ("a", "à", "pr"),
            ("me", "prpers", "prn"), ("cat-", "cat", "n compound-only-L"), ("x1", "y", "n"),
            ("Cat", "cat", "n")]
BILINGUAL = [("house", "n", "casa", "n f"), ("house", "vblex", "albergar", "vblex"),
             ("Anna", "np", "Anna", "np"), ("London", "np", "Londres", "np m"),
             ("prpers", "prn", "prpers", "prn"), ("cat", "n", "gato", "n GD")]
BACKWARDS = [("house", "n", "casa", "n f"), ("home", "n", "casa", "n f")]
DEU_RUS = ["Haus /haʊs/ <n, neut>\n1. дом, зда́ние 2.\nein Gebäude, lang beschrieben\n2. семья\nein дом\n",
           "Heim <n, neut>\nдом, (hier:) приют\n", "gehen <v>\nидти\n"]


def symbols(names):
    return "".join(f'<s n="{name}"/>' for name in names.split())


def pair(left, right):
    return f"<e><p><l>{left}</l><r>{right}</r></p></e>"


class Made(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="some packages ")
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        self.out = self.root / "out"
        self.out.mkdir()

    def file(self, name):
        path = self.root / "usr/share" / name
        path.parent.mkdir(parents=True, exist_ok=True)
        return path

    def compiled(self, name, entries):
        source = self.file(name).with_suffix(".dix")
        sdefs = "".join(f'<sdef n="{name}"/>' for name in SIGNS)
        # Web addresses: a pattern with more paths than can be counted.
        pattern = "<e><re>[a-z][a-z][a-z][a-z][a-z][a-z][a-z][a-z]</re><p><l/><r><s n=\"web\"/></r></p></e>"
        source.write_text(
            f'<?xml version="1.0" encoding="UTF-8"?><dictionary>{ALPHABET}<sdefs>{sdefs}</sdefs>'
            f'<section id="main" type="standard">{"".join(entries)}{pattern}</section></dictionary>',
            encoding="utf-8")
        subprocess.run(["lt-comp", "lr", source, self.file(name)], check=True, stdout=subprocess.DEVNULL)

    def run_script(self, name, *arguments):
        environment = {**os.environ, "PACKAGES_ROOT": str(self.root)}
        return subprocess.run([SCRIPTS / name, self.out, *arguments], env=environment, text=True, cwd="/",
                              check=False, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)

    def made(self, name, *arguments):
        done = self.run_script(name, *arguments)
        self.assertEqual(done.returncode, 0, done.stdout)

    def lines(self, name):
        return (self.out / name).read_text(encoding="utf-8").splitlines()


@unittest.skipUnless(shutil.which("lt-comp"), "lttoolbox-dev is not installed")
class Transducers(Made):
    def test_table_of_an_analyser(self):
        self.compiled("apertium/apertium-fra-cat/fra-cat.automorf.bin",
                      [pair(form, lemma + symbols(tags)) for form, lemma, tags in ANALYSER])
        self.made("make-word-forms", "fra")
        rows = self.lines("fra.forms")
        self.assertEqual([row for row in rows if row.split("\t")[0] in ("a", "cats", "me", "saw", "went")],
                         ["a\tavoir\tv", "a\ta", "cats\tcat\tn", "saw\tsee\tv", "went\tgo\tv"])
        forms = [row.split("\t")[0] for row in rows]
        for absent in ("cat", "Cat", "cat-", "x1"):
            self.assertNotIn(absent, forms)

    def test_dictionary_of_bilingual_lists(self):
        for name, entries in (("eng-spa", BILINGUAL), ("spa-eng", [])):
            self.compiled(f"apertium/apertium-eng-spa/{name}.autobil.bin",
                          [pair(one + symbols(tags), other + symbols(more))
                           for one, tags, other, more in entries]
                          + ([pair(other + symbols(more), one + symbols(tags))
                              for one, tags, other, more in BACKWARDS] if not entries else []))
        self.made("make-apertium-dictionaries", "eng-spa", "spa-eng")
        text = "\n".join(self.lines("apertium-eng-spa.dict")) + "\n"
        for entry in ("house <n>\ncasa <fem>\n", "house <v>\nalbergar\n", "London <n>\nLondres <masc>\n",
                      "cat <n>\ngato <masc>\n", "they <pron>\nellos, ellas\n", "home <n>\ncasa <fem>\n"):
            self.assertIn(entry, text)
        self.assertNotIn("Anna", text)
        self.assertNotIn("prpers", text)
        back = "\n".join(self.lines("apertium-spa-eng.dict")) + "\n"
        self.assertIn("casa <n, fem>\nhouse, home\n", back)  # both ways before one way
        about = self.lines("apertium-eng-spa.about")
        self.assertIn("languages=eng-spa", about)
        self.assertIn("source=Debian package apertium-eng-spa", about)


class Lists(Made):
    def german(self, words):
        self.file("hunspell/de_DE_frami.aff").write_text("SET ISO8859-1\n", encoding="latin-1")
        self.file("hunspell/de_DE_frami.dic").write_text(
            f"{len(words)}\n" + "".join(f"{word}\n" for word in words), encoding="latin-1")
        self.made("make-word-forms", "deu")
        return self.lines("deu.forms")

    def test_german_verbs(self):
        rows = self.german(["gehen", "aufgehen/DIX", "vergehen", "anhaben", "passen", "anpassen/DI"])
        for row in ("ging\tgehen\tv", "gingst\tgehen\tv", "gegangene\tgehen\tv", "ginge\tgehen\tv",
                    "aufging\taufgehen\tv", "aufgegangen\taufgehen\tv", "aufzugehen\taufgehen\tv",
                    "verging\tvergehen\tv", "vergangen\tvergehen\tv", "gibst\tgeben\tv", "gib\tgeben\tv",
                    "anzupassen\tanpassen\tv", "ist\tsein\tv", "dem\tder\tf", "anhatte\tanhaben\tv", "besser\tgut\ta", "den\tder\tf", "den\tden"):
            self.assertIn(row, rows)
        for absent in ("untergehen", "einging", "vergegangen"):
            self.assertFalse([row for row in rows if row.startswith(absent + "\t")], absent)

    def test_german_plurals(self):
        rows = self.german(["Haus/T", "Häuser/N", "Schlag", "Schläge", "Schläger", "Vater", "Väter", "Blut",
                            "Blüte"])
        for row in ("Häuser\tHaus\tn", "Häusern\tHaus\tn", "Schläge\tSchlag\tn", "Väter\tVater\tn"):
            self.assertIn(row, rows)
        forms = [row.split("\t")[0] for row in rows]
        self.assertNotIn("Schläger", forms)
        self.assertNotIn("Blüte", forms)

    def test_copies_and_licences(self):
        self.file("doc/hunspell-de-de-frami/copyright").write_text("GPL-2\n", encoding="utf-8")
        self.german(["Haus"])
        self.assertEqual(self.lines("deu.aff"), ["SET ISO8859-1"])
        self.assertIn("==== hunspell-de-de-frami", self.lines("COPYRIGHT"))
        self.assertEqual(sorted(os.listdir(self.out)), ["COPYRIGHT", "deu.aff", "deu.dic", "deu.forms"])

    def test_nothing_installed(self):
        done = self.run_script("make-word-forms", "nor")
        self.assertNotEqual(done.returncode, 0)
        self.assertEqual(os.listdir(self.out), [])
        for script in ("make-apertium-dictionaries", "make-reversed-dictionaries"):
            done = self.run_script(script)
            self.assertNotEqual(done.returncode, 0)
            self.assertIn("not installed", done.stdout)


class Reversed(Made):
    def test_words_change_places(self):
        digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/"
        body, index = b"", ""
        for text in DEU_RUS:
            data = text.encode()
            place = [digits[value // 64 % 64] + digits[value % 64] for value in (len(body), len(data))]
            index += f"{text.split()[0].lower()}\t{place[0]}\t{place[1]}\n"
            body += data
        self.file("dictd/freedict-deu-rus.index").write_text(index, encoding="utf-8")
        self.file("dictd/freedict-deu-rus.dict.dz").write_bytes(gzip.compress(body))
        self.made("make-reversed-dictionaries")
        text = "\n".join(self.lines("reversed-rus-deu.dict")) + "\n"
        for entry in ("дом <n>\nHaus <neut>, Heim <neut>\n", "здание <n>\nHaus <neut>\n", "идти <v>\ngehen\n",
                      "приют <n>\nHeim <neut>\n"):
            self.assertIn(entry, text)
        self.assertIn("languages=rus-deu", self.lines("reversed-rus-deu.about"))
        self.assertFalse((self.out / "reversed-rus-fra.dict").exists())


if __name__ == "__main__":
    unittest.main()
