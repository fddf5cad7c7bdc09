// The filters above the lists: what they leave, what letters find there, and what is told of marks
// that they hide.
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

/// A test at a new element with these tables.
/** @type {(name: string, tables: string[], act: () => Promise<void>) => void} */
function withTables(name, tables, act) {
  test(name, {timeout: kMost}, async () => {
    await person.makeNew('{"new":{}}');
    await person.page.evaluate((codes) => {
      host.element.PrpStrTables = codes.map((code) => `${code}0`).join(',');
      host.element.PrpStrFields = codes
        .map((code) => `char*Q*V*R*N*N${code}.A*Q*V*R*N*text`)
        .join(',');
    }, tables);
    await act();
    assert.deepEqual(person.page.complaints.splice(0), []);
  });
}
/** @type {(list: string, text: string) => Promise<void>} */
const filter = async (list, text) => {
  await person.press(`${list}.filter`);
  await person.keyboard.press('Control+A');
  if (text === '') await person.keyboard.press('Delete');
  else await person.keyboard.type(text);
  await person.nextFrame();
};
/// The texts of the rows that are drawn.
const drawn = () =>
  person.page.evaluate(() =>
    [...host.on('lsttables').querySelectorAll('[role=option] > .text')].map(
      ({textContent}) => textContent,
    ),
  );
/// The texts of the rows that are marked.
const marked = async () => {
  const {List, Selected} = (await person.dump()).controls.lsttables;
  return List.filter((_, row) => Selected[row]);
};

/// A letter that the keyboard of the test has no key of.
/** @type {(key: string) => Promise<void>} */
const pressLetter = async (key) => {
  const session = await person.page.context().newCDPSession(person.page);
  await session.send('Input.dispatchKeyEvent', {type: 'keyDown', key, text: key});
  await session.send('Input.dispatchKeyEvent', {type: 'keyUp', key});
  await session.detach();
};

describe('a filter', () => {
  const kCodes = ['ЖУК_____', 'BEETLE__', 'жираф___', 'ΟΔΟΣ____', 'BEES____'];

  withTables('takes letters of every script in any case', kCodes, async () => {
    await filter('lsttables', 'Ж');
    assert.deepEqual(await drawn(), ['ЖУК_____', 'жираф___']);
    await filter('lsttables', 'жу');
    assert.deepEqual(await drawn(), ['ЖУК_____']);
    await filter('lsttables', 'οδοσ');
    assert.deepEqual(await drawn(), ['ΟΔΟΣ____']);
    await filter('lsttables', '');
    assert.deepEqual(await drawn(), kCodes);
  });

  withTables('leaves rows that letters of every script find', kCodes, async () => {
    await person.clickRow('lsttables', 1);
    await pressLetter('ж');
    await person.keyboard.press('Space');
    assert.deepEqual(await marked(), ['BEETLE__', 'жираф___']);
    await filter('lsttables', 'у');
    await person.keyboard.press('Tab');
    await pressLetter('ж');
    await person.keyboard.press('Space');
    assert.deepEqual(await marked(), ['ЖУК_____', 'BEETLE__', 'жираф___']);
  });
});

describe('marks that a filter hides', () => {
  const told = () =>
    person.page.evaluate(() => {
      const marks = host.on('lsttables.marks');
      return [marks.getAttribute('role'), marks.textContent];
    });

  withTables('are told', ['CUSTOMER', 'ORDERS__', 'STOCK___', 'ORDERITM'], async () => {
    for (const row of [0, 1, 2]) await person.clickRow('lsttables', row);
    assert.deepEqual(await told(), ['status', '']);
    await filter('lsttables', 'order');
    assert.deepEqual(await told(), ['status', '3 marked, 1 shown']);
    await person.clickRow('lsttables', 3);
    assert.deepEqual(await told(), ['status', '4 marked, 2 shown']);
    const place = await person.place('lsttables.marks');
    const list = await person.place('lsttables');
    assert.ok(place.isOnTop && Math.abs(place.right - list.right) < 2, JSON.stringify(place));
    await filter('lsttables', '');
    assert.deepEqual(await told(), ['status', '']);
  });
});
