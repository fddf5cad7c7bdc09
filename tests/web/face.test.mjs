// Where the face meets its page: what is hidden, moved, scrolled and zoomed around it, focus that
// comes and goes, listeners that write, and texts on their way in.
import assert from 'node:assert/strict';
import {after, before, describe, test} from 'node:test';

import {stopsOf} from './form.mjs';
import {closePage, Stage} from './harness.mjs';

/** @import {BrowserContextOptions, Page} from 'playwright-core' */
/** @import {Person} from './harness.mjs' */

/** @type {(count: number) => string} */
const tablesOf = (count) =>
  Array.from({length: count}, (_, row) => `T${String(row).padStart(7, '0')}0`).join(',');

/** @type {Stage} */
let stage;
before(async () => {
  stage = await Stage.open();
});
after(() => stage?.close());

/**
 * @type {(name: string, act: (person: Person, page: Page) => Promise<void>,
 *   settings?: BrowserContextOptions) => void}
 */
function withPerson(name, act, settings = {}) {
  test(name, {timeout: 60000}, async () => {
    const person = await stage.openElement(settings);
    await act(person, person.page);
    await closePage(person.page);
  });
}
/** @type {(person: Person, count?: number) => Promise<void>} */
const frames = async (person, count = 3) => {
  for (let frame = 0; frame < count; ++frame) await person.nextFrame();
};
/** @type {(person: Person) => Promise<boolean>} */
const isOpen = async (person) => (await person.place('', 'dialog[open]')).isThere;
// A host's write that is answered by a message.
/** @type {(page: Page) => Promise<void>} */
const provoke = (page) =>
  page.evaluate(() => {
    host.element.PrpStrTables = 'TABLE__10';
    host.element.PrpStrFields = 'x';
    host.element.prpSelectFromPart = 'TABLE__1';
  });

describe('a message', () => {
  withPerson('waits until the element can be seen', async (person, page) => {
    await page.evaluate(() => {
      host.element.hidden = true;
      globalThis.presses = 0;
      document.getElementById('before').addEventListener('click', () => ++globalThis.presses);
    });
    await frames(person);
    await provoke(page);
    await page.mouse.click(
      ...(await page.evaluate(() => {
        const {x, y} = document.getElementById('before').getBoundingClientRect();
        return /** @type {[number, number]} */ ([x + 5, y + 5]);
      })),
    );
    assert.equal(await page.evaluate(() => globalThis.presses), 1);
    await page.evaluate(() => {
      host.element.hidden = false;
    });
    await person.waitFor('the message shows', () => isOpen(person));
    // Hidden again, it lets the page go.
    await page.evaluate(() => {
      host.element.style.display = 'none';
    });
    await person.waitFor('the message is away', async () => !(await isOpen(person)));
    await page.evaluate(() => {
      host.element.style.display = '';
    });
    await person.waitFor('the message shows', () => isOpen(person));
    await person.press('', 'dialog[open] button');
    assert.equal(await isOpen(person), false);
  });

  withPerson('of a host that has the focus elsewhere gives it back there', async (person, page) => {
    await page.focus('#behind');
    await provoke(page);
    await person.waitFor('the message shows', () => isOpen(person));
    await person.keyboard.press('Enter');
    assert.equal(await isOpen(person), false);
    assert.equal(await person.at(), '#behind');
  });
});

describe('the list of a combo box', () => {
  /** @type {(person: Person) => Promise<void>} */
  const open = async (person) => {
    await person.tab(1);
    await person.press('cboOper');
    await person.waitFor(
      'the list opens',
      async () => (await person.place('cboOper.list')).isOnTop,
    );
  };
  /** @type {(person: Person) => Promise<boolean>} */
  const isThere = async (person) => (await person.place('cboOper.list')).isThere;

  withPerson(
    'goes when its box moves, and stays when something else scrolls',
    async (person, page) => {
      await page.evaluate(() => {
        const pane = document.body.appendChild(document.createElement('div'));
        pane.id = 'pane';
        pane.style.cssText =
          'position: fixed; inset: auto 0 0 auto; inline-size: 50px; block-size: 40px; overflow: auto';
        pane.append('a '.repeat(300));
      });
      await open(person);
      await page.evaluate(() => {
        document.getElementById('pane').scrollTop = 60;
      });
      await frames(person);
      assert.equal(await isThere(person), true);
      await page.evaluate(() => {
        host.element.style.marginBlockStart = '30px';
      });
      await person.waitFor('the list goes', async () => !(await isThere(person)));
    },
  );

  withPerson(
    'goes when the form itself scrolls',
    async (person) => {
      await open(person);
      const {x, y} = await person.place('Label20');
      await person.mouse.move(x, y);
      await person.mouse.wheel(0, 60);
      await person.waitFor('the list goes', async () => !(await isThere(person)));
    },
    {viewport: {width: 420, height: 700}},
  );

  withPerson('goes at a press beside it', async (person) => {
    await open(person);
    await person.press('Label20');
    assert.equal(await isThere(person), false);
    assert.equal(await person.at(), 'cboOper');
  });

  withPerson('stands at its box in a page that is enlarged by its style', async (person, page) => {
    await page.evaluate(() => {
      document.body.style.zoom = '1.25';
    });
    await open(person);
    const [box, list] = [await person.place('cboOper'), await person.place('cboOper.list')];
    assert.ok(
      Math.abs(box.left - list.left) < 3 && Math.abs(box.bottom - list.top) < 3,
      JSON.stringify([box, list]),
    );
    assert.ok(Math.abs(box.right - list.right) < 3);
  });

  withPerson('leaves nothing behind for screen readers', async (person, page) => {
    await open(person);
    for (const key of ['ArrowDown', 'Enter']) await person.keyboard.press(key);
    await frames(person);
    assert.equal(
      await page.evaluate(() => host.on('cboOper').getAttribute('aria-activedescendant')),
      null,
    );
  });
});

describe('rows', () => {
  withPerson(
    'that are marked while their list is hidden are in sight later',
    async (person, page) => {
      await person.tab(3);
      await page.evaluate((tables) => {
        host.element.PrpStrTables = tables;
        host.element.PrpStrFields = 'char*Q*V*R*N*NT0000150.A*Q*V*R*N*x';
        host.element.prpSelectFromPart = 'T0000150';
      }, tablesOf(300));
      await person.tab(0);
      await frames(person);
      assert.equal((await person.place('lsttables', '[data-row="150"]')).isOnTop, true);
    },
  );

  withPerson('grow with their letters', async (person, page) => {
    await page.evaluate((tables) => {
      host.element.PrpStrTables = tables;
      host.element.style.setProperty('--zolt20-font-size', '1.75rem');
      host.element.style.blockSize = '1200px';
    }, tablesOf(20));
    await frames(person);
    const rows = await page.evaluate(() =>
      [...host.on('lsttables').querySelectorAll('[data-row]')].map((row) => [
        row.offsetHeight,
        /** @type {HTMLElement} */ (row.firstChild).offsetHeight,
      ]),
    );
    assert.ok(
      rows.length > 0 && rows.every(([row, letters]) => row >= letters),
      JSON.stringify(rows),
    );
  });

  withPerson('read from left to right in a page from right to left', async (person, page) => {
    await page.evaluate(() => {
      document.documentElement.dir = 'rtl';
      host.element.PrpStrTables = 'TABLE__10';
      host.element.PrpStrFields = 'char*Q*V*R*N*NTABLE__1.A*Q*V*R*N*x';
      host.element.prpSelectFromPart = 'TABLE__1';
    });
    await frames(person);
    const [text, first, last] = await page.evaluate(() => {
      const {firstChild} = host.on('lstFields').querySelector('[data-row="0"] .text');
      const node = /** @type {Text} */ (firstChild);
      /** @type {(at: number) => number} */
      const leftOf = (at) => {
        const range = document.createRange();
        range.setStart(node, at);
        range.setEnd(node, at + 1);
        return range.getBoundingClientRect().left;
      };
      return [node.data, leftOf(0), leftOf(node.data.length - 1)];
    });
    assert.equal(text, 'TABLE__1.*');
    assert.ok(first < last, `${first} and ${last}`);
  });

  withPerson('of an on-case stand in their order, undone and done again', async (person, page) => {
    await person.tab(6);
    await person.click('optCase');
    for (let row = 0; row < 4; ++row) await person.click('cmdNext');
    const order = () =>
      page.evaluate(() =>
        [...host.on('fracase').querySelectorAll('input, textarea')].map(({id}) => id).join(' '),
      );
    const expected = [0, 1, 2, 3, 4].map((row) => `TxtExpr(${row}) txtStmt(${row})`).join(' ');
    assert.equal(await order(), expected);
    for (let step = 0; step < 4; ++step) await page.evaluate(() => host.element.undo());
    for (let step = 0; step < 4; ++step) await page.evaluate(() => host.element.redo());
    assert.equal(await order(), expected);
    await person.takeLog();
  });
});

describe('the focus', () => {
  withPerson('shows what a listener of it writes', async (person, page) => {
    await page.evaluate(() => {
      host.element.prpTab = 2;
      host.element.addEventListener(
        'focusin',
        () => {
          host.element.Syntax_Highlight = true;
          host.element.prpSelectDoPart = 'written';
        },
        {once: true},
      );
      host.element.focus();
    });
    assert.equal(await person.difference(), '');
    assert.equal(await page.evaluate(() => host.on('txtSelectDo').value), 'written');
  });

  withPerson('does not stay at the edge where the page keeps the Tab key', async (person, page) => {
    await page.evaluate(() => {
      document.addEventListener('keydown', (event) => {
        if (event.key === 'Tab') event.preventDefault();
      });
    });
    // The Result chains the buttons behind itself as it takes the focus.
    await person.focus('TxtOutput');
    const last = stopsOf(await person.dump()).slice(-1)[0];
    await person.focus(last);
    await person.keyboard.press('Tab');
    await frames(person);
    assert.equal(await person.at(), last);
    await person.keyboard.press('Shift+Tab');
    assert.notEqual(await person.at(), last);
  });

  withPerson(
    'that another box takes ends a composition, which is not lost',
    async (person, page) => {
      await person.tab(6);
      await person.click('optIfThen');
      await person.focus('txtCond');
      const session = await page.context().newCDPSession(page);
      await session.send('Input.imeSetComposition', {
        text: 'ni',
        selectionStart: 2,
        selectionEnd: 2,
      });
      await person.focus('txtStmt1');
      await frames(person);
      const {txtCond} = (await person.dump()).controls;
      assert.equal(await page.evaluate(() => host.on('txtCond').value), txtCond.Text);
      assert.equal(txtCond.Text, 'ni');
    },
  );
});

describe('undo', () => {
  /** @type {(person: Person, box: string) => Promise<string>} */
  const textOf = async (person, box) => (await person.dump()).controls[box].Text;

  withPerson('takes the last step back, whichever box has the focus', async (person) => {
    await person.tab(2);
    await person.focus('TxtOutput');
    await person.keyboard.type('abc');
    await person.focus('txtSelectDo');
    await person.keyboard.type('de');
    await person.focus('TxtOutput');
    await person.keyboard.press('Control+Z');
    assert.deepEqual(
      [await textOf(person, 'TxtOutput'), await textOf(person, 'txtSelectDo')],
      ['abc', ''],
    );
    await person.keyboard.press('Control+Z');
    assert.deepEqual(
      [await textOf(person, 'TxtOutput'), await textOf(person, 'txtSelectDo')],
      ['', ''],
    );
    await person.keyboard.press('Control+Y');
    await person.keyboard.press('Control+Y');
    assert.deepEqual(
      [await textOf(person, 'TxtOutput'), await textOf(person, 'txtSelectDo')],
      ['abc', 'de'],
    );
    await person.takeLog();
  });

  withPerson('works in an element that was moved in its page', async (person, page) => {
    await person.focus('TxtOutput');
    await person.keyboard.type('abc');
    await page.evaluate(() => document.querySelector('main').prepend(host.element));
    await person.focus('TxtOutput');
    await person.keyboard.press('Control+Z');
    assert.equal(await textOf(person, 'TxtOutput'), '');
    await person.takeLog();
  });
});

describe('texts', () => {
  withPerson('with a line separator of their own are pasted as they are', async (person, page) => {
    await person.tab(6);
    await person.click('optIfThen');
    await person.focus('txtCond');
    await person.keyboard.insertText('a\u2028b');
    assert.equal((await person.dump()).controls.txtCond.Text, 'a\u2028b');
    await page.evaluate(() => {
      const data = new DataTransfer();
      data.setData('text/plain', 'c\r\nd\ne');
      host
        .on('txtCond')
        .dispatchEvent(
          new ClipboardEvent('paste', {clipboardData: data, bubbles: true, cancelable: true}),
        );
    });
    assert.equal((await person.dump()).controls.txtCond.Text, 'a\u2028bc\r\nd\r\ne');
  });
});
