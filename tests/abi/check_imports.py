#!/usr/bin/env python3
"""Sees to it that libraries stand on the public face of Qt: no symbol of the version for its own use, and no plain
function that Qt exports for its own modules and declares in no public header.

Usage: check_imports.py LIBRARY...
"""
import re, subprocess, sys

# Plain functions that inline code of Qt's public headers calls.
PUBLIC = {'qt_assert', 'qt_assert_x', 'qt_qFindChild_helper', 'qt_qFindChildren_helper', 'qt_QMetaEnum_debugOperator',
          'qt_QMetaEnum_flagDebugOperator', 'qt_version_tag'}
PLAIN = re.compile(r'U (qt_\w+).*@Qt_')


def private(line):
    plain = PLAIN.search(line)
    return line.endswith('PRIVATE_API') or (plain is not None and plain[1] not in PUBLIC)


def main():
    out = []
    for library in sys.argv[1:]:
        names = subprocess.run(['nm', '-D', '-u', '-C', library], check=True, capture_output=True, text=True).stdout
        out += [f'{library}: {line.split(None, 1)[1]}' for line in names.splitlines() if private(line)]
    print('\n'.join(out) if out else f'{len(sys.argv) - 1} libraries import public symbols only')
    return 1 if out else 0


sys.exit(main())
