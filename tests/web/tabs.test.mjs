// The strip of the tabs where it has no room for all of them.
import assert from 'node:assert/strict';
import {after, before, describe, test} from 'node:test';

import {closePage, Stage} from './harness.mjs';

/** @import {Page} from 'playwright-core' */
/** @import {Person} from './harness.mjs' */

const kNarrow = {viewport: {width: 400, height: 800}};

/** @type {Stage} */
let stage;
before(async () => {
  stage = await Stage.open();
});
after(() => stage?.close());

/** @type {(name: string, act: (person: Person, page: Page) => Promise<void>) => void} */
function withPerson(name, act) {
  test(name, {timeout: 60000}, async () => {
    const person = await stage.openElement(kNarrow);
    await act(person, person.page);
    await person.takeLog();
    await closePage(person.page);
  });
}

describe('the strip of the tabs', () => {
  /** @type {(page: Page) => Promise<{top: number, left: number, right: number}[]>} */
  const tabs = (page) =>
    page.evaluate(() =>
      [...host.element.shadowRoot.querySelectorAll('[role=tab]')].map((tab) => {
        const {top, left, right} = tab.getBoundingClientRect();
        return {top, left, right};
      }),
    );
  const fades = (/** @type {Page} */ page) =>
    page.evaluate(() =>
      ['more-left', 'more-right'].map((side) => host.on('tabVrn').classList.contains(side)),
    );
  for (const dir of ['ltr', 'rtl']) {
    withPerson(`is one row, and shows where there is more, ${dir}`, async (person, page) => {
      await page.evaluate((way) => {
        document.documentElement.dir = way;
        makeNew('{"new":{}}');
      }, dir);
      await person.nextFrame();
      await person.nextFrame();
      assert.equal(new Set((await tabs(page)).map(({top}) => top)).size, 1);
      const first = dir === 'ltr' ? [false, true] : [true, false];
      assert.deepEqual(await fades(page), first);
      await page.evaluate(() => host.element.focus());
      for (const key of ['End', 'Home']) {
        await page.evaluate(() => {
          const tab = host.element.shadowRoot.querySelector('[role=tab][aria-selected=true]');
          /** @type {HTMLElement} */ (tab).focus();
        });
        await person.keyboard.press(key);
        await person.nextFrame();
        await person.nextFrame();
        const strip = await person.place('tabVrn');
        const {left, right} = (await tabs(page))[key === 'End' ? 6 : 0];
        assert.ok(left >= strip.left - 1 && right <= strip.right + 1, `${key}: ${left} ${right}`);
        assert.deepEqual(await fades(page), key === 'End' ? [...first].reverse() : first);
      }
    });
  }
  withPerson('brings the page that the host turns to into sight', async (person, page) => {
    for (const number of [6, 3, 0, 5]) {
      await page.evaluate((tab) => {
        host.element.prpTab = tab;
      }, number);
      const strip = await person.place('tabVrn');
      const {left, right} = (await tabs(page))[number];
      assert.ok(left >= strip.left - 1 && right <= strip.right + 1, `${number}`);
    }
  });
  withPerson('is scrolled by a wheel of one way, and then the page', async (person, page) => {
    await page.evaluate(() => {
      document.body.style.paddingBlockEnd = '2000px';
    });
    const {x, y} = await person.place('tabVrn', '[data-page="1"]');
    await person.mouse.move(x, y);
    await person.wheel(1000);
    assert.deepEqual(await fades(page), [true, false]);
    assert.equal(await page.evaluate(() => scrollY), 0);
    await person.wheel(100);
    assert.ok((await page.evaluate(() => scrollY)) > 0);
  });
});
