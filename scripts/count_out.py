#!/usr/bin/env python3
"""Takes out of a report of gcovr's in JSON what no test can run: standard input to standard output.

Branches that the compiler makes for exceptions passing by go. gcovr can leave them out itself, one object file after the other.
But gcov knows such a branch only where the function ran, and of an inline function the linker keeps one copy, so the copies in the
other files would come out as branches missed. In the merged report a branch is known by any of its copies.

So do the lines and branches of a list, which tells a reason for each:

    branches FILE                 or "lines FILE"
        the line, or several      indented by four blanks; just as they stand in the file, but for blanks at both ends, and once there
      the reason                  indented by two

An entry that finds no place, or more than one, or a place that the tests run as a whole, is an error.

    count_out.py LIST <REPORT >REPORT
"""
import json
import sys
from pathlib import Path


class Entry:
    def __init__(self, what, file):
        self.what = what
        self.file = file
        self.lines = []
        self.reason = []

    def __str__(self):
        return '%s %s: %s' % (self.what, self.file, ' '.join(self.lines))


def entries_of(text):
    entries = []
    for number, line in enumerate(text.splitlines(), 1):
        if not line.strip() or line.startswith('#'):
            continue
        words = line.split()
        if line.startswith('    ') and entries and not entries[-1].reason:
            entries[-1].lines.append(line.strip())
        elif line.startswith('  ') and entries and entries[-1].lines:
            entries[-1].reason.append(line.strip())
        elif len(words) == 2 and words[0] in ('lines', 'branches'):
            entries.append(Entry(*words))
        else:
            raise ValueError('line %d is not understood: %s' % (number, line))
    for entry in entries:
        if not entry.reason:
            raise ValueError('there is no reason: %s' % entry)
    return entries


def place_of(entry):
    """The numbers of the lines, from 1."""
    lines = [line.strip() for line in Path(entry.file).read_text().splitlines()]
    count = len(entry.lines)
    starts = [at for at in range(len(lines) - count + 1) if lines[at:at + count] == entry.lines]
    if len(starts) != 1:
        raise ValueError('%d places: %s' % (len(starts), entry))
    return range(starts[0] + 1, starts[0] + count + 1)


def take_out(entry, report):
    place = place_of(entry)
    files = [file for file in report['files'] if file['file'] == entry.file]
    if not files:
        raise ValueError('not in the report: %s' % entry)
    lines = [line for line in files[0]['lines'] if line['line_number'] in place]
    if entry.what == 'lines':
        missed = [line for line in lines if line['count'] == 0]
        files[0]['lines'] = [line for line in files[0]['lines'] if line not in missed]
    else:
        missed = [line for line in lines if any(branch['count'] == 0 for branch in line['branches'])]
        for line in missed:
            line['branches'] = []
    if not missed:
        raise ValueError('the tests run it: %s' % entry)


def main():
    report = json.load(sys.stdin)
    for file in report['files']:
        for line in file['lines']:
            line['branches'] = [branch for branch in line['branches'] if not branch['throw']]
    try:
        for entry in entries_of(Path(sys.argv[1]).read_text()):
            take_out(entry, report)
    except ValueError as error:
        sys.exit('%s: %s' % (sys.argv[1], error))
    json.dump(report, sys.stdout)


if __name__ == '__main__':
    main()
