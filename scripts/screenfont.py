"""What the pen's font can show, and how wide: read from the font file itself."""
import struct
import unicodedata

FONT = "/usr/share/fonts/opentype/unifont/unifont.otf"
PIXELS = 16  # height of a line; the font's own size


class ScreenFont:
    def __init__(self, path=FONT):
        with open(path, "rb") as file:
            data = file.read()
        tables = {}
        for i in range(struct.unpack_from(">H", data, 4)[0]):
            tag, _, offset, size = struct.unpack_from(">4sIII", data, 12 + 16 * i)
            tables[tag] = data[offset:offset + size]
        self._glyphs = self._read_cmap(tables[b"cmap"])
        units = struct.unpack_from(">H", tables[b"head"], 18)[0]
        metrics = struct.unpack_from(">H", tables[b"hhea"], 34)[0]
        self._widths = [struct.unpack_from(">H", tables[b"hmtx"], 4 * i)[0] * PIXELS // units
                        for i in range(metrics)]

    @staticmethod
    def _read_cmap(cmap):
        """Character -> glyph, from the subtable of the Basic Multilingual Plane (format 4)."""
        glyphs = {}
        for i in range(struct.unpack_from(">H", cmap, 2)[0]):
            offset = struct.unpack_from(">I", cmap, 8 + 8 * i)[0]
            if struct.unpack_from(">H", cmap, offset)[0] != 4:
                continue
            count = struct.unpack_from(">H", cmap, offset + 6)[0] // 2
            ends, starts, deltas, places = (offset + 14 + extra for extra in (
                0, 2 * count + 2, 4 * count + 2, 6 * count + 2))
            for k in range(count):
                end, = struct.unpack_from(">H", cmap, ends + 2 * k)
                start, = struct.unpack_from(">H", cmap, starts + 2 * k)
                delta, = struct.unpack_from(">H", cmap, deltas + 2 * k)
                place, = struct.unpack_from(">H", cmap, places + 2 * k)
                for code in range(start, min(end, 0xFFFE) + 1):
                    if place:
                        at = places + 2 * k + place + 2 * (code - start)
                        glyph, = struct.unpack_from(">H", cmap, at)
                        glyph = (glyph + delta) & 0xFFFF if glyph else 0
                    else:
                        glyph = (code + delta) & 0xFFFF
                    if glyph:
                        glyphs[chr(code)] = glyph
        return glyphs

    def has(self, character):
        return character in self._glyphs

    def width(self, text):
        """In pixels; a character that the font lacks counts as a wide one."""
        last = len(self._widths) - 1
        return sum(self._widths[min(self._glyphs[c], last)] if c in self._glyphs else PIXELS
                   for c in text)

    def lines(self, text, width):
        """How many lines a text takes when it is broken at blanks and between Chinese characters."""
        lines, filled = 1, 0
        for piece in _pieces(text):
            room = self.width(piece.rstrip(" "))
            if filled and filled + room > width:
                lines, filled = lines + 1, 0
            filled += self.width(piece)
            while room > width:  # a word longer than a line
                lines, room, filled = lines + 1, room - width, filled - width
        return lines


def _pieces(text):
    """What stays together on a line: a word with its blanks, a Chinese character with its marks."""
    pieces = []
    for i, c in enumerate(text):
        wide = unicodedata.east_asian_width(c) in "WF"
        closes = unicodedata.category(c) in ("Pe", "Pf", "Po")
        begins = i == 0 or text[i - 1] == " " or \
            (not closes and (wide or unicodedata.east_asian_width(text[i - 1]) in "WF"))
        if begins and c != " ":
            pieces.append(c)
        elif pieces:
            pieces[-1] += c
        else:
            pieces.append(c)
    return pieces
