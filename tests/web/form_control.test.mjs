// The element as a control of a form.
import assert from 'node:assert/strict';
import {after, before, describe, test} from 'node:test';

import {closePage, Stage} from './harness.mjs';

/** @import {Page} from 'playwright-core' */
/** @import {Person} from './harness.mjs' */

const kMost = 60000;

/** @type {Stage} */
let stage;
/** @type {Person} */
let person;
/** @type {Page} */
let page;
before(async () => {
  stage = await Stage.open();
  person = await stage.openElement({}, 'form.html');
  ({page} = person);
});
after(() => stage?.close());

/// A test in the page with the form, loaded anew.
/** @type {(name: string, act: () => Promise<void>) => void} */
function withForm(name, act) {
  test(name, {timeout: kMost}, async () => {
    await page.goto(`${stage.address}/form.html`);
    await page.waitForFunction(() => globalThis.host !== undefined);
    await page.evaluate(() => {
      globalThis.picks = [];
      document.querySelector('form').addEventListener('submit', (event) => {
        event.preventDefault();
        picks.push('submit');
      });
    });
    await act();
    assert.deepEqual(page.complaints.splice(0), []);
  });
}
const sent = () => page.evaluate(() => new FormData(document.querySelector('form')).get('rule'));
const result = async () => (await person.dump()).controls.TxtOutput.Text;
/// Chooses and adds a whole statement.
const composeStatement = async () => {
  await person.clickRow('lsttables', 0);
  await person.clickRow('lstFields', 1);
  await person.click('cmdMoveOne');
  await person.click('cmdAddSelect');
};
/** @type {(names: string[]) => Promise<void>} */
const hear = (names) =>
  page.evaluate((all) => {
    for (const name of all) document.addEventListener(name, () => picks.push(name));
  }, names);
const heard = () => page.evaluate(() => picks.splice(0));

describe('the value', () => {
  withForm('is the Result, as it stands and not as a read of the property makes it', async () => {
    assert.equal(await sent(), '');
    await composeStatement();
    const text = await result();
    assert.match(text, /^select/);
    await page.evaluate(() => {
      host.element.prpintTabcount = 1;
    });
    assert.equal(await sent(), text);
    assert.equal(await sent(), text);
    assert.equal(await page.evaluate(() => host.element.value), text);
    assert.equal(await result(), text);
    // The property's own read moves it by a tab, and the form gets that.
    const read = await page.evaluate(() => host.element.prpStroutput);
    assert.notEqual(read, text);
    assert.equal(await sent(), read);
  });

  withForm('stands in no form without a name, and not while it is disabled', async () => {
    const entries = await page.evaluate(() => {
      const form = document.querySelector('form');
      const names = () => [...new FormData(form).keys()];
      const named = names();
      host.element.disabled = true;
      const disabled = names();
      host.element.disabled = false;
      host.element.removeAttribute('name');
      return [named, disabled, names(), [host.element.name]];
    });
    assert.deepEqual(entries, [['rule'], [], [], ['']]);
  });

  withForm('is there when the person is done', async () => {
    await page.evaluate(() =>
      host.element.addEventListener('eventDone', () => {
        globalThis.read = String(new FormData(document.querySelector('form')).get('rule'));
      }),
    );
    await composeStatement();
    await person.click('cmdDone');
    assert.equal(await page.evaluate(() => globalThis.read), await result());
  });

  withForm('that a person changes is told by input and change', async () => {
    await hear(['input', 'change', 'gesturemade']);
    await person.press('lsttables.filter');
    await person.keyboard.type('1');
    await person.tab(2);
    await person.type('txtSelectDo', 'y = 2');
    assert.deepEqual(
      (await heard()).filter((name) => name !== 'gesturemade'),
      [],
      'other boxes are none of it',
    );
    await person.tab(0);
    await composeStatement();
    assert.deepEqual((await heard()).slice(-3), ['input', 'change', 'gesturemade']);
    await person.typeKeys('TxtOutput', 'ab');
    assert.deepEqual(
      (await heard()).filter((name) => name !== 'gesturemade'),
      ['input', 'input'],
    );
    await person.press('', '#behind, [data-page="1"]');
    assert.deepEqual(
      (await heard()).filter((name) => name !== 'gesturemade'),
      ['change'],
    );
    await page.evaluate(() => host.element.undo());
    assert.deepEqual(await heard(), []);
    await person.keyboard.press('Control+z');
    assert.deepEqual(await heard(), ['input', 'change']);
    await page.evaluate(() => {
      host.element.prpStroutput = 'more';
    });
    assert.deepEqual(await heard(), [], 'what the host writes the host knows');
  });
});

describe('the form', () => {
  withForm('and the element know each other', async () => {
    const found = await page.evaluate(() => {
      const form = document.querySelector('form');
      const {element} = host;
      return {
        isForm: element.form === form,
        isListed: [...form.elements].includes(element),
        isNamed: form.elements.namedItem('rule') === element,
        labels: [...element.labels].map(({textContent}) => textContent),
        type: element.type,
        isAssociated: zolt20.ZOLT20MapControlElement.formAssociated,
      };
    });
    assert.deepEqual(found, {
      isForm: true,
      isListed: true,
      isNamed: true,
      labels: ['Rule of the map'],
      type: 'zolt20-map-control',
      isAssociated: true,
    });
  });

  withForm('has a label that names it and gives it the focus', async () => {
    await page.locator('form > label').click();
    assert.equal(await person.at(), 'tabVrn');
    const session = await page.context().newCDPSession(page);
    const {nodes} = await session.send('Accessibility.getFullAXTree');
    const named = nodes.filter(({name}) => name?.value === 'Rule of the map');
    assert.deepEqual(
      named.filter(({role}) => role?.value === 'group').length,
      1,
      JSON.stringify(named.map(({role}) => role)),
    );
  });

  withForm('that is reset leaves what the page gave', async () => {
    await page.evaluate(() => {
      host.element.PrpStrTables = 'TABLE__30';
      host.element.Syntax_Highlight = true;
    });
    await composeStatement();
    await page.evaluate(() => {
      host.element.prpSelectErrorPart = 'e';
    });
    assert.notEqual(await result(), '');
    await page.locator('#again').click();
    const {controls} = await person.dump();
    assert.equal(controls.TxtOutput.Text, '');
    assert.deepEqual(controls.lsttables.List, ['TABLE__1', 'TABLE__2', 'TABLE__3']);
    assert.deepEqual(controls.lsttables.Selected, [false, false, false]);
    assert.deepEqual(controls.lstSelectedFields.List, []);
    assert.deepEqual([controls.txtSelectDo.Text, controls.txtSelectError.Text], ['x = 1', '']);
    assert.deepEqual([controls.tabVrn.Tab, controls.TxtOutput.Highlight], [0, true]);
    assert.equal(await sent(), '');
    assert.equal(await person.difference(), '');
    assert.equal(await page.evaluate(() => host.element.canUndo), false);
    await composeStatement();
    assert.match(await result(), /TABLE__1/);
  });

  withForm('may be reset within an event', async () => {
    await composeStatement();
    await page.evaluate(() =>
      host.element.addEventListener('eventDone', () => document.querySelector('form').reset()),
    );
    await person.click('cmdDone');
    await person.waitFor('it is reset', async () => (await result()) === '');
    assert.equal(await person.difference(), '');
  });

  test('comes back with what stood in it', {timeout: kMost}, async () => {
    const back = await stage.openElement({}, 'form.html');
    await back.clickRow('lsttables', 0);
    await back.clickRow('lstFields', 1);
    await back.click('cmdMoveOne');
    await back.click('cmdAddSelect');
    await back.tab(3);
    const text = (await back.dump()).controls.TxtOutput.Text;
    assert.match(text, /^select[\s\S]*\r\n/);
    await back.page.goto(`${stage.address}/blank.html`);
    await back.page.goBack();
    await back.page.waitForFunction(() => globalThis.host !== undefined);
    await back.waitFor(
      'the Result is back',
      async () => (await back.dump()).controls.TxtOutput.Text === text,
    );
    const {controls} = await back.dump();
    assert.deepEqual([controls.tabVrn.Tab, controls.lsttables.List.length], [3, 2]);
    assert.equal(
      await back.page.evaluate(() => new FormData(document.querySelector('form')).get('rule')),
      text,
    );
    assert.equal(await back.page.evaluate(() => host.element.canUndo), false);
    assert.equal(await back.difference(), '');
    await closePage(back.page);
  });
});

describe('what is required', () => {
  withForm('is a Result', async () => {
    const states = await page.evaluate(() => {
      const {element} = host;
      const state = () => [
        element.willValidate,
        element.checkValidity(),
        element.validity.valueMissing,
        element.validationMessage,
      ];
      const free = state();
      element.required = true;
      const empty = state();
      element.readOnly = true;
      const read = element.willValidate;
      element.readOnly = false;
      element.disabled = true;
      const disabled = element.willValidate;
      element.disabled = false;
      return {free, empty, read, disabled, isReflected: element.hasAttribute('required')};
    });
    assert.deepEqual(states, {
      free: [true, true, false, ''],
      empty: [true, false, true, 'Please compose a statement.'],
      read: false,
      disabled: false,
      isReflected: true,
    });
    await page.locator('#send').click();
    assert.deepEqual(await heard(), [], 'it is not sent');
    assert.equal(await person.at(), 'TxtOutput');
    await person.keyboard.type('x');
    assert.equal(await page.evaluate(() => host.element.checkValidity()), true);
    await page.locator('#send').click();
    assert.deepEqual(await heard(), ['submit']);
  });

  withForm('may be more, by words of the page', async () => {
    const told = await page.evaluate(() => {
      const {element} = host;
      let invalid = 0;
      element.addEventListener('invalid', (event) => {
        event.preventDefault();
        ++invalid;
      });
      element.setCustomValidity('No such rule');
      const told = [
        element.validity.customError,
        element.validationMessage,
        element.reportValidity(),
        element.matches(':invalid'),
        invalid,
      ];
      element.setCustomValidity('');
      return [...told, element.checkValidity(), element.matches(':valid')];
    });
    assert.deepEqual(told, [true, 'No such rule', false, true, 1, true, true]);
  });
});

describe('an element that is disabled', () => {
  withForm('by its fieldset takes nothing, and tells it', async () => {
    await page.evaluate(() => {
      document.querySelector('fieldset').disabled = true;
    });
    const before = await person.dump();
    const place = await person.place('lsttables', '[data-row="0"]');
    await page.mouse.click(place.x, place.y);
    await page.locator('form > label').click();
    assert.equal(await person.at(), 'body');
    await page.keyboard.press('Tab');
    assert.equal(await person.at(), '#send');
    await page.evaluate(() => host.element.focus());
    assert.equal(await person.at(), '#send');
    assert.deepEqual(await person.dump(), before);
    const looks = await page.evaluate(() => [
      host.element.matches(':disabled'),
      host.element.disabled,
      Number(getComputedStyle(host.element).opacity) < 1,
    ]);
    assert.deepEqual(looks, [true, false, true]);
    const session = await page.context().newCDPSession(page);
    const {nodes} = await session.send('Accessibility.getFullAXTree');
    const {properties} =
      nodes.find(({name, role}) => role?.value === 'group' && name?.value === 'Rule of the map') ??
      assert.fail('nothing is named');
    assert.equal(properties?.find(({name}) => name === 'disabled')?.value.value, true);
    // The host goes on with it.
    await page.evaluate(() => {
      host.element.prpTab = 2;
      document.querySelector('fieldset').disabled = false;
    });
    assert.equal((await person.dump()).controls.tabVrn.Tab, 2);
    await person.tab(0);
    await composeStatement();
    assert.match(await result(), /TABLE__1/);
  });

  withForm('by its attribute is one as well', async () => {
    const states = await page.evaluate(() => {
      const {element} = host;
      element.disabled = true;
      const set = [element.hasAttribute('disabled'), element.matches(':disabled')];
      element.removeAttribute('disabled');
      return [...set, element.disabled, element.matches(':disabled')];
    });
    assert.deepEqual(states, [true, true, false, false]);
  });
});

describe('an element that can only be read', () => {
  const readOnly = () =>
    page.evaluate(() => {
      host.element.readOnly = true;
    });

  withForm('turns its pages and changes nothing', async () => {
    await composeStatement();
    await readOnly();
    const {controls: before} = await person.dump();
    await person.clickRow('lsttables', 1);
    await person.keyboard.press('ArrowUp');
    await person.keyboard.press('Space');
    await person.doubleClickRow('lstFields', 0);
    await person.click('cmdMoveAll');
    await person.press('TxtOutput');
    await person.keyboard.type('x');
    await person.keyboard.press('Control+i');
    await person.keyboard.press('Control+z');
    await person.press('undo');
    await person.tab(1);
    await person.press('cboOper');
    await person.keyboard.press('ArrowDown');
    await person.keyboard.press('Enter');
    await person.press('txtAsSet');
    await person.keyboard.type('5');
    await person.tab(6);
    await person.click('optIfThen');
    assert.deepEqual(await page.evaluate(() => host.on('optIfThen').checked), false);
    await person.press('cmdClear');
    await person.tab(0);
    const {controls: behind} = await person.dump();
    /** @type {(controls: typeof before) => Record<string, unknown>} */
    const values = (controls) =>
      Object.fromEntries(
        Object.entries(controls).map(([name, {Text, List, Selected, ListIndex, Value}]) => [
          name,
          {Text, List, Selected, ListIndex, Value},
        ]),
      );
    assert.deepEqual(values(behind), values(before));
    await page.evaluate(() => {
      host.element.readOnly = false;
    });
    assert.equal(await person.difference(), '');
    assert.deepEqual(
      (await person.takeLog()).filter(({event, failed}) => event ?? failed),
      [],
    );
  });

  withForm('can be copied from, and tells it', async () => {
    await composeStatement();
    await readOnly();
    await person.press('TxtOutput');
    await person.keyboard.press('Control+A');
    await person.keyboard.press('Control+C');
    assert.equal(
      await page.evaluate(async () => await navigator.clipboard.readText()),
      await result(),
    );
    const told = await page.evaluate(() => [
      host.on('TxtOutput').readOnly,
      host.on('lsttables').getAttribute('aria-readonly'),
      host.on('cmdMoveAll').getAttribute('aria-disabled'),
      host.element.hasAttribute('readonly'),
      host.element.matches(':read-only'),
    ]);
    assert.deepEqual(told, [true, 'true', 'true', true, true]);
    await page.evaluate(() => {
      host.element.readOnly = false;
    });
    await person.typeKeys('TxtOutput', 'x');
    assert.match(await result(), /x$/);
    assert.equal(await page.evaluate(() => host.on('cmdMoveAll').ariaDisabled), null);
  });
});
