"""Writes dictionaries of the format DICT, with what docs/dictionaries.md says of .about files."""

DIGITS = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/"


def base64(number):
    """A number as DICT indices write it."""
    digits = DIGITS[number % 64]
    while number >= 64:
        number //= 64
        digits = DIGITS[number % 64] + digits
    return digits


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
