// Every page, empty and filled, in both schemes, in letters that are the same on every machine; the
// pictures of docs/ come from here.
import assert from 'node:assert/strict';
import {after, before, describe, test} from 'node:test';

import {Stage} from './harness.mjs';
import {cutTexts, doubleTheLetters, kPages, look, play, withPerson} from './looks.mjs';

const kLetters = {family: '"DejaVu Sans"', ofWhile: '"Liberation Sans"'};

describe('the pages have room for what they show', () => {
  /** @type {Stage} */
  let stage;
  before(async () => {
    stage = await Stage.open();
  });
  after(() => stage?.close());

  test('empty', () =>
    withPerson(stage, kLetters, async (person) => {
      for (const page of kPages) {
        await person.carryOut(JSON.stringify({set: 'prpTab', value: page}));
        await look(person, `empty${page}`);
      }
    }));

  test('the Select List page, filled', () =>
    withPerson(stage, kLetters, async (person) => {
      await play(person, 'where-report', 12);
      await person.carryOut('{"set":"prpTab","value":0}');
      await look(person, 'page0');
    }));

  test('the Where page, filled', () =>
    withPerson(stage, kLetters, async (person) => {
      await play(person, 'where-report');
      await person.carryOut('{"set":"prpTab","value":1}');
      await look(person, 'page1');
    }));

  test('the pages of statements, filled', () =>
    withPerson(stage, kLetters, async (person) => {
      await play(person, 'full-statement');
      for (const page of [2, 3, 4, 5]) {
        await person.carryOut(JSON.stringify({set: 'prpTab', value: page}));
        await look(person, `page${page}`);
      }
    }));

  test('the panel of each kind', () =>
    withPerson(stage, kLetters, async (person) => {
      await person.tab(6);
      for (const option of ['optIfThen', 'optwhile', 'optRepeat', 'optFor', 'optCase']) {
        await person.click(option);
        await look(person, `kind-${option}`);
      }
    }));

  test('the rows of an on-case scroll', () =>
    withPerson(stage, kLetters, async (person) => {
      await play(person, 'mapping-rule', 40);
      await look(person, 'page6');
    }));

  test('twice the letters still fit twice the window', () =>
    withPerson(stage, kLetters, async (person) => {
      await doubleTheLetters(person);
      for (const page of kPages) {
        await person.carryOut(JSON.stringify({set: 'prpTab', value: page}));
        await person.nextFrame();
        assert.deepEqual(await person.page.evaluate(cutTexts), [], `page ${page}`);
      }
    }));
});
