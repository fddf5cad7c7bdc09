// Boxes and lists at a person's hands, as far as the list of what any face does leaves it to the
// element.
import assert from 'node:assert/strict';
import {after, before, describe, test} from 'node:test';

import {Stage} from './harness.mjs';

/** @import {Person} from './harness.mjs' */

const kMost = 60000;
const kTables = 'ORDERITM0,ORDERLIN1,DISTRICT0';
const kFields = ['ORDERITM.NO', 'ORDERLIN.NO', 'DISTRICT.Archive_Sales_Transaction_Totals_2025']
  .map((name) => `long*Q*V*R*N*Y${name}*Q*V*R*N*number`)
  .join(',');

/** @type {Stage} */
let stage;
/** @type {Person} */
let person;
before(async () => {
  stage = await Stage.open();
  person = await stage.openElement();
});
after(() => stage?.close());

/// A test at a new element with a catalogue.
/** @type {(name: string, act: () => Promise<void>) => void} */
function withCatalogue(name, act) {
  test(name, {timeout: kMost}, async () => {
    await person.makeNew('{"new":{}}');
    await person.page.evaluate(
      ([tables, fields]) =>
        Object.assign(host.element, {PrpStrTables: tables, PrpStrFields: fields}),
      [kTables, kFields],
    );
    await act();
    assert.deepEqual(person.page.complaints.splice(0), []);
  });
}
const controls = async () => (await person.dump()).controls;
/// Text and marked characters of the box that has the keyboard.
const look = () =>
  person.page.evaluate(() => {
    const input = /** @type {HTMLInputElement} */ (host.element.shadowRoot?.activeElement);
    return [input.value, input.selectionStart, input.selectionEnd];
  });
/** @type {(keys: string[]) => Promise<void>} */
const press = async (keys) => {
  for (const key of keys) await person.keyboard.press(key);
};

describe('the row limit', () => {
  withCatalogue('takes what is composed as keys, one by one', async () => {
    await person.tab(1);
    await person.typeKeys('txtAsSet', '12');
    await press(['Home', 'Shift+ArrowRight']);
    const session = await person.page.context().newCDPSession(person.page);
    await session.send('Input.imeSetComposition', {text: '3x', selectionStart: 2, selectionEnd: 2});
    assert.equal((await controls()).txtAsSet.Text, '12');
    await session.send('Input.insertText', {text: '3x4'});
    await session.detach();
    await person.waitFor(
      'the keys are taken',
      async () => (await controls()).txtAsSet.Text === '342',
    );
    assert.deepEqual(await look(), ['342', 2, 2]);
  });
});

describe('a plain edit', () => {
  for (const box of ['txtSelectDo', 'txtwhereCondition']) {
    withCatalogue(`of letters is one step of Undo in ${box}`, async () => {
      await person.page.evaluate(() => {
        host.element.Syntax_Highlight = true;
      });
      await person.tab(box === 'txtSelectDo' ? 2 : 1);
      await person.focus(box);
      await press(['x', '7', ' ', 'i', 'f', 'Control+Z']);
      assert.equal((await controls())[box].Text, '');
    });
  }

  withCatalogue('that goes back to where it began is taken back too', async () => {
    await person.tab(6);
    await person.click('optIfThen');
    await person.focus('txtCond');
    await press(['a', 'Control+A', 'Control+X', 'b', 'Control+Z']);
    assert.equal((await controls()).txtCond.Text, '');
    await press(['Control+Z']);
    assert.equal((await controls()).txtCond.Text, 'a');
    await press(['Control+Z']);
    assert.equal((await controls()).txtCond.Text, '');
    assert.equal((await controls()).optIfThen.Value, true);
    await press(['Control+Z']);
    assert.equal((await controls()).optIfThen.Value, false);
  });

  withCatalogue('leaves the blank beside a word that is cut', async () => {
    await person.tab(6);
    await person.click('optIfThen');
    await person.typeKeys('txtCond', ' abc');
    const {left, top, bottom} = await person.place('txtCond');
    await person.mouse.dblclick(left + 24, (top + bottom) / 2);
    await press(['Control+X', 'x']);
    assert.equal((await controls()).txtCond.Text, ' x');
    await press(['Control+Z']);
    assert.equal((await controls()).txtCond.Text, ' ');
  });

  withCatalogue('that pastes lines into one brings the caret into sight', async () => {
    await person.tab(6);
    await person.click('optIfThen');
    await person.focus('txtCond');
    await person.page.evaluate(() => navigator.clipboard.writeText(`${'word '.repeat(200)}\nx`));
    await press(['Control+V']);
    const scrolled = await person.page.evaluate(() => {
      const {scrollLeft, scrollWidth, clientWidth} = host.on('txtCond');
      return scrollWidth - clientWidth - scrollLeft;
    });
    assert.ok(scrolled < 40, `the end is ${scrolled} beyond the box`);
  });

  withCatalogue('of a key that is dropped keeps the Undo of a paste', async () => {
    await person.tab(1);
    await person.type('txtAsSet', '12');
    await press(['x', 'Control+Z']);
    assert.deepEqual(await look(), ['', 0, 0]);
    await press(['Control+Y']);
    assert.equal((await controls()).txtAsSet.Text, '12');
  });
});

describe('the colour behind a text', () => {
  /// Those of the box with a text that is meant to be highlighted, and of one that takes nothing.
  const colorsIn = async (/** @type {'light' | 'dark'} */ colorScheme) => {
    await person.page.emulateMedia({colorScheme});
    return person.page.evaluate(() => {
      const ruler = document.createElement('span');
      document.body.append(ruler);
      const numbersOf = (/** @type {string} */ color) => {
        ruler.style.color = color;
        return getComputedStyle(ruler).color;
      };
      const behind = (/** @type {string} */ box, /** @type {string} */ around) =>
        getComputedStyle(host.on(box).closest(around) ?? host.on(box)).backgroundColor;
      const own = getComputedStyle(host.element);
      const found = {
        meant: behind('txtCondition', '.lines'),
        inactive: behind('cboWhereFields1', 'input'),
        highlighted: numbersOf('HighlightText'),
        field: numbersOf(own.getPropertyValue('--_field')),
        takesNothing: numbersOf(own.getPropertyValue('--_field-inactive')),
      };
      ruler.remove();
      return found;
    });
  };
  withCatalogue('is the system colour where it can be read, in light and dark', async () => {
    await person.clickRow('lsttables', 0);
    await person.tab(1);
    await person.pick('cboWhereFields', 0);
    await person.pick('cboOper', 7);
    assert.notEqual((await controls()).txtCondition.Text, '');
    const light = await colorsIn('light');
    assert.equal(light.meant, light.highlighted);
    assert.equal(light.inactive, light.takesNothing);
    const dark = await colorsIn('dark');
    assert.equal(dark.meant, dark.field);
    assert.equal(dark.inactive, dark.takesNothing);
    assert.notEqual(dark.field, dark.highlighted);
  });
  withCatalogue('follows the colours that the page gives', async () => {
    await person.page.emulateMedia({colorScheme: 'dark'});
    await person.page.evaluate(() => {
      host.element.style.setProperty('--zolt20-text', 'black');
      host.element.style.setProperty('--zolt20-field', '#eeffee');
    });
    await person.tab(1);
    await person.page.evaluate(() => {
      const {parentElement} = host.element;
      parentElement?.insertBefore(host.element, host.element.nextSibling);
    });
    const {meant, highlighted} = await colorsIn('dark');
    assert.equal(meant, highlighted);
    await person.page.emulateMedia({colorScheme: 'light'});
  });
});

describe('a list', () => {
  withCatalogue('cuts long names in the middle', async () => {
    await person.clickRow('lsttables', 2);
    const shown = await person.page.evaluate(() => {
      const rows = [...(host.element.shadowRoot?.querySelectorAll('#lstFields .row') ?? [])];
      const row = rows.find((each) => each.textContent?.includes('Totals_2025'));
      const part = (/** @type {string} */ name) => row?.querySelector(name);
      const list = host.element.shadowRoot?.getElementById('lstFields');
      list?.style.setProperty('inline-size', '9rem');
      const head = part('.beginning');
      const tail = part('.ending')?.getBoundingClientRect();
      return {
        isCut: head !== null && head !== undefined && head.scrollWidth > head.clientWidth,
        tail: part('.ending')?.textContent,
        isTailInside: (tail?.right ?? 0) <= (list?.getBoundingClientRect().right ?? 0),
        name: row?.getAttribute('aria-label'),
      };
    });
    assert.deepEqual(shown, {
      isCut: true,
      tail: 'tals_2025',
      isTailInside: true,
      name: 'DISTRICT.Archive_Sales_Transaction_Totals_2025',
    });
    await person.page.evaluate(() =>
      host.element.shadowRoot?.getElementById('lstFields')?.style.removeProperty('inline-size'),
    );
  });
});
