// Every page, empty and filled, in both schemes: no text is cut, no control covers another. With
// ZOLT20_PICTURES, a folder, the pictures of the pages are left there.
import assert from 'node:assert/strict';
import {readFileSync} from 'node:fs';
import path from 'node:path';
import {after, before, describe, test} from 'node:test';

import {designOf, isShown, takesFocus} from './form.mjs';
import {closePage, Stage} from './harness.mjs';
import {kRoot} from './places.mjs';

/** @import {Person} from './harness.mjs' */

const kPictures = process.env.ZOLT20_PICTURES;
const kSchemes = /** @type {const} */ (['light', 'dark']);
const kViewport = {width: 1000, height: 720};
const kPages = [0, 1, 2, 3, 4, 5, 6];

/// The texts that have less room than they need, in the page.
function cutTexts() {
  const face = document.querySelector('zolt20-map-control').shadowRoot;
  const within = face.host.getBoundingClientRect();
  const found = [];
  for (const node of face.querySelectorAll('button, .label, .option span, .title')) {
    if (!node.checkVisibility() || node.textContent === '') continue;
    const place = node.getBoundingClientRect();
    const range = document.createRange();
    range.selectNodeContents(node);
    const text = range.getBoundingClientRect();
    const isOut =
      place.left < within.left || place.right > within.right || place.bottom > within.bottom;
    const isCut = text.width > place.width + 1 || text.height > Math.max(place.height, 1) + 4;
    if (isOut || isCut) found.push(`${node.id || node.className}: ${node.textContent}`);
  }
  return found;
}

/// The controls that lie over each other, of those that take the focus.
/** @type {(names: string[]) => string[]} */
function covered(names) {
  const face = document.querySelector('zolt20-map-control').shadowRoot;
  const places = names.map((name) => ({
    name,
    place: face.getElementById(name).getBoundingClientRect(),
  }));
  const found = [];
  for (const [at, {name, place}] of places.entries()) {
    if (place.width * place.height < 400) found.push(`${name} is hardly to be seen`);
    for (const {name: other, place: otherPlace} of places.slice(0, at)) {
      const isBeside =
        place.right <= otherPlace.left ||
        otherPlace.right <= place.left ||
        place.bottom <= otherPlace.top ||
        otherPlace.bottom <= place.top;
      if (!isBeside) found.push(`${name} covers ${other}`);
    }
  }
  return found;
}

describe('the pages have room for what they show', () => {
  /** @type {Stage} */
  let stage;
  before(async () => {
    stage = await Stage.open();
  });
  after(() => stage?.close());

  /** @type {(act: (person: Person) => Promise<void>) => Promise<void>} */
  async function withPerson(act) {
    const person = await stage.openElement({viewport: kViewport}, 'alone.html');
    await act(person);
    await closePage(person.page);
  }
  /** @type {(person: Person, session: string, lines?: number) => Promise<void>} */
  async function play(person, session, lines = Infinity) {
    const file = path.join(kRoot, 'examples/sessions', `${session}.jsonl`);
    const requests = readFileSync(file, 'utf8')
      .split('\n')
      .filter((line) => line.trim() !== '' && !line.startsWith('#'));
    for (const line of requests.slice(0, lines)) {
      const request = JSON.parse(line);
      if (request.new !== undefined) await person.makeNew(line);
      else if (request.user === undefined) await person.carryOut(line);
      else await person.make(request).catch(() => {}); // one that is refused; the sessions have their own test
      await person.answerMessages(
        (await person.takeLog()).filter((entry) => entry.message !== undefined),
      );
    }
    await person.carryOut('{"set":"Syntax_Highlight","value":true}');
  }
  /** @type {(person: Person, name: string) => Promise<void>} */
  async function look(person, name) {
    const dump = await person.dump();
    const names = Object.keys(dump.controls)
      .filter(
        (control) =>
          takesFocus(control) && isShown(dump, control) && designOf(control).frame !== 'fracase',
      )
      // Until the first template the where text lies over it.
      .filter((control) => control !== 'txtCondition' || !dump.controls.FrawhereCondition.Visible);
    await person.mouse.move(2, 2);
    for (const colorScheme of kSchemes) {
      await person.page.emulateMedia({colorScheme});
      await person.nextFrame();
      assert.deepEqual(await person.page.evaluate(cutTexts), [], `${name}: cut texts`);
      assert.deepEqual(await person.page.evaluate(covered, names), [], `${name}: covered controls`);
      if (kPictures === undefined) continue;
      await person.page.screenshot({path: path.join(kPictures, `web-${name}-${colorScheme}.png`)});
    }
  }

  test('empty', () =>
    withPerson(async (person) => {
      for (const page of kPages) {
        await person.carryOut(JSON.stringify({set: 'prpTab', value: page}));
        await look(person, `empty${page}`);
      }
    }));

  test('the Select List page, filled', () =>
    withPerson(async (person) => {
      await play(person, 'where-report', 12);
      await person.carryOut('{"set":"prpTab","value":0}');
      await look(person, 'page0');
    }));

  test('the Where page, filled', () =>
    withPerson(async (person) => {
      await play(person, 'where-report');
      await person.carryOut('{"set":"prpTab","value":1}');
      await look(person, 'page1');
    }));

  test('the pages of statements, filled', () =>
    withPerson(async (person) => {
      await play(person, 'full-statement');
      for (const page of [2, 3, 4, 5]) {
        await person.carryOut(JSON.stringify({set: 'prpTab', value: page}));
        await look(person, `page${page}`);
      }
    }));

  test('the panel of each kind', () =>
    withPerson(async (person) => {
      await person.tab(6);
      for (const option of ['optIfThen', 'optwhile', 'optRepeat', 'optFor', 'optCase']) {
        await person.click(option);
        await look(person, `kind-${option}`);
      }
    }));

  test('the rows of an on-case scroll', () =>
    withPerson(async (person) => {
      await play(person, 'mapping-rule', 40);
      await look(person, 'page6');
    }));

  test('twice the letters still fit twice the window', () =>
    withPerson(async (person) => {
      await person.page.setViewportSize({width: 2 * kViewport.width, height: 2 * kViewport.height});
      await person.page.evaluate(() => document.documentElement.classList.add('large'));
      for (const page of kPages) {
        await person.carryOut(JSON.stringify({set: 'prpTab', value: page}));
        await person.nextFrame();
        assert.deepEqual(await person.page.evaluate(cutTexts), [], `page ${page}`);
      }
    }));
});
