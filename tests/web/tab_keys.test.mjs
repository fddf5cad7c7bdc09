// The Tab key of the platform: it goes through the element and out of it, by the keyboard of a
// display and not by the engine's driver.
import assert from 'node:assert/strict';
import {after, before, describe, test} from 'node:test';

import {engine} from './engines/engine.mjs';
import {closePage, Stage} from './harness.mjs';
import {kTabs} from './names.mjs';
import {walk} from './tab_walk.mjs';

/** @import {Person} from './harness.mjs' */

const kMost = 60000;

describe('the Tab key of the platform', () => {
  /** @type {Stage} */
  let stage;
  /** @type {Person} */
  let person;
  before(async () => {
    stage = await Stage.open({}, {}, true);
    person = await stage.openElement();
    await stage.display?.focus(await person.page.title());
  });
  after(() => stage?.close());

  // In WebKit it goes to buttons too, when Alt is held, on platforms where it does not by itself.
  for (const held of engine.name === 'WebKitGTK' ? ['', 'alt+'] : ['']) {
    for (const page of held === '' ? kTabs.keys() : [0]) {
      test(`${held}Tab goes through page ${page}, and back`, {timeout: kMost}, async () => {
        await person.makeNew('{"new":{}}');
        if (page !== 0) await person.tab(page);
        /** @type {(forward: boolean, expected: string) => Promise<void>} */
        const press = async (forward, expected) => {
          await stage.display?.press(`${held}${forward ? '' : 'shift+'}Tab`);
          await person.waitFor(
            `the keyboard comes to ${expected}`,
            async () => (await person.at()) === expected,
          );
        };
        const first = await walk(person, true, press);
        assert.ok(first.length > 7, first.join(' '));
        await walk(person, false, press);
        assert.equal(await person.difference(), '');
      });
    }
  }
  test('the page has complained of nothing', () => closePage(person.page));
});
