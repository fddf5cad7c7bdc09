// The statement language in scripts: what the entry "language" of the package gives is what
// zolt20-host gives, in Node and in a page, where an element takes the parts and steps.
import assert from 'node:assert/strict';
import {spawnSync} from 'node:child_process';
import {mkdtempSync, readFileSync, rmSync, writeFileSync} from 'node:fs';
import {tmpdir} from 'node:os';
import path from 'node:path';
import {after, before, describe, test} from 'node:test';
import {pathToFileURL} from 'node:url';

import {fieldListOf, readCatalogue, tableListOf} from '../../examples/web/catalogue.js';
import {closePage, Stage} from './harness.mjs';
import {Site} from './packed.mjs';
import {kHost, kPackage, kRoot} from './places.mjs';
import {
  exampleTexts,
  kCatalogueFile,
  numbersOf,
  randomStatement,
  randomText,
} from './statement_texts.mjs';

const {check, encode, explain, outline, reopen, uses} =
  /** @type {typeof import('../../faces/web/package/zolt20-language')} */ (
    await import(String(pathToFileURL(path.join(kPackage, 'zolt20-language.js'))))
  );

const read = readCatalogue(new Uint8Array(readFileSync(kCatalogueFile)).buffer);
const catalogue = {tables: tableListOf(read), fields: fieldListOf(read)};

/// What the program prints of a text.
/** @type {(text: string, ...words: string[]) => string} */
function host(text, ...words) {
  const {stdout, stderr, status} = spawnSync(kHost, words, {input: text, encoding: 'utf8'});
  assert.equal(stderr, '');
  assert.ok(status === 0 || status === 1);
  return stdout;
}
/** @type {(all: object[]) => string} */
const lines = (all) => all.map((each) => `${JSON.stringify(each)}\n`).join('');

/** @type {(text: string) => void} */
function holdsAgainstHost(text) {
  const nodes = outline(text);
  const told = nodes.map(({kind, first, last, depth, head, problem}) => ({
    ...{kind, first, last, depth, head},
    ...(problem === undefined ? {} : {problem}),
  }));
  assert.equal(lines(told), host(text, '--outline'), JSON.stringify(text));
  for (const names of [undefined, catalogue]) {
    const findings = check(text, names).map(
      ({line, column, first, length, code, severity, sentence}) => ({
        ...{line, column, first, length, code, severity},
        text: sentence,
      }),
    );
    const words = names === undefined ? [] : ['--catalogue', kCatalogueFile];
    assert.equal(lines(findings), host(text, '--check', '--json', ...words), JSON.stringify(text));
  }
}
/** @type {(text: string) => boolean} */
function opensAsInHost(text) {
  const {isEqual, ...opening} = reopen(text, catalogue).opening;
  assert.equal(
    lines([{equal: isEqual, ...opening}]),
    host(text, '--open', '--catalogue', kCatalogueFile),
    JSON.stringify(text),
  );
  return isEqual;
}

describe('beside zolt20-host', () => {
  test('the examples have the same tree and the same findings', () => {
    const texts = exampleTexts();
    assert.ok(texts.length > 8);
    for (const text of texts) holdsAgainstHost(text);
  });

  test('1,000 random texts have the same tree and the same findings', {timeout: 600000}, () => {
    const any = numbersOf(7);
    const codes = new Set();
    for (let count = 0; count < 1000; ++count) {
      const text = randomText(any);
      holdsAgainstHost(text);
      for (const {code} of check(text, catalogue)) codes.add(code);
    }
    assert.ok(codes.size > 10, [...codes].join());
  });

  test('texts are told in the same words', () => {
    const any = numbersOf(3);
    for (const text of [...exampleTexts(), ...Array.from({length: 40}, () => randomText(any))]) {
      const told = explain(text).map(({sentence, depth}) => `${'  '.repeat(depth)}${sentence}\n`);
      assert.equal(told.join(''), host(text, '--explain'));
    }
  });

  test('statements are opened by the same steps', {timeout: 300000}, () => {
    const any = numbersOf(11);
    const texts = [...exampleTexts(), ...Array.from({length: 150}, () => randomStatement(any))];
    const equal = texts.filter(opensAsInHost);
    assert.ok(equal.length > 50 && equal.length < texts.length, `${equal.length} came back`);
  });
});

describe('the functions', () => {
  test('tell the uses of names as zolt20-host does of a file of rules', () => {
    const folder = mkdtempSync(path.join(tmpdir(), 'zolt20-uses-'));
    try {
      const file = path.join(folder, 'rules.json');
      const texts = [...exampleTexts(), 'x = round(CUSTOMER.C_NONE) + "NOWHERE_.A"'];
      const rules = texts.map((text, at) => ({name: String(at), text, fields: ''}));
      writeFileSync(file, JSON.stringify({format: 'zolt20 rules', version: 1, rules}));
      for (const names of [undefined, catalogue]) {
        const told = rules.flatMap(({name: rule, text}) =>
          uses(text, names)
            .filter((use) => names === undefined || use.missing)
            .map(({line, column, first, length, kind, name, place}) => ({
              ...{rule, line, column, first, length, kind, name, place},
            })),
        );
        const words = names === undefined ? [] : ['--catalogue', kCatalogueFile];
        const printed = host('', '--uses', '--json', ...words, file)
          .split('\n')
          .filter((line) => line !== '')
          .map((line) => {
            const {node, ...use} = JSON.parse(line);
            assert.equal(typeof node, 'string');
            return use;
          });
        assert.deepEqual(told, printed);
        assert.ok(told.length > (names === undefined ? 20 : 0));
      }
    } finally {
      rmSync(folder, {recursive: true});
    }
  });

  test('name the node of a use, and what is missing only with a catalogue', () => {
    const text = 'select CUSTOMER.C_ID\r\nfrom  CUSTOMER\r\nwhere NOWHERE_.A = "NOWHERE_.A"';
    const [field, table, other, quoted] = uses(text, catalogue);
    assert.deepEqual(field, {
      ...{line: 1, column: 8, first: 7, length: 13, kind: 'field', name: 'CUSTOMER.C_ID'},
      ...{place: 'clause', node: field.node, missing: false},
    });
    assert.equal(outline(text)[field.node].kind, 'select list');
    assert.deepEqual([table.kind, table.missing], ['table', false]);
    assert.deepEqual([other.name, other.missing], ['NOWHERE_.A', true]);
    assert.deepEqual([quoted.place, quoted.missing], ['string', false]);
    assert.ok(!('missing' in uses(text)[0]));
    assert.ok(!('missing' in uses(text, null)[0]));
    assert.deepEqual(uses(''), []);
  });

  test('tell of each node what is around it and in it', () => {
    const nodes = outline('if a then\r\n\tx\r\nendif\r\ny');
    assert.deepEqual(
      nodes.map(({parent, behind, headFirst, headLast}) => [parent, behind, headFirst, headLast]),
      [
        [-1, 4, 0, 9],
        [0, 2, 0, 9],
        [0, 3, 12, 13],
        [0, 4, 15, 20],
        [-1, 5, 22, 23],
      ],
    );
    assert.ok(!('problem' in nodes[0]));
  });

  test('count places in units of UTF-16, halves of pairs among them', () => {
    const [, finding] = check('\u{1f600}\ud800 = "\r\n\u{1f600} ~');
    assert.deepEqual([finding.line, finding.column, finding.first], [2, 4, 12]);
    assert.equal(outline('\ud83d')[0].head, '\ud83d');
  });

  test('name the node of a finding, and leave names alone without a catalogue', () => {
    const text = 'select CUSTOMER.C_LSAT\r\nfrom  CUSTOMER\r\nendselect';
    assert.deepEqual(check(text), []);
    const [{code, node}] = check(text, catalogue);
    assert.equal(code, 'unknown-field');
    assert.equal(outline(text)[node].kind, 'select list');
    const none = {tables: '', fields: ''};
    assert.deepEqual(
      check(text, none).map((each) => each.code),
      ['unknown-table', 'unknown-table'],
    );
    assert.deepEqual(check(text, null), []);
    assert.equal(check(text, catalogue).length, 1); // the one from before, again
  });

  test('split a statement into the parts that are there', () => {
    const {parts, problems, rest} = reopen(
      'select A.B\r\nfrom  A\r\nwhere "x"\r\nselectdo\r\n\ta~b\r\nendselect',
    );
    assert.deepEqual(Object.entries(parts), [
      ['prpSelectFromPart', 'A'],
      ['prpSelectPart', 'A.B'],
      ['prpSelectWherePart', '`^`x`^`'],
    ]);
    assert.equal(rest, 'selectdo\r\n\ta~b');
    assert.deepEqual(problems, [
      {line: 5, column: 3, message: 'no encoding can send what stands here'},
    ]);
    assert.deepEqual(reopen('x = 1'), {
      parts: {},
      problems: [{line: 1, column: 1, message: "a statement begins with 'select '"}],
      rest: 'x = 1',
    });
  });

  test('encode a text as properties take it', () => {
    assert.equal(encode('a\r\n\t"b"'), 'a~\u0001`^`b`^`');
    assert.equal(encode('a~'), undefined);
    assert.equal(encode(''), '');
  });

  test('refuse what is no string and no catalogue', () => {
    for (const wrong of [undefined, null, 1, {}]) {
      for (const ask of [outline, check, uses, explain, reopen, encode]) {
        // @ts-expect-error they take strings
        assert.throws(() => ask(wrong), TypeError);
      }
    }
    for (const wrong of [1, {}, {tables: ''}, {tables: '', fields: 1}]) {
      // @ts-expect-error a catalogue has two strings
      assert.throws(() => check('', wrong), TypeError);
      // @ts-expect-error the same
      assert.throws(() => uses('', wrong), TypeError);
      // @ts-expect-error the same
      assert.throws(() => reopen('', wrong), TypeError);
    }
  });

  test('take a text of millions of letters', () => {
    const text = 'if a then\r\n\tx = 1\r\nendif\r\n'.repeat(100000);
    assert.equal(outline(text).length, 400000);
    assert.deepEqual(check(text), []);
  });
});

describe('the types', () => {
  const types = readFileSync(path.join(kPackage, 'zolt20-language.d.ts'), 'utf8');
  /** @type {(name: string) => string[]} */
  const wordsOf = (name) => {
    const [, body] = new RegExp(`export type ${name} =([^;]*);`).exec(types) ?? [];
    return [...body.matchAll(/'(.*?)'/g)].map(([, word]) => word);
  };
  /** @type {(file: string, from: RegExp) => string[]} */
  const wordsIn = (file, from) => {
    const text = readFileSync(path.join(kRoot, file), 'utf8');
    return [...text.matchAll(from)].map(([, word]) => word);
  };

  test('have every code of a finding, and every part', () => {
    const codes = wordsIn('language/words.def', /^ZOLT20_MISTAKE\(\w+, "([\w-]+)"/gm);
    assert.deepEqual(wordsOf('FindingCode'), codes);
    assert.ok(codes.length > 10);
    const parts = wordsIn('language/reopen.cpp', /^ +\{"(prp\w+)"/gm);
    assert.deepEqual(wordsOf('PartName'), parts);
    assert.equal(parts.length, 10);
  });

  test('have every kind and problem of a node', () => {
    const source = readFileSync(path.join(kRoot, 'language/outline.cpp'), 'utf8');
    /** @type {(name: string) => string[]} */
    const listed = (name) => {
      const [, body] = new RegExp(`${name}\\b[^{]*\\{([^;]*);`).exec(source) ?? [];
      return [...body.matchAll(/"([^"]*)"/g)].map(([, word]) => word);
    };
    assert.deepEqual(wordsOf('NodeKind'), listed('kKindNames'));
    assert.deepEqual(wordsOf('NodeProblem'), listed('kProblemNames').slice(1));
    assert.ok(wordsOf('NodeProblem').length > 3);
  });
});

describe('in a page', () => {
  /** @type {Stage} */
  let stage;
  before(async () => {
    stage = await Stage.open();
  });
  after(() => stage?.close());

  test('nothing of the element comes along, and it can be compiled aside', async () => {
    const page = await stage.openPage('empty.html');
    /** @type {string[]} */
    const loaded = [];
    page.on('request', (request) => loaded.push(new URL(request.url()).pathname));
    const told = await page.evaluate(async () => {
      const language = await import(String('/package/zolt20-language.js'));
      await language.load();
      const [finding] = language.check('endif');
      return [finding.code, customElements.get('zolt20-map-control') === undefined];
    });
    assert.deepEqual(told, ['nothing-to-close', true]);
    assert.deepEqual(loaded, ['/package/zolt20-language.js']);
    await closePage(page);
  });

  test('the parts of a statement bring it back in an element', async () => {
    const person = await stage.openElement();
    const stored = [
      'select CUSTOMER.C_LAST,ORDERS__.O_ID',
      'from  ORDERS__,CUSTOMER',
      'where CUSTOMER.C_LAST = "x"',
      'selectdo',
      '\ty = "z"',
      'endselect',
    ].join('\r\n');
    await person.page.evaluate(
      async ([text, lists]) => {
        const {reopen: parted} = await import(String('/package/zolt20-language.js'));
        const element = document.querySelector('zolt20-map-control');
        element.PrpStrTables = lists.tables;
        element.PrpStrFields = lists.fields;
        Object.assign(element, parted(text).parts);
      },
      /** @type {const} */ ([stored, catalogue]),
    );
    await person.click('cmdAddSelect');
    assert.equal((await person.dump()).controls.TxtOutput.Text, stored);
    await closePage(person.page);
  });
});

describe('the sample of docs/web.md', () => {
  test('is the one of examples/web, and prints what stands below it', () => {
    const page = readFileSync(path.join(kRoot, 'docs/web.md'), 'utf8');
    const program = readFileSync(path.join(kRoot, 'examples/web/rule_check.mjs'), 'utf8');
    const section = page.slice(page.indexOf('`examples/web/rule_check.mjs`'));
    const [[, , shown], [, , printed]] = [...section.matchAll(/^```(\w*)\n(.*?)^```$/gms)];
    assert.equal(shown, program);
    const site = new Site();
    try {
      const file = path.join(site.folder, 'rule_check.mjs');
      writeFileSync(file, program);
      const {stdout, stderr} = spawnSync(process.execPath, [file], {encoding: 'utf8'});
      assert.equal(stderr, '');
      assert.equal(stdout, printed);
    } finally {
      site.remove();
    }
  });
});
