// The words that the element adds to the control's own, given by the page.
import assert from 'node:assert/strict';
import {after, before, describe, test} from 'node:test';

import {Stage} from './harness.mjs';

/** @import {Page} from 'playwright-core' */
/** @import {Person} from './harness.mjs' */

const kMost = 60000;
const kTables = 'TABLE__11,TABLE__21';
const kFields = 'char*Q*V*R*N*NTABLE__1.A*Q*V*R*N*text,char*Q*V*R*N*NTABLE__1.B*Q*V*R*N*text';
const kTexts = {
  undo: 'Zurück',
  redo: 'Wieder',
  history: 'Verlauf',
  undone: 'Zurückgenommen',
  filter: 'Filtern (Strg+F)',
  filterOf: '{list} filtern',
  hiddenMarks: '{shown} von {marked}',
  search: 'Suchen',
  searchOf: '{list} durchsuchen',
  entriesOf: 'Werte von {list}',
  noEntries: 'Nichts',
  ok: 'Gut',
  missing: 'Es fehlt etwas.',
  rows: '{count} Zeilen',
  lstFields: 'Felder',
  lsttables: 'Tabellen',
  cboWhereFields: 'Erster Operand',
  cboWhereFields1: 'Wert',
  TxtOutput: 'Ergebnis',
};

/** @type {Stage} */
let stage;
/** @type {Person} */
let person;
/** @type {Page} */
let page;
before(async () => {
  stage = await Stage.open();
  person = await stage.openElement();
  ({page} = person);
});
after(() => stage?.close());

/// A test at a new element with a catalogue.
/** @type {(name: string, act: () => Promise<void>) => void} */
function withPerson(name, act) {
  test(name, {timeout: kMost}, async () => {
    await person.makeNew('{"new":{}}');
    await page.evaluate(
      ([tables, fields]) =>
        Object.assign(host.element, {PrpStrTables: tables, PrpStrFields: fields}),
      [kTables, kFields],
    );
    await act();
    assert.deepEqual(page.complaints.splice(0), []);
  });
}
/** @type {(texts: Record<string, string> | null) => Promise<void>} */
const give = (texts) =>
  page.evaluate((given) => {
    host.element.texts = given;
  }, texts);
/// What is shown and said of these words.
const seen = () =>
  page.evaluate(() => {
    const {shadowRoot: root} = host.element;
    const label = (/** @type {string} */ id) => root.getElementById(id).getAttribute('aria-label');
    return [
      label('undo'),
      root.getElementById('redo').title,
      root.querySelector('.tools').getAttribute('aria-label'),
      root.getElementById('lsttables.filter').placeholder,
      label('lsttables.filter'),
      label('lsttables'),
      label('TxtOutput'),
      root.getElementById('cboWhereFields.search').placeholder,
      label('cboWhereFields.search'),
      label('cboWhereFields1.open'),
      root.querySelector('dialog button').textContent,
    ];
  });
const kEnglish = [
  'Undo',
  'Redo (Ctrl+Y)',
  'History',
  'Filter (Ctrl+F)',
  'Filter Tables',
  'Tables',
  'Result',
  'Search',
  'Search Operand1',
  'Value entries',
  'OK',
];
const kGerman = [
  'Zurück',
  'Wieder (Ctrl+Y)',
  'Verlauf',
  'Filtern (Strg+F)',
  'Tabellen filtern',
  'Tabellen',
  'Ergebnis',
  'Suchen',
  'Erster Operand durchsuchen',
  'Werte von Wert',
  'Gut',
];

describe('texts', () => {
  withPerson('of the page are shown, and English ones again', async () => {
    await person.tab(1);
    assert.deepEqual(await seen(), kEnglish);
    await give(kTexts);
    assert.deepEqual(await seen(), kGerman);
    await give({undo: 'Back'});
    assert.deepEqual(await seen(), ['Back', ...kEnglish.slice(1)]);
    await give(null);
    assert.deepEqual(await seen(), kEnglish);
  });

  withPerson('of the page are shown on a page that comes into sight later', async () => {
    await give(kTexts);
    await person.tab(1);
    assert.deepEqual(await seen(), kGerman);
  });

  withPerson('of the page are told of hidden marks and of changes', async () => {
    await give(kTexts);
    await person.clickRow('lsttables', 0);
    const told = () =>
      page.evaluate(() => host.element.shadowRoot.querySelector('.told').textContent?.trim());
    assert.equal(await told(), 'Felder 3 Zeilen, Group By 2 Zeilen');
    await page.evaluate(() => host.element.undo());
    assert.equal(await told(), 'Zurückgenommen');
    await person.clickRow('lsttables', 0);
    await person.press('lsttables.filter');
    await person.keyboard.type('2');
    assert.equal(await page.evaluate(() => host.on('lsttables.marks').textContent), '0 von 1');
    await give(null);
    assert.equal(
      await page.evaluate(() => host.on('lsttables.marks').textContent),
      '1 marked, 0 shown',
    );
  });

  withPerson('of the page say what a form misses', async () => {
    const messages = await page.evaluate((texts) => {
      const {element} = host;
      element.required = true;
      const english = element.validationMessage;
      element.texts = texts;
      return [english, element.validationMessage];
    }, kTexts);
    assert.deepEqual(messages, ['Please compose a statement.', 'Es fehlt etwas.']);
  });

  withPerson('leave the words of the pages as they are', async () => {
    const captions = () =>
      page.evaluate(() =>
        [...host.element.shadowRoot.querySelectorAll('.label, .title, [role=tab], [part~=button]')]
          .map(({textContent}) => textContent)
          .filter((text) => text !== 'OK'),
      );
    for (const tab of [1, 2, 3, 4, 5, 6]) await person.tab(tab);
    const before = await captions();
    assert.ok(before.length > 40);
    const all = await page.evaluate(() => {
      host.element.texts = Object.fromEntries(
        Object.keys(host.element.texts).map((key) => [key, `<${key}>`]),
      );
      return Object.values(host.element.texts).every((text) => text.startsWith('<'));
    });
    assert.ok(all);
    assert.deepEqual(
      (await captions()).filter((text) => text !== '<ok>'),
      before,
    );
  });

  withPerson('are known keys and strings', async () => {
    await person.tab(1);
    await give(kTexts);
    const came = await page.evaluate(() =>
      [{undoo: ''}, {undo: 1}, 'Undo', ['Undo'], {toString: 'x'}, {undo: 'A', other: 'B'}].map(
        (texts) => {
          try {
            Object.assign(host.element, {texts});
            return 'done';
          } catch (error) {
            return `${/** @type {Error} */ (error).constructor.name} ${host.element.texts.undo}`;
          }
        },
      ),
    );
    assert.deepEqual(came, Array(6).fill('TypeError Zurück'));
    assert.deepEqual(await seen(), kGerman);
    await page.evaluate(() => Object.assign(host.element, {texts: {undo: undefined, redo: null}}));
    assert.deepEqual(await seen(), kEnglish);
  });

  withPerson('belong to one element, and may be there before it is drawn', async () => {
    const found = await page.evaluate((texts) => {
      const other = document.createElement('zolt20-map-control');
      other.texts = texts;
      const own = other.shadowRoot.getElementById('undo').getAttribute('aria-label');
      const holder = document.createElement('div');
      holder.innerHTML = `<zolt20-map-control><script type="application/json">${JSON.stringify({texts})}</script></zolt20-map-control>`;
      document.querySelector('main').append(holder);
      const [json] = holder.querySelectorAll('zolt20-map-control');
      holder.remove();
      return [own, json.texts.undo, host.element.texts.undo];
    }, kTexts);
    assert.deepEqual(found, ['Zurück', 'Zurück', 'Undo']);
  });
});
