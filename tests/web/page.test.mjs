// The page of examples/web, used by mouse and keys: it opens catalogues, answers the requests of
// the control by dialogs, and hands the statement out. No page may break the policy that it is
// served under, or complain of anything.
import assert from 'node:assert/strict';
import {mkdtemp, readFile, rm, writeFile} from 'node:fs/promises';
import {tmpdir} from 'node:os';
import path from 'node:path';
import {after, before, describe, test} from 'node:test';

import {closePage, Person, Stage} from './harness.mjs';
import {kRoot, kTests, require} from './places.mjs';

/** @import {BrowserContextOptions, Locator} from 'playwright-core' */
/** @typedef {{name: string, mimeType: string, buffer: Buffer}} FilePayload */

// Rows of the lists: tables as in the sample, fields behind the whole table.
const kCustomer = 2;
const kOrders = 5;
const kOrderLine = 6;
const kItem = 7;
const kFirstField = 1;

const kSelectDoPage = 2;
const kConditionPage = 6;

// The pages with a block: the number of their buttons, and what stands on them.
const kBlocks = [
  {number: 0, name: 'SelectDo', keyword: 'selectdo', box: 'txtSelectDo', add: 'cmdAddSelectDoQuer'},
  {
    number: 1,
    name: 'SelectEOS',
    keyword: 'selecteos',
    box: 'txtSelectEOS',
    add: 'cmdAddSEOStoquery',
  },
  {
    number: 2,
    name: 'SelectEmpty',
    keyword: 'selectempty',
    box: 'txtselectempty',
    add: 'cmdSelectmpty',
  },
  {
    number: 3,
    name: 'SelectError',
    keyword: 'selecterror',
    box: 'txtSelectError',
    add: 'cmdAddtoSERROR',
  },
];

const kRule = [
  'select CUSTOMER.C_ID',
  'from  CUSTOMER',
  'selectdo',
  '\tif :var.n > 1 then ',
  '\t\tselect ORDERS__.O_ID',
  '\t\tfrom  ORDERS__',
  '\t\tendselect',
  '\tendif',
  'endselect',
];
const kLoops = [
  'for :var.i = 1 to 3',
  '\ta = 1',
  '\tb = 2',
  '\twhile :var.w < 9',
  '\t\tc = "x"',
  '\t\trepeat ',
  '\t\t\td = 4',
  '\t\tUntil  ( :var.r = 1 )',
  '\tendwhile',
  'endfor',
];
/** @type {(lines: string[]) => string[]} */
const indented = (lines) => lines.map((line) => `\t${line}`);
/** @type {(lines: string[]) => string} */
const text = (lines) => lines.join('\r\n');

const kSmall = `{
  "name": "Small",
  "tables": [
    {"code": "CUSTOMER", "name": "CUSTOMER", "indexes": 2, "fields": [
      {"name": "C_ID", "type": "long", "flagged": false, "text": "numeric(5)"},
      {"name": "C_SINCE", "type": "date", "flagged": true, "text": ""}
    ]},
    {"code": "ORDRLINE", "name": "ORDER_LINE", "indexes": 0, "fields": [
      {"name": "OL_AMOUNT", "type": "decimal", "flagged": true, "text": "numeric(6.2) \\ud800 \u00e9\u20ac"}
    ]}
  ],
  "functions": [
    {"name": "today", "arguments": []},
    {"name": "substr", "arguments": ["text", "start", "length"]}
  ]
}`;
const kSmallAndOneFunction = kSmall.replace(/,\s*\{"name": "substr".*\}/, '');

/** @type {(name: string, content: string | Buffer) => FilePayload} */
const jsonFile = (name, content) => ({
  name,
  mimeType: 'application/json',
  buffer: Buffer.from(content),
});

/// Where something is drawn.
/** @type {(what: Locator) => Promise<Record<'x' | 'y' | 'width' | 'height', number>>} */
const boxOf = async (what) => (await what.boundingBox()) ?? assert.fail('it is not drawn');

/// A person at the page, whose verbs go to the control that is in front.
class Visitor extends Person {
  /**
   * @type {(stage: Stage, settings?: BrowserContextOptions, address?: string) => Promise<Visitor>}
   */
  static async come(stage, settings = {}, address = '') {
    const page = await stage.openPage(address, settings);
    const visitor = new Visitor(page);
    await page.addScriptTag({url: '/tests/host.js'});
    await page.locator('main zolt20-map-control').waitFor();
    await visitor.turnToFront();
    return visitor;
  }
  /// From now on the verbs go to the control in front.
  turnToFront() {
    return this.page.evaluate(() => {
      globalThis.host = new Host([...document.querySelectorAll('zolt20-map-control')].slice(-1)[0]);
    });
  }
  /// The dialog with this title that opens, or has opened, in front of so many others.
  /** @type {(title: string, depth?: number) => Locator} */
  dialog(title, depth = 0) {
    return this.page
      .locator('body > dialog')
      .nth(depth)
      .and(this.page.getByRole('dialog', {name: title, exact: true}));
  }
  /** @type {(name: string) => Locator} */
  button(name) {
    return this.page.getByRole('button', {name, exact: true});
  }
  /// What asks the person in front, pressed away by a button.
  /** @type {(question: string, answer: string) => Promise<void>} */
  async decide(question, answer) {
    const dialog = this.page.getByRole('alertdialog').filter({hasText: question});
    await dialog.getByRole('button', {name: answer, exact: true}).click();
    await dialog.waitFor({state: 'detached'});
  }
  /// Presses a request button, does something in the dialog that comes of it, and is back when that
  /// is closed.
  /**
   * @type {(control: string, title: string, steps: (dialog: Locator) => Promise<unknown>) =>
   *   Promise<void>}
   */
  async request(control, title, steps) {
    const dialog = this.dialog(title, await this.page.locator('body > dialog').count());
    await this.click(control);
    await dialog.waitFor();
    await this.turnToFront();
    await steps(dialog);
    await dialog.waitFor({state: 'detached'});
    await this.turnToFront();
  }
  /** @type {(control: string) => Promise<string>} */
  async text(control) {
    return (await this.dump()).controls[control].Text;
  }
  result() {
    return this.text('TxtOutput');
  }
  /// The statement that the page shows for the last Done.
  async statement() {
    return this.page.locator('#statement').textContent();
  }
  status() {
    return this.page.locator('#status[role=status]').textContent();
  }
  /** @type {(table: number) => Promise<void>} */
  async addSelect(table) {
    await this.clickRow('lsttables', table);
    await this.clickRow('lstFields', kFirstField);
    await this.click('cmdMoveOne');
    await this.click('cmdAddSelect');
  }
  async composeLoops() {
    await this.click('optFor');
    await this.type('txtVariable', ':var.i');
    await this.type('txtinitval', '1');
    await this.type('txtFinVal', '3');
    await this.type('txtForStmt', 'a = 1\nb = 2');
    await this.click('cmdAdd');
    await this.click('optwhile');
    await this.type('txtWhlCnd', ':var.w < 9');
    await this.type('txtWhlStm', 'c = "x"');
    await this.click('cmdAdd');
    await this.click('optRepeat');
    await this.type('txtRepCnd', ':var.r = 1');
    await this.type('txtRepStm', 'd = 4');
    await this.click('cmdAdd');
    await this.click('cmdBuild');
    assert.equal(await this.result(), text(kLoops));
  }
  /// An If around a sub query, inside the SelectDo page of a select statement.
  async composeRule() {
    await this.addSelect(kCustomer);
    await this.tab(kSelectDoPage);
    await this.request('cmdCondition(0)', 'Condition for SelectDo', async () => {
      await this.click('optIfThen');
      await this.type('txtCond', ':var.n > 1');
      await this.focus('txtStmt1');
      await this.request('cmdSubQuery(4)', 'Sub Query for Condition', async () => {
        await this.addSelect(kOrders);
        await this.click('cmdDone');
      });
      await this.click('cmdAdd');
      await this.click('cmdBuild');
      await this.click('cmdDone');
    });
    await this.click('cmdAddSelectDoQuer');
  }
  /** @type {(file: FilePayload) => Promise<void>} */
  async openFile(file) {
    const choosing = this.page.waitForEvent('filechooser');
    await this.page.getByText('Open Catalogue').click();
    await (await choosing).setFiles(file);
  }
  catalogueName() {
    return this.page.locator('#catalogue-name').textContent();
  }
  tables() {
    return this.page.evaluate(
      () =>
        /** @type {string[]} */ (
          document.querySelector('zolt20-map-control').dump().controls.lsttables.List
        ),
    );
  }
  leave() {
    return closePage(this.page);
  }
}

describe('the page of examples/web', () => {
  /** @type {Stage} */
  let stage;
  /** @type {string} */
  let axe;
  /** @type {(settings?: BrowserContextOptions, address?: string) => Promise<Visitor>} */
  const come = (settings, address) => Visitor.come(stage, settings, address);

  before(async () => {
    axe = await readFile(require.resolve('axe-core/axe.min.js'), 'utf8');
    stage = await Stage.open({
      '/': path.join(kRoot, 'examples/web'),
      '/examples/': path.join(kRoot, 'examples'),
      '/tests/': path.join(kTests, 'pages'),
    });
  });
  after(() => stage.close());

  // ---- catalogues

  test('opens the sample catalogue, with nothing of it lost', async () => {
    const visitor = await come();
    /** @type {{name: string, tables: {code: string}[]}} */
    const sample = JSON.parse(await readFile(path.join(kRoot, 'examples/catalogue.json'), 'utf8'));
    assert.equal(await visitor.catalogueName(), sample.name);
    const size = await visitor.page.locator('#catalogue-size').textContent();
    assert.equal(size, '9 tables, 92 fields, 5 functions of catalogue.json');
    assert.deepEqual(
      await visitor.tables(),
      sample.tables.map(({code}) => code),
    );
    const [, written] = (
      await readFile(path.join(kRoot, 'examples/sessions/plain-report.jsonl'), 'utf8')
    )
      .split('\n')
      .filter((line) => line.startsWith('{'))
      .map((line) => JSON.parse(line).value);
    for (let row = 0; row < sample.tables.length; ++row) await visitor.clickRow('lsttables', row);
    await visitor.click('cmdMoveAll');
    await visitor.click('cmdAddSelect');
    await visitor.click('cmdDone');
    const records = String(await visitor.page.locator('#records').textContent()).split(',');
    assert.deepEqual(records.sort(), written.split(',').sort());
    await visitor.leave();
  });

  test('opens a file of the person by the picker', async () => {
    const visitor = await come();
    await visitor.openFile(jsonFile('small.json', kSmall));
    await visitor.page.getByText('2 tables, 3 fields, 2 functions of small.json').waitFor();
    assert.equal(await visitor.catalogueName(), 'Small');
    assert.deepEqual(await visitor.tables(), ['CUSTOMER', 'ORDRLINE']);
    await visitor.turnToFront();
    await visitor.clickRow('lsttables', 1);
    await visitor.clickRow('lstFields', kFirstField);
    await visitor.click('cmdMoveOne');
    await visitor.click('cmdAddSelect');
    await visitor.click('cmdDone');
    assert.equal(
      await visitor.page.evaluate(() => document.querySelector('#records').textContent),
      'decimal*Q*V*R*N*YORDRLINE.OL_AMOUNT*Q*V*R*N*numeric(6.2) \ud800 \u00e9\u20ac',
    );
    assert.ok(await visitor.page.locator('zolt20-map-control').getByText('ORDER_LINE').isVisible());
    await visitor.leave();
  });

  test('opens a file that is dropped on it, and only one', async () => {
    const visitor = await come();
    const folder = await mkdtemp(path.join(tmpdir(), 'zolt20-'));
    const files = ['one.json', 'two.json'].map((name) => path.join(folder, name));
    for (const file of files) await writeFile(file, kSmall);
    const session = await visitor.page.context().newCDPSession(visitor.page);
    /** @type {(type: 'dragEnter' | 'dragOver' | 'drop', dropped: string[]) => Promise<unknown>} */
    const drag = (type, dropped) =>
      session.send('Input.dispatchDragEvent', {
        type,
        x: 400,
        y: 400,
        data: {items: [], files: dropped, dragOperationsMask: 1},
      });

    const kDrop = /** @type {const} */ (['dragEnter', 'dragOver', 'drop']);
    for (const type of kDrop) await drag(type, [folder]);
    await visitor.page.getByRole('alert').getByText("can't be opened").waitFor();

    await drag('dragEnter', files);
    await drag('dragOver', files);
    await visitor.page.getByText('Drop a catalogue to open it').waitFor();
    await drag('drop', files);
    await visitor.page.getByRole('alert').getByText('2 files were dropped').waitFor();
    assert.equal(await visitor.catalogueName(), 'Order entry');

    for (const type of kDrop) await drag(type, files.slice(0, 1));
    await visitor.page.getByText('2 tables, 3 fields, 2 functions of one.json').waitFor();
    assert.ok(!(await visitor.page.locator('#drop').isVisible()));
    assert.ok(
      !(await visitor.page.getByRole('alert').isVisible()),
      'the complaint of before is gone',
    );
    await rm(folder, {recursive: true});
    await visitor.leave();
  });

  // What is put in place of a part of the small catalogue, and what the page says then.
  const kMistakes = [
    ['"name": "Small",', '', 'the catalogue has no "name"'],
    ['"tables"', '"table"', 'the catalogue has no "tables"'],
    ['"functions"', '"function"', 'the catalogue has no "functions"'],
    ['"tables": [', '"tables": [null, ', 'table number 1 is no object'],
    ['ORDRLINE', 'ORDRLIN', 'table ORDRLIN has a "code" of 7 characters, and it must have 8'],
    ['ORDRLINE', 'ORDR,INE', 'table ORDR,INE has a "code" that holds a comma'],
    ['ORDRLINE', 'CUSTOMER', 'table CUSTOMER stands twice'],
    ['"indexes": 2', '"indexes": -1', 'table CUSTOMER has -1 indexes, and 0 to 32767 are possible'],
    [
      '"indexes": 2',
      '"indexes": 32768',
      'table CUSTOMER has 32768 indexes, and 0 to 32767 are possible',
    ],
    ['"indexes": 2', '"indexes": 2.5', 'table CUSTOMER has "indexes" that are no whole number'],
    [
      '"indexes": 0, "fields": [',
      '"indexes": 0, "fields": 3, "rest": [',
      'table ORDRLINE has "fields" that are no array',
    ],
    ['"name": "C_SINCE", ', '', 'table CUSTOMER, field number 2, has no "name"'],
    ['C_SINCE', '', 'table CUSTOMER, field number 2, has an empty "name"'],
    ['C_SINCE', 'C_ID', 'field CUSTOMER.C_ID stands twice'],
    [
      'C_SINCE',
      'C*Q*V*R*N',
      'field CUSTOMER.C*Q*V*R*N has a "name" that holds the separator *Q*V*R*N* or runs into it',
    ],
    ['"type": "date", ', '', 'field CUSTOMER.C_SINCE has no "type"'],
    [
      '"flagged": true',
      '"flagged": "Y"',
      'field CUSTOMER.C_SINCE has a "flagged" that is neither true nor false',
    ],
    ['numeric(5)', 'numeric(5,2)', 'field CUSTOMER.C_ID has a "text" that holds a comma'],
    ['substr', 'today', 'function today stands twice'],
    ['"start"', '2', 'function substr has an argument that is no string'],
    [
      '"C_SINCE",',
      '"C_SINCE"',
      'the catalogue is no JSON: line 6, column 26 has "\\"" where a comma or "}" should be',
    ],
    [
      '"Small"',
      '"Sm\\all"',
      'the catalogue is no JSON: line 2, column 14 has "\\\\" where an escape that JSON knows should be',
    ],
    [
      '\n  ]\n}',
      '',
      'the catalogue is no JSON: it ends in line 14, column 65, where a comma or "]" should follow',
    ],
    [kSmall, '[]', 'the catalogue is no object'],
    [
      kSmall,
      '',
      'the catalogue is no JSON: it ends in line 1, column 1, where a value should follow',
    ],
  ];
  test('says what is wrong in a file and where, and keeps the catalogue before', async () => {
    const visitor = await come();
    for (const [part, by, complaint] of kMistakes) {
      assert.ok(kSmall.includes(part), part);
      await visitor.openFile(
        jsonFile(
          'bad.json',
          kSmall.replace(part, () => by),
        ),
      );
      await visitor.page
        .getByRole('alert')
        .getByText(`bad.json can't be opened: ${complaint}.`, {exact: true})
        .waitFor();
      assert.equal(await visitor.catalogueName(), 'Order entry');
    }
    await visitor.openFile({
      name: 'bytes.json',
      mimeType: '',
      buffer: Buffer.from('"\xff"', 'latin1'),
    });
    await visitor.page
      .getByText("bytes.json can't be opened: the catalogue is no text in UTF-8.")
      .waitFor();
    assert.equal((await visitor.tables()).length, 9);
    await visitor.button('Close the message').click();
    assert.ok(!(await visitor.page.getByRole('alert').isVisible()));
    await visitor.leave();
  });

  test('asks before it gives up what was composed', async () => {
    const visitor = await come();
    const kQuestion = 'Leave without what was composed?';
    await visitor.addSelect(kCustomer);
    const composed = await visitor.result();
    await visitor.openFile(jsonFile('small.json', kSmall));
    await visitor.decide(kQuestion, 'Keep');
    assert.equal(await visitor.catalogueName(), 'Order entry');
    assert.equal(await visitor.result(), composed);
    await visitor.click('cmdCancel');
    await visitor.decide(kQuestion, 'Keep');
    assert.equal(await visitor.result(), composed);

    let asked = 0;
    visitor.page.on('dialog', (dialog) => {
      ++asked;
      assert.equal(dialog.type(), 'beforeunload');
      return dialog.dismiss();
    });
    await visitor.page.evaluate(() => location.reload());
    await visitor.waitFor('the browser asks too', () => asked === 1);
    assert.equal(await visitor.result(), composed);

    await visitor.button('New Statement').click();
    await visitor.decide(kQuestion, 'Discard');
    await visitor.turnToFront();
    assert.equal(await visitor.result(), '');
    await visitor.addSelect(kCustomer);
    await visitor.click('cmdDone');
    // Nothing is lost now, so nothing is asked.
    await visitor.openFile(jsonFile('small.json', kSmall));
    await visitor.page.getByText('2 tables, 3 fields, 2 functions of small.json').waitFor();
    await visitor.leave();
  });

  // ---- requests

  test('a rule is composed through two dialogs and handed out', async () => {
    const visitor = await come();
    await visitor.composeRule();
    assert.equal(await visitor.result(), text(kRule));
    await visitor.click('cmdDone');
    assert.equal(await visitor.statement(), kRule.join('\n'));
    assert.equal(
      await visitor.page.locator('#records').textContent(),
      'long*Q*V*R*N*NCUSTOMER.C_ID*Q*V*R*N*numeric(5)',
    );
    assert.deepEqual(await visitor.page.locator('.fields td').allTextContents(), [
      'CUSTOMER.C_ID',
      'long',
      'no',
      'numeric(5)',
    ]);
    assert.equal(await visitor.status(), 'The statement is done: 9 lines, 1 selected field.');
    assert.equal(
      await visitor.page.evaluate(() => document.activeElement?.textContent),
      'Statement',
    );
    const {y, height} = await boxOf(visitor.page.locator('section.result'));
    assert.ok(
      y >= 0 && y + height <= (visitor.page.viewportSize()?.height ?? 0),
      'all of it is in sight',
    );
    await visitor.leave();
  });

  for (const block of [kBlocks[0], kBlocks[3]]) {
    test(`${block.name}: four dialogs deep each line stands at its depth`, async () => {
      const visitor = await come();
      /**
       * @type {(table: number, control: string, title: string, steps: () => Promise<void>) =>
       *   Promise<void>}
       */
      const addSelectAround = async (table, control, title, steps) => {
        await visitor.addSelect(table);
        await visitor.tab(block.number + kSelectDoPage);
        await visitor.request(`${control}(${block.number})`, `${title} for ${block.name}`, steps);
        await visitor.click(block.add);
      };
      await addSelectAround(kCustomer, 'cmdSubQuery', 'Sub Query', async () => {
        await addSelectAround(kOrders, 'cmdCondition', 'Condition', async () => {
          await visitor.click('optwhile');
          await visitor.type('txtWhlCnd', ':var.a < 2');
          await visitor.focus('txtWhlStm');
          await visitor.request('cmdSubQuery(4)', 'Sub Query for Condition', async () => {
            await addSelectAround(kOrderLine, 'cmdSubQuery', 'Sub Query', async () => {
              await visitor.addSelect(kItem);
              await visitor.click('cmdDone');
            });
            await visitor.click('cmdDone');
          });
          await visitor.click('cmdAdd');
          await visitor.click('cmdBuild');
          await visitor.click('cmdDone');
        });
        await visitor.click('cmdDone');
      });
      assert.equal(
        await visitor.result(),
        text([
          'select CUSTOMER.C_ID',
          'from  CUSTOMER',
          block.keyword,
          '\tselect ORDERS__.O_ID',
          '\tfrom  ORDERS__',
          `\t${block.keyword}`,
          '\t\twhile :var.a < 2',
          '\t\t\tselect ORDRLINE.OL_O_ID',
          '\t\t\tfrom  ORDRLINE',
          `\t\t\t${block.keyword}`,
          '\t\t\t\tselect ITEM____.I_ID',
          '\t\t\t\tfrom  ITEM____',
          '\t\t\t\tendselect',
          '\t\t\tendselect',
          '\t\tendwhile',
          '\tendselect',
          'endselect',
        ]),
      );
      await visitor.leave();
    });
  }

  for (const block of kBlocks) {
    test(`${block.name}: a text comes exactly into an empty box and behind another text, as a step`, async () => {
      const visitor = await come();
      const compose = () =>
        visitor.request(
          `cmdCondition(${block.number})`,
          `Condition for ${block.name}`,
          async () => {
            await visitor.composeLoops();
            await visitor.click('cmdDone');
          },
        );
      await visitor.tab(block.number + kSelectDoPage);
      await compose();
      assert.equal(await visitor.text(block.box), text(kLoops));
      await visitor.type(block.box, 'x = 0');
      await compose();
      assert.equal(await visitor.text(block.box), text(['x = 0', ...indented(kLoops)]));
      assert.equal(
        await visitor.page.evaluate(() => document.activeElement?.localName),
        'zolt20-map-control',
      );

      await visitor.click('undo');
      assert.equal(await visitor.text(block.box), 'x = 0');
      await visitor.click('redo');
      assert.equal(await visitor.text(block.box), text(['x = 0', ...indented(kLoops)]));
      await visitor.leave();
    });
  }

  test('texts that look like codes arrive, and those that are codes do not leave', async () => {
    const visitor = await come();
    await visitor.tab(kSelectDoPage);
    /** @type {(statement: string, after?: () => Promise<void>) => Promise<void>} */
    const compose = async (statement, after) =>
      visitor.request('cmdCondition(0)', 'Condition for SelectDo', async () => {
        await visitor.click('optwhile');
        await visitor.type('txtWhlCnd', ':var.a < 2');
        await visitor.type('txtWhlStm', statement);
        await visitor.click('cmdAdd');
        await visitor.click('cmdBuild');
        await visitor.click('cmdDone');
        await after?.();
      });
    const kLine = 'a = "*zlt*" + `^b + "\u20ac"';
    await compose(kLine);
    assert.equal(
      await visitor.text('txtSelectDo'),
      text(['while :var.a < 2', `\t${kLine}`, 'endwhile']),
    );

    await compose('b = ~1', async () => {
      await visitor.decide('it holds "~", which has a meaning of its own on the way', 'OK');
      assert.equal(
        await visitor.result(),
        text(['while :var.a < 2', '\tb = ~1', 'endwhile']),
        'nothing is lost',
      );
      await visitor.click('cmdCancel');
      await visitor.decide('Leave without what was composed?', 'Discard');
    });
    assert.equal(
      await visitor.text('txtSelectDo'),
      text(['while :var.a < 2', `\t${kLine}`, 'endwhile']),
    );
    await visitor.leave();
  });

  test('texts are encoded as hosts encode them', async () => {
    const visitor = await come();
    const encoded = await visitor.page.evaluate(async () => {
      const {encode, encodeBlock} = await import('/texts.js');
      const kText = 'a\r\n\tb "c"\r\n\t\td\n*zlt*';
      return [encode(kText), encodeBlock(kText, true), encodeBlock(kText, false)];
    });
    assert.deepEqual(encoded, [
      '*zlt*a~\u0001b `^`c`^`~\u0001\u0001d\n*zlt*',
      '*zlt*a~\u0001b `^`c`^`~\u0001\u0001\u0001d\n*zlt*',
      '*zlt*a~\u0001b `^`c`^`~\u0001\u0001d\n*zlt*',
    ]);
    await visitor.leave();
  });

  test('a dialog without anything composed closes at once, any other asks, however often Escape is pressed', async () => {
    const visitor = await come();
    await visitor.tab(kSelectDoPage);
    /** @type {(steps: (dialog: Locator) => Promise<void>) => Promise<void>} */
    const request = (steps) => visitor.request('cmdSubQuery(0)', 'Sub Query for SelectDo', steps);
    await request(() => visitor.click('cmdCancel'));
    await request(() => visitor.page.keyboard.press('Escape'));
    await request((dialog) => dialog.getByRole('button', {name: 'Close', exact: true}).click());
    await request(() => visitor.click('cmdDone'));
    assert.equal(await visitor.text('txtSelectDo'), '');

    await request(async (dialog) => {
      await visitor.addSelect(kOrders);
      for (let presses = 0; presses < 6; ++presses) await visitor.page.keyboard.press('Escape');
      assert.ok(await dialog.isVisible());
      assert.equal(
        await visitor.page.getByRole('alertdialog').count(),
        0,
        'the question is asked and answered three times',
      );
      await visitor.click('cmdCancel');
      await visitor.decide('Leave without what was composed?', 'Keep');
      assert.equal(
        await visitor.result(),
        text(['select ORDERS__.O_ID', 'from  ORDERS__', 'endselect']),
      );
      await visitor.page.keyboard.press('Escape');
      await visitor.decide('Leave without what was composed?', 'Discard');
    });
    await request(async () => {
      await visitor.clickRow('lsttables', kOrders);
      await visitor.click('cmdDone');
      await visitor.decide('Leave without what was composed?', 'Discard');
    });
    assert.equal(await visitor.text('txtSelectDo'), '');
    await visitor.leave();
  });

  test('a nested control begins on its page with the catalogue, and its message does not close the dialog', async () => {
    const visitor = await come();
    await visitor.tab(kSelectDoPage);
    await visitor.request('cmdSubQuery(0)', 'Sub Query for SelectDo', async (dialog) => {
      const {controls} = await visitor.dump();
      assert.equal(controls.tabVrn.Tab, 0);
      assert.equal(controls.lsttables.List.length, 9);
      assert.equal(controls.TxtOutput.Highlight, true);
      await visitor.takeLog();
      await visitor.click('cmdMoveOne');
      const message = (await visitor.takeLog()).find((entry) => entry.message !== undefined);
      assert.ok(message !== undefined);
      await visitor.waitFor(
        'the message shows',
        async () => (await visitor.place('', 'dialog[open]')).isThere,
      );
      await visitor.page.keyboard.press('Escape');
      await visitor.waitFor(
        'the message is gone',
        async () => !(await visitor.place('', 'dialog[open]')).isThere,
      );
      assert.ok(await dialog.isVisible());
      await visitor.click('cmdCancel');
    });
    await visitor.request('cmdCondition(0)', 'Condition for SelectDo', async () => {
      assert.equal((await visitor.dump()).controls.tabVrn.Tab, kConditionPage);
      await visitor.click('cmdCancel');
    });
    await visitor.leave();
  });

  // ---- functions

  test('a function is found, filled in and comes into the box of each page', async () => {
    const visitor = await come();
    for (const {number, name, box} of kBlocks) {
      await visitor.tab(number + kSelectDoPage);
      await visitor.request(`cmdFunction(${number})`, `Function for ${name}`, async (dialog) => {
        await dialog.getByLabel('substr(text, start, length)').click();
        await dialog.getByLabel('text', {exact: true}).fill('NAME');
        await dialog.getByLabel('start', {exact: true}).fill('1');
        await dialog.getByLabel('length', {exact: true}).fill(':var.n + "2"');
        assert.equal(await dialog.locator('output').textContent(), 'substr(NAME, 1, :var.n + "2")');
        await dialog.getByRole('button', {name: 'Insert', exact: true}).click();
      });
      assert.equal(await visitor.text(box), 'substr(NAME, 1, :var.n + "2")');
    }
    await visitor.tab(kConditionPage);
    await visitor.click('optwhile');
    await visitor.focus('txtWhlStm');
    await visitor.request('cmdFunction(4)', 'Function for Condition', async (dialog) => {
      await visitor.page.keyboard.type('DAYS');
      assert.equal(await dialog.getByRole('radio').count(), 1);
      await visitor.page.keyboard.press('Tab');
      await visitor.page.keyboard.press('Tab');
      await visitor.page.keyboard.type('a');
      await visitor.page.keyboard.press('Enter');
    });
    assert.equal(await visitor.text('txtWhlStm'), 'days(a, )');
    await visitor.leave();
  });

  test('a function that can not be handed over says so, one that is not wanted leaves nothing', async () => {
    const visitor = await come();
    await visitor.tab(kSelectDoPage);
    await visitor.request('cmdFunction(0)', 'Function for SelectDo', async (dialog) => {
      await dialog.getByLabel('upper(text)').click();
      await dialog.getByLabel('text', {exact: true}).fill('a~b');
      await dialog.getByRole('button', {name: 'Insert', exact: true}).click();
      await dialog
        .getByRole('alert')
        .getByText('it holds "~", which has a meaning of its own on the way')
        .waitFor();
      await dialog.getByLabel('Filter').fill('nothing');
      assert.ok(await dialog.getByRole('button', {name: 'Insert', exact: true}).isDisabled());
      await dialog.getByRole('button', {name: 'Cancel', exact: true}).click();
    });
    await visitor.request('cmdFunction(0)', 'Function for SelectDo', () =>
      visitor.page.keyboard.press('Escape'),
    );
    assert.equal(await visitor.text('txtSelectDo'), '');

    await visitor.openFile(jsonFile('one.json', kSmallAndOneFunction));
    await visitor.page.getByText('2 tables, 3 fields, 1 function of one.json').waitFor();
    await visitor.turnToFront();
    await visitor.tab(kSelectDoPage);
    await visitor.request('cmdFunction(0)', 'Function for SelectDo', () =>
      visitor.page.keyboard.press('Enter'),
    );
    assert.equal(await visitor.text('txtSelectDo'), 'today()');
    await visitor.leave();
  });

  // ---- the statement

  test('copies the statement and the records exactly, and says so', async () => {
    const visitor = await come({permissions: ['clipboard-read', 'clipboard-write']});
    await visitor.composeRule();
    await visitor.click('cmdDone');
    const copied = () => visitor.page.evaluate(() => navigator.clipboard.readText());
    await visitor.button('Copy Statement').click();
    await visitor.page.getByText('The statement is copied.').waitFor();
    assert.equal(await copied(), text(kRule));
    await visitor.button('Copy Field Records').click();
    await visitor.page.getByText('The field records are copied.').waitFor();
    assert.equal(await copied(), 'long*Q*V*R*N*NCUSTOMER.C_ID*Q*V*R*N*numeric(5)');
    await visitor.leave();
  });

  test('selects what it may not copy', async () => {
    const visitor = await come();
    await visitor.composeRule();
    await visitor.click('cmdDone');
    await visitor.page.evaluate(() =>
      Object.defineProperty(navigator, 'clipboard', {value: undefined}),
    );
    await visitor.button('Copy Statement').click();
    await visitor.page.getByText('press Ctrl+C').waitFor();
    assert.equal(await visitor.page.evaluate(() => String(getSelection())), kRule.join('\n'));
    await visitor.leave();
  });

  test('shows each statement that is done in place of the one before', async () => {
    const visitor = await come();
    await visitor.click('cmdDone');
    assert.equal(await visitor.statement(), '');
    await visitor.addSelect(kCustomer);
    await visitor.click('cmdDone');
    await visitor.click('cmdDone');
    assert.equal(await visitor.statement(), 'select CUSTOMER.C_ID\nfrom  CUSTOMER\nendselect');
    await visitor.button('New Statement').click();
    await visitor.page.getByText('Done in the control brings the statement here').waitFor();
    await visitor.leave();
  });

  // ---- keyboard, schemes, screen readers, sizes

  test('one whole way by the keyboard alone', async () => {
    const visitor = await come({permissions: ['clipboard-read', 'clipboard-write']});
    const {keyboard} = visitor.page;
    /** @type {(key: string, times?: number) => Promise<void>} */
    const press = async (key, times = 1) => {
      for (let presses = 0; presses < times; ++presses) await keyboard.press(key);
    };
    /// Presses Tab until the keyboard is there.
    /** @type {(place: string, key?: string) => Promise<void>} */
    const tabTo = async (place, key = 'Tab') => {
      const there = () =>
        visitor.page.evaluate(() => {
          if (document.activeElement === host.element) return host.keyboard();
          const active = /** @type {HTMLInputElement} */ (document.activeElement);
          return active.shadowRoot === null ? active.value || active.textContent?.trim() : '';
        });
      const seen = [];
      while ((await there()) !== place) {
        seen.push(await there());
        assert.ok(
          seen.length < 40,
          `the Tab key does not come to ${place}, but to ${seen.join(', ')}`,
        );
        await keyboard.press(key);
      }
    };
    // The scheme and a new sample, before the control.
    await tabTo('system');
    await press('ArrowRight', 2);
    assert.equal(
      await visitor.page.evaluate(() => getComputedStyle(document.body).colorScheme),
      'dark',
    );
    await tabTo('Sample');
    await press('Enter');
    await visitor.waitFor('it is opened', async () =>
      String(await visitor.status()).startsWith('catalogue.json is open'),
    );
    await visitor.turnToFront();
    await tabTo('lsttables');
    await press('Home');
    await press('ArrowDown', kCustomer);
    await press('Space');
    await tabTo('lstFields');
    await press('Home');
    await press('ArrowDown', kFirstField);
    await press('Space');
    await tabTo('cmdMoveOne');
    await press('Enter');
    await tabTo('cmdAddSelect');
    await press('Space');
    await tabTo('tabVrn', 'Shift+Tab');
    await press('ArrowRight', kSelectDoPage);
    await tabTo('cmdSubQuery(0)');
    await press('Enter');
    await visitor.dialog('Sub Query for SelectDo').waitFor();
    await visitor.turnToFront();
    assert.notEqual(
      await visitor.page.evaluate(() => host.keyboard()),
      '',
      'the keyboard is in the nested control',
    );
    await tabTo('lsttables');
    await press('Home');
    await press('ArrowDown', kOrders);
    await press('Space');
    await tabTo('lstFields');
    await press('Home');
    await press('ArrowDown', kFirstField);
    await press('Space');
    await tabTo('cmdMoveOne');
    await press('Enter');
    await tabTo('cmdAddSelect');
    await press('Enter');
    await tabTo('cmdDone');
    await press('Enter');
    await visitor.dialog('Sub Query for SelectDo').waitFor({state: 'detached'});
    await visitor.turnToFront();
    await tabTo('cmdAddSelectDoQuer');
    await press('Enter');
    await tabTo('cmdDone');
    await press('Enter');
    await tabTo('Copy Statement');
    await press('Enter');
    await visitor.page.getByText('The statement is copied.').waitFor();
    assert.equal(
      await visitor.page.evaluate(() => navigator.clipboard.readText()),
      text([
        'select CUSTOMER.C_ID',
        'from  CUSTOMER',
        'selectdo',
        '\tselect ORDERS__.O_ID',
        '\tfrom  ORDERS__',
        '\tendselect',
        'endselect',
      ]),
    );
    await visitor.leave();
  });

  test('the scheme and the colours of statements are what was chosen, also the next time', async () => {
    const visitor = await come({colorScheme: 'light'});
    const ground = () =>
      visitor.page.evaluate(() => getComputedStyle(document.body).backgroundColor);
    const light = await ground();
    await visitor.page.getByRole('radio', {name: 'Dark'}).click();
    const dark = await ground();
    assert.notEqual(dark, light);
    await visitor.page.getByRole('radio', {name: 'Light'}).click();
    assert.equal(await ground(), light);
    await visitor.page.getByRole('radio', {name: 'Dark'}).click();
    const isColored = async () => (await visitor.dump()).controls.TxtOutput.Highlight;
    assert.equal(await isColored(), true);
    await visitor.page.getByRole('switch').click();
    assert.equal(await isColored(), false);
    await visitor.page.reload();
    await visitor.page.locator('main zolt20-map-control').waitFor();
    await visitor.page.addScriptTag({url: '/tests/host.js'});
    await visitor.turnToFront();
    assert.equal(await ground(), dark);
    assert.equal(await isColored(), false);
    await visitor.page.getByRole('switch').click();
    assert.equal(await isColored(), true);
    await visitor.click('undo');
    assert.equal(await isColored(), false);
    assert.ok(
      !(await visitor.page.getByRole('switch').isChecked()),
      'the switch shows what undo brought',
    );
    await visitor.page.getByRole('radio', {name: 'System'}).click();
    assert.equal(await ground(), light);
    await visitor.leave();
  });

  for (const colorScheme of /** @type {const} */ (['light', 'dark'])) {
    test(`nothing is found against the rules of accessibility in the ${colorScheme} scheme`, async () => {
      const visitor = await come({colorScheme});
      await visitor.page.emulateMedia({reducedMotion: 'reduce'});
      await visitor.page.evaluate(axe);
      let checked = 0;
      /** @type {(what: string) => Promise<void>} */
      const check = async (what) => {
        const {violations, passes} = await visitor.page.evaluate(() =>
          globalThis.axe.run(document),
        );
        const found = violations.map(
          ({id, nodes}) => `${id}: ${nodes.map(({html}) => html).join(' ')}`,
        );
        assert.deepEqual(found, [], what);
        checked += passes.length;
      };
      await check('the page at first');
      await visitor.openFile(jsonFile('bad.json', '{'));
      await visitor.page.getByRole('alert').waitFor();
      await check('the page with a complaint');
      await visitor.composeRule();
      await visitor.click('cmdDone');
      await visitor.page.getByText('Field records as the host reads them').click();
      await check('the page with a statement');
      await visitor.tab(kSelectDoPage);
      await visitor.request('cmdCondition(0)', 'Condition for SelectDo', async (dialog) => {
        await check('a nested control');
        await visitor.click('optIfThen');
        await visitor.focus('txtStmt1');
        await visitor.request('cmdFunction(4)', 'Function for Condition', async (picker) => {
          await picker.getByLabel('upper(text)').click();
          await picker.getByLabel('text', {exact: true}).fill('~');
          await visitor.page.keyboard.press('Enter');
          await check('the functions');
          await visitor.page.keyboard.press('Escape');
        });
        await visitor.click('cmdCancel');
        await visitor.page.getByRole('alertdialog').waitFor();
        await check('a question');
        await visitor.decide('Leave without what was composed?', 'Discard');
        assert.ok(!(await dialog.isVisible()));
      });
      assert.ok(checked > 100, `${checked} rules were met`);
      await visitor.leave();
    });
  }

  for (const [width, height] of [
    [360, 740],
    [820, 1180],
    [1920, 1080],
  ]) {
    test(`fits into a window of ${width} by ${height}`, async () => {
      const visitor = await come({viewport: {width, height}});
      const isWithin = () =>
        visitor.page.evaluate(() => document.documentElement.scrollWidth <= innerWidth);
      assert.ok(await isWithin());
      await visitor.click('cmdDone');
      assert.ok(await isWithin());
      await visitor.tab(kSelectDoPage);
      await visitor.request('cmdFunction(0)', 'Function for SelectDo', async (dialog) => {
        const {x, y, width: wide, height: tall} = await boxOf(dialog);
        assert.ok(x >= 0 && y >= 0 && x + wide <= width && y + tall <= height);
        await visitor.page.keyboard.press('Escape');
      });
      await visitor.request('cmdSubQuery(0)', 'Sub Query for SelectDo', async (dialog) => {
        const {x, y, width: wide, height: tall} = await boxOf(dialog);
        assert.ok(x >= 0 && y >= 0 && x + wide <= width && y + tall <= height);
        await dialog.getByRole('button', {name: 'Cancel', exact: true}).click();
      });
      await visitor.leave();
    });
  }

  test('a page without the package says so', async () => {
    const page = await stage.openPage('', {javaScriptEnabled: true, serviceWorkers: 'block'});
    await page.route('**/zolt20-map-control.js', (route) => route.abort());
    await page.reload();
    await page.getByRole('alert').getByText("The control can't run in this browser").waitFor();
    assert.equal(await page.locator('zolt20-map-control').count(), 0);
    await page.context().close();
  });
});
