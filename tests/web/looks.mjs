// How the pages are looked at: no text is cut, no control covers another. With ZOLT20_PICTURES, a
// folder, the pictures of the pages are left there.
import assert from 'node:assert/strict';
import {readFileSync} from 'node:fs';
import path from 'node:path';

import {isShown, takesFocus} from './form.mjs';
import {closePage} from './harness.mjs';
import {kRoot} from './places.mjs';

/**
 * @import {Person, Stage} from './harness.mjs'
 * @typedef {{family?: string | undefined, ofWhile?: string | undefined}} Letters lists of families
 */

const kPictures = process.env.ZOLT20_PICTURES;
const kSchemes = /** @type {const} */ (['light', 'dark']);
export const kViewport = {width: 1000, height: 720};
export const kPages = [0, 1, 2, 3, 4, 5, 6];

/// The texts that have less room than they need, in the page.
export function cutTexts() {
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
  for (const node of face.querySelectorAll('input:not([type="radio"]), textarea')) {
    if (!node.checkVisibility()) continue;
    const style = getComputedStyle(node);
    const lines = node.matches('textarea') ? 2 : 1;
    const needed = parseFloat(style.paddingTop) + lines * parseFloat(style.lineHeight);
    if (node.clientHeight < Math.floor(needed)) found.push(`${node.id} has no room for its lines`);
  }
  return found;
}

/// The controls that lie over each other, of those that take the focus. What is in the frame of the
/// case rows is there as a whole.
/** @type {(names: string[]) => string[]} */
function covered(names) {
  const face = document.querySelector('zolt20-map-control').shadowRoot;
  const found = [];
  const places = [];
  for (const name of names) {
    const node = face.getElementById(name);
    const place = node.getBoundingClientRect();
    const rows = node.closest('#fracase');
    if (rows !== null) {
      const frame = rows.getBoundingClientRect();
      const isRow = /^(TxtExpr|txtStmt)\(/.test(name);
      if (isRow && (place.bottom <= frame.top || place.top >= frame.bottom)) continue;
      const isWithin =
        place.top >= frame.top && place.bottom <= frame.bottom && place.right <= frame.right;
      if (!isWithin) found.push(`${name} reaches out of its frame`);
    }
    places.push({name, place});
  }
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

/// Gives the element letters of those families, in the page.
/** @type {(letters: Letters) => void} */
function setLetters({family, ofWhile}) {
  const {style} = document.querySelector('zolt20-map-control');
  if (family !== undefined) style.setProperty('--zolt20-font', family);
  if (ofWhile !== undefined) style.setProperty('--zolt20-frawhile-font', ofWhile);
}

/// A person at an element in a page of its own, whose letters are of those families.
/** @type {(stage: Stage, letters: Letters, act: (person: Person) => Promise<void>) => Promise<void>} */
export async function withPerson(stage, letters, act) {
  const person = await stage.openElement({viewport: kViewport}, 'alone.html');
  await person.page.evaluate(setLetters, letters);
  await act(person);
  await closePage(person.page);
}
/// Plays the first lines of an example session.
/** @type {(person: Person, session: string, lines?: number) => Promise<void>} */
export async function play(person, session, lines = Infinity) {
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
/// Expects that everything in sight has its room, in both schemes; leaves the pictures.
/** @type {(person: Person, name: string) => Promise<void>} */
export async function look(person, name) {
  const dump = await person.dump();
  const names = Object.keys(dump.controls)
    .filter((control) => takesFocus(control) && isShown(dump, control))
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

/// In a window of twice the size.
/** @type {(person: Person) => Promise<void>} */
export async function doubleTheLetters(person) {
  await person.page.setViewportSize({width: 2 * kViewport.width, height: 2 * kViewport.height});
  await person.page.evaluate(() => document.documentElement.classList.add('large'));
}

/// Whether the browser finds that family: else letters have those of the next one in the list.
/** @type {(person: Person, family: string) => Promise<boolean>} */
export const isInstalled = (person, family) =>
  person.page.evaluate((name) => {
    const canvas = document.createElement('canvas').getContext('2d');
    if (canvas === null) return false;
    const widthIn = (/** @type {string} */ families) => {
      canvas.font = `40px ${families}`;
      return canvas.measureText('Quick wafting zephyrs 0123').width;
    };
    return ['serif', 'monospace'].every((other) => widthIn(`${name}, ${other}`) !== widthIn(other));
  }, family);
