#!/usr/bin/env python3
"""Writes examples/data/nc_legend.dbf: a standard legend for the counties of nc.shp by their codes in the field FIPS.

Each county has a row: its code, the symbol of the part of the state in which the middle of its box lies (thirds of the
width), its name, and that part. Rows of one part share a symbol, and so become the shades of one colour.
"""
import pathlib, struct

DATA = pathlib.Path(__file__).resolve().parent.parent / 'examples' / 'data'
PARTS = ((', west', 821), (', middle', 861), (', east', 831))  # forest, arable land, meadow
FIELDS = (('L_CODE', 'N', 6), ('B_CODE', 'N', 6), ('TEXT1', 'C', 16), ('TEXT2', 'C', 8))


def read_table(path, names):
    raw = path.read_bytes()
    rows, head, width = struct.unpack('<IHH', raw[4:12])
    places, at, offset = {}, 32, 1
    while raw[at] != 0x0d:
        places[raw[at:at + 11].split(b'\0')[0].decode()] = offset, raw[at + 16]
        offset += raw[at + 16]
        at += 32
    for row in range(rows):
        begin = head + row * width
        yield [raw[begin + places[n][0]:begin + sum(places[n])].decode().strip() for n in names]


def read_middles(path):
    """The middle of the box of each shape, from west to east."""
    raw, at = path.read_bytes(), 100
    while at < len(raw):
        length = struct.unpack('>I', raw[at + 4:at + 8])[0] * 2
        west, _, east, _ = struct.unpack('<4d', raw[at + 12:at + 44])
        yield (west + east) / 2
        at += 8 + length


def main():
    counties = list(read_table(DATA / 'nc.dbf', ('FIPS', 'NAME')))
    middles = list(read_middles(DATA / 'nc.shp'))
    west, east = min(middles), max(middles)
    rows = []
    for (code, name), middle in zip(counties, middles, strict=True):
        part = min(int(3 * (middle - west) / (east - west)), 2)
        rows.append((part, name, int(code)))
    out = bytearray(struct.pack('<4BIHH20x', 3, 126, 1, 1, len(rows), 32 * len(FIELDS) + 33,
                                1 + sum(width for _, _, width in FIELDS)))
    for name, kind, width in FIELDS:
        out += struct.pack('<11sc4xB15x', name.encode(), kind.encode(), width)
    out += b'\r'
    for part, name, code in sorted(rows):
        cells = (f'{code:6}', f'{PARTS[part][1]:6}', name, PARTS[part][0])
        out += b' ' + b''.join(text.ljust(width).encode() for text, (_, _, width) in zip(cells, FIELDS))
    (DATA / 'nc_legend.dbf').write_bytes(out + b'\x1a')


if __name__ == '__main__':
    main()
