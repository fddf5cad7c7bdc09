#!/usr/bin/env python3
"""Checks which file includes which, and that the logic keeps to what all its compilers have.

Arrows point one way: surface knows nobody, shell knows surface, the four feature folders know shell and surface and never each
other; faces and hosts know the public headers of surface and shell. Exit status 1 when a file breaks a rule.
"""
import pathlib
import re
import subprocess
import sys

LOGIC = ['surface', 'shell', 'select', 'where', 'statement', 'condition']
MAY_INCLUDE = {
    'surface': ['surface'],
    'shell': ['surface', 'shell'],
    'select': ['surface', 'shell', 'select'],
    'where': ['surface', 'shell', 'where'],
    'statement': ['surface', 'shell', 'statement'],
    'condition': ['surface', 'shell', 'condition'],
    'hosts': ['surface', 'shell', 'hosts', 'faces'],
    'faces': ['surface', 'shell', 'faces'],
}
# Made from the type library's source, for Windows programs.
MADE = 'ZOLT20MappingCtrl.h'
# Headers of the standard library that GCC 12, MinGW GCC 12 and libc++ 13 all have.
STANDARD = set('''algorithm array bit cassert cctype charconv cmath compare concepts cstddef cstdint cstdio cstdlib cstring
    exception functional initializer_list iterator limits map memory new numeric optional set span stdexcept string
    string_view tuple type_traits unordered_map unordered_set utility variant vector'''.split())
# What one of them does not have.
ABSENT = [
    r'std::format\b', r'std::bit_cast\b', r'std::source_location\b', r'\bco_(await|yield|return)\b', r'std::pmr\b',
    r'std::ranges::(sort|find)\b', r'std::views::(filter|transform)\b', r'#\s*if.*\b(_WIN32|__linux__|__APPLE__|__EMSCRIPTEN__)\b',
    r'\bcatch \((?!\.\.\.\))',
]


def main():
    files = subprocess.run(['git', 'ls-files', '-co', '--exclude-standard', '*.h', '*.cpp', '*.def'],
                           capture_output=True, text=True, check=True).stdout.split()
    broken = []
    for name in files:
        folder = name.split('/')[0]
        text = pathlib.Path(name).read_text('utf-8')
        for number, line in enumerate(text.splitlines(), 1):
            where = '%s:%d' % (name, number)
            ours = re.match(r'#\s*include "([^"]+)"', line)
            if ours and ours.group(1) == MADE:
                ours = None
            if ours and folder in MAY_INCLUDE and ours.group(1).split('/')[0] not in MAY_INCLUDE[folder]:
                broken.append('%s includes %s' % (where, ours.group(1)))
            if ours and not pathlib.Path(ours.group(1)).is_file():
                broken.append('%s includes %s, which is no path from the root' % (where, ours.group(1)))
            if folder in LOGIC:
                standard = re.match(r'#\s*include <([^>]+)>', line)
                if standard and standard.group(1) not in STANDARD:
                    broken.append('%s includes <%s>' % (where, standard.group(1)))
                for pattern in ABSENT:
                    if re.search(pattern, line):
                        broken.append('%s: %s' % (where, line.strip()))
        if name.endswith('.h') and '#pragma once' not in text:
            broken.append('%s has no include guard' % name)
    for complaint in broken:
        print(complaint)
    return 1 if broken else 0


if __name__ == '__main__':
    sys.exit(main())
