// The box of statements by itself, at a person's hands: what it keeps, tells and colours, where its
// lines go on, what Undo takes back, and what it is to a form.
import assert from 'node:assert/strict';
import {readFileSync} from 'node:fs';
import path from 'node:path';
import {after, before, describe, test} from 'node:test';

import {closePage, Stage} from './harness.mjs';
import {kPackage, kRoot} from './places.mjs';

/** @import {Page} from 'playwright-core' */

/** @type {Stage} */
let stage;
before(async () => {
  stage = await Stage.open({
    '/examples/': path.join(kRoot, 'examples/web'),
    '/examples/package/': kPackage,
  });
});
after(() => stage?.close());

/// A test in a page with a box in a form, below a line, which may complain of nothing.
/** @type {(name: string, act: (page: Page) => Promise<void>) => void} */
function withBox(name, act) {
  test(name, {timeout: 60000}, async () => {
    const page = await stage.openPage('empty.html');
    await page.evaluate(async () => {
      await import(String('/package/zolt21-synt-text-box.js'));
      document.body.innerHTML =
        '<form><label>Rule <zolt21-synt-text-box name="rule"></zolt21-synt-text-box></label></form>';
      const line = document.createElement('input');
      document.body.prepend(line);
      line.focus();
      const box = document.querySelector('zolt21-synt-text-box');
      globalThis.noticed = [];
      box.addEventListener('TabChain', () => noticed.push('TabChain'));
      box.addEventListener('propertychanged', ({detail}) => noticed.push(detail.name));
      for (const kind of ['input', 'change']) box.addEventListener(kind, () => noticed.push(kind));
      globalThis.box = box;
      globalThis.area = /** @type {HTMLTextAreaElement} */ (
        box.shadowRoot?.querySelector('textarea')
      );
    });
    await act(page);
    await closePage(page);
  });
}
/** @type {(page: Page, members: object) => Promise<void>} */
const write = (page, members) => page.evaluate((given) => void Object.assign(box, given), members);
/** @type {(page: Page) => Promise<string>} */
const textOf = (page) => page.evaluate(() => box.Text);
/** @type {(page: Page) => Promise<string[]>} */
const takeTold = (page) => page.evaluate(() => noticed.splice(0));
/** @type {(page: Page, keys: string[]) => Promise<void>} */
const press = async (page, keys) => {
  for (const key of keys) await page.keyboard.press(key);
};
/// The words in sight that have colours, and the rows that the text takes.
/** @type {(page: Page) => Promise<string[]>} */
const colors = (page) =>
  page.evaluate(async () => {
    await new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done)));
    const words = [...(box.shadowRoot?.querySelectorAll('.word') ?? [])];
    return words.filter((word) => word.checkVisibility()).map((word) => word.textContent);
  });
/** @type {(page: Page) => Promise<number>} */
const rows = (page) =>
  page.evaluate(async () => {
    await new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done)));
    const {paddingTop, paddingBottom, lineHeight} = getComputedStyle(area);
    const height = area.style.height;
    area.style.height = '1px';
    const inner = area.scrollHeight - parseFloat(paddingTop) - parseFloat(paddingBottom);
    area.style.height = height;
    return Math.round(inner / parseFloat(lineHeight));
  });

describe('the members', () => {
  withBox('give a text back exactly, and tell of another one once', async (page) => {
    const text = 'select a\r\n\tfrom b\rx\ny\ud800';
    await write(page, {Text: text});
    await write(page, {Text: text, Highlight: true});
    assert.equal(await textOf(page), text);
    assert.deepEqual(await takeTold(page), ['Text', 'Highlight']);
    await write(page, {Text: null, Highlight: undefined, rightmargin: null});
    assert.deepEqual(await takeTold(page), []);
  });

  withBox('refuse what is of another type', async (page) => {
    const kinds = await page.evaluate(() =>
      [
        {Text: 1},
        {Highlight: 'yes'},
        {rightmargin: 1.5},
        {rightmargin: '5'},
        {rightmargin: -1},
      ].map((wrong) => {
        try {
          Object.assign(box, wrong);
        } catch (error) {
          return error instanceof Error ? error.name : 'other';
        }
        return 'none';
      }),
    );
    assert.deepEqual(kinds, ['TypeError', 'TypeError', 'TypeError', 'TypeError', 'RangeError']);
    assert.deepEqual(await takeTold(page), []);
  });

  withBox('are written by attributes, and before the element is there', async (page) => {
    const told = await page.evaluate(() => {
      document.body.insertAdjacentHTML(
        'beforeend',
        '<zolt21-synt-text-box text="a&#13;&#10;b" highlight rightmargin="1440"></zolt21-synt-text-box>',
      );
      const other = /** @type {typeof box} */ (document.body.lastElementChild);
      const read = [other.Text, other.Highlight, other.rightmargin];
      other.removeAttribute('highlight');
      return [...read, other.Highlight];
    });
    assert.deepEqual(told, ['a\r\nb', true, 1440, false]);
  });
});

describe('a person', () => {
  withBox('who comes to it is told, each time', async (page) => {
    await press(page, ['Tab', 'Shift+Tab', 'Tab']);
    assert.deepEqual(await takeTold(page), ['TabChain', 'TabChain']);
    await page.evaluate(() => document.querySelector('input').focus());
    await page.locator('zolt21-synt-text-box').click();
    assert.deepEqual(await takeTold(page), ['TabChain']);
  });

  withBox('types lines that end in CR LF, and leaves others as they are', async (page) => {
    await write(page, {Text: 'a\nb'});
    await press(page, ['Tab', 'Control+End', 'Enter', 'c', 'Control+i', 'd']);
    assert.equal(await textOf(page), 'a\nb\r\nc\td');
    const all = await takeTold(page);
    assert.deepEqual([...new Set(all)], ['Text', 'TabChain', 'input']);
    await press(page, ['Shift+Tab']);
    assert.deepEqual(await takeTold(page), ['change']);
  });

  withBox('takes back what was typed, and does it again', async (page) => {
    await write(page, {Text: 'select', Highlight: true});
    await press(page, ['Tab', 'Control+End', ' ', 'x']);
    assert.equal(await textOf(page), 'select x');
    await press(page, ['Control+Z']);
    assert.equal(await textOf(page), 'select');
    await press(page, ['Control+Y']);
    assert.equal(await textOf(page), 'select x');
  });

  withBox('copies the text as it is, line ends among it', async (page) => {
    await write(page, {Text: 'a\r\nb\rc'});
    await press(page, ['Tab', 'Control+A', 'Control+C']);
    assert.equal(await page.evaluate(() => navigator.clipboard.readText()), 'a\r\nb\rc');
    await press(page, ['Control+X']);
    assert.equal(await textOf(page), '');
  });

  withBox('can do nothing with one that is disabled', async (page) => {
    await write(page, {Text: 'a', disabled: true});
    await press(page, ['Tab', 'x']);
    assert.equal(await textOf(page), 'a');
    assert.equal(await page.evaluate(() => area.disabled), true);
  });
});

describe('the colours', () => {
  withBox('are those of the words, while Highlight is on', async (page) => {
    await write(page, {Text: 'select x\nx'});
    assert.deepEqual(await colors(page), []);
    await write(page, {Highlight: true});
    assert.deepEqual(await colors(page), ['select']);
    await press(page, ['Tab', 'Control+End', 'Enter', 'i', 'f', ' ']);
    assert.deepEqual(await colors(page), ['select', 'if']);
    await write(page, {Highlight: false});
    assert.deepEqual(await colors(page), []);
  });

  // Each word has its colour where the box has its letters.
  withBox('stand under their words where lines go on below', async (page) => {
    const line = `if ( :var.a = "${'text '.repeat(8)}" ) then select ${'condition '.repeat(30)}`;
    await write(page, {Text: `${line}\r\n${line}\nendif`, Highlight: true, rightmargin: 4000});
    const found = await colors(page);
    assert.ok(found.length > 6, found.join());
    const heights = await page.evaluate(() => {
      /** @type {NodeListOf<HTMLElement> | undefined} */
      const all = box.shadowRoot?.querySelectorAll('.line');
      const lines = [...(all ?? [])].filter((each) => !each.hidden);
      const {paddingTop, paddingBottom} = getComputedStyle(area);
      const height = area.style.height;
      area.style.height = '1px';
      const inner = area.scrollHeight - parseFloat(paddingTop) - parseFloat(paddingBottom);
      area.style.height = height;
      return [inner, lines.reduce((sum, each) => sum + each.offsetHeight, 0)];
    });
    assert.ok(heights[0] > 100);
    assert.ok(Math.abs(heights[0] - heights[1]) < 3, heights.join());
  });

  withBox('come to what is scrolled into sight', async (page) => {
    const text = `${'plain '.repeat(60)}\n`.repeat(60);
    await write(page, {Text: `${text}endif`, Highlight: true});
    assert.deepEqual(await colors(page), []);
    await press(page, ['Tab', 'Control+End']);
    assert.deepEqual(await colors(page), ['endif']);
  });
});

describe('the lines that are drawn', () => {
  /** @type {(page: Page) => Promise<string[]>} */
  const drawn = (page) =>
    page.evaluate(() => {
      /** @type {NodeListOf<HTMLElement> | undefined} */
      const all = box.shadowRoot?.querySelectorAll('.line');
      return [...(all ?? [])].filter((each) => !each.hidden).map((each) => each.textContent);
    });
  const lines = Array.from({length: 100}, (_, line) => `if ${line}`);

  withBox('are those of the text after each edit', async (page) => {
    await write(page, {Text: lines.join('\n'), Highlight: true});
    await press(page, ['Tab', 'Control+Home', 'ArrowDown', 'x', 'Enter', 'y']);
    assert.deepEqual(await drawn(page), ['if 0', 'x', 'yif 1', ...lines.slice(2)]);
    await press(page, ['Control+Shift+End', 'Backspace', 'e', 'n', 'd', 'i', 'f']);
    assert.deepEqual(await drawn(page), ['if 0', 'x', 'yendif']);
    await press(page, ['Home', 'Delete']);
    assert.deepEqual(await colors(page), ['if', '0', 'endif']);
    await write(page, {Text: lines.join('\n')});
    assert.deepEqual(await drawn(page), lines);
  });
  withBox('are all of them again once lines go on below again', async (page) => {
    await write(page, {Text: lines.join('\n'), Highlight: true, rightmargin: 100000});
    await write(page, {rightmargin: 0});
    await write(page, {rightmargin: 100000});
    const inSight = await drawn(page);
    assert.ok(inSight.length < lines.length);
    assert.deepEqual(inSight, lines.slice(0, inSight.length));
    await press(page, ['Tab', 'Control+End']);
    await write(page, {rightmargin: 0});
    assert.deepEqual(await drawn(page), lines);
  });
});

describe('the right margin', () => {
  withBox('is where lines go on below', async (page) => {
    await write(page, {Text: 'condition '.repeat(60)});
    const atTheEdge = await rows(page);
    assert.ok(atTheEdge > 1);
    await write(page, {rightmargin: 100000});
    assert.equal(await rows(page), 1);
    await write(page, {rightmargin: 1440});
    assert.ok((await rows(page)) > atTheEdge);
    await write(page, {rightmargin: 0});
    assert.equal(await rows(page), atTheEdge);
    assert.deepEqual(await takeTold(page), ['Text', 'rightmargin', 'rightmargin', 'rightmargin']);
  });
});

describe('in a form', () => {
  withBox('it is sent with its name, and goes back to its attribute', async (page) => {
    await press(page, ['Tab', 'a', 'Enter', 'b']);
    const sent = await page.evaluate(() => {
      const form = /** @type {HTMLFormElement} */ (box.form);
      const before = new FormData(form).get('rule');
      box.setAttribute('text', 'x');
      box.Text = 'y';
      form.reset();
      return [before, box.Text, box.labels.length, area.getAttribute('aria-label')];
    });
    assert.deepEqual(sent, ['a\r\nb', 'x', 1, 'Rule']);
  });
});

describe('the script', () => {
  test('is small, and gives its class where there is no page', async () => {
    const file = path.join(kPackage, 'zolt21-synt-text-box.js');
    assert.ok(readFileSync(file).length < 90000);
    const given = await import(file);
    assert.deepEqual(Object.keys(given), ['ZOLT21SyntTextBoxElement']);
  });

  test('works beside that of the map control, and twice', async () => {
    const page = await stage.openPage('element.html');
    const isSame = await page.evaluate(async () => {
      const first = await import(String('/package/zolt21-synt-text-box.js'));
      const second = await import(String('/package/zolt21-synt-text-box.js?again'));
      const {version} = first.ZOLT21SyntTextBoxElement;
      const {ZOLT20MapControlElement: map} = await import(String('/package/zolt20-map-control.js'));
      return (
        first.ZOLT21SyntTextBoxElement === second.ZOLT21SyntTextBoxElement &&
        version === map.version
      );
    });
    assert.equal(isSame, true);
    await closePage(page);
  });
});

describe('the example page', () => {
  test('colours a rule in two boxes', async () => {
    const page = await stage.openPage('examples/text_box.html');
    await page.waitForFunction(() => customElements.get('zolt21-synt-text-box') !== undefined);
    const words = await page.evaluate(async () => {
      await new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done)));
      return [...document.querySelectorAll('zolt21-synt-text-box')].map(
        (each) => each.shadowRoot?.querySelectorAll('.word').length ?? 0,
      );
    });
    assert.equal(words.length, 2);
    assert.ok(
      words.every((count) => count > 5),
      words.join(),
    );
    await closePage(page);
  });
});
