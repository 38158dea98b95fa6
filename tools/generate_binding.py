#!/usr/bin/env python3
"""Makes the headers of the component interface from src/extension/binding/families.def.

Usage: generate_binding.py [--out FOLDER] [--check]
Exit status: 0 done (or, with --check, the headers on disk are what would be made), 1 they differ, 2 bad description.

A family with methods has a header of its own; families that need each other share the header of the first one, and the
others' headers lead there. Families without methods share one header a group.
"""
import argparse, collections, pathlib, re, sys, textwrap

WIDTH = 110
DEFAULT_OF = {'bool': 'false', 'double': '0.0', 'float': '0.0f'}
EXTERNAL = {'Tvx_color': 'platform/base/color.h', 'Tvx_box_d2': 'platform/base/geometry.h',
            'Tvx_box_d3': 'platform/base/geometry.h', 'Tvx_matrix3x3': 'platform/base/geometry.h',
            'Tvx_matrix4x4': 'platform/base/geometry.h', 'Tvx_vtx_d2': 'platform/base/vertex_list.h',
            'Tvx_vtx_d3': 'platform/base/vertex_list.h', 'Tvx_op2d': 'platform/base/vertex_list.h',
            'Tvx_ovtx_d3': 'platform/base/vertex_list.h', 'Ivx_layer': None}
HEAD = ('#pragma once\n\n// Made by tools/generate_binding.py from families.def; not to be edited.\n'
        '// clang-format off\n')


class Bad(Exception):
    pass


class Param:
    def __init__(self, text):
        m = re.fullmatch(r'(.+?[ *])(\w+)', text.strip())
        if not m:
            raise Bad(f'parameter "{text}"')
        self.type, self.name = m.group(1).strip(), m.group(2)


class Method:
    def __init__(self, text):
        text, _, self.comment = (part.strip() for part in text.partition(' -- '))
        m = re.fullmatch(r'(.+?[ *])(\w+)\((.*)\)', text)
        if not m:
            raise Bad(f'method "{text}"')
        self.result, self.name = m.group(1).strip(), m.group(2)
        self.params = [Param(p) for p in m.group(3).split(',')] if m.group(3).strip() else []
        self.default = None


class Family:
    def __init__(self, name, revision, flags, group, comment):
        self.name, self.revision, self.group, self.comment = name, int(revision), group, comment
        self.prefix = 'vxk_datasource_' if 'datasource' in flags else 'vxk_framework_'
        self.passed = 'passed' in flags
        self.marker = 'marker' in flags
        self.methods, self.defaults, self.header = [], [], None
        self.handle, self.table = f't_vx_{name}_interface', f'vx_{name}_interface_table'


class Codes:
    """The numbers of one enumeration."""
    def __init__(self, name, prefix, comment):
        self.name, self.prefix, self.comment, self.values = name, prefix, comment, []

    def add(self, text):
        text, _, comment = (part.strip() for part in text.partition(' -- '))
        m = re.fullmatch(r'(\d+) (\w+)', text)
        if not m or any(int(m.group(1)) == v or m.group(2) == n for v, n, _ in self.values):
            raise Bad(f'code "{text}"')
        self.values.append((int(m.group(1)), m.group(2), comment))


def read(path):
    families, groups, defaults, codes = {}, {}, [], []
    family = group = None
    for number, line in enumerate(path.read_text().splitlines(), 1):
        try:
            if not line.strip() or line.startswith('#'):
                continue
            if line[0] == ' ':
                if family:
                    family.methods.append(Method(line.strip()))
                else:
                    codes[-1].add(line.strip())
                continue
            line, _, comment = (part.strip() for part in line.partition(' -- '))
            word, *rest = line.split()
            if comment and word not in ('family', 'codes'):
                raise Bad(f'comment of a {word}')
            if word == 'group':
                group = rest[0]
                groups[group] = ' '.join(rest[1:])
            elif word == 'family':
                name, revision, *flags = rest
                if name in families or set(flags) - {'datasource', 'passed', 'marker'}:
                    raise Bad(f'family {name}: listed twice, or flags {flags}')
                family = families[name] = Family(name, revision, flags, group, comment)
            elif word == 'codes':
                family = None
                codes.append(Codes(*rest, comment))
            elif word == 'default':
                defaults.append((rest[0], rest[1], rest[2:]))
            else:
                raise Bad(f'"{word}"')
        except (Bad, ValueError, AttributeError, IndexError) as e:
            raise Bad(f'{path.name}:{number}: {e}')
    for value, method, names in defaults:
        for name in families if names == ['*'] else names:
            if name not in families:
                raise Bad(f'default of {method}: no family {name}')
            f = families[name]
            hit = [m for m in f.methods if m.name == method]
            if hit:
                hit[0].default = value
            elif f.methods and names != ['*']:
                raise Bad(f'default of {method}: {name} has no such method')
            elif names != ['*']:
                f.defaults.append((value, method))
    return families, groups, codes


def needs(f, families):
    """Families whose handles the methods of `f` name."""
    found = dict.fromkeys(t for m in f.methods for t in [m.result, *(p.type for p in m.params)] if t in families)
    found.pop(f.name, None)
    return list(found)


def components(families):
    """Strongly connected components of the families with methods (Tarjan)."""
    index, low, on, stack, out = {}, {}, set(), [], []

    def visit(v):
        index[v] = low[v] = len(index)
        stack.append(v)
        on.add(v)
        for w in needs(families[v], families):
            if families[w].header_is_group:
                continue
            if w not in index:
                visit(w)
                low[v] = min(low[v], low[w])
            elif w in on:
                low[v] = min(low[v], index[w])
        if low[v] == index[v]:
            part = []
            while True:
                w = stack.pop()
                on.discard(w)
                part.append(w)
                if w == v:
                    break
            out.append(part)
    for f in families.values():
        f.header_is_group = not f.methods and not f.marker
    for name, f in families.items():
        if not f.header_is_group and name not in index:
            visit(name)
    order = list(families)
    return [sorted(part, key=order.index) for part in out]


def spell(kind, name):
    return f'{kind} {name}'


def wire(kind, families):
    return families[kind].handle if kind in families else kind


def wrapped(kind, families):
    return f'vx::{kind}' if kind in families else kind


def table_part(f, families):
    out = [f'struct {f.table}\n{{\n'
           f'    t_vx_interface* (*generalize)(t_vx_interface* result, void const* table, void* self);\n']
    for m in f.methods:
        kind = wire(m.result, families)
        first = 'void const* table, void* self'
        if m.result in families:
            kind, first = kind + '*', f'{wire(m.result, families)}* result, ' + first
        args = ''.join(', ' + spell(wire(p.type, families), p.name) for p in m.params)
        out.append(f'    {spell(kind, "")}(*{m.name})({first}{args});\n')
    return ''.join(out) + '};\n'


def plain_part(f, families):
    n, h = f.name, f.handle
    out = [f'VX_BINDING_FUNCTIONS({n}, {f.revision})\n']
    for m in f.methods:
        kind = wire(m.result, families)
        params = ''.join(', ' + spell(wire(p.type, families), p.name) for p in m.params)
        args = ''.join(', ' + p.name for p in m.params)
        head = f'VX_LOCAL inline {spell(kind, f.prefix + n + "_" + m.name)}('
        gap = '\n    ' if len(head) + len(h) + len(params) + 3 > WIDTH else ''
        out.append(f'{head}{gap}{h} h{params})\n{{\n')
        if m.result in families:
            out.append(f'    {kind} result;\n    if (h.table && h.self)\n'
                       f'        h.table->{m.name}(&result, h.table, h.self{args});\n    return result;\n')
        elif m.result == 'void':
            out.append(f'    if (h.table && h.self)\n        h.table->{m.name}(h.table, h.self{args});\n')
        else:
            out.append(f'    return h.table && h.self ? h.table->{m.name}(h.table, h.self{args}) : '
                       f'{default_of(m)};\n')
        out.append('}\n')
    return ''.join(out)


def bare_part(f):
    """A family whose slots are not known; methods whose default is known give it, whatever the handle."""
    known = [(default_kind(value), method, value) for value, method in f.defaults]
    out = [f'VX_BINDING_BARE{"_PASSED" if f.passed else ""}({f.name}, {f.revision}']
    out += [',' if known else '']
    out += [f'\n    [[nodiscard]] VX_LOCAL {kind} {method}() const {{ return {value}; }}'
            for kind, method, value in known]
    out += [')\n']
    for kind, method, value in known:
        head = f'[[nodiscard]] VX_LOCAL inline {kind} {f.prefix}{f.name}_{method}('
        gap = '\n    ' if len(head) + len(f.handle) + 1 > WIDTH else ''
        out.append(f'{head}{gap}{f.handle})\n{{ return {value}; }}\n')
    return ''.join(out) + ('\n' if known else '')


def default_kind(value):
    return 'bool' if value in ('true', 'false') else 'double' if '.' in value else 'int'


def default_of(m):
    return m.default or ('nullptr' if m.result.endswith('*') else DEFAULT_OF.get(m.result, '0'))


def sentence(comment, indent):
    return f'{indent}/// {comment[0].upper()}{comment[1:]}.\n' if comment else ''


def wrapper_part(f, families, apart):
    n = f.name
    out = [sentence(f.comment, ''), f'class VX_API {n} : public binding::wrapper<{f.handle}>\n{{\n'
           'public:\n    using wrapper::wrapper;\n']
    late = []
    for m in f.methods:
        out.append(sentence(m.comment, '    '))
        params = ', '.join(spell(wrapped(p.type, families), p.name) for p in m.params)
        call = f'{f.prefix}{n}_{m.name}({", ".join(["f_handle", *(p.name for p in m.params)])});'
        body = f'{{ {"" if m.result == "void" else "return "}{call} }}'
        kind = wrapped(m.result, families)
        if apart:
            out.append(f'    VX_LOCAL {spell(kind, m.name)}({params}) const;\n')
            late.append(f'inline {spell(kind, n + "::" + m.name)}({params}) const\n{body}\n')
        else:
            out.append(f'    VX_LOCAL {spell(kind, m.name)}({params}) const\n    {body}\n')
    return ''.join(out) + '};\n', ''.join(late)


def impl_part(f, families):
    n = f.name
    out = [f'class VX_API {n}_impl\n    : public binding::implementation<{n}_impl, vx::{n}>\n{{\npublic:\n']
    for m in f.methods:
        kind = wrapped(m.result, families)
        params = ', '.join(wrapped(p.type, families) for p in m.params)
        body = '{}' if m.result == 'void' else '{ return {}; }' if m.result in families else \
            f'{{ return {default_of(m)}; }}'
        out.append(f'    virtual {spell(kind, m.name)}({params}) {body}\n')
    out.append(f'    VX_LOCAL static char const* interface_name() {{ return vx_{n}_interface_name; }}\n'
               f'    VX_LOCAL static {f.table} const* family_table();\n'
               f'protected:\n    ~{n}_impl() = default;\n}};\n'
               f'VX_LOCAL inline constexpr {f.table} {n}_family_table{{\n'
               f'    &binding::generalize_slot<{n}_impl>,\n')
    out += [f'    &binding::slot<&{n}_impl::{m.name}>::call,\n' for m in f.methods]
    out.append(f'}};\ninline {f.table} const* {n}_impl::family_table()\n{{ return &{n}_family_table; }}\n')
    return ''.join(out)


def header(part, families, note):
    """The text of one header with the families `part`, in this order."""
    fs = [families[n] for n in part]
    others = dict.fromkeys(families[w].header for f in fs for w in needs(f, families) if w not in part)
    words = set(re.findall(r'\w+', ' '.join(t for f in fs for m in f.methods
                                            for t in [m.result, *(p.type for p in m.params)])))
    used = [t for t in EXTERNAL if t in words]
    outside = sorted({EXTERNAL[t] for t in used if EXTERNAL[t]})
    out = [HEAD, '\n']
    out += [f'#include "{h}"\n' for h in sorted(['extension/binding/interface.h',
                                                 *(f'extension/binding/{h}' for h in others)])]
    out += ['\n'] + [f'#include "{h}"\n' for h in outside] if outside else []
    declared = [t for t in used if not EXTERNAL[t]]
    out += ['\n'] + [f'struct {t};\n' for t in declared] if declared else []
    out.append('\n')
    out.append(f'// {note}\n\n' if note else '')
    if len(fs) == 1 or not fs[0].methods:
        for f in fs:
            if not f.methods:
                out.append(bare_part(f))
                continue
            wrapper, _ = wrapper_part(f, families, False)
            out += [f"VX_BINDING_HANDLE({f.name})\n", table_part(f, families), plain_part(f, families), 'namespace vx\n{\n', wrapper,
                    '' if f.passed else impl_part(f, families), '}\n\n']
        return ''.join(out)
    out += [f"VX_BINDING_HANDLE({f.name})\n" for f in fs] + [table_part(f, families) + '\n' for f in fs]
    out += [plain_part(f, families) + '\n' for f in fs]
    out += ['namespace vx\n{\n'] + [f'class VX_API {f.name};\n' for f in fs] + ['\n']
    parts = [wrapper_part(f, families, True) for f in fs]
    out += [w + '\n' for w, _ in parts] + [late + '\n' for _, late in parts]
    out += ['' if f.passed else impl_part(f, families) + '\n' for f in fs]
    return ''.join(out) + '}\n'


def codes_header(codes):
    """Each enumeration as a type of its own, and beside it as plain numbers, for tables of plain functions."""
    out = [HEAD, '\n// The numbers that cross the component interface beside text and handles. They are fixed.\n\n'
           'namespace vx::codes\n{\n']
    for c in codes:
        out += [sentence(c.comment, ''), f'enum class {c.name} : int\n{{\n']
        out += [f'    {name} = {value},' + (f' ///< {comment}' if comment else '') + '\n'
                for value, name, comment in c.values]
        out.append('};\n\n')
    out.append('}\n\nnamespace vx::codes::plain\n{\n')
    for c in codes:
        out.append(f'enum {c.name} : int\n{{\n')
        out += [f'    {c.prefix}_{name} = {value},\n' for value, name, _ in c.values]
        out.append('};\n\n')
    return ''.join(out) + '}\n'


def tidy(text):
    """The layout of the project for the few forms that are written above, lines up to 110 columns."""
    out = []
    for line in text.split('\n'):
        if len(line) <= WIDTH:
            out.append(line)
            continue
        indent = re.match(r' *', line).group()
        rest, limit = line.strip(), WIDTH
        if rest.startswith('/// '):
            lead = indent + '/// '
            out += textwrap.wrap(rest[4:], WIDTH, initial_indent=lead, subsequent_indent=lead)
            continue
        lead = indent
        while len(lead) + len(rest) > limit:
            cut = rest.rfind(', ', 0, limit - len(lead))
            if cut < 0:
                break
            out.append(lead + rest[:cut + 1])
            rest, lead = rest[cut + 2:], indent + '    '
        out.append(lead + rest)
    return re.sub(r'\n\n\n+', '\n\n', '\n'.join(out)).rstrip('\n') + '\n'


def generate(path):
    families, groups, codes = read(path)
    parts = components(families)
    for f in families.values():
        f.header = f'{f.group}_families.h'
    for part in parts:
        for name in part:
            families[name].header = f'{part[0]}.h'
    files = {'codes.h': tidy(codes_header(codes))}
    for part in parts:
        files[f'{part[0]}.h'] = tidy(header(part, families, ''))
        for name in part[1:]:
            files[f'{name}.h'] = HEAD + f'\n#include "extension/binding/{part[0]}.h"\n'
    bare = collections.defaultdict(list)
    for f in families.values():
        if f.header_is_group:
            bare[f.group].append(f.name)
    for group, names in bare.items():
        note = f'{groups[group]}: families that are known by name only, with slot 0 and no more.'
        files[f'{group}_families.h'] = tidy(header(names, families, note))
    return files


def main():
    root = pathlib.Path(__file__).resolve().parent.parent
    ap = argparse.ArgumentParser()
    ap.add_argument('--out', default=root / 'src/extension/binding', type=pathlib.Path)
    ap.add_argument('--check', action='store_true')
    arg = ap.parse_args()
    try:
        files = generate(root / 'src/extension/binding/families.def')
    except Bad as e:
        print(e)
        return 2
    stale = {p.name for p in arg.out.glob('*.h') if p.read_text().startswith(HEAD)} - set(files)
    changed = sorted(n for n, t in files.items() if not (arg.out / n).exists() or (arg.out / n).read_text() != t)
    if arg.check:
        for n in changed + sorted(stale):
            print(f'{n}: not what families.def says; run tools/generate_binding.py')
        return 1 if changed or stale else 0
    for n in changed:
        (arg.out / n).write_text(files[n])
    for n in stale:
        (arg.out / n).unlink()
    print(f'{len(files)} headers, {len(changed)} changed, {len(stale)} removed')
    return 0


if __name__ == '__main__':
    sys.exit(main())
