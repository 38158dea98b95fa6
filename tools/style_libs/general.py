"""Lines, areas and settlements of a general map, about 1 : 25 000 to 1 : 500 000."""
from draw import *

NAME = ('General map', 'Общегеографическая карта')

INK = '#3c3c3c'
RAIL = '#2b2b2b'
WATER, WATER_DEEP, SEA = '#2f7fc1', '#1d5a94', '#a9d3ec'
RELIEF = '#a8642a'
WOOD, WOOD_DARK = '#cfe6b8', '#4f8a3a'
POWER = '#5a4a6e'

# ---- roads: (fill, casing, whole width, width of the fill)
ROADS = {
    'motorway': ('#e8604c', '#7d2017', 2.2, 1.6),
    'trunk': ('#f3924e', '#8a4513', 1.9, 1.35),
    'primary': ('#fbc55c', '#8c6414', 1.65, 1.15),
    'secondary': ('#fdeb9c', '#857632', 1.4, 0.95),
    'tertiary': ('#ffffff', '#6b6b6b', 1.2, 0.8),
    'street': ('#ffffff', '#9a9a9a', 0.95, 0.6),
}


def cased(key):
    color, casing, width, inner = ROADS[key]
    layers = [line(casing, width), line(color, inner)]
    return layers + [line(casing, 0.2)] if key == 'motorway' else layers


def tunnel(key):
    """Pale, between dashed edges."""
    color, casing, width, inner = ROADS[key]
    edge, pale = (width - 0.25) / 2, mix(color, WHITE, 0.6)
    layers = [line(WHITE if pale == WHITE else pale, inner)]
    return layers + [template(casing, 0.25, '10', 1.2, 0.7, delta=side * edge) for side in (1, -1)]


def bridge(key):
    """Between two strong edges that stand off the road."""
    color, casing, width, inner = ROADS[key]
    return [line(BLACK, width + 0.9), line(WHITE, width + 0.35), line(casing, width), line(color, inner)]


def built(key):
    """Under construction: the casing goes on, the fill is in parts."""
    color, casing, width, inner = ROADS[key]
    return [line(casing, width), line(WHITE, inner), template(color, inner, '10', 2.2, 1.6)]


def mix(a, b, part):
    pairs = [(int(a[i:i + 2], 16), int(b[i:i + 2], 16)) for i in (1, 3, 5)]
    return '#' + ''.join(f'{round(x + (y - x) * part):02x}' for x, y in pairs)


def dashed(color, width, dash, gap):
    return template(color, width, '10', dash, gap)


def ticks(color, length, step, width=0.3, shift=0):
    """Strokes across the line."""
    return template(color, width, '03', length, step, shift=shift)


def beside(color, *parts, step, shift=0):
    """A drawing that stands on the line again and again; its y is to the left of the line."""
    return template(color, 0.25, '04', 1, step, shift=shift, symbol=[area(color, *parts)])


def tooth(width, height, y=0):
    return [(-width / 2, y), (width / 2, y), (0, y + height)]


def tick(length, width=0.25, y=0):
    return box(-width / 2, y, width / 2, y + length)


ROAD_CLASSES = [
    pln(101, 'Motorway', 'Автомагистраль', *cased('motorway'), gradient='#e8604c'),
    pln(102, 'Trunk road', 'Скоростная дорога', *cased('trunk'), gradient='#f3924e'),
    pln(103, 'Primary road', 'Дорога первого класса', *cased('primary'), gradient='#fbc55c'),
    pln(104, 'Secondary road', 'Дорога второго класса', *cased('secondary'), gradient='#fdeb9c'),
    pln(105, 'Local main road', 'Дорога третьего класса', *cased('tertiary'), gradient='#ffffff'),
    pln(106, 'Street', 'Улица', *cased('street'), gradient='#ffffff'),
    pln(107, 'Motorway link', 'Съезд с автомагистрали', line('#7d2017', 1.2), line('#e8604c', 0.75), gradient='#e8604c'),
    pln(108, 'Service road', 'Проезд', line('#9a9a9a', 0.65), line(WHITE, 0.35), gradient='#9a9a9a'),
    pln(109, 'Pedestrian street', 'Пешеходная улица', line('#8d7bb0', 1.0), line('#e7def5', 0.65), gradient='#e7def5'),
    pln(110, 'Improved earth road', 'Улучшенная грунтовая дорога', line('#8a5a2b', 0.2, 0.35),
        template('#8a5a2b', 0.2, '10', 1.6, 0.6, delta=-0.35), gradient='#8a5a2b'),
    pln(111, 'Track', 'Полевая дорога', dashed('#8a5a2b', 0.35, 2.4, 0.8)),
    pln(112, 'Winter road', 'Зимник', template('#5b8fb9', 0.35, '1020', 2, 0.9)),
]
ROAD_STRUCTURES = [
    pln(121, 'Motorway in a tunnel', 'Автомагистраль в туннеле', *tunnel('motorway'), gradient='#7d2017'),
    pln(122, 'Trunk road in a tunnel', 'Скоростная дорога в туннеле', *tunnel('trunk'), gradient='#8a4513'),
    pln(123, 'Primary road in a tunnel', 'Дорога первого класса в туннеле', *tunnel('primary'), gradient='#8c6414'),
    pln(124, 'Secondary road in a tunnel', 'Дорога второго класса в туннеле', *tunnel('secondary'), gradient='#857632'),
    pln(125, 'Street in a tunnel', 'Улица в туннеле', *tunnel('street'), gradient='#9a9a9a'),
    pln(131, 'Motorway on a bridge', 'Автомагистраль на мосту', *bridge('motorway'), gradient='#e8604c'),
    pln(132, 'Trunk road on a bridge', 'Скоростная дорога на мосту', *bridge('trunk'), gradient='#f3924e'),
    pln(133, 'Primary road on a bridge', 'Дорога первого класса на мосту', *bridge('primary'), gradient='#fbc55c'),
    pln(134, 'Secondary road on a bridge', 'Дорога второго класса на мосту', *bridge('secondary'), gradient='#fdeb9c'),
    pln(135, 'Street on a bridge', 'Улица на мосту', *bridge('street'), gradient='#9a9a9a'),
    pln(141, 'Motorway under construction', 'Строящаяся автомагистраль', *built('motorway'), gradient='#e8604c'),
    pln(142, 'Trunk road under construction', 'Строящаяся скоростная дорога', *built('trunk'), gradient='#f3924e'),
    pln(143, 'Primary road under construction', 'Строящаяся дорога первого класса', *built('primary'), gradient='#fbc55c'),
]
PATHS = [
    pln(151, 'Path', 'Тропа', dashed('#6e4a25', 0.25, 0.9, 0.6)),
    pln(152, 'Footway', 'Пешеходная дорожка', template('#c2554a', 0.4, '20', 1, 0.8)),
    pln(153, 'Cycleway', 'Велодорожка', dashed('#2a62c9', 0.4, 1.4, 0.6)),
    pln(154, 'Bridleway', 'Конная тропа', template('#3f8a3c', 0.35, '11020', 1, 0.7)),
    pln(155, 'Steps', 'Лестница', template('#6b5a4a', 0.3, '03', 1.3, 0.65)),
    pln(156, 'Marked hiking trail', 'Маркированный туристский маршрут', line(WHITE, 0.9), dashed('#d03a3a', 0.6, 3, 0.6),
        gradient='#d03a3a'),
    pln(157, 'Ford or causeway', 'Брод, гать', template('#7a5c3a', 0.35, '0303031', 1.4, 0.6)),
    pln(158, 'Ski track', 'Лыжная трасса', line('#3f7fd0', 0.2, 0.25), line('#3f7fd0', 0.2, -0.25), gradient='#3f7fd0'),
]
RAILWAYS = [
    pln(201, 'Main railway', 'Магистральная железная дорога', line(RAIL, 1.15), dashed(WHITE, 0.7, 2.6, 2.6), gradient=RAIL),
    pln(202, 'Single-track railway', 'Однопутная железная дорога', line(RAIL, 0.45), ticks(RAIL, 1.5, 2.8), gradient=RAIL),
    pln(203, 'Double-track railway', 'Двухпутная железная дорога', line(RAIL, 0.45),
        template(RAIL, 0.3, '00303', 1.5, 1.0), gradient=RAIL),
    pln(204, 'Electrified railway', 'Электрифицированная железная дорога', line(RAIL, 0.45),
        template(RAIL, 0.3, '05', 1.9, 2.8), gradient=RAIL),
    pln(205, 'High-speed railway', 'Высокоскоростная магистраль', line('#8b1a4a', 1.15), line(WHITE, 0.6),
        dashed('#8b1a4a', 0.7, 3.4, 1.2), gradient='#8b1a4a'),
    pln(206, 'Narrow-gauge railway', 'Узкоколейная железная дорога', line(RAIL, 0.3), ticks(RAIL, 0.95, 1.5, 0.25), gradient=RAIL),
    pln(207, 'Industrial siding', 'Подъездной путь', line('#7d7d7d', 0.35), ticks('#7d7d7d', 1.1, 3.5), gradient='#7d7d7d'),
    pln(208, 'Disused railway', 'Разобранная железная дорога', dashed('#8c8c8c', 0.4, 1.5, 0.7),
        ticks('#8c8c8c', 1.3, 4.4, shift=0.75), gradient='#8c8c8c'),
    pln(209, 'Railway under construction', 'Строящаяся железная дорога', line(RAIL, 1.15), line(WHITE, 0.7),
        dashed(RAIL, 0.7, 0.9, 2.6), gradient=RAIL),
    pln(210, 'Railway in a tunnel', 'Железная дорога в туннеле', dashed(RAIL, 0.55, 1.7, 1.1),
        template(RAIL, 0.2, '10', 0.9, 0.5, delta=0.75), template(RAIL, 0.2, '10', 0.9, 0.5, delta=-0.75), gradient=RAIL),
    pln(211, 'Railway on a bridge', 'Железная дорога на мосту', line(RAIL, 0.25, 0.95), line(RAIL, 0.25, -0.95),
        line(RAIL, 1.0), dashed(WHITE, 0.55, 2.6, 2.6), gradient=RAIL),
    pln(212, 'Tramway', 'Трамвайная линия', line('#7a2d2d', 0.25, 0.3), line('#7a2d2d', 0.25, -0.3), gradient='#7a2d2d'),
    pln(213, 'Underground railway', 'Линия метрополитена', dashed('#c0392b', 0.7, 2, 0.8)),
    pln(214, 'Light rail', 'Линия лёгкого рельсового транспорта', line('#a03060', 0.45),
        template('#a03060', 1.1, '02', 1, 3), gradient='#a03060'),
    pln(215, 'Monorail', 'Монорельсовая дорога', line('#5b3a8c', 0.4), template('#5b3a8c', 0.4, '04', 1, 3,
        symbol=[figure(SQUARE, '#5b3a8c', 1.5)]), gradient='#5b3a8c'),
    pln(216, 'Rack railway or funicular', 'Зубчатая дорога, фуникулёр', line(RAIL, 0.35),
        beside(RAIL, tooth(1.1, 0.9), step=1.6), gradient=RAIL),
    pln(217, 'Aerial cableway', 'Канатная дорога', line(INK, 0.3), template(INK, 0.9, '02', 1, 4), gradient=INK),
    pln(218, 'Chairlift', 'Кресельный подъёмник', line(INK, 0.3), beside(INK, [(-0.12, 0), (0.12, 0), (0.12, -0.7), (0.75, -0.7), (0.75, -0.95), (-0.12, -0.95)],
        step=3), gradient=INK),
    pln(219, 'Ski tow', 'Бугельный подъёмник', dashed(INK, 0.3, 1.2, 0.5), ticks(INK, 1, 5.1, 0.25, shift=0.6), gradient=INK),
]
UTILITIES = [
    pln(301, 'Power line, high voltage', 'ЛЭП высокого напряжения', line(POWER, 0.3),
        beside(POWER, [(-1.3, -0.6), (-0.15, 0), (-1.3, 0.6)], [(1.3, -0.6), (0.15, 0), (1.3, 0.6)], step=7), gradient=POWER),
    pln(302, 'Power line, low voltage', 'ЛЭП низкого напряжения', line(POWER, 0.25), ticks(POWER, 1.1, 4.5, 0.25), gradient=POWER),
    pln(303, 'Power cable underground', 'Подземный силовой кабель', dashed(POWER, 0.25, 1.4, 0.7),
        template(POWER, 0.25, '04', 1, 4.2, shift=0.7, symbol=[figure(DIAMOND, POWER, 1.2)]), gradient=POWER),
    pln(304, 'Telephone line', 'Линия связи', line('#6b6b6b', 0.25), template('#6b6b6b', 0.7, '02', 1, 3.2), gradient='#6b6b6b'),
    pln(305, 'Oil pipeline', 'Нефтепровод', line('#4a3524', 0.35), template('#4a3524', 0.35, '04', 1, 4.5,
        symbol=[disc('#4a3524', 1.1), disc(WHITE, 0.55)]), gradient='#4a3524'),
    pln(306, 'Gas pipeline', 'Газопровод', line('#b8860b', 0.35), template('#b8860b', 0.35, '04', 1, 4.5,
        symbol=[figure(DIAMOND, '#b8860b', 1.3), figure(DIAMOND, WHITE, 0.6)]), gradient='#b8860b'),
    pln(307, 'Water pipe', 'Водопровод', line(WATER, 0.35), template(WATER, 0.35, '04', 1, 4.5,
        symbol=[disc(WATER, 1.1), disc(WHITE, 0.55)]), gradient=WATER),
    pln(308, 'Pipeline underground', 'Подземный трубопровод', dashed('#4a3524', 0.35, 1.6, 0.8),
        template('#4a3524', 1.0, '02', 1, 4.8, shift=0.8), gradient='#4a3524'),
    pln(309, 'Heating main', 'Теплотрасса', line('#c0504d', 0.25, 0.3), line('#c0504d', 0.25, -0.3), ticks('#c0504d', 0.6, 2.4, 0.25),
        gradient='#c0504d'),
    pln(310, 'Conveyor', 'Транспортёр', line(INK, 0.25), beside(INK, [(-0.5, -0.4), (0.5, 0), (-0.5, 0.4)], step=2.5), gradient=INK),
]
WATER_LINES = [
    pln(401, 'Coastline', 'Береговая линия', line(WATER_DEEP, 0.4)),
    pln(402, 'River, large', 'Большая река', line(WATER, 1.5)),
    pln(403, 'River', 'Река', line(WATER, 0.8)),
    pln(404, 'Stream', 'Ручей', line(WATER, 0.35)),
    pln(405, 'River between banks', 'Река в две линии', line(WATER_DEEP, 1.8), line(SEA, 1.4), gradient=SEA),
    pln(406, 'Intermittent stream', 'Пересыхающий ручей', dashed(WATER, 0.4, 2.2, 0.8)),
    pln(407, 'Dry river bed', 'Сухое русло', template('#a9825a', 0.35, '11020', 0.9, 0.7)),
    pln(408, 'Underground stream', 'Подземный водоток', template(WATER, 0.5, '20', 1, 1.0)),
    pln(409, 'Canal', 'Канал', line(WATER, 0.9), ticks(WATER_DEEP, 1.6, 5, 0.3), gradient=WATER),
    pln(410, 'Navigable canal', 'Судоходный канал', line(WATER_DEEP, 1.5), line('#6db6e3', 0.8), gradient='#6db6e3'),
    pln(411, 'Ditch', 'Канава', line(WATER, 0.3), ticks(WATER, 0.7, 1.6, 0.25), gradient=WATER),
    pln(412, 'Aqueduct', 'Акведук', line(WATER_DEEP, 0.25, 0.45), line(WATER_DEEP, 0.25, -0.45), line(WATER, 0.35), gradient=WATER_DEEP),
    pln(413, 'Dam', 'Плотина', line('#4d4d4d', 0.7), beside('#4d4d4d', tick(1.2, 0.3), step=1.3), gradient='#4d4d4d'),
    pln(414, 'Weir', 'Водослив', line(WATER_DEEP, 0.4), beside(WATER_DEEP, tooth(1.1, 0.9), step=1.5), gradient=WATER_DEEP),
    pln(415, 'Dyke', 'Дамба', line('#6b4f2a', 0.35), template('#6b4f2a', 0.25, '03', 1.6, 0.9), gradient='#6b4f2a'),
    pln(416, 'Ferry', 'Паромная переправа', template(WATER_DEEP, 0.35, '110', 1.2, 0.9)),
    pln(417, 'Shipping route', 'Морской путь', template('#8a4f9e', 0.3, '110', 2, 1.2),
        template('#8a4f9e', 0.3, '04', 1, 5.2, shift=4.6, symbol=[area('#8a4f9e', [(-0.6, -0.4), (0.6, 0), (-0.6, 0.4)])]), gradient='#8a4f9e'),
    pln(418, 'Quay', 'Набережная, причал', line(INK, 0.7), line('#b8b8b8', 0.3), gradient=INK),
]
BORDERS = [
    pln(501, 'State border', 'Государственная граница', line('#d7a3d099', 3.0), template('#5a2a5e', 0.6, '1020', 3.2, 1.0), gradient='#5a2a5e'),
    pln(502, 'Disputed state border', 'Спорная государственная граница', line('#d7a3d099', 3.0), dashed('#5a2a5e', 0.6, 1.4, 1.2), gradient='#5a2a5e'),
    pln(503, 'Maritime border', 'Морская граница', line('#9fc3e699', 2.6), template('#5a2a5e', 0.45, '110', 1.6, 1.4), gradient='#5a2a5e'),
    pln(504, 'Border of a region', 'Граница области', line('#f0c27b99', 2.2), template('#7a4a12', 0.5, '102020', 2.6, 0.9), gradient='#7a4a12'),
    pln(505, 'Border of a district', 'Граница района', template('#7a4a12', 0.4, '1020', 2.0, 0.8)),
    pln(506, 'Border of a municipality', 'Граница муниципалитета', template('#555555', 0.35, '10', 1.6, 0.8)),
    pln(507, 'City limit', 'Граница города', template('#b03a3a', 0.4, '11020', 1.2, 0.9)),
    pln(508, 'Border of a settlement', 'Граница поселения', template('#555555', 0.4, '20', 1, 1.0)),
    pln(509, 'National park border', 'Граница национального парка', line('#7fbf6a80', 2.4, -0.9), line('#3d7a2a', 0.35), gradient='#3d7a2a'),
    pln(510, 'Nature reserve border', 'Граница заповедника', line('#3d7a2a', 0.35), beside('#3d7a2a', tick(1.1), step=1.5), gradient='#3d7a2a'),
    pln(511, 'Military area border', 'Граница военной зоны', line('#c0392b', 0.35), beside('#c0392b', tooth(1.2, 1.0), step=2.6), gradient='#c0392b'),
    pln(512, 'Cadastral border', 'Граница участка', template('#9e4f9e', 0.25, '1', 1, 1), template('#9e4f9e', 0.7, '02', 1, 3.5), gradient='#9e4f9e'),
    pln(513, 'Customs border', 'Таможенная граница', line('#5a2a5e', 0.3), ticks('#5a2a5e', 1.4, 3.2, 0.45), gradient='#5a2a5e'),
    pln(514, 'Time zone border', 'Граница часового пояса', template('#3f6fa8', 0.35, '11102020', 1.1, 0.8)),
]
RELIEF_LINES = [
    pln(601, 'Contour', 'Горизонталь', line(RELIEF, 0.2)),
    pln(602, 'Index contour', 'Утолщённая горизонталь', line(RELIEF, 0.5)),
    pln(603, 'Supplementary contour', 'Полугоризонталь', dashed(RELIEF, 0.25, 2.2, 0.8)),
    pln(604, 'Auxiliary contour', 'Вспомогательная горизонталь', dashed(RELIEF, 0.25, 0.8, 0.7)),
    pln(605, 'Depression contour', 'Горизонталь впадины', line(RELIEF, 0.25), beside(RELIEF, tick(0.8, 0.25), step=2), gradient=RELIEF),
    pln(606, 'Contour on ice', 'Горизонталь ледника', line('#4a97c9', 0.25)),
    pln(607, 'Depth contour', 'Изобата', template('#27527f', 0.25, '1110', 1.6, 0.6)),
    pln(608, 'Index depth contour', 'Утолщённая изобата', template('#27527f', 0.55, '1110', 1.6, 0.6)),
    pln(609, 'Cliff', 'Обрыв', line('#5c3a1a', 0.3), beside('#5c3a1a', tooth(0.95, 1.3), step=1.0), gradient='#5c3a1a'),
    pln(610, 'Rock edge', 'Скальный уступ', line('#4d4d4d', 0.35), beside('#4d4d4d', tick(1.3, 0.22), step=0.7),
        beside('#4d4d4d', tick(0.7, 0.22), step=0.7, shift=0.35), gradient='#4d4d4d'),
    pln(611, 'Embankment', 'Насыпь', line('#7a4f22', 0.3), beside('#7a4f22', tick(1.2), step=1.0), gradient='#7a4f22'),
    pln(612, 'Cutting', 'Выемка', line('#7a4f22', 0.3, 0.6), line('#7a4f22', 0.3, -0.6),
        template('#7a4f22', 0.25, '04', 1, 1.3, symbol=[area('#7a4f22', box(-0.12, -0.6, 0.12, -0.1), box(-0.12, 0.1, 0.12, 0.6))]), gradient='#7a4f22'),
    pln(613, 'Ridge', 'Гребень хребта', line('#8a5a2b', 0.25), template('#8a5a2b', 0.9, '02', 1, 2.0), gradient='#8a5a2b'),
    pln(614, 'Gully', 'Промоина', line('#7a4f22', 0.25), template('#7a4f22', 0.25, '06', 1.6, 1.2), gradient='#7a4f22'),
]
BARRIERS = [
    pln(701, 'Wall', 'Каменная ограда', line('#4a4a4a', 0.5), template('#4a4a4a', 0.4, '04', 1, 2.2, symbol=[figure(SQUARE, '#4a4a4a', 1.3)]), gradient='#4a4a4a'),
    pln(702, 'City wall', 'Крепостная стена', line('#5e3f35', 0.5), template('#5e3f35', 0.9, '10', 1.0, 1.0, delta=0.55), gradient='#5e3f35'),
    pln(703, 'Fence', 'Забор', line('#6b6b6b', 0.25), beside('#6b6b6b', tick(0.9), step=2.2), gradient='#6b6b6b'),
    pln(704, 'Wire fence', 'Проволочное ограждение', line('#6b6b6b', 0.25), template('#6b6b6b', 0.25, '04', 1, 2.4, symbol=[figure(SALTIRE, '#6b6b6b', 1.1, pen=0.25)]), gradient='#6b6b6b'),
    pln(705, 'Hedge', 'Живая изгородь', line('#5a9a45', 0.3), template('#5a9a45', 0.9, '20', 1, 1.0), gradient='#5a9a45'),
    pln(706, 'Row of trees', 'Ряд деревьев', template(WOOD_DARK, 1.3, '20', 1, 2.4)),
    pln(707, 'Shelter belt', 'Лесополоса', line('#b9d9a0', 1.6), template(WOOD_DARK, 0.9, '20', 1, 1.7), gradient='#b9d9a0'),
    pln(708, 'Noise barrier', 'Шумозащитный экран', line('#7d6b8c', 0.45), template('#7d6b8c', 0.3, '05', 1.7, 1.6), gradient='#7d6b8c'),
    pln(709, 'Retaining wall', 'Подпорная стенка', line('#5c5c5c', 0.3), template('#5c5c5c', 0.45, '10', 0.6, 0.8, delta=0.35), gradient='#5c5c5c'),
]


# ---- small symbols that areas are strewn with
def leaf_tree(color, size=1.0):
    return [disc(color, 1.1 * size, 0, 0.35 * size), area(color, box(-0.12 * size, -0.75 * size, 0.12 * size, 0.1 * size))]


def needle_tree(color, size=1.0):
    return [area(color, [(-0.55 * size, -0.4 * size), (0.55 * size, -0.4 * size), (0, 0.95 * size)]),
            area(color, box(-0.12 * size, -0.75 * size, 0.12 * size, -0.3 * size))]


def bush(color):
    return [disc(color, 0.55, -0.35, 0), disc(color, 0.55, 0.35, 0), disc(color, 0.6, 0, 0.35)]


def tuft(color, width=0.2):
    return [area(color, stroke([(0, -0.5), (0, 0.6)], width), stroke([(-0.2, -0.5), (-0.55, 0.35)], width),
                 stroke([(0.2, -0.5), (0.55, 0.35)], width))]


def palm(color):
    crown = [stroke([(0, 0.3), (0.4 * s, 0.7), (0.85 * s, 0.35)], 0.2) for s in (1, -1)]
    return [area(color, stroke([(0, -0.9), (0, 0.35)], 0.2))] + [area(color, part) for part in crown] + [
        area(color, stroke([(0.05, 0.25), (0.6, -0.05)], 0.18)), area(color, stroke([(-0.05, 0.25), (-0.6, -0.05)], 0.18))]


def wave(color, width=0.2):
    return [area(color, stroke([(-0.8, 0), (-0.4, 0.25), (0, 0), (0.4, -0.25), (0.8, 0)], width))]


def grave(color):
    return [area(color, box(-0.11, -0.6, 0.11, 0.6)), area(color, box(-0.4, 0.08, 0.4, 0.28))]


def stone(color):
    return [area(color, [(-0.35, -0.3), (0.4, -0.3), (0.15, 0.35)])]


def reeds(color):
    """A reed over its water line."""
    return [area(color, box(-0.8, -0.6, 0.8, -0.42)), area(color, box(-0.09, -0.5, 0.09, 0.7)),
            area(color, stroke([(-0.3, -0.5), (-0.5, 0.4)], 0.17)), area(color, stroke([(0.3, -0.5), (0.5, 0.4)], 0.17))]


def vine(color):
    return [area(color, box(-0.1, -0.7, 0.1, 0.7)), area(color, arc(0.45, -90, 180, 0.12, 0.25, 12) + arc(0.25, 180, -90, 0.12, 0.25, 12))]


SAND_DOT = '#b38f4f'
WATER_AREAS = [
    pgn(801, 'Sea', 'Море', fill(SEA)),
    pgn(802, 'Shelf, to 200 m', 'Шельф, до 200 м', fill('#c7e3f4')),
    pgn(803, 'Deep sea, to 2000 m', 'Глубины до 2000 м', fill('#86bce0')),
    pgn(804, 'Abyss, below 2000 m', 'Глубины свыше 2000 м', fill('#5f9fd0')),
    pgn(805, 'Lake', 'Озеро', fill('#bfe0f2'), outline=(WATER, 0.35)),
    pgn(806, 'Reservoir', 'Водохранилище', fill('#b0d8ee'), hatch_line(3, 0, '#7fb5da', 0.2), outline=(WATER_DEEP, 0.4)),
    pgn(807, 'Intermittent lake', 'Пересыхающее озеро', fill('#e4f2fa'), hatch(2, 45, dashed(WATER, 0.25, 1.8, 1)), outline=[dashed(WATER, 0.35, 1.6, 0.8)]),
    pgn(808, 'Salt lake', 'Солёное озеро', fill('#dfe6f5'), spots(2.6, 2.2, figure(PLUS, '#8795bd', 0.8, pen=0.2)), outline=('#8795bd', 0.35)),
    pgn(809, 'Swimming pool', 'Бассейн', fill('#8fd6ee'), outline=('#2b91b8', 0.3)),
    pgn(810, 'Tidal flat', 'Осушка', fill('#dcecef'), spots(1.6, 1.4, color='#93a9a0', size=0.35, scatter=True)),
    pgn(811, 'Shoal', 'Отмель', fill('#d3ebf7'), spots(1.3, 1.3, color=WATER, size=0.3)),
    pgn(812, 'Glacier', 'Ледник', fill('#eef8fd'), hatch(2.4, 0, template('#6fb3dc', 0.25, '1100', 1.4, 0.7)), outline=('#6fb3dc', 0.3)),
    pgn(813, 'Snow field', 'Снежник', fill('#f5fbff'), spots(2.8, 2.4, figure(STAR4, '#7fb8dc', 0.9))),
]
VEGETATION = [
    pgn(821, 'Forest', 'Лес', fill('#b9dba0')),
    pgn(822, 'Deciduous forest', 'Лиственный лес', fill(WOOD), spots(3.4, 3, *leaf_tree(WOOD_DARK), scatter=True)),
    pgn(823, 'Coniferous forest', 'Хвойный лес', fill('#b9d9b4'), spots(3.2, 3, *needle_tree('#2f6b45'), scatter=True)),
    pgn(824, 'Mixed forest', 'Смешанный лес', fill('#c4e0b4'), spots(4.4, 4.2, *leaf_tree(WOOD_DARK)),
        spots(4.4, 4.2, *needle_tree('#2f6b45'), x0=2.2)),
    pgn(825, 'Young forest', 'Поросль леса', fill('#dcefc8'), spots(2.2, 1.9, circle('#6aa551', 0.75, 0.2))),
    pgn(826, 'Sparse wood', 'Редколесье', fill('#e9f3da'), spots(5, 4.2, *leaf_tree('#6aa551'), scatter=True)),
    pgn(827, 'Felled forest', 'Вырубка', fill('#e6efcf'), spots(3.4, 3, area('#7a6a3a', box(-0.12, -0.3, 0.12, 0.4)),
        area('#7a6a3a', box(-0.5, -0.45, 0.5, -0.27)))),
    pgn(828, 'Burnt forest', 'Горелый лес', fill('#e3ddd0'), spots(3.2, 3, area('#4a3f38', box(-0.11, -0.7, 0.11, 0.8)),
        area('#4a3f38', stroke([(0, 0), (0.5, 0.45)], 0.18)), scatter=True)),
    pgn(829, 'Scrub', 'Кустарник', fill('#dbe9b9'), spots(3, 2.6, *bush('#6f9440'), scatter=True)),
    pgn(830, 'Heath', 'Пустошь', fill('#e6d9e3'), spots(2.8, 2.4, *tuft('#94638a', 0.18), scatter=True)),
    pgn(831, 'Meadow', 'Луг', fill('#e3f1c4'), spots(3.4, 3, *tuft('#7da648', 0.18))),
    pgn(832, 'Steppe', 'Степь', fill('#f1efc6'), spots(3, 2.6, area('#a39a3f', stroke([(-0.25, -0.4), (-0.45, 0.4)], 0.2)),
        area('#a39a3f', stroke([(0.25, -0.4), (0.45, 0.4)], 0.2)), scatter=True)),
    pgn(833, 'Reeds', 'Камыш', fill('#dcebd9'), spots(3, 2.8, *reeds('#4b8f6a'))),
    pgn(834, 'Tundra', 'Тундра', fill('#e4e6d2'), spots(2.6, 2.2, area('#8f9a5e', arc(0.5, 0, 180) + arc(0.28, 180, 0)))),
    pgn(835, 'Moss', 'Моховая растительность', fill('#e0edd0'), spots(1.9, 1.7, circle('#6f9f4f', 0.6, 0.2), scatter=True)),
    pgn(836, 'Palm grove', 'Пальмовая роща', fill('#d3ecc4'), spots(3.6, 3.2, *palm('#3f8a4a'))),
    pgn(837, 'Mangrove', 'Мангровые заросли', fill('#c5e3d0'), hatch_line(1.6, 0, '#78b5d4', 0.2), spots(3.2, 3.2, *leaf_tree('#2e7a58', 0.9))),
]
GROUND = [
    pgn(841, 'Marsh, passable', 'Проходимое болото', fill('#e6f2ee'), hatch(1.5, 0, template(WATER, 0.25, '110', 1.4, 1.2)),
        ),
    pgn(842, 'Marsh, impassable', 'Непроходимое болото', fill('#d8ebef'), hatch_line(1.0, 0, WATER, 0.25)),
    pgn(843, 'Wooded marsh', 'Заболоченный лес', fill('#c9e3c2'), hatch(1.8, 0, template(WATER, 0.25, '110', 1.5, 1.2)),
        spots(4.2, 3.6, *leaf_tree('#3f7f4f'))),
    pgn(844, 'Salt marsh', 'Солончак', fill('#e9e6ee'), hatch(1.8, 90, template('#8a7fa8', 0.25, '110', 1, 1.0))),
    pgn(845, 'Sand', 'Пески', fill('#f7ebc4'), spots(1.1, 1.1, color=SAND_DOT, size=0.3, scatter=True)),
    pgn(846, 'Dunes', 'Барханные пески', fill('#f7e6b4'), spots(3, 2.4, area('#b38f4f', arc(0.9, 20, 160, 0, -0.5) + arc(0.75, 160, 20, 0, -0.62)), scatter=True)),
    pgn(847, 'Gravel', 'Галечник', fill('#efe6d4'), spots(1.8, 1.7, circle('#8a7860', 0.6, 0.2), scatter=True)),
    pgn(848, 'Scree', 'Каменная осыпь', fill('#ece2d4'), spots(1.5, 1.4, *stone('#7a5f45'), scatter=True, turn=True)),
    pgn(849, 'Boulder field', 'Каменные россыпи', fill('#e6e2dc'), spots(2.2, 2.0, disc('#6b6660', 0.8), disc('#c9c4bd', 0.35, -0.08, 0.1), scatter=True)),
    pgn(850, 'Rock', 'Скалы', fill('#d9d2ca'), spots(2.4, 2.2, area('#5e554c', [(-0.8, -0.6), (-0.2, 0.7), (0.1, 0.1), (0.35, 0.45), (0.85, -0.6), (0.2, -0.2)]), scatter=True)),
    pgn(851, 'Clay flat', 'Такыр', fill('#f0dcc8'), hatch(2.2, 30, template('#b98a63', 0.2, '110', 1.2, 0.9)), hatch(2.6, 120, template('#b98a63', 0.2, '110', 1.1, 1.1))),
    pgn(852, 'Salt flat', 'Соляная равнина', fill('#f4f1f6'), spots(2.4, 2, figure(PLUS, '#a59bb8', 1.1, pen=0.2))),
    pgn(853, 'Lava field', 'Лавовое поле', fill('#d6c4c0'), hatch(1.8, 0, template('#8c4a40', 0.3, '0506', 1.1, 0.7))),
    pgn(854, 'Bare ground', 'Обнажённый грунт', fill('#f2e6d8')),
    pgn(855, 'Hummocky ground', 'Бугристая поверхность', fill('#ece8d0'), spots(2.6, 2.2, area('#a8642a', arc(0.6, 0, 180) + arc(0.38, 180, 0)), scatter=True)),
]
FARMING = [
    pgn(861, 'Arable land', 'Пашня', fill('#f8f2dc')),
    pgn(862, 'Irrigated land', 'Орошаемые земли', fill('#eef5d8'), hatch_line(2.2, 0, '#7fb5da', 0.25), hatch(2.2, 90, template('#7fb5da', 0.25, '10', 0.6, 1.6))),
    pgn(863, 'Orchard', 'Фруктовый сад', fill('#e2f0c8'), spots(2.4, 2.4, disc('#5f9a3f', 1.0), staggered=False)),
    pgn(864, 'Berry plantation', 'Ягодник', fill('#f0e9d4'), spots(1.8, 1.8, disc('#a84a62', 0.7), staggered=False)),
    pgn(865, 'Vineyard', 'Виноградник', fill('#efe6ef'), spots(2.6, 2.6, *vine('#7d4a8a'), staggered=False)),
    pgn(866, 'Hop garden', 'Хмельник', fill('#e8f0d0'), hatch_line(2.2, 90, '#7a9a3a', 0.3), spots(2.2, 2.2, disc('#5f7a2a', 0.6), staggered=False)),
    pgn(867, 'Tea plantation', 'Чайная плантация', fill('#d9ecd0'), hatch(1.6, 0, template('#3f7f4f', 0.7, '20', 1, 1.1))),
    pgn(868, 'Rice field', 'Рисовое поле', fill('#dff0e6'), hatch_line(2.6, 0, '#7fb5da', 0.25), spots(2.6, 2.6, *tuft('#5f9a4f', 0.16), staggered=False, y0=1.1)),
    pgn(869, 'Allotments', 'Садовые участки', fill('#ebf0d2'), hatch_line(3, 0, '#9fae6a', 0.25), hatch_line(3, 90, '#9fae6a', 0.25), spots(3, 3, disc('#6f9f4a', 0.8), staggered=False, x0=1.5, y0=1.5)),
    pgn(870, 'Greenhouses', 'Теплицы', fill('#e9f4ef'), hatch_line(1.4, 90, '#4fa58a', 0.3), outline=('#4fa58a', 0.4)),
    pgn(871, 'Pasture', 'Пастбище', fill('#e8f0c4')),
    pgn(872, 'Tree nursery', 'Лесопитомник', fill('#dcefd2'), spots(1.8, 1.8, *needle_tree('#4a8a55', 0.62), staggered=False)),
]
BUILT = [
    pgn(881, 'Built-up area, dense', 'Плотная застройка', fill('#e3b9a8'), outline=('#b08472', 0.25)),
    pgn(882, 'Built-up area, sparse', 'Разреженная застройка', fill('#f3ddd0'), spots(2.6, 2.4, figure(SQUARE, '#b08472', 0.9))),
    pgn(883, 'Building', 'Здание', fill('#c9a08c'), outline=('#7d5a48', 0.3)),
    pgn(884, 'Public building', 'Общественное здание', fill('#d98f7a'), hatch_line(1.2, 45, '#8c3f2c', 0.2), outline=('#8c3f2c', 0.35)),
    pgn(885, 'Building under construction', 'Строящееся здание', fill('#f5ece6'), hatch_line(1.6, 45, '#b08472', 0.25), outline=[dashed('#7d5a48', 0.3, 1, 0.6)]),
    pgn(886, 'Ruins', 'Развалины', fill('#f5f0ea'), spots(1.8, 1.6, figure(SALTIRE, '#8c7a68', 0.8, pen=0.2)), outline=[dashed('#8c7a68', 0.3, 0.7, 0.6)]),
    pgn(887, 'Industrial area', 'Промышленная зона', fill('#ded6e3'), outline=('#9a8aa8', 0.25)),
    pgn(888, 'Commercial area', 'Торговая зона', fill('#f4d4da'), outline=('#c48a96', 0.25)),
    pgn(889, 'Railway land', 'Территория железной дороги', fill('#dedede'), hatch_line(1.8, 0, '#8c8c8c', 0.25)),
    pgn(890, 'Park', 'Парк', fill('#cdebb8'), outline=('#7fb567', 0.3)),
    pgn(891, 'Botanical garden', 'Ботанический сад', fill('#c6ead0'), spots(3, 2.8, figure(STAR, '#3f9a6a', 1.2))),
    pgn(892, 'Sports ground', 'Спортивная площадка', fill('#b9e3c6'), outline=('#4f9f78', 0.5)),
    pgn(893, 'Golf course', 'Поле для гольфа', fill('#d5f0b4'), spots(3.4, 3.2, area('#3f7f2f', box(-0.1, -0.8, 0.1, 0.8)), area('#d0443c', [(0.05, 0.8), (0.8, 0.5), (0.05, 0.2)]))),
    pgn(894, 'Cemetery', 'Кладбище', fill('#d5e3cb'), spots(2.4, 2.6, *grave('#4f6a48')), outline=('#6f8a66', 0.3)),
    pgn(895, 'Airport', 'Аэропорт', fill('#e2e0ec'), outline=('#8078a8', 0.4)),
    pgn(896, 'Runway', 'Взлётно-посадочная полоса', fill('#b4b2bd'), outline=('#6e6c7a', 0.3)),
    pgn(897, 'Car park', 'Автостоянка', fill('#eeeeee'), outline=('#8aa0c4', 0.4)),
    pgn(898, 'Square, pedestrian area', 'Площадь, пешеходная зона', fill('#ece4f4'), outline=('#b3a2cf', 0.3)),
    pgn(899, 'School ground', 'Территория школы', fill('#fbf0cf'), outline=('#c9a94a', 0.35)),
    pgn(900, 'Hospital ground', 'Территория больницы', fill('#fbdfdf'), spots(3, 2.8, figure(CROSS, '#d66a6a', 1.0)), outline=('#d66a6a', 0.3)),
    pgn(901, 'Military area', 'Военная территория', fill('#f3e3dd'), hatch_line(2.4, 45, '#d08a78', 0.3), outline=('#c0392b', 0.4)),
    pgn(902, 'Quarry', 'Карьер', fill('#e6dccb'), spots(2.4, 2.2, area('#7a6848', stroke([(-0.7, -0.4), (0.6, 0.5)], 0.2)), area('#7a6848', stroke([(-0.6, 0.5), (0.7, -0.4)], 0.2))), outline=('#7a6848', 0.35)),
    pgn(903, 'Spoil heap', 'Отвал', fill('#ddd2c4'), hatch(1.6, 90, template('#8a6f4f', 0.3, '10', 0.9, 0.9)), outline=('#8a6f4f', 0.3)),
    pgn(904, 'Landfill', 'Свалка', fill('#e4e0cf'), spots(2, 1.8, area('#8a8450', stroke([(-0.5, -0.3), (0, 0.4), (0.5, -0.3)], 0.2)), scatter=True, turn=True)),
    pgn(905, 'Nature reserve', 'Заповедник', hatch_line(2.6, 135, '#6fae5a', 0.3), outline=('#3d7a2a', 0.5)),
    pgn(906, 'Construction site', 'Строительная площадка', fill('#f7ead0'), hatch(2.2, 45, dashed('#c9954a', 0.35, 1.5, 1)), outline=[dashed('#c9954a', 0.35, 1.4, 0.7)]),
]


# ---- settlements, the larger the more inhabitants
def town(size, *rings, heart=None):
    """Rings (diameter, colour) from the outside, black on white unless told."""
    return [disc(BLACK, size), disc(WHITE, size - 0.5)] + [disc(c, d) for d, c in rings] + (heart or [])


RED = '#c62f2f'
SETTLEMENTS = [
    pnt(951, 'City, above 5 million', 'Город, свыше 5 млн', disc(BLACK, 5.2), disc(WHITE, 4.6), disc(BLACK, 3.8), disc(RED, 3.2), disc(WHITE, 1.4), gradient=RED),
    pnt(952, 'City, 1 to 5 million', 'Город, 1–5 млн', disc(BLACK, 4.6), disc(WHITE, 4.0), disc(BLACK, 3.2), disc(WHITE, 1.2), gradient=BLACK),
    pnt(953, 'City, 500 000 to 1 million', 'Город, 500 тыс. – 1 млн', disc(BLACK, 4.0), disc(WHITE, 3.4), disc(BLACK, 2.5), gradient=BLACK),
    pnt(954, 'City, 100 000 to 500 000', 'Город, 100–500 тыс.', disc(BLACK, 3.4), disc(WHITE, 2.8), disc(BLACK, 1.6), gradient=BLACK),
    pnt(955, 'Town, 50 000 to 100 000', 'Город, 50–100 тыс.', disc(BLACK, 2.9), disc(WHITE, 2.3), disc(BLACK, 0.9), gradient=BLACK),
    pnt(956, 'Town, 10 000 to 50 000', 'Город, 10–50 тыс.', disc(BLACK, 2.4), disc(WHITE, 1.8), gradient=BLACK),
    pnt(957, 'Small town, 2000 to 10 000', 'Посёлок, 2–10 тыс.', disc(BLACK, 1.9), disc(WHITE, 1.35), gradient=BLACK),
    pnt(958, 'Village, 500 to 2000', 'Село, 500–2000', disc(BLACK, 1.5), disc('#bdbdbd', 1.0), gradient=BLACK),
    mark(959, 'Hamlet, below 500', 'Деревня, до 500', DISC, BLACK, 1.1),
    pnt(961, 'Capital of a state', 'Столица государства', disc(BLACK, 5.4), disc(WHITE, 4.8), figure(STAR, RED, 4.4), gradient=RED),
    pnt(962, 'Capital of a region', 'Областной центр', figure(SQUARE, BLACK, 4.6), figure(SQUARE, WHITE, 3.9), disc(RED, 2.6), gradient=RED),
    pnt(963, 'Centre of a district', 'Районный центр', disc(BLACK, 3.4), disc(WHITE, 2.9), disc(RED, 1.7), gradient=RED),
    pnt(964, 'Centre of a municipality', 'Центр муниципалитета', disc(RED, 2.4), disc(WHITE, 1.8), disc(RED, 0.9), gradient=RED),
    pnt(965, 'Town of a special kind', 'Город особого статуса', figure(DIAMOND, BLACK, 4.2), figure(DIAMOND, WHITE, 3.2), figure(DIAMOND, RED, 2.0), gradient=RED),
    pnt(966, 'Holiday village', 'Дачный посёлок', disc('#3d7a2a', 1.9), disc('#dff0d0', 1.3), gradient='#3d7a2a'),
    pnt(967, 'Farm', 'Хутор, ферма', figure(SQUARE, BLACK, 1.8), figure(SQUARE, '#e3b9a8', 1.1), gradient=BLACK),
    mark(968, 'Single house', 'Отдельный двор', SQUARE, BLACK, 1.3),
    pnt(969, 'Abandoned settlement', 'Нежилой населённый пункт', circle('#7d7d7d', 2.2, 0.25), figure(SALTIRE, '#7d7d7d', 1.5, pen=0.25)),
    pnt(970, 'Shift workers\' camp', 'Вахтовый посёлок', figure(TRIANGLE, BLACK, 2.6), figure(TRIANGLE, '#f7d36a', 1.5, 0, -0.12), gradient=BLACK),
]

TREE = [
    (('Roads', 'Дороги'), [
        (('Roads by class', 'Дороги по классам'), ROAD_CLASSES),
        (('Tunnels, bridges, roads being built', 'Туннели, мосты, строящиеся дороги'), ROAD_STRUCTURES),
        (('Paths', 'Тропы и дорожки'), PATHS)]),
    (('Railways and lifts', 'Железные и канатные дороги'), RAILWAYS),
    (('Power lines and pipes', 'Линии электропередачи и трубопроводы'), UTILITIES),
    (('Water', 'Гидрография'), [
        (('Water lines', 'Водные линии'), WATER_LINES),
        (('Water areas and ice', 'Водоёмы и лёд'), WATER_AREAS)]),
    (('Borders', 'Границы'), BORDERS),
    (('Relief', 'Рельеф'), RELIEF_LINES),
    (('Walls, fences, rows of trees', 'Ограждения и ряды деревьев'), BARRIERS),
    (('Land cover', 'Растительный покров и грунты'), [
        (('Vegetation', 'Растительность'), VEGETATION),
        (('Ground', 'Грунты'), GROUND),
        (('Farming', 'Сельскохозяйственные угодья'), FARMING)]),
    (('Built-up areas and grounds', 'Застройка и территории'), BUILT),
    (('Settlements', 'Населённые пункты'), SETTLEMENTS),
]
