#!/usr/bin/env python3
"""Checks the documents: what their links and pictures name is there, headings too; each picture is shown; paths of the
source tree in backticks exist; and in the guides for users each text in bold is a caption of the program.

Usage: check_docs.py
"""
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
CAPTIONS = 'resources/captions/en.txt'
PICTURES = ('docs/complex_styles', 'docs/pictures')
FOR_USERS = ('README.md', 'docs/complex_styles.md', 'docs/using_the_editor.md')
TREE = ('bench', 'bundles', 'cmake', 'docs', 'examples', 'fuzz', 'host', 'resources', 'src', 'tests', 'tools')


def anchor(heading):
    """Of a heading, as the hosts of repositories make it."""
    return re.sub(r'[^\w\- ]', '', heading.strip().lower()).replace(' ', '-')


def anchors(text):
    return {anchor(line.lstrip('#')) for line in text.splitlines() if line.startswith('#')}


def plain(caption):
    return caption.replace('&', '').replace('...', '').strip()


def captions():
    lines = set()
    for row in (ROOT / CAPTIONS).read_text(encoding='utf-8').splitlines():
        _, tab, text = row.partition('\t')
        if tab and not row.startswith('#'):
            lines.update(plain(part) for part in re.split(r'\\n|\\t', text))
    return lines


def check(name, text, known, shown):
    """What is wrong in one document."""
    prose = re.sub(r'^```.*?^```', lambda m: '\n' * m.group().count('\n'), text, flags=re.S | re.M)
    for number, line in enumerate(prose.splitlines(), 1):
        for target in re.findall(r'\]\(([^)\s]+)\)', line):
            if re.match(r'[a-z]+:', target):
                continue
            path, _, heading = target.partition('#')
            place = (ROOT / name).parent / path if path else ROOT / name
            if not place.exists():
                yield f'{name}:{number}: there is no {target}'
            elif heading and heading not in anchors(place.read_text(encoding='utf-8')):
                yield f'{name}:{number}: there is no heading {target}'
            shown.add(place.resolve())
        for path in re.findall(r'`((?:%s)/[\w./-]+)`' % '|'.join(TREE), line):
            place = ROOT / path
            if not place.exists() and not any(place.parent.glob(place.name + '.*')):
                yield f'{name}:{number}: there is no {path}'
        if name in FOR_USERS:
            for text in re.findall(r'\*\*([^*]+)\*\*', line):
                if plain(text) not in known:
                    yield f'{name}:{number}: the program has no caption "{text}"'


def main():
    names = subprocess.run(['git', 'ls-files', '*.md'], cwd=ROOT, check=True, capture_output=True,
                           text=True).stdout.split()
    known, shown, faults = captions(), set(), []
    for name in names:
        faults += check(name, (ROOT / name).read_text(encoding='utf-8'), known, shown)
    faults += [f'{folder}/{picture.name}: no document shows it' for folder in PICTURES
               for picture in sorted((ROOT / folder).iterdir()) if picture.resolve() not in shown]
    print('\n'.join(faults) or f'{len(names)} documents')
    return 1 if faults else 0


sys.exit(main())
