#!/usr/bin/env python3
"""Takes the branches that the compiler makes for exceptions passing by out of a report of gcovr's in JSON.

gcovr can do so itself, one object file after the other. But gcov knows such a branch only where the function ran, and of
an inline function the linker keeps one copy, so the copies in the other files would come out as branches missed. In the
merged report a branch is known by any of its copies.
"""
import json
import sys


def main():
    report = json.load(sys.stdin)
    for file in report['files']:
        for line in file['lines']:
            line['branches'] = [branch for branch in line['branches'] if not branch['throw']]
    json.dump(report, sys.stdout)


if __name__ == '__main__':
    main()
