#!/usr/bin/env python3
"""Checks which file includes which, and that the logic keeps to what all its compilers have.

Arrows point one way: surface knows nobody, shell knows surface, the four feature folders know shell and surface and never each
other; faces, hosts and language know the public headers of surface and shell, and hosts and the face for the web know language. No face knows another one, only what they share, and no two
files include each other in a circle, across other files neither. Exit status 1 when a file breaks a rule.
"""
import pathlib
import re
import subprocess
import sys

LOGIC = ['surface', 'shell', 'select', 'where', 'statement', 'condition']
# What keeps to the standard library of all compilers.
PLAIN = LOGIC + ['language']
MAY_INCLUDE = {
    'surface': ['surface'],
    'shell': ['surface', 'shell'],
    'select': ['surface', 'shell', 'select'],
    'where': ['surface', 'shell', 'where'],
    'statement': ['surface', 'shell', 'statement'],
    'condition': ['surface', 'shell', 'condition'],
    'language': ['surface', 'shell', 'language'],
    'hosts': ['surface', 'shell', 'language', 'hosts', 'faces'],
    'faces': ['surface', 'shell', 'faces'],
}
# The face for the web gives scripts the statement language as well.
MAY_INCLUDE_TOO = {'faces/web/': 'language'}
# Within the Windows control: its windows know nothing of the COM object that has them.
NEVER_INCLUDES = {'faces/com/form/': 'faces/com/control/'}
# Made from the sources of the type libraries, for Windows programs.
MADE = ('ZOLT20MappingCtrl.h', 'ZOLT21TextBox.h')
# Headers of the standard library that GCC 12, MinGW GCC 12 and libc++ 13 all have.
STANDARD = set('''algorithm array bit cassert cctype charconv cmath compare concepts cstddef cstdint cstdio cstdlib cstring
    exception functional initializer_list iterator limits map memory new numeric optional set span stdexcept string
    string_view tuple type_traits unordered_map unordered_set utility variant vector'''.split())
# GCC 12 with sanitizers warns of each expression that <regex> makes; Qt's and the C library's serve.
NOWHERE = ['regex']
# What one of them does not have.
ABSENT = [
    r'std::format\b', r'std::bit_cast\b', r'std::source_location\b', r'\bco_(await|yield|return)\b', r'std::pmr\b',
    r'std::ranges::(sort|find)\b', r'std::views::(filter|transform)\b', r'#\s*if.*\b(_WIN32|__linux__|__APPLE__|__EMSCRIPTEN__)\b',
    r'\bcatch \((?!\.\.\.\))',
]


def circle(includes):
    """A circle of files, each of which includes the next; None when there is none.

    includes: for each file the files of the project that it includes.
    """
    done = set()
    for start in sorted(includes):
        way = []
        open_ends = [(start, iter(includes[start]))]
        while open_ends:
            name, rest = open_ends[-1]
            if len(way) < len(open_ends):
                way.append(name)
            following = next(rest, None)
            if following is None:
                done.add(name)
                open_ends.pop()
                way.pop()
            elif following in way:
                return way[way.index(following):] + [following]
            elif following not in done and following in includes:
                open_ends.append((following, iter(includes[following])))
    return None


def face_of(name):
    """The face that a file belongs to; None for what the faces share and for all else."""
    parts = name.split('/')
    return parts[1] if parts[0] == 'faces' and len(parts) > 2 and parts[1] != 'shared' else None


def main():
    includes = {}
    files = subprocess.run(['git', 'ls-files', '-co', '--exclude-standard', '*.h', '*.cpp', '*.def'],
                           capture_output=True, text=True, check=True).stdout.split()
    broken = []
    for name in files:
        includes[name] = []
        folder = name.split('/')[0]
        text = pathlib.Path(name).read_text('utf-8')
        for number, line in enumerate(text.splitlines(), 1):
            where = '%s:%d' % (name, number)
            ours = re.match(r'#\s*include "([^"]+)"', line)
            if ours and ours.group(1) in MADE:
                ours = None
            may = MAY_INCLUDE.get(folder, [])
            may = may + [other for inside, other in MAY_INCLUDE_TOO.items() if name.startswith(inside)]
            if ours and folder in MAY_INCLUDE and ours.group(1).split('/')[0] not in may:
                broken.append('%s includes %s' % (where, ours.group(1)))
            if ours:
                includes[name].append(ours.group(1))
            if ours and folder == 'faces' and face_of(ours.group(1)) not in (None, face_of(name)):
                broken.append('%s includes %s, another face' % (where, ours.group(1)))
            for inside, outside in NEVER_INCLUDES.items():
                if ours and name.startswith(inside) and ours.group(1).startswith(outside):
                    broken.append('%s includes %s' % (where, ours.group(1)))
            if ours and not pathlib.Path(ours.group(1)).is_file():
                broken.append('%s includes %s, which is no path from the root' % (where, ours.group(1)))
            standard = re.match(r'#\s*include <([^>]+)>', line)
            if standard and standard.group(1) in NOWHERE:
                broken.append('%s includes <%s>' % (where, standard.group(1)))
            if folder in PLAIN:
                if standard and standard.group(1) not in STANDARD:
                    broken.append('%s includes <%s>' % (where, standard.group(1)))
                for pattern in ABSENT:
                    if re.search(pattern, line):
                        broken.append('%s: %s' % (where, line.strip()))
        if name.endswith('.h') and '#pragma once' not in text:
            broken.append('%s has no include guard' % name)
    around = circle(includes)
    if around:
        broken.append('A circle: ' + ', which includes '.join(around))
    for complaint in broken:
        print(complaint)
    return 1 if broken else 0


if __name__ == '__main__':
    sys.exit(main())
