// People made up at random at the element, by its real mouse and keys: the record of what the
// element told of them, played by zolt20-host, ends where the element is.
import assert from 'node:assert/strict';
import {execFileSync} from 'node:child_process';
import {after, before, describe, test} from 'node:test';

import {Automation} from './automation.mjs';
import {Hands} from './hands.mjs';
import {Stage, closePage} from './harness.mjs';
import {kPeople} from './places.mjs';
import {differencesOf} from './replay.mjs';

/** @import {Step} from './hands.mjs' */

const kMost = 120000;
const kSeeds = 2;
const kSteps = 300;

describe('people at the element end where their record ends', () => {
  /** @type {Stage} */
  let stage;
  before(async () => {
    stage = await Stage.open();
  });
  after(() => stage?.close());

  for (let seed = 1; seed <= kSeeds; ++seed) {
    test(`seed ${seed}`, {timeout: kMost}, async () => {
      const person = await stage.openElement();
      const hands = new Hands(person);
      await hands.begin();
      /** @type {Step[]} */
      const steps = execFileSync(kPeople, [String(seed), String(kSteps)], {encoding: 'utf8'})
        .trim()
        .split('\n')
        .map((line) => JSON.parse(line));
      let done = 0;
      for (const [at, step] of steps.entries()) {
        try {
          done += (await hands.try(step)) ? 1 : 0;
        } catch (error) {
          const what = `seed ${seed}, step ${at}, ${JSON.stringify(step)}: ${error}`;
          throw new Error(what, {cause: error});
        }
      }
      assert.ok(done > kSteps / 2, `${done} steps were possible`);
      const record = await hands.record();
      const host = new Automation();
      try {
        for (const line of record) await host.ask(line);
        const differences = differencesOf(await person.dump(), await host.dump());
        const lines = record.map((line) => JSON.stringify(line)).join('\n');
        assert.equal(differences, '', `seed ${seed}, record\n${lines}`);
      } finally {
        host.close();
      }
      await closePage(person.page);
    });
  }
});
