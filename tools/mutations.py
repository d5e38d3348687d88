#!/usr/bin/python3
"""Changes the program in one small place at a time and tells which changes no test notices.

    tools/mutations.py LAYER... [--changes N] [--seed N] [--only FILE...] [--at PLACE...] [--again]
                       [--jobs N] [--build DIR] [--report FILE]

The sources stay as they are: a changed copy is compiled, and the layer's test program is linked with
its object in front of the layer's library, so that two processes serve and the tree can be worked on.
The build folder has to be configured with tests; the test program is built first.

Of all changes that a layer allows, N are taken (20; 0 for all), by chance, but evenly over the kinds
of change and over the sources, and the same for the same seed. Each result is written to the report
as it comes; a run that finds results there of a run before goes on behind them. --at tries single
ones, named as in the report: file:line:column:kind; --again those that the report calls missed.

A change is caught when a test program of its layer fails or crashes twice running, or does not end
within ten times its usual time. The report tells by which test. One that does not compile or link
counts as neither. The program runs as often as CTest runs it, on each of its screens. The tests of
the source's own name, and those that have caught a change in it before, come first.
"""

import argparse
import collections
import hashlib
import json
import os
import pickle
import random
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import threading
import time
from concurrent.futures import ThreadPoolExecutor
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

    def group(self):
        """The sort of change: removed, exchanged, if-not, a number, a bool, an operator."""
        first = self.kind.split('->')[0]
        if first == self.kind:
            return first
        return 'bool' if first in ('true', 'false') else 'number' if first[0].isdigit() else 'turned'


def arguments_of(build):
    """What the compiler is called with, by source file, as far as the parser understands it."""
    arguments = {}
    for entry in json.loads((build / 'compile_commands.json').read_text()):
        words = shlex.split(entry['command'])
        # What stands before the first option of the compiler's is ccache and the like.
        words = words[next(i for i, word in enumerate(words) if word[:2] in ('-D', '-I')):]
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


class Process:
    """What a command wrote and how it ended."""

    def __init__(self, command, limit=None, variables=None):
        environment = {**os.environ, 'QT_QPA_PLATFORM': 'offscreen', **(variables or {})}
        with subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              stdin=subprocess.DEVNULL, env=environment, cwd=ROOT,
                              start_new_session=True) as process:
            self.in_time = True
            try:
                output, _ = process.communicate(timeout=limit)
            except subprocess.TimeoutExpired:
                self.in_time = False
                os.killpg(process.pid, 9)
                output, _ = process.communicate()
            self.well = self.in_time and process.returncode == 0
        self.output = output.decode(errors='replace')

    def failed_test(self):
        """The one that failed, or was running at the crash or the deadline."""
        found = re.findall(r'^\[  FAILED  \] (\S+?),? ', self.output + ' ', re.MULTILINE) or \
            re.findall(r'^\[ RUN      \] (\S+)', self.output, re.MULTILINE)[-1:]
        return found[0] if found else ''


def temporary_folder():
    """In memory where there is such a place: half of some tests is waiting for the disk."""
    memory = Path('/dev/shm')
    return tempfile.TemporaryDirectory(dir=memory if os.access(memory, os.W_OK) else None)


class Run:
    """One of CTest's runs of a test program, on a screen of its own or the usual one."""

    def __init__(self, program, test):
        words = test['command'][1:]
        only = [word.split('=', 1)[1] for word in words if word.startswith('--gtest_filter=')]
        self.program, self.only = program, only[0] if only else '*'
        properties = {one['name']: one['value'] for one in test['properties']}
        self.variables = dict(one.split('=', 1) for one in properties.get('ENVIRONMENT', []))

    def process(self, file, limit=None, only=None):
        with temporary_folder() as temporary:
            return Process([str(file), '--gtest_fail_fast', '--gtest_color=no',
                            f'--gtest_filter={only or self.only}'],
                           limit, dict(self.variables, TMPDIR=temporary))

    def without(self, tests):
        """The run's filter without some tests."""
        if not tests:
            return self.only
        return self.only + (':' if '-' in self.only else '-') + ':'.join(sorted(tests))

    def failing_test(self, file, limit, only=None):
        # A failure may have come from something else on the machine: it has to come again.
        for _ in range(3):
            whole = self.process(file, limit, only)
            if whole.well:
                return ''
            test = whole.failed_test() or 'start'
            if not whole.in_time:
                return test + ' does not end'
            if not self.process(file, limit, None if test == 'start' else test).well:
                return test
        return ''


class Program:
    """A test program, and how to make it with one object changed."""

    def __init__(self, name, build):
        self.name, self.build = name, build
        if not Process(['ninja', '-C', str(build), name]).well:
            sys.exit(f'{name} does not build as it is')
        steps = Process(['ninja', '-C', str(build), '-t', 'commands', name]).output.splitlines()
        self.link = next(step for step in reversed(steps) if f' -o {name} ' in step)
        if shutil.which('ld.lld'):
            self.link = self.link.replace(f' -o {name} ', f' -fuse-ld=lld -o {name} ', 1)
        listed = Process(['ctest', '--test-dir', str(build), '--show-only=json-v1']).output
        tests = json.loads(listed[listed.index('{'):])['tests']
        self.runs = [Run(self, test) for test in tests
                     if test.get('command', [''])[0] == str(build / name)]
        begin = time.monotonic()
        for run in self.runs:
            whole = run.process(build / name)
            if not whole.well:
                sys.exit(f'{name} fails as it is: {whole.failed_test()}')
        self.limit = 30 + 10 * (time.monotonic() - begin)
        self.tests_of = self.tests_by_source()

    def tests_by_source(self):
        """The names of the tests in each file, by the name that it shares with a source."""
        tests_of = collections.defaultdict(set)
        with tempfile.NamedTemporaryFile() as listing:
            Process([str(self.build / self.name), '--gtest_list_tests',
                     f'--gtest_output=json:{listing.name}'])
            for suite in json.load(listing)['testsuites']:
                for test in suite['testsuite']:
                    stem = Path(test['file']).stem.removesuffix('_test')
                    tests_of[stem].add(f'{suite["name"]}.{test["name"]}')
        return tests_of

    def linked(self, changed, folder):
        """With the changed object before the libraries, whose own one is left out for that. Beside
        the other programs, since some tests look there for what they need; nothing on failure."""
        file = self.build / f'{self.name}_{folder.name}'
        command = self.link.replace(f' -o {self.name} ', f' -o {file} {changed} ', 1)
        made = Process(['sh', '-c', f'cd {shlex.quote(str(self.build))} && {command}'])
        return file if made.well else None

    def caught(self, changed, folder, source):
        """By which test; empty where none does, nothing where there is no program."""
        file = self.linked(changed, folder)
        if not file:
            return None
        try:
            test = self.failing_test(file, self.tests_of[source])
        finally:
            file.unlink()
        if re.fullmatch(r'[\w/]+\.[\w/]+', test):
            self.tests_of[source].add(test)
        return test

    def failing_test(self, file, likely):
        first, likely = self.runs[0], set(likely)
        test = likely and first.failing_test(file, self.limit, ':'.join(sorted(likely)))
        test = test or first.failing_test(file, self.limit, first.without(likely))
        for run in self.runs[1:]:
            test = test or run.failing_test(file, self.limit)
        return test


class Trial:
    """Builds and tests one layer."""

    def __init__(self, layer, build):
        self.build = build
        self.programs = [Program(name, build) for name in TESTS[layer]]
        self.commands = {Path(entry['file']): entry for entry in
                         json.loads((build / 'compile_commands.json').read_text())}
        unchanged = next(file for file in self.commands
                         if ROOT / 'src' / layer in file.parents)
        if self.verdict(unchanged, unchanged.read_bytes())[0] != 'missed':
            sys.exit(f'{layer}: the tests fail with an unchanged copy of {unchanged}')

    def verdict(self, file, content):
        folder = self.build / f'changed{threading.get_ident()}'
        folder.mkdir(exist_ok=True)
        try:
            changed = self.compiled(file, content, folder)
            tests = [changed and program.caught(changed, folder, file.stem)
                     for program in self.programs]
        finally:
            shutil.rmtree(folder)
        if None in tests:
            return 'no program', ''
        test = next(filter(None, tests), '')
        return ('caught' if test else 'missed'), test

    def compiled(self, file, content, folder):
        """The object, or nothing. Names left unused are no errors here."""
        source, target = folder / file.name, folder / 'changed.o'
        source.write_bytes(content)
        words = shlex.split(self.commands[file]['command'])
        words[words.index('-o') + 1] = str(target)
        words[words.index('-c') + 1] = str(source)
        words.append('-Wno-error')
        return target if Process(['sh', '-c', f'cd {shlex.quote(str(self.build))} && '
                                  + shlex.join(words)]).well else None


def changes_of(layer, build, only):
    arguments = arguments_of(build)
    changes = []
    for file in sorted((ROOT / 'src' / layer).rglob('*.cpp')):
        if file in arguments and (not only or file.name in only):
            changes += changes_in(file, arguments[file], build)
    return changes


def changes_in(file, arguments, build):
    """As found before in the same source, since to read its headers takes a second or two."""
    key = hashlib.sha1(str(file).encode() + Path(__file__).read_bytes() + file.read_bytes())
    found = build / 'mutations' / key.hexdigest()
    if not found.exists():
        found.parent.mkdir(exist_ok=True)
        found.write_bytes(pickle.dumps(Finder(file, arguments).changes))
    return pickle.loads(found.read_bytes())


def spread(changes, seed, number):
    """By chance, each time of the kind and then of the source that has had fewest."""
    waiting = sorted(changes, key=Change.name)
    random.Random(seed).shuffle(waiting)
    groups, files, taken = collections.Counter(), collections.Counter(), []
    while waiting and (not number or len(taken) < number):
        change = min(waiting, key=lambda one: (groups[one.group()], files[one.file]))
        waiting.remove(change)
        groups[change.group()] += 1
        files[change.file] += 1
        taken.append(change)
    return taken


def known(report):
    """The last verdict of each change that a report names."""
    verdicts = {}
    for line in report.read_text().splitlines() if report and report.exists() else []:
        found = re.match(r'(caught|missed|no program) +(src/\S+)', line)
        if found:
            verdicts[found[2]] = found[1]
    return verdicts


def chosen(changes, options, before):
    if options.at:
        return [change for change in changes if change.name() in options.at]
    if options.again:
        return [change for change in changes if before.get(change.name()) == 'missed']
    return [change for change in spread(changes, options.seed, options.changes)
            if before.get(change.name()) not in ('caught', 'missed')]


def examine(layer, options):
    def tell(line):
        print(line, flush=True)
        if options.report:
            with options.report.open('a') as report:
                report.write(line + '\n')

    changes = changes_of(layer, options.build, options.only)
    todo = chosen(changes, options, known(options.report))
    trial = Trial(layer, options.build)

    def tried(change):
        whole = change.file.read_bytes()
        content = whole[:change.begin] + change.text + whole[change.end:]
        verdict, test = trial.verdict(change.file, content)
        tell(f'{verdict:10} {change.name()} {test}'.rstrip())
        return change.name(), verdict

    with ThreadPoolExecutor(options.jobs) as pool:
        verdicts = dict(pool.map(tried, todo))
    verdicts.update(known(options.report))
    counts = collections.Counter(verdict for name, verdict in verdicts.items()
                                 if name.startswith(f'src/{layer}/'))
    tell(f'{layer}: {counts["caught"]} of {counts["caught"] + counts["missed"]} caught, seed '
         f'{options.seed}, of {len(changes)} that there are; {counts["no program"]} were no program')


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument('layers', nargs='+', choices=sorted(TESTS), metavar='LAYER')
    parser.add_argument('--changes', type=int, default=20)
    parser.add_argument('--seed', type=int, default=1)
    parser.add_argument('--only', nargs='*', default=[])
    parser.add_argument('--at', nargs='*', default=[])
    parser.add_argument('--again', action='store_true')
    parser.add_argument('--jobs', type=int, default=1)
    parser.add_argument('--build', type=Path, default=ROOT / 'build' / 'release')
    parser.add_argument('--report', type=Path)
    options = parser.parse_args()
    options.build = options.build.resolve()
    for layer in options.layers:
        examine(layer, options)


if __name__ == '__main__':
    main()
