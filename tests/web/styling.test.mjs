// How a page gives an element its looks: by custom properties and by parts.
import assert from 'node:assert/strict';
import {after, before, describe, test} from 'node:test';

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
