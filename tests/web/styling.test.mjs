// How a page gives an element its looks: by custom properties and by parts.
import assert from 'node:assert/strict';
import {readFileSync} from 'node:fs';
import path from 'node:path';
import {after, before, describe, test} from 'node:test';

import {designOf} from './form.mjs';
import {closePage, Stage} from './harness.mjs';
import {kPackage} from './places.mjs';

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
    const person = await stage.openElement({colorScheme: 'light'});
    await act(person, person.page);
    await closePage(person.page);
  });
}
/// Gives the page further rules.
/** @type {(page: Page, rules: string) => Promise<void>} */
const addRules = (page, rules) =>
  page.evaluate((text) => {
    const sheet = new CSSStyleSheet();
    sheet.replaceSync(text);
    document.adoptedStyleSheets.push(sheet);
  }, rules);
/** @type {(page: Page, id: string, property: string) => Promise<string>} */
const styleOf = (page, id, property) =>
  page.evaluate(
    ([name, asked]) => getComputedStyle(host.on(name)).getPropertyValue(asked),
    [id, property],
  );

describe('a custom property', () => {
  withPerson('is read from anything around the element', async (_person, page) => {
    const before = await styleOf(page, 'cmdDone', 'background-color');
    await addRules(page, ':root { --zolt20-accent: rgb(1, 2, 3); --zolt20-font-size: 20px; }');
    assert.notEqual(before, 'rgb(1, 2, 3)');
    assert.equal(await styleOf(page, 'cmdDone', 'background-color'), 'rgb(1, 2, 3)');
    assert.equal(await styleOf(page, 'cmdDone', 'font-size'), '20px');
    await addRules(page, 'main { --zolt20-accent: rgb(4, 5, 6); }');
    assert.equal(await styleOf(page, 'cmdDone', 'background-color'), 'rgb(4, 5, 6)');
  });
  withPerson('of the element itself goes before', async (_person, page) => {
    await addRules(page, ':root { --zolt20-accent: rgb(1, 2, 3); }');
    await addRules(page, 'zolt20-map-control { --zolt20-accent: rgb(4, 5, 6); }');
    assert.equal(await styleOf(page, 'cmdDone', 'background-color'), 'rgb(4, 5, 6)');
  });
  test('goes before what people with a wish for contrast get', {timeout: 60000}, async () => {
    const person = await stage.openElement({contrast: 'more', colorScheme: 'light'});
    const {page} = person;
    assert.equal(await styleOf(page, 'cmdClear', 'border-top-color'), 'rgb(61, 70, 80)');
    await addRules(page, ':root { --zolt20-border: rgb(1, 2, 3); }');
    assert.equal(await styleOf(page, 'cmdClear', 'border-top-color'), 'rgb(1, 2, 3)');
    await closePage(page);
  });
});

describe('a part', () => {
  /// The nodes that have all of these parts and can be seen: their texts, or their names.
  /** @type {(page: Page, ...parts: string[]) => Promise<string[]>} */
  const having = (page, ...parts) =>
    page.evaluate(
      (wanted) =>
        [...host.element.shadowRoot.querySelectorAll('[part]')]
          .filter(
            (node) => node.checkVisibility() && wanted.every((part) => node.part.contains(part)),
          )
          .map((node) => {
            const isNamed = !node.matches('.row, [role=tab]');
            return isNamed ? node.id : (node.textContent ?? '').trim();
          }),
      parts,
    );
  withPerson('has its state beside it', async (person, page) => {
    const isDisabledAsTheFormHasIt = async () => {
      const disabled = (await having(page, 'disabled')).filter((name) => designOf(name));
      const {controls} = await person.dump();
      const expected = disabled.filter((name) => !controls[name].Enabled);
      assert.ok(disabled.length > 0);
      assert.deepEqual(disabled, expected);
      for (const name of ['cboWhereFields', 'cboOper', 'cboWhereFields1', 'cmdAnd', 'TxtOutput'])
        assert.equal(disabled.includes(name), !controls[name].Enabled, name);
    };
    await page.evaluate(() => {
      host.element.PrpStrTables = 'CUSTOMER2,ORDERS__1';
      host.element.PrpStrFields =
        'long*Q*V*R*N*NCUSTOMER.C_ID*Q*V*R*N*key,char*Q*V*R*N*NORDERS__.O_ID*Q*V*R*N*key';
    });
    assert.deepEqual(await having(page, 'row', 'marked'), []);
    await person.clickRow('lsttables', 0);
    assert.deepEqual(await having(page, 'row', 'marked'), ['CUSTOMER']);
    await person.clickRow('lsttables', 1);
    await person.clickRow('lsttables', 1);
    assert.deepEqual(await having(page, 'row', 'marked'), ['CUSTOMER']);
    assert.deepEqual(await having(page, 'row', 'current'), ['ORDERS__']);
    assert.deepEqual(await having(page, 'tool', 'disabled'), ['redo']);
    assert.deepEqual(await having(page, 'button', 'default'), ['cmdDone']);
    assert.deepEqual(await having(page, 'tab', 'active'), ['Select List']);

    await person.tab(1);
    assert.deepEqual(await having(page, 'tab', 'active'), ['Where']);
    await isDisabledAsTheFormHasIt();
    await person.pick('cboWhereFields', 0);
    await isDisabledAsTheFormHasIt();
    await person.press('cboWhereFields');
    assert.equal((await having(page, 'combo', 'open')).length, 1);
    const {Text} = (await person.dump()).controls.cboWhereFields;
    assert.deepEqual(await having(page, 'row', 'marked', 'current'), [Text]);
    await person.keyboard.press('Escape');
    assert.deepEqual(await having(page, 'combo', 'open'), []);

    await person.tab(6);
    await person.click('optwhile');
    assert.deepEqual(await having(page, 'radio', 'checked'), ['optwhile']);

    assert.deepEqual(await having(page, 'readonly'), []);
    await page.evaluate(() => {
      host.element.readOnly = true;
    });
    const readOnly = await having(page, 'readonly');
    for (const name of ['txtWhlCnd', 'TxtOutput', 'optwhile', 'cmdDone'])
      assert.ok(readOnly.includes(name), name);
    assert.deepEqual(await having(page, 'tab', 'readonly'), []);
    await person.takeLog();
  });
  withPerson('with a state takes rules of the page', async (person, page) => {
    await addRules(
      page,
      'zolt20-map-control::part(tab active) { color: rgb(1, 2, 3); }' +
        'zolt20-map-control::part(lsttables) { border-top-color: rgb(4, 5, 6); }',
    );
    await person.tab(2);
    assert.equal(await styleOf(page, 'page2.tab', 'color'), 'rgb(1, 2, 3)');
    assert.notEqual(await styleOf(page, 'page0.tab', 'color'), 'rgb(1, 2, 3)');
    assert.equal(await styleOf(page, 'lsttables', 'border-top-color'), 'rgb(4, 5, 6)');
  });
  withPerson('that the element has stands in the manifest, and no other', async (person, page) => {
    const {cssParts} = JSON.parse(readFileSync(path.join(kPackage, 'custom-elements.json'), 'utf8'))
      .modules[0].declarations[0];
    const seen = new Set();
    const look = async () => {
      const parts = await page.evaluate(() =>
        [...host.element.shadowRoot.querySelectorAll('[part]')].flatMap((node) => [...node.part]),
      );
      for (const part of parts) seen.add(part);
    };
    await page.evaluate(() => {
      host.element.PrpStrTables = 'CUSTOMER2,ORDERS__1';
      host.element.PrpStrFields = 'long*Q*V*R*N*NCUSTOMER.C_ID*Q*V*R*N*key';
    });
    await person.clickRow('lsttables', 0);
    await look();
    await person.tab(1);
    await person.press('cboWhereFields');
    await look();
    for (const tab of [2, 3, 4, 5, 6]) await person.tab(tab);
    await person.click('optCase');
    await look();
    await page.evaluate(() => {
      host.element.readOnly = true;
    });
    await look();
    /** @type {string[]} */
    const told = cssParts.map((/** @type {{name: string}} */ {name}) => name);
    assert.deepEqual([...seen].sort(), told.sort());
    await person.takeLog();
  });
});
