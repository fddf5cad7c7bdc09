#!/usr/bin/env python3
"""Checks that no file of the product is longer than 500 lines and no function longer than 60.

Looks at C++, TypeScript, JavaScript, style sheets and Python. Where a function ends is read off the layout that the formatters
make: it ends where a line as far to the right as its first one begins with a brace. Exit status 1 when something is longer.
  check_sizes.py            prints what is longer: file, line, how many lines
  check_sizes.py --longest  prints the longest file and function of each folder
"""
import ast
import pathlib
import re
import sys

FOLDERS = ['surface', 'shell', 'select', 'where', 'statement', 'condition', 'language', 'hosts', 'faces', 'examples', 'scripts']
# Made from other files of the project.
MADE = ['faces/web/src/numbers.ts']
# Texts of Qt, whose files end like those of TypeScript.
TEXTS = 'translations'
FILE_LINES = 500
FUNCTION_LINES = 60

TYPE_HEAD = re.compile(r'(?:template <.*> )?(?:typedef )?(?:class|struct|union|enum)\b')
SPACE_HEAD = re.compile(r'(?:inline )?namespace\b|extern "C" \{$')
METHOD_HEAD = re.compile(r'(?!(?:if|for|while|switch|catch|with|return|await)\b)(?:[a-z]+ )*[*#]*[\w$.\[\]]+(?:<.*>)?\(.*\)(?:: .*)? \{')


def heads(lines, comment):
    """The lines as (number, indentation, text), without blank ones, comments and what comes before the compiler."""
    for number, line in enumerate(lines, 1):
        text = re.sub(r'\s*//.*', '', line) if comment else line
        if text.strip() and not re.match(r'\s*(?:#(?:if|el|endif|define|undef|include|pragma)|/?\*)', text):
            yield number, len(text) - len(text.lstrip()), text.strip()


def cpp_functions(lines):
    """Yields (first line, lines) of each function at the margin and each one defined within a class."""
    begun = {0: None}  # for each indentation at which functions may begin: the line and the text of what began there
    for number, indent, text in heads(lines, True):
        if indent in begun and text[0] == '}':
            head = begun[indent]
            if head and is_cpp_function(head[1]):
                yield head[0], number - head[0] + 1
            begun = {each: what for each, what in begun.items() if each < indent}
            begun[indent] = None
            continue
        if indent in begun:
            begun[indent] = (number, text)
        else:
            inner = max((each for each in begun if each < indent and begun[each]), default=None)
            if inner is None or begun[inner][1][-1] in '{;':
                continue
            begun[inner] = (begun[inner][0], begun[inner][1] + ' ' + text)
            indent = inner
        head = begun[indent][1]
        if head.endswith('{') and SPACE_HEAD.match(head):
            begun[indent] = None
        elif head.endswith('{') and TYPE_HEAD.match(head):
            begun[indent + 2] = None


def is_cpp_function(head):
    return head.endswith('{') and '(' in head and not TYPE_HEAD.match(head) and not re.search(r'[(=,] ?\{$', head)


def script_functions(lines):
    """Yields (first line, lines) of each function of a TypeScript or JavaScript file, of those within others too."""
    begun = {}
    for number, indent, text in heads(lines, True):
        begun = {each: what for each, what in begun.items() if each <= indent}
        if text[0] == '}':
            head = begun.pop(indent, None)
            if head and is_script_function(head[1]):
                yield head[0], number - head[0] + 1
        elif text[0] in ')]' and indent in begun:
            begun[indent] = (begun[indent][0], begun[indent][1] + text)
        else:
            begun[indent] = (number, text)


def is_script_function(head):
    if re.search(r'=> \(?\{$', head):
        return True
    return head.endswith('{') and bool(re.search(r'\bfunction\b', head) or METHOD_HEAD.fullmatch(re.sub(r'\($', '', head)))


def python_functions(lines):
    for node in ast.walk(ast.parse('\n'.join(lines))):
        if isinstance(node, (ast.FunctionDef, ast.AsyncFunctionDef)):
            yield node.lineno, node.end_lineno - node.lineno + 1


FUNCTIONS_OF = {'.h': cpp_functions, '.cpp': cpp_functions, '.ts': script_functions, '.js': script_functions,
                '.mjs': script_functions, '.css': lambda lines: (), '.py': python_functions}


def measured():
    """Yields (file, its lines, its functions as (first line, lines))."""
    for folder in FOLDERS:
        for path in sorted(pathlib.Path(folder).rglob('*')):
            name = path.as_posix()
            is_source = path.suffix in FUNCTIONS_OF and path.is_file() and path.parent.name != TEXTS
            if is_source and 'node_modules' not in path.parts and name not in MADE:
                lines = path.read_text('utf-8').splitlines()
                yield name, len(lines), list(FUNCTIONS_OF[path.suffix](lines))


def print_longest():
    longest = {}
    for name, count, functions in measured():
        folder = '/'.join(name.split('/')[:2 if name.startswith(('faces/', 'hosts/', 'examples/')) else 1])
        both = longest.setdefault(folder, [(0, ''), (0, '')])
        both[0] = max(both[0], (count, name))
        both[1] = max([both[1]] + [(length, '%s:%d' % (name, line)) for line, length in functions])
    for folder, (file, function) in longest.items():
        print('%s: %d lines in %s, %d in the function at %s' % (folder, *file, *function))


def main():
    if sys.argv[1:] == ['--longest']:
        print_longest()
        return 0
    count_of_files = 0
    too_long = []
    for name, count, functions in measured():
        count_of_files += 1
        if count > FILE_LINES:
            too_long.append('%s:1: %d lines, and a file has at most %d' % (name, count, FILE_LINES))
        too_long += ['%s:%d: %d lines, and a function has at most %d' % (name, line, length, FUNCTION_LINES)
                     for line, length in sorted(functions) if length > FUNCTION_LINES]
    if count_of_files == 0:
        too_long.append('There is no file of the product here')
    for complaint in too_long:
        print(complaint)
    return 1 if too_long else 0


if __name__ == '__main__':
    sys.exit(main())
