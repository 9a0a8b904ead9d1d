"""Reads the compiled dictionaries of Apertium: every path through one pairs two texts."""
import collections
import subprocess
import sys

EPSILON = "\u03b5"
CLASS_OF_SIGNS = 12  # so many ways between two states are a pattern, like that of web addresses


def sections(path):
    """The parts of a file as (arcs, final states); arcs[state] = [(to, left sign, right sign)]."""
    text = subprocess.run(["lt-print", path], check=True, stdout=subprocess.PIPE,
                          encoding="utf-8").stdout
    arcs, finals = {}, set()
    for line in text.split("\n"):
        fields = line.split("\t")
        if line.startswith("--"):
            yield arcs, finals
            arcs, finals = {}, set()
        elif len(fields) >= 4:
            signs = ("" if sign == EPSILON else sign for sign in fields[2:4])
            arcs.setdefault(int(fields[0]), []).append((int(fields[1]), *signs))
        elif line:
            finals.add(int(fields[0]))
    yield arcs, finals


def is_tag(sign):
    return len(sign) > 2 and sign[0] == "<" and sign[-1] == ">"


def without_patterns(arcs):
    """What spells words, without the patterns, which have more paths than can be counted."""
    kept = {}
    for state, ways in arcs.items():
        count = collections.Counter(to for to, _, _ in ways)
        kept[state] = [way for way in ways if count[way[0]] < CLASS_OF_SIGNS]
    return kept


def paths(arcs, finals, goes_on):
    """The pairs of texts along all paths without loops. A path ends before a pair of signs for
    which goes_on(left text, right text, left sign, right sign) is false."""
    sys.setrecursionlimit(10000)
    arcs = without_patterns(arcs)
    entered = set()

    def walk(state, left, right):
        if state in finals:
            yield left, right
        if state in entered:
            return
        entered.add(state)
        for to, one, other in arcs.get(state, ()):
            if goes_on(left, right, one, other):
                yield from walk(to, left + one, right + other)
        entered.discard(state)

    return walk(0, "", "")
