#!/usr/bin/env python3
"""Runs clang-tidy with the naming rules of .clang-tidy, and a few rules that find faults, over the changed sources.

Usage: check_tidy.py [--build DIR] [--since REV] [FILE ...]
Without files: what differs from REV, by default from where the branch left the main line (origin/main, else the last commit),
and files that git does not know yet. Headers are looked at through one source that includes them. What is reported lies in
the changed files; nothing changed is quick.
Exit status: 0 clean, 1 findings (printed), 2 no clang-tidy or no build to take the commands from.
"""
import argparse, concurrent.futures, json, os, pathlib, re, shutil, subprocess, sys

FOLDERS = ('src/', 'bundles/', 'host/')
CHECKS = ('-*,readability-identifier-naming,bugprone-use-after-move,bugprone-dangling-handle,bugprone-infinite-loop,'
          'bugprone-sizeof-expression,bugprone-undelegated-constructor,misc-unused-using-decls,modernize-use-override')


def git(*args):
    run = subprocess.run(['git', *args], capture_output=True, text=True)
    return run.stdout.split() if run.returncode == 0 else []


def changed(since):
    if not since:
        since = (git('merge-base', 'HEAD', 'origin/main') or ['HEAD'])[0]
    names = git('diff', '--name-only', '--diff-filter=d', since) + git('ls-files', '--others', '--exclude-standard')
    return sorted({n for n in names if n.startswith(FOLDERS) and n.endswith(('.h', '.cpp'))})


def with_sources(files, known):
    """Each source of `files`, and for each header one source that includes it."""
    wanted = {f for f in files if f in known}
    for header in (f for f in files if f.endswith('.h')):
        line = '#include "' + header.removeprefix('src/') + '"'
        own = header.removesuffix('.h') + '.cpp'
        if own in known:
            wanted.add(own)
        else:
            users = (f for f in known if line in pathlib.Path(f).read_text(errors='replace'))
            wanted.update([next(users, None)] if not wanted.intersection(users) else [])
    return sorted(wanted - {None})


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument('--build', type=pathlib.Path, default=pathlib.Path('build/dev'))
    ap.add_argument('--since')
    ap.add_argument('files', nargs='*')
    arg = ap.parse_args()
    files = arg.files or changed(arg.since)
    if not files:
        print('nothing changed')
        return 0
    tool = shutil.which('clang-tidy-14') or shutil.which('clang-tidy')
    commands = arg.build / 'compile_commands.json'
    if not tool or not commands.exists():
        print('clang-tidy is not installed' if not tool else f'{commands} does not exist')
        return 2
    here = os.getcwd()
    known = [os.path.relpath(c['file'], here) for c in json.loads(commands.read_text())]
    known = [f for f in known if not f.startswith(('build/', '..'))]
    only = json.dumps([{'name': f} for f in files])
    base = [tool, '-p', str(arg.build), '--quiet', '--checks=' + CHECKS, '--header-filter=.*', '--line-filter=' + only,
            '--extra-arg=-Wno-unknown-warning-option', '--extra-arg=-Wno-everything', '--warnings-as-errors=*']

    def check(source):
        run = subprocess.run([*base, source], capture_output=True, text=True)
        return [line for line in run.stdout.splitlines() if re.search(r': (error|warning): ', line)]

    found = set()
    sources = with_sources(files, known)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count() or 2) as pool:
        for lines in pool.map(check, sources):
            found.update(lines)
    print('\n'.join(sorted(found) + [f'{len(files)} files changed, {len(sources)} sources read, {len(found)} findings']))
    return 1 if found else 0


sys.exit(main())
