#!/usr/bin/env python3
"""Runs clang-tidy over source files, side by side, and leaves out those in which it found nothing before.

    tidy.py -p BUILD [OPTION...] FILE...                 compiled as BUILD/compile_commands.json tells
    tidy.py [OPTION...] FILE... -- COMPILE-OPTION...     compiled with these options

OPTION: --checks=, --extra-arg= or --extra-arg-before=, as clang-tidy has them. Any finding is an error; the exit status
is 1 when a file has one. What was found in no file is remembered in the home folder (or in XDG_CACHE_HOME): a file counts as
clean as long as it, all it includes, its options, .clang-tidy and the program are what they were, in whatever folder.
TIDY_AFRESH=1 forgets it.

Most of the time goes into the headers that files share. So where many files are to be checked, those that are compiled alike and have no
names twice are checked as one, and a file by itself only if something was found in the one that it was part of.
"""
import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

TIDY = 'clang-tidy-14'
COMPILER = 'clang++-14'
ROOT = pathlib.Path.cwd()
CACHE = pathlib.Path(os.environ.get('XDG_CACHE_HOME') or pathlib.Path.home() / '.cache') / 'zolt20-tidy'
# From so many files on they are checked together, at most so many as one.
MANY = 20
MOST = 12

contents = {}


def hash_of(path):
    """The hash of a file's bytes, or None when there is no such file."""
    if path not in contents:
        try:
            contents[path] = hashlib.sha256(pathlib.Path(path).read_bytes()).hexdigest()
        except OSError:
            contents[path] = None
    return contents[path]


def from_root(text):
    """The text with this folder left out, so that other folders say the same."""
    return text.replace(str(ROOT), '.')


def options_of(database, file):
    """The folder and the options with which the database compiles the file, without compiler, input and output."""
    entry = database.get(str(ROOT / file))
    if entry is None:
        sys.exit(f'{file} is not compiled by that build')
    words = shlex.split(entry['command'])
    first = next(place for place, word in enumerate(words) if word.startswith('-'))
    kept = []
    rest = iter(words[first:])
    for word in rest:
        if word in ('-o', '-c'):
            next(rest)
        else:
            kept.append(word)
    return entry['directory'], kept


def included_by(file, folder, options):
    """The files that a compiler reads for a file, itself among them."""
    told = subprocess.run([COMPILER, *options, '-Wno-everything', '-M', '-MT', 'x', str(ROOT / file)], cwd=folder,
                          capture_output=True, text=True)
    if told.returncode != 0:
        return None
    names = told.stdout.removeprefix('x:').replace('\\\n', ' ')
    return sorted({os.path.normpath(os.path.join(folder, name)) for name in shlex.split(names)})


class Run:
    def __init__(self, arguments):
        arguments, _, self.compile_options = split_at(arguments, '--')
        self.build = None
        self.options, self.files = [], []
        rest = iter(arguments)
        for argument in rest:
            if argument == '-p':
                self.build = next(rest, None)
            elif argument.startswith('-'):
                self.options.append(argument)
            else:
                self.files.append(argument)
        self.database = {}
        if self.build:
            entries = json.loads((ROOT / self.build / 'compile_commands.json').read_text())
            self.database = {os.path.normpath(entry['file']): entry for entry in entries}
        version = subprocess.run([TIDY, '--version'], capture_output=True, text=True, check=True).stdout
        self.program = hashlib.sha256(version.encode() + (ROOT / '.clang-tidy').read_bytes()).hexdigest()

    def extra(self, name):
        return [option.removeprefix(name) for option in self.options if option.startswith(name)]

    def compiled(self, file):
        """The folder and the options with which a file is compiled."""
        folder, own = options_of(self.database, file) if self.build else (str(ROOT), self.compile_options)
        return folder, (*self.extra('--extra-arg-before='), *own, *self.extra('--extra-arg='))

    def stamp_of(self, file):
        """Where it is remembered that nothing was found in a file."""
        _, options = self.compiled(file)
        words = [self.program, file, *self.options, *options]
        return CACHE / hashlib.sha256(from_root('\0'.join(words)).encode()).hexdigest()

    def is_known(self, file):
        return not os.environ.get('TIDY_AFRESH') and self.still_clean(self.stamp_of(file))

    def check(self, file):
        """What clang-tidy found in a file, or "" for nothing."""
        command = [TIDY, '--quiet', '--warnings-as-errors=*', *self.options]
        command += ['-p', self.build, file] if self.build else [file, '--', *self.compile_options]
        told = subprocess.run(command, capture_output=True, text=True)
        if told.returncode != 0:
            return told.stdout + told.stderr
        self.remember(file)
        return ''

    def remember(self, file):
        """That nothing was found in a file."""
        folder, options = self.compiled(file)
        names = included_by(file, folder, options)
        if names:
            CACHE.mkdir(parents=True, exist_ok=True)
            stamp = self.stamp_of(file)
            unfinished = stamp.with_suffix(f'.{os.getpid()}')
            unfinished.write_text(''.join(f'{hash_of(name)} {from_root(name)}\n' for name in names))
            unfinished.replace(stamp)

    def check_together(self, files, folder, options):
        """What clang-tidy found in files that are compiled alike."""
        found = ''
        with tempfile.TemporaryDirectory() as place:
            batch = pathlib.Path(place) / 'batch.cpp'
            left = files
            while left:
                files, left = self.compatible(left, batch, folder, options)
                command = [TIDY, '--quiet', '--warnings-as-errors=*', f'--config-file={ROOT / ".clang-tidy"}', *self.options, batch,
                           '--', *options]
                if len(files) > 1 and subprocess.run(command, cwd=folder, capture_output=True).returncode == 0:
                    for file in files:
                        self.remember(file)
                else:
                    found += ''.join(self.check(file) for file in files)
        return found

    def compatible(self, files, batch, folder, options):
        """Files that compile as one, whose text is left in the batch, and the others."""
        left = []
        while len(files) > 1:
            batch.write_text(''.join(f'#line 1 "{ROOT / file}"\n{(ROOT / file).read_text()}\n' for file in files))
            told = subprocess.run([COMPILER, *options, '-Wno-everything', '-ferror-limit=0', '-fsyntax-only', batch], cwd=folder,
                                  capture_output=True, text=True)
            wrong = set(re.findall(r'^(.*?):\d+:\d+: (?:fatal )?error:', told.stderr, re.MULTILINE))
            clashing = [file for file in files if str(ROOT / file) in wrong]
            if told.returncode == 0:
                break
            if not clashing:
                clashing = files[1:]
            files = [file for file in files if file not in clashing]
            left = clashing + left
        return files, left

    def still_clean(self, stamp):
        try:
            lines = stamp.read_text().splitlines()
        except OSError:
            return False
        for line in lines:
            known, _, name = line.partition(' ')
            if hash_of(os.path.normpath(ROOT / name)) != known:
                return False
        return True


def split_at(words, mark):
    if mark not in words:
        return words, mark, []
    place = words.index(mark)
    return words[:place], mark, words[place + 1:]


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    run = Run(sys.argv[1:])
    if not run.files:
        sys.exit('No files')
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        known = list(pool.map(run.is_known, run.files))
        left = [file for file, is_known in zip(run.files, known) if not is_known]
        if len(left) < MANY:
            texts = list(pool.map(run.check, left))
        else:
            alike = {}
            for file in left:
                alike.setdefault(run.compiled(file), []).append(file)
            jobs = [(files[at:at + MOST], *way) for way, files in alike.items() for at in range(0, len(files), MOST)]
            texts = list(pool.map(lambda job: run.check_together(*job), jobs))
    found = 0
    for text in texts:
        if text:
            found += 1
            print(text, flush=True)
    print(f'{len(run.files)} files, {"findings" if found else "no findings"}')
    sys.exit(1 if found else 0)


if __name__ == '__main__':
    main()
