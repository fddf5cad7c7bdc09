#!/usr/bin/env python3
"""Counts the work of every gesture and call of recorded sessions, and holds it against counts.txt beside this file.

    counts.py PROGRAM            compares; the exit status is 1 when something costs over 2 % more than it did
    counts.py --write PROGRAM    keeps what was counted

PROGRAM is zolt20_counts. Counted are instructions, by callgrind, and allocations and their bytes. Where the same things are
built alike, the counts are alike to the last instruction: the program gets the same environment each time, and the C library is
told to take its plain routines, so that the processor makes no difference. What its heap does within an allocation is left out:
that depends on what was freed before, anywhere in the program. Allocations and their bytes stand for it.
"""
import collections
import os
import pathlib
import re
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
KEPT = HERE / 'counts.txt'
SESSIONS = ['aggregate-report', 'full-statement', 'mapping-rule', 'plain-report', 'reopened-statement', 'where-report']
FURTHER_TABLES = (0, 1000)
MOST_RISE = 1.02
# Beside few instructions one more is much.
LEAST = 50
FUNCTIONS = 80

# The heap of the C library: its functions, by the beginnings of their names.
HEAP = ('_int_', 'alloc_perturb', 'brk', 'calloc', 'cfree', 'free', 'malloc', 'realloc', 'sbrk', 'sysmalloc', 'systrim', 'tcache', 'unlink_chunk')

PLAIN = ('AVX,AVX2,AVX_Fast_Unaligned_Load,AVX512F,AVX512VL,AVX512BW,BMI1,BMI2,ERMS,FSRM,LZCNT,MOVBE,SSE4_1,SSE4_2,SSSE3,'
         'Fast_Unaligned_Copy,Fast_Unaligned_Load,Prefer_No_VZEROUPPER')
TUNABLES = ':'.join(['glibc.cpu.hwcaps=' + ','.join('-' + name for name in PLAIN.split(',')),
                     'glibc.cpu.x86_non_temporal_threshold=0xc0000', 'glibc.cpu.x86_rep_movsb_threshold=0x10000000',
                     'glibc.cpu.x86_rep_stosb_threshold=0x10000000'])


def short(name):
    """A function's name without the arguments of templates and functions."""
    name = name.replace('(anonymous namespace)::', '')
    while True:
        fewer = re.sub(r'<[^<>]*>', '', name)
        if fewer == name:
            break
        name = fewer
    name = re.sub(r'\(.*', '', name).replace('[abi:cxx11]', '')
    return name if 'operator' in name else name.split(' ')[-1]


def read_dump(path, names, functions):
    """Adds what each function took by itself; gives the trigger and the sum. Names are written out once in all dumps."""
    trigger, total, function, is_call = None, 0, None, False
    for line in path.read_text().splitlines():
        if line.startswith('desc: Trigger: Client Request: '):
            trigger = int(line.rsplit(' ', 1)[1])
        elif line.startswith('fn='):
            number, _, name = line[3:].partition(' ')
            if name:
                names[number] = short(name)
            function = names[number]
        elif line.startswith(('cfn=', 'cfni=')):
            number, _, name = line.split('=', 1)[1].partition(' ')
            if name:
                names[number] = short(name)
        elif line.startswith('calls='):
            is_call = True
        elif line[:1] in set('0123456789+-*'):
            if not is_call and trigger is not None and not function.startswith(HEAP):
                cost = int(line.split()[1])
                functions[function] += cost
                total += cost
            is_call = False
    return trigger, total


def count(program, further):
    """Items by name, [times, instructions, allocations, bytes], and instructions by function."""
    items = collections.defaultdict(lambda: [0, 0, 0, 0])
    functions = collections.Counter()
    sessions = [f'../../examples/sessions/{name}.jsonl' for name in SESSIONS] + ['further.jsonl']
    with tempfile.TemporaryDirectory(prefix='zolt20-counts-', dir='/tmp') as folder:
        run = subprocess.run(
            ['valgrind', '--tool=callgrind', '--collect-atstart=no', f'--callgrind-out-file={folder}/out', program,
             str(further), *sessions], cwd=HERE, capture_output=True, text=True,
            env={'PATH': os.environ['PATH'], 'GLIBC_TUNABLES': TUNABLES, 'LD_BIND_NOW': '1', 'LC_ALL': 'C'})
        if run.returncode != 0:
            sys.exit(run.stderr)
        totals, names = {}, {}
        for path in sorted(pathlib.Path(folder).glob('out.*'), key=lambda each: int(each.suffix[1:])):
            trigger, total = read_dump(path, names, functions)
            if trigger is not None:
                totals[trigger] = total
    for line in run.stdout.splitlines():
        number, name, allocations, size = line.split('\t')
        item = items[name]
        for place, more in enumerate((1, totals[int(number)], int(allocations), int(size))):
            item[place] += more
    return items, functions


def tools():
    """What builds the program and what it runs on, in a line."""
    said = [subprocess.run([program, '--version'], capture_output=True, text=True).stdout.splitlines()[0]
            for program in ('g++', 'ldd', 'valgrind')]
    return '# ' + ', '.join(said)


def write(counted):
    """Keeps the table as text."""
    lines = ['# What the gestures and calls of the recorded sessions cost: kept by ./bench --counts --write.', tools(),
             '# further tables, times, instructions, allocations, bytes, name']
    for further, (items, _) in counted.items():
        lines += ['\t'.join(map(str, (further, *items[name], name))) for name in sorted(items)]
    lines.append('# further tables, instructions, function')
    for further, (_, functions) in counted.items():
        lines += ['\t'.join(map(str, (further, cost, name))) for name, cost in functions.most_common(FUNCTIONS)]
    KEPT.write_text('\n'.join(lines) + '\n')


def kept():
    """What write() has written."""
    counted = {further: ({}, collections.Counter()) for further in FURTHER_TABLES}
    for line in KEPT.read_text().splitlines():
        if line.startswith('#'):
            continue
        parts = line.split('\t')
        items, functions = counted[int(parts[0])]
        if len(parts) == 3:
            functions[parts[2]] = int(parts[1])
        else:
            items[parts[5]] = [int(part) for part in parts[1:5]]
    return counted


def compare(before, now):
    """Tells what has changed; gives whether something rose too far."""
    any_risen = False
    for further in FURTHER_TABLES:
        risen = False
        old_items, old_functions = before[further]
        items, functions = now[further]
        if set(old_items) != set(items):
            print('Not counted the same: ' + ', '.join(sorted(set(old_items) ^ set(items))))
            risen = True
        for name in sorted(set(old_items) & set(items)):
            for place, what in ((1, 'instructions'), (2, 'allocations'), (3, 'bytes')):
                old, new = old_items[name][place], items[name][place]
                if new > old * MOST_RISE and new - old > (LEAST if place == 1 else 0):
                    print(f'{name}, {further} further tables: {old:,} {what} before, {new:,} now')
                    risen = True
                elif new * MOST_RISE < old:
                    print(f'{name}, {further} further tables: {what} fell from {old:,} to {new:,}')
        if risen:
            rises = {name: cost - old_functions[name] for name, cost in functions.items() if name in old_functions}
            for name, cost in functions.most_common(FUNCTIONS):
                rises.setdefault(name, cost)
            for name in sorted(rises, key=rises.get, reverse=True)[:5]:
                if rises[name] > 0:
                    print(f'  {name} takes {rises[name]:,} instructions more than the {old_functions[name]:,} before')
        any_risen = any_risen or risen
    return any_risen


def main():
    arguments = sys.argv[1:]
    program = os.path.relpath(arguments[-1], HERE)
    counted = {further: count(program, further) for further in FURTHER_TABLES}
    if arguments[0] == '--write':
        write(counted)
        print(f'Kept in {KEPT.name}')
        return
    if compare(kept(), counted):
        if tools() not in KEPT.read_text().splitlines():
            print('The tools are others than those of the kept counts: ' + tools()[2:])
        sys.exit('Something costs more than before. If it must, ./bench --counts --write keeps the new counts.')
    items = sum(len(items) for items, _ in counted.values())
    print(f'{items} gestures and calls cost at most 2 % more than before')


main()
