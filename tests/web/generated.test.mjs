// People who click around between courses that lead somewhere: requests made up at random, each
// carried out in the page by mouse and keys and by zolt20-host line by line.
import assert from 'node:assert/strict';
import {execFileSync} from 'node:child_process';
import {after, before, describe, test} from 'node:test';

import {designOf, isShown} from './form.mjs';
import {closePage, Stage} from './harness.mjs';
import {kPeople} from './places.mjs';
import {Replay} from './replay.mjs';

/** @import {Person} from './harness.mjs' */
/** @import {Dump, Gesture} from './types' */

// Of seed 11 the catalogue has a broken record, at which gestures fail.
const kSeeds = [1, 3, 4, 5, 6, 11];
const kSteps = 150;
const kLines = 600;
const kMost = 120000;

/// Whether a person can make the gesture: those who made it up had a control of their own, which
/// may be in another state.
/** @type {(gesture: Gesture, person: Person, dump: Dump) => Promise<boolean>} */
async function isPossible(gesture, person, dump) {
  if (gesture.user === 'tab') return true;
  const {control: name} = gesture;
  const control = dump.controls[name];
  if (control === undefined || !control.Enabled || !isShown(dump, name)) return false;
  if ('row' in gesture && (gesture.row ?? 0) >= control.List.length) return false;
  if (gesture.user === 'scroll' && gesture.value > control.Max) return false;
  return (await person.place(name)).isOnTop;
}

describe('the element goes the way of a person who clicks around', () => {
  /** @type {Stage} */
  let stage;
  const seen = {kinds: new Set(), messages: 0, failures: 0};

  before(async () => {
    stage = await Stage.open();
  });
  after(() => stage?.close());

  for (const seed of kSeeds) {
    test(`seed ${seed}`, {timeout: kMost}, async () => {
      const person = await stage.openElement();
      const replay = new Replay(person);
      const lines = execFileSync(kPeople, ['--requests', String(seed), String(kLines)], {
        encoding: 'utf8',
      }).split('\n');
      let step = 0;
      try {
        await replay.play('{"new":{}}');
        while (step < kSteps) {
          const line = lines.shift() ?? '';
          assert.notEqual(line, '', `only ${step} gestures were possible`);
          const request = JSON.parse(line);
          if (request.user === undefined) {
            await replay.play(line);
            continue;
          }
          const dump = replay.dump ?? assert.fail('nothing has been played');
          if (!(await isPossible(request, person, dump))) continue;
          ++step;
          seen.kinds.add(`${request.user} ${designOf(request.control ?? 'tabVrn').kind}`);
          // A double click of a person is a click before it.
          const clicks =
            request.user === 'dblclick' ? [JSON.stringify({...request, user: 'click'})] : [];
          await replay.play(line, clicks);
        }
      } catch (error) {
        throw new Error(`step ${step}: ${error}`, {cause: error});
      } finally {
        replay.close();
      }
      seen.messages += replay.messages;
      seen.failures += replay.failures;
      await closePage(person.page);
    });
  }

  test('all of them together do everything that can be done', () => {
    const kAll = [
      'tab TabStrip',
      'click Button',
      'focus Button',
      'click OptionButton',
      'type TextBox',
      'focus TextBox',
      'key TextBox',
      'type SyntaxTextBox',
      'focus SyntaxTextBox',
      'click ListBox',
      'dblclick ListBox',
      'pick ComboBox',
      'type ComboBox',
      'scroll ScrollBar',
    ];
    assert.deepEqual(
      kAll.filter((kind) => !seen.kinds.has(kind)),
      [],
    );
    assert.ok(
      seen.messages > 0 && seen.failures > 0,
      JSON.stringify([seen.messages, seen.failures]),
    );
  });
});
