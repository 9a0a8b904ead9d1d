"""Our own lists of word forms in scripts/wordforms/: closed classes of several languages; of German
also verbs and adjectives with changing stems, and plurals with umlaut."""
import os

FOLDER = os.path.join(os.path.dirname(os.path.realpath(__file__)), "wordforms")

SEPARABLE = """ab an auf aus bei da dabei daran davon dar durch ein einher empor entgegen entlang
fehl fern fest fort frei gegenüber gleich heim her herab heran herauf heraus herbei herein herüber
herum herunter hervor hin hinab hinauf hinaus hinein hinüber hinunter hinweg hinzu hoch los mit
nach nieder statt teil tot um umher unter voll voran voraus vorbei vor vorüber vorwärts weg weiter
wieder wiederher zu zurück zusammen zurecht zuvor zwischen über""".split()
INSEPARABLE = "be ent er ge hinter miss miß über um unter ver voll wider wieder zer durch".split()
ADJECTIVE_ENDINGS = ("", "e", "er", "es", "en", "em")

# Classes and ranks, as make-word-forms has them.
LEADING, CLOSED = 0, 2
VERB, NOUN, ADJECTIVE = ("v", 3), ("n", 4), ("a", 5)
UMLAUTS = {"ä": "a", "ö": "o", "ü": "u"}

# Plurals in -er are a closed class: in other words the ending makes one who does something.
ER_PLURALS = """Amt Bad Blatt Brett Buch Dach Dorf Fach Fass Geschlecht Glas Gott Grab Gras Gut Haus
Holz Horn Huhn Irrtum Kalb Korn Kraut Lamm Land Loch Mann Maul Mund Rad Rand Reichtum Schloss Strauch
Tal Tuch Volk Wald Wort Wurm Altertum Heiligtum Eigentum Bistum Denkmal Grabmal Gehalt Haupt""".split()
NO_PLURALS = """Blüte Wüste Güte Röte Mühle Größe Länge Nähe Säule Höhle Fläche Kälte Wärme Stärke
Schwäche Höhe Tücke Stütze Würde Mühe Hälfte Schärfe Härte Bräune Süße Büste""".split()


def past_forms(past):
    if past.endswith("te"):
        return [past + ending for ending in ("", "st", "n", "t")]
    soft = past.endswith(("d", "t"))
    hissing = past.endswith(("s", "ß", "z"))
    second = past + ("est" if soft or hissing else "st")
    return [past, second, past + "st", past + ("et" if soft else "t"), past + "en"]


def present_forms(third):
    """"gibt": with "gibst" and the imperative "gib"."""
    stem = third[:-1] if third.endswith("t") else third
    return [third, stem + ("t" if stem.endswith(("s", "ß", "z")) else "st"), stem]


def verb_forms(fields):
    """(forms that a separable prefix is put before, participles)."""
    _, third, past, subjunctive, participle = fields
    forms = [] if third == "-" else present_forms(third)
    if past != "-":
        forms += past_forms(past)
    if subjunctive != "-":
        forms += [subjunctive + ending for ending in ("", "st", "n", "t")]
    return forms, [participle + ending for ending in ADJECTIVE_ENDINGS]


def prefixed(fields, words):
    """The verbs among `words` that are the verb with a prefix, with their forms."""
    infinitive, participle = fields[0], fields[4]
    forms, participles = verb_forms(fields)
    for prefix in SEPARABLE:
        if prefix + infinitive in words:
            for form in forms + participles:
                yield (prefix + form, prefix + infinitive, *VERB)
            yield (prefix + "zu" + infinitive, prefix + infinitive, *VERB)
    without_ge = participle[2:] if participle.startswith("ge") else participle
    if infinitive == "essen":
        return
    for prefix in INSEPARABLE:
        if prefix + infinitive in words:
            endings = [without_ge + ending for ending in ADJECTIVE_ENDINGS]
            for form in forms + endings:
                yield (prefix + form, prefix + infinitive, *VERB)


def adjective_rows(line):
    word, _, rest = line.partition(">")
    comparative, superlative = rest.split()
    for ending in ADJECTIVE_ENDINGS:
        yield (comparative + ending, word.strip(), *ADJECTIVE)
        yield (superlative + ending, word.strip(), *ADJECTIVE)


def rows_of_line(line, words):
    if "|" in line:
        fields = [field.strip() for field in line.split("|")]
        forms, participles = verb_forms(fields)
        for form in forms + participles:
            yield (form, fields[0], *VERB)
        yield from prefixed(fields, words)
    elif ">" in line:
        yield from adjective_rows(line)
    else:
        name, _, forms = line.lstrip("! ").partition(":")
        word, _, kind = name.partition("/")
        rank = LEADING if line.startswith("!") else CLOSED
        for form in forms.split():
            yield form, word, kind or "f", rank
            # "anhaben", "teilhaben": as the verb itself.
            for prefix in SEPARABLE:
                if word.endswith("n") and prefix + word in words:
                    yield (prefix + form, prefix + word, *VERB)


def singular_of(plural, words):
    """Of a plural with umlaut; empty when it is none."""
    at = max(plural.lower().rfind(sign) for sign in UMLAUTS)
    if at < 0:
        return ""
    umlaut = plural[at]
    plain = UMLAUTS[umlaut.lower()]
    without = plural[:at] + (plain.upper() if umlaut.isupper() else plain) + plural[at + 1:]
    candidates = [without] if without.endswith(("el", "er", "en")) else []
    if without.endswith("e"):
        candidates.append(without[:-1])
    if without.endswith("er") and without[:-2].endswith(tuple(ER_PLURALS_LOWER)):
        candidates.append(without[:-2])
    return next((word for word in candidates if word in words), "")


ER_PLURALS_LOWER = [word.lower() for word in ER_PLURALS] + ER_PLURALS


def plural_rows(words):
    for word in words:
        if word[:1].isupper() and word not in NO_PLURALS:
            singular = singular_of(word, words)
            if singular:
                yield (word, singular, *NOUN)
                if not word.endswith("n"):
                    yield (word + "n", singular, *NOUN)


def infinitive_rows(words):
    """"anzupassen" of "anpassen"."""
    for word in words:
        if word[:1].islower() and word.endswith("n"):
            for prefix in SEPARABLE:
                verb = word[len(prefix):]
                if word.startswith(prefix) and len(verb) > 3 and verb in words:
                    yield (prefix + "zu" + verb, word, *VERB)


def words_of_hunspell(path):
    """The words that a Hunspell dictionary lists; none when it is not there."""
    if not os.path.exists(path):
        return set()
    with open(path, encoding="latin-1") as file:
        next(file, None)
        return {line.split("/")[0].strip() for line in file if not line.startswith(("#", "\t"))}


def rows(language, hunspell_words):
    """(form, word, class, rank) of a language's list; German verbs with prefixes and plurals as far
    as the Hunspell dictionary has them."""
    path = f"{FOLDER}/{language}.txt"
    if not os.path.exists(path):
        return
    words = words_of_hunspell(hunspell_words) if language == "deu" else set()
    with open(path, encoding="utf-8") as file:
        for line in file:
            line = line.strip()
            if line and not line.startswith("#"):
                yield from rows_of_line(line, words)
    yield from plural_rows(words)
    yield from infinitive_rows(words)
