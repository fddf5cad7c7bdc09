// Lists of a hundred thousand rows: only those in sight are nodes, and all can be come to.
import assert from 'node:assert/strict';
import {after, before, describe, test} from 'node:test';

import {closePage, Stage} from './harness.mjs';

/** @import {Person} from './harness.mjs' */

const kMost = 120000;
const kMany = 100000;
const kFew = 1000;

describe('a list of very many rows', () => {
  /** @type {Stage} */
  let stage;
  before(async () => {
    stage = await Stage.open();
  });
  after(() => stage?.close());

  /** @type {(row: number) => string} */
  const codeOf = (row) => `T${String(row).padStart(7, '0')}`;
  /** @type {(count: number) => Promise<Person>} */
  const open = async (count) => {
    const person = await stage.openElement();
    await person.page.evaluate((tables) => {
      /** @type {(row: number) => string} */
      const code = (row) => `T${String(row).padStart(7, '0')}`;
      const rows = Array.from({length: tables}, (_, row) => code(row));
      host.element.PrpStrTables = rows.map((table) => `${table}0`).join(',');
      host.element.PrpStrFields = rows
        .map((table) => `char*Q*V*R*N*N${table}.A*Q*V*R*N*text`)
        .join(',');
    }, count);
    await person.nextFrame();
    return person;
  };
  /** @type {(person: Person) => Promise<number[]>} */
  const nodesOf = (person) =>
    person.page.evaluate(() => [
      host.element.shadowRoot.querySelectorAll('*').length,
      host.on('lsttables').querySelectorAll('*').length,
    ]);
  /**
   * @type {(person: Person) =>
   *   Promise<{row: number, position: number, size: number, isMarked: boolean}[]>}
   */
  const shownRows = (person) =>
    person.page.evaluate(() =>
      [...host.on('lsttables').querySelectorAll('[role=option]')].map(
        ({dataset, ariaPosInSet, ariaSetSize, ariaSelected}) => ({
          row: Number(dataset.row),
          position: Number(ariaPosInSet),
          size: Number(ariaSetSize),
          isMarked: ariaSelected === 'true',
        }),
      ),
    );
  /** @type {(person: Person) => Promise<number[]>} */
  const marksOf = async (person) => {
    /** @type {boolean[]} */
    const Selected = JSON.parse(
      await person.page.evaluate(() =>
        JSON.stringify(host.element.dump().controls.lsttables.Selected),
      ),
    );
    return Selected.flatMap((isMarked, row) => (isMarked ? [row] : []));
  };

  test('has as many nodes as one of a hundredth', {timeout: kMost}, async () => {
    // At its beginning and in the middle of it.
    /** @type {(count: number) => Promise<number[][]>} */
    const nodesOfOne = async (count) => {
      const person = await open(count);
      const atFirst = await nodesOf(person);
      const place = await person.place('lsttables');
      await person.mouse.move(place.x, place.y);
      await person.wheel(4800);
      const rows = await shownRows(person);
      assert.ok(
        rows[0].row > 0 &&
          rows.every(({row, position, size}) => position === row + 1 && size === count),
      );
      const later = await nodesOf(person);
      await closePage(person.page);
      return [atFirst, later];
    };
    const many = await nodesOfOne(kMany);
    assert.deepEqual(many, await nodesOfOne(kFew));
    assert.ok(many[0][1] < 200, 'the nodes of the list');
  });

  test('is gone through by keys and the mouse, from end to end', {timeout: kMost}, async () => {
    const person = await open(kMany);
    await person.clickRow('lsttables', 2);
    await person.keyboard.press('End');
    await person.nextFrame();
    const last = kMany - 1;
    assert.equal((await shownRows(person)).at(-1)?.row, last);
    const active = await person.page.evaluate(() => {
      const list = host.on('lsttables');
      return list.querySelector(`[id="${list.getAttribute('aria-activedescendant')}"]`).textContent;
    });
    assert.equal(active, codeOf(last));
    // The last row by the mouse, its neighbour by the keys.
    await person.press('lsttables', `[data-row="${last}"]`);
    assert.deepEqual(await marksOf(person), [2, last]);
    await person.keyboard.press('ArrowUp');
    await person.keyboard.press('Space');
    assert.deepEqual(await marksOf(person), [2, last - 1, last]);
    const marked = (await shownRows(person)).filter(({isMarked}) => isMarked).map(({row}) => row);
    assert.deepEqual(marked, [last - 1, last]);
    await person.keyboard.press('Home');
    await person.nextFrame();
    const first = await shownRows(person);
    assert.equal(first[0].row, 0);
    assert.deepEqual(
      first.filter(({isMarked}) => isMarked).map(({row}) => row),
      [2],
    );
    await person.keyboard.press('PageDown');
    await person.keyboard.press('Space');
    const marks = await marksOf(person);
    assert.ok(marks.length === 4 && marks[1] > 2 && marks[1] < 50, String(marks));
    assert.equal(await person.difference(), '');
    // The rows of a table that is far behind come to the fields.
    const {lstFields} = (await person.dump()).controls;
    assert.deepEqual(
      lstFields.List.filter((name) => name.endsWith('.A')).at(1),
      `${codeOf(last)}.A`,
    );
    assert.equal(lstFields.List.length, 2 * marks.length);
    assert.deepEqual(
      (await person.takeLog()).filter(({changed}) => changed === undefined),
      [],
    );
    await closePage(person.page);
  });

  test('takes a press for the second of a double click on the same row alone', async () => {
    const person = await open(kFew);
    const {x, y} = await person.row('lsttables', 2);
    /** @type {(clickCount: number) => Promise<void>} */
    const press = async (clickCount) => {
      // Playwright counts the presses of a double click by what it is told, other drivers themselves.
      await person.mouse.down({clickCount});
      await person.mouse.up({clickCount});
    };
    await person.mouse.move(x, y);
    await press(1);
    await person.page.evaluate(() => {
      const list = host.on('lsttables');
      list.scrollTop += list.clientHeight * 2;
    });
    await person.nextFrame();
    await person.nextFrame();
    await press(2);
    const [two, other, ...more] = await marksOf(person);
    assert.deepEqual([two, more], [2, []]);
    assert.ok(other > 10, String(other));
    await closePage(person.page);
  });

  test('is filtered', {timeout: kMost}, async () => {
    const person = await open(kMany);
    await person.press('lsttables.filter');
    await person.keyboard.type('t00999');
    await person.nextFrame();
    let rows = await shownRows(person);
    assert.deepEqual(
      rows.map(({row}) => row),
      Array.from({length: rows.length}, (_, at) => 99900 + at),
    );
    assert.ok(rows.every(({row, position, size}) => size === 100 && position === row - 99899));
    await person.press('lsttables', '[data-row="99903"]');
    assert.deepEqual(await marksOf(person), [99903]);
    // From the filter its list is one press away, and its keys move among the rows that it leaves.
    await person.press('lsttables.filter');
    await person.keyboard.press('Tab');
    // Letters find those rows alone.
    await person.keyboard.press('End');
    await person.keyboard.type('t');
    await person.keyboard.press('Space');
    assert.deepEqual(await marksOf(person), [99900, 99903]);
    await person.keyboard.press('Space');
    await person.keyboard.press('End');
    await person.keyboard.press('Space');
    assert.deepEqual(await marksOf(person), [99903, 99999]);
    await person.press('lsttables.filter');
    await person.keyboard.press('Control+A');
    await person.keyboard.type('nothing');
    await person.nextFrame();
    assert.deepEqual(await shownRows(person), []);
    await person.keyboard.press('Control+A');
    await person.keyboard.press('Delete');
    await person.nextFrame();
    rows = await shownRows(person);
    // With all of them back, that which was marked last stays in sight.
    assert.ok(rows.every(({size, row, position}) => size === kMany && position === row + 1));
    assert.deepEqual(
      rows.filter(({isMarked}) => isMarked).map(({row}) => row),
      [99999],
    );
    assert.deepEqual(await marksOf(person), [99903, 99999]);
    await closePage(person.page);
  });

  test('begins with the letters that are typed', {timeout: kMost}, async () => {
    const person = await open(kMany);
    await person.clickRow('lsttables', 0);
    await person.keyboard.type('t0054321');
    await person.nextFrame();
    assert.ok((await shownRows(person)).some(({row}) => row === 54321));
    await person.keyboard.press('Space');
    assert.deepEqual(await marksOf(person), [0, 54321]);
    await closePage(person.page);
  });
});
