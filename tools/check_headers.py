#!/usr/bin/env python3
"""Compiles each header below src/ alone, so that none leans on what its user happened to include before.

A header that passed is not compiled again until it or something it includes has changed: its stamp file lists what it
included. The bridge headers of tools/layers.toml need Qt and are compiled by
the sources that use them.
Exit status: 0 all compile, 1 some do not (the compiler's words are printed).
"""
import argparse, concurrent.futures, fnmatch, os, pathlib, re, subprocess, sys, tomllib



def fresh(stamp, header):
    if not stamp.exists():
        return False
    made = stamp.stat().st_mtime
    try:
        return all(os.stat(p).st_mtime <= made for p in [str(header)] + stamp.read_text().split('\n') if p)
    except OSError:
        return False


def check(args, root, header):
    rel = header.relative_to(root).as_posix()
    stamp = args.stamp / (rel.replace('/', '__') + '.ok')
    if fresh(stamp, header):
        return rel, True, ''
    probe = f'#include "{rel}"\n#include "{rel}"\n'
    run = subprocess.run([args.compiler, '-std=c++20', '-fsyntax-only', '-Wall', '-Wextra', '-Wno-unused-parameter', '-Werror', '-I', str(root), *(f'-I{folder}' for folder in args.include),
                          '-MD', '-MF', str(stamp) + '.d', '-x', 'c++', '-'], input=probe, text=True, capture_output=True)
    if run.returncode:
        return rel, False, run.stderr
    deps = pathlib.Path(str(stamp) + '.d')
    names = re.findall(r'\S+', deps.read_text().replace('\\\n', ' '))[1:] if deps.exists() else []
    deps.unlink(missing_ok=True)
    stamp.write_text('\n'.join(n for n in names if not n.startswith('/usr/') and n != '-'))
    return rel, True, ''


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument('--root', type=pathlib.Path, default=pathlib.Path('src'))
    ap.add_argument('--compiler', default='c++')
    ap.add_argument('--stamp', type=pathlib.Path, default=pathlib.Path('build/header_stamps'))
    ap.add_argument('--include', action='append', default=[], help='a further folder of headers, such as made ones')
    args = ap.parse_args()
    args.stamp.mkdir(parents=True, exist_ok=True)
    bridges = tomllib.loads(pathlib.Path('tools/layers.toml').read_text())['bridge']
    headers = sorted(h for h in args.root.rglob('*.h')
                     if not any(fnmatch.fnmatch(h.relative_to(args.root).as_posix(), b) for b in bridges))
    bad = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count() or 2) as pool:
        for rel, ok, text in pool.map(lambda h: check(args, args.root, h), headers):
            if not ok:
                bad += 1
                print(f'{rel}: does not compile alone\n{text}')
    print(f'{len(headers)} headers, {bad} bad')
    return 1 if bad else 0


sys.exit(main())
