// The way of the Tab key through an element and out of it, held against the tab order of the form.
import assert from 'node:assert/strict';

import {stopsOf} from './form.mjs';

/** @import {Person} from './harness.mjs' */
/** @import {Dump} from './types' */

/// Where a press must come to, by the tab order of this moment.
/** @type {(dump: Dump, at: string, forward: boolean) => string} */
function nextOf(dump, at, forward) {
  const stops = stopsOf(dump);
  if (!forward) stops.reverse();
  const next = at.startsWith('#') ? stops[0] : stops[stops.indexOf(at) + 1];
  return next ?? (forward ? '#behind' : '#before');
}

/// Goes from the button before the element to the one behind it, or back. Gives where it came on its
/// way. `press` presses the key, and returns when something came of it.
/**
 * @type {(person: Person, forward: boolean,
 *   press?: (forward: boolean, expected: string) => Promise<void>) => Promise<string[]>}
 */
export async function walk(
  person,
  forward,
  press = (/** @type {boolean} */ isForward) =>
    person.keyboard.press(isForward ? 'Tab' : 'Shift+Tab'),
) {
  const [start, end] = forward ? ['#before', '#behind'] : ['#behind', '#before'];
  await person.page.focus(start);
  /** @type {string[]} */
  const way = [];
  for (let at = start; at !== end; at = way[way.length - 1]) {
    const expected = nextOf(await person.dump(), at, forward);
    await press(forward, expected);
    way.push(await person.at());
    assert.equal(way.at(-1), expected, `behind ${at}`);
    if (expected !== end) assert.equal((await person.dump()).focus, expected);
    assert.ok(way.length < 100, 'no end of the way');
  }
  return way;
}
