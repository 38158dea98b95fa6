#!/usr/bin/env python3
"""Compares the plain functions that a library exports with the list beside this file, and sees to it that the C++
symbols it exports are its own: nothing of a third party leaks out.

Usage: check_exports.py LIBRARY LIST [--write]
"""
import re, subprocess, sys

# Our own names, and what the compiler makes for a class: tables, type information, thunks, guards.
OURS = re.compile(r'(vtable for |typeinfo for |typeinfo name for |VTT for |construction vtable for |'
                  r'(non-virtual|virtual|covariant return) thunk to |guard variable for )?'
                  r'(.*\b(T[A-Z]\w*|Tvx_\w+|Ivx_\w+|Tutils|vx_\w+|vxk_\w+|plugin_style_editor_\w+|vx::|vxstd::|closure<|clr_2_rgb|rgb_2_clr|clr2rgb))')
FOREIGN = re.compile(r'^(vtable for |typeinfo (name )?for )?(Q[A-Z]\w+|pugi::|icu_|GDAL|OGR|sqlite3)')


def main():
    library, listing = sys.argv[1:3]
    names = subprocess.run(['nm', '-D', '--defined-only', library], check=True, capture_output=True, text=True).stdout
    symbols = [line.split()[-1].split('@')[0] for line in names.splitlines() if len(line.split()) >= 3]
    plain = sorted(s for s in set(symbols) if not s.startswith('_Z') and not s.startswith('VXK_'))
    if '--write' in sys.argv:
        open(listing, 'w').write('\n'.join(plain) + '\n')
        return 0
    wanted = sorted(set(open(listing).read().split()))
    out = [f'missing: {s}' for s in wanted if s not in plain] + [f'not in the list: {s}' for s in plain if s not in wanted]
    mangled = [s for s in symbols if s.startswith('_Z')]
    if mangled:
        readable = subprocess.run(['c++filt'], input='\n'.join(mangled), check=True, capture_output=True, text=True).stdout
        out += [f'foreign: {s}' for s in readable.splitlines() if FOREIGN.match(s) or not OURS.match(s)]
    print('\n'.join(out) if out else f'{len(plain)} plain functions, {len(mangled)} C++ symbols')
    return 1 if out else 0


sys.exit(main())
