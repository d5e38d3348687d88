#!/usr/bin/python3
"""Looks at sources with clang-tidy, each but once for the same text.

    tools/tidy_sources.py BUILD JOBS FILE...

A source that was found clean is passed over until something changes in it, in what it includes, in its
command, in .clang-tidy or in clang-tidy. What is known lies in BUILD/clean, and a run that is stopped is
gone on with by the next one. Findings go to standard output; fails if there are any.
"""

import hashlib
import json
import shlex
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent


def output(command, folder=ROOT):
    return subprocess.run(command, cwd=folder, check=True, stdout=subprocess.PIPE).stdout


def commands(build):
    """What each source is compiled with, some in several programs."""
    known = {}
    for entry in json.loads((build / 'compile_commands.json').read_text()):
        known.setdefault(entry['file'], []).append((entry['directory'], entry['command']))
    return known


def text(folder, command):
    """What clang-tidy reads: comments too, since they may silence a check, and the directives, which
    the preprocessor leaves out but for these."""
    words = shlex.split(command)
    out = words.index('-o')
    words = [word for word in words[:out] + words[out + 2:] if word != '-c']
    return output(words + ['-E', '-CC', '-dD', '-dI', '-w'], folder)


def fingerprint(settings, source, compiled):
    told = hashlib.sha256(settings + Path(source).read_bytes())
    for folder, command in compiled:
        told.update(command.encode())
        told.update(text(folder, command))
    return told.hexdigest()


def look(build, settings, source, compiled):
    """What clang-tidy finds in it, or why it could not look."""
    try:
        clean = build / 'clean' / fingerprint(settings, source, compiled)
    except subprocess.CalledProcessError:
        return f'{source}:1:1: error: does not compile\n'
    if clean.exists():
        return ''
    run = subprocess.run(['clang-tidy', '-quiet', '-p', build, source], stdout=subprocess.PIPE,
                         stderr=subprocess.PIPE, text=True)
    if run.returncode == 0 and not run.stdout.strip():
        clean.write_text(source + '\n')
        return ''
    return run.stdout or f'{source}:1:1: error: {run.stderr}\n'


def main():
    build, jobs, sources = Path(sys.argv[1]), int(sys.argv[2]), sys.argv[3:]
    (build / 'clean').mkdir(exist_ok=True)
    settings = output(['clang-tidy', '--version'])
    for rules in (ROOT / '.clang-tidy', ROOT / 'tests' / '.clang-tidy'):
        settings += rules.read_bytes()
    known = commands(build)
    failed = False
    with ThreadPoolExecutor(jobs) as threads:
        found = threads.map(lambda source: look(build, settings, source, known[source]), sources)
        for findings in found:
            print(findings, end='', flush=True)
            failed = failed or bool(findings)
    sys.exit(failed)


if __name__ == '__main__':
    main()
