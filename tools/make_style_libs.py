#!/usr/bin/env python3
"""Writes the starter style libraries, resources/style_libs/*.slib, from their drawings in tools/style_libs, and the page
that shows them, docs/style_catalogue.md.

  tools/make_style_libs.py            writes what has changed
  tools/make_style_libs.py --check    changes nothing; says what is out of date or wrong

The pictures of the page are made by the map host, which draws them as maps are drawn:

  vx_map --lang en --style-sheets docs/style_catalogue resources/style_libs/*.slib
"""
import argparse
import pathlib
import sys
from xml.sax.saxutils import quoteattr

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / 'tools' / 'style_libs'))
sys.dont_write_bytecode = True
import general, patterns, statistics_signs, topographic  # noqa: E402

TARGET = ROOT / 'resources' / 'style_libs'
# The browser shows the libraries in the order of the files' names.
LIBRARIES = {'01_general': general, '02_topographic': topographic, '03_patterns': patterns, '04_statistics': statistics_signs}
SOURCE = 'Drawn for this project (tools/style_libs)'
LICENCE = 'Project licence'
KINDS = ('points', 'lines', 'polygons')
PAGE = ROOT / 'docs' / 'style_catalogue.md'
PICTURES = ROOT / 'docs' / 'style_catalogue'
INTRODUCTION = """# Catalogue of the starter styles

{count} styles in {libraries} libraries come with the program: its style libraries offer them wherever a style is edited. All are
drawn for this project, in `tools/style_libs`, and may be used as the project is. A style is known by its number, which stays; menus of
value scales take values as numbers of a library. Samples have 4 pixels to a millimetre, each of them drawn as 2.

This page is written by `tools/make_style_libs.py`, its pictures by the map host; how to add a style stands in
[CONTRIBUTING.md](../CONTRIBUTING.md#adding-a-style-to-the-starter-libraries).
"""


def lines(element, depth):
    name, attributes, children = element
    start = ' ' * depth + '<' + name + ''.join(f' {key}={quoteattr(value)}' for key, value in attributes.items())
    if not children:
        yield start + ' />'
        return
    yield start + '>'
    for child in children:
        yield from lines(child, depth + 1)
    yield ' ' * depth + f'</{name}>'


def styles_of(groups):
    for caption, members in groups:
        yield from styles_of(members) if isinstance(members[0], tuple) else members


def style_element(style):
    parts = list(style.parts)
    if style.gradient:
        parts.append(('gradient', {'of': style.gradient + 'ff'}, []))
    return ('style', {'index': str(style.index), 'version': str(style.version), **style.flags}, parts)


def captions(texts, name='caption'):
    return {name: texts[0], name + '_ru': texts[1]}


def item(caption, members):
    children = [item(*m) if isinstance(m, tuple) else
                ('item', {**captions((m.en, m.ru)), 'index': str(m.index), 'version': str(m.version)}, []) for m in members]
    return ('item', {**captions(caption), 'index': '-1', 'version': '-1'}, children)


def library(content):
    styles = sorted(styles_of(content.TREE), key=lambda style: style.index)
    lists = [(kind, {}, [style_element(s) for s in styles if s.kind == kind]) for kind in KINDS]
    root = ('vx_style_library', {'version': '1', **captions(content.NAME, 'name'), 'source': SOURCE, 'licence': LICENCE},
            lists + [item(content.NAME, content.TREE)])
    return '<?xml version="1.0" encoding="UTF-8"?>\n' + '\n'.join(lines(root, 0)) + '\n'


def sheets(groups, path=()):
    """The groups that hold styles, each with the captions on the way to it."""
    for caption, members in groups:
        if isinstance(members[0], tuple):
            yield from sheets(members, path + (caption,))
        else:
            yield path + (caption,), members


def page():
    count = sum(len(list(styles_of(content.TREE))) for content in LIBRARIES.values())
    text = [INTRODUCTION.format(count=count, libraries=len(LIBRARIES))]
    for name, content in LIBRARIES.items():
        text.append(f'## {content.NAME[0]}\n\n*{content.NAME[1]}*, `resources/style_libs/{name}.slib`.\n')
        for path, styles in sheets(content.TREE):
            title = ': '.join(caption[0] for caption in path)
            rows = ''.join(f'| {s.index} | {s.en} | {s.ru} |\n' for s in styles)
            text.append(f'### {title}\n\n*{": ".join(caption[1] for caption in path)}*\n\n'
                        f'![{title}](style_catalogue/{picture_of(name, styles)})\n\n'
                        f'<details><summary>Numbers and captions</summary>\n\n| No. | English | Russian |\n|---|---|---|\n{rows}\n</details>\n')
    return '\n'.join(text)


def picture_of(name, styles):
    return f'{name}-{styles[0].index}.png'


def faults(name, content):
    """What the program that reads the file would not mind."""
    styles = list(styles_of(content.TREE))
    for what, key in (('index', lambda s: s.index), ('English caption', lambda s: s.en), ('Russian caption', lambda s: s.ru)):
        seen = {}
        for style in styles:
            other = seen.setdefault(key(style), style)
            if other is not style:
                yield f'{name}: {what} {key(style)!r} of both {other.index} and {style.index}'


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument('--check', action='store_true')
    check = parser.parse_args().check
    bad = [fault for name, content in LIBRARIES.items() for fault in faults(name, content)]
    wanted = {TARGET / f'{name}.slib': library(content) for name, content in LIBRARIES.items()} | {PAGE: page()}
    for target, text in wanted.items():
        if target.exists() and target.read_text(encoding='utf-8') == text:
            continue
        if check:
            bad.append(f'{target.relative_to(ROOT)} is out of date: run tools/make_style_libs.py')
        else:
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_text(text, encoding='utf-8')
    shown = {PICTURES / picture_of(name, styles) for name, content in LIBRARIES.items() for _, styles in sheets(content.TREE)}
    for extra in sorted((set(TARGET.glob('*')) - wanted.keys()) | (set(PICTURES.glob('*')) - shown)):
        bad.append(f'{extra.relative_to(ROOT)} belongs to no library')
    print('\n'.join(bad), end='\n' if bad else '')
    return bool(bad)


sys.exit(main())
