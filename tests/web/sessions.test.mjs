// Each recorded session of examples/sessions, played through the element: what a host does by its
// members, what a person does by mouse and keys. Behind every line the element is where zolt20-host
// is, and at the end stand the recorded texts.
import assert from 'node:assert/strict';
import {readdirSync, readFileSync} from 'node:fs';
import path from 'node:path';
import {after, before, describe, test} from 'node:test';

import {closePage, Stage} from './harness.mjs';
import {kRoot} from './places.mjs';
import {Replay} from './replay.mjs';

const kSessions = path.join(kRoot, 'examples/sessions');
const names = readdirSync(kSessions)
  .filter((file) => file.endsWith('.jsonl') && !file.endsWith('.replies.jsonl'))
  .map((file) => path.basename(file, '.jsonl'));

/** @type {(name: string) => string[]} */
const linesOf = (name) =>
  readFileSync(path.join(kSessions, `${name}.jsonl`), 'utf8')
    .split('\n')
    .filter((line) => line.trim() !== '' && !line.startsWith('#'));
/** @type {(name: string, kind: string) => string} */
const recorded = (name, kind) => readFileSync(path.join(kSessions, `${name}.${kind}.txt`), 'utf8');

describe('the element goes the way of the session', () => {
  /** @type {Stage} */
  let stage;
  const seen = {gestures: 0, messages: 0, refusals: 0};

  before(async () => {
    stage = await Stage.open();
  });
  after(() => stage?.close());

  for (const name of names) {
    test(name, async () => {
      const person = await stage.openElement();
      const replay = new Replay(person);
      try {
        for (const line of linesOf(name)) await replay.play(line);
        const {TxtOutput} = (await person.dump()).controls;
        assert.equal(TxtOutput.Text, recorded(name, 'result'), 'the Result');
        const {value} = await person.carryOut('{"get":"prpstrSelectedFields"}');
        assert.equal(value, recorded(name, 'fields'), 'the selected fields');
        assert.ok(replay.gestures > 0);
      } finally {
        replay.close();
      }
      seen.gestures += replay.gestures;
      seen.messages += replay.messages;
      seen.refusals += replay.refusals;
      await closePage(person.page);
    });
  }

  test('all of them together come to every kind of line', () => {
    assert.ok(names.length >= 7);
    assert.ok(seen.gestures > 300 && seen.messages > 5 && seen.refusals > 0, JSON.stringify(seen));
  });
});
