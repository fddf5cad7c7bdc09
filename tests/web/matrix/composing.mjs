// A person who composes a statement with a condition in the page of an application, by the mouse.
import assert from 'node:assert/strict';
import {readFileSync} from 'node:fs';
import path from 'node:path';

import {closePage, Person} from '../harness.mjs';
import {kTests} from '../places.mjs';

/** @import {Page} from 'playwright-core' */
/** @import {Stage} from '../harness.mjs' */

const kHost = readFileSync(path.join(kTests, 'pages/host.js'), 'utf8');
export const kStatement = [
  'select CUSTOMER.C_ID',
  'from  CUSTOMER',
  'where CUSTOMER.C_ID = 5',
  'endselect',
].join('\r\n');

/// A person at the first element of a page.
/** @type {(page: Page) => Promise<Person>} */
export async function personAt(page) {
  await page.evaluate(kHost);
  const isThere = () => document.querySelector('zolt20-map-control:defined') !== null;
  const defined = page.waitForFunction(isThere).then(() => true);
  const failed = page.waitForEvent('pageerror').then(() => false);
  // The one that comes too late is nobody's failure.
  for (const late of [defined, failed]) late.catch(() => undefined);
  const hasFailed = page.complaints.some((complaint) => complaint.startsWith('error: '));
  assert.ok(!hasFailed && (await Promise.race([defined, failed])), 'there is no element');
  await page.evaluate(() => beginHost());
  return new Person(page);
}

/// Marks a table, moves a field, sets a condition, and is done.
/** @type {(person: Person) => Promise<void>} */
export async function compose(person) {
  await person.clickRow('lsttables', 0);
  await person.clickRow('lstFields', 1);
  await person.click('cmdMoveOne');
  await person.click('cmdAddSelect');
  await person.tab(1);
  await person.pick('cboWhereFields', 2);
  await person.pick('cboOper', 4);
  await person.type('cboWhereFields1', '5');
  await person.click('cmdAnd');
  await person.click('cmdAddWhereQuery');
  await person.tab(0);
  await person.click('cmdDone');
}

/// Opens an application, composes a statement, and checks that the application got it and that
/// nothing was complained of.
/** @type {(stage: Stage, address: string) => Promise<void>} */
export async function tryApplication(stage, address) {
  const page = await stage.openPage(address);
  try {
    const person = await personAt(page);
    await compose(person);
    assert.equal(await page.locator('pre').textContent(), kStatement);
  } catch (error) {
    const {message} = /** @type {Error} */ (error);
    throw new Error([message, ...page.complaints].join('\n'), {cause: error});
  }
  await closePage(page);
}
