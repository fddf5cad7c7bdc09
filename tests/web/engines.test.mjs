// What the other tests rely on in each engine: its page hears of what is wrong, and mouse and keys
// do what they are told.
import assert from 'node:assert/strict';
import {after, before, describe, test} from 'node:test';

import {closePage, Stage} from './harness.mjs';

/** @import {Person} from './harness.mjs' */

const kMost = 60000;

describe('the browser of the tests', () => {
  /** @type {Stage} */
  let stage;
  before(async () => {
    stage = await Stage.open();
  });
  after(() => stage?.close());

  /// Keeps the events of a kind, by what `tell` makes of each.
  /** @type {(person: Person, kind: string, parts: string[]) => Promise<void>} */
  const keep = (person, kind, parts) =>
    person.page.evaluate(
      ([name, wanted]) => {
        globalThis.heard = [];
        const box = document.createElement('textarea');
        box.id = 'plain';
        box.style.cssText = 'position: fixed; left: 600px; top: 0; width: 90px; height: 40px';
        box.value = 'a\n'.repeat(500);
        document.body.append(box);
        box.addEventListener(name, (/** @type {any} */ event) =>
          globalThis.heard.push(wanted.map((part) => event[part])),
        );
      },
      /** @type {[string, string[]]} */ ([kind, parts]),
    );
  /** @type {(person: Person) => Promise<unknown[][]>} */
  const take = (person) => person.page.evaluate(() => globalThis.heard.splice(0));

  /** @type {[string, () => unknown, RegExp][]} */
  const kComplaints = [
    ['in its console', () => console.error('it is broken'), /it is broken/],
    ['by an error', () => setTimeout(() => globalThis.host.on('nothing').click()), /null/],
    [
      'by what its policy forbids',
      () => {
        const script = document.createElement('script');
        script.textContent = 'globalThis.shown = "it runs"';
        document.head.append(script);
      },
      /script-src/,
    ],
  ];
  for (const [how, complain, words] of kComplaints) {
    test(`hears what a page complains of ${how}`, {timeout: kMost}, async () => {
      const person = await stage.openElement();
      await person.page.evaluate(complain);
      await person.nextFrame();
      await assert.rejects(closePage(person.page), ({actual}) => words.test(String(actual)));
    });
  }

  test('turns the wheel by what it is told', {timeout: kMost}, async () => {
    const person = await stage.openElement();
    await keep(person, 'wheel', ['deltaY']);
    await person.mouse.move(640, 20);
    for (const [way, place] of [
      [100, 100],
      [62, 162],
      [-30, 132],
    ]) {
      await person.wheel(way);
      await person.waitFor(`the wheel turns by ${way}`, async () => {
        const now = await person.page.evaluate(() => document.querySelector('#plain').scrollTop);
        return Math.round(now) === place;
      });
    }
    await closePage(person.page);
  });

  test('tells two clicks from a double click', {timeout: kMost}, async () => {
    const person = await stage.openElement();
    await keep(person, 'click', ['detail']);
    for (let click = 0; click < 2; ++click) await person.mouse.click(640, 20);
    assert.deepEqual(await take(person), [[1], [1]]);
    await person.mouse.dblclick(620, 10);
    assert.deepEqual(await take(person), [[1], [2]]);
    await closePage(person.page);
  });

  test('presses keys with those that are held', {timeout: kMost}, async () => {
    const person = await stage.openElement();
    await keep(person, 'keydown', ['code', 'shiftKey', 'ctrlKey']);
    await person.mouse.click(640, 20);
    for (const key of ['Shift+ArrowRight', 'Control+A', 'x']) await person.keyboard.press(key);
    const keys = (await take(person)).filter(([code]) => !/^(Shift|Control)/.test(String(code)));
    assert.deepEqual(keys, [
      ['ArrowRight', true, false],
      ['KeyA', false, true],
      ['KeyX', false, false],
    ]);
    assert.equal(await person.page.evaluate(() => document.querySelector('#plain').value), 'x');
    await closePage(person.page);
  });
});
