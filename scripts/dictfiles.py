"""Reads and writes dictionaries, with what docs/dictionaries.md says of .about files."""
import gzip
import subprocess
from pathlib import Path

DIGITS = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/"


def version_of(package):
    """The version of an installed Debian package; "?" for one that is not."""
    answer = subprocess.run(["dpkg-query", "-W", "-f", "${Version}", package], text=True,
                            capture_output=True, check=False)
    return answer.stdout.strip() or "?"


def base64(number):
    """A number as DICT indices write it."""
    digits = DIGITS[number % 64]
    while number >= 64:
        number //= 64
        digits = DIGITS[number % 64] + digits
    return digits


def number(digits):
    """What base64() wrote."""
    value = 0
    for digit in digits:
        value = value * 64 + DIGITS.index(digit)
    return value


def grouped(rows, body):
    """(heads, text) of each entry, from (head, offset, size) of each head."""
    entries = {}
    for head, offset, size in rows:
        entries.setdefault((offset, size), []).append(head)
    for (offset, size), heads in sorted(entries.items()):
        yield heads, body[offset:offset + size].decode("utf-8", "replace")


def read_dict(stem):
    """(heads, text) of each entry of STEM.index and STEM.dict.dz."""
    rows = []
    for line in Path(f"{stem}.index").read_text(encoding="utf-8").splitlines():
        columns = line.split("\t")
        if not columns[0].startswith(("00database", "00-database")):
            rows.append((columns[0], number(columns[1]), number(columns[2])))
    return grouped(rows, gzip.open(f"{stem}.dict.dz").read())


def read_stardict(stem):
    """(heads, text) of each entry of STEM.idx and STEM.dict.dz."""
    index = Path(f"{stem}.idx").read_bytes()
    rows = []
    at = 0
    while at < len(index):
        end = index.index(b"\0", at)
        rows.append((index[at:end].decode("utf-8"), int.from_bytes(index[end + 1:end + 5], "big"),
                     int.from_bytes(index[end + 5:end + 9], "big")))
        at = end + 9
    return grouped(rows, gzip.open(f"{stem}.dict.dz").read())


def about(languages, name, source, licence):
    """The content of an .about file; `source` and `licence` are lists of lines."""
    lines = [f"languages={languages}", f"name={name}"]
    lines += [f"source={line}" for line in source]
    lines += [f"licence={line}" for line in licence]
    return "\n".join(lines) + "\n"


def write(stem, entries, *, languages, name, source, licence):
    """Writes STEM.dict, STEM.index and STEM.about. `entries` has (heads, text) of each entry."""
    body = bytearray()
    rows = []
    for heads, text in entries:
        data = text.encode("utf-8") + b"\n"
        rows += [(head.encode("utf-8"), len(body), len(data)) for head in heads]
        body += data
    rows.sort()
    with open(f"{stem}.dict", "wb") as file:
        file.write(body)
    with open(f"{stem}.index", "wb") as file:
        for head, offset, size in rows:
            file.write(b"%s\t%s\t%s\n" % (head, base64(offset).encode(), base64(size).encode()))
    with open(f"{stem}.about", "w", encoding="utf-8") as file:
        file.write(about(languages, name, source, licence))
