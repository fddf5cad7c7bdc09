"""The small changes of the logic that mutate.py tries: what they are, and all that a source file has room for."""
import pathlib
import re

KINDS = {
    'comparison': 'a comparison turned round, or its bound moved by one',
    'junction': '"and" and "or" taken for each other',
    'negation': 'the condition of an if or a while negated',
    'truth': 'true and false taken for each other',
    'number': 'a number one more or one less',
    'sign': 'plus and minus taken for each other',
    'text': 'a character of a text added, dropped or changed',
    'dropped': 'a statement left out',
    'swapped': 'two statements in the other order',
}


class Mutant:
    def __init__(self, path, kind, start, end, new, text, change):
        self.path, self.kind, self.start, self.end, self.new = path, kind, start, end, new
        line_start = text.rfind('\n', 0, start) + 1
        line_end = text.find('\n', start)
        self.line = text.count('\n', 0, start) + 1
        context = text[line_start:line_end].strip()
        if kind in ('dropped', 'swapped'):
            self.name = '%s: %s: %s' % (path, kind, change)
        else:
            self.name = '%s: %s, %s: %s' % (path, kind, change, context)

    def applied(self, text):
        return text[:self.start] + self.new + text[self.end:]


def quoted(text):
    return '`%s`' % text


def one_line(text):
    return re.sub(r'\s+', ' ', text.strip())


def masked(text):
    """The text with comments, preprocessor lines, assertions and what stands in literals made blank, place for place.

    Beside it, the literals as (start, end) of what stands between their quotes.
    """
    out = list(text)
    literals = []

    def blank(start, end):
        for i in range(start, end):
            if out[i] != '\n':
                out[i] = ' '

    token = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|(?<![0-9A-Fa-f])\'(?:\\.|[^\'\\\n])+\'|'
                       r'(?m:^[ \t]*#(?:[^\n]*\\\n)*[^\n]*)', re.S)
    for found in token.finditer(text):
        start, end = found.span()
        if found.group()[0] in '"\'':
            literals.append((start + 1, end - 1))
            blank(start + 1, end - 1)
        elif text[start] == 'u':
            continue
        else:
            blank(start, end)
    for found in re.finditer(r'\b(?:static_)?assert\(', ''.join(out)):
        end = matching(''.join(out), found.end() - 1)
        blank(found.start(), end)
        literals = [each for each in literals if not found.start() <= each[0] < end]
    return ''.join(out), literals


def matching(text, opened):
    """The place behind the parenthesis that closes the one at `opened`."""
    depth = 0
    for i in range(opened, len(text)):
        if text[i] == '(':
            depth += 1
        elif text[i] == ')':
            depth -= 1
            if depth == 0:
                return i + 1
    return len(text)


def statements(mask):
    """Yields runs of neighbouring statements that can be left out, each as a list of (start, end) with the semicolon."""
    run = []
    depth = 0
    start = 0
    for i, character in enumerate(mask):
        if character == '(':
            depth += 1
        elif character == ')':
            depth -= 1
        elif depth == 0 and character in '{}':
            if run:
                yield run
            run, start = [], i + 1
        elif depth == 0 and character == ';':
            begin, is_alone = begin_of_statement(mask, start, i)
            movable = begin is not None
            if not is_alone and run:
                yield run
                run = []
            if movable:
                run.append((begin, i + 1))
            if run and (not movable or not is_alone):
                yield run
                run = []
            start = i + 1
    if run:
        yield run


def begin_of_statement(mask, start, end):
    """Where the statement that ends there begins, behind labels and heads, or None when it is no statement to leave out;
    and whether it stands on its own, behind no head."""
    is_alone = True
    while True:
        start += len(mask[start:end]) - len(mask[start:end].lstrip())
        rest = mask[start:end]
        label = re.match(r'(?:case [\w:]+|default|public|private|protected)\s*:(?!:)', rest)
        head = re.match(r'(?:else\s+)?(?:if|for|while|switch) (?:constexpr )?\(', rest)
        if label:
            start += label.end()
            is_alone = False
        elif head:
            start = matching(mask, start + head.end() - 1)
            is_alone = False
        elif re.match(r'else\b', rest):
            start += len('else')
            is_alone = False
        else:
            break
    rest = mask[start:end].strip()
    if not rest:
        return None, is_alone
    if re.match(r'(?:return|break|continue|throw)\b', rest):
        return start, False
    if re.match(r'(?:const|constexpr|static|auto|using|struct|class|enum|template|friend|typedef|inline|namespace)\b', rest):
        return None, is_alone
    if re.match(r'[\w:]+(?:<[^;()]*>)?[&*]* +[&*]*\w+\s*(?:$|[=({;])', rest) or '= default' in rest:
        return None, is_alone
    if not re.match(r'[\w(*+:-]', rest):
        return None, is_alone
    return start, is_alone


def commute(first, second):
    """Whether the two are plain writes to different things, of which neither fires an event, can fail or reads anything."""
    write = re.compile(r'(\w+(?:\(\d+\))?)(?:\.(?:Visible|Enabled|BackColor|Caption|Clear|clear)\([^()]*\)|\.Text\(u""\)| = [\w.]+);')
    left, right = write.fullmatch(first.strip()), write.fullmatch(second.strip())
    return bool(left and right and 'txtwhereCondition' not in first + second and left.group(1) != right.group(1) and
                left.group(1) not in second and right.group(1) not in first)


def units(literal):
    """The characters of a literal, escapes as one."""
    return re.findall(r'\\u[0-9A-Fa-f]{4}|\\.|.', literal, re.S)


def changed_texts(literal, quote):
    """Yields the texts that a literal is changed to."""
    pieces = units(literal)
    if quote == "'":
        yield '_' if literal != '_' else ' '
        return
    if not pieces:
        yield 'x'
        return
    gaps = [i for i, piece in enumerate(pieces) if piece in (' ', '\\n', '\\t')]
    if gaps:
        yield ''.join(pieces[:gaps[0]] + pieces[gaps[0] + 1:])
        if gaps[-1] != gaps[0]:
            yield ''.join(pieces[:gaps[-1]] + pieces[gaps[-1] + 1:])
    yield literal + ' '
    other = pieces[-1].swapcase() if pieces[-1].swapcase() != pieces[-1] else '_'
    yield ''.join(pieces[:-1] + [other])


def mutants_of(path):
    text = pathlib.Path(path).read_text('utf-8')
    mask, literals = masked(text)
    found = []

    def add(kind, start, end, new, change=None):
        found.append(Mutant(path, kind, start, end, new, text,
                            change or '%s to %s' % (quoted(text[start:end]), quoted(new))))

    # The format puts blanks around these where they compare, and none where they are brackets or references.
    for old, new in [('<', '<='), ('<=', '<'), ('>', '>='), ('>=', '>'), ('==', '!='), ('!=', '==')]:
        for each in re.finditer(r'(?<!template)(?<!operator) (%s)(?= |\n)' % re.escape(old), mask):
            add('comparison', each.start(1), each.end(1), new)
    for old, new in [('&&', '||'), ('||', '&&')]:
        for each in re.finditer(r' (%s)(?= |\n)' % re.escape(old), mask):
            add('junction', each.start(1), each.end(1), new)
    for each in re.finditer(r'\b(?:if|while) (?:constexpr )?\(', mask):
        start, end = each.end(), matching(mask, each.end() - 1) - 1
        semicolon = mask.rfind(';', start, end)
        start = start if semicolon < 0 else semicolon + 2
        if re.match(r'const\b|auto\b', mask[start:end]):
            continue
        add('negation', start, end, '!(%s)' % text[start:end], quoted(one_line(text[start:end])) + ' negated')
    for old, new in [('true', 'false'), ('false', 'true')]:
        for each in re.finditer(r'\b%s\b' % old, mask):
            add('truth', each.start(), each.end(), new)
    for each in re.finditer(r'(?<![\w.])(0x[0-9A-Fa-f]+|\d+)(?![\w.])', mask):
        digits = each.group(1)
        value = int(digits, 0)
        for new in [value + 1, value - 1]:
            if new >= 0:
                add('number', each.start(), each.end(), hex(new) if digits.startswith('0x') else str(new))
    for pattern, old, new in [(r' (\+)(?= |\n)', '+', '-'), (r' (-)(?= |\n)', '-', '+'), (r' (\+=) ', '+=', '-='),
                              (r' (-=) ', '-=', '+='), (r'(?<!\+)(\+\+)', '++', '--'), (r'(?<!-)(--)', '--', '++'),
                              (r'(?<=[(\s])(-)(?=\w)', '-', '')]:
        for each in re.finditer(pattern, mask):
            add('sign', each.start(1), each.end(1), new)
    for start, end in literals:
        for new in changed_texts(text[start:end], text[end]):
            add('text', start, end, new)
    for run in statements(mask):
        for start, end in run:
            lines = text.count('\n', start, end)
            add('dropped', start, end, ';' + '\n' * lines, quoted(one_line(text[start:end])))
        for (first, first_end), (second, second_end) in zip(run, run[1:]):
            if text[first:first_end] == text[second:second_end] or commute(text[first:first_end], text[second:second_end]):
                continue
            add('swapped', first, second_end,
                text[second:second_end] + text[first_end:second] + text[first:first_end],
                '%s and %s' % (quoted(one_line(text[first:first_end])), quoted(one_line(text[second:second_end]))))

    seen = {}
    for mutant in sorted(found, key=lambda each: (each.start, each.end)):
        seen[mutant.name] = seen.get(mutant.name, 0) + 1
        if seen[mutant.name] > 1:
            mutant.name += ' [%d]' % seen[mutant.name]
    return found
