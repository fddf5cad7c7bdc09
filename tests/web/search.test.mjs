// The line at the top of the open list of an operand: what it leaves, and what is picked there.
import assert from 'node:assert/strict';
import {after, before, describe, test} from 'node:test';

import {Stage} from './harness.mjs';

/** @import {Person} from './harness.mjs' */

const kMost = 60000;

/** @type {Stage} */
let stage;
/** @type {Person} */
let person;
before(async () => {
  stage = await Stage.open();
  person = await stage.openElement();
});
after(() => stage?.close());

/// A test at the Where page of a new element, both of whose tables are marked.
/** @type {(name: string, act: () => Promise<void>, many?: number) => void} */
function withOperands(name, act, many = 2) {
  test(name, {timeout: kMost}, async () => {
    await person.makeNew('{"new":{}}');
    await person.page.evaluate((count) => {
      const names = Array.from({length: count}, (_, row) => `F${String(row).padStart(5, '0')}`);
      const fields = [
        ...names.map((field) => `TABLE__1.${field}`),
        'TABLE__2.ЖУК',
        'TABLE__2.жираф',
      ].map((field) => `char*Q*V*R*N*N${field}*Q*V*R*N*text`);
      host.element.PrpStrTables = 'TABLE__10,TABLE__20';
      host.element.PrpStrFields = fields.join(',');
      globalThis.picks = [];
      host.element.addEventListener('gesturemade', () => {
        const made = host.element.madeGesture();
        if (made !== undefined && made.user !== 'focus')
          globalThis.picks.push(`${made.user} ${made.row ?? ''}`);
      });
    }, many);
    for (const row of [0, 1]) await person.clickRow('lsttables', row);
    await person.tab(1);
    await takeMade();
    await act();
    assert.equal(await person.difference(), '');
    assert.deepEqual(person.page.complaints.splice(0), []);
  });
}
const takeMade = () => person.page.evaluate(() => globalThis.picks.splice(0));
/** @type {(combo: string) => Promise<void>} */
const open = async (combo) => {
  await person.press(combo === 'cboWhereFields1' ? `${combo}.open` : combo);
  await person.waitFor('the list opens', () => isOpen(combo));
};
/** @type {(combo: string) => Promise<boolean>} */
const isOpen = async (combo) => (await person.place(`${combo}.list`)).isThere;
/** @type {(...keys: string[]) => Promise<void>} */
const press = async (...keys) => {
  for (const key of keys) await person.keyboard.press(key);
};
/// The texts of the entries that are drawn, and that of the one the keys stand on.
/** @type {(combo: string) => Promise<{texts: string[], at: string}>} */
const look = (combo) =>
  person.page.evaluate((name) => {
    const at = host.on(`${name}.search`).getAttribute('aria-activedescendant');
    const rows = [...host.on(`${name}.list`).querySelectorAll('[role=option]')];
    return {
      texts: rows.map((row) => row.querySelector('.text').textContent),
      at: rows.find((row) => row.id === at)?.querySelector('.text').textContent ?? '',
    };
  }, combo);
const controls = async () => (await person.dump()).controls;

describe('the search of an operand', () => {
  const kAll = ['TABLE__1.F00000', 'TABLE__1.F00001', 'TABLE__2.ЖУК', 'TABLE__2.жираф'];

  withOperands('leaves entries that hold its text in any case', async () => {
    await open('cboWhereFields');
    assert.equal(await person.at(), 'cboWhereFields.search');
    assert.deepEqual(await look('cboWhereFields'), {texts: kAll, at: ''});
    await person.keyboard.type('2.Ж');
    assert.deepEqual(await look('cboWhereFields'), {texts: kAll.slice(2), at: 'TABLE__2.ЖУК'});
    await press('Backspace', 'Backspace', 'Backspace');
    assert.deepEqual((await look('cboWhereFields')).texts, kAll);
    assert.deepEqual(await takeMade(), []);
    await press('Escape');
  });

  withOperands('picks the row of the control by Enter and by a press', async () => {
    await open('cboWhereFields');
    await person.keyboard.type('e__2');
    await press('ArrowDown', 'Enter');
    assert.deepEqual(await takeMade(), ['pick 3']);
    assert.equal(await person.at(), 'cboWhereFields');
    assert.equal((await controls()).cboWhereFields.ListIndex, 3);
    await open('cboWhereFields');
    await person.keyboard.type('f00001');
    await person.clickRow('cboWhereFields.list', 1);
    assert.deepEqual(await takeMade(), ['pick 1']);
    assert.equal(await person.at(), 'cboWhereFields');
  });

  withOperands('is closed by Escape, picks nothing, and is empty again', async () => {
    await open('cboWhereFields');
    await person.keyboard.type('f00001');
    await press('Escape');
    assert.equal(await isOpen('cboWhereFields'), false);
    assert.equal(await person.at(), 'cboWhereFields');
    // A letter opens it, and stands in it.
    await press('2');
    assert.deepEqual((await look('cboWhereFields')).texts, kAll.slice(2));
    await press('Escape');
    await open('cboWhereFields');
    assert.deepEqual(await look('cboWhereFields'), {texts: kAll, at: ''});
    await person.press('cboWhereFields');
    assert.equal(await isOpen('cboWhereFields'), false);
    assert.deepEqual(await takeMade(), []);
  });

  withOperands('has the keys of its list go among what is left', async () => {
    await open('cboWhereFields');
    const at = async () => (await look('cboWhereFields')).at;
    await press('End');
    assert.equal(await at(), kAll[3]);
    await press('Home');
    assert.equal(await at(), kAll[0]);
    await person.keyboard.type('2');
    await press('PageDown', 'ArrowDown');
    assert.equal(await at(), kAll[3]);
    await press('ArrowUp', 'ArrowUp');
    assert.equal(await at(), kAll[2]);
    await press('Home', '_');
    assert.equal(await person.page.evaluate(() => host.on('cboWhereFields.search').value), '_2');
    await press('Tab');
    assert.equal(await isOpen('cboWhereFields'), false);
  });

  withOperands('leaves the text of the box as it is', async () => {
    await person.typeKeys('cboWhereFields1', 'ab');
    await press('ArrowLeft', 'Alt+ArrowDown');
    await takeMade();
    await person.keyboard.type('f0000');
    assert.deepEqual((await look('cboWhereFields1')).texts, kAll.slice(0, 2));
    assert.equal((await controls()).cboWhereFields1.Text, 'ab');
    await press('Control+Z', 'Escape', 'x');
    assert.equal((await controls()).cboWhereFields1.Text, 'axb');
    await press('Alt+ArrowDown');
    await person.keyboard.type('1.f00001');
    await press('Enter');
    assert.equal((await controls()).cboWhereFields1.Text, 'TABLE__1.F00001');
  });

  withOperands('says that no entry is left', async () => {
    const said = () =>
      person.page.evaluate(() => {
        const list = host.on('cboWhereFields.list');
        return list.parentElement?.querySelector('[role=status]')?.textContent;
      });
    await open('cboWhereFields');
    assert.equal(await said(), '');
    await person.keyboard.type('x');
    assert.equal(await said(), 'No entries');
    assert.deepEqual((await look('cboWhereFields')).texts, []);
    await press('Enter');
    assert.deepEqual(await takeMade(), []);
    assert.equal((await controls()).cboWhereFields.ListIndex, -1);
    if (await isOpen('cboWhereFields')) await press('Escape');
  });

  withOperands('has a name and tells the row of the keys', async () => {
    for (const [combo, name] of [
      ['cboWhereFields', 'Search Operand1'],
      ['cboWhereFields1', 'Search Value'],
    ]) {
      await open(combo);
      await person.page.getByRole('combobox', {name, exact: true}).waitFor();
      await press('Escape');
    }
    await person.press('cboOper');
    assert.equal(await person.at(), 'cboOper');
    await press('Escape');
  });

  withOperands('stands above its box at the lower end of the window', async () => {
    await person.page.evaluate(() => {
      host.element.style.marginBlockStart = '740px';
    });
    await open('cboWhereFields');
    const [box, list, line] = await Promise.all(
      ['cboWhereFields', 'cboWhereFields.list', 'cboWhereFields.search'].map((name) =>
        person.place(name),
      ),
    );
    assert.ok(
      list.isOnTop && line.isOnTop && line.bottom <= list.top,
      JSON.stringify([line, list]),
    );
    assert.ok(list.bottom <= box.top + 2, JSON.stringify([box, list]));
    await person.keyboard.type('f00001');
    await press('Enter');
    assert.deepEqual(await takeMade(), ['pick 1']);
  });

  withOperands(
    'works with very many entries',
    async () => {
      await open('cboWhereFields');
      await person.keyboard.type('f9999');
      assert.equal((await look('cboWhereFields')).texts.length, 10);
      await press('End', 'ArrowUp', 'Enter');
      assert.equal((await controls()).cboWhereFields.Text.slice(0, 14), 'TABLE__1.F9999');
      assert.equal((await takeMade()).length, 1);
    },
    100000,
  );
});
