// The element on a phone, and in places that give it no height or less than it needs.
import assert from 'node:assert/strict';
import {after, before, describe, test} from 'node:test';

import {isShown, takesFocus} from './form.mjs';
import {closePage, Stage} from './harness.mjs';

/** @import {BrowserContextOptions, Page} from 'playwright-core' */
/** @import {Person} from './harness.mjs' */

const kPhone = {viewport: {width: 400, height: 800}, hasTouch: true, isMobile: true};
const kPages = [0, 1, 2, 3, 4, 5, 6];
const kKinds = ['optIfThen', 'optwhile', 'optRepeat', 'optFor', 'optCase'];

/** @type {Stage} */
let stage;
before(async () => {
  stage = await Stage.open();
});
after(() => stage?.close());

/**
 * @type {(name: string, settings: BrowserContextOptions,
 *   act: (person: Person, page: Page) => Promise<void>) => void}
 */
function withPerson(name, settings, act) {
  test(name, {timeout: 120000}, async () => {
    const person = await stage.openElement(settings, 'phone.html');
    await act(person, person.page);
    await person.takeLog();
    await closePage(person.page);
  });
}
/** @type {(page: Page) => Promise<void>} */
const fill = (page) =>
  page.evaluate(() => {
    const fields = Array.from({length: 40}, (_, at) => `NCUSTOMER.C_FIELD_${at}`);
    Object.assign(host.element, {
      PrpStrTables: 'CUSTOMER2,ORDERS__1',
      PrpStrFields: fields.map((name) => `long*Q*V*R*N*${name}*Q*V*R*N*text`).join(','),
      prpSelectFromPart: 'CUSTOMER',
      prpSelectDoPart: 'print ( :var.a )',
    });
  });
/// Comes to each page, and to each panel of the last one with boxes in all of it.
/** @type {(person: Person, act: (view: string) => Promise<void>) => Promise<void>} */
async function eachView(person, act) {
  for (const page of kPages) {
    await person.page.evaluate((number) => {
      host.element.prpTab = number;
    }, page);
    await person.nextFrame();
    await act(`page ${page}`);
  }
  for (const kind of kKinds) {
    await person.click(kind);
    if (kind === 'optCase') for (let row = 0; row < 4; ++row) await person.click('cmdNext');
    await person.nextFrame();
    await act(kind);
  }
}
/// What is true of a node of the element, of all that can be seen.
/** @type {(person: Person, look: () => string[]) => Promise<string[]>} */
async function found(person, look) {
  /** @type {string[]} */
  const all = [];
  await eachView(person, async (view) => {
    for (const what of await person.page.evaluate(look)) all.push(`${view}: ${what}`);
  });
  return all;
}

describe('on a phone', () => {
  withPerson('all that is pressed is large enough for a finger', kPhone, async (person, page) => {
    await fill(page);
    const small = await found(person, () => {
      const kPressed =
        'button, textarea, input, [role=option], [role=combobox], [role=scrollbar], [data-step]';
      return [...host.element.shadowRoot.querySelectorAll(kPressed)]
        .map((node) => {
          const pressed =
            node.type === 'radio' ? node.closest('label') : (node.closest('.lines') ?? node);
          return /** @type {HTMLElement} */ (pressed);
        })
        .filter((node) => node.checkVisibility())
        .map((node) => ({name: node.id || node.className, place: node.getBoundingClientRect()}))
        .filter(({place: {width, height}}) => width < 43.5 || height < 43.5)
        .map(({name, place: {width, height}}) => `${name} ${width} x ${height}`);
    });
    assert.deepEqual(small, []);
    await page.evaluate(() => {
      host.element.prpTab = 1;
    });
    await person.press('cboOper');
    const heights = await page.evaluate(() =>
      [...host.on('cboOper.list').querySelectorAll('.row')].map((row) => row.clientHeight),
    );
    assert.ok(heights.length > 3 && heights.every((height) => height >= 44), `${heights}`);
  });
  withPerson('no box has letters that make it enlarge the page', kPhone, async (person, page) => {
    const look = () => {
      const kBoxes = 'input:not([type=radio]), textarea, [role=combobox], .sheet';
      return [...host.element.shadowRoot.querySelectorAll(kBoxes)]
        .filter((node) => parseFloat(getComputedStyle(node).fontSize) < 16)
        .map(({id, className}) => id || className);
    };
    assert.deepEqual(await found(person, look), []);
    await page.evaluate(() => host.element.style.setProperty('--zolt20-font-size', '13px'));
    assert.deepEqual(await found(person, look), []);
  });
  withPerson(
    'the page scrolls, and nothing in it but lists and boxes',
    kPhone,
    async (person, page) => {
      await fill(page);
      const scrollers = await found(person, () =>
        [host.element, ...host.element.shadowRoot.querySelectorAll('*')]
          .filter((node) => !node.matches('textarea, .rows') && node.checkVisibility())
          .filter((node) => {
            const {overflowY} = getComputedStyle(node);
            return /auto|scroll/.test(overflowY) && node.scrollHeight > node.clientHeight + 1;
          })
          .map((node) => node.id || node.className || node.localName),
      );
      assert.deepEqual(scrollers, []);
      await page.evaluate(() => {
        host.element.prpTab = 0;
      });
      const [needed, seen] = await page.evaluate(() => {
        const {scrollHeight, clientHeight} = document.documentElement;
        return [scrollHeight, clientHeight];
      });
      assert.ok(needed > seen, `${needed} and ${seen}`);
    },
  );
  withPerson(
    'an element of a height of its own scrolls as a whole',
    kPhone,
    async (person, page) => {
      await fill(page);
      await page.evaluate(() => {
        host.element.style.blockSize = '500px';
      });
      const scrollers = await found(person, () =>
        [host.element, ...host.element.shadowRoot.querySelectorAll('*')]
          .filter((node) => !node.matches('textarea, .rows') && node.checkVisibility())
          .filter((node) => {
            const {overflowY} = getComputedStyle(node);
            return /auto|scroll/.test(overflowY) && node.scrollHeight > node.clientHeight + 1;
          })
          .map((node) => node.localName),
      );
      assert.equal(scrollers.length, kPages.length + kKinds.length);
      for (const what of scrollers) assert.match(what, /: zolt20-map-control$/);
    },
  );
  withPerson('nothing is wider than the screen', kPhone, async (person, page) => {
    await fill(page);
    const wide = await found(person, () => {
      const kOwn = 'textarea, input, [role=listbox], .colours, .tabs, .told';
      return [...host.element.shadowRoot.querySelectorAll('*')]
        .filter((node) => node.checkVisibility() && !node.parentElement?.closest(kOwn))
        .filter((node) => {
          const place = node.getBoundingClientRect();
          return place.width > 0 && (place.left < 0 || place.right > innerWidth);
        })
        .map((node) => node.id || node.className || node.outerHTML.slice(0, 80));
    });
    assert.deepEqual(wide, []);
    assert.equal(await page.evaluate(() => document.documentElement.scrollWidth), 400);
  });
  withPerson('everything is reached by scrolling the page', kPhone, async (person, page) => {
    await fill(page);
    await eachView(person, async (view) => {
      const dump = await person.dump();
      for (const name of Object.keys(dump.controls)) {
        if (!takesFocus(name) || !isShown(dump, name)) continue;
        // Of the two views of a condition one lies before the other; rows of a case are scrolled to.
        if (['txtCondition', 'txtwhereCondition'].includes(name)) continue;
        if (/^(TxtExpr|txtStmt)\(/.test(name)) continue;
        await page.evaluate((id) => {
          const {top, bottom} = host.on(id).getBoundingClientRect();
          scrollBy(0, (top + bottom - innerHeight) / 2);
        }, name);
        assert.ok((await person.place(name)).isOnTop, `${view}: ${name}`);
      }
    });
  });
  withPerson(
    'an entry is picked by the finger, with no keys before it',
    kPhone,
    async (person, page) => {
      await fill(page);
      await page.evaluate(() => {
        host.element.prpTab = 1;
      });
      /** @type {(name: string, selector?: string) => Promise<void>} */
      const tap = async (name, selector) => {
        const {x, y} = await person.place(name, selector);
        await page.touchscreen.tap(x, y);
        await person.nextFrame();
      };
      await tap('cboWhereFields');
      assert.ok((await person.place('cboWhereFields.list')).isOnTop);
      assert.equal(await person.at(), 'cboWhereFields');
      // The search line is there for who wants it.
      await tap('cboWhereFields.search');
      assert.equal(await person.at(), 'cboWhereFields.search');
      await person.keyboard.type('FIELD_7');
      await tap('cboWhereFields.list', '.row');
      assert.equal((await person.dump()).controls.cboWhereFields.Text, 'CUSTOMER.C_FIELD_7');
      assert.ok(!(await person.place('cboWhereFields.list')).isThere);
    },
  );
  withPerson('a field is selected by the finger', kPhone, async (person, page) => {
    await fill(page);
    /** @type {(name: string, selector?: string) => Promise<void>} */
    const tap = async (name, selector = '') => {
      await page.evaluate(
        ([id, within]) => host.find(id, within).scrollIntoView({block: 'center'}),
        [name, selector],
      );
      const {x, y} = await person.place(name, selector);
      await page.touchscreen.tap(x, y);
    };
    await tap('lstFields', '[data-row="2"]');
    await tap('cmdMoveOne');
    assert.equal((await person.dump()).controls.lstSelectedFields.List.length, 1);
  });
  withPerson('lists are as high as their rows, within bounds', kPhone, async (person, page) => {
    await fill(page);
    await person.nextFrame();
    await person.nextFrame();
    const heights = await page.evaluate(() =>
      ['lsttables', 'lstFields', 'lstSelectedFields'].map((name) => {
        const {clientHeight, scrollHeight} = host.on(name);
        return {clientHeight, scrolls: scrollHeight > clientHeight};
      }),
    );
    const [tables, fields, selected] = heights;
    assert.ok(!tables.scrolls && !selected.scrolls && fields.scrolls, JSON.stringify(heights));
    assert.ok(fields.clientHeight < 400 && selected.clientHeight > 80, JSON.stringify(heights));
  });
});

describe('on a tablet', () => {
  const kTablet = {viewport: {width: 820, height: 1180}, hasTouch: true, isMobile: true};
  withPerson(
    'the form has room for fingers, and nothing scrolls',
    kTablet,
    async (person, page) => {
      await fill(page);
      assert.equal(await page.evaluate(() => host.element.offsetHeight), 896);
      const wrong = await found(person, () => {
        const nodes = [host.element, ...host.element.shadowRoot.querySelectorAll('*')].filter(
          (node) => node.checkVisibility() && node.closest('.popup') === null,
        );
        const scrolled = nodes
          .filter((node) => !node.matches('textarea, .rows'))
          .filter((node) => /auto|scroll/.test(getComputedStyle(node).overflowY))
          .filter((node) => node.scrollHeight > node.clientHeight + 1)
          .map((node) => `${node.id || node.className || node.localName} scrolls`);
        const low = nodes
          .filter((node) => node.matches('.rows') && node.clientHeight < 80)
          .map(({id, clientHeight}) => `${id} is ${clientHeight} pixels high`);
        return [...scrolled, ...low];
      });
      assert.deepEqual(wrong, []);
    },
  );
});

describe('an element', () => {
  const kWide = {viewport: {width: 1280, height: 1000}};
  for (const [blockSize, around] of [
    ['auto', 'auto'],
    ['100%', 'auto'],
    ['100%', '201px'],
  ]) {
    withPerson(`as high as ${blockSize} of ${around} can be used`, kWide, async (_person, page) => {
      await fill(page);
      await page.evaluate(
        ([own, parent]) => {
          host.element.style.blockSize = own;
          document.querySelector('main').style.blockSize = parent;
        },
        [blockSize, around],
      );
      const heights = [];
      for (const number of kPages) {
        await page.evaluate((tab) => {
          host.element.prpTab = tab;
        }, number);
        heights.push(await page.evaluate(() => host.element.offsetHeight));
        const seen = await page.evaluate(() =>
          [...host.element.shadowRoot.querySelectorAll('.page:not([hidden]), .rows, #TxtOutput')]
            .filter((node) => node.checkVisibility() && node.closest('.popup') === null)
            .map((node) => node.getBoundingClientRect().height),
        );
        assert.ok(seen.length > 1 && Math.min(...seen) > 60, `${number}: ${seen}`);
      }
      assert.equal(new Set(heights).size, 1, `${heights}`);
      assert.ok(heights[0] >= (around === 'auto' ? 600 : 280), `${heights}`);
    });
  }
  withPerson(
    'in a place that is as wide as its content can be used',
    kWide,
    async (_person, page) => {
      const widths = await page.evaluate(() =>
        ['fit-content', 'min-content'].map((inlineSize) => {
          document.querySelector('main').style.inlineSize = inlineSize;
          return host.element.offsetWidth;
        }),
      );
      assert.deepEqual(widths, [320, 320]);
    },
  );
  test('does not move its page as it is defined', {timeout: 60000}, async () => {
    const page = await stage.openPage('late.html', kWide);
    const moved = await page.evaluate(() => globalThis.define());
    assert.deepEqual(moved, {before: 704, after: 704, shift: 0});
    await closePage(page);
    // Without the rule that docs/web.md names it does.
    const bare = await stage.openPage('late.html', kWide);
    const {shift} = await bare.evaluate(() => {
      document.styleSheets[0].disabled = true;
      return globalThis.define();
    });
    assert.ok(shift > 0);
    await closePage(bare);
  });
});
