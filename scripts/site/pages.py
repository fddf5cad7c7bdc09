#!/usr/bin/env python3
"""Makes the pages of the site out of the documents of the repository, as Doxygen reads them.

Each page and each heading gets a label, and links between documents become references by label, so that Doxygen complains of those that
lead nowhere. A link to a file that is no page becomes its path, and one to a file that is not there is an error. One page more is made
from the three lists: the contract, the gestures and the controls of the form.
  pages.py FOLDER
"""
import pathlib
import re
import subprocess
import sys

PAGES = ['README.md', 'docs/hosts.md', 'docs/qt.md', 'docs/windows.md', 'docs/web.md', 'docs/composer.md', 'docs/automation.md',
         'docs/faces.md', 'docs/oddities.md', 'docs/speed.md', 'docs/testing.md', 'docs/mutation.md', 'docs/windows-by-hand.md',
         'docs/glossary.md', 'docs/code-map.md', 'examples/README.md', 'fuzz/README.md', 'CONTRIBUTING.md', 'CHANGELOG.md']
LISTS = 'lists'
TYPES = {'String': 'text', 'Integer': 'number of 16 bits', 'Boolean': 'true or false'}
PAGE_NAMES = ['Select List', 'Where', 'SelectDo', 'SelectEOS', 'SelectEmpty', 'SelectError', 'Condition']


def label_of(path):
    return 'page_' + re.sub(r'\W', '_', path.replace('docs/', '').replace('.md', '')).lower()


def anchor_of(heading):
    """As a link to a heading has it."""
    return re.sub(r'[^\w -]', '', heading.replace('`', '').lower()).strip().replace(' ', '-')


class Page:
    """A document of the repository."""

    def __init__(self, path, listed):
        self.path = path
        self.listed = listed
        self.broken = []
        self.labels = {}

    def reference(self, match):
        picture, text, target = match.groups()
        if re.match(r'https?:', target):
            return match.group()
        file, _, anchor = target.partition('#')
        path = self.path
        if file:
            path = str((pathlib.Path('/') / pathlib.Path(self.path).parent / file).resolve().relative_to('/'))
        if picture:
            if not pathlib.Path(path).is_file():
                self.broken.append('%s: there is no picture %s' % (self.path, target))
            return '![%s](%s)' % (text, pathlib.Path(path).name)
        if path in PAGES:
            label = label_of(path) + ('_' + anchor.replace('-', '_') if anchor else '')
            if path == 'README.md' and not anchor:
                label = 'index'
            return r'\ref %s "%s"' % (label, text.replace('`', '').replace('"', "'"))
        if path not in self.listed and not any(name.startswith(path.rstrip('/') + '/') for name in self.listed):
            self.broken.append('%s: a link to %s, which is not there' % (self.path, target))
        return '%s (`%s`)' % (text, path) if text.strip('`') != path else '`%s`' % path

    def line(self, line):
        heading = re.match(r'(#+) (.*)', line)
        if heading:
            first = len(heading.group(1)) == 1
            if first and self.path == 'README.md':
                return line
            label = label_of(self.path) + ('' if first else '_' + anchor_of(heading.group(2)).replace('-', '_'))
            again = self.labels.get(label, 0)
            self.labels[label] = again + 1
            return '%s {#%s%s}' % (line, label, '_%d' % again if again else '')
        pieces = re.split(r'(`[^`]*`)', line)
        rest = ''.join(pieces)
        if '](' in rest:
            rest = re.sub(r'(!?)\[([^\]]*)\]\(([^)\s]+)\)', self.reference, rest)
        # Outside of code, what Doxygen takes for a command or a tag.
        return ''.join(piece if piece.startswith('`') else re.sub(r'<(?=[a-z])', r'\\<', piece) for piece in re.split(r'(`[^`]*`)', rest))

    def made(self):
        result = []
        in_code = False
        for line in pathlib.Path(self.path).read_text('utf-8').splitlines():
            if line.lstrip().startswith('```'):
                in_code = not in_code
                result.append('```{.unparsed}' if in_code and line.strip() == '```' else line)
            else:
                result.append(line if in_code else self.line(line))
        return '\n'.join(result) + '\n'


def rows_of(path, macro):
    """The arguments of each row of a list that has this macro."""
    text = pathlib.Path(path).read_text('utf-8')
    return [[part.strip() for part in re.split(r',(?=(?:[^"]*"[^"]*")*[^"]*$)', row)]
            for row in re.findall(r'^%s\((.*)\)' % macro, re.sub(r'\s*//.*', '', text), re.MULTILINE)]


def contract_rows():
    found = []
    a = {kind: '' if kind == 'Boolean' else 'a ' for kind in TYPES}
    for macro, written, read in (('ZOLT20_LET', 'yes', ''), ('ZOLT20_GET', '', 'yes'), ('ZOLT20_LET_GET', 'yes', 'yes')):
        for number, kind, name in rows_of('shell/contract.def', macro):
            found.append((int(number), name, 'property, ' + a[kind] + TYPES[kind], written, read))
    for number, name in rows_of('shell/contract.def', 'ZOLT20_METHOD'):
        found.append((int(number), name, 'method', '', ''))
    for number, name, kind, argument in rows_of('shell/contract.def', 'ZOLT20_METHOD_WITH'):
        found.append((int(number), name, 'method of `%s`, a %s' % (argument, TYPES[kind]), '', ''))
    return sorted(found)


def lists_page():
    lines = ['# Contract, gestures, controls {#page_%s}' % LISTS, '',
             'Made from the three lists `shell/contract.def`, `surface/gestures.def` and `surface/form.def`.', '',
             '## The members of the contract {#page_lists_members}', '', '| | member | what | written | read |', '| ---: | --- | --- | --- | --- |']
    for number, name, what, written, read in contract_rows():
        lines.append(r'| %d | \ref zolt20::ZOLT20MapControl::%s "%s" | %s | %s | %s |' % (number, name, name, what, written, read))
    lines += ['', '## The events of the contract {#page_lists_events}', '', '| | event |', '| ---: | --- |']
    for number, name in rows_of('shell/contract.def', 'ZOLT20_EVENT'):
        lines.append(r'| %s | \ref zolt20::ControlHost::%s "%s" |' % (number, name, name))
    lines += ['', '## The gestures of a person {#page_lists_gestures}', '', 'By the number that they have everywhere.', '',
              '| | gesture | in JSON lines | beside its control |', '| ---: | --- | --- | --- |']
    for number, (name, word, operand) in enumerate(rows_of('surface/gestures.def', 'ZOLT20_GESTURE')):
        lines.append('| %d | %s | `%s` | %s |' % (number, name, word.strip('"'), operand.strip('"') or 'nothing'))
    lines += ['', '## The controls of the form {#page_lists_controls}', '', 'In the first tab order.', '',
              '| control | kind | page | frame | caption |', '| --- | --- | --- | --- | --- |']
    for macro_row in re.findall(r'^ZOLT20_(CONTROL|ELEMENT)\((.*)\)', pathlib.Path('surface/form.def').read_text('utf-8'), re.MULTILINE):
        parts = [part.strip() for part in re.split(r',\s*(?=(?:[^"]*"[^"]*")*[^"]*$)', macro_row[1].replace(r'\"', "'"))]
        if macro_row[0] == 'ELEMENT':
            parts[1:3] = ['%s(%s)' % (parts[1], parts[2])]
        kind, name, page, frame, caption = parts[:5]
        where = 'every page' if page == 'kEveryPage' else PAGE_NAMES[int(page)]
        lines.append('| `%s` | %s | %s | %s | %s |' % (name, kind, where, '' if frame == 'kForm' else '`%s`' % frame,
                                                    caption[2:-1].replace('<', r'\<').replace('>', r'\>')))
    return '\n'.join(lines) + '\n'


def main():
    folder = pathlib.Path(sys.argv[1])
    listed = subprocess.run(['git', 'ls-files', '-co', '--exclude-standard'], capture_output=True, text=True, check=True).stdout.split('\n')
    broken = []
    missing = [path for path in listed if re.fullmatch(r'docs/[^/]+\.md', path) and path not in PAGES]
    broken += ['%s is no page of the site; scripts/site/pages.py lists them' % path for path in missing]
    for number, path in enumerate(PAGES):
        page = Page(path, listed)
        name = 'README.md' if number == 0 else '%02d-%s.md' % (number, label_of(path)[5:])
        (folder / name).write_text(page.made(), 'utf-8')
        broken += page.broken
    (folder / '00-lists.md').write_text(lists_page(), 'utf-8')
    for complaint in broken:
        print(complaint)
    return 1 if broken else 0


if __name__ == '__main__':
    sys.exit(main())
