"""What starter styles are made of: style layers, drawings in millimetres, and the files of style libraries.

Lengths are in millimetres, angles in degrees counter-clockwise, x to the right and y up. A layer is a tuple (name of the
element, its attributes, its children).
"""
import dataclasses
import math
from xml.sax.saxutils import quoteattr

BLACK, WHITE = '#000000', '#ffffff'

# Numbers of the filled figures; the outlined one is the next.
DISC, SQUARE, TRIANGLE, STAR, DIAMOND, PENTAGON, HEXAGON = 0, 2, 4, 7, 9, 11, 13
TRIANGLE_DOWN, HALF_DISC, ARROW, CROSS, STAR4 = 15, 17, 19, 21, 23
PLUS, SALTIRE = 6, 25  # of lines


def num(value):
    text = f'{value:.4f}'.rstrip('0').rstrip('.')
    return '0' if text in ('-0', '') else text


def rgba(color):
    return color if len(color) == 9 else color + 'ff'


def attributes(**named):
    """As the files write them; what is None is left out."""
    out = {}
    for name, value in named.items():
        if value is None:
            continue
        if isinstance(value, bool):
            value = int(value)
        if isinstance(value, (list, tuple)):
            value = ' '.join(num(v) for v in value)
        out[name] = value if isinstance(value, str) else num(value)
    return out


def layer(kind, children=(), **named):
    return ('layer', {'type': kind, **attributes(**named)}, list(children))


# ---- layers of points
def figure(number, color, size, dx=0, dy=0, angle=0, pen=0.25):
    """`size` is one number or (width, height)."""
    size_x, size_y = size if isinstance(size, tuple) else (size, size)
    return layer('pnt_figr_slr', figure=number, color=rgba(color), size_x=size_x, size_y=size_y, dx=dx or None,
                 dy=dy or None, angle=angle or None, line_width=pen if pen != 0.25 else None)


def disc(color, size, dx=0, dy=0):
    return figure(DISC, color, size, dx, dy)


def circle(color, size, pen=0.25, dx=0, dy=0):
    return figure(DISC + 1, color, size, dx, dy, pen=pen)


def area(color, *parts):
    """The area of rings of (x, y); where rings lie in one another, the inner one is a hole."""
    size = 2 * max(max(abs(x), abs(y)) for part in parts for x, y in part)
    size = math.ceil(size * 10 - 1e-9) / 10
    rows = [('part', attributes(xy=[v / size for point in part for v in point]), []) for part in parts]
    return layer('pnt_geom_slr', rows, color=rgba(color), size=size)


def box(x0, y0, x1, y1):
    return [(x0, y0), (x0, y1), (x1, y1), (x1, y0)]


def arc(radius, begin=0, end=360, x=0, y=0, steps=None):
    steps = steps or max(6, round(abs(end - begin) / 15))
    angles = [math.radians(begin + (end - begin) * i / steps) for i in range(steps + 1)]
    return [(x + radius * math.cos(a), y + radius * math.sin(a)) for a in angles]


def ring(radius, x=0, y=0):
    return arc(radius, 0, 360, x, y, 32)[:-1]


def moved(part, dx=0, dy=0, turn=0, scale=1):
    c, s = math.cos(math.radians(turn)) * scale, math.sin(math.radians(turn)) * scale
    return [(dx + x * c - y * s, dy + x * s + y * c) for x, y in part]


def mirrored(part):
    return [(-x, y) for x, y in part]


def stroke(points, width):
    """The area of a stroke with flat ends and mitred corners."""
    def side(sign):
        out = []
        for i, (x, y) in enumerate(points):
            a, b = points[max(i - 1, 0)], points[min(i + 1, len(points) - 1)]
            n1 = normal(a, (x, y)) if i else normal((x, y), b)
            n2 = normal((x, y), b) if i + 1 < len(points) else n1
            k = sign * width / 2 / max(0.35, 1 + n1[0] * n2[0] + n1[1] * n2[1])
            out.append((x + (n1[0] + n2[0]) * k, y + (n1[1] + n2[1]) * k))
        return out
    return side(1) + side(-1)[::-1]


def normal(a, b):
    length = math.hypot(b[0] - a[0], b[1] - a[1])
    return ((a[1] - b[1]) / length, (b[0] - a[0]) / length)


# ---- layers of lines
def line(color, width, delta=0):
    return layer('pln_line_slr', color=rgba(color), width=width, delta=delta or None)


def template(color, width, text, dash, gap, shift=0, delta=0, symbol=()):
    """`text` is a character for each element: 0 gap, 1 dash, 2 point, 3 dash across, 4 symbol, 5 and 6 slanted dashes."""
    children = [('symbol', {}, list(symbol))] if symbol else []
    return layer('pln_tplt_slr', children, color=rgba(color), width=width, dash=dash, gap=gap, shift=shift or None,
                 delta=delta or None, template=text)


# ---- layers of areas
def fill(color):
    return layer('pgn_fill_slr', color=rgba(color))


def hatch(delta, angle, *lines, shift=0):
    return layer('pgn_htch_slr', [('line', {}, list(lines))], delta=delta, angle=angle, shift=shift or None)


def hatch_line(delta, angle, color, width, shift=0):
    return hatch(delta, angle, line(color, width), shift=shift)


def spots(dx, dy, *symbol, staggered=True, x0=0, y0=0, scatter=False, turn=False, color=None, size=None):
    """`symbol`, or plain discs of a colour and size, on a net; `scatter` moves each within its cell."""
    children = [('point', {}, list(symbol))] if symbol else []
    return layer('pgn_spot_slr', children, spot_type=int(staggered), dx=dx, dy=dy, x0=x0 or None, y0=y0 or None,
                 use_complex=bool(symbol) or None, color=rgba(color) if color else None, size=size,
                 random_x=scatter or None, random_y=scatter or None, random_angle=turn or None)


# ---- styles
def component(name, plain, layers):
    return (name, {**attributes(**plain), **({'use_complex': '1'} if layers else {})},
            [('complex', {}, list(layers))] if layers else [])


@dataclasses.dataclass
class Style:
    kind: str  # points, lines, polygons
    index: int
    en: str
    ru: str
    parts: list
    flags: dict
    gradient: str | None  # the colour that a gradient replaces; the leading one where it is None
    version: int = 1


def pnt(index, en, ru, *layers, color=None, size=None, gradient=None):
    """A point. `color` and `size` are what it has while its layers are off."""
    first = layers[0][1]
    plain = {'color': rgba(color) if color else first['color'], 'size': size or float(first.get('size', first.get('size_x', 3)))}
    return Style('points', index, en, ru, [component('point', plain, layers)], {}, gradient)


def mark(index, en, ru, number, color, size):
    """A point of one figure, without layers."""
    plain = {'figure': number, 'color': rgba(color), 'size': size}
    return Style('points', index, en, ru, [component('point', plain, ())], {}, None)


def pln(index, en, ru, *layers, end=(), gradient=None):
    """A line; a single stroke needs no layers. `end` stands at its last vertex."""
    kind, first = layers[-1][1]['type'], layers[-1][1]
    plain = {'color': first['color'], 'width': float(first['width'])}
    stack = () if len(layers) == 1 and kind == 'pln_line_slr' and 'delta' not in first else layers
    return Style('lines', index, en, ru,
                 [component('line', plain, stack), component('point', {}, ()), component('end', {}, end),
                  component('begin', {}, ())], attributes(show_end=bool(end) or None), gradient)


def pgn(index, en, ru, *layers, outline=None, gradient=None):
    """An area; `outline` is (colour, width) or layers of a line."""
    plain = {'color': layers[0][1].get('color') or '#e0e0e0ff'}
    stack = () if len(layers) == 1 and layers[0][1]['type'] == 'pgn_fill_slr' else layers
    edge = component('line', {}, ())
    if outline:
        edge = (component('line', {'color': rgba(outline[0]), 'width': outline[1]}, ()) if isinstance(outline, tuple)
                else component('line', {}, outline))
    return Style('polygons', index, en, ru, [component('fill', plain, stack), edge, component('point', {}, ())],
                 attributes(show_line=bool(outline)), gradient)
