#!/usr/bin/env python3
"""Prints a header as Doxygen reads it, with the comments of the project where Doxygen wants them.

In the headers a comment stands above a run of declarations and holds for all of them, up to the next blank line; a comment with a blank
line behind it holds for the section below it; the comment at the top of a file tells what its class is for. Doxygen wants a comment of
its own at each declaration, so each gets the one that holds for it. A declaration for which none holds takes its line from
members.txt beside this file; for one that has none there either Doxygen complains. Members of the contract are linked to the control's own.
  comments.py HEADER
"""
import os
import pathlib
import re
import sys

CONTRACT = re.compile(r'ZOLT20_(?:LET|GET|LET_GET|METHOD|METHOD_WITH|EVENT)\(\d+,(?: \w+,)? (\w+)')
MEMBERS = pathlib.Path('scripts/site/members.txt')
OWN = ('shell/control.h', 'shell/host.h')


def contract_names():
    return set(CONTRACT.findall(pathlib.Path('shell/contract.def').read_text('utf-8')))


def member_lines(header):
    """What members.txt says of the members of a header."""
    entries = {}
    for line in MEMBERS.read_text('utf-8').splitlines():
        file, _, rest = line.partition(' ')
        name, _, sentence = rest.partition(': ')
        if file == header:
            entries[name] = [sentence]
    return entries


def without_comment(line):
    return re.sub(r'\s*//.*', '', line)


class Header:
    """A header on its way through, line by line."""

    def __init__(self, name, names):
        self.lines = member_lines(name)
        self.told = set()
        self.hidden_in = 0  # how many scopes there are around private members; 0 outside of them
        self.hides_protected = name.startswith('surface/')
        self.linked = names if not name.endswith(OWN) else set()
        self.out = []
        self.scopes = []  # each "namespace", "class" or "enum"
        self.names = []  # of those that are classes, "" for others
        self.comment = []  # the comment lines just above
        self.run = []  # what holds for the declarations up to the next blank line
        self.section = []  # what holds for the section
        self.head = []  # of the file, until a class takes it
        self.takes_head = 'class'  # or the first struct of a file without classes
        self.inside = ''  # of a declaration that goes on
        self.depth = 0

    def text_of(self, line):
        return re.sub(r'^\s*//[/!]?<? ?', '', line)

    def link(self, declaration):
        match = re.search(r'(?:set)?(\w+?)(?:Changed)?\(', declaration)
        if not match or not self.linked:
            return []
        name = match.group(1)
        for each in (name, name[:1].lower() + name[1:]):
            if each in self.linked:
                return ['', r'\see zolt20::%s::%s' % ('ControlHost' if each.startswith('event') else 'ZOLT20MapControl', each)]
        return []

    def document(self, line):
        """The comment for a declaration that begins here."""
        own = self.comment
        kind = re.match(r'\s*(?:template <.*> )?(class|struct|enum)\b', line)
        if own:
            self.run = own
        elif kind and kind.group(1) == self.takes_head and self.head and not line.rstrip().endswith(';'):
            own = self.head
        elif not kind and re.search(r'//', line):
            own = []
        elif '~' in line:
            own = []
        else:
            own = self.run or ([] if kind else self.section)
        if kind and own is self.head:
            self.head = []
        if not own or own is self.section:
            own = self.lines.get(self.key(line), own)
            self.told.add(self.key(line))
        if not own and line.rstrip().endswith('override;'):
            own = ['As in the base class.']
        indent = re.match(r'\s*', line).group()
        if own:
            for each in own + self.link(line):
                self.out.append((indent + '/// ' + each).rstrip())
        self.comment = []

    def key(self, line):
        """How members.txt calls what is declared here."""
        code = without_comment(line)
        type_name = re.match(r'\s*(?:template <.*> )?(?:class|struct|enum(?: class)?|using) (\w+)', code)
        operator = re.search(r'\boperator ?([^\w\s(]+|\[\]|\(\))', code)
        pointer = re.search(r'\*(\w+)\)\(', code)
        called = re.search(r'(\w+)\(', code)
        value = re.search(r'(\w+)(?:\{| = |;|$|,)', code)
        name = (type_name.group(1) if type_name else 'operator' + operator.group(1) if operator else
                next((each.group(1) for each in (pointer, called, value) if each), ''))
        classes = [each for each in self.names if each]
        return (classes[-1] + '.' if classes else '') + name

    def take(self, line):
        code = without_comment(line)
        if re.match(r'\s*#\s*include ".*\.def"', line):
            return
        if self.inside or self.depth:
            self.go_on(line, code)
        elif not line.strip():
            if self.comment:
                self.section = self.comment
            self.comment, self.run = [], []
            self.out.append('')
        elif re.match(r'\s*//', line):
            self.comment.append(self.text_of(line))
        elif re.match(r'\s*(?:#|(?:public|protected|private|signals)\b.*:$|Q_\w+$|Q_PROPERTY)', line):
            if 'Q_PROPERTY' in line:
                return
            if self.hides_protected:
                line = line.replace('protected:', 'private:')
            if re.match(r'\s*(?:public|protected|private|signals)\b', line):
                self.show_again()
            if re.match(r'\s*(?:public|protected|private|signals)\b', line):
                self.comment, self.run, self.section = [], [], []
            if 'private:' in line:
                self.out += [line, r'/// \cond']
                self.hidden_in = len(self.scopes)
            elif not re.match(r'\s*#\s*(?:define|undef) ZOLT20', line) and not self.out_of_macro(line):
                self.out.append(line)
        elif re.match(r'\s*\}', line):
            if self.hidden_in == len(self.scopes):
                self.show_again()
            if self.scopes:
                self.scopes.pop()
                self.names.pop()
            self.comment, self.run, self.section = [], [], []
            self.out.append(line)
        else:
            self.document(line)
            self.go_on(line, code)

    def show_again(self):
        if self.hidden_in:
            self.out.append(r'/// \endcond')
        self.hidden_in = 0

    def out_of_macro(self, line):
        return line.rstrip().endswith('\\')

    def go_on(self, line, code):
        """A line of a declaration, up to its end."""
        trailing = re.search(r'(?<![:/])//(?!/) ?(.*)', line)
        if trailing and not self.depth:
            line = line[:trailing.start()] + '///< ' + trailing.group(1)
        self.out.append(line)
        self.inside += ' ' + code.strip()
        scope = re.match(r' (?:inline )?(?:template <.*> )?(namespace|class|struct|enum)\b', self.inside)
        if scope and not self.depth and code.rstrip().endswith('{'):
            self.scopes.append(scope.group(1))
            called = re.search(r'\b(?:class|struct) (\w+)', self.inside)
            self.names.append(called.group(1) if called else '')
            self.inside = ''
            self.run = []
            self.section = []
            return
        self.depth += code.count('{') + code.count('(') - code.count('}') - code.count(')')
        ends = ',' if self.scopes and self.scopes[-1] == 'enum' else ';'
        if self.depth == 0 and (code.rstrip().endswith((ends, '}')) or (ends == ',' and code.strip())):
            self.inside = ''


def readers_first(lines):
    """The lines, with the comment between a read and the write of the same name above both, and templates in one line."""
    result = []
    for line in lines:
        if result and re.match(r'\s*template <.*>$', result[-1]):
            result[-1] += ' ' + line.strip()
        else:
            result.append(line)
    for i, line in enumerate(result):
        name = re.match(r'\s+[\w<>:&* ]+?(\w+)\(\) const\b', line)
        at = i + 1
        while at < len(result) and re.match(r'\s*///', result[at]):
            at += 1
        if name and at > i + 1 and at < len(result) and re.match(r'\s+void %s\(' % name.group(1), result[at]) and '//' not in result[i - 1]:
            result[i:at] = result[i + 1:at] + [line]
    return result


def main():
    name = os.path.relpath(sys.argv[1])
    lines = pathlib.Path(name).read_text('utf-8').splitlines()
    header = Header(name, contract_names())
    head = 0
    while head < len(lines) and lines[head].startswith('//'):
        header.head.append(header.text_of(lines[head]))
        head += 1
    header.out += [r'/// \file'] + [('/// ' + line).rstrip() for line in header.head]
    in_macro = False
    if not any(re.match(r'(?:template <.*> )?class \w+.*\{$', line) for line in lines):
        header.takes_head = 'struct'
    for line in readers_first(lines[head:]):
        macro = in_macro or re.match(r'\s*#\s*define ZOLT20', line)
        in_macro = bool(macro) and line.endswith('\\')
        if not macro:
            header.take(line)
    print('\n'.join(header.out))
    for member in sorted(set(header.lines) - header.told):
        print('%s: warning: %s has a comment of its own, or is not there, and needs no line' % (MEMBERS, member), file=sys.stderr)
    return 0


if __name__ == '__main__':
    sys.exit(main())
