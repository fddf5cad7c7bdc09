// How the focus comes to an element and leaves it: by the Tab key as other engines tell of it, by
// the page, and by itself.
import assert from 'node:assert/strict';
import {after, before, describe, test} from 'node:test';

import {stopsOf} from './form.mjs';
import {closePage, Stage} from './harness.mjs';

/** @import {Page} from 'playwright-core' */
/** @import {Person} from './harness.mjs' */

/** @type {Stage} */
let stage;
before(async () => {
  stage = await Stage.open();
});
after(() => stage?.close());

/** @type {(name: string, act: (person: Person, page: Page) => Promise<void>) => void} */
function withPerson(name, act) {
  test(name, {timeout: 60000}, async () => {
    const person = await stage.openElement();
    await act(person, person.page);
    await closePage(person.page);
  });
}
/// The edge of the element that has the focus: 0 before the controls, 1 behind them, -1 for none.
/** @type {(page: Page) => Promise<number>} */
const edgeAt = async (page) =>
  (
    await page.evaluate(() => {
      const root = host.element.shadowRoot;
      return [...root.querySelectorAll('.edge')].map((edge) => edge === root.activeElement);
    })
  ).indexOf(true);

describe('the Tab key, as other engines tell of it', () => {
  /// A press that only the element hears of. The browser does nothing by itself.
  /** @typedef {{key: string, code: string, shiftKey?: boolean, altKey?: boolean}} Press */
  /** @type {(page: Page, init: Press) => Promise<void>} */
  const press = (page, init) =>
    page.evaluate((settings) => {
      const {activeElement} = host.element.shadowRoot;
      activeElement?.dispatchEvent(
        new KeyboardEvent('keydown', {
          ...settings,
          bubbles: true,
          composed: true,
          cancelable: true,
        }),
      );
    }, init);
  /** @type {[string, Press][]} */
  const kPresses = [
    ['without a name, with Shift', {key: 'Unidentified', code: 'Tab', shiftKey: true}],
    ['with Option', {key: 'Tab', code: 'Tab', altKey: true}],
    ['with Option and Shift', {key: 'Unidentified', code: 'Tab', altKey: true, shiftKey: true}],
  ];
  for (const [how, init] of kPresses) {
    withPerson(`${how} goes along the tab order and out of the element`, async (person, page) => {
      // The Result chains the buttons behind itself as it takes the focus.
      await person.focus('TxtOutput');
      const stops = async () => {
        const forward = stopsOf(await person.dump());
        return init.shiftKey ? forward.reverse() : forward;
      };
      await person.focus((await stops())[0]);
      for (let presses = 0; ; ++presses) {
        const now = await stops();
        const next = now[now.indexOf(await person.at()) + 1];
        await press(page, init);
        if (next === undefined) break;
        assert.equal(await person.at(), next);
        assert.ok(presses < 60, 'no end of the way');
      }
      const edge = init.shiftKey ? 0 : 1;
      assert.equal(await edgeAt(page), edge);
      // It waits there for the browser to go on, and is not thrown back.
      await person.nextFrame();
      await person.nextFrame();
      assert.equal(await edgeAt(page), edge);
    });
  }
  withPerson('that moves by itself passes the edges', async (person, page) => {
    // The key comes to an edge, and the browser moves on from there.
    await page.evaluate(() =>
      window.addEventListener(
        'keydown',
        (event) => {
          if (event.key === 'Tab') event.stopImmediatePropagation();
        },
        true,
      ),
    );
    for (const [edge, outside] of ['#before', '#behind'].entries()) {
      await person.focus('TxtOutput');
      await page.evaluate((at) => {
        const node = host.element.shadowRoot.querySelectorAll('.edge')[at];
        /** @type {HTMLElement} */ (node).focus();
      }, edge);
      assert.equal(await edgeAt(page), edge);
      await person.keyboard.press(edge === 0 ? 'Shift+Tab' : 'Tab');
      assert.equal(await person.at(), outside);
    }
  });
  withPerson('stops at nothing that screen readers have no words for', async (_person, page) => {
    const edges = await page.evaluate(() =>
      [...host.element.shadowRoot.querySelectorAll('.edge')].map((edge) => edge.ariaHidden),
    );
    assert.deepEqual(edges, ['true', 'true']);
  });
  withPerson('comes in at either end', async (person, page) => {
    await page.focus('#before');
    await person.keyboard.press('Tab');
    assert.equal(await person.at(), stopsOf(await person.dump())[0]);
    const last = stopsOf(await person.dump()).at(-1);
    await page.focus('#behind');
    await person.keyboard.press('Shift+Tab');
    assert.equal(await person.at(), last);
  });
});

describe('a page that gives the focus to an element', () => {
  // The element begins below what can be seen.
  /** @type {(page: Page) => Promise<void>} */
  const pushDown = (page) =>
    page.evaluate(() => {
      document.querySelector('main').style.paddingTop = '2000px';
    });
  withPerson('scrolls to it', async (person, page) => {
    await pushDown(page);
    await page.evaluate(() => host.element.focus());
    assert.ok((await page.evaluate(() => scrollY)) > 0);
    assert.equal(await person.at(), stopsOf(await person.dump())[0]);
  });
  withPerson('scrolls nothing with preventScroll', async (person, page) => {
    await pushDown(page);
    const focused = () =>
      page.evaluate(() => {
        host.element.focus({preventScroll: true});
        return scrollY;
      });
    assert.equal(await focused(), 0);
    assert.equal(await person.at(), stopsOf(await person.dump())[0]);
    // To the control that has the focus in the form, too.
    await page.evaluate(() => {
      /** @type {HTMLElement} */ (host.element.shadowRoot.activeElement).blur();
      host.element.prpTab = 2;
    });
    assert.equal(await focused(), 0);
    assert.equal(await person.at(), (await person.dump()).focus);
    // And later it scrolls again.
    await page.evaluate(() =>
      /** @type {HTMLElement} */ (host.element.shadowRoot.activeElement).blur(),
    );
    await page.evaluate(() => host.element.focus());
    await person.waitFor('the page scrolls', () => page.evaluate(() => scrollY > 0));
  });
});

describe('autofocus', () => {
  /** @type {(page: Page) => Promise<string>} */
  const focusIn = (page) =>
    page.evaluate(() => {
      const active = document.activeElement;
      const within = active?.shadowRoot?.activeElement?.closest('[data-control]');
      return within?.getAttribute('data-control') ?? String(active?.id);
    });
  test('works in a page as it loads', {timeout: 60000}, async () => {
    const page = await stage.openPage('autofocus.html');
    await page.waitForFunction(() => document.activeElement !== document.body);
    assert.equal(await focusIn(page), 'tabVrn');
    await closePage(page);
  });
  test('leaves the focus where a person put it', {timeout: 60000}, async () => {
    const page = await stage.openPage('autofocus.html?busy');
    await page.evaluate(() => customElements.whenDefined('zolt20-map-control'));
    await page.evaluate(() => new Promise((done) => requestAnimationFrame(() => done(undefined))));
    assert.equal(await focusIn(page), 'busy');
    await closePage(page);
  });
  withPerson('works in a dialog that opens', async (_person, page) => {
    await page.evaluate(() => {
      const dialog = document.createElement('dialog');
      const [button, element] = ['button', 'zolt20-map-control'].map((name) =>
        document.createElement(name),
      );
      element.autofocus = true;
      dialog.append(button, element);
      document.body.append(dialog);
      dialog.showModal();
    });
    assert.equal(await focusIn(page), 'tabVrn');
  });
  withPerson('is not needed for one alone in a dialog', async (_person, page) => {
    await page.evaluate(() => {
      const dialog = document.createElement('dialog');
      dialog.append(document.createElement('zolt20-map-control'));
      document.body.append(dialog);
      dialog.showModal();
    });
    assert.equal(await focusIn(page), 'tabVrn');
  });
  withPerson('is of the first time in a page alone', async (_person, page) => {
    await page.evaluate(() => {
      const element = document.createElement('zolt20-map-control');
      element.autofocus = true;
      element.id = 'late';
      document.body.append(element);
    });
    assert.equal(await focusIn(page), 'tabVrn');
    await page.evaluate(() => {
      const element = document.getElementById('late');
      const {activeElement} = /** @type {ShadowRoot} */ (element.shadowRoot);
      /** @type {HTMLElement} */ (activeElement).blur();
      document.body.prepend(element);
    });
    assert.equal(await page.evaluate(() => document.activeElement === document.body), true);
  });
});
