"""Hatches, screens and ornaments for thematic areas: in black to lie over other layers, in colour over a tint."""
from draw import *
from general import dashed

NAME = ('Hatches and patterns', 'Штриховки и узоры')

# Density series: step between lines; the tone about doubles from the first to the last.
STEPS = (4.0, 2.8, 2.0, 1.4, 1.0)
STEP_EN = ('very open', 'open', 'medium', 'dense', 'very dense')
STEP_RU = ('очень редкая', 'редкая', 'средняя', 'частая', 'очень частая')
ANGLES = ((0, 'Horizontal lines', 'Горизонтальная штриховка'), (45, 'Rising lines', 'Восходящая штриховка'),
          (90, 'Upright lines', 'Вертикальная штриховка'), (135, 'Falling lines', 'Нисходящая штриховка'))
# Colours of classes without an order: apart in hue, alike in weight. (colour, tint, name)
COLORS = (('#c62f2f', '#fbd8d5', 'red', 'красный'), ('#d9731a', '#fde6c8', 'orange', 'оранжевый'),
          ('#b38f00', '#f6f0b6', 'ochre', 'охристый'), ('#4f8a2a', '#e0efd0', 'green', 'зелёный'),
          ('#1f8a80', '#d2eeea', 'teal', 'бирюзовый'), ('#2a6fb5', '#d6e7f6', 'blue', 'синий'),
          ('#6b4fa8', '#e5def3', 'violet', 'фиолетовый'), ('#a83a7a', '#f1d2ea', 'magenta', 'пурпурный'),
          ('#7a5a30', '#e4d5be', 'brown', 'коричневый'), ('#56636f', '#dde3e9', 'slate', 'серо-синий'))


def series(first, make):
    return [make(first + i, i) for i in range(len(STEPS))]


PARALLEL = [pgn(100 + 10 * k + i, f'{en}, {STEP_EN[i]}', f'{ru}, {STEP_RU[i]}', hatch_line(STEPS[i], angle, BLACK, 0.25))
            for k, (angle, en, ru) in enumerate(ANGLES, 1) for i in range(len(STEPS))]
CROSSED = series(151, lambda index, i: pgn(index, f'Grid, {STEP_EN[i]}', f'Прямая сетка, {STEP_RU[i]}', hatch_line(STEPS[i], 0, BLACK, 0.25),
                                           hatch_line(STEPS[i], 90, BLACK, 0.25)))
CROSSED += series(161, lambda index, i: pgn(index, f'Lattice, {STEP_EN[i]}', f'Косая сетка, {STEP_RU[i]}', hatch_line(STEPS[i], 45, BLACK, 0.25),
                                            hatch_line(STEPS[i], 135, BLACK, 0.25)))
CROSSED += [
    pgn(171, 'Triangular net', 'Треугольная сетка', *[hatch_line(2.6, a, BLACK, 0.25) for a in (0, 60, 120)]),
    pgn(172, 'Star net', 'Восьмиконечная сетка', *[hatch_line(3.4, a, BLACK, 0.25) for a in (0, 45, 90, 135)]),
    pgn(173, 'Plaid', 'Шотландская клетка', *[hatch_line(3.2, a, BLACK, w, s) for a in (0, 90) for w, s in ((0.55, 0), (0.25, 1.6))]),
]
WEIGHTS = [pgn(180 + i, f'Lines {w} mm wide', f'Линии толщиной {w} мм'.replace('.', ','), hatch_line(2.4, 45, BLACK, w))
           for i, w in enumerate((0.35, 0.5, 0.7, 1.0, 1.4), 1)]
WEIGHTS += [
    pgn(186, 'Pairs of lines, rising', 'Двойные линии, восходящие', hatch_line(3, 45, BLACK, 0.25), hatch_line(3, 45, BLACK, 0.25, 0.7)),
    pgn(187, 'Pairs of lines, falling', 'Двойные линии, нисходящие', hatch_line(3, 135, BLACK, 0.25), hatch_line(3, 135, BLACK, 0.25, 0.7)),
    pgn(188, 'Thick and thin lines, rising', 'Толстые и тонкие линии, восходящие', hatch_line(3, 45, BLACK, 0.7), hatch_line(3, 45, BLACK, 0.25, 1.5)),
    pgn(189, 'Thick and thin lines, upright', 'Толстые и тонкие линии, вертикальные', hatch_line(3, 90, BLACK, 0.7), hatch_line(3, 90, BLACK, 0.25, 1.5)),
    pgn(190, 'Steep lines', 'Крутая штриховка', hatch_line(2, 70, BLACK, 0.25)),
    pgn(191, 'Gentle lines', 'Пологая штриховка', hatch_line(2, 20, BLACK, 0.25)),
]
BROKEN = [
    pgn(201, 'Dashes, level', 'Пунктир горизонтальный', hatch(1.6, 0, dashed(BLACK, 0.25, 1.6, 0.9))),
    pgn(202, 'Dashes, upright', 'Пунктир вертикальный', hatch(1.6, 90, dashed(BLACK, 0.25, 1.6, 0.9))),
    pgn(203, 'Dashes, rising', 'Пунктир восходящий', hatch(1.6, 45, dashed(BLACK, 0.25, 1.6, 0.9))),
    pgn(204, 'Dashes, falling', 'Пунктир нисходящий', hatch(1.6, 135, dashed(BLACK, 0.25, 1.6, 0.9))),
    pgn(205, 'Dashes and dots, rising', 'Штрихпунктир восходящий', hatch(1.8, 45, template(BLACK, 0.35, '1020', 1.8, 0.8))),
    pgn(206, 'Dashes and dots, level', 'Штрихпунктир горизонтальный', hatch(1.8, 0, template(BLACK, 0.35, '1020', 1.8, 0.8))),
    pgn(207, 'Dotted lines, level', 'Точечные линии горизонтальные', hatch(1.8, 0, template(BLACK, 0.4, '20', 1, 0.9))),
    pgn(208, 'Dotted lines, rising', 'Точечные линии восходящие', hatch(1.8, 45, template(BLACK, 0.4, '20', 1, 0.9))),
    pgn(209, 'Long and short dashes', 'Длинный и короткий пунктир', hatch(1.8, 0, template(BLACK, 0.3, '111010', 0.9, 0.7))),
    pgn(210, 'Lines and dashes, level', 'Линии и пунктир', hatch_line(2.8, 0, BLACK, 0.25), hatch(2.8, 0, dashed(BLACK, 0.25, 1.4, 0.9), shift=1.4)),
    pgn(211, 'Fences', 'Линии с засечками', hatch(2.4, 0, line(BLACK, 0.25), template(BLACK, 0.25, '03', 1, 1.6))),
    pgn(212, 'Herringbone', 'Ёлочка', hatch(3, 90, template(BLACK, 0.3, '05', 2.1, 1.4)), hatch(3, 90, template(BLACK, 0.3, '06', 2.1, 1.4), shift=1.5)),
    pgn(213, 'Zigzag', 'Зигзаг', spots(2, 1.8, area(BLACK, stroke([(-1.05, -0.4), (0, 0.4), (1.05, -0.4)], 0.25)), staggered=False)),
    pgn(214, 'Waves', 'Волны', spots(2.4, 1.8, area(BLACK, stroke([(1.22 * i / 6, 0.4 * math.sin(math.pi * i / 6)) for i in range(-6, 7)], 0.25)), staggered=False)),
]
# Screens by the part of the area that is inked.
SCREENS = [pgn(220 + i, f'Dot screen, {p} %', f'Точечный растр, {p} %', spots(2.0, 1.0, disc(BLACK, round(math.sqrt(p / 100 * 2 * 4 / math.pi), 2))))
           for i, p in enumerate((5, 10, 20, 30, 40, 50), 1)]
SCREENS += [pgn(230 + i, f'Grey tint, {p} %', f'Серый тон, {p} %', fill('#' + f'{round(255 - p * 2.3):02x}' * 3))
            for i, p in enumerate((8, 16, 26, 38, 50, 65, 80), 1)]
SCATTERED = [pgn(240 + i, f'Scattered dots, {STEP_EN[k]}', f'Случайные точки, {ru}', spots(s, s, color=BLACK, size=0.45, scatter=True))
             for i, (k, s, ru) in enumerate(((0, 2.6, 'очень редкие'), (1, 1.9, 'редкие'), (2, 1.4, 'средние'), (3, 1.0, 'частые')), 1)]


def ornament(index, en, ru, *symbol, dx=3.0, dy=2.6, staggered=True, **more):
    return pgn(index, en, ru, spots(dx, dy, *symbol, staggered=staggered, **more))


ORNAMENTS = [
    ornament(251, 'Discs', 'Кружки', disc(BLACK, 1.3)),
    ornament(252, 'Circles', 'Окружности', circle(BLACK, 1.5)),
    ornament(253, 'Rings with a dot', 'Окружности с точкой', circle(BLACK, 1.7), disc(BLACK, 0.5)),
    ornament(254, 'Squares', 'Квадраты', figure(SQUARE, BLACK, 1.4)),
    ornament(255, 'Open squares', 'Пустые квадраты', figure(SQUARE + 1, BLACK, 1.7)),
    ornament(256, 'Triangles', 'Треугольники', figure(TRIANGLE, BLACK, 1.7)),
    ornament(257, 'Open triangles', 'Пустые треугольники', figure(TRIANGLE + 1, BLACK, 1.9)),
    ornament(258, 'Triangles upside down', 'Перевёрнутые треугольники', figure(TRIANGLE_DOWN, BLACK, 1.7)),
    ornament(259, 'Diamonds', 'Ромбы', figure(DIAMOND, BLACK, 1.9)),
    ornament(260, 'Open diamonds', 'Пустые ромбы', figure(DIAMOND + 1, BLACK, 2.1)),
    ornament(261, 'Stars', 'Звёзды', figure(STAR, BLACK, 2.2)),
    ornament(262, 'Pointed stars', 'Четырёхлучевые звёзды', figure(STAR4, BLACK, 2.2)),
    ornament(263, 'Hexagons', 'Шестиугольники', figure(HEXAGON + 1, BLACK, 2.1)),
    ornament(264, 'Plus signs', 'Плюсы', figure(PLUS, BLACK, 1.5, pen=0.3)),
    ornament(265, 'Crosses', 'Крестики', figure(SALTIRE, BLACK, 1.6, pen=0.3)),
    ornament(266, 'Broad crosses', 'Широкие кресты', figure(CROSS, BLACK, 1.7)),
    ornament(267, 'Half discs', 'Полукруги', figure(HALF_DISC, BLACK, 1.9)),
    ornament(268, 'Arrows', 'Стрелки', figure(ARROW, BLACK, 2.2)),
    ornament(269, 'Short strokes, level', 'Короткие штрихи', area(BLACK, box(-0.65, -0.14, 0.65, 0.14)), dx=2.4, dy=1.6),
    ornament(270, 'Short strokes, upright', 'Короткие вертикальные штрихи', area(BLACK, box(-0.14, -0.65, 0.14, 0.65)), dx=2.0, dy=2.2),
    ornament(271, 'Strokes at random', 'Беспорядочные штрихи', area(BLACK, box(-0.7, -0.13, 0.7, 0.13)), dx=1.9, dy=1.9, scatter=True, turn=True),
    ornament(272, 'Chequers', 'Шахматная клетка', area(BLACK, box(-0.75, -0.75, 0.75, 0.75)), dx=3, dy=1.5),
    ornament(273, 'Scales', 'Чешуя', area(BLACK, stroke(arc(1.25, 0, 180, steps=12), 0.25)), dx=2.5, dy=1.25),
    ornament(274, 'Angles', 'Уголки', area(BLACK, stroke([(-0.7, -0.4), (0, 0.4), (0.7, -0.4)], 0.28)), dx=2.6, dy=1.9),
]

def bricks(color, height=1.7):
    """Courses of bricks, every other one moved by half a brick."""
    width = 2 * height
    return [hatch_line(height, 0, color, 0.25),
            spots(width, height, area(color, box(-0.125, -height / 2, 0.125, height / 2)), y0=height / 2)]


def slanted_bricks(color, height=1.7):
    return [hatch_line(height, 0, color, 0.25),
            spots(2 * height, height, area(color, [(-0.5, -height / 2), (-0.25, -height / 2), (0.5, height / 2), (0.25, height / 2)]),
                  y0=height / 2)]


def ticks_between(color, height, width):
    return spots(width, height, area(color, box(-0.125, -height * 0.3, 0.125, height * 0.3)), y0=height / 2)


OCHRE, LIME, CLAY, FIRE, SALT = '#fbe3b0', '#cfe3f0', '#e0dccb', '#f7c9c2', '#e4dcf0'
ROCKS = [
    pgn(301, 'Sandstone', 'Песчаник', fill(OCHRE), spots(1.4, 1.2, color='#8a6a2a', size=0.35)),
    pgn(302, 'Siltstone', 'Алевролит', fill('#efe6c8'), spots(2.2, 1.1, area('#8a7a4a', box(-0.5, -0.12, 0.15, 0.12)), disc('#8a7a4a', 0.35, 0.6))),
    pgn(303, 'Clay', 'Глина', fill(CLAY), hatch(1.1, 0, dashed('#6b6650', 0.25, 1.3, 0.8))),
    pgn(304, 'Shale', 'Сланец', fill('#d8d8cf'), hatch_line(0.9, 0, '#6b6b5e', 0.25)),
    pgn(305, 'Limestone', 'Известняк', fill(LIME), *bricks('#4a7a9e')),
    pgn(306, 'Dolomite', 'Доломит', fill('#d9d6ee'), *slanted_bricks('#5f5a9e')),
    pgn(307, 'Marl', 'Мергель', fill('#dbe8e0'), hatch_line(1.6, 0, '#5a8a78', 0.25), ticks_between('#5a8a78', 1.6, 3.2)),
    pgn(308, 'Chalk', 'Мел', fill('#f2f5e6'), *bricks('#9aa884', 2.0)),
    pgn(309, 'Conglomerate', 'Конгломерат', fill('#f5dcb4'), spots(2.4, 2.0, figure(DISC + 1, '#8a5f2a', (1.7, 1.2))), spots(2.4, 2.0, disc('#8a5f2a', 0.4), x0=1.2)),
    pgn(310, 'Breccia', 'Брекчия', fill('#f3dccb'), spots(2.2, 1.9, figure(TRIANGLE + 1, '#8a4f2a', 1.4), scatter=True, turn=True)),
    pgn(311, 'Granite', 'Гранит', fill('#f9cfc6'), spots(2.2, 1.9, figure(PLUS, '#b03a2e', 1.0, pen=0.25))),
    pgn(312, 'Diorite', 'Диорит', fill('#e9cfd6'), spots(2.2, 1.9, figure(SALTIRE, '#8a3a5e', 0.95, pen=0.25))),
    pgn(313, 'Basalt', 'Базальт', fill('#cfd6c6'), spots(2.2, 1.8, area('#3f5a3a', stroke([(-0.5, 0.5), (0, -0.45), (0.5, 0.5)], 0.25)))),
    pgn(314, 'Andesite', 'Андезит', fill('#dfd3cc'), spots(2.2, 1.8, area('#7a4a3a', stroke([(-0.5, -0.45), (0, 0.5), (0.5, -0.45)], 0.25)))),
    pgn(315, 'Tuff', 'Туф', fill('#f5e3d6'), spots(2.4, 2.0, area('#a8562b', stroke([(-0.5, 0.5), (0, -0.45), (0.5, 0.5)], 0.22)), disc('#a8562b', 0.35, 0, 0.35), scatter=True)),
    pgn(316, 'Gneiss', 'Гнейс', fill('#f3d3d6'), spots(2.6, 1.4, area('#a03a4a', stroke([(1.32 * i / 6, 0.3 * math.sin(math.pi * i / 6)) for i in range(-6, 7)], 0.25)), staggered=False)),
    pgn(317, 'Marble', 'Мрамор', fill('#e6eef8'), hatch_line(2.2, 60, '#7a94c0', 0.25), hatch_line(2.2, 120, '#7a94c0', 0.25)),
    pgn(318, 'Quartzite', 'Кварцит', fill('#fbf0d9'), spots(1.9, 1.6, circle('#b38f4f', 0.65, 0.25))),
    pgn(319, 'Gypsum', 'Гипс', fill(SALT), hatch(1.8, 60, dashed('#7d6ba8', 0.3, 1.2, 1.0))),
    pgn(320, 'Rock salt', 'Каменная соль', fill('#efe6f7'), hatch_line(1.8, 45, '#9a84bf', 0.25), hatch_line(1.8, 135, '#9a84bf', 0.25)),
    pgn(321, 'Coal', 'Уголь', fill('#b5b5b5'), hatch_line(1.6, 0, '#262626', 0.8)),
    pgn(322, 'Peat', 'Торф', fill('#d6c6ae'), spots(2.6, 1.7, area('#5e4326', box(-0.7, -0.3, 0.7, -0.08)), area('#5e4326', box(-0.1, -0.2, 0.1, 0.5), box(-0.5, -0.2, -0.3, 0.25), box(0.3, -0.2, 0.5, 0.25)))),
    pgn(323, 'Alluvium', 'Аллювий', fill('#f7f4d0'), spots(2.4, 1.6, color='#a39a4a', size=0.35), hatch(3.2, 0, dashed('#a39a4a', 0.25, 1.0, 1.4))),
    pgn(324, 'Moraine', 'Морена', fill('#d9ecd9'), spots(2.4, 2.0, figure(TRIANGLE, '#5a8a6a', 0.9), scatter=True), spots(1.7, 1.7, color='#5a8a6a', size=0.3, scatter=True)),
]
TINTS = [pgn(400 + i, f'Tint, {en}', f'Фон, {ru}', fill(tint)) for i, (color, tint, en, ru) in enumerate(COLORS, 1)]
FULL = [pgn(420 + i, f'Full colour, {en}', f'Насыщенный цвет, {ru}', fill(color)) for i, (color, tint, en, ru) in enumerate(COLORS, 1)]
ON_TINT = [pgn(440 + i, f'Rising lines over a tint, {en}', f'Восходящая штриховка по фону, {ru}', fill(tint), hatch_line(1.8, 45, color, 0.3), gradient=color)
           for i, (color, tint, en, ru) in enumerate(COLORS, 1)]
CROSS_ON_TINT = [pgn(460 + i, f'Lattice over a tint, {en}', f'Косая сетка по фону, {ru}', fill(tint), hatch_line(2.4, 45, color, 0.3), hatch_line(2.4, 135, color, 0.3), gradient=color)
                 for i, (color, tint, en, ru) in enumerate(COLORS, 1)]
DOTS_ON_TINT = [pgn(480 + i, f'Dots over a tint, {en}', f'Точки по фону, {ru}', fill(tint), spots(2.4, 1.2, color=color, size=0.65), gradient=color)
                for i, (color, tint, en, ru) in enumerate(COLORS, 1)]
# Ordered classes: a tint that deepens under lines that close up, readable in colour and in grey.
ORDERED = [pgn(first + i, f'Steps in {en}, class {i + 1}', f'Ступени, {ru}, класс {i + 1}', fill(tint), hatch_line(STEPS[i], 45, color, 0.3), gradient=color)
           for first, en, ru, color, tints in (
               (541, 'blue', 'синие', '#1d4f8a', ('#eaf2fa', '#d0e2f3', '#aecce8', '#86b1d9', '#5f95c8')),
               (551, 'brown', 'коричневые', '#6b3f14', ('#faf3e6', '#f2e0c2', '#e5c89a', '#d4ab70', '#bf8d4c')),
               (561, 'green', 'зелёные', '#24562a', ('#edf6e8', '#d3e9c8', '#afd5a0', '#86bd78', '#61a257')))
           for i, tint in enumerate(tints)]
VEILS = [pgn(500 + i, f'Veil, {en}', f'Полупрозрачный фон, {ru}', fill(color + '66'), outline=(color, 0.4))
         for i, (color, tint, en, ru) in enumerate(COLORS, 1)]
ZONES = [
    pgn(521, 'Danger zone', 'Опасная зона', fill('#f6c21a66'), hatch_line(4, 45, '#c62f2f', 0.9), outline=('#c62f2f', 0.6)),
    pgn(522, 'Flood zone', 'Зона затопления', fill('#8fc3ea66'), hatch(2, 0, template('#2a6fb5', 0.3, '110', 1.4, 1)), outline=[dashed('#2a6fb5', 0.4, 2, 0.9)]),
    pgn(523, 'Fire hazard', 'Пожароопасная зона', fill('#f7b28a66'), spots(3, 2.6, area('#c23b22', [(0, 0.8), (-0.5, -0.1), (-0.3, -0.7), (0.3, -0.7), (0.5, -0.1)])), outline=('#c23b22', 0.4)),
    pgn(524, 'Protected water zone', 'Водоохранная зона', fill('#c6e8f066'), hatch_line(2.4, 135, '#1f8a80', 0.3), outline=('#1f8a80', 0.5)),
    pgn(525, 'Planned area', 'Проектируемая территория', hatch(2.6, 45, dashed('#6b4fa8', 0.35, 2, 1.2)), outline=[dashed('#6b4fa8', 0.5, 2.4, 1.2)]),
    pgn(526, 'Excluded area', 'Исключённая территория', fill('#d9d9d9'), hatch_line(2.2, 135, '#8c8c8c', 0.3), outline=('#5c5c5c', 0.3)),
    pgn(527, 'No data', 'Нет данных', fill('#f5f5f5'), spots(2.6, 2.2, figure(SALTIRE, '#b0b0b0', 1.0, pen=0.25))),
    pgn(528, 'Area of interest', 'Район работ', hatch_line(6, 45, '#d9731a', 0.3), outline=('#d9731a', 0.9)),
    pgn(529, 'Radiation zone', 'Зона загрязнения', fill('#f7ea8a66'), spots(4, 3.4, disc('#b38f00', 0.6), *[area('#b38f00', arc(1.2, a - 30, a + 30, 0, 0, 4) + arc(0.5, a + 30, a - 30, 0, 0, 3)) for a in (90, 210, 330)]), outline=('#b38f00', 0.5)),
    pgn(530, 'Restricted airspace', 'Запретная зона полётов', spots(3.2, 2.8, area('#8a2d4a', stroke([(-0.9, -0.7), (0.9, 0.7)], 0.3))), outline=[line('#8a2d4a', 0.4), template('#8a2d4a', 0.35, '03', 1.6, 1.4)]),
]

TREE = [
    (('Line hatches', 'Линейные штриховки'), [
        (('Parallel lines', 'Параллельные линии'), PARALLEL),
        (('Crossed lines', 'Пересекающиеся линии'), CROSSED),
        (('Line weights', 'Толщина линий'), WEIGHTS),
        (('Dashed and wavy lines', 'Пунктир и волны'), BROKEN)]),
    (('Screens and tints', 'Растры и тона'), SCREENS + SCATTERED),
    (('Ornaments', 'Узоры из знаков'), ORNAMENTS),
    (('Rocks', 'Горные породы'), ROCKS),
    (('Colours of classes', 'Цвета классов'), [
        (('Tints and full colours', 'Фоны и насыщенные цвета'), TINTS + FULL),
        (('Patterns over tints', 'Узоры по фону'), ON_TINT + CROSS_ON_TINT + DOTS_ON_TINT),
        (('Veils', 'Полупрозрачные фоны'), VEILS)]),
    (('Ordered classes', 'Упорядоченные классы'), ORDERED),
    (('Zones', 'Зоны'), ZONES),
]
