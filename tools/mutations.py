#!/usr/bin/python3
"""Changes the program in one small place at a time and tells which changes no test notices.

    tools/mutations.py LAYER... [--changes N] [--seed N] [--only FILE...] [--at PLACE...]
                       [--build DIR] [--report FILE]

Works on the tree that it lies in, which has to be clean and built with tests, and puts each file
back; a run that is killed leaves its change to `git checkout src`. Of all changes that a layer
allows, N are taken by chance (20; 0 for all), the same for the same seed. --at repeats single ones,
named as in the report: file:line:column:kind.

A change is caught when a test program of its layer fails, crashes or does not end within ten times
its usual time. One that does not compile counts for nothing.
"""

import argparse
import json
import os
import random
import re
import shlex
import subprocess
import sys
import time
from dataclasses import dataclass
from pathlib import Path

from clang import cindex
from clang.cindex import CursorKind

ROOT = Path(__file__).resolve().parent.parent

# The tests of a layer are its own program, and those of a layer above that drive it whole.
TESTS = {
    'core': ['test_core'],
    'music': ['test_music'],
    'browse': ['test_browse'],
    'albums': ['test_albums'],
    'webalbum': ['test_webalbum'],
    'player': ['test_player'],
    'imaging': ['test_imaging'],
    'shell': ['test_shell'],
    'platform': ['test_platform'],
    'controls': ['test_controls'],
    'ui': ['test_ui'],
    'calls': ['test_calls'],
}

TURNED = {
    '==': '!=', '!=': '==', '<': '<=', '<=': '<', '>': '>=', '>=': '>',
    '&&': '||', '||': '&&', '+': '-', '-': '+', '*': '/', '+=': '-=', '-=': '+=',
}


@dataclass(frozen=True)
class Change:
    file: Path
    line: int
    column: int
    kind: str
    begin: int  # bytes from the start of the file
    end: int
    text: bytes

    def name(self):
        return f'{self.file.relative_to(ROOT)}:{self.line}:{self.column}:{self.kind}'


def arguments_of(build):
    """What the compiler is called with, by source file, as far as the parser understands it."""
    arguments = {}
    for entry in json.loads((build / 'compile_commands.json').read_text()):
        words = shlex.split(entry['command'])[1:]
        kept, skip = [], False
        for word in words:
            if skip:
                skip = False
            elif word in ('-o', '-c', '-include'):
                # The precompiled header is the other compiler's, and the sources do without.
                skip = True
            elif not word.startswith(('-W', '-O', '-fstack')):
                kept.append(word)
        arguments.setdefault(Path(entry['file']), kept)
    return arguments


def is_statement_call(cursor):
    """A call whose result nobody takes."""
    while cursor.kind == CursorKind.UNEXPOSED_EXPR:
        inner = list(cursor.get_children())
        if len(inner) != 1:
            return False
        cursor = inner[0]
    return cursor.kind == CursorKind.CALL_EXPR and cursor.spelling != 'operator='


def span(cursor, content):
    """Of a statement with its semicolon; nothing where a macro made it."""
    begin, end = cursor.extent.start.offset, cursor.extent.end.offset
    rest = re.match(rb'\s*;', content[end:])
    if begin >= end or not rest:
        return None
    return begin, end + rest.end()


def operator_of(cursor, content):
    """The operator's own token, which stands between the two operands."""
    operands = list(cursor.get_children())
    if len(operands) != 2:
        return None
    begin, end = operands[0].extent.end.offset, operands[1].extent.start.offset
    found = re.fullmatch(rb'\s*(\S+)\s*', content[begin:end])
    return (begin + found.start(1), begin + found.end(1)) if found else None


class Finder:
    """All changes of one source file."""

    def __init__(self, file, arguments):
        self.file = file
        self.content = file.read_bytes()
        self.changes = []
        unit = cindex.Index.create().parse(str(file), args=arguments)
        for problem in unit.diagnostics:
            if problem.severity >= cindex.Diagnostic.Error:
                sys.exit(f'{file}: {problem.spelling}')
        for cursor in unit.cursor.get_children():
            if cursor.location.file and Path(cursor.location.file.name) == file:
                self.visit(cursor)

    def add(self, kind, begin, end, text):
        before = self.content[:begin]
        line, column = before.count(b'\n') + 1, begin - before.rfind(b'\n')
        self.changes.append(Change(self.file, line, column, kind, begin, end, text))

    def visit(self, cursor):
        if cursor.kind == CursorKind.BINARY_OPERATOR or \
                cursor.kind == CursorKind.COMPOUND_ASSIGNMENT_OPERATOR:
            self.turn(cursor)
        elif cursor.kind == CursorKind.INTEGER_LITERAL:
            self.one_more(cursor)
        elif cursor.kind == CursorKind.CXX_BOOL_LITERAL_EXPR:
            self.other_bool(cursor)
        elif cursor.kind == CursorKind.COMPOUND_STMT:
            self.statements(list(cursor.get_children()))
        elif cursor.kind == CursorKind.IF_STMT:
            self.condition(cursor)
        for child in cursor.get_children():
            self.visit(child)

    def turn(self, cursor):
        place = operator_of(cursor, self.content)
        if place:
            sign = self.content[place[0]:place[1]].decode()
            if sign in TURNED:
                self.add(f'{sign}->{TURNED[sign]}', *place, TURNED[sign].encode())

    def one_more(self, cursor):
        begin, end = cursor.extent.start.offset, cursor.extent.end.offset
        number = self.content[begin:end]
        if re.fullmatch(rb"[\d']+", number):
            more = int(number.replace(b"'", b'')) + 1
            self.add(f'{number.decode()}->{more}', begin, end, str(more).encode())

    def other_bool(self, cursor):
        begin, end = cursor.extent.start.offset, cursor.extent.end.offset
        word = self.content[begin:end]
        other = {b'true': b'false', b'false': b'true'}.get(word)
        if other:
            self.add(f'{word.decode()}->{other.decode()}', begin, end, other)

    def condition(self, cursor):
        """The condition is the part before the statement; one with a declaration stays."""
        parts = list(cursor.get_children())
        if parts and parts[0].kind != CursorKind.DECL_STMT:
            begin, end = parts[0].extent.start.offset, parts[0].extent.end.offset
            text = self.content[begin:end]
            if begin < end and b' = ' not in text and b';' not in text:
                self.add('if-not', begin, end, b'!(' + text + b')')

    def statements(self, all_statements):
        before = None
        for statement in all_statements:
            place = span(statement, self.content) if is_statement_call(statement) else None
            if place:
                self.add('removed', *place, b';')
                if before:
                    gap = self.content[before[1]:place[0]]
                    swapped = self.content[slice(*place)] + gap + self.content[slice(*before)]
                    self.add('exchanged', before[0], place[1], swapped)
            before = place


def run(command, limit=None):
    """The exit code; None beyond the limit, which is in seconds."""
    environment = dict(os.environ, QT_QPA_PLATFORM='offscreen')
    with subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                          stdin=subprocess.DEVNULL, env=environment, cwd=ROOT,
                          start_new_session=True) as process:
        try:
            return process.wait(limit)
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, 9)
            return None


class Trial:
    """Builds and tests one layer."""

    def __init__(self, layer, build):
        self.build, self.programs = build, TESTS[layer]
        if not self.builds():
            sys.exit(f'{layer}: the tree does not build as it is')
        begin = time.monotonic()
        if not self.passes(limit=None):
            sys.exit(f'{layer}: its tests fail as it is')
        self.limit = 30 + 10 * (time.monotonic() - begin)

    def builds(self):
        return run(['ninja', '-C', str(self.build), *self.programs]) == 0

    def passes(self, limit):
        return all(run([str(self.build / program), '--gtest_fail_fast', '--gtest_brief=1'],
                       limit) == 0 for program in self.programs)

    def verdict(self, change):
        whole = change.file.read_bytes()
        try:
            change.file.write_bytes(whole[:change.begin] + change.text + whole[change.end:])
            if not self.builds():
                return 'no program'
            return 'missed' if self.passes(self.limit) else 'caught'
        finally:
            change.file.write_bytes(whole)


def changes_of(layer, build, only):
    arguments = arguments_of(build)
    changes = []
    for file in sorted((ROOT / 'src' / layer).rglob('*.cpp')):
        if file in arguments and (not only or file.name in only):
            changes += Finder(file, arguments[file]).changes
    return changes


def chosen(changes, options):
    if options.at:
        return [change for change in changes if change.name() in options.at]
    if options.changes and options.changes < len(changes):
        return random.Random(options.seed).sample(changes, options.changes)
    return changes


def examine(layer, options, report):
    changes = changes_of(layer, options.build, options.only)
    trial = Trial(layer, options.build)
    counts = {'caught': 0, 'missed': 0, 'no program': 0}
    for change in chosen(changes, options):
        verdict = trial.verdict(change)
        counts[verdict] += 1
        print(f'{verdict:10} {change.name()}', file=report, flush=True)
    tried = counts['caught'] + counts['missed']
    print(f'{layer}: {counts["caught"]} of {tried} caught, of {len(changes)} that there are; '
          f'{counts["no program"]} were no program', file=report, flush=True)
    trial.builds()


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument('layers', nargs='+', choices=sorted(TESTS), metavar='LAYER')
    parser.add_argument('--changes', type=int, default=20)
    parser.add_argument('--seed', type=int, default=1)
    parser.add_argument('--only', nargs='*', default=[])
    parser.add_argument('--at', nargs='*', default=[])
    parser.add_argument('--build', type=Path, default=ROOT / 'build' / 'release')
    parser.add_argument('--report', type=argparse.FileType('a'), default=sys.stdout)
    options = parser.parse_args()
    if subprocess.run(['git', 'diff', '--quiet', '--', 'src'], cwd=ROOT, check=False).returncode:
        sys.exit('the tree has changes of its own')
    for layer in options.layers:
        examine(layer, options, options.report)


if __name__ == '__main__':
    main()
