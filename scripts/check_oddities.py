#!/usr/bin/env python3
"""Counts the remarks that begin with "ODD:" in the logic and compares them with docs/oddities.md.

Each remark has one row there, with its first sentence and the test that proves it; each row has its remark, and its test
exists. Exit status 1 when anything is missing on either side.
"""
import pathlib
import re
import sys

LOGIC = ['surface', 'shell', 'select', 'where', 'statement', 'condition']
LIST = pathlib.Path('docs/oddities.md')


def remarks():
    """Yields file and text, on one line, of each remark."""
    for folder in LOGIC:
        for path in sorted(pathlib.Path(folder).iterdir()):
            comment = None
            for line in path.read_text('utf-8').splitlines() + ['']:
                words = re.match(r'.*?// ?(.*)', line)
                if comment is not None and re.match(r'\s*//', line) and 'ODD:' not in line:
                    comment += ' ' + words.group(1)
                    continue
                if comment is not None:
                    yield str(path), comment
                comment = words.group(1)[len('ODD:'):].strip() if words and words.group(1).startswith('ODD:') else None


def rows():
    """Yields file, first sentence and test of each row."""
    for line in LIST.read_text('utf-8').splitlines():
        row = re.match(r'\| `([^`]+)` \| (.+) \| `(\w+\.\w+)` \|$', line)
        if row:
            yield row.groups()


def tests():
    found = set()
    for path in pathlib.Path('tests').rglob('*_test.cpp'):
        found.update('%s.%s' % test for test in
                     re.findall(r'\bTEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\)', path.read_text('utf-8')))
    return found


def main():
    broken = []
    in_code = list(remarks())
    listed = list(rows())
    known_tests = tests()
    for path, text in in_code:
        matches = [row for row in listed if row[0] == path and text.startswith(row[1])]
        if len(matches) != 1:
            broken.append('%s: "%s" has %d rows in %s' % (path, text, len(matches), LIST))
    for path, sentence, test in listed:
        if not any(path == where and text.startswith(sentence) for where, text in in_code):
            broken.append('%s: no remark in %s begins with "%s"' % (LIST, path, sentence))
        if test not in known_tests:
            broken.append('%s: there is no test %s' % (LIST, test))
    for complaint in broken:
        print(complaint)
    print('%d oddities, %d rows' % (len(in_code), len(listed)))
    return 1 if broken or not in_code else 0


if __name__ == '__main__':
    sys.exit(main())
