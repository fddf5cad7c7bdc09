// The element filled by plain HTML: by its attributes, by JSON inside it, and by what frameworks
// make of either.
import assert from 'node:assert/strict';
import {after, before, describe, test} from 'node:test';

import {kMembers} from './form.mjs';
import {closePage, Stage} from './harness.mjs';

/** @import {Page} from 'playwright-core' */
/** @import {Controls} from './types' */

const kMost = 60000;
const kTables = 'TABLE__11,TABLE__21';
const kFields = 'char*Q*V*R*N*NTABLE__1.A*Q*V*R*N*text,char*Q*V*R*N*NTABLE__2.B*Q*V*R*N*text';
/** @type {Record<string, string>} */
const kAttributes = {
  PrpStrTables: 'tables',
  PrpStrFields: 'fields',
  prpSelectPart: 'select-part',
  prpTab: 'tab',
  prpParentorChild: 'parent-or-child',
  prpStroutput: 'output',
  prpSelectFromPart: 'select-from-part',
  prpSelectWherePart: 'select-where-part',
  prpSelectGroupbyPart: 'select-groupby-part',
  prpSelectOrderbyPart: 'select-orderby-part',
  prpSelectAsSetPart: 'select-as-set-part',
  prpSelectDoPart: 'select-do-part',
  prpSelectEOSPart: 'select-eos-part',
  prpSelectEmptyPart: 'select-empty-part',
  prpSelectErrorPart: 'select-error-part',
  prpintTabcount: 'tabcount',
  Syntax_Highlight: 'syntax-highlight',
};

/** @type {Stage} */
let stage;
/** @type {Page} */
let page;
before(async () => {
  stage = await Stage.open();
  page = await stage.openPage('blank.html');
  await page.waitForFunction(() => globalThis.zolt20 !== undefined);
  await page.evaluate(() => {
    globalThis.early = {log: /** @type {string[]} */ ([]), wasDefined: true};
    for (const name of ['propertychanged', 'failed']) {
      document.addEventListener(name, (event) => {
        const {detail} = /** @type {CustomEvent} */ (event);
        early.log.push(
          detail.name === 'ZOLT20Error' ? `${detail.kind}: ${detail.message}` : detail.name,
        );
      });
    }
  });
});
after(() => stage?.close());

/// A test in a page that all of these share, and that may complain of nothing but of this.
/** @type {(name: string, act: () => Promise<void>, complaint?: RegExp) => void} */
function withPage(name, act, complaint) {
  test(name, {timeout: kMost}, async () => {
    await page.evaluate(() => {
      document.querySelector('main').replaceChildren();
      early.log = [];
    });
    await act();
    const complaints = page.complaints.splice(0);
    if (complaint !== undefined) {
      assert.ok(complaints.length > 0, 'the console is told');
      for (const each of complaints) assert.match(each, complaint);
    } else {
      assert.deepEqual(complaints, []);
    }
  });
}
/// Puts HTML in the page, waits for what is written at the end of scripts, and gives the controls of
/// the element in it.
/** @type {(html: string) => Promise<Controls>} */
const controlsOf = (html) =>
  page.evaluate((text) => {
    document.querySelector('main').innerHTML = text;
    return /** @type {any} */ (document.querySelector('zolt20-map-control').dump().controls);
  }, html);
const log = () => page.evaluate(() => early.log.splice(0));
/** @type {(attributes: Record<string, string>, inside?: string) => string} */
const element = (attributes, inside = '') => {
  const written = Object.entries(attributes).map(([name, value]) => ` ${name}="${value}"`);
  return `<zolt20-map-control${written.join('')}>${inside}</zolt20-map-control>`;
};
/** @type {(values: unknown) => string} */
const json = (values) =>
  `<script type="application/json">${typeof values === 'string' ? values : JSON.stringify(values)}</script>`;

describe('attributes', () => {
  withPage('there are for all members that can be written', async () => {
    const observed = await page.evaluate(() =>
      zolt20.ZOLT20MapControlElement.observedAttributes.slice(),
    );
    for (const {name} of kMembers.filter(({canSet}) => canSet)) {
      assert.ok(observed.includes(kAttributes[name]), name);
      assert.ok(observed.includes(name.toLowerCase()), name);
    }
  });

  test('fill elements that were there before it was defined', {timeout: kMost}, async () => {
    const {page: filled} = await stage.openElement({}, 'filled.html');
    const {wasDefined, told, all} = await filled.evaluate(() => ({
      wasDefined: early.wasDefined,
      told: early.log,
      all: ['attributes', 'properties', 'json'].map((id) => {
        const found = /** @type {any} */ (document.getElementById(id));
        return {controls: found.dump().controls, names: [...found.tableNames]};
      }),
    }));
    assert.equal(wasDefined, false);
    assert.deepEqual(told, [
      'attributes PrpStrTables',
      'attributes PrpStrFields',
      'attributes prpSelectFromPart',
      'attributes prpSelectWherePart',
      'attributes prpTab',
      'properties PrpStrTables',
      'properties PrpStrFields',
      'properties prpTab',
      'json PrpStrTables',
      'json PrpStrFields',
      'json prpSelectFromPart',
      'json prpTab',
    ]);
    const [attributes, properties, child] = all.map(({controls}) => controls);
    assert.deepEqual(attributes.lsttables.Selected, [true, false]);
    assert.equal(attributes.txtwhereCondition.Text, 'TABLE__1.A = 1\r\nAND TABLE__1.A = 2');
    assert.deepEqual(
      [attributes, properties, child].map(({tabVrn, TxtOutput}) => [
        tabVrn.Tab,
        TxtOutput.Highlight,
      ]),
      [
        [1, true],
        [2, false],
        [3, true],
      ],
    );
    assert.deepEqual(child.lsttables.Selected, [false, true]);
    assert.deepEqual(all[2].names, [['TABLE__1', 'first']]);
    await closePage(filled);
  });

  withPage('are written in the calling order, and once', async () => {
    const controls = await controlsOf(
      element({
        tab: '4',
        'select-orderby-part': 'TABLE__1.A',
        'select-from-part': 'TABLE__1,',
        fields: kFields,
        tables: kTables,
        tabcount: '0',
      }),
    );
    assert.deepEqual(await log(), [
      'PrpStrTables',
      'PrpStrFields',
      'prpSelectFromPart',
      'prpSelectOrderbyPart',
      'prpTab',
    ]);
    assert.deepEqual(controls.lsttables.List, ['TABLE__1', 'TABLE__2']);
    assert.deepEqual(controls.lsttables.Selected, [true, false]);
  });

  withPage('that change in one script are written at its end, in that order', async () => {
    await controlsOf(element({tables: kTables}));
    await log();
    const [before, behind] = await page.evaluate(async (fields) => {
      const control = document.querySelector('zolt20-map-control');
      control.setAttribute('tab', '5');
      control.setAttribute('select-from-part', 'TABLE__2,');
      control.setAttribute('fields', fields);
      control.setAttribute('tables', control.getAttribute('tables') ?? '');
      const told = early.log.length;
      await Promise.resolve();
      return [told, early.log.splice(0)];
    }, kFields);
    assert.equal(before, 0);
    assert.deepEqual(behind, ['PrpStrFields', 'prpSelectFromPart', 'prpTab']);
  });

  withPage('are there for whatever is asked or done in the same script', async () => {
    await controlsOf(element({}));
    const seen = await page.evaluate(
      ([tables, fields]) => {
        const control = document.querySelector('zolt20-map-control');
        control.setAttribute('tabcount', '3');
        const count = control.prpintTabcount;
        control.setAttribute('fields', fields);
        control.setAttribute('tables', tables);
        control.prpSelectFromPart = 'TABLE__2,';
        control.setAttribute('tab', '2');
        const {tabVrn} = /** @type {any} */ (control.dump().controls);
        return [count, tabVrn.Tab, early.log.splice(0)];
      },
      [kTables, kFields],
    );
    assert.deepEqual(seen, [3, 2, ['PrpStrTables', 'PrpStrFields', 'prpSelectFromPart', 'prpTab']]);
  });

  withPage('without an element in a page fill it as well', async () => {
    const found = await page.evaluate(
      async ([tables, fields]) => {
        const control = document.createElement('zolt20-map-control');
        control.setAttribute('fields', fields);
        control.setAttribute('tables', tables);
        await Promise.resolve();
        const told = early.log.length;
        return [told, control.shadowRoot.querySelectorAll('#lsttables [role=option]').length > 0];
      },
      [kTables, kFields],
    );
    assert.equal(found[0], 0, 'what is in no page bubbles nowhere');
    const controls = await page.evaluate((tables) => {
      const control = document.createElement('zolt20-map-control');
      control.setAttribute('tables', tables);
      return control.dump().controls;
    }, kTables);
    assert.deepEqual(controls.lsttables.List, ['TABLE__1', 'TABLE__2']);
  });

  withPage('of true and false count by being there', async () => {
    const {TxtOutput} = await controlsOf(element({'syntax-highlight': 'false'}));
    assert.equal(TxtOutput.Highlight, true);
    const turns = await page.evaluate(() => {
      const control = document.querySelector('zolt20-map-control');
      control.removeAttribute('syntax-highlight');
      const without = control.Syntax_Highlight;
      control.toggleAttribute('syntax-highlight');
      return [without, control.Syntax_Highlight];
    });
    assert.deepEqual(turns, [false, true]);
  });

  withPage('that go leave what they wrote', async () => {
    await controlsOf(element({tab: '3', 'select-do-part': 'x = 1'}));
    const {tabVrn, txtSelectDo} = await page.evaluate(async () => {
      const control = document.querySelector('zolt20-map-control');
      control.removeAttribute('tab');
      control.removeAttribute('select-do-part');
      await Promise.resolve();
      return /** @type {any} */ (control.dump().controls);
    });
    assert.deepEqual([tabVrn.Tab, txtSelectDo.Text], [3, 'x = 1']);
  });

  withPage(
    'that are wrong are told, and stop nothing',
    async () => {
      const {tabVrn, lsttables} = await controlsOf(element({tab: 'two', tables: kTables}));
      assert.deepEqual([tabVrn.Tab, lsttables.List.length], [0, 2]);
      assert.deepEqual(await log(), [
        'attribute: The attribute tab takes a whole number',
        'PrpStrTables',
      ]);
      await controlsOf(element({tab: '7', tables: kTables}));
      const [tables, failed] = await log();
      assert.equal(tables, 'PrpStrTables');
      assert.match(failed, /^value: /);
      await controlsOf(element({tab: '1.5'}));
      await controlsOf(element({tab: '99999999999'}));
      const [half, large] = await log();
      assert.match(half, /whole number/);
      assert.match(large, /^overflow: /);
    },
    /ZOLT20Error/,
  );

  withPage('count once where a framework writes their properties again', async () => {
    await controlsOf(element({prpstrtables: kTables, prpstrfields: kFields, prptab: '2'}));
    const lists = await page.evaluate((tables) => {
      const control = document.querySelector('zolt20-map-control');
      const rows = () => /** @type {any} */ (control.dump().controls).lsttables.List.length;
      control.PrpStrTables = tables;
      const again = rows();
      control.PrpStrTables = tables;
      return [again, rows()];
    }, kTables);
    assert.deepEqual(lists, [2, 4]);
  });

  withPage('are in a copy of the element', async () => {
    await controlsOf(element({tables: kTables, tab: '2'}));
    const copied = await page.evaluate(() => {
      const control = document.querySelector('zolt20-map-control');
      const copy = /** @type {typeof control} */ (control.cloneNode(true));
      document.querySelector('main').append(copy);
      return /** @type {any} */ (copy.dump().controls);
    });
    assert.deepEqual([copied.tabVrn.Tab, copied.lsttables.List.length], [2, 2]);
  });
});

describe('JSON inside the element', () => {
  withPage('has members and attributes by their names', async () => {
    const {lsttables, tabVrn, txtSelectEOS} = await controlsOf(
      element(
        {},
        json({
          'select-eos-part': 'y',
          prpTab: 6,
          prpSelectFromPart: 'TABLE__2,',
          fields: kFields,
          tables: kTables,
        }),
      ),
    );
    assert.deepEqual(lsttables.Selected, [false, true]);
    assert.deepEqual([tabVrn.Tab, txtSelectEOS.Text], [6, 'y']);
    assert.deepEqual(await log(), [
      'PrpStrTables',
      'PrpStrFields',
      'prpSelectFromPart',
      'prpSelectEOSPart',
      'prpTab',
    ]);
  });

  withPage('stands behind the attributes of the same members', async () => {
    const {tabVrn, lsttables} = await controlsOf(
      element({tab: '1', tables: 'TABLE__31'}, json({tab: 2, tables: kTables})),
    );
    assert.deepEqual([tabVrn.Tab, lsttables.List], [1, ['TABLE__3']]);
  });

  withPage('may come later, and be another', async () => {
    await controlsOf(element({}));
    const counts = await page.evaluate(async (tables) => {
      const control = document.querySelector('zolt20-map-control');
      const count = () => /** @type {any} */ (control.dump().controls).lsttables.List.length;
      const script = document.createElement('script');
      script.type = 'application/json';
      script.textContent = JSON.stringify({tables});
      control.append(script);
      const first = count();
      script.textContent = JSON.stringify({tables: 'TABLE__31'});
      await Promise.resolve();
      const second = count();
      control.append('text');
      await Promise.resolve();
      return [first, second, count()];
    }, kTables);
    assert.deepEqual(counts, [2, 3, 3]);
  });

  /** @type {[name: string, text: string, told: string][]} */
  const kBad = [
    [
      'with a wrong character',
      '{\n  "tables": x\n}',
      'The JSON: "x" is wrong at line 2, column 13',
    ],
    ['that ends too early', '{"tables": "a"', 'The JSON: it ends at line 1, column 15'],
    ['with a comma too many', '{"tab": 1,}', 'The JSON: "}" is wrong at line 1, column 11'],
    ['with text behind it', '{} []', 'The JSON: "[" is wrong at line 1, column 4'],
    ['that is a list', '["tables"]', 'The JSON is no object'],
    ['with a name unknown', '{"tables ": ""}', 'tables  in the JSON is no property of the element'],
    ['with a value of another type', '{"tables": 1}', 'tables in the JSON takes a string'],
  ];
  for (const [name, text, told] of kBad) {
    withPage(
      `${name} is told`,
      async () => {
        const {tabVrn} = await controlsOf(element({tab: '1'}, json(text)));
        assert.equal(tabVrn.Tab, 1);
        const [failed, ...others] = await log();
        assert.equal(failed, `json: ${told}`);
        assert.deepEqual(others, ['prpTab']);
      },
      /ZOLT20Error/,
    );
  }
});

describe('a page that is still parsed', () => {
  test('fills its element as a whole', {timeout: kMost}, async () => {
    const open = await stage.openPage('blank.html');
    await open.waitForFunction(() => globalThis.zolt20 !== undefined);
    const steps = await open.evaluate(
      async ([tables, fields]) => {
        /** @type {string[]} */
        const log = [];
        const turn = () => new Promise((done) => setTimeout(done, 20));
        document.open();
        document.addEventListener('propertychanged', (event) =>
          log.push(/** @type {CustomEvent} */ (event).detail.name),
        );
        document.addEventListener('failed', () => log.push('failed'));
        document.write(`<zolt20-map-control select-from-part="TABLE__2," fields="${fields}">`);
        await turn();
        const counts = [log.length];
        document.write('<script type="application/json">{"tables": ');
        await turn();
        counts.push(log.length);
        document.write(`${JSON.stringify(tables)}}</script></zolt20-map-control> `);
        await turn();
        const told = log.splice(0);
        document.write('<zolt20-map-control tab="2"></zolt20-map-control>');
        await turn();
        document.close();
        await turn();
        const [first] = document.querySelectorAll('zolt20-map-control');
        const {Selected} = /** @type {any} */ (first.dump().controls).lsttables;
        return {counts, told, last: log, Selected};
      },
      [kTables, kFields],
    );
    assert.deepEqual(steps, {
      counts: [0, 0],
      told: ['PrpStrTables', 'PrpStrFields', 'prpSelectFromPart'],
      last: ['prpTab'],
      Selected: [false, true],
    });
    await open.context().close();
  });
});
