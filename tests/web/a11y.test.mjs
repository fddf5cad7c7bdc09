// The element for people who use it without a mouse, with a screen reader, enlarged, or in colours
// of their own.
import assert from 'node:assert/strict';
import {after, before, describe, test} from 'node:test';

import {engine, lackOf} from './engines/engine.mjs';
import {designOf, isShown, takesFocus} from './form.mjs';
import {closePage, Stage} from './harness.mjs';
import {kPanels, kTabs, namesOn} from './names.mjs';
import {require} from './places.mjs';
import {walk} from './tab_walk.mjs';

/** @import {BrowserContextOptions, Page} from 'playwright-core' */
/** @import {Said} from './engines/engine.mjs' */
/** @import {Person} from './harness.mjs' */
/** @import {Role} from './names.mjs' */
/** @import {DumpedControl} from './types' */

/** @type {typeof import('axe-core')} */
const axe = require('axe-core');

const kMost = 120000;
const kTags = ['wcag2a', 'wcag2aa', 'wcag21a', 'wcag21aa', 'wcag22aa'];
const kCondition = 6;
// The rules are slow. What no engine makes different is held against them in Chromium alone.
const hasTime = engine.name === 'Chromium';
const pages = kTabs.map((_, page) => page);
const kinds = Object.keys(kPanels).filter((option) => option !== '');

/** @type {Stage} */
let stage;
/** @type {Person | undefined} */
let shared;
before(async () => {
  stage = await Stage.open();
  if (!engine.hasOnePage) shared = await stage.openElement();
});
after(() => stage?.close());

/// A test with a person at a new element, in a page of these settings, or in one that all without
/// settings share where the engine can have several.
/**
 * @typedef {(person: Person, page: Page) => unknown} Act
 * @type {(name: string, act: Act, settings?: BrowserContextOptions, needs?: string[]) => void}
 */
function withPerson(name, act, settings, needs = []) {
  const skip = lackOf([...Object.keys(settings ?? {}), ...needs]) ?? false;
  test(name, {timeout: kMost, skip}, async () => {
    const known = settings === undefined ? shared : undefined;
    const person = known ?? (await stage.openElement(settings));
    if (known !== undefined) await person.makeNew('{"new":{}}');
    await act(person, person.page);
    if (known === undefined) await closePage(person.page);
    else assert.deepEqual(person.page.complaints.splice(0), []);
  });
}

const kFields = [
  'NCUSTOMER.C_ID',
  'NCUSTOMER.C_LAST',
  'YCUSTOMER.C_BALANCE',
  'NORDERS__.O_ID',
  'NORDERS__.O_C_ID',
  'YORDERS__.O_DAY',
];
const kStatement = 'if :var.a = 1 then ~\u0001b = `^`text`^` + sum(c)~else~\u0001d = 2.5~endif';

/// A form with something everywhere: lists with marked rows, boxes with coloured texts.
/** @type {(person: Person) => Promise<void>} */
async function fill(person) {
  const {page} = person;
  await page.evaluate(
    ([fields, statement]) => {
      const {element} = host;
      Object.assign(element, {
        PrpStrTables: 'CUSTOMER2,ORDERS__1,ITEM____0',
        PrpStrFields: fields.map((name) => `long*Q*V*R*N*${name}*Q*V*R*N*text`).join(','),
        tableNames: {CUSTOMER: 'Customers', ORDERS__: 'Orders'},
        Syntax_Highlight: true,
        prpSelectFromPart: 'ORDERS__,CUSTOMER',
        prpSelectPart: 'CUSTOMER.C_ID,ORDERS__.O_ID',
        prpSelectWherePart: 'CUSTOMER.C_ID = ORDERS__.O_C_ID',
        prpSelectGroupbyPart: 'CUSTOMER.C_ID',
        prpSelectOrderbyPart: 'CUSTOMER.C_ID,ORDERS__.O_ID desc',
        prpSelectAsSetPart: '10',
      });
      for (const name of [
        'prpSelectDoPart',
        'prpSelectEOSPart',
        'prpSelectEmptyPart',
        'prpSelectErrorPart',
      ])
        element[name] = statement;
    },
    /** @type {[string[], string]} */ ([kFields, kStatement]),
  );
  await person.click('cmdAddSelect');
  await person.clickRow('lstFields', 1);
  await person.takeLog();
}
/** @type {(person: Person, option: string, filled: boolean) => Promise<void>} */
async function choose(person, option, filled) {
  await person.tab(kCondition);
  await person.click(option);
  if (!filled) return;
  for (const [name, [role]] of Object.entries(kPanels[option])) {
    if (role === 'textbox')
      await person.type(
        name,
        designOf(name).styles.includes('kMultiLine') ? 'a = 1\nb = 2' : ':var.a',
      );
  }
  if (option === 'optCase') for (let row = 0; row < 4; ++row) await person.click('cmdNext');
}
/// Comes to each page, and to each panel of the Condition page. `act` gets the name of what is seen
/// then.
/**
 * @type {(person: Person, filled: boolean,
 *   act: (view: string, page: number, panel: string) => Promise<void>) => Promise<void>}
 */
async function eachView(person, filled, act) {
  if (filled) await fill(person);
  for (const page of pages) {
    await person.tab(page);
    await act(`page ${page}`, page, '');
  }
  for (const option of kinds) {
    await choose(person, option, filled);
    await act(`panel ${option}`, kCondition, option);
  }
}

/** @type {(page: Page) => Promise<string[]>} */
async function violationsOf(page) {
  return page.evaluate(async (values) => {
    const {violations} = await globalThis.axe.run(document, {
      runOnly: {type: 'tag', values},
      preload: false,
      iframes: false,
      resultTypes: ['violations'],
    });
    return violations.flatMap(({id, nodes}) =>
      nodes.map(({target, any}) => `${id}: ${target.flat().join(' ')} ${any[0]?.message ?? ''}`),
    );
  }, kTags);
}

describe('nothing is found by the rules of accessibility', () => {
  withPerson(
    'which find what is wrong within the element',
    async (_person, page) => {
      await page.evaluate(axe.source);
      await page.evaluate(() => {
        host.element.style.setProperty('--zolt20-text', '#999');
        host.on('TxtOutput').removeAttribute('aria-label');
        host.on('undo').removeAttribute('aria-label');
        host.on('undo').removeAttribute('title');
        host.on('lstFields').removeAttribute('aria-label');
      });
      const found = await violationsOf(page);
      const rules = new Set(found.map((violation) => violation.split(':')[0]));
      for (const rule of ['color-contrast', 'label', 'button-name', 'aria-input-field-name'])
        assert.ok(rules.has(rule), `${rule}: ${found}`);
    },
    {colorScheme: 'light'},
  );
  for (const colorScheme of /** @type {const} */ (['light', 'dark'])) {
    for (const filled of hasTime ? [false, true] : [true]) {
      withPerson(
        `${filled ? 'filled' : 'empty'}, ${colorScheme}`,
        async (person, page) => {
          await page.evaluate(axe.source);
          /** @type {string[]} */
          const found = [];
          await eachView(person, filled, async (view) => {
            for (const violation of await violationsOf(page)) found.push(`${view}: ${violation}`);
          });
          assert.deepEqual(found, []);
        },
        {colorScheme},
      );
    }
    withPerson(
      `with a message or a list open, ${colorScheme}`,
      async (person, page) => {
        await page.evaluate(axe.source);
        await fill(person);
        await person.tab(1);
        for (const combo of ['cboWhereFields', 'cboOper', 'cboWhereFields1.open']) {
          await person.press(combo);
          const popup = `${combo.replace('.open', '')}.list`;
          await person.waitFor('the list opens', async () => (await person.place(popup)).isOnTop);
          assert.deepEqual(await violationsOf(page), [], combo);
          await person.keyboard.press('Escape');
          await person.waitFor('the list closes', async () => !(await person.place(popup)).isThere);
        }
        await person.click('cmdAnd');
        const messages = await person.takeLog();
        assert.equal(messages.length, 1);
        await person.waitFor(
          'the message shows',
          async () => (await person.place('', 'dialog[open]')).isThere,
        );
        assert.deepEqual(await violationsOf(page), [], 'a message');
        await person.answerMessages(messages);
      },
      {colorScheme},
    );
  }
  /** @type {[what: string, prepare: (page: Page) => unknown, settings: BrowserContextOptions][]} */
  const kSurroundings = [
    ['enlarged to the double', () => {}, {viewport: {width: 640, height: 500}}],
    [
      'from right to left',
      (page) =>
        page.evaluate(() => {
          document.documentElement.dir = 'rtl';
        }),
      {colorScheme: 'light'},
    ],
  ];
  for (const [what, prepare, settings] of hasTime ? kSurroundings : []) {
    withPerson(
      what,
      async (person, page) => {
        await page.evaluate(axe.source);
        await prepare(page);
        /** @type {string[]} */
        const found = [];
        await eachView(person, true, async (view) => {
          for (const violation of await violationsOf(page)) found.push(`${view}: ${violation}`);
          const difference = await person.difference();
          if (difference !== '') found.push(`${view}: ${difference}`);
        });
        assert.deepEqual(found, []);
      },
      settings,
    );
  }
});

describe('every control is found by its role and name', () => {
  /** @type {(page: Page, role: Role, name: string, said?: Said[]) => Promise<string | null>} */
  const find = async (page, role, name, said) => {
    const all = said ?? (await engine.said?.(page));
    if (all !== undefined) {
      const ids = all.filter((one) => one.role === role && one.name === name).map(({id}) => id);
      return ids.length === 1 ? ids[0] : `${ids.length} of them`;
    }
    const found = page.locator('zolt20-map-control').getByRole(role, {name, exact: true});
    return (await found.count()) === 1
      ? found.first().getAttribute('id')
      : `${await found.count()} of them`;
  };
  withPerson('on every page and panel', async (person, page) => {
    /** @type {string[]} */
    const found = [];
    const named = new Set();
    await eachView(person, false, async (view, number, panel) => {
      const said = await engine.said?.(page);
      for (const [id, [role, name]] of Object.entries(namesOn(number, panel))) {
        named.add(id);
        const came = await find(page, role, name, said);
        if (came !== id) found.push(`${view}: ${role} "${name}" gives ${came} instead of ${id}`);
      }
    });
    for (const [number, name] of kTabs.entries()) {
      const came = await find(page, 'tab', name);
      if (came !== `page${number}.tab`) found.push(`tab "${name}" gives ${came}`);
    }
    assert.deepEqual(found, []);
    // None is left out, but for the bar, which comes with the fourth row.
    const {controls} = await person.dump();
    const unnamed = Object.keys(controls).filter(
      (name) => takesFocus(name) && !named.has(name) && !/\([1-9]\)$/.test(name),
    );
    assert.deepEqual(
      unnamed.filter((name) => !/^cmd(Function|Condition|SubQuery)/.test(name)),
      ['VscrCase'],
    );
  });
  withPerson('of case rows by their number, and the bar', async (person, page) => {
    await choose(person, 'optCase', true);
    assert.equal(await find(page, 'textbox', 'Case value 3'), 'TxtExpr(2)');
    assert.equal(await find(page, 'textbox', 'Case statements 5'), 'txtStmt(4)');
    assert.equal(await find(page, 'scrollbar', 'Scroll case rows'), 'VscrCase');
  });
  const withLocators = (/** @type {string} */ name, /** @type {Act} */ act) =>
    withPerson(name, act, undefined, ['locator']);
  withLocators('of rows by their texts, with their marks', async (person, page) => {
    await fill(person);
    await person.tab(0);
    const tables = page
      .locator('zolt20-map-control')
      .getByRole('listbox', {name: 'Tables', exact: true});
    assert.equal(await tables.getByRole('option', {selected: true}).count(), 2);
    assert.equal(await tables.getByRole('option').count(), 3);
    assert.equal(await tables.getAttribute('aria-multiselectable'), 'true');
    await person.tab(1);
    const ascending = page
      .locator('zolt20-map-control')
      .getByRole('listbox', {name: 'Order By Asc', exact: true});
    assert.equal(await ascending.getByRole('option', {selected: true}).count(), 1);
  });
  withLocators('of messages, which are dialogs with their title and text', async (person, page) => {
    await person.tab(2);
    await person.click('cmdAddSelectDoQuer');
    const [{message = '', title = ''}] = await person.takeLog();
    assert.ok(message !== '' && title !== '');
    // In the modal one stands that of which screen readers tell, as part of the form.
    const modal = page.getByRole('dialog', {name: title, exact: true});
    const dialog = modal.getByRole('dialog', {name: title, exact: true});
    assert.equal(await dialog.count(), 1);
    assert.equal(await dialog.getByText(message, {exact: true}).count(), 1);
    assert.equal(await dialog.getByRole('button', {name: 'OK', exact: true}).count(), 1);
    await person.keyboard.press('Enter');
  });
});

describe('the Tab key', () => {
  for (const page of pages) {
    withPerson(`goes through page ${page} and out of the element, and back`, async (person) => {
      if (page !== 0) await person.tab(page);
      const first = await walk(person, true);
      assert.ok(first.length > 7, first.join(' '));
      await walk(person, false);
      // The boxes have chained the buttons by now, so both ways are the same.
      const way = await walk(person, true);
      const back = await walk(person, false);
      assert.deepEqual(back.slice(0, -1).reverse(), way.slice(0, -1));
      assert.deepEqual(await person.takeLog(), []);
      assert.equal(await person.difference(), '');
    });
  }
  for (const option of kinds) {
    withPerson(`goes through the panel of ${option}`, async (person) => {
      await choose(person, option, true);
      const way = await walk(person, true);
      for (const [name, [role]] of Object.entries(kPanels[option]))
        if (role === 'textbox') assert.ok(way.includes(name), name);
      await walk(person, false);
    });
  }
  withPerson('goes from a filter to its list', async (person) => {
    await person.tab(0);
    await person.keyboard.press('Control+F');
    assert.equal(await person.at(), 'lsttables.filter');
    await person.keyboard.press('Tab');
    assert.equal(await person.at(), 'lsttables');
    assert.equal((await person.dump()).focus, 'lsttables');
  });
});

describe('without a mouse', () => {
  /** @type {(person: Person, control: string) => Promise<void>} */
  const tabTo = async (person, control) => {
    for (let presses = 0; presses < 60 && (await person.at()) !== control; ++presses)
      await person.keyboard.press('Tab');
    assert.equal(await person.at(), control);
  };
  /** @type {(person: Person, name: string) => Promise<DumpedControl>} */
  const controlOf = async (person, name) => (await person.dump()).controls[name];
  /** @type {(person: Person, ...keys: string[]) => Promise<void>} */
  const press = async (person, ...keys) => {
    for (const key of keys) await person.keyboard.press(key);
  };

  withPerson('pages are turned', async (person, page) => {
    await page.focus('#before');
    await press(person, 'Tab', 'ArrowRight', 'ArrowRight');
    assert.equal((await controlOf(person, 'tabVrn')).Tab, 2);
    // The page that the keys come to takes the focus to its box.
    assert.equal(await person.at(), 'txtSelectDo');
    await press(person, 'Shift+Tab', 'End');
    assert.equal((await controlOf(person, 'tabVrn')).Tab, 6);
    await press(person, 'ArrowRight');
    assert.equal((await controlOf(person, 'tabVrn')).Tab, 0);
    await press(person, 'ArrowLeft', 'Home');
    assert.equal((await controlOf(person, 'tabVrn')).Tab, 0);
    assert.equal(await person.difference(), '');
  });

  withPerson('a statement is composed', async (person, page) => {
    await fill(person);
    await page.evaluate(() => host.element.ClearAll(0));
    await page.focus('#before');
    await tabTo(person, 'lsttables');
    await press(person, 'Home', 'Space', 'End', 'ArrowUp', 'Space');
    assert.deepEqual((await controlOf(person, 'lsttables')).Selected, [true, true, false]);
    await press(person, 'Space');
    assert.deepEqual((await controlOf(person, 'lsttables')).Selected, [true, false, false]);
    // In a single selection the row of the keys is the marked one, and Enter takes the mark back.
    await tabTo(person, 'lstFields');
    await press(person, 'Home', 'ArrowDown');
    const {Selected, List} = await controlOf(person, 'lstFields');
    assert.deepEqual(Selected.indexOf(true), 1);
    await press(person, 'Enter');
    assert.deepEqual((await controlOf(person, 'lstFields')).Selected.indexOf(true), -1);
    await press(person, 'ArrowDown');
    await tabTo(person, 'cmdMoveOne');
    await press(person, 'Space');
    assert.deepEqual((await controlOf(person, 'lstSelectedFields')).List, [List[2]]);
    await tabTo(person, 'cmdAddSelect');
    await press(person, 'Enter');
    assert.ok((await controlOf(person, 'TxtOutput')).Text.includes(List[2]));
    assert.equal(await person.difference(), '');
  });

  withPerson('a condition is composed', async (person, page) => {
    await fill(person);
    await page.focus('#before');
    await press(person, 'Tab', 'ArrowRight');
    await tabTo(person, 'cboWhereFields');
    await press(person, 'ArrowDown');
    assert.equal((await person.place('cboWhereFields.list')).isOnTop, true);
    await press(person, 'Escape');
    assert.equal((await person.place('cboWhereFields.list')).isThere, false);
    assert.equal((await controlOf(person, 'cboWhereFields')).ListIndex, -1);
    await press(person, 'Space', 'End', 'Home', 'ArrowDown', 'Enter');
    const {ListIndex, Text, List} = await controlOf(person, 'cboWhereFields');
    assert.deepEqual([ListIndex, Text], [1, List[1]]);
    await tabTo(person, 'cboOper');
    await press(person, 'Enter', '=', 'Enter');
    assert.equal((await controlOf(person, 'cboOper')).Text, '=');
    assert.equal(await person.difference(), '');
    await page.focus('#before');
    await tabTo(person, 'cboWhereFields1');
    if ((await controlOf(person, 'cboWhereFields1')).Enabled) {
      await press(person, 'ArrowDown', 'ArrowDown', 'Enter');
      assert.equal((await controlOf(person, 'cboWhereFields1')).ListIndex, 0);
      await press(person, 'Control+A', '5');
      assert.equal((await controlOf(person, 'cboWhereFields1')).Text, '5');
    }
    assert.equal(await person.difference(), '');
  });

  withPerson('kinds of conditions are chosen, and their rows scrolled', async (person, page) => {
    await person.tab(kCondition);
    await page.focus('#before');
    await tabTo(person, 'optIfThen');
    await press(person, 'Space');
    assert.equal((await controlOf(person, 'optIfThen')).Value, true);
    assert.equal(await person.at(), 'txtCond');
    await press(person, 'Shift+Tab', 'ArrowDown');
    assert.equal((await controlOf(person, 'optwhile')).Value, true);
    assert.equal(await person.difference(), '');
    await choose(person, 'optCase', true);
    await page.focus('#before');
    await tabTo(person, 'VscrCase');
    const at = async () => (await controlOf(person, 'VscrCase')).Value;
    const {Max} = await controlOf(person, 'VscrCase');
    assert.ok(Max > 0);
    const before = await at();
    await press(person, before === 0 ? 'ArrowDown' : 'ArrowUp');
    assert.equal(await at(), before === 0 ? 1 : before - 1);
    await press(person, 'End');
    assert.equal(await at(), Max);
    await press(person, 'Home');
    assert.equal(await at(), 0);
    await press(person, 'PageDown', 'PageUp');
    assert.equal(await at(), 0);
    assert.equal(await person.difference(), '');
  });
});

describe('what can be pressed', () => {
  /// What is smaller than it may be, of all that can be seen and pressed.
  /** @type {(page: Page) => Promise<string[]>} */
  const smallOnes = (page) =>
    page.evaluate(() => {
      const kLeast = 24;
      const kPressed =
        'button, textarea, input, [role=option], [role=combobox], [role=scrollbar], [data-step]';
      return [...host.element.shadowRoot.querySelectorAll(kPressed)]
        .map((node) => {
          const pressed = node.type === 'radio' ? node.closest('label') : node;
          return /** @type {HTMLElement} */ (pressed);
        })
        .filter((node) => node.checkVisibility())
        .map((node) => ({
          name: node.id || node.className || node.textContent,
          place: node.getBoundingClientRect(),
        }))
        .filter(({place: {width, height}}) => width < kLeast || height < kLeast)
        .map(({name, place: {width, height}}) => `${name} ${width} x ${height}`);
    });
  for (const width of [1280, 640]) {
    withPerson(
      `is large enough, ${width} pixels wide`,
      async (person, page) => {
        /** @type {string[]} */
        const found = [];
        await eachView(person, true, async (view) => {
          for (const small of await smallOnes(page)) found.push(`${view}: ${small}`);
        });
        await person.tab(1);
        await person.press('cboOper');
        found.push(...(await smallOnes(page)));
        assert.deepEqual(found, []);
      },
      {viewport: {width, height: 900}},
    );
  }
});

/// What a person can't bring into sight by turning the wheel, of what can be seen on the page.
/** @type {(person: Person, view: string) => Promise<string[]>} */
async function outOfReach(person, view) {
  const found = [];
  const dump = await person.dump();
  for (const name of Object.keys(dump.controls)) {
    if (!takesFocus(name) || !isShown(dump, name)) continue;
    // Of the two views of a condition one lies before the other; rows of a case are scrolled to.
    if (['txtCondition', 'txtwhereCondition'].includes(name) || /^(TxtExpr|txtStmt)\(/.test(name))
      continue;
    await person.bringIntoWindow(name, '');
    if (!(await person.place(name)).isOnTop) found.push(`${view}: ${name} can't be reached`);
  }
  return found;
}

describe('in a place of 400 by 300 pixels', () => {
  withPerson('everything can be reached', async (person, page) => {
    await page.evaluate(() => {
      Object.assign(host.element.style, {inlineSize: '400px', blockSize: '300px'});
    });
    /** @type {string[]} */
    const found = [];
    await eachView(person, true, async (view) => {
      found.push(...(await outOfReach(person, view)));
    });
    assert.deepEqual(found, []);
  });
});

describe('enlarged to the double', () => {
  withPerson(
    'nothing is scrolled sideways, and everything can be reached',
    async (person, page) => {
      /** @type {string[]} */
      const found = [];
      await eachView(person, true, async (view) => {
        const wide = await page.evaluate(() => {
          const scrolls =
            document.documentElement.scrollWidth > document.documentElement.clientWidth
              ? ['the page scrolls']
              : [];
          const {left, right} = host.element.getBoundingClientRect();
          const kOwn = 'textarea, input, [role=listbox], .colours, .tabs';
          const outside = [...host.element.shadowRoot.querySelectorAll('*')].filter((node) => {
            if (!node.checkVisibility() || node.parentElement?.closest(kOwn)) return false;
            const place = node.getBoundingClientRect();
            return place.width > 0 && (place.left < left - 1 || place.right > right + 1);
          });
          return [
            ...scrolls,
            ...outside.map((node) => `${node.id || node.className} goes beyond the element`),
          ];
        });
        found.push(...wide.map((what) => `${view}: ${what}`));
        found.push(...(await outOfReach(person, view)));
      });
      assert.deepEqual(found, []);
    },
    {viewport: {width: 640, height: 500}},
  );
});

describe('in forced colours', () => {
  /** @type {(person: Person, name: string) => Promise<Buffer>} */
  const picture = async (person, name) => {
    const {left, top, right, bottom} = await person.inSight(name);
    return person.page.screenshot({
      clip: {x: left, y: top, width: right - left, height: bottom - top},
    });
  };
  withPerson(
    'texts and marks are seen',
    async (person, page) => {
      await fill(person);
      /** @type {Record<string, Buffer>} */
      const withTexts = {};
      /** @type {Record<number, string[]>} */
      const kSeen = {
        0: ['TxtOutput', 'lsttables', 'lstSelectedFields', 'cmdAddSelect'],
        2: ['txtSelectDo'],
      };
      const pictures = async () => {
        /** @type {Record<string, Buffer>} */
        const taken = {};
        for (const [number, names] of Object.entries(kSeen)) {
          await person.tab(Number(number));
          for (const name of names)
            if (name !== 'cmdAddSelect') taken[name] = await picture(person, name);
        }
        return taken;
      };
      Object.assign(withTexts, await pictures());
      await person.tab(0);
      await person.click('cmdClear');
      await person.tab(2);
      await person.click('cmdClear');
      await person.type('TxtOutput', '');
      const without = await pictures();
      for (const name of Object.keys(withTexts)) {
        assert.ok(
          !withTexts[name].equals(without[name]),
          `${name} looks the same with a text and without`,
        );
      }
      // No control hides its words by a colour that is none, or that of its ground.
      const hidden = await page.evaluate(() =>
        [
          ...host.element.shadowRoot.querySelectorAll(
            'button, .label, [role=option] .text, .title, textarea, input',
          ),
        ]
          .filter((node) => node.checkVisibility())
          .filter((node) => {
            const {color, backgroundColor, webkitTextFillColor} = getComputedStyle(node);
            return (
              color === backgroundColor ||
              [color, webkitTextFillColor].some((ink) => /^rgba\(.*, 0\)$/.test(ink))
            );
          })
          .map((node) => node.id || node.className),
      );
      assert.deepEqual(hidden, []);
    },
    {forcedColors: 'active'},
  );
});
