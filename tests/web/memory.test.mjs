// Elements that are removed leave nothing behind: neither nodes, listeners and values of the page,
// nor memory of the logic.
import assert from 'node:assert/strict';
import {after, before, describe, test} from 'node:test';

import {closePage, Stage} from './harness.mjs';

/** @import {CDPSession} from 'playwright-core' */
/** @import {Person} from './harness.mjs' */

const kMost = 120000;
const kElements = 130;
const kFirst = 40;
const kHalf = (kElements - kFirst) / 2;
// The engine compiles what is used again and again, most of it before the first measure. Half of the
// elements would take four times as much.
const kHeapTolerance = 700000;

describe('elements that are removed', () => {
  /** @type {Stage} */
  let stage;
  before(async () => {
    stage = await Stage.open();
  });
  after(() => stage?.close());

  /// Makes an element, uses it by its members and some presses, and removes it.
  /** @type {(person: Person, number: number) => Promise<void>} */
  async function useOne(person, number) {
    const {page} = person;
    await page.evaluate((at) => {
      makeNew('{"new":{}}');
      const tables = Array.from(
        {length: 50},
        (_, table) => `TABLE${String(table).padStart(3, '0')}0`,
      );
      Object.assign(host.element, {
        PrpStrTables: tables.join(','),
        PrpStrFields: tables
          .map((table) => `char*Q*V*R*N*N${table.slice(0, 8)}.FIELD${at}*Q*V*R*N*text`)
          .join(','),
        tableNames: {TABLE000: 'first'},
        Syntax_Highlight: true,
        prpSelectDoPart: 'if a then ~\u0001b~endif',
      });
      host.answers.eventFunction = [{set: 'prpSelectDoPart', value: 'f()'}];
    }, number);
    await person.clickRow('lsttables', number % 5);
    // Every third one is used for longer, the two behind which is measured among them.
    if (number % 3 !== 1) return;
    await person.clickRow('lstFields', 1);
    await person.click('cmdMoveOne');
    await person.click('cmdAddSelect');
    await person.tab(2);
    await person.click('cmdFunction(0)');
    await person.type('txtSelectDo', `x = ${number}`);
    await page.evaluate(() => host.element.undo());
    await person.tab(1);
    await person.pick('cboWhereFields', 1);
  }

  /**
   * @type {(person: Person, session: CDPSession) =>
   *   Promise<Record<'elements' | 'memoryBytes' | 'nodes' | 'listeners' | 'heap', number>>}
   */
  async function measure(person, session) {
    const {page} = person;
    // The values of an element go first, then those that its control has registered, then what hung
    // on them.
    for (let turn = 0; turn < 4; ++turn) {
      await session.send('HeapProfiler.collectGarbage');
      await page.evaluate(() => new Promise((done) => setTimeout(done, 30)));
    }
    const {metrics} = await session.send('Performance.getMetrics');
    /** @type {(name: string) => number} */
    const metric = (name) =>
      metrics.find((one) => one.name === name)?.value ?? assert.fail(`no ${name}`);
    const {elements, memoryBytes} = await page.evaluate(() =>
      zolt20.ZOLT20MapControlElement.statistics(),
    );
    return {
      elements,
      memoryBytes,
      nodes: metric('Nodes'),
      listeners: metric('JSEventListeners'),
      heap: metric('JSHeapUsedSize'),
    };
  }

  test('leave nothing behind', {timeout: kMost}, async () => {
    const person = await stage.openElement();
    const session = await person.page.context().newCDPSession(person.page);
    await session.send('Performance.enable');
    const measured = [];
    for (let number = 1; number <= kElements; ++number) {
      await useOne(person, number);
      if (number === kFirst || number === kElements) {
        // Without an element in the page: a last one would be counted with what it keeps.
        await person.page.evaluate(() => {
          makeNew('{"new":{}}');
        });
        measured.push(await measure(person, session));
      }
    }
    const [early, late] = measured;
    const {heap: heapBefore, ...before} = early;
    const {heap: heapBehind, ...behind} = late;
    assert.equal(before.elements, 1, 'the controls that live with one element in the page');
    assert.deepEqual(behind, before);
    assert.ok(
      heapBehind - heapBefore < kHeapTolerance,
      `the heap grew by ${heapBehind - heapBefore} bytes`,
    );
    await closePage(person.page);
  });

  test('while those that stay are counted', {timeout: kMost}, async () => {
    const person = await stage.openElement();
    const session = await person.page.context().newCDPSession(person.page);
    await session.send('Performance.enable');
    const one = await measure(person, session);
    await person.page.evaluate((count) => {
      globalThis.kept = Array.from({length: count}, () =>
        document.createElement('zolt20-map-control'),
      );
    }, kHalf);
    const many = await measure(person, session);
    assert.equal(many.elements, one.elements + kHalf);
    assert.ok(
      many.nodes > one.nodes + kHalf * 100 && many.listeners > one.listeners,
      JSON.stringify([one, many]),
    );
    assert.ok(
      many.heap - one.heap > kHeapTolerance,
      'the tolerance is more than half of the elements take',
    );
    await person.page.evaluate(() => {
      globalThis.kept = undefined;
    });
    const again = await measure(person, session);
    assert.equal(again.elements, one.elements);
    assert.equal(again.nodes, one.nodes);
    await closePage(person.page);
  });
});
