// What tests in a browser begin with: its engine, a server of pages under the policy of serve.mjs,
// and a person at an element, whose verbs are mouse and keys at real places. A verb fails where a
// person could not do it.
import assert from 'node:assert/strict';
import path from 'node:path';

import {serve} from '../../scripts/serve.mjs';
import {engine, openBrowser} from './engines/engine.mjs';
import {designOf, kForm} from './form.mjs';
import {kPackage, kTests} from './places.mjs';

/** @import {BrowserContextOptions, Browser, LaunchOptions, Page} from 'playwright-core' */
/** @import {Display} from './engines/display.mjs' */
/** @import {Dump, Gesture, LogEntry, Place, Reply} from './types' */

const kViewport = {width: 1280, height: 1000};
const kPatience = 15000;
const kStill = 3;
const kBackspace = 8;
const kEnter = 13;
const selectAll = 'Control+A';

/// A browser and a server of the test pages, the package at /package/ and further folders.
export class Stage {
  /**
   * @type {(mounts?: Record<string, string>, settings?: LaunchOptions, onDisplay?: boolean) =>
   *   Promise<Stage>}
   */
  static async open(mounts = {}, settings = {}, onDisplay = false) {
    const server = await serve({
      root: {'/package/': kPackage, '/': path.join(kTests, 'pages'), ...mounts},
    });
    try {
      const {browser, display} = await openBrowser(settings, onDisplay);
      return new Stage(server, browser, display);
    } catch (error) {
      await server.close();
      throw error;
    }
  }
  /**
   * @param {Awaited<ReturnType<typeof serve>>} server
   * @param {Browser} browser
   * @param {Display} [display]
   */
  constructor(server, browser, display) {
    this.server = server;
    this.browser = browser;
    this.display = display;
  }

  get address() {
    return this.server.address;
  }

  /// A page of the server, or of any address, in a browser context of its own. What it complains of
  /// is kept.
  /** @type {(address: string, settings?: BrowserContextOptions) => Promise<Page>} */
  async openPage(address, settings = {}) {
    const context = await this.browser.newContext({
      viewport: kViewport,
      ...engine.settings,
      ...settings,
    });
    context.setDefaultTimeout(kPatience);
    const page = await context.newPage();
    if (this.display !== undefined) engine.prepare?.(page, this.display);
    page.complaints = [];
    page.on('console', (message) => {
      // A browser asks for the icon of a site, which pages of the tests have not.
      if (message.location().url.endsWith('/favicon.ico')) return;
      if (['error', 'warning'].includes(message.type()))
        page.complaints.push(`console: ${message.text()}`);
    });
    page.on('pageerror', (error) => page.complaints.push(`error: ${error.message}`));
    await page.addInitScript(() => {
      globalThis.violations = [];
      document.addEventListener('securitypolicyviolation', (event) =>
        globalThis.violations.push(
          `${event.violatedDirective} ${event.blockedURI} ${event.sample}`,
        ),
      );
    });
    await page.goto(address.includes(':') ? address : `${this.address}/${address}`);
    // What a person prefers other drivers can't say, so that it is the page that wants it.
    if (!engine.hasDevTools && settings.colorScheme) {
      await page.evaluate((scheme) => {
        document.documentElement.style.colorScheme = scheme;
      }, settings.colorScheme);
    }
    return page;
  }
  /// A person at the element of a page, whose host has begun.
  /** @type {(settings?: BrowserContextOptions, address?: string) => Promise<Person>} */
  async openElement(settings = {}, address = 'element.html') {
    const page = await this.openPage(address, settings);
    const person = new Person(page);
    try {
      await page.waitForFunction(() => globalThis.host !== undefined);
    } catch (error) {
      throw new Error(`${address} has no host: ${page.complaints.join('; ') || error}`);
    }
    return person;
  }

  async close() {
    try {
      await this.browser.close();
    } finally {
      await this.display?.close();
      await this.server.close();
    }
  }
}

/// Fails if the page has complained of anything, and closes it.
/** @type {(page: Page) => Promise<void>} */
export async function closePage(page) {
  const violations = await page.evaluate(() => globalThis.violations ?? []);
  await page.context().close();
  assert.deepEqual([...page.complaints, ...violations], []);
}

export class Person {
  /** @param {Page} page */
  constructor(page) {
    this.page = page;
    this.mouse = page.mouse;
    this.keyboard = page.keyboard;
  }

  // Reads.

  /// What the element has told its host since the last call.
  /** @type {() => Promise<LogEntry[]>} */
  async takeLog() {
    return JSON.parse(await this.page.evaluate(() => host.takeLog()));
  }
  /** @type {() => Promise<Dump>} */
  async dump() {
    return JSON.parse(await this.page.evaluate(() => host.dump()));
  }
  /// What a host does for a line of the automation host, and its reply without the log.
  /** @type {(line: string) => Promise<Omit<Reply, 'log'>>} */
  async carryOut(line) {
    return JSON.parse(await this.page.evaluate((request) => host.carryOut(request), line));
  }
  /** @type {(line: string) => Promise<void>} */
  async makeNew(line) {
    await this.page.evaluate((request) => makeNew(request), line);
  }
  /** @type {(id: string, selector?: string) => Promise<Place>} */
  place(id, selector = '') {
    return this.page.evaluate(([name, within]) => host.place(name, within), [id, selector]);
  }
  /// The name of the control that the keyboard is at, '#id' for something outside of the element.
  at() {
    return this.page.evaluate(() => host.keyboard());
  }
  /** @type {() => Promise<void>} */
  nextFrame() {
    return this.page.evaluate(() => new Promise((done) => requestAnimationFrame(() => done())));
  }
  /// What the element has told since the last call, its state, and where it is drawn otherwise, all
  /// at once.
  /** @type {() => Promise<{log: LogEntry[], dump: Dump, difference: string}>} */
  async look() {
    return JSON.parse(await this.withForm(() => (Host.form === undefined ? null : host.look())));
  }
  /// Where what is drawn is not what the form has; '' when it is. Drawing may take some frames.
  async difference() {
    const kFrames = 4;
    let found = '';
    for (let frame = 0; frame < kFrames; ++frame) {
      found = await this.withForm(() => (Host.form === undefined ? null : host.difference()));
      if (found === '') break;
      await this.nextFrame();
    }
    return found;
  }
  // A page that has just been loaded does not know the form yet.
  /** @type {(ask: () => string | null) => Promise<string>} */
  async withForm(ask) {
    const answer = await this.page.evaluate(ask);
    if (answer !== null) return answer;
    await this.page.evaluate((form) => {
      Host.form = form;
    }, kForm);
    return String(await this.page.evaluate(ask));
  }

  // Verbs. Each presses where a person would: in the middle of what can be seen.

  /**
   * @type {(id: string, selector?: string, settings?: Parameters<Page['mouse']['click']>[2]) =>
   *   Promise<void>}
   */
  async press(id, selector = '', settings = {}) {
    const place = await this.inSight(id, selector);
    await this.mouse.click(place.x, place.y, settings);
  }
  /// The place of something that can be pressed.
  /** @type {(id: string, selector?: string) => Promise<Place>} */
  async inSight(id, selector = '') {
    let place = await this.place(id, selector);
    // What lies outside of the window is scrolled to, as by the wheel.
    if (place.isThere && !place.isOnTop) {
      await this.bringIntoWindow(id, selector);
      place = await this.atRest(id, selector);
    }
    assert.ok(place.isOnTop, `${id} ${selector} is not in sight`);
    return place;
  }
  /// The place of something that was scrolled, when it has come to rest.
  /** @type {(id: string, selector: string) => Promise<Place>} */
  async atRest(id, selector) {
    let place = await this.place(id, selector);
    for (let frames = 0; frames < kStill; ++frames) {
      await this.nextFrame();
      const before = place;
      place = await this.place(id, selector);
      if (place.x !== before.x || place.y !== before.y) frames = 0;
    }
    return place;
  }
  /// Turns the wheel until it is in the window, and in sight of what it is scrolled in.
  /** @type {(id: string, selector?: string) => Promise<void>} */
  async bringIntoWindow(id, selector = '') {
    for (let turns = 0; turns < 6; ++turns) {
      const next = await this.page.evaluate(
        ([name, within]) => host.wayIntoSight(name, within),
        [id, selector],
      );
      if (next === null) break;
      await this.mouse.move(next.x, next.y);
      await this.wheel(next.way);
    }
    const aside = await this.page.evaluate(
      ([name, within]) => host.waySideways(name, within),
      [id, selector],
    );
    if (aside === null) return;
    await this.mouse.move(aside.x, aside.y);
    await this.wheel(0, aside.way);
  }
  /** @type {(down: number, across?: number) => Promise<void>} */
  async wheel(down, across = 0) {
    // By whole points, which all drivers take.
    const [right, below] = [across, down].map((way) => Math.sign(way) * Math.ceil(Math.abs(way)));
    const before = await this.page.evaluate(() => host.scrolled());
    await this.mouse.wheel(right, below);
    await this.page.evaluate((scrolled) => host.scrollingEnds(scrolled), before);
  }

  /** @type {(control: string) => Promise<void>} */
  click(control) {
    return this.press(control);
  }
  /** @type {(page: number) => Promise<void>} */
  tab(page) {
    return this.press('tabVrn', `[data-page="${page}"]`);
  }
  /// Turns the wheel over a list until a row is in sight. Where to press it.
  /** @type {(list: string, row: number) => Promise<Place>} */
  async row(list, row) {
    const selector = `[data-row="${row}"]`;
    await this.bringIntoWindow(list);
    let place = await this.place(list, selector);
    let frames = 0; // in which the row has stood where it stands
    await this.waitFor(`${list} shows row ${row}`, async () => {
      const way = await this.page.evaluate(
        ([name, number]) => host.wayToRow(name, number),
        /** @type {[string, number]} */ ([list, row]),
      );
      if (way !== null && way !== 0) {
        const box = await this.place(list);
        await this.mouse.move(box.x, box.y);
        await this.wheel(way);
        frames = 0;
      }
      // The list may still be on its way.
      const before = place;
      place = await this.place(list, selector);
      frames = place.y === before.y ? frames + 1 : 0;
      return way === 0 && place.isOnTop && frames >= kStill;
    });
    return place;
  }
  /** @type {(list: string, row: number) => Promise<void>} */
  async clickRow(list, row) {
    const {x, y} = await this.row(list, row);
    await this.mouse.click(x, y);
  }
  /// Presses a row twice, soon after each other.
  /** @type {(list: string, row: number) => Promise<void>} */
  async doubleClickRow(list, row) {
    const {x, y} = await this.row(list, row);
    await this.mouse.dblclick(x, y);
  }
  /// Opens the list of a combo box and presses an entry.
  /** @type {(combo: string, row: number) => Promise<void>} */
  async pick(combo, row) {
    const isEditable = designOf(combo).styles.includes('kEditable');
    await this.press(isEditable ? `${combo}.open` : combo);
    await this.waitFor(
      `${combo} opens its list`,
      async () => (await this.place(`${combo}.list`)).isOnTop,
    );
    await this.clickRow(`${combo}.list`, row);
    await this.waitFor(
      `${combo} closes its list`,
      async () => !(await this.place(`${combo}.list`)).isThere,
    );
  }
  /// Goes to a control by the mouse; on a button, away from it before the release, so that it is
  /// not clicked.
  /** @type {(control: string) => Promise<void>} */
  async focus(control) {
    const place = await this.inSight(control);
    if (designOf(control).kind !== 'Button') return this.mouse.click(place.x, place.y);
    await this.mouse.move(place.x, place.y);
    await this.mouse.down();
    await this.mouse.move(2, 2);
    await this.mouse.up();
  }
  /// Replaces the whole text at once.
  /** @type {(box: string, text: string) => Promise<void>} */
  async type(box, text) {
    await this.focus(box);
    await this.keyboard.press(selectAll);
    if (text === '') {
      await this.keyboard.press('Delete');
    } else if (box === 'txtAsSet' || !engine.hasDevTools) {
      // What is inserted otherwise is composed by an input method, and each character a key.
      await this.page.evaluate((pasted) => navigator.clipboard.writeText(pasted), text);
      await this.keyboard.press('Control+V');
    } else {
      await this.keyboard.insertText(text);
    }
  }
  /// Key by key, behind the text that is there.
  /** @type {(box: string, text: string) => Promise<void>} */
  async typeKeys(box, text) {
    await this.goBehindTheText(box);
    await this.keyboard.type(text);
  }
  /// A key in a text box, by its character code or 8 for backspace.
  /** @type {(box: string, code: number) => Promise<void>} */
  async key(box, code) {
    await this.goBehindTheText(box);
    await this.pressKey(code);
  }
  /// The same where characters of a box of one line are marked, or the caret is.
  /** @type {(box: string, code: number, from: number, to: number) => Promise<void>} */
  async keyAt(box, code, from, to) {
    await this.mark(box, from, to);
    await this.pressKey(code);
  }
  /** @type {(code: number) => Promise<void>} */
  async pressKey(code) {
    const named = code === kBackspace ? 'Backspace' : code === kEnter ? 'Enter' : undefined;
    await this.keyboard.press(named ?? String.fromCharCode(code));
  }
  /// Marks characters of a box of one line, or puts the caret there.
  /** @type {(box: string, from: number, to: number) => Promise<void>} */
  async mark(box, from, to) {
    if ((await this.at()) !== box) await this.focus(box);
    await this.keyboard.press('Home');
    for (let place = 0; place < to; ++place)
      await this.keyboard.press(place < from ? 'ArrowRight' : 'Shift+ArrowRight');
  }
  /** @type {(box: string) => Promise<void>} */
  async goBehindTheText(box) {
    if ((await this.at()) !== box) await this.focus(box);
    await this.keyboard.press('Control+End');
  }
  /// Presses the arrows of a scroll bar until it is there.
  /** @type {(bar: string, value: number) => Promise<void>} */
  async scroll(bar, value) {
    const now = async () => (await this.dump()).controls[bar].Value;
    for (let presses = 0; (await now()) !== value && presses < 20; ++presses) {
      await this.press(bar, `[data-step="${(await now()) < value ? 1 : -1}"]`);
    }
    assert.equal(await now(), value, `${bar} does not come there`);
  }

  /// Presses OK of each message that waits, and checks that it shows what the host was told.
  /** @type {(messages: LogEntry[]) => Promise<void>} */
  async answerMessages(messages) {
    for (const {message, title} of messages) {
      const kBox = 'dialog[open]';
      await this.waitFor('a message shows', async () => (await this.place('', kBox)).isThere);
      const text = await this.page.evaluate((box) => host.find('', box).textContent, kBox);
      for (const part of [message, title])
        assert.ok(text?.includes(String(part)), `the message shows ${text}`);
      await this.press('', `${kBox} button`);
    }
    await this.waitFor(
      'no message shows',
      async () => !(await this.place('', 'dialog[open]')).isThere,
    );
  }
  /** @type {(what: string, condition: () => boolean | Promise<boolean>) => Promise<void>} */
  async waitFor(what, condition) {
    const end = Date.now() + kPatience;
    while (!(await condition())) {
      assert.ok(Date.now() < end, `${what}: not within ${kPatience} ms`);
      await this.nextFrame();
    }
  }

  /// Carries out a gesture of the automation host, an object with "user".
  /** @type {(gesture: Gesture) => Promise<void>} */
  make(gesture) {
    switch (gesture.user) {
      case 'tab':
        return this.tab(gesture.page);
      case 'click':
        return gesture.row === undefined
          ? this.click(gesture.control)
          : this.clickRow(gesture.control, gesture.row);
      case 'dblclick':
        return this.doubleClickRow(gesture.control, gesture.row);
      case 'pick':
        return this.pick(gesture.control, gesture.row);
      case 'type':
        return this.type(gesture.control, gesture.text);
      case 'key':
        return gesture.from === undefined
          ? this.key(gesture.control, gesture.code)
          : this.keyAt(gesture.control, gesture.code, gesture.from, gesture.to ?? gesture.from);
      case 'focus':
        return this.focus(gesture.control);
      case 'scroll':
        return this.scroll(gesture.control, gesture.value);
      default:
        throw new Error(`there is no gesture ${JSON.stringify(gesture)}`);
    }
  }
  /// Presses where a control is that takes no gesture at the moment, if it is anywhere to be seen.
  /** @type {(gesture: Gesture) => Promise<void>} */
  async tryInVain(gesture) {
    const control = gesture.user === 'tab' ? 'tabVrn' : gesture.control;
    const place = await this.place(control);
    assert.ok(!place.isOnTop || !place.isEnabled, `${control} could be used`);
    if (place.isOnTop) await this.mouse.click(place.x, place.y);
  }
}
