// The list of what any face does, played on the element.
import assert from 'node:assert/strict';
import {readFileSync} from 'node:fs';
import path from 'node:path';
import {after, before, describe, test} from 'node:test';

import {lackOf} from './engines/engine.mjs';
import {Hands} from './hands.mjs';
import {Stage} from './harness.mjs';
import {kRoot} from './places.mjs';

/** @import {Person} from './harness.mjs' */
/** @import {Step} from './hands.mjs' */

const kMost = 60000;
/** @type {{catalogue: Step[], cases: {name: string, steps: Step[], not?: {web?: string}}[]}} */
const {catalogue, cases} = JSON.parse(
  readFileSync(path.join(kRoot, 'tests/faces/what_a_face_does.json'), 'utf8'),
);

describe('the element does what any face does', () => {
  /** @type {Stage} */
  let stage;
  /** @type {Person} */
  let person;
  /** @type {Hands} */
  let hands;
  before(async () => {
    stage = await Stage.open();
    person = await stage.openElement();
    hands = new Hands(person);
  });
  after(() => stage?.close());

  for (const {name, steps, not} of cases) {
    // It counts as one that is left out, and its reason is told.
    const parts = steps.flatMap((step) => [...Object.keys(step), ...(step.keys ?? [])]);
    test(name, {timeout: kMost, skip: not?.web ?? lackOf(parts) ?? false}, async () => {
      await hands.begin();
      for (const step of [...catalogue, ...steps]) await hands.play(step);
      assert.deepEqual(person.page.complaints.splice(0), []);
    });
  }
});
