// What docs/web.md shows is what stands in examples/web, and it works: the complete small page
// runs, answers a request inside its event, and shows the statement.
import assert from 'node:assert/strict';
import {existsSync, readFileSync} from 'node:fs';
import {readFile} from 'node:fs/promises';
import path from 'node:path';
import {after, before, describe, test} from 'node:test';

import {kEvents, kForm, kMembers} from './form.mjs';
import {closePage, Person, Stage} from './harness.mjs';
import {kPackage, kRoot, kTests} from './places.mjs';

/** @import {Member} from '../../faces/web/package/types.mjs' */
/** @import {Manifest} from './types' */

/** @type {(name: string) => Promise<string>} */
const documentOf = (name) => readFile(path.join(kRoot, name), 'utf8');

describe('docs/web.md', () => {
  /** @type {string} */
  let page;
  /** @type {Stage} */
  let stage;

  before(async () => {
    page = await documentOf('docs/web.md');
    stage = await Stage.open({
      '/': path.join(kRoot, 'examples/web'),
      '/tests/': path.join(kTests, 'pages'),
    });
  });
  after(() => stage.close());

  for (const [file, language] of [
    ['minimal.html', 'html'],
    ['minimal.js', 'js'],
    ['rule_check.mjs', 'js'],
  ]) {
    test(`has ${file} as it is`, async () => {
      const blocks = [...page.matchAll(/^```(\w*)\n(.*?)^```$/gms)];
      const text = await documentOf(`examples/web/${file}`);
      const found = blocks.filter(([, word, block]) => word === language && block === text);
      assert.equal(found.length, 1);
      assert.ok(page.includes(`\`examples/web/${file}\``));
    });
  }

  test('names every member and event of the contract', () => {
    const rows = [...page.matchAll(/^\| `(\w+)[^`]*` \| (.*) \|$/gm)].map(([, name, cells]) => [
      name,
      cells.split(' | ').at(-1),
    ]);
    /** @type {(member: Member) => string} */
    const told = (member) => {
      if (member.isMethod) return 'method';
      if (!member.canGet) return 'written; notice';
      return member.canSet ? 'written and read' : 'read';
    };
    for (const member of kMembers) {
      const row = rows.filter(([name]) => name === member.name);
      assert.equal(row.length, 1, member.name);
      assert.equal(row[0][1], told(member), member.name);
    }
    for (const name of kEvents)
      assert.equal(rows.filter(([first]) => first === name).length, 1, name);
  });

  test('names every custom property and every part', () => {
    /** @type {Manifest} */
    const manifest = JSON.parse(readFileSync(path.join(kPackage, 'custom-elements.json'), 'utf8'));
    const {cssParts, cssProperties} = manifest.modules[0].declarations[0];
    const rows = [...page.matchAll(/^\| `(--zolt20-[\w-]+)` \|/gm)].map(([, name]) => name);
    assert.deepEqual(
      rows,
      cssProperties.map(({name}) => name),
    );
    const table = /\| part \|.*?\n((?:\|.*\n)+)/.exec(page)?.[1] ?? '';
    const told = [...table.matchAll(/^\| `(\w+)` \| (.*?) \| ?(.*?) ?\|$/gm)].map(
      ([, name, what, states]) => ({
        name,
        description: [what, states.replaceAll('`', '')].filter(Boolean).join('; states: '),
      }),
    );
    const controls = new Set(Object.keys(kForm).map((name) => name.replace(/\(\d+\)$/, '')));
    const kinds = cssParts.filter(
      ({name, description = ''}) => !controls.has(name) && !description.startsWith('a state: '),
    );
    assert.deepEqual(told, kinds);
    // And every control is a part.
    assert.equal(cssParts.filter(({name}) => controls.has(name)).length, controls.size);
  });

  test('leads to what is there', async () => {
    const links = [...page.matchAll(/\]\(([^)#]+)(#[^)]*)?\)/g)].map(([, link]) => link);
    assert.ok(links.length > 3);
    for (const link of links) assert.ok(existsSync(path.join(kRoot, 'docs', link)), link);
    const headings = [...page.matchAll(/^#+ (.*)$/gm)].map(([, heading]) =>
      heading.toLowerCase().replaceAll(' ', '-'),
    );
    for (const [, heading] of page.matchAll(/\]\(#(.*?)\)/g))
      assert.ok(headings.includes(heading), heading);
  });

  test('the small page answers a request inside its event and shows the statement', async () => {
    const person = new Person(await stage.openPage('minimal.html'));
    await person.page.addScriptTag({url: '/tests/host.js'});
    await person.page.evaluate(() =>
      customElements.whenDefined('zolt20-map-control').then(() => beginHost()),
    );
    await person.clickRow('lsttables', 0);
    await person.clickRow('lstFields', 2);
    await person.click('cmdMoveOne');
    await person.click('cmdAddSelect');
    for (const [number, box] of [
      'txtSelectDo',
      'txtSelectEOS',
      'txtselectempty',
      'txtSelectError',
    ].entries()) {
      await person.tab(2 + number);
      await person.takeLog();
      await person.click(`cmdFunction(${number})`);
      const log = await person.takeLog();
      assert.ok(
        log.some(({event}) => event === 'eventFunction'),
        JSON.stringify(log),
      );
      assert.equal((await person.dump()).controls[box].Text, 'print ( :var.name )');
    }
    await person.tab(2);
    await person.click('cmdAddSelectDoQuer');
    await person.tab(6);
    await person.click('optwhile');
    await person.focus('txtWhlStm');
    await person.click('cmdSubQuery(4)');
    assert.equal((await person.dump()).controls.txtWhlStm.Text, 'print ( :var.name )');
    await person.tab(0);
    await person.click('cmdDone');
    assert.equal(
      await person.page.evaluate(() => document.querySelector('pre').textContent),
      [
        'select CUSTOMER.C_LAST',
        'from  CUSTOMER',
        ...['selectdo', 'selecteos', 'selectempty', 'selecterror'].flatMap((keyword) => [
          keyword,
          '\tprint ( :var.name )',
        ]),
        'endselect',
        '',
        'char*Q*V*R*N*NCUSTOMER.C_LAST*Q*V*R*N*name',
      ].join('\r\n'),
    );
    await closePage(person.page);
  });
});
