// Every page in the letters of several families, of usual size and of twice that: whatever a
// machine has, no text is cut and no control covers another.
import {after, before, describe, test} from 'node:test';

import {Stage} from './harness.mjs';
import {doubleTheLetters, isInstalled, kPages, look, play, withPerson} from './looks.mjs';

/**
 * @import {TestContext} from 'node:test'
 * @import {Person} from './harness.mjs'
 */

// The first is what the machine has by itself.
const kFamilies = [undefined, 'DejaVu Sans', 'Liberation Sans', 'Noto Sans'];

describe('the pages have room in any letters', () => {
  /** @type {Stage} */
  let stage;
  before(async () => {
    stage = await Stage.open();
  });
  after(() => stage?.close());

  /** @type {(person: Person, page: number) => Promise<unknown>} */
  const showPage = (person, page) => person.carryOut(JSON.stringify({set: 'prpTab', value: page}));

  /** @type {(person: Person, prefix: string) => Promise<void>} */
  async function lookAtEverything(person, prefix) {
    for (const page of kPages) {
      await showPage(person, page);
      await look(person, `${prefix}-empty${page}`);
    }
    for (const option of ['optIfThen', 'optwhile', 'optRepeat', 'optFor', 'optCase']) {
      await person.click(option);
      await look(person, `${prefix}-${option}`);
    }
    // The first four rows fill the frame, the others scroll.
    for (const row of [1, 2, 3, 4, 5]) {
      await person.click('cmdNext');
      await look(person, `${prefix}-rows${row}`);
    }
  }

  for (const family of kFamilies) {
    for (const isLarge of [false, true]) {
      const name = `${family ?? 'the own letters'}${isLarge ? ', twice as large' : ''}`;
      const prefix = `font-${name.replace(/\W+/g, '-')}`;
      const quoted = family && `"${family}"`;
      /** @type {(context: TestContext, act: (person: Person) => Promise<void>) => Promise<void>} */
      const withLetters = (context, act) =>
        withPerson(stage, {family: quoted, ofWhile: quoted}, async (person) => {
          if (quoted !== undefined && !(await isInstalled(person, quoted)))
            return context.skip(`${family} is not installed`);
          if (isLarge) await doubleTheLetters(person);
          await act(person);
        });

      test(`${name}: empty pages and all kinds`, (context) =>
        withLetters(context, (person) => lookAtEverything(person, prefix)));
      test(`${name}: an on-case`, (context) =>
        withLetters(context, async (person) => {
          await play(person, 'mapping-rule', 40);
          await look(person, `${prefix}-page6`);
        }));
    }
  }
});
