// Keys at random, each of which is heard: where a key changes what the face shows, Orca says
// something.
//
//   node tests/orca/walk.mjs FACE [KEYS] [SEED]
//
// FACE is qt or web. Exit status 1 when a change stays silent.
import {readFileSync} from 'node:fs';
import path from 'node:path';

import {designOf, isShown} from '../web/form.mjs';
import {kRoot} from '../web/places.mjs';
import {openFace} from './faces.mjs';

/** @import {State} from './faces.mjs' */

const [face = 'qt', keys = '500', seed = '1'] = process.argv.slice(2);

/// Numbers at random, the same for the same seed: a linear congruential generator.
/** @type {(seed: number) => (below: number) => number} */
function randomFrom(seed) {
  let state = seed >>> 0;
  return (below) => {
    state = (Math.imul(state, 1664525) + 1013904223) >>> 0;
    return Math.floor((state / 2 ** 32) * below);
  };
}

const kMostLate = 10;

// What a person presses, the more often the more often it stands here.
const kKeys = [
  ...Array(8).fill('Tab'),
  ...Array(3).fill('shift+Tab'),
  ...Array(6).fill('Down'),
  ...Array(3).fill('Up'),
  ...Array(3).fill('Right'),
  ...Array(2).fill('Left'),
  ...Array(7).fill('space'),
  ...Array(3).fill('Return'),
  ...['Home', 'End', 'Next', 'Prior', 'BackSpace', 'Delete', 'c', 'o', '1', '7', 'alt+a', 'ctrl+z'],
];

// All that the face shows of a control, but for the entries of a combo box whose list is closed.
/** @type {(state: State) => Record<string, string>} */
function shownOf(state) {
  const {controls, focus, row, message} = state;
  /** @type {Record<string, string>} */
  const shown = {focus: String(focus), row: String(row), message: String(message)};
  for (const [name, control] of Object.entries(controls)) {
    if (!isShown(state, name) || designOf(name).kind === 'Label') continue;
    const {TabIndex: _, ListIndex: __, SelStart: ___, List, ...rest} = control;
    const rows = designOf(name).kind === 'ListBox' ? List : [];
    shown[name] = JSON.stringify([rest, rows]);
  }
  return shown;
}

/** @type {(before: Record<string, string>, after: Record<string, string>) => string[]} */
function changesOf(before, after) {
  return [...new Set([...Object.keys(before), ...Object.keys(after)])].filter(
    (name) => before[name] !== after[name],
  );
}

// What is typed is read as it comes into a box, but for blanks and line ends: those are told of by
// Orca's echo of keys, which is off here, as it would say something of every key.
/** @type {(key: string, before: Record<string, string>, changed: string[]) => boolean} */
function isTypedBlank(key, before, changed) {
  const focus = String(before.focus);
  return (
    ['space', 'Return'].includes(key) &&
    changed.length === 1 &&
    changed[0] === focus &&
    designOf(focus).kind.endsWith('TextBox')
  );
}

const {desktop, face: opened, close} = await openFace(face);
const silent = [];
let changes = 0;
const start = Date.now();
try {
  const session = readFileSync(path.join(kRoot, 'examples/sessions/plain-report.jsonl'), 'utf8');
  for (const line of session.split('\n').filter((text) => text.startsWith('{"set":"PrpStr')))
    await opened.carryOut(line);
  await desktop.press('Tab');
  desktop.heard();
  const below = randomFrom(Number(seed));
  let before = shownOf(await opened.state());
  for (let at = 0; at < Number(keys); ++at) {
    const key = before.message === 'true' ? 'space' : kKeys[below(kKeys.length)];
    await desktop.press(key);
    const after = shownOf(await opened.state());
    const words = desktop.heard();
    const changed = changesOf(before, after);
    // On a busy machine words come late.
    for (let late = 0; late < kMostLate && changed.length > 0 && words.length === 0; ++late) {
      await desktop.quiet();
      words.push(...desktop.heard());
    }
    if (changed.length > 0) ++changes;
    if (process.env.LOUD) console.log(at, key, after.focus, changed.join(), JSON.stringify(words));
    if (changed.length > 0 && words.length === 0 && !isTypedBlank(key, before, changed))
      silent.push(`key ${at}, ${key} at ${before.focus}: ${changed.join(', ')}`);
    before = after;
  }
} finally {
  await close();
}
console.log(
  `${face}: ${keys} keys, ${changes} changes, ${silent.length} of them silent, ` +
    `${Date.now() - start} ms`,
);
for (const line of silent) console.log(`  ${line}`);
process.exit(silent.length > 0 || changes === 0 ? 1 : 0);
