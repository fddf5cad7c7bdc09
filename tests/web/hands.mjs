// A person at an element who plays steps: what they do by keys and mouse, and what must be seen
// then. The steps are those of tests/faces/what_a_face_does.json, which tells what each means.
import assert from 'node:assert/strict';

import {engine} from './engines/engine.mjs';
import {designOf} from './form.mjs';

/** @import {CDPSession} from 'playwright-core' */
/** @import {Person} from './harness.mjs' */
/** @import {Gesture} from './types' */

/**
 * @typedef {Record<string, any>} Step
 * @typedef {{at: Map<string, number>, marked: Map<string, string>}} Spoken
 */

const kExpectations = ['shows', 'keyboard', 'gestures', 'surface', 'message', 'spoken'];
const kTargets = ['click', 'doubleClick', 'pick', 'focus', 'scroll', 'wheel'];
const kNotch = 120;

/** @type {(step: Step) => string | undefined} */
const targetOf = (step) =>
  step.page === undefined
    ? step[kTargets.find((verb) => step[verb] !== undefined) ?? '']
    : 'tabVrn';

export class Hands {
  /** @param {Person} person */
  constructor(person) {
    this.person = person;
    /** @type {CDPSession | undefined} */
    this.session = undefined;
    /** @type {Spoken} */
    this.spoken = {at: new Map(), marked: new Map()};
  }

  /// At a new element.
  async begin() {
    const {page} = this.person;
    if (!(await page.evaluate(() => globalThis.keepRecord !== undefined))) {
      await page.addScriptTag({url: 'shown.js'});
      await page.addScriptTag({url: 'record.js'});
    }
    await this.person.makeNew('{"new":{}}');
    await page.evaluate(() => {
      globalThis.made = [];
      keepRecord();
      host.element.addEventListener('gesturemade', () =>
        made.push(/** @type {Gesture | undefined} */ (host.element.madeGesture())),
      );
    });
    if (!engine.hasDevTools) return;
    this.session ??= await page.context().newCDPSession(page);
    await this.session.send('Accessibility.enable');
  }

  /// Does a step or checks it; fails where a person can't reach what it is done to.
  /** @type {(step: Step) => Promise<void>} */
  async play(step) {
    try {
      if (kExpectations.some((kind) => step[kind] !== undefined)) return await this.#expect(step);
      assert.ok(await this.#isPossible(step), 'it can not be reached');
      return await this.#do(step);
    } catch (error) {
      throw new Error(`${JSON.stringify(step).slice(0, 200)}: ${error}`, {cause: error});
    }
  }
  /// The same for somebody who leaves what can't be reached. Gives whether it was done.
  /** @type {(step: Step) => Promise<boolean>} */
  async try(step) {
    if (!(await this.#isPossible(step))) return false;
    await this.#do(step);
    while ((await this.person.place('', 'dialog[open]')).isThere)
      await this.person.press('', 'dialog[open] button');
    return true;
  }

  /** @type {(step: Step) => Promise<boolean>} */
  async #isPossible(step) {
    const target = targetOf(step);
    if (target === undefined) return true;
    // A list that is open would be closed by the press.
    if (await this.person.page.evaluate(() => host.find('', '[aria-expanded=true]') !== null))
      await this.person.keyboard.press('Escape');
    let place = await this.person.place(target);
    if (place.isThere && !place.isOnTop) {
      await this.person.bringIntoWindow(target);
      place = await this.person.place(target);
    }
    if (!place.isOnTop || place.isEnabled === false) return false;
    return (
      step.row === undefined || step.row < (await this.person.dump()).controls[target].List.length
    );
  }

  /** @type {(step: Step) => Promise<void>} */
  async #do(step) {
    const {person} = this;
    const target = targetOf(step) ?? '';
    if (step.page !== undefined) return person.tab(step.page);
    if (step.click !== undefined)
      return step.row === undefined ? person.click(target) : person.clickRow(target, step.row);
    if (step.doubleClick !== undefined) return person.doubleClickRow(target, step.row);
    if (step.pick !== undefined) return person.pick(target, step.row);
    if (step.focus !== undefined) return person.focus(target);
    if (step.scroll !== undefined) return person.scroll(target, step.value);
    if (step.wheel !== undefined) {
      const {x, y} = await person.inSight(target);
      await person.mouse.move(x, y);
      return person.wheel(kNotch);
    }
    for (const key of step.keys ?? step.type ?? [])
      await person.keyboard.press(key === ' ' ? 'Space' : key);
    if (step.paste !== undefined) {
      await person.page.evaluate((text) => navigator.clipboard.writeText(text), step.paste);
      await person.keyboard.press('Control+V');
    } else if (step.compose !== undefined) {
      await this.#compose(step.compose);
    } else if (step.keys === undefined && step.type === undefined) {
      await person.page.evaluate((request) => carryOutForRecord(request), step);
    }
    return undefined;
  }
  /** @type {(text: string) => Promise<void>} */
  async #compose(text) {
    const caret = {selectionStart: text.length, selectionEnd: text.length};
    await this.session?.send('Input.imeSetComposition', {text, ...caret});
    await this.session?.send('Input.insertText', {text});
    await this.person.nextFrame();
  }

  /** @type {(step: Step) => Promise<void>} */
  async #expect(step) {
    const {person} = this;
    for (const [control, parts] of Object.entries(step.shows ?? {})) {
      for (const [what, value] of Object.entries(parts))
        assert.deepEqual(await this.#shown(control, what), value, `${control} ${what}`);
    }
    if (step.keyboard !== undefined) assert.equal(await person.at(), step.keyboard);
    if (step.gestures !== undefined) {
      const made = await this.takeGestures();
      assert.deepEqual(
        made.filter((gesture) => gesture?.user !== 'focus'),
        step.gestures,
      );
    }
    for (const [control, text] of Object.entries(step.surface ?? {}))
      assert.equal((await person.dump()).controls[control].Text, text, control);
    if (step.message !== undefined) assert.deepEqual(await this.#takeMessage(), step.message);
    if (step.spoken !== undefined) {
      const told = await this.#takeSpoken();
      for (const line of step.spoken) assert.ok(told.includes(line), `${line}, not ${told}`);
    }
  }
  /// What was done since the last call, as lines of the automation host.
  /** @type {() => Promise<(Gesture | undefined)[]>} */
  takeGestures() {
    return this.person.page.evaluate(() => made.splice(0));
  }
  /** @type {(control: string, what: string) => Promise<unknown>} */
  #shown(control, what) {
    return this.person.page.evaluate(
      ([name, part, mark]) => shownOf(host.on(name), part, mark),
      [control, what, 'aria-selected'],
    );
  }
  /// The message that shows, which is answered.
  async #takeMessage() {
    const shown = await this.person.page.evaluate(() => {
      const box = host.find('', 'dialog[open]');
      const sign = box.querySelector('.sign');
      return {
        text: box.querySelector('p').textContent,
        title: box.querySelector('.title').textContent,
        sign: sign.checkVisibility() && sign.textContent === '\u00d7' ? 'error' : 'another',
      };
    });
    await this.person.press('', 'dialog[open] button');
    return shown;
  }

  // What a screen reader finds: the rows, the one that the keys are at, and the marks. Where the
  // engine's tree of it can't be had, it is what the element says for it.
  /** @type {() => Promise<Spoken>} */
  #readAloud() {
    return engine.hasDevTools ? this.#readTree() : this.#readAttributes();
  }
  /** @type {() => Promise<Spoken>} */
  async #readAttributes() {
    const {at, marked} = await this.person.page.evaluate(() => {
      /** @type {(role: string) => HTMLElement[]} */
      const all = (role) =>
        [...host.element.shadowRoot.querySelectorAll(`[role=${role}]`)].filter((node) =>
          node.checkVisibility(),
        );
      /** @type {(node: HTMLElement) => string} */
      const activeIn = (node) => node.getAttribute('aria-activedescendant') ?? '';
      return {
        at: all('listbox').map((list) => [list.id, activeIn(list)]),
        marked: all('option').map((row) => [row.id, row.ariaSelected]),
      };
    });
    return {
      at: new Map(
        at
          .filter(([, active]) => active !== '')
          .map(([list, active]) => [list, Number(/\d+$/.exec(active)?.[0])]),
      ),
      marked: new Map(
        marked.map(([id, isSelected]) => [String(id), markOf(String(id), isSelected === 'true')]),
      ),
    };
  }
  async #readTree() {
    /** @type {Spoken} */
    const spoken = {at: new Map(), marked: new Map()};
    const {nodes} = (await this.session?.send('Accessibility.getFullAXTree')) ?? {nodes: []};
    /** @type {(backendNodeId: number | undefined) => Promise<string>} */
    const idOf = async (backendNodeId) => {
      const {node} =
        (await this.session?.send('DOM.describeNode', {backendNodeId: backendNodeId ?? 0})) ?? {};
      const at = node?.attributes?.indexOf('id') ?? -1;
      return at < 0 ? '' : (node?.attributes?.[at + 1] ?? '');
    };
    for (const {role, backendDOMNodeId, properties = []} of nodes) {
      if (role?.value !== 'listbox' && role?.value !== 'option') continue;
      const id = await idOf(backendDOMNodeId);
      for (const {name, value} of properties) {
        if (name === 'activedescendant')
          spoken.at.set(id, Number(/\d+$/.exec(value.relatedNodes?.[0]?.idref ?? '')?.[0]));
        if (name === 'selected') spoken.marked.set(id, markOf(id, value.value));
      }
    }
    return spoken;
  }
  /** @type {() => Promise<string[]>} */
  async #takeSpoken() {
    const before = this.spoken;
    this.spoken = await this.#readAloud();
    const told = [];
    for (const [list, row] of this.spoken.at)
      if (before.at.get(list) !== row) told.push(`${list} at ${row}`);
    for (const [id, mark] of this.spoken.marked) {
      const [, list, row] = /^(.*)\.row\.(\d+)$/.exec(id) ?? [];
      if (before.marked.get(id) !== mark) told.push(`${list} ${mark} ${row}`);
    }
    return told;
  }

  /// What was done to the element, undone steps taken out, as lines of the automation host.
  /** @type {() => Promise<Record<string, unknown>[]>} */
  record() {
    return this.person.page.evaluate(() => record);
  }
}

// What is told of the mark of a row, by its id. A row with a check box is selected where it is
// checked: of that Orca tells at once.
/** @type {(id: string, isSelected: boolean) => string} */
function markOf(id, isSelected) {
  const design = designOf(id.replace(/\.row\.\d+$/, ''));
  const word = design?.styles.includes('kCheckBoxes') ? 'checked' : 'marked';
  return isSelected ? word : `not ${word}`;
}
