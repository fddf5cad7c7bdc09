// People who click around: gestures made up at random among what can be seen and used at the
// moment, each carried out in the page by mouse and keys and by zolt20-host line by line.
import assert from 'node:assert/strict';
import {after, before, describe, test} from 'node:test';

import {designOf, isShown} from './form.mjs';
import {closePage, Stage} from './harness.mjs';
import {Replay} from './replay.mjs';

/** @import {DumpedControl, Gesture} from './types' */

const kSeeds = 6;
const kSteps = 150;
const kMost = 120000;
const kPages = 7;
const kRare = ['optCase', 'cmdNext', 'VscrCase'];
const kValues = ['10', 'TABLE__1.A', ':var.x'];
const kKeys = ['1', '2', '0', 'x', '\b'].map((key) => key.charCodeAt(0));

/// The same numbers for the same seed.
/** @type {(seed: number) => (count: number) => number} */
function randomOf(seed) {
  let state = seed;
  return (count) => {
    state = (state + 0x6d2b79f5) | 0;
    let mixed = Math.imul(state ^ (state >>> 15), 1 | state);
    mixed = (mixed + Math.imul(mixed ^ (mixed >>> 7), 61 | mixed)) ^ mixed;
    return ((mixed ^ (mixed >>> 14)) >>> 0) % count;
  };
}

/// Something that a person could do to a control in this state; nothing for some.
/**
 * @type {(name: string, control: DumpedControl, any: (count: number) => number) =>
 *   Gesture | undefined}
 */
function gestureOn(name, control, any) {
  const {kind, styles} = designOf(name);
  switch (kind) {
    case 'TabStrip':
      return {user: 'tab', page: any(kPages)};
    case 'Button':
      return {user: any(6) === 0 ? 'focus' : 'click', control: name};
    case 'OptionButton':
      return {user: 'click', control: name};
    case 'TextBox':
    case 'SyntaxTextBox': {
      if (any(3) === 0) return {user: 'focus', control: name};
      if (name === 'txtAsSet' && any(2) === 0)
        return {user: 'key', control: name, code: kKeys[any(kKeys.length)]};
      const value = kValues[any(kValues.length)];
      return {
        user: 'type',
        control: name,
        text: styles.includes('kMultiLine') ? `${value}\r\n${value}` : value,
      };
    }
    case 'ListBox': {
      const {length} = control.List;
      if (length === 0) return undefined;
      const isSingle = !styles.includes('kMultiSelect') && !styles.includes('kCheckBoxes');
      return {
        user: isSingle && any(4) === 0 ? 'dblclick' : 'click',
        control: name,
        row: any(length),
      };
    }
    case 'ComboBox':
      if (styles.includes('kEditable') && any(2) === 0)
        return {user: 'type', control: name, text: kValues[any(kValues.length)]};
      return control.List.length === 0
        ? undefined
        : {user: 'pick', control: name, row: any(control.List.length)};
    case 'ScrollBar': {
      // One step, as a person's way to a value goes through those between.
      const value = control.Value + (any(2) === 0 ? 1 : -1);
      return value < 0 || value > control.Max ? undefined : {user: 'scroll', control: name, value};
    }
    default:
      return undefined;
  }
}

const kFields = ['NTABLE__1.A', 'YTABLE__1.B', 'NTABLE__2.C', 'NTABLE__2.D'].map(
  (name) => `char*Q*V*R*N*${name}*Q*V*R*N*text`,
);
const kHostLines = [
  {set: 'PrpStrTables', value: 'TABLE__11,TABLE__21'},
  {set: 'PrpStrFields', value: kFields.join(',')},
  {
    answer: 'eventSubQuery',
    with: [{set: 'prpStroutput', value: 'select A~\u0001from  B~endselect'}],
  },
  {answer: 'eventFunction', with: [{set: 'prpSelectDoPart', value: '*zlt*f(`^`x`^`)'}]},
  {
    answer: 'eventCondition',
    with: [{set: 'prpSelectErrorPart', value: 'if a then ~\u0001b~endif'}],
  },
];

describe('the element goes the way of a person who clicks around', () => {
  /** @type {Stage} */
  let stage;
  const seen = {kinds: new Set(), messages: 0, failures: 0};

  before(async () => {
    stage = await Stage.open();
  });
  after(() => stage?.close());

  for (let seed = 1; seed <= kSeeds; ++seed) {
    test(`seed ${seed}`, {timeout: kMost}, async () => {
      const any = randomOf(seed);
      const person = await stage.openElement();
      const replay = new Replay(person);
      let step = 0;
      try {
        for (const line of kHostLines) await replay.play(JSON.stringify(line));
        while (step < kSteps) {
          const dump = replay.dump ?? assert.fail('nothing has been played');
          const {controls} = dump;
          const names = Object.keys(controls).filter(
            (name) => controls[name].Enabled && isShown(dump, name),
          );
          // The bar of the case rows comes with the fourth row only, which takes some luck.
          const wanted = any(4) === 0 ? names.filter((name) => kRare.includes(name)) : names;
          if (wanted.length === 0) continue;
          const name = wanted[any(wanted.length)];
          const gesture = gestureOn(name, controls[name], any);
          if (gesture === undefined || !(await person.place(name)).isOnTop) continue;
          ++step;
          seen.kinds.add(`${gesture.user} ${designOf(name).kind}`);
          // A double click of a person is a click before it.
          const clicks =
            gesture.user === 'dblclick' ? [JSON.stringify({...gesture, user: 'click'})] : [];
          await replay.play(JSON.stringify(gesture), clicks);
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
