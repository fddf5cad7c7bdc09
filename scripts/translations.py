#!/usr/bin/env python3
"""Checks that the translations of the composer have all of its texts, and nothing else.

Its texts stand in tr() and QCoreApplication::translate() in hosts/composer/, the sentences of checks and explanations in
language/words.def, what hosts share tell people in Message() in hosts/kit/, and the words of known functions in
hosts/kit/functions.cpp. Exit status 1 when a text is missing or not translated, when one is translated that stands nowhere any more, when
a translation lacks what is filled in, or when a text goes past tr().
  translations.py           checks
  translations.py --update  takes new texts into the translations, unfinished, and texts that are gone out of them
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

SOURCES = pathlib.Path('hosts/composer')
SENTENCES = pathlib.Path('language/words.def')
KIT = pathlib.Path('hosts/kit')
FUNCTIONS = KIT / 'functions.cpp'
# For machines, and of zolt20-host alone, which speaks English.
ENGLISH_KIT = {'rules_cut.cpp', 'rules_place.cpp', 'rules_changes.cpp', 'request.cpp', 'functions.cpp'}
LITERAL = r'"(?:[^"\\\n]|\\.)*"'
# Texts that nobody reads: what databases are asked, names of connections and files.
FOR_MACHINES = re.compile(r'(?i)(?:select|set|zolt20) |new rule$|SQLite (?:format|$)|out of memory$')
MACHINE_FILES = {'server_questions.cpp'}


def lupdate():
    folders = [os.environ.get('PATH', ''), '/usr/lib/qt6/bin']
    return shutil.which('lupdate', path=os.pathsep.join(folders)) or sys.exit('lupdate is missing: it is in qt6-l10n-tools')


def joined(literals):
    return '"%s"' % ''.join(each[1:-1] for each in re.findall(LITERAL, literals))


def kit_patterns():
    """The patterns of the messages in hosts/kit."""
    for path in sorted(KIT.glob('*.cpp')):
        yield from map(joined, re.findall(r'\bMessage(?: \w+)?\(\s*(%s(?:\s*%s)*)' % (LITERAL, LITERAL), path.read_text('utf-8')))


def function_words():
    """Kinds, arguments and descriptions of the functions that hosts know."""
    source = FUNCTIONS.read_text('utf-8')
    words = re.findall(r'^constexpr StringView k\w+ = u(%s);' % LITERAL, source, re.M)
    for arguments, text in re.findall(r'\{k\w+, u%s, u(%s),\s*u(%s)\}' % (LITERAL, LITERAL, LITERAL), source):
        words += ['"%s"' % argument for argument in arguments[1:-1].split()] + [text]
    return words


def take_texts(translation, folder):
    """Brings a file of translations up to what stands in the sources; returns what the tool complains of."""
    sentences = re.findall(r'^ZOLT20_(?:WORD|MISTAKE)\(.*?\bu(%s)\)$' % LITERAL, SENTENCES.read_text('utf-8'), re.M)
    marked = folder / 'sentences.cpp'
    texts = [('language', text) for text in sentences] + [('kit', text) for text in kit_patterns()]
    texts += [('functions', text) for text in function_words()]
    marked.write_text(''.join('QT_TRANSLATE_NOOP("%s", %s);\n' % each for each in dict.fromkeys(texts)), 'utf-8')
    sources = sorted(SOURCES.glob('*.cpp')) + sorted(SOURCES.glob('*.h'))
    done = subprocess.run([lupdate(), '-silent', '-locations', 'none', '-no-obsolete', '-source-language', 'en', marked, *sources,
                           '-I', '.', '-ts', translation], capture_output=True, text=True, check=True)
    return (done.stdout + done.stderr).splitlines()


def texts_of(translation):
    """For each context and text its translation, None for one that is not finished."""
    texts = {}
    for context in xml.etree.ElementTree.parse(translation).getroot().iter('context'):
        for message in context.iter('message'):
            own = message.find('translation')
            key = (context.findtext('name'), message.findtext('source'), message.findtext('comment', ''))
            texts[key] = own.text if own.get('type') is None else None
    return texts


def filled_in(text):
    return sorted(re.findall(r'%L?\d|%n|\{\w+\}', text))


def fault_of(source, translated):
    """What is wrong with a translation beside its words, None for nothing."""
    if not translated:
        return 'is not translated'
    if filled_in(source) != filled_in(translated):
        return 'has other places to fill in: %s' % translated
    if re.search(r'&\w', source) and not re.search(r'&\w', translated):
        return 'has no letter for the keyboard: %s' % translated
    if source.endswith('...') != translated.endswith('...'):
        return 'has other dots at its end: %s' % translated
    return None


def texts_past_tr(path):
    """Yields the texts of a source file that people would read in English in whatever language."""
    source = re.sub(r'//.*', '', path.read_text('utf-8'))
    source = re.sub(r'R"\((.*?)\)"', lambda raw: '"%s"' % raw.group(1).replace('"', ''), source)
    source = re.sub(r'^#include.*', '', source, flags=re.M)
    for found in re.finditer(r'%s(?:\s*%s)*' % (LITERAL, LITERAL), source):
        before = source[:found.start()].rstrip()
        text = ''.join(each[1:-1] for each in re.findall(LITERAL, found.group()))
        # Some errors stay within the program.
        is_marked = re.search(r'(?:\btr\(|\bMessage(?: \w+)?\(|\btranslate\(\s*"\w+",|NOOP\("\w+",|\b(?:BadRequest|invalid_argument)\()$', before)
        if not is_marked and re.search(r"[A-Za-z']{2,} (?:[a-z]{2,}|$)", text) and not FOR_MACHINES.match(text):
            yield text


def complaints():
    for path in sorted(SOURCES.glob('*.cpp')) + sorted(KIT.glob('*.cpp')):
        if path.name not in MACHINE_FILES | ENGLISH_KIT:
            yield from ('%s: goes past tr(): "%s"' % (path, text) for text in texts_past_tr(path))
    translations = sorted(SOURCES.glob('translations/*.ts'))
    if not translations:
        yield 'There are no translations in %s' % SOURCES
    for translation in translations:
        with tempfile.TemporaryDirectory() as folder:
            taken = pathlib.Path(folder) / translation.name
            shutil.copy(translation, taken)
            yield from take_texts(taken, pathlib.Path(folder))
            here, wanted = texts_of(translation), texts_of(taken)
        for key in here.keys() - wanted.keys():
            yield '%s: %s: stands in no source any more: %s' % (translation, key[0], key[1])
        for key in sorted(wanted):
            fault = fault_of(key[1], here.get(key))
            if fault:
                yield '%s: %s: "%s" %s' % (translation, key[0], key[1], fault)


def main():
    if sys.argv[1:] == ['--update']:
        for translation in sorted(SOURCES.glob('translations/*.ts')):
            with tempfile.TemporaryDirectory() as folder:
                print(*take_texts(translation, pathlib.Path(folder)), sep='\n', end='')
            print('%s: %d texts to be translated' % (translation, sum(not text for text in texts_of(translation).values())))
        return 0
    found = list(complaints())
    for complaint in found:
        print(complaint)
    return 1 if found else 0


if __name__ == '__main__':
    sys.exit(main())
