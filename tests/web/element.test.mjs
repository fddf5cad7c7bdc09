// What a page has of the element: its members, its events, its errors, and how it lives in a
// document.
import assert from 'node:assert/strict';
import {copyFileSync, mkdirSync, mkdtempSync, rmSync} from 'node:fs';
import {tmpdir} from 'node:os';
import path from 'node:path';
import {after, before, describe, test} from 'node:test';
import {pathToFileURL} from 'node:url';

import {Automation} from './automation.mjs';
import {kEvents, kMembers} from './form.mjs';
import {closePage, Person, Stage} from './harness.mjs';
import {kPackage, kTests} from './places.mjs';

/** @import {Page} from 'playwright-core' */
/** @import {ZOLT20MapControlElement} from 'zolt20-map-control' */
/** @import {Controls, Dump, Gesture, HostRequest} from './types' */

const kTables = 'TABLE__12,TABLE__20';
/** @type {(name: string, flag?: string) => string} */
const field = (name, flag = 'N') => `char*Q*V*R*N*${flag}${name}*Q*V*R*N*text`;
const kFields = ['TABLE__1.A', 'TABLE__1.B', 'TABLE__2.C', 'TABLE__2.D']
  .map((name) => field(name))
  .join(',');

const kMost = 60000;

/** @type {Stage} */
let stage;
/** @type {Person} */
let shared;
before(async () => {
  stage = await Stage.open();
  shared = await stage.openElement();
});
after(() => stage?.close());

/// A test with a person at a new element, in a page that all of these share and that may complain
/// of nothing.
/** @type {(name: string, act: (person: Person, page: Page) => Promise<void>) => void} */
function withPerson(name, act) {
  test(name, {timeout: kMost}, async () => {
    await shared.makeNew('{"new":{}}');
    await shared.page.evaluate(() => {
      host.answers = {};
    });
    await act(shared, shared.page);
    assert.deepEqual(
      [
        ...shared.page.complaints.splice(0),
        ...(await shared.page.evaluate(() => violations.splice(0))),
      ],
      [],
    );
  });
}
/// A test in a page without an element, in which the module is there.
/** @type {(name: string, act: (page: Page) => Promise<void>) => void} */
function withPage(name, act) {
  test(name, {timeout: kMost}, async () => {
    const page = await stage.openPage('blank.html');
    await page.waitForFunction(() => globalThis.zolt20 !== undefined);
    await act(page);
    await closePage(page);
  });
}
/** @type {(person: Person) => Promise<void>} */
const writeCatalogue = async (person) => {
  await person.page.evaluate(
    ([tables, fields]) => Object.assign(host.element, {PrpStrTables: tables, PrpStrFields: fields}),
    [kTables, kFields],
  );
  assert.deepEqual(await person.takeLog(), [{changed: 'PrpStrTables'}, {changed: 'PrpStrFields'}]);
};
/** @type {(person: Person) => Promise<Controls>} */
const controlsOf = async (person) => (await person.dump()).controls;

describe('the members', () => {
  withPage('are those of the contract', async (page) => {
    const found = await page.evaluate(
      (names) => {
        const {prototype} = zolt20.ZOLT20MapControlElement;
        const isThere =
          prototype instanceof HTMLElement &&
          customElements.get('zolt20-map-control')?.prototype === prototype;
        return names.map((name) => {
          const {get, set, value, enumerable} =
            Object.getOwnPropertyDescriptor(prototype, name) ?? {};
          return {
            isThere,
            canGet: get !== undefined,
            canSet: set !== undefined,
            type: typeof value,
            enumerable,
            length: value?.length,
          };
        });
      },
      kMembers.map(({name}) => name),
    );
    kMembers.forEach(({name, canGet, canSet, isMethod, argument}, index) => {
      assert.deepEqual(
        {...found[index], enumerable: undefined},
        {
          isThere: true,
          canGet,
          canSet,
          type: isMethod ? 'function' : 'undefined',
          enumerable: undefined,
          length: !isMethod ? undefined : argument === undefined ? 0 : 1,
        },
        name,
      );
      if (!isMethod) assert.equal(found[index].enumerable, true, `${name} is enumerable`);
    });
  });

  withPerson(
    'that can only be written give nothing, and those that can only be read take nothing',
    async (_person, page) => {
      const {written, refused} = await page.evaluate((members) => {
        /** @type {(act: () => void) => string} */
        const tries = (act) => {
          try {
            act();
            return 'done';
          } catch (error) {
            return /** @type {Error} */ (error).constructor.name;
          }
        };
        return {
          written: members
            .filter(({canSet, canGet}) => canSet && !canGet)
            .map(({name}) => typeof host.element[name]),
          refused: members
            .filter(({canSet, canGet}) => canGet && !canSet)
            .map(({name}) =>
              tries(() => {
                // biome-ignore lint/suspicious/noRedundantUseStrict: the page runs it outside of this module
                'use strict';
                host.element[name] = '';
              }),
            ),
        };
      }, kMembers);
      assert.ok(written.length === 14 && refused.length === 2);
      assert.ok(
        written.every((type) => type === 'undefined'),
        String(written),
      );
      assert.ok(
        refused.every((name) => name === 'TypeError'),
        String(refused),
      );
    },
  );

  withPerson('give back what was written', async (person, page) => {
    const values = await page.evaluate(() => {
      const {element} = host;
      Object.assign(element, {prpintTabcount: -3, Syntax_Highlight: true, prpTab: 6});
      return [
        element.prpintTabcount,
        element.Syntax_Highlight,
        element.prpStrSQLPart,
        element.prpStroutput,
        element.prpstrSelectedFields,
      ];
    });
    assert.deepEqual(values.slice(0, 2), [-3, true]);
    assert.deepEqual(values.slice(3), ['', '']);
    assert.deepEqual(await person.takeLog(), [{changed: 'prpTab'}]);
    assert.equal((await controlsOf(person)).TxtOutput.Highlight, true);
    assert.equal(await person.difference(), '');
  });

  withPerson('that are methods give nothing', async (person, page) => {
    await writeCatalogue(person);
    await person.clickRow('lsttables', 0);
    const given = await page.evaluate(() =>
      [
        host.element.BuildGroupBy(),
        host.element.ClearAll(0),
        host.element.UserControl_InitProperties(),
      ].map((value) => typeof value),
    );
    assert.deepEqual(given, ['undefined', 'undefined', 'undefined']);
    assert.deepEqual((await controlsOf(person)).lsttables.Selected, [false, false]);
  });

  withPerson('refuse values of another type and do nothing', async (person, page) => {
    await writeCatalogue(person);
    const before = await person.dump();
    const kinds = await page.evaluate((members) => {
      const values = {
        undefined,
        null: null,
        true: true,
        1: 1,
        1.5: 1.5,
        NaN: NaN,
        '1n': 1n,
        text: 'text',
        object: {},
        list: ['a'],
      };
      /** @type {Record<string, string[]>} */
      const fits = {String: ['text'], Integer: ['1'], Boolean: ['true']};
      const wrong = [];
      for (const {name, type, canSet, isMethod} of members) {
        if (!canSet && (!isMethod || type === undefined)) continue;
        for (const [word, value] of Object.entries(values)) {
          if (fits[type ?? ''].includes(word)) continue;
          // A property takes them for nothing to write.
          if (!isMethod && (value === undefined || value === null)) continue;
          let came = 'nothing';
          try {
            if (isMethod) /** @type {Function} */ (host.element[name]).call(host.element, value);
            else host.element[name] = value;
          } catch (error) {
            came = /** @type {Error} */ (error).constructor.name;
          }
          if (came !== 'TypeError') wrong.push(`${name} = ${word}: ${came}`);
        }
      }
      return wrong;
    }, kMembers);
    assert.deepEqual(kinds, []);
    assert.deepEqual(await person.dump(), before);
    assert.deepEqual(await person.takeLog(), []);
  });

  withPerson('leave a property as it is that gets nothing', async (person, page) => {
    await writeCatalogue(person);
    await page.evaluate(() => {
      Object.assign(host.element, {prpTab: 3, prpintTabcount: 2, Syntax_Highlight: true});
      host.element.undoEnabled = false;
    });
    await person.takeLog();
    const before = await person.dump();
    const [count, isColored, isOn] = await page.evaluate(
      (names) => {
        for (const name of [...names, 'undoEnabled']) {
          for (const nothing of [undefined, null]) host.element[name] = nothing;
        }
        return [
          host.element.prpintTabcount,
          host.element.Syntax_Highlight,
          host.element.undoEnabled,
        ];
      },
      kMembers.filter(({canSet}) => canSet).map(({name}) => name),
    );
    assert.deepEqual([count, isColored, isOn], [2, true, false]);
    assert.deepEqual(await person.dump(), before);
    assert.deepEqual(await person.takeLog(), []);
  });

  withPerson('of tables are names, or nothing', async (person, page) => {
    await writeCatalogue(person);
    const came = await page.evaluate(() => {
      const {element} = host;
      /** @type {(value: unknown) => string} */
      const tries = (value) => {
        try {
          Object.assign(element, {tableNames: value});
          return 'done';
        } catch (error) {
          return /** @type {Error} */ (error).constructor.name;
        }
      };
      element.tableNames = {TABLE__1: 'first'};
      const refused = ['x', 1, true, ['x'], {TABLE__1: 1}, new Map([[1, 'x']])].map(tries);
      const kept = [...element.tableNames];
      const counts = [undefined, null].map((nothing) => {
        element.tableNames = {TABLE__1: 'first'};
        tries(nothing);
        return element.tableNames.size;
      });
      return {refused, kept, counts};
    });
    assert.deepEqual(came, {
      refused: Array(6).fill('TypeError'),
      kept: [['TABLE__1', 'first']],
      counts: [0, 0],
    });
  });

  withPerson('are told of when they are written, and no others', async (person, page) => {
    /** @type {Record<string, string | number | boolean>} */
    const values = {String: '', Integer: 1, Boolean: true};
    const kTellsNothing = ['prpStroutput', 'prpintTabcount', 'Syntax_Highlight'];
    for (const {name, type} of kMembers.filter(({canSet}) => canSet)) {
      await page.evaluate(
        ([property, value]) => {
          host.element[property] = value;
        },
        /** @type {[string, string | number | boolean]} */ ([name, values[type ?? '']]),
      );
      assert.deepEqual(
        await person.takeLog(),
        kTellsNothing.includes(name) ? [] : [{changed: name}],
        name,
      );
    }
  });
});

describe('errors', () => {
  /** @type {[request: HostRequest, kind: string, number: number][]} */
  const kFailures = [
    [{set: 'prpTab', value: 7}, 'value', 380],
    [{set: 'prpTab', value: -1}, 'value', 380],
    [{set: 'prpTab', value: 32768}, 'overflow', 6],
    [{set: 'prpintTabcount', value: -32769}, 'overflow', 6],
    [{set: 'prpintTabcount', value: 2 ** 40}, 'overflow', 6],
    [{set: 'prpSelectGroupbyPart', value: 'a,,b'}, 'index', 381],
    [{call: 'ClearAll', args: [70000]}, 'overflow', 6],
  ];
  for (const [request, kind, number] of kFailures) {
    withPerson(`${JSON.stringify(request)} throws ${kind} ${number}`, async (person, page) => {
      const automation = new Automation();
      const expected = await automation.ask(request);
      assert.deepEqual([expected.error?.kind, expected.error?.number], [kind, number]);
      const reply = await person.carryOut(JSON.stringify(request));
      assert.deepEqual(reply, {ok: false, error: expected.error});
      assert.deepEqual(await person.takeLog(), expected.log);
      assert.deepEqual(await person.dump(), await automation.dump());
      automation.close();
      const traits = await page.evaluate((line) => {
        try {
          const {element} = host;
          const method = /** @type {Function} */ (element[line.call ?? '']);
          if (line.set) element[line.set] = line.value;
          else method.apply(element, line.args);
        } catch (thrown) {
          const error = /** @type {Error} */ (thrown);
          return [
            error instanceof zolt20.ZOLT20Error,
            error instanceof Error,
            error.name,
            typeof error.stack,
          ];
        }
        return [];
      }, request);
      assert.deepEqual(traits, [true, true, 'ZOLT20Error', 'string']);
      // The element can be used as before.
      await person.tab(2);
      await person.type('txtSelectDo', 'x = 1');
      assert.equal((await controlsOf(person)).txtSelectDo.Text, 'x = 1');
      assert.equal(await person.difference(), '');
    });
  }

  withPerson('of a gesture are told by an event, and the person goes on', async (person) => {
    await person.tab(6);
    await person.click('optCase');
    await person.click('cmdNext');
    await person.click('cmdClear');
    await person.click('optCase');
    assert.deepEqual(await person.takeLog(), []);
    await person.click('cmdNext');
    const [{failed}] = await person.takeLog();
    assert.deepEqual([failed?.kind, failed?.number], ['loaded', 360]);
    assert.equal(await person.difference(), '');
    await person.click('cmdNext');
    assert.deepEqual(await person.takeLog(), []);
    assert.equal((await person.dump()).focus, 'TxtExpr(2)');
    assert.equal(await person.difference(), '');
  });

  withPerson('of a gesture carry the error itself, and bubble', async (person, page) => {
    await page.evaluate(
      ([fields]) => {
        Object.assign(host.element, {PrpStrTables: 'TABLE__10', PrpStrFields: fields});
        globalThis.failures = [];
        document.addEventListener('failed', (event) => {
          const {detail, composed} = /** @type {CustomEvent} */ (event);
          failures.push([detail instanceof zolt20.ZOLT20Error, composed]);
        });
      },
      ['TABLE__1.A'],
    );
    await person.takeLog();
    await person.clickRow('lsttables', 0);
    const [{failed}] = await person.takeLog();
    assert.deepEqual([failed?.kind, failed?.number], ['subscript', 9]);
    assert.deepEqual(await page.evaluate(() => failures), [[true, true]]);
    assert.deepEqual((await controlsOf(person)).lstFields.List, ['TABLE__1.*']);
    assert.equal(await person.difference(), '');
  });

  test('that a listener throws go to the page and not to the control', async () => {
    const person = await stage.openElement();
    await person.page.evaluate(() =>
      host.element.addEventListener('eventCancel', () => {
        throw new Error('no answer');
      }),
    );
    await person.click('cmdCancel');
    assert.deepEqual(await person.takeLog(), [{event: 'eventCancel'}]);
    await person.tab(3);
    assert.equal((await controlsOf(person)).tabVrn.Tab, 3);
    const complaints = person.page.complaints.splice(0);
    assert.ok(
      complaints.length > 0 && complaints.every((text) => text.includes('no answer')),
      String(complaints),
    );
    await closePage(person.page);
  });
});

describe('events', () => {
  withPage('bubble, and leave the shadow trees around the element', async (page) => {
    await page.evaluate(() => {
      const around = document.createElement('div');
      document.querySelector('main').append(around);
      const element = document.createElement('zolt20-map-control');
      around.attachShadow({mode: 'open'}).append(element);
      globalThis.host = new Host(element);
      globalThis.seen = [];
      const names = [
        'eventCancel',
        'eventDone',
        'eventSubQuery',
        'eventCondition',
        'eventFunction',
        'propertychanged',
        'historychanged',
        'gesturemade',
        'undone',
        'redone',
      ];
      for (const name of [...names, 'message']) {
        // A message alone stays at the element.
        const target = name === 'message' ? element : document;
        document.addEventListener('message', () =>
          seen.push({name: 'a message that bubbles', isElement: false}),
        );
        target.addEventListener(name, (event) =>
          seen.push({
            name,
            isElement: event.composedPath().includes(element),
            kind: event.constructor.name,
            cancelable: event.cancelable,
          }),
        );
      }
    });
    const person = new Person(page);
    await person.click('cmdCancel');
    await person.click('cmdDone');
    await page.evaluate(() => {
      host.element.prpTab = 2;
    });
    for (const button of ['cmdSubQuery(0)', 'cmdCondition(0)', 'cmdFunction(0)'])
      await person.click(button);
    await person.click('cmdAddSelectDoQuer');
    await person.answerMessages(
      (await person.takeLog()).filter(({message}) => message !== undefined),
    );
    await person.type('txtSelectDo', 'x');
    await page.evaluate(() => {
      host.element.undo();
      host.element.redo();
    });
    const seen = await page.evaluate(() => globalThis.seen);
    assert.ok(seen.every(({isElement}) => isElement));
    /** @type {(name: string) => typeof seen} */
    const of = (name) => seen.filter((event) => event.name === name);
    for (const name of kEvents)
      assert.deepEqual(
        of(name).map(({kind, cancelable}) => [kind, cancelable]),
        [['Event', false]],
        name,
      );
    assert.deepEqual(
      of('propertychanged').map(({kind}) => kind),
      ['CustomEvent'],
    );
    assert.deepEqual(
      of('message').map(({kind, cancelable}) => [kind, cancelable]),
      [['CustomEvent', true]],
    );
    assert.deepEqual(
      of('historychanged')
        .map(({kind}) => kind)
        .at(0),
      'CustomEvent',
    );
    assert.deepEqual([of('undone').length, of('redone').length], [1, 1]);
    assert.ok(of('gesturemade').length > 0);
  });

  withPerson('tell what the person did, for a record', async (person, page) => {
    await page.evaluate(() => {
      globalThis.made = [];
      host.element.addEventListener('gesturemade', () =>
        made.push(/** @type {Gesture | undefined} */ (host.element.madeGesture())),
      );
    });
    assert.equal(await page.evaluate(() => host.element.madeGesture()), undefined);
    await person.tab(1);
    await person.key('txtAsSet', '5'.charCodeAt(0));
    await person.mark('txtAsSet', 0, 1);
    await page.keyboard.press('x');
    await person.type('txtwhereCondition', 'a = 1');
    await person.click('cmdAddWhereQuery');
    assert.deepEqual(await page.evaluate(() => globalThis.made), [
      {user: 'focus', control: 'tabVrn'},
      {user: 'tab', page: 1},
      {user: 'focus', control: 'txtAsSet'},
      {user: 'key', control: 'txtAsSet', code: 53},
      {user: 'key', control: 'txtAsSet', code: 120, from: 0, to: 1},
      {user: 'focus', control: 'txtwhereCondition'},
      {user: 'type', control: 'txtwhereCondition', text: 'a = 1'},
      {user: 'focus', control: 'cmdAddWhereQuery'},
      {user: 'click', control: 'cmdAddWhereQuery'},
    ]);
  });

  withPerson('are answered inside them, at once', async (person, page) => {
    await person.tab(2);
    await page.evaluate(() =>
      host.element.addEventListener('eventFunction', ({target}) => {
        const element = /** @type {ZOLT20MapControlElement} */ (target);
        element.prpSelectDoPart = 'a = `^`x`^`~b';
        globalThis.read = element.prpStrSQLPart;
        globalThis.shown = element.shadowRoot.getElementById('txtSelectDo').value;
      }),
    );
    await person.click('cmdFunction(0)');
    assert.deepEqual(await person.takeLog(), [
      {event: 'eventFunction'},
      {changed: 'prpSelectDoPart'},
    ]);
    assert.equal((await controlsOf(person)).txtSelectDo.Text, 'a = "x"\r\nb');
    assert.equal(await page.evaluate(() => globalThis.read), 'D');
    assert.equal(
      await page.evaluate(() => globalThis.shown),
      'a = "x"\nb',
      'what is written is shown at once',
    );
    assert.equal(await person.difference(), '');
  });

  withPerson('are answered later as well', async (person, page) => {
    await person.tab(3);
    await page.evaluate(() =>
      host.element.addEventListener('eventSubQuery', ({target}) =>
        setTimeout(() => {
          /** @type {ZOLT20MapControlElement} */ (target).prpSelectEOSPart = 'later';
        }, 20),
      ),
    );
    await person.click('cmdSubQuery(1)');
    await person.waitFor(
      'the answer comes',
      async () => (await controlsOf(person)).txtSelectEOS.Text === 'later',
    );
    assert.equal(await person.difference(), '');
  });

  withPerson('may remove the element, or turn its page', async (person, page) => {
    await person.tab(2);
    await page.evaluate(() => {
      host.answers.eventCondition = [{set: 'prpTab', value: 6}];
    });
    await person.click('cmdCondition(0)');
    assert.equal((await controlsOf(person)).tabVrn.Tab, 6);
    assert.equal(await person.difference(), '');
    await page.evaluate(() =>
      host.element.addEventListener('eventCancel', ({target}) =>
        /** @type {Element} */ (target).remove(),
      ),
    );
    await person.click('cmdCancel');
    assert.equal(await page.evaluate(() => document.querySelector('zolt20-map-control')), null);
    assert.equal((await controlsOf(person)).tabVrn.Tab, 6);
  });

  withPerson('of messages may be prevented from showing', async (person, page) => {
    await person.tab(2);
    await page.evaluate(() =>
      host.element.addEventListener('message', (event) => event.preventDefault()),
    );
    await person.click('cmdAddSelectDoQuer');
    assert.equal((await person.takeLog()).length, 1);
    await person.nextFrame();
    assert.equal((await person.place('', 'dialog[open]')).isThere, false);
    await person.tab(3);
    assert.equal((await controlsOf(person)).tabVrn.Tab, 3);
  });

  withPerson('of messages give the focus back where it belongs', async (person) => {
    await person.tab(1);
    await person.click('cmdAnd');
    const messages = await person.takeLog();
    assert.equal(messages.length, 1);
    const {focus} = await person.dump();
    await person.answerMessages(messages);
    assert.equal((await person.dump()).focus, focus);
    assert.equal(await person.at(), focus);
    // By the keyboard: OK has the focus, and Escape does as well.
    await person.press('cmdAnd');
    await person.waitFor(
      'the message shows',
      async () => (await person.place('', 'dialog[open]')).isThere,
    );
    await person.keyboard.press('Enter');
    await person.waitFor(
      'it closes',
      async () => !(await person.place('', 'dialog[open]')).isThere,
    );
    await person.press('cmdAnd');
    await person.waitFor(
      'the message shows',
      async () => (await person.place('', 'dialog[open]')).isThere,
    );
    await person.keyboard.press('Escape');
    await person.waitFor(
      'it closes',
      async () => !(await person.place('', 'dialog[open]')).isThere,
    );
    assert.equal(await person.at(), (await person.dump()).focus);
    assert.equal((await person.takeLog()).length, 2);
  });
});

describe('the bag', () => {
  const kKeys = [
    'PrpStrTables',
    'PrpStrFields',
    'prpSelectPart',
    'prpSelectFromPart',
    'prpSelectWherePart',
    'prpSelectGroupbyPart',
    'prpSelectOrderbyPart',
    'prpSelectAsSetPart',
    'prpSelectDoPart',
    'prpSelectEOSPart',
    'prpSelectEmptyPart',
    'prpSelectErrorPart',
    'prpStrSQLPart',
    'prpTab',
  ];

  withPerson('is a plain object with its keys in order', async (_person, page) => {
    const [bag, isPlain] = await page.evaluate(() => {
      const written = host.element.UserControl_WriteProperties();
      return [written, Object.getPrototypeOf(written) === Object.prototype];
    });
    assert.ok(isPlain);
    assert.deepEqual(Object.keys(bag), kKeys);
    const automation = new Automation();
    assert.equal(JSON.stringify(bag), JSON.stringify((await automation.ask({save: true})).value));
    automation.close();
  });

  withPerson('comes back as it was read, but for the two lists', async (_person, page) => {
    const bag = Object.fromEntries(
      kKeys.map((key) => [key, key === 'prpTab' ? 5 : `text of ${key}`]),
    );
    const written = await page.evaluate((values) => {
      host.element.UserControl_ReadProperties(values);
      return host.element.UserControl_WriteProperties();
    }, bag);
    const automation = new Automation();
    await automation.ask({new: {bag}});
    assert.equal(
      JSON.stringify(written),
      JSON.stringify((await automation.ask({save: true})).value),
    );
    assert.equal(written.prpTab, 5);
    assert.equal(written.prpSelectErrorPart, 'text of prpSelectErrorPart');
    assert.notEqual(written.PrpStrTables, 'text of PrpStrTables');
    automation.close();
  });

  withPerson(
    'takes its defaults for what is missing, and passes over other keys',
    async (_person, page) => {
      const written = await page.evaluate(() => {
        host.element.UserControl_ReadProperties({prpSelectDoPart: 'a', other: {}});
        return host.element.UserControl_WriteProperties();
      });
      const automation = new Automation();
      await automation.ask({new: {bag: {prpSelectDoPart: 'a'}}});
      assert.equal(
        JSON.stringify(written),
        JSON.stringify((await automation.ask({save: true})).value),
      );
      automation.close();
    },
  );

  withPerson(
    'refuses values of another type, and numbers outside of 16 bits',
    async (person, page) => {
      const before = await page.evaluate(() =>
        JSON.stringify(host.element.UserControl_WriteProperties()),
      );
      const came = await page.evaluate(() => {
        /** @type {(bag: unknown) => string} */
        const tries = (bag) => {
          try {
            host.element.UserControl_ReadProperties(/** @type {Record<string, unknown>} */ (bag));
            return 'done';
          } catch (error) {
            return error instanceof zolt20.ZOLT20Error
              ? `${error.kind} ${error.number}`
              : /** @type {Error} */ (error).constructor.name;
          }
        };
        return [
          {prpTab: '1'},
          {prpTab: 1.5},
          {prpTab: true},
          {prpTab: null},
          {prpSelectPart: 1},
          {prpSelectPart: null},
          {prpSelectDoPart: {}},
          {mPrpStrTables: 1},
          undefined,
          null,
          'text',
          {prpTab: 32768},
          {prpTab: -32769},
        ].map(tries);
      });
      assert.deepEqual(came, [...Array(11).fill('TypeError'), 'overflow 6', 'overflow 6']);
      assert.equal(
        await page.evaluate(() => JSON.stringify(host.element.UserControl_WriteProperties())),
        before,
      );
      await person.tab(1);
      assert.equal(await person.difference(), '');
    },
  );
});

describe('an element', () => {
  test('that is there before it is defined gets what was written on it, in order', async () => {
    const person = await stage.openElement({}, 'early.html');
    const found = await person.page.evaluate(() => ({
      early,
      dumps: [...document.querySelectorAll('zolt20-map-control')].map((element) => element.dump()),
      own: [...document.querySelectorAll('zolt20-map-control')].map((element) =>
        Object.keys(element),
      ),
      undo: [...document.querySelectorAll('zolt20-map-control')].map(
        (element) => element.undoEnabled,
      ),
    }));
    assert.equal(found.early.wasDefined, false);
    assert.deepEqual(found.early.log, [
      'tables-first PrpStrTables',
      'tables-first PrpStrFields',
      'tables-first prpSelectFromPart',
      'tables-last prpSelectFromPart',
      'tables-last PrpStrFields',
      'tables-last PrpStrTables',
      'tables-last prpTab',
    ]);
    const [first, last, untouched] = found.dumps.map(({controls}) => controls);
    assert.deepEqual(first.lsttables.Selected, [true, false]);
    assert.deepEqual(last.lsttables.Selected, [false, false]);
    assert.deepEqual([first.tabVrn.Tab, last.tabVrn.Tab, untouched.tabVrn.Tab], [0, 6, 0]);
    assert.deepEqual(untouched.lsttables.List, []);
    assert.deepEqual(found.undo, [false, true, true]);
    for (const own of found.own) {
      assert.deepEqual(
        own.filter((name) => kMembers.some((member) => member.name === name)),
        [],
        'nothing hides a member',
      );
    }
    await closePage(person.page);
  });

  withPage('is whole as soon as it is made, in whatever way', async (page) => {
    const dumps = await page.evaluate(() => {
      const main = document.querySelector('main');
      const made = document.createElement('zolt20-map-control');
      const news = new zolt20.ZOLT20MapControlElement();
      main.innerHTML = '<p><zolt20-map-control></zolt20-map-control></p>';
      const parsed = main.querySelector('zolt20-map-control');
      const cloned = /** @type {typeof parsed} */ (parsed.cloneNode(true));
      const imported = document.importNode(parsed, true);
      return [made, news, parsed, cloned, imported].map((element) => {
        element.PrpStrTables = 'TABLE__10';
        return JSON.stringify(element.dump());
      });
    });
    const automation = new Automation();
    await automation.ask({set: 'PrpStrTables', value: 'TABLE__10'});
    const expected = JSON.stringify(await automation.dump());
    automation.close();
    assert.deepEqual(dumps, Array(5).fill(expected));
  });

  withPerson('that is cloned is a new one', async (person, page) => {
    await writeCatalogue(person);
    await person.tab(2);
    const clone = JSON.parse(
      await page.evaluate(() => {
        const clone = /** @type {typeof host.element} */ (host.element.cloneNode(true));
        return JSON.stringify(clone.dump());
      }),
    );
    const automation = new Automation();
    assert.deepEqual(clone, await automation.dump());
    automation.close();
  });

  withPerson('that moves keeps its state, and works', async (person, page) => {
    await writeCatalogue(person);
    await person.clickRow('lsttables', 1);
    await person.tab(2);
    await person.type('txtSelectDo', 'a\nb');
    const before = await person.dump();
    await page.evaluate(() => document.body.append(host.element));
    assert.deepEqual(await person.dump(), before);
    assert.equal(await person.difference(), '');
    await person.type('txtSelectDo', 'c');
    await person.tab(0);
    await person.clickRow('lsttables', 0);
    const {controls} = await person.dump();
    assert.equal(controls.txtSelectDo.Text, 'c');
    assert.deepEqual(controls.lsttables.Selected, [true, true]);
    assert.equal(await person.difference(), '');
  });

  withPerson('that is taken out and put back is the same', async (person, page) => {
    await person.tab(6);
    await person.click('optFor');
    const before = await person.dump();
    await page.evaluate(() => host.element.remove());
    // A host may write while it is in no page.
    await page.evaluate(() => {
      host.element.Syntax_Highlight = true;
    });
    await page.evaluate(() => document.querySelector('#before').after(host.element));
    const behind = await person.dump();
    assert.equal(behind.controls.TxtOutput.Highlight, true);
    assert.deepEqual(behind.controls.tabVrn, before.controls.tabVrn);
    assert.deepEqual(behind.controls.optFor, before.controls.optFor);
    assert.equal(await person.difference(), '');
    await person.type('txtVariable', ':var.i');
    assert.equal((await controlsOf(person)).txtVariable.Text, ':var.i');
    assert.equal(await person.difference(), '');
  });

  withPerson('may be hidden, and shows then what came meanwhile', async (person, page) => {
    await page.evaluate(() => {
      host.element.hidden = true;
    });
    assert.equal((await person.place('cmdDone')).isThere, false);
    await writeCatalogue(person);
    await page.evaluate(() => {
      host.element.hidden = false;
    });
    await person.nextFrame();
    assert.equal(await person.difference(), '');
    await person.clickRow('lsttables', 1);
    assert.deepEqual((await controlsOf(person)).lsttables.Selected, [false, true]);
  });

  withPerson('makes a page when it is shown, with what came meanwhile', async (person, page) => {
    const kPages = [0, 1, 2, 3, 4, 5, 6];
    const made = () =>
      page.evaluate((pages) => pages.filter((number) => !host.isEmpty(number)), kPages);
    await page.evaluate(() => {
      host.element.readOnly = true;
      host.element.Syntax_Highlight = true;
      host.element.prpSelectDoPart = 'a~b';
    });
    assert.deepEqual(await made(), [0]);
    await page.evaluate(() => {
      host.element.prpTab = 2;
    });
    assert.deepEqual(await made(), [0, 2]);
    const box = await page.evaluate(() => {
      const {value, readOnly} = host.find('txtSelectDo', '');
      return {value, readOnly};
    });
    assert.deepEqual(box, {value: 'a\nb', readOnly: true});
    await page.evaluate(() => {
      host.element.readOnly = false;
    });
    assert.equal(await person.difference(), '');
    // Turned by a listener, in the middle of a gesture.
    await page.evaluate(() => {
      host.answers.eventFunction = [{set: 'prpTab', value: 6}];
    });
    await person.click('cmdFunction(0)');
    assert.deepEqual(await made(), [0, 2, 6]);
    assert.equal(await person.difference(), '');
    await person.click('optCase');
    await person.click('cmdNext');
    assert.equal(await person.difference(), '');
    await person.takeLog();
  });

  withPage('does not mix with others of its page', async (page) => {
    await page.evaluate(() => {
      const main = document.querySelector('main');
      globalThis.hosts = [1, 2, 3].map((number) => {
        const element = document.createElement('zolt20-map-control');
        main.append(element);
        element.PrpStrTables = `TABLE__${number}0`;
        return new Host(element);
      });
    });
    const person = new Person(page);
    for (const index of [0, 1, 2]) {
      await page.evaluate((at) => {
        globalThis.host = hosts[at];
        host.takeLog();
      }, index);
      await person.tab(index + 2);
      await person.click(`cmdFunction(${index})`);
    }
    for (const index of [0, 1, 2]) {
      await page.evaluate((at) => {
        globalThis.host = hosts[at];
      }, index);
      const {controls} = await person.dump();
      assert.deepEqual(controls.lsttables.List, [`TABLE__${index + 1}`]);
      assert.equal(controls.tabVrn.Tab, index + 2);
      assert.deepEqual(await person.takeLog(), [{event: 'eventFunction'}]);
      assert.equal(await page.evaluate(() => host.element.prpStrSQLPart), 'DEO'[index]);
      assert.equal(await person.difference(), '');
    }
  });

  withPage('may have a message while it is in no page', async (page) => {
    const message = await page.evaluate(() => {
      const element = document.createElement('zolt20-map-control');
      globalThis.host = new Host(element);
      // A whole table that is named like a function is refused with a message.
      Object.assign(element, {
        PrpStrTables: 'sum_____0',
        PrpStrFields: 'char*Q*V*R*N*Nsum_____.A*Q*V*R*N*text',
      });
      element.prpSelectFromPart = 'sum_____,';
      element.prpSelectPart = 'sum_____,x';
      return host.log.find(({message}) => message !== undefined)?.message;
    });
    assert.equal(typeof message, 'string', 'no message came');
    await page.evaluate(() => document.querySelector('main').append(host.element));
    const person = new Person(page);
    await person.answerMessages(
      (await person.takeLog()).filter((entry) => entry.message !== undefined),
    );
    await person.tab(1);
    assert.equal((await controlsOf(person)).tabVrn.Tab, 1);
    assert.equal(await person.difference(), '');
  });

  withPerson('gives the focus to the control that has it', async (person, page) => {
    await person.tab(2);
    await person.focus('txtSelectDo');
    await person.mouse.click(5, 5);
    await page.focus('#before');
    assert.equal(await person.at(), '#before');
    await page.evaluate(() => host.element.focus());
    assert.equal(await person.at(), 'txtSelectDo');
  });

  withPerson('takes no focus from the page when its host writes', async (person, page) => {
    await page.focus('#behind');
    await page.evaluate(() => {
      host.element.prpTab = 3;
    });
    assert.equal((await person.dump()).focus, 'txtSelectEOS');
    assert.equal(await person.at(), '#behind');
  });
});

describe('the keyboard', () => {
  withPerson('stays where it is when the person presses beside the controls', async (person) => {
    await person.tab(6);
    assert.equal(await person.at(), 'tabVrn');
    // A button that is disabled takes no focus from the page that was chosen.
    const button = await person.place('cmdBuild');
    assert.deepEqual([button.isOnTop, button.isEnabled], [true, false]);
    await person.mouse.click(button.x, button.y);
    assert.equal(await person.at(), 'tabVrn');
    await person.keyboard.press('ArrowLeft');
    assert.equal((await controlsOf(person)).tabVrn.Tab, 5);
    await person.tab(2);
    await person.type('txtSelectDo', 'abc');
    const label = await person.place('Label26');
    await person.mouse.click(label.x, label.y);
    assert.equal(await person.at(), 'txtSelectDo');
    await person.keyboard.type('d');
    assert.equal((await controlsOf(person)).txtSelectDo.Text, 'abcd');
  });
});

describe('the classic script', () => {
  /** @type {(address: string) => Promise<void>} */
  const useIt = async (address) => {
    const person = await stage.openElement({}, address);
    await writeCatalogue(person);
    await person.clickRow('lsttables', 0);
    await person.tab(2);
    await person.type('txtSelectDo', 'x\ny');
    await person.click('cmdCancel');
    assert.deepEqual(await person.takeLog(), [{event: 'eventCancel'}]);
    const {controls} = await person.dump();
    assert.deepEqual(
      [controls.lsttables.Selected, controls.txtSelectDo.Text],
      [[true, false], 'x\r\ny'],
    );
    assert.equal(await person.difference(), '');
    await closePage(person.page);
  };
  test('works from a server', () => useIt('classic.html'));
  test('works from files', async () => {
    const folder = mkdtempSync(path.join(tmpdir(), 'zolt20-'));
    try {
      mkdirSync(path.join(folder, 'package'));
      for (const file of ['classic.html', 'classic.js', 'host.js', 'page.css']) {
        copyFileSync(path.join(kTests, 'pages', file), path.join(folder, file));
      }
      const script = 'package/zolt20-map-control.classic.js';
      copyFileSync(path.join(kPackage, path.basename(script)), path.join(folder, script));
      await useIt(pathToFileURL(path.join(folder, 'classic.html')).href);
    } finally {
      rmSync(folder, {recursive: true});
    }
  });
});

describe('texts', () => {
  const kTexts = {
    nothing: '',
    'a NUL': 'a\u0000b\u0000',
    'halves of pairs': '\ud800a\udc00\udbff',
    pairs: '\u{1f600}\u{10ffff}',
    'a byte order mark': '\ufeffa\ufeff\ufffe\uffff',
    'line ends': 'a\rb\nc\r\nd\r\n\r\n\n\r',
    'what is encoded': 'a~\u0001b`^`c*zlt*d',
    'separators of lines': '\u2028\u2029\u0085\u000b\u000c',
    'a combined letter': 'e\u0301\u05d0\u0627',
    many: '\u00e4x'.repeat(300000),
  };
  for (const [name, text] of Object.entries(kTexts)) {
    withPerson(`of ${name} come back from the bag as they went`, async (_person, page) => {
      const isSame = await page.evaluate((json) => {
        const value = JSON.parse(json);
        host.element.UserControl_ReadProperties({prpSelectPart: value, prpStrSQLPart: value});
        const {prpSelectPart, prpStrSQLPart} = host.element.UserControl_WriteProperties();
        return [
          prpSelectPart === value,
          prpStrSQLPart === value,
          host.element.prpStrSQLPart === value,
        ];
      }, JSON.stringify(text));
      assert.deepEqual(isSame, [true, true, true]);
    });
    withPerson(`of ${name} come into the Result as everywhere`, async (person) => {
      const automation = new Automation();
      for (const request of [
        {set: 'prpTab', value: 6},
        {set: 'prpStroutput', value: text},
        {get: 'prpStroutput'},
      ]) {
        const {log, ...expected} = await automation.ask(request);
        assert.deepEqual(await person.carryOut(JSON.stringify(request)), expected);
      }
      assert.deepEqual(await person.dump(), await automation.dump());
      automation.close();
    });
  }

  const kTyped = {
    letters: 'a = "b" ~ `^`',
    lines: 'a\nb\n\nc',
    'a tab': 'a\tb',
    pairs: '\u{1f600}',
    'a byte order mark': '\ufeffa',
    'other letters': 'e\u0301 \u05d0\u05d1 \u0627',
  };
  for (const [name, text] of Object.entries(kTyped)) {
    withPerson(`of ${name} are typed as they are`, async (person) => {
      const crLf = text.replace(/\n/g, '\r\n');
      await person.tab(2);
      await person.type('txtSelectDo', text);
      assert.equal((await controlsOf(person)).txtSelectDo.Text, crLf);
      assert.equal(await person.difference(), '');
      await person.tab(1);
      await person.type('txtwhereCondition', text);
      assert.equal((await controlsOf(person)).txtwhereCondition.Text, crLf);
      if (!text.includes('\n')) {
        await person.type('cboWhereFields1', text);
        assert.equal((await controlsOf(person)).cboWhereFields1.Text, text);
      }
      assert.equal(await person.difference(), '');
    });
  }

  withPerson('are copied, cut and pasted with their line ends', async (person) => {
    await person.tab(6);
    await person.carryOut(JSON.stringify({set: 'prpStroutput', value: 'a~b~c'}));
    assert.equal((await controlsOf(person)).TxtOutput.Text, 'a\r\nb\r\nc');
    await person.focus('TxtOutput');
    for (const key of ['Control+A', 'Control+C']) await person.keyboard.press(key);
    await person.tab(2);
    await person.focus('txtSelectDo');
    await person.keyboard.press('Control+V');
    await person.keyboard.press('Control+V');
    assert.equal((await controlsOf(person)).txtSelectDo.Text, 'a\r\nb\r\nca\r\nb\r\nc');
    assert.equal(await person.difference(), '');
    await person.keyboard.press('Control+A');
    await person.keyboard.press('Control+X');
    assert.equal((await controlsOf(person)).txtSelectDo.Text, '');
    // In a box of one line the line ends stay in the text.
    await person.tab(6);
    await person.click('optIfThen');
    await person.focus('txtCond');
    await person.keyboard.press('Control+V');
    const {Text} = (await controlsOf(person)).txtCond;
    assert.equal(Text.replace(/\r\n/g, '|'), 'a|b|ca|b|c');
    await person.keyboard.press('End');
    await person.keyboard.type('!');
    assert.equal((await controlsOf(person)).txtCond.Text, `${Text}!`);
  });

  withPerson(
    'keep line ends of other kinds outside of the place that is edited',
    async (person, page) => {
      await page.evaluate(() => {
        host.element.UserControl_ReadProperties({});
        host.element.prpTab = 2;
        host.element.prpSelectDoPart = '*zlt*a\rb\nc~d';
      });
      const {Text} = (await controlsOf(person)).txtSelectDo;
      assert.equal(Text, 'a\rb\nc\r\nd');
      await person.focus('txtSelectDo');
      await person.keyboard.press('Control+End');
      await person.keyboard.type('e');
      assert.equal((await controlsOf(person)).txtSelectDo.Text, 'a\rb\nc\r\nde');
      await person.keyboard.press('Enter');
      assert.equal((await controlsOf(person)).txtSelectDo.Text, 'a\rb\nc\r\nde\r\n');
      await person.keyboard.press('Control+Home');
      await person.keyboard.press('Delete');
      assert.equal((await controlsOf(person)).txtSelectDo.Text, '\rb\nc\r\nde\r\n');
    },
  );

  withPerson('that are typed key by key come to the same as those at once', async (person) => {
    await person.tab(6);
    await person.click('optIfThen');
    await person.typeKeys('txtCond', 'a > (b)');
    await person.typeKeys('txtStmt1', 'x = 1\ny = 2');
    await person.keyboard.press('ArrowUp');
    await person.keyboard.press('Home');
    await person.keyboard.type('Q');
    const {txtCond, txtStmt1} = await controlsOf(person);
    assert.deepEqual([txtCond.Text, txtStmt1.Text], ['a > (b)', 'Qx = 1\r\ny = 2']);
    assert.equal(await person.difference(), '');
  });

  withPerson('take a tab by Control and Tab', async (person) => {
    await person.tab(2);
    await person.typeKeys('txtSelectDo', 'a');
    await person.keyboard.press('Control+Tab');
    await person.keyboard.type('b');
    assert.equal((await controlsOf(person)).txtSelectDo.Text, 'a\tb');
  });
});

describe('the history', () => {
  withPerson('takes back and does again what the person did', async (person, page) => {
    await writeCatalogue(person);
    const states = [await person.dump()];
    const steps = [
      () => person.clickRow('lsttables', 0),
      () => person.clickRow('lstFields', 1),
      () => person.click('cmdMoveOne'),
      () => person.click('cmdAddSelect'),
    ];
    for (const step of steps) {
      await step();
      states.push(await person.dump());
    }
    await person.takeLog();
    /** @type {(dump: Dump) => string} */
    const lists = ({controls}) =>
      JSON.stringify([
        controls.lsttables,
        controls.lstFields,
        controls.lstSelectedFields,
        controls.TxtOutput,
      ]);
    for (let at = steps.length - 1; at >= 0; --at) {
      assert.equal(await page.evaluate(() => host.element.canUndo), true);
      if (at % 2 === 0) await person.press('undo');
      else await page.evaluate(() => host.element.undo());
      assert.equal(lists(await person.dump()), lists(states[at]), `step ${at}`);
      assert.equal(await person.difference(), '');
    }
    assert.deepEqual(await page.evaluate(() => [host.element.canUndo, host.element.canRedo]), [
      false,
      true,
    ]);
    for (let at = 1; at <= steps.length; ++at) {
      await person.press('redo');
      assert.equal(lists(await person.dump()), lists(states[at]), `step ${at}`);
    }
    assert.deepEqual(await person.takeLog(), [
      ...Array(4).fill({undone: true}),
      ...Array(4).fill({redone: true}),
    ]);
    assert.equal(await person.difference(), '');
  });

  withPerson(
    'is forgotten when the host writes, but for answers and steps',
    async (person, page) => {
      const canUndo = () => page.evaluate(() => host.element.canUndo);
      await person.tab(2);
      await page.evaluate(() => {
        host.answers.eventFunction = [{set: 'prpSelectDoPart', value: 'f()'}];
      });
      await person.click('cmdFunction(0)');
      assert.equal(await canUndo(), true);
      await page.evaluate(() => host.element.undo());
      assert.equal((await controlsOf(person)).txtSelectDo.Text, '');
      const [given, before] = await page.evaluate(() => {
        const value = host.element.asStep(() => {
          host.element.prpSelectDoPart = 'a';
          host.element.prpSelectDoPart = 'b';
          return 5;
        });
        return [value, host.element.dump().controls.txtSelectDo.Text];
      });
      assert.notEqual(before, '');
      assert.ok(given === 5 || given === undefined);
      assert.equal(await canUndo(), true);
      await page.evaluate(() => host.element.undo());
      assert.equal((await controlsOf(person)).txtSelectDo.Text, '', 'both writes are one step');
      await page.evaluate(() => host.element.redo());
      assert.equal((await controlsOf(person)).txtSelectDo.Text, before);
      await page.evaluate(() => {
        host.element.prpSelectDoPart = 'c';
      });
      assert.equal(await canUndo(), false);
      await page.evaluate(() => {
        host.element.undoEnabled = false;
      });
      await person.type('txtSelectDo', 'z');
      assert.deepEqual(
        await page.evaluate(() => [host.element.undoEnabled, host.element.canUndo]),
        [false, false],
      );
      assert.equal(
        await page.evaluate(() => {
          host.element.undo();
          return host.element.dump().controls.txtSelectDo.Text;
        }),
        'z',
      );
    },
  );

  withPerson('tells when it can be used', async (person, page) => {
    await page.evaluate(() => {
      globalThis.histories = [];
      host.element.addEventListener('historychanged', ({detail}) =>
        histories.push([detail.canUndo, detail.canRedo]),
      );
    });
    await person.tab(2);
    await person.type('txtSelectDo', 'a');
    await page.evaluate(() => host.element.undo());
    await page.evaluate(() => host.element.redo());
    const told = await page.evaluate(() => histories);
    assert.deepEqual(told.at(0), [true, false]);
    assert.ok(told.some(([, canRedo]) => canRedo));
    assert.deepEqual(told.at(-1), [true, false]);
  });

  withPerson('works by keys, within a box first', async (person) => {
    await person.tab(2);
    await person.typeKeys('txtSelectDo', 'abc');
    await person.tab(3);
    await person.keyboard.press('Control+Z');
    assert.equal((await controlsOf(person)).tabVrn.Tab, 2);
    await person.keyboard.press('Control+Z');
    assert.equal((await controlsOf(person)).txtSelectDo.Text, '');
    await person.keyboard.press('Control+Shift+Z');
    assert.equal((await controlsOf(person)).txtSelectDo.Text, 'abc');
    assert.equal(await person.difference(), '');
  });
});

describe('names of tables', () => {
  /** @type {(page: Page) => Promise<string[]>} */
  const shownRows = (page) =>
    page.evaluate(() =>
      [...host.on('lsttables').querySelectorAll('[role=option]')].map((row) => row.textContent),
    );
  withPerson('stand beside their rows and are found by the filter', async (person, page) => {
    await writeCatalogue(person);
    await page.evaluate(() => {
      host.element.tableNames = {TABLE__2: 'Orders', other: 'nothing'};
    });
    await person.nextFrame();
    let rows = await shownRows(page);
    assert.equal(rows[0], 'TABLE__1');
    assert.ok(rows[1].includes('TABLE__2') && rows[1].includes('Orders'), rows[1]);
    await person.press('lsttables.filter');
    await person.keyboard.type('oRd');
    await person.nextFrame();
    rows = await shownRows(page);
    assert.equal(rows.length, 1);
    await person.press('lsttables', '[data-row="1"]');
    assert.deepEqual((await controlsOf(person)).lsttables.Selected, [false, true]);
    await page.evaluate(() => {
      host.element.tableNames = new Map([['TABLE__1', 'Ordinary']]);
    });
    await person.nextFrame();
    assert.deepEqual(
      (await shownRows(page)).map((row) => row.includes('Ordinary')),
      [true],
    );
  });
});
