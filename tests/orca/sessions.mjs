// What Orca says in recorded sessions that are played by keys alone, beside the approved words of
// tests/orca/approved: one line a gesture, the same for both faces.
//
//   node tests/orca/sessions.mjs FACE [--write FOLDER] [SESSION...]
//
// FACE is qt or web. Exit status 1 when anything is said otherwise.
import {mkdirSync, readFileSync, writeFileSync} from 'node:fs';
import path from 'node:path';

import {Automation} from '../web/automation.mjs';
import {kRoot} from '../web/places.mjs';
import {openFace} from './faces.mjs';
import {KeyPerson} from './person.mjs';
import {plain} from './words.mjs';

const kSessions = path.join(kRoot, 'examples/sessions');
const kApproved = path.join(kRoot, 'tests/orca/approved');
const kPlayed = [
  'plain-report',
  'aggregate-report',
  'full-statement',
  'mapping-rule',
  'reopened-statement',
  'stored-control',
];
const kMostWords = 12;
const kLateness = 2500;

const [face, ...rest] = process.argv.slice(2);
const isWriting = rest[0] === '--write';
const folder = isWriting ? String(rest[1]) : kApproved;
const names = rest.slice(isWriting ? 2 : 0);

/** @type {(text: string) => string[]} */
const linesIn = (text) => text.split('\n').filter((line) => line !== '' && !line.startsWith('#'));

// Of the lines that stand for one face alone, those of this one.
/** @type {(lines: string[]) => string[]} */
const linesOfFace = (lines) =>
  lines
    .filter((line) => !line.startsWith(face === 'qt' ? 'web| ' : 'qt| '))
    .map((line) => line.replace(/^(qt|web)\| /, ''));

/** @type {(request: Record<string, unknown>) => string} */
const nameOf = ({user, control, row, page, value}) =>
  [user, control, row, page, value].filter((part) => part !== undefined).join(' ');

// What a gesture is by keys: what is typed into the box whose keys the form hears is other than what
// is put there at once, and the way to a page is its pages.
/** @type {(request: Record<string, any>, before: string) => object[]} */
function keysOf(request, before) {
  const {user, control, text} = request;
  if (user === 'tab') return [];
  if (user !== 'type' || control !== 'txtAsSet') return [request];
  return [...text].map((key, at) => ({
    user: 'key',
    control,
    code: key.charCodeAt(0),
    ...(at === 0 && before !== '' ? {from: 0, to: before.length} : {}),
  }));
}

// Late words may come in another order, and behind the next turn of the gesture.
/** @type {(line: string) => string} */
const inAnyOrder = (line) =>
  line
    .split(' ')
    .filter((word) => word !== '/' && word !== '')
    .sort()
    .join(' ');

/** @type {(session: string, approved: string[]) => Promise<string[]>} */
async function play(session, approved) {
  const {desktop, face: opened, close} = await openFace(String(face));
  const automation = new Automation();
  try {
    const person = new KeyPerson(desktop, opened);
    const told = [];
    for (const line of linesIn(readFileSync(path.join(kSessions, `${session}.jsonl`), 'utf8'))) {
      const request = JSON.parse(line);
      if (request.user === undefined) {
        await automation.ask(line);
        await opened.carryOut(line);
        continue;
      }
      const {controls} = await automation.dump();
      if (request.control !== undefined && !controls[request.control].Enabled) continue;
      desktop.heard();
      const heard = (await person.make(request)).map((words) =>
        plain(words.join(' '), String(face)),
      );
      const lineOf = () => `${nameOf(request)}: ${heard.join(' / ')}`;
      // On a busy machine words come late: those that are approved are waited for.
      const wanted = approved[told.length];
      const end = Date.now() + kLateness;
      while (wanted !== undefined && inAnyOrder(lineOf()) !== inAnyOrder(wanted)) {
        if (Date.now() > end) break;
        await desktop.quiet();
        const late = plain(desktop.heard().join(' '), String(face));
        if (late !== '') heard.push(late);
      }
      for (const words of heard) {
        if (words.split(' ').length > kMostWords)
          console.log(`${session}: too long: ${nameOf(request)}: ${words}`);
      }
      told.push(lineOf());
      for (const one of [...person.way, ...keysOf(request, controls.txtAsSet.Text)])
        await automation.ask(one);
      const expected = JSON.stringify((await automation.dump()).controls.TxtOutput);
      const shown = JSON.stringify((await opened.state()).controls.TxtOutput);
      if (shown !== expected)
        throw new Error(`${nameOf(request)}: the Result is ${shown}, not ${expected}`);
    }
    return told;
  } finally {
    automation.close();
    await close();
  }
}

/** @type {(told: string[], approved: string[]) => string[]} */
function differences(told, approved) {
  const found = [];
  for (let at = 0; at < Math.max(told.length, approved.length); ++at)
    if (inAnyOrder(told[at] ?? '') !== inAnyOrder(approved[at] ?? ''))
      found.push(`  approved: ${approved[at]}\n  said now: ${told[at]}`);
  return found;
}

// On a busy machine a word may come behind the next key: what is said otherwise is heard once more.
const kMostTries = 2;
let failures = 0;
for (const session of names.length > 0 ? names : kPlayed) {
  const file = path.join(folder, `${session}.txt`);
  /** @type {string[]} */
  let found = [];
  for (let tries = 1; tries <= kMostTries; ++tries) {
    const before = Date.now();
    const approved = isWriting ? [] : linesOfFace(linesIn(readFileSync(file, 'utf8')));
    const told = await play(session, approved);
    console.log(`${face} ${session}: ${told.length} gestures, ${Date.now() - before} ms`);
    if (isWriting) {
      mkdirSync(folder, {recursive: true});
      writeFileSync(file, `${told.join('\n')}\n`);
      break;
    }
    found = differences(told, approved);
    if (found.length === 0) break;
    console.log(`${found.length} gestures are told otherwise:\n${found.join('\n')}`);
  }
  failures += found.length;
}
process.exit(failures > 0 ? 1 : 0);
