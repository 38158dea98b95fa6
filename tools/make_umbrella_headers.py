#!/usr/bin/env python3
"""Writes the umbrella headers that tools/layers.toml lists under [chief]: includes only, for users of the library.

A header is written when any of its modules exists. Run it after adding, renaming or removing a public header.
"""
import pathlib, tomllib

ROOT = pathlib.Path('src')


def public_headers(module, modules, chiefs):
    folder = ROOT / module
    for path in sorted(folder.rglob('*.h')):
        rel = path.relative_to(ROOT).as_posix()
        owner = max((m for m in modules if rel.startswith(m + '/')), key=len)
        if owner == module and rel not in chiefs and '_priv.' not in path.name and '/detail/' not in rel:
            yield rel


def main():
    conf = tomllib.loads(pathlib.Path('tools/layers.toml').read_text())
    chiefs, modules = conf['chief'], conf['module']
    for chief, names in chiefs.items():
        headers = sorted(h for n in names for h in public_headers(n, modules, chiefs))
        target = ROOT / chief
        if not headers:
            target.unlink(missing_ok=True)
            continue
        text = ('#pragma once\n\n// Umbrella header for users of the library; written by tools/make_umbrella_headers.py.\n\n'
                + ''.join(f'#include "{h}"\n' for h in headers))
        if not target.exists() or target.read_text() != text:
            target.write_text(text)


main()
