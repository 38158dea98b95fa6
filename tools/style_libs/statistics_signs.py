"""Points and lines for statistics: series by size, colours of classes, changes, shares, flows."""
from draw import *
from patterns import COLORS

NAME = ('Points for statistics', 'Знаки статистики')

# Areas of the signs go as 1 : 2 : 4 : ... of the largest, so that sizes can be read as amounts.
SIZES = tuple(round(1.2 * 2 ** (i / 2), 2) for i in range(8))
RED, BLUE, GREEN, ORANGE, VIOLET, DARK = '#c62f2f', '#2a6fb5', '#4f8a2a', '#d9731a', '#6b4fa8', '#262626'


def sized(first, number, color, en, ru, sizes=SIZES):
    """Filled signs with a thin dark edge, which keeps them apart where they overlap."""
    return [pnt(first + i, f'{en}, step {i + 1}', f'{ru}, ступень {i + 1}', figure(number, color + 'd0', s), figure(number + 1, darker(color), s, pen=0.25),
                color=color, size=s) for i, s in enumerate(sizes)]


def hollow(first, number, color, en, ru, sizes=SIZES):
    return [pnt(first + i, f'{en}, step {i + 1}', f'{ru}, ступень {i + 1}', figure(number + 1, color, s, pen=0.4), color=color, size=s)
            for i, s in enumerate(sizes)]


def darker(color):
    return '#' + ''.join(f'{round(int(color[i:i + 2], 16) * 0.6):02x}' for i in (1, 3, 5))


SIZED_DISCS = sized(101, DISC, RED, 'Discs', 'Круги') + sized(111, DISC, BLUE, 'Blue discs', 'Синие круги')
SIZED_CIRCLES = hollow(121, DISC, DARK, 'Circles', 'Окружности')
SIZED_SQUARES = sized(131, SQUARE, ORANGE, 'Squares', 'Квадраты')
SIZED_TRIANGLES = sized(141, TRIANGLE, GREEN, 'Triangles', 'Треугольники')
SIZED_DIAMONDS = sized(151, DIAMOND, VIOLET, 'Diamonds', 'Ромбы')
SIZED_STARS = [mark(161 + i, f'Stars, step {i + 1}', f'Звёзды, ступень {i + 1}', STAR, '#b38f00', s) for i, s in enumerate(SIZES[2:7])]
SIZED_CROSSES = [mark(171 + i, f'Crosses, step {i + 1}', f'Кресты, ступень {i + 1}', CROSS, '#1f8a80', s) for i, s in enumerate(SIZES[1:6])]


def classes(first, number, size, en, ru):
    return [pnt(first + i, f'{en}, {c_en}', f'{ru}, {c_ru}', figure(number, darker(color), size), figure(number, color, size - 0.5), color=color, size=size, gradient=color)
            for i, (color, tint, c_en, c_ru) in enumerate(COLORS)]


CLASS_DISCS = classes(201, DISC, 3.0, 'Disc', 'Круг')
CLASS_SQUARES = classes(221, SQUARE, 3.0, 'Square', 'Квадрат')
CLASS_TRIANGLES = [mark(241 + i, f'Triangle, {en}', f'Треугольник, {ru}', TRIANGLE, color, 3.4) for i, (color, tint, en, ru) in enumerate(COLORS)]
# Signs that stay apart in one colour.
SHAPES = [mark(261 + i, en, ru, number, DARK, size) for i, (number, size, en, ru) in enumerate((
    (DISC, 2.8, 'Disc', 'Круг'), (DISC + 1, 2.8, 'Circle', 'Окружность'), (SQUARE, 3.0, 'Square', 'Квадрат'), (SQUARE + 1, 3.0, 'Open square', 'Пустой квадрат'),
    (TRIANGLE, 3.2, 'Triangle', 'Треугольник'), (TRIANGLE + 1, 3.2, 'Open triangle', 'Пустой треугольник'),
    (TRIANGLE_DOWN, 3.2, 'Triangle upside down', 'Перевёрнутый треугольник'), (TRIANGLE_DOWN + 1, 3.2, 'Open triangle upside down', 'Пустой перевёрнутый треугольник'),
    (DIAMOND, 3.4, 'Diamond', 'Ромб'), (DIAMOND + 1, 3.4, 'Open diamond', 'Пустой ромб'), (PENTAGON, 3.2, 'Pentagon', 'Пятиугольник'), (PENTAGON + 1, 3.2, 'Open pentagon', 'Пустой пятиугольник'),
    (HEXAGON, 3.2, 'Hexagon', 'Шестиугольник'), (HEXAGON + 1, 3.2, 'Open hexagon', 'Пустой шестиугольник'), (STAR, 3.8, 'Star', 'Звезда'), (STAR + 1, 3.8, 'Open star', 'Пустая звезда'),
    (STAR4, 3.8, 'Pointed star', 'Четырёхлучевая звезда'), (STAR4 + 1, 4.0, 'Open pointed star', 'Пустая четырёхлучевая звезда'),
    (CROSS, 3.2, 'Broad cross', 'Широкий крест'), (CROSS + 1, 3.4, 'Open cross', 'Пустой крест'),
    (PLUS, 3.2, 'Plus', 'Плюс'), (SALTIRE, 3.2, 'Saltire', 'Косой крест'), (HALF_DISC, 3.4, 'Half disc', 'Полукруг'), (HALF_DISC + 1, 3.4, 'Open half disc', 'Пустой полукруг')))]


def share(index, percent):
    begin, parts = 90, [disc(WHITE, 4.6)]
    if percent == 100:
        parts = [disc(BLUE, 4.6)]
    elif percent:
        parts.append(area(BLUE, [(0, 0)] + arc(2.3, begin, begin - 3.6 * percent, steps=max(4, round(percent / 3)))))
    return pnt(index, f'Share, {percent} %', f'Доля, {percent} %'.replace('.', ','), *parts, circle('#173f6b', 4.6, 0.35), color=BLUE, size=4.6, gradient=BLUE if percent else None)


SHARES = [share(301 + i, p) for i, p in enumerate((0, 12.5, 25, 37.5, 50, 62.5, 75, 87.5, 100))]


def bar(index, part):
    top = -2.2 + 4.4 * part / 5
    return pnt(index, f'Bar, {part} of 5', f'Столбик, {part} из 5', area(WHITE, box(-0.9, -2.2, 0.9, 2.2)), area(ORANGE, box(-0.9, -2.2, 0.9, top)),
               area('#7a3f0a', box(-1.05, -2.35, 1.05, 2.35), box(-0.8, -2.1, 0.8, 2.1)), color=ORANGE, size=4.6, gradient=ORANGE)


BARS = [bar(311 + i, i) for i in range(1, 6)]


def up(height, color):
    return area(color, [(-0.55, -height / 2), (-0.55, height / 2 - 1.4), (-1.5, height / 2 - 1.4), (0, height / 2), (1.5, height / 2 - 1.4), (0.55, height / 2 - 1.4), (0.55, -height / 2)])


def turned(item, angle):
    return (item[0], {**item[1], 'angle': num(angle)}, item[2])


CHANGE = [
    pnt(321, 'Strong rise', 'Сильный рост', up(5.4, '#2f7d3a')), pnt(322, 'Rise', 'Рост', up(3.6, '#5fae5a')),
    pnt(323, 'Slight rise', 'Слабый рост', turned(up(3.6, '#9fc97a'), -45)), pnt(324, 'No change', 'Без изменений', turned(up(3.6, '#8c8c8c'), -90)),
    pnt(325, 'Slight fall', 'Слабое снижение', turned(up(3.6, '#e8a07a'), -135)), pnt(326, 'Fall', 'Снижение', turned(up(3.6, '#d95f4a'), 180)),
    pnt(327, 'Strong fall', 'Сильное снижение', turned(up(5.4, '#a81f1f'), 180)),
    pnt(328, 'Value above the mean', 'Выше среднего', circle('#a81f1f', 3.6, 0.4), area('#a81f1f', box(-1.1, -0.25, 1.1, 0.25)), area('#a81f1f', box(-0.25, -1.1, 0.25, 1.1))),
    pnt(329, 'Value below the mean', 'Ниже среднего', circle(BLUE, 3.6, 0.4), area(BLUE, box(-1.1, -0.25, 1.1, 0.25))),
    pnt(330, 'Value missing', 'Нет значения', circle('#9a9a9a', 3.4, 0.3), area('#9a9a9a', stroke([(-0.8, -0.8), (0.8, 0.8)], 0.3))),
]


def person(color, dx=0.0, scale=1.0):
    body = [(-0.75, 0.75), (0.75, 0.75), (0.75, -0.5), (0.45, -0.5), (0.45, -2.1), (-0.45, -2.1), (-0.45, -0.5), (-0.75, -0.5)]
    return [disc(color, 1.05 * scale, dx, 1.45 * scale), area(color, moved(body, dx, 0, scale=scale))]


def coin(color):
    return [disc(darker(color), 4), disc(color, 3.4), circle(darker(color), 2.4, 0.25)]


SIGNS = [
    pnt(341, 'Population, one figure', 'Население, одна фигура', *person(BLUE)),
    pnt(342, 'Population, two figures', 'Население, две фигуры', *person(BLUE, -0.95), *person(BLUE, 0.95)),
    pnt(343, 'Population, three figures', 'Население, три фигуры', *person(BLUE, -1.8, 0.85), *person(BLUE, 1.8, 0.85), *person(BLUE)),
    pnt(344, 'Dwellings', 'Жильё', area('#8a4f1d', [(-2, -1.9), (-2, 0.2), (0, 2), (2, 0.2), (2, -1.9)], box(-0.5, -1.9, 0.5, -0.5))),
    pnt(345, 'Income', 'Доход', *coin('#e0b400')),
    pnt(346, 'Industry', 'Промышленность', area(DARK, [(-2, -1.8), (-2, 1.8), (-1.2, 1.8), (-1.2, 0), (0.1, 0.9), (0.1, 0), (1.4, 0.9), (1.4, 0), (2, 0.4), (2, -1.8)])),
    pnt(347, 'Harvest', 'Урожай', area('#b38f00', box(-0.16, -2.2, 0.16, 1.2)), *[area('#b38f00', moved([(2.0 * x * 0.4, y * 1.0) for x, y in ((0, -0.7), (0.5, 0), (0, 0.7), (-0.5, 0))], s * 0.55, y, -s * 30)) for y in (-0.3, 0.7) for s in (1, -1)],
        area('#b38f00', [(0, 0.9), (0.4, 1.6), (0, 2.3), (-0.4, 1.6)])),
    pnt(348, 'Livestock', 'Скот', area('#7a5a30', [(-2.0, 0.9), (1.0, 0.9), (1.4, 1.5), (2.2, 1.3), (2.2, 0.5), (1.5, 0.1), (1.4, -1.7), (0.9, -1.7), (0.8, -0.5), (-1.2, -0.5), (-1.3, -1.7), (-1.8, -1.7), (-1.8, 0.2)])),
    pnt(349, 'Timber', 'Лесозаготовка', disc('#8a5a2b', 2.2, -1.1, -0.9), disc('#8a5a2b', 2.2, 1.1, -0.9), disc('#8a5a2b', 2.2, 0, 0.95), *[circle('#f0d9b4', 1.2, 0.25, x, y) for x, y in ((-1.1, -0.9), (1.1, -0.9), (0, 0.95))]),
    pnt(350, 'Fish catch', 'Улов рыбы', area(BLUE, [(-2.2, 0), (-0.8, 1.1), (0.7, 0.8), (1.3, 0.1), (2.2, 1.0), (2.2, -1.0), (1.3, -0.1), (0.7, -0.8), (-0.8, -1.1)], ring(0.22, -1.2, 0.2))),
    pnt(351, 'Energy', 'Энергетика', area('#e0a000', [(0.6, 2.3), (-1.6, -0.3), (-0.2, -0.3), (-0.6, -2.3), (1.6, 0.4), (0.2, 0.4)])),
    pnt(352, 'Traffic', 'Автотранспорт', area('#5c5c5c', [(-2.2, -0.9), (-2.2, 0.1), (-1.4, 0.3), (-0.8, 1.2), (0.9, 1.2), (1.5, 0.3), (2.2, 0.1), (2.2, -0.9)]), *[disc(DARK, 1.1, x, -0.95) for x in (-1.2, 1.2)], area(WHITE, [(-0.9, 0.35), (-0.55, 0.9), (-0.05, 0.9), (-0.05, 0.35)], [(0.15, 0.35), (0.15, 0.9), (0.65, 0.9), (1.0, 0.35)])),
    pnt(353, 'Education', 'Образование', area('#b8860b', [(-2.3, 0.6), (0, 1.6), (2.3, 0.6), (0, -0.4)]), area('#b8860b', [(-1.3, -0.1), (-1.3, -1.2), (0, -1.8), (1.3, -1.2), (1.3, -0.1), (0, -0.7)])),
    pnt(354, 'Health', 'Здравоохранение', figure(CROSS, RED, 4.2)),
    pnt(355, 'Accidents', 'Происшествия', figure(TRIANGLE, '#c62f2f', 5), figure(TRIANGLE, '#fff2a8', 3.7, 0, -0.1), area(DARK, box(-0.22, -0.5, 0.22, 0.7)), disc(DARK, 0.5, 0, -0.95)),
    pnt(356, 'Sample point', 'Точка отбора проб', circle(DARK, 3.2, 0.3), figure(PLUS, DARK, 3.2, pen=0.3)),
    pnt(357, 'Target', 'Цель', disc(RED, 4.4), disc(WHITE, 3.2), disc(RED, 2.0), disc(WHITE, 0.8)),
    pnt(358, 'Ring with halo', 'Кольцо с ореолом', disc('#ffffffb0', 5.4), circle(VIOLET, 4.2, 0.7)),
]


def head(color, length, width):
    """For the end of a flow."""
    return [area(color, [(-length, -width / 2), (0, 0), (-length, width / 2)])]


FLOW_WIDTHS = (0.5, 0.9, 1.4, 2.0, 2.8)
FLOWS = [pln(401 + i, f'Flow, step {i + 1}', f'Поток, ступень {i + 1}', line(BLUE, w)) for i, w in enumerate(FLOW_WIDTHS)]
FLOWS += [pln(411 + i, f'Flow with arrows, step {i + 1}', f'Поток со стрелками, ступень {i + 1}', line('#d98a4a', w),
              template('#7a3f0a', 0.25, '04', 1, 5, shift=2.5, symbol=[area('#7a3f0a', [(-0.7 - w / 3, -0.6 - w / 3), (0.7 + w / 3, 0), (-0.7 - w / 3, 0.6 + w / 3)])]), gradient='#d98a4a')
          for i, w in enumerate(FLOW_WIDTHS)]
ROUTES = [pln(421 + i, f'Route, {en}', f'Маршрут, {ru}', line(darker(color), 1.2), line(color, 0.75), gradient=color) for i, (color, tint, en, ru) in enumerate(COLORS)]
NUMBERS = [
    pln(441, 'Isoline', 'Изолиния', line(DARK, 0.25)),
    pln(442, 'Main isoline', 'Основная изолиния', line(DARK, 0.55)),
    pln(443, 'Uncertain isoline', 'Предполагаемая изолиния', template(DARK, 0.25, '10', 1.6, 0.8)),
    pln(444, 'Zero line', 'Нулевая линия', line(RED, 0.55)),
    pln(445, 'Cold front', 'Холодный фронт', line(BLUE, 0.5), template(BLUE, 0.25, '04', 1, 2.8, symbol=[area(BLUE, [(-0.8, 0), (0.8, 0), (0, 1.4)])]), gradient=BLUE),
    pln(446, 'Warm front', 'Тёплый фронт', line(RED, 0.5), template(RED, 0.25, '04', 1, 2.8, symbol=[area(RED, arc(0.8, 0, 180))]), gradient=RED),
    pln(447, 'Occluded front', 'Фронт окклюзии', line(VIOLET, 0.5), template(VIOLET, 0.25, '0400', 1, 1.3, symbol=[area(VIOLET, [(-0.7, 0), (0.7, 0), (0, 1.3)])]),
        template(VIOLET, 0.25, '0004', 1, 1.3, symbol=[area(VIOLET, arc(0.7, 0, 180))]), gradient=VIOLET),
    pln(448, 'Stationary front', 'Стационарный фронт', line('#8a5a9e', 0.5), template(BLUE, 0.25, '0400', 1, 1.3, symbol=[area(BLUE, [(-0.7, 0), (0.7, 0), (0, 1.3)])]),
        template(RED, 0.25, '0004', 1, 1.3, symbol=[area(RED, arc(0.7, 0, -180))]), gradient='#8a5a9e'),
    pln(449, 'Trend line', 'Линия тренда', template(RED, 0.45, '11020', 1.1, 0.9)),
    pln(450, 'Watershed', 'Водораздел', template(VIOLET, 0.4, '1020', 2.4, 0.9)),
    pln(451, 'Fault', 'Разлом', line(RED, 0.5), template(RED, 0.3, '04', 1, 2.4, symbol=[area(RED, box(-0.14, -1.1, 0.14, 0))]), gradient=RED),
    pln(452, 'Thrust', 'Надвиг', line(DARK, 0.45), template(DARK, 0.25, '04', 1, 3.0, symbol=[area(DARK, [(-0.7, 0), (0.7, 0), (0, 1.1)])]), gradient=DARK),
]

TREE = [
    (('Series by size', 'Ряды по размеру'), [
        (('Discs', 'Круги'), SIZED_DISCS), (('Circles', 'Окружности'), SIZED_CIRCLES), (('Squares', 'Квадраты'), SIZED_SQUARES),
        (('Triangles', 'Треугольники'), SIZED_TRIANGLES), (('Diamonds', 'Ромбы'), SIZED_DIAMONDS), (('Stars and crosses', 'Звёзды и кресты'), SIZED_STARS + SIZED_CROSSES)]),
    (('Colours of classes', 'Цвета классов'), CLASS_DISCS + CLASS_SQUARES + CLASS_TRIANGLES),
    (('Shapes', 'Формы'), SHAPES),
    (('Shares and bars', 'Доли и столбики'), SHARES + BARS),
    (('Change', 'Изменение'), CHANGE),
    (('Subjects', 'Темы'), SIGNS),
    (('Flows and routes', 'Потоки и маршруты'), FLOWS + ROUTES),
    (('Isolines and fronts', 'Изолинии и фронты'), NUMBERS),
]
