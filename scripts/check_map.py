#!/usr/bin/env python3
"""Checks that docs/code-map.md names only what exists, every file of code of more than 150 lines, and files in the order of their paths.

A file is named when it stands in the map, or one that differs from it in its ending alone, as a header does from its source file.
Names without a folder are those of the folder of their row, or of the one around it. Exit status 1 when the map is wrong.
  check_map.py          prints what is wrong
  check_map.py --write  puts the rows in order and adds those that are missing, with what the first comment of a file says; to be read
"""
import fnmatch
import pathlib
import re
import subprocess
import sys

MAP = pathlib.Path('docs/code-map.md')
LINES = 150
# What is read as code: programs, style sheets, lists that programs are made of, and what builds them.
ENDINGS = {'.h', '.cpp', '.def', '.ts', '.mjs', '.js', '.css', '.py', '.sh', '.pl', '.cmake', '.in', '.idl', '.rc', '.pas', '.lpr', ''}
# Made from other files of the project, and inputs of fuzzers.
PASSED_OVER = ('faces/web/src/numbers.ts', 'fuzz/corpus/*', '*LICENSE*', 'VERSION')
HEAD = '| file | what |\n| --- | --- |\n'


def project_files():
    listed = subprocess.run(['git', 'ls-files', '-co', '--exclude-standard'], capture_output=True, text=True, check=True).stdout.splitlines()
    return [name for name in listed if pathlib.Path(name).is_file()]


def is_code(name):
    return pathlib.Path(name).suffix in ENDINGS and not any(fnmatch.fnmatch(name, pattern) for pattern in PASSED_OVER)


class Row:
    """A row of the table of files."""

    def __init__(self, line):
        self.line = line
        cells = line.strip().strip('|').split(' | ', 1)
        self.first = re.findall(r'`([^`]+)`', cells[0])
        self.rest = re.findall(r'`([^`]+)`', cells[1]) if len(cells) > 1 else []

    def path(self):
        return self.first[0] if self.first else ''

    def folder(self):
        return self.path().rpartition('/')[0]

    def names(self):
        """What the row names of files and folders, as (name, the paths that it may stand for)."""
        folder = self.folder()
        around = [folder + '/', folder.rpartition('/')[0] + '/', '']
        for name in self.first:
            yield name, [each + name for each in reversed(around)]
        for name in self.rest:
            if re.fullmatch(r'[\w./*-]+', name) and (re.search(r'\.(?:h|cpp|def|m?js|ts|css|py|sh|pl|in|json|test\.mjs)$', name) or
                                                     ('/' in name and not name.startswith('/'))):
                yield name, [each + name for each in around]


def found(path, files):
    path = path.lstrip('./') if path.startswith('./') else path
    if path.endswith('/'):
        return [name for name in files if name.startswith(path)]
    return [name for name in files if name == path or fnmatch.fnmatchcase(name, path) or name.startswith(path + '/')]


def first_sentence(name):
    """The first sentence of the comment at the beginning of a file, as a row of the map has it."""
    words = []
    for line in pathlib.Path(name).read_text('utf-8', 'replace').splitlines()[:20]:
        if line.startswith('#!'):
            continue
        comment = re.match(r'(?://|#(?!!|include|pragma)|/?\*+|"""|--|%%)\s?(.*)', line.strip())
        if comment and comment.group(1).strip() and not comment.group(1).startswith('shellcheck'):
            words.append(comment.group(1).strip().rstrip('*/').strip())
        elif words or not comment:
            break
    sentence = re.split(r'(?<=\w)\.(?: |$)', ' '.join(words))[0].rstrip('.')
    if re.match(r'A |[A-Z][a-z]+[ ,:](?![A-Z])', sentence):
        sentence = sentence[0].lower() + sentence[1:]
    return sentence.replace('|', ',') or '?'


def main():
    files = project_files()
    text = MAP.read_text('utf-8')
    before, _, table = text.partition(HEAD)
    rows = [Row(line) for line in table.splitlines()]
    wrong = []
    named = set()
    for number, row in enumerate(rows, before.count('\n') + 3):
        for name, paths in row.names():
            here = next((each for each in (found(path, files) for path in paths) if each), [])
            if not here:
                wrong.append('%s:%d: there is no %s' % (MAP, number, name))
            if not name.endswith('/'):
                named.update(str(pathlib.Path(each).with_suffix('')) for each in here)
    for number, line in enumerate(before.splitlines(), 1):
        for name in re.findall(r'^\| `([^`]+)`', line):
            if not found(name, files):
                wrong.append('%s:%d: there is no %s' % (MAP, number, name))
    missing = []
    for name in filter(is_code, files):
        lines = pathlib.Path(name).read_bytes().count(b'\n')
        if lines > LINES and str(pathlib.Path(name).with_suffix('')) not in named:
            header = str(pathlib.Path(name).with_suffix('.h'))
            missing.append(header if header in files else name)
            named.add(str(pathlib.Path(name).with_suffix('')))
            wrong.append('%s: does not name %s, which has %d lines' % (MAP, name, lines))
    in_order = sorted(rows, key=lambda row: row.path())
    for row, other in zip(rows, in_order):
        if row.path() != other.path():
            wrong.append('%s: %s stands where %s belongs, by their paths' % (MAP, row.path(), other.path()))
            break
    if sys.argv[1:] == ['--write']:
        rows += [Row('| `%s` | %s |' % (name, first_sentence(name))) for name in missing]
        rows.sort(key=lambda row: row.path())
        MAP.write_text(before + HEAD + '\n'.join(row.line for row in rows) + '\n', 'utf-8')
        return 0
    for complaint in wrong:
        print(complaint)
    return 1 if wrong else 0


if __name__ == '__main__':
    sys.exit(main())
