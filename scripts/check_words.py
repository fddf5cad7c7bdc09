#!/usr/bin/env python3
"""Looks through all texts of the repository for what nobody wants to read.

Open ends (a reader can't act on them), paths of somebody's machine, blanks at the ends of lines, and last lines without a line
end. Recorded and golden texts count byte for byte and are left out. Exit status 1 when something is found.
"""
import pathlib
import re
import subprocess
import sys

LEFT_OUT = r'^(examples/sessions/|fuzz/corpus/|docs/mutation\.md$)|\.(png|txt|ico|bmp)$|package-lock\.json$'
FOUND = {
    'an open end': re.compile(r'\b(TODO|FIXME|XXX|HACK)\b'),
    "a machine's path": re.compile(r'(?<![\w.])/(home|work|Users)/\w'),
    'a blank at the end': re.compile(r'[ \t]$'),
}
# The words are said where they are looked for and where they are explained.
ABOUT_WORDS = {'scripts/check_words.py', 'CONTRIBUTING.md'}


def main():
    names = subprocess.run(['git', 'ls-files', '-co', '--exclude-standard'],
                           capture_output=True, text=True, check=True).stdout.splitlines()
    broken = []
    for name in names:
        path = pathlib.Path(name)
        if re.search(LEFT_OUT, name) or name in ABOUT_WORDS or not path.is_file():
            continue
        text = path.read_text('utf-8')
        for number, line in enumerate(text.splitlines(), 1):
            for what, pattern in FOUND.items():
                if pattern.search(line):
                    broken.append('%s:%d: %s: %s' % (name, number, what, line.strip()))
        if text and not text.endswith('\n'):
            broken.append('%s: no line end at its end' % name)
    for complaint in broken:
        print(complaint)
    return 1 if broken else 0


if __name__ == '__main__':
    sys.exit(main())
