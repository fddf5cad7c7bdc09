#!/usr/bin/env python3
"""Changes the logic in small ways, one change at a time, and runs the tests on each.

A change is called a mutant; it is killed when a test fails on it, and survives when none does. The test programs are built
once, with the logic as a shared library. For each mutant the one changed file is compiled into a copy of that library, and
the programs run with the copy, that of the changed folder first, until a test fails.

A mutant that does not compile is none, and one that compiles to the same object code as the original can be told from it by
nobody; neither counts. A survivor stands in scripts/mutants.txt with the reason why no test can tell it. Exit status 1 when
one survives that has no reason.

A whole run (all folders, the seed and number by default) writes docs/mutation.md, and names reasons that no survivor needs.
"""
import argparse
import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import resource
import shutil
import signal
import subprocess
import sys
import threading

sys.dont_write_bytecode = True  # no folder of compiled files is left beside this one
from mutants import KINDS, mutants_of

LOGIC = ['surface', 'shell', 'select', 'where', 'statement', 'condition']
PROGRAMS = LOGIC + ['hosts', 'torture']
REASONS = pathlib.Path('scripts/mutants.txt')
REPORT = pathlib.Path('docs/mutation.md')
BUILD = pathlib.Path('build/mutation')
WORK = pathlib.Path('build/mutants')
STORE = pathlib.Path('build/mutants.json')
LIBRARY = 'libzolt20_control.so'
# Assertions on, those of the library too: what the tests of ./check would stop at counts as killed.
COMPILE = ['g++', '-std=c++20', '-O1', '-fPIC', '-Wreturn-type', '-Werror=return-type', '-D_GLIBCXX_ASSERTIONS']
COUNT = 460
LEAST_PER_FOLDER = 30
MEMORY_KIB = 2 << 20
WALL_SECONDS = 900


def shares(total, sizes, least):
    """Splits a number in proportion to the sizes, each share at least `least` or all there is."""
    whole = sum(sizes.values())
    result = {key: min(size, max(least, total * size // max(whole, 1))) for key, size in sizes.items()}
    for key in sorted(sizes, key=lambda each: -sizes[each]):
        while sum(result.values()) < total and result[key] < sizes[key]:
            result[key] += 1
            if sum(result.values()) % 2:
                break
    return result


class Queue:
    """Gives out mutants, for each file as many as count; one that does not count makes room for the next of its file."""

    def __init__(self, by_file, quota):
        self.lock = threading.Lock()
        self.left = {path: list(mutants) for path, mutants in by_file.items()}
        self.room = dict(quota)

    def take(self):
        with self.lock:
            open_files = [path for path, mutants in self.left.items() if mutants and self.room[path] > 0]
            if open_files:
                path = max(open_files, key=lambda each: self.room[each])
                self.room[path] -= 1
                return self.left[path].pop(0)
        return None

    def give_back(self, mutant):
        with self.lock:
            self.room[mutant.path] += 1


def run(command, **options):
    return subprocess.run(command, check=True, **options)


class Bench:
    """The test programs, and the logic in object files of which each mutant takes the place of one."""

    def __init__(self, jobs):
        self.jobs = max(1, jobs)
        self.root = pathlib.Path.cwd()
        self.objects = {}
        self.seconds = dict.fromkeys(PROGRAMS, 60)
        self.killers = {}

    def build(self):
        print('Building the tests', flush=True)
        environment = dict(os.environ, LD_LIBRARY_PATH=str(self.root / BUILD))
        run(['cmake', '-S', '.', '-B', BUILD, '-G', 'Ninja', '-Wno-dev', '--log-level=WARNING', '-DCMAKE_BUILD_TYPE=Release',
             '-DZOLT20_SHARED=ON', '-DZOLT20_QT=OFF', '-DCMAKE_SKIP_RPATH=ON'], stdout=subprocess.DEVNULL)
        run(['cmake', '--build', BUILD, '--target', 'zolt20-host', *(each + '_tests' for each in PROGRAMS), '--', '--quiet'],
            env=environment, stdout=subprocess.DEVNULL)

        shutil.rmtree(WORK, ignore_errors=True)
        (WORK / 'original').mkdir(parents=True)
        headers = ['shell/contract.h', 'shell/control.h']
        system = set()
        for path in sources(LOGIC):
            system.update(re.findall(r'#include (<\w+>)', pathlib.Path(path).read_text('utf-8')))
        self.header = self.root / WORK / 'common.h'
        self.header.write_text(''.join('#include %s\n' % name for name in sorted(system)) +
                               ''.join('#include "%s"\n' % name for name in headers))
        run([*COMPILE, '-I', str(self.root), '-x', 'c++-header', str(self.header), '-o', str(self.header) + '.gch'])
        print('Building the logic', flush=True)
        for path in sources(LOGIC):
            self.objects[path] = self.root / WORK / 'original' / (path.replace('/', '_') + '.o')
        with concurrent.futures.ThreadPoolExecutor(self.jobs) as pool:
            complaints = pool.map(lambda each: self.compile(each, pathlib.Path(each).read_text('utf-8'), self.objects[each]),
                                  self.objects)
            for complaint in filter(None, complaints):
                sys.exit(complaint)
        self.link(self.root / WORK / 'original', {})

    def compile(self, path, text, output):
        """What the compiler complains about, or ""."""
        command = [*COMPILE, '-I', str(self.root), '-include', str(self.header), '-x', 'c++', '-', '-c', '-o', str(output)]
        done = subprocess.run(command, input='#line 1 "%s"\n%s' % (path, text), text=True, cwd=self.root / WORK,
                              stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
        return '' if done.returncode == 0 else done.stderr or 'failed'

    def link(self, folder, replaced):
        objects = [str(replaced.get(path, output)) for path, output in self.objects.items()]
        run(['g++', '-shared', '-o', str(folder / LIBRARY), *objects])

    def measure(self):
        """The tests must pass before they can judge; the time they take decides when they take too long."""
        for program in PROGRAMS:
            before = resource.getrusage(resource.RUSAGE_CHILDREN)
            verdict = self.test(program, self.root / WORK / 'original')
            after = resource.getrusage(resource.RUSAGE_CHILDREN)
            if verdict:
                sys.exit('The unchanged logic fails %s_tests: %s' % (program, verdict))
            used = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
            self.seconds[program] = int(10 + 10 * used)

    def test(self, program, folder, only='*'):
        """What the program died of: "time", "crash" or the name of the test that failed; "" when all pass."""
        scratch = folder / 'tmp'
        scratch.mkdir(exist_ok=True)
        environment = dict(os.environ, LD_LIBRARY_PATH=str(folder), GTEST_BRIEF='1', GTEST_FAIL_FAST='1',
                           GTEST_FILTER=only, TMPDIR=str(scratch), TEST_TMPDIR=str(scratch))
        command = 'ulimit -c 0; ulimit -t %d; ulimit -v %d; exec "$0"' % (self.seconds[program], MEMORY_KIB)
        process = subprocess.Popen(['sh', '-c', command, str(self.root / BUILD / 'tests' / (program + '_tests'))],
                                   env=environment, cwd=scratch, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                   stderr=subprocess.DEVNULL, start_new_session=True)
        try:
            output, _ = process.communicate(timeout=WALL_SECONDS)
        except subprocess.TimeoutExpired:
            output = b''
        finally:
            try:
                os.killpg(process.pid, signal.SIGKILL)
            except ProcessLookupError:
                pass
        process.wait()
        if process.returncode == 0:
            return ''
        failed = re.search(r'\[  FAILED  \] ([\w./]+)', output.decode('utf-8', 'replace'))
        if failed:
            return failed.group(1)
        return 'time' if process.returncode in (-signal.SIGXCPU, -signal.SIGKILL) else 'crash'

    def judge(self, mutant, folder):
        """The verdict, and what it rests on: ("killed", "shell: Suite.Test"), ("survived", "") and so on."""
        text = pathlib.Path(mutant.path).read_text('utf-8')
        output = folder / 'mutant.o'
        if self.compile(mutant.path, mutant.applied(text), output):
            return 'broken', ''
        if output.read_bytes() == self.objects[mutant.path].read_bytes():
            return 'same', ''
        self.link(folder, {mutant.path: output})
        own = mutant.path.split('/')[0]
        for program, only in self.order(mutant.path, own):
            died_of = self.test(program, folder, only)
            if died_of:
                if program == own and '.' in died_of:
                    self.killers.setdefault(mutant.path, set()).add(died_of)
                return ('timed out' if died_of == 'time' else 'killed'), '%s: %s' % (program, died_of)
        return 'survived', ''


    def order(self, path, own):
        """The programs and which of their tests to run, the likeliest to kill first: the tests that killed mutants of the
        file before, those of its topic, the others of its folder, the other folders."""
        killers = sorted(self.killers.get(path, ()))
        topic = ':'.join('%s.*:*/%s.*' % (suite, suite) for suite in suites_of(path))
        if killers:
            yield own, ':'.join(killers)
        if topic:
            yield own, topic
        yield own, '*-' + topic if topic else '*'
        for program in PROGRAMS:
            if program != own:
                yield program, '*'


def suites_of(path):
    """The test suites in the files of a source file's topic."""
    folder, name = os.path.split(path)
    found = set()
    for test in pathlib.Path('tests', folder).glob(pathlib.Path(name).stem + '*_test.cpp'):
        text = test.read_text('utf-8')
        found.update(re.findall(r'\b(?:TEST|TEST_F|TEST_P|TYPED_TEST)\(\s*(\w+)', text))
    return sorted(found)


def sources(folders):
    return [str(path) for folder in folders for path in sorted(pathlib.Path(folder).glob('*.cpp'))]


def read_reasons():
    """The reasons by the name of their mutant."""
    reasons = {}
    name = None
    for line in REASONS.read_text('utf-8').splitlines() if REASONS.is_file() else []:
        if not line.strip() or line.startswith('#'):
            continue
        if line[0] != ' ':
            name = line.strip()
            reasons[name] = ''
        elif name:
            reasons[name] = (reasons[name] + ' ' + line.strip()).strip()
    return reasons


def table(heading, keys, results, of):
    rows = ['| %s | mutants | killed | by time | survived |' % heading, '| --- | ---: | ---: | ---: | ---: |']
    for key in keys + ['all']:
        verdicts = [verdict for mutant, verdict, _ in results if key == 'all' or of(mutant) == key]
        rows.append('| %s | %d | %d | %d | %d |' % (key, len(verdicts), verdicts.count('killed'),
                                                   verdicts.count('timed out'), verdicts.count('survived')))
    return '\n'.join(rows) + '\n'


def report(results, same, reasons, arguments, found):
    counted = counted_of(results)
    survivors = sorted(mutant.name for mutant, verdict, _ in counted if verdict == 'survived')
    own = sum(1 for mutant, verdict, why in counted
              if verdict != 'survived' and why.startswith(mutant.path.split('/')[0] + ':'))
    lines = [
        '# What the tests notice',
        '',
        '`./mutate` changes the logic in small ways, one change at a time, and runs the tests on each. It wrote this page; seed '
        '%d.' % arguments.seed,
        '',
        'Of %d changes that its operators find, these were tried, spread over all files. %d more compiled to the same object code as '
        'the original and are not counted. "By time" are those on which a test did not end. Of the changes that were noticed, %d '
        'were noticed by the tests of their own folder.' % (found, same, own),
        '',
        table('folder', LOGIC, counted, lambda mutant: mutant.path.split('/')[0]),
        table('kind', list(KINDS), counted, lambda mutant: mutant.kind),
        'The kinds:',
        '',
    ]
    lines += ['- %s: %s' % each for each in KINDS.items()]
    lines += ['', '## What survived', '']
    if not survivors:
        lines.append('Nothing.')
    for name in survivors:
        lines.append('- `` %s ``  \n  %s' % (name, reasons.get(name) or '**No reason yet.**'))
    REPORT.write_text('\n'.join(lines) + '\n', 'utf-8')


class Trial:
    """Tries the mutants of a queue on a bench, several at a time, and remembers the verdicts in a file."""

    def __init__(self, bench, queue, resume):
        self.bench, self.queue = bench, queue
        self.logic = digest(path for folder in LOGIC for path in pathlib.Path(folder).iterdir())
        self.tests = self.logic + digest(path for folder in ('tests', 'hosts', 'examples')
                                         for path in pathlib.Path(folder).rglob('*'))
        self.known = json.loads(STORE.read_text('utf-8')) if resume and STORE.is_file() else {}
        self.results = []
        self.lock = threading.Lock()
        self.failures = []

    def run(self):
        """The results as (mutant, verdict, what it rests on)."""
        threads = [threading.Thread(target=self.work, args=(number,)) for number in range(self.bench.jobs)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        if self.failures:
            raise self.failures[0]
        return self.results

    def work(self, number):
        try:
            self.try_mutants(number)
        except BaseException as failure:
            self.failures.append(failure)

    def try_mutants(self, number):
        folder = self.bench.root / WORK / ('worker%d' % number)
        folder.mkdir(parents=True)
        while not self.failures and (mutant := self.queue.take()) is not None:
            verdict, why, of = self.known.get(mutant.name, ('', '', ''))
            if of != self.rests_on(verdict):
                verdict, why = self.bench.judge(mutant, folder)
            if verdict in ('broken', 'same'):
                self.queue.give_back(mutant)
            with self.lock:
                self.note(mutant, verdict, why)

    def rests_on(self, verdict):
        return self.tests if verdict == 'survived' else self.logic

    def note(self, mutant, verdict, why):
        self.results.append((mutant, verdict, why))
        self.known[mutant.name] = (verdict, why, self.rests_on(verdict))
        STORE.write_text(json.dumps(self.known, indent=0), 'utf-8')
        counted = len(counted_of(self.results))
        if verdict == 'survived':
            print('Survived (line %d): %s' % (mutant.line, mutant.name), flush=True)
        if counted % 50 == 0 and verdict not in ('broken', 'same'):
            print('%d tried' % counted, flush=True)


def digest(paths):
    total = hashlib.sha256()
    for path in sorted(paths):
        if path.is_file():
            total.update(path.as_posix().encode() + b'\0' + path.read_bytes())
    return total.hexdigest()


def counted_of(results):
    return [each for each in results if each[1] not in ('broken', 'same')]


def quota_of(by_file, arguments):
    """How many mutants of each file to try."""
    sizes = {path: len(mutants) for path, mutants in by_file.items()}
    if arguments.all:
        return sizes
    folders = {}
    for path, size in sizes.items():
        folders[path.split('/')[0]] = folders.get(path.split('/')[0], 0) + size
    quota = {}
    for folder, share in shares(min(arguments.count, sum(sizes.values())), folders, LEAST_PER_FOLDER).items():
        quota.update(shares(share, {path: size for path, size in sizes.items() if path.startswith(folder + '/')}, 3))
    return quota


def conclude(results, arguments, found):
    """Prints and writes what came out. The exit status: 1 when a survivor has no reason."""
    reasons = read_reasons()
    same = sum(1 for each in results if each[1] == 'same')
    counted = counted_of(results)
    survivors = {mutant.name for mutant, verdict, _ in counted if verdict == 'survived'}
    unexplained = sorted(name for name in survivors if not reasons.get(name))
    if not arguments.only:
        report(results, same, reasons, arguments, found)
        for name in sorted(set(reasons) - survivors):
            print('Stale reason, no such survivor: %s' % name)
    print('%d mutants: %d killed, %d by time, %d survived, %d of them without a reason; %d more with the same object code' %
          (len(counted), sum(1 for each in counted if each[1] == 'killed'),
           sum(1 for each in counted if each[1] == 'timed out'), len(survivors), len(unexplained), same))
    for name in unexplained:
        print('No reason for: %s' % name)
    return 1 if unexplained else 0


def read_arguments():
    parser = argparse.ArgumentParser(description=__doc__.split('\n')[0])
    parser.add_argument('--count', type=int, default=COUNT, help='how many mutants (default %d)' % COUNT)
    parser.add_argument('--seed', type=int, default=1, help='which of them (default 1)')
    parser.add_argument('--only', metavar='PATH', help='a file or folder; no report is written')
    parser.add_argument('--all', action='store_true', help='every mutant that there is')
    parser.add_argument('--jobs', type=int, default=os.cpu_count(), help='how many at a time')
    parser.add_argument('--list', action='store_true', help='name the mutants that there are and run none')
    parser.add_argument('--resume', action='store_true',
                        help='keep the verdicts of the run before: a kill while the logic is the same, any other while the '
                             'tests are the same too')
    return parser.parse_args()


def main():
    arguments = read_arguments()
    paths = [path for path in sources(LOGIC)
             if not arguments.only or path == arguments.only or path.startswith(arguments.only.rstrip('/') + '/')]
    rank = lambda mutant: hashlib.sha256(('%d %s' % (arguments.seed, mutant.name)).encode()).digest()
    by_file = {path: sorted(mutants_of(path), key=rank) for path in paths}
    found = sum(map(len, by_file.values()))
    if not found:
        sys.exit('There is nothing to change in %s' % arguments.only)
    if arguments.list:
        for path in paths:
            print('\n'.join(mutant.name for mutant in sorted(by_file[path], key=lambda each: each.start)))
        print('%d mutants' % found)
        return 0

    bench = Bench(arguments.jobs)
    bench.build()
    print('Running the tests on the unchanged logic', flush=True)
    bench.measure()
    results = Trial(bench, Queue(by_file, quota_of(by_file, arguments)), arguments.resume).run()
    return conclude(results, arguments, found)


if __name__ == '__main__':
    sys.exit(main())
