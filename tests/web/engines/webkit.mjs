// WebKitGTK in its MiniBrowser, by classic WebDriver, on a display that nobody sees. The driver has
// one window, so there is one page at a time.
import assert from 'node:assert/strict';
import {spawn} from 'node:child_process';
import {once} from 'node:events';
import {createServer} from 'node:net';
import {setTimeout as pause} from 'node:timers/promises';

import {kWebKitDriver, require} from '../places.mjs';
import {endChild} from './children.mjs';

/** @import {ChildProcess} from 'node:child_process' */
/** @import {Browser, BrowserContextOptions} from 'playwright-core' */
/** @import {WebDriver} from 'selenium-webdriver' */
/** @import {Display} from './display.mjs' */
/** @import {Engine, Said} from './engine.mjs' */

/** @type {typeof import('selenium-webdriver')} */
const {Builder, Button, Key} = require('selenium-webdriver');

/**
 * @typedef {import('selenium-webdriver').Actions & {scroll: (x: number, y: number, across: number,
 *   down: number, origin: undefined, duration: number) => WithWheel}} WithWheel What the types of the
 *   client leave out.
 */

const kPatience = 15000;
const kLook = 20;
const kBeside = 3;
const kArguments = [
  '--automation',
  '--javascript-can-access-clipboard=true',
  // A press between two steps of a scrolling finds no row that is under the mouse from down to up.
  '--enable-smooth-scrolling=false',
];
/** @type {Record<string, string>} */
const kKeys = {
  Alt: Key.ALT,
  ArrowDown: Key.ARROW_DOWN,
  ArrowLeft: Key.ARROW_LEFT,
  ArrowRight: Key.ARROW_RIGHT,
  ArrowUp: Key.ARROW_UP,
  Backspace: Key.BACK_SPACE,
  Control: Key.CONTROL,
  Delete: Key.DELETE,
  End: Key.END,
  Enter: Key.ENTER,
  Escape: Key.ESCAPE,
  Home: Key.HOME,
  PageDown: Key.PAGE_DOWN,
  PageUp: Key.PAGE_UP,
  Shift: Key.SHIFT,
  Space: ' ',
  Tab: Key.TAB,
};

/** @type {(what: string, condition: () => Promise<unknown>) => Promise<void>} */
async function waitFor(what, condition) {
  for (const end = Date.now() + kPatience; !(await condition()); await pause(kLook))
    if (Date.now() > end) throw new Error(`${what}: not within ${kPatience} ms`);
}

/// The keys of a press such as 'Control+A', for the driver. Shift makes letters large, nothing else.
/** @type {(press: string) => string[]} */
function keysOf(press) {
  const names = press.length === 1 ? [press] : press.split(/\+(?=.)/);
  return names.map((name) => {
    const key = kKeys[name] ?? name;
    assert.ok(key.length === 1, `there is no key ${name}`);
    return names.length > 1 && !names.includes('Shift') ? key.toLowerCase() : key;
  });
}

class Mouse {
  #at = {x: 0, y: 0};
  // The driver takes where the wheel has come to, and turns it by the difference.
  #turned = {across: 0, down: 0};
  /** @param {WebDriver} driver */
  constructor(driver) {
    this.driver = driver;
  }
  /** @type {(x: number, y: number) => Promise<void>} */
  move(x, y) {
    return this.#to(x, y).perform();
  }
  /** @type {(x: number, y: number, settings?: {button?: string, clickCount?: number}) => Promise<void>} */
  click(x, y, {button = 'left', clickCount = 1} = {}) {
    const pressed = button === 'right' ? Button.RIGHT : Button.LEFT;
    // A second click at the same place would be one half of a double click.
    const isAgain = Math.round(x) === this.#at.x && Math.round(y) === this.#at.y;
    const actions = this.#to(isAgain ? x + kBeside : x, y);
    for (let click = 0; click < clickCount; ++click) actions.press(pressed).release(pressed);
    return actions.perform();
  }
  /** @type {(x: number, y: number) => Promise<void>} */
  dblclick(x, y) {
    return this.click(x, y, {clickCount: 2});
  }
  down() {
    return this.driver.actions().press().perform();
  }
  up() {
    return this.driver.actions().release().perform();
  }
  /** @type {(across: number, down: number) => Promise<void>} */
  wheel(across, down) {
    const {x, y} = this.#at;
    const turned = this.#turned;
    turned.across += across;
    turned.down += down;
    const actions = /** @type {WithWheel} */ (this.driver.actions());
    return actions.scroll(x, y, turned.across, turned.down, undefined, 0).perform();
  }
  /** @type {(x: number, y: number) => import('selenium-webdriver').Actions} */
  #to(x, y) {
    this.#at = {x: Math.round(x), y: Math.round(y)};
    return this.driver.actions().move({...this.#at, duration: 0});
  }
}

class Keyboard {
  /** @param {Page} page */
  constructor(page) {
    this.page = page;
  }
  get #actions() {
    return this.page.driver.actions();
  }
  /** @type {(key: string) => Promise<void>} */
  async press(key) {
    const actions = this.#actions;
    const keys = keysOf(key);
    for (const one of keys) actions.keyDown(one);
    for (const one of keys.reverse()) actions.keyUp(one);
    await actions.perform();
  }
  /** @type {(key: string) => Promise<void>} */
  down(key) {
    return this.#actions.keyDown(keysOf(key)[0]).perform();
  }
  /** @type {(key: string) => Promise<void>} */
  up(key) {
    return this.#actions.keyUp(keysOf(key)[0]).perform();
  }
  /** @type {(text: string) => Promise<void>} */
  type(text) {
    return this.#actions.sendKeys(text).perform();
  }
}

class Page {
  /** @type {string[]} */
  complaints = [];
  /** @param {Context} owner */
  constructor(owner) {
    this.owner = owner;
    this.driver = owner.browser.driver;
    this.mouse = new Mouse(this.driver);
    this.keyboard = new Keyboard(this);
  }
  context() {
    return this.owner;
  }
  on() {
    // The page keeps its complaints itself: see pages/complaints.js.
  }
  async addInitScript() {}
  /** @type {(address: string) => Promise<void>} */
  goto(address) {
    return this.driver.get(address);
  }
  /** @type {(act: Function | string, argument?: unknown) => Promise<any>} */
  async evaluate(act, argument) {
    assert.equal(this.owner.browser.context, this.owner, 'another page has come instead');
    const script =
      `const [argument, end] = arguments;
       const done = (answer) => end({...answer, complaints: window.complaints?.splice(0) ?? []});
      ` +
      (typeof act === 'string'
        ? `${act}; done({});`
        : `(async () => (${act})(argument))().then(
             (value) => done({value}),
             (error) => done({error: String(error) + '\\n' + error?.stack}),
           );`);
    const {value, error, complaints} = /** @type {any} */ (
      await this.driver.executeAsyncScript(script, argument ?? null)
    );
    this.complaints.push(...complaints);
    if (error !== undefined) throw new Error(error);
    return value;
  }
  /** @type {(act: Function, argument?: unknown) => Promise<void>} */
  waitForFunction(act, argument) {
    return waitFor(String(act), () => this.evaluate(act, argument));
  }
  /** @type {(selector: string) => Promise<void>} */
  focus(selector) {
    return this.evaluate(
      (/** @type {string} */ one) => document.querySelector(one).focus(),
      selector,
    );
  }
  /** @type {(script: {url: string}) => Promise<void>} */
  addScriptTag(script) {
    return this.evaluate(
      (/** @type {string} */ url) =>
        new Promise((done, fail) => {
          const tag = document.createElement('script');
          Object.assign(tag, {src: url, onload: () => done(undefined), onerror: fail});
          document.head.append(tag);
        }),
      script.url,
    );
  }
  title() {
    return this.driver.getTitle();
  }
  /// The role and the name of all that is to be seen in the element.
  /** @type {() => Promise<Said[]>} */
  async said() {
    const nodes = /** @type {import('selenium-webdriver').WebElement[]} */ (
      await this.driver.executeScript(`return [
        ...host.element.shadowRoot.querySelectorAll('button, input, textarea, [role]'),
      ].filter((node) => node.checkVisibility())`)
    );
    const said = [];
    for (const node of nodes) {
      const id = String(await node.getAttribute('id'));
      said.push({id, role: await node.getAriaRole(), name: await node.getAccessibleName()});
    }
    return said;
  }
  async screenshot() {
    return Buffer.from(await this.driver.takeScreenshot(), 'base64');
  }
}

class Context {
  /** @param {MiniBrowser} browser @param {BrowserContextOptions} settings */
  constructor(browser, settings) {
    this.browser = browser;
    this.settings = settings;
  }
  setDefaultTimeout() {}
  async newPage() {
    const {driver} = this.browser;
    const window = driver.manage().window();
    const {width, height} = this.settings.viewport ?? {width: 1280, height: 1000};
    // What is around the page has a height of its own.
    const page = new Page(this);
    // No key or button of the page before is held, and the wheel begins anew.
    await driver.actions().clear();
    await window.setRect({x: 0, y: 0, width, height});
    const inner = await page.evaluate(() => innerHeight);
    await window.setRect({x: 0, y: 0, width, height: 2 * height - inner});
    return page;
  }
  async close() {
    await this.browser.driver.get('about:blank');
  }
}

class MiniBrowser {
  /**
   * Whose page there is.
   * @type {Context | undefined}
   */
  context = undefined;
  /** @param {ChildProcess} child @param {WebDriver} driver */
  constructor(child, driver) {
    this.child = child;
    this.driver = driver;
  }
  /** @type {(settings: BrowserContextOptions) => Promise<Context>} */
  async newContext(settings) {
    const {viewport: _viewport, colorScheme: _scheme, ...others} = settings;
    assert.deepEqual(others, {}, 'the driver of WebKit has no such settings');
    this.context = new Context(this, settings);
    return this.context;
  }
  async close() {
    try {
      await this.driver.quit();
    } finally {
      await endChild(this.child);
    }
  }
}

/// A port that nobody listens at.
async function freePort() {
  const server = createServer();
  await once(server.listen(0, '127.0.0.1'), 'listening');
  const {port} = /** @type {import('node:net').AddressInfo} */ (server.address());
  server.close();
  await once(server, 'close');
  return port;
}

/** @type {(display?: Display) => Promise<MiniBrowser>} */
async function openMiniBrowser(display) {
  const port = await freePort();
  const child = spawn(kWebKitDriver, [`--port=${port}`], {env: display?.env, stdio: 'ignore'});
  let end = '';
  child.once('error', (error) => {
    end = error.message;
  });
  child.once('exit', (status) => {
    end = `${kWebKitDriver} ended with ${status}`;
  });
  const address = `http://127.0.0.1:${port}`;
  try {
    await waitFor('its driver begins', async () => {
      if (end !== '') throw new Error(end);
      return fetch(`${address}/status`).then(
        (answer) => answer.ok,
        () => false,
      );
    });
    const driver = await new Builder()
      .usingServer(address)
      .withCapabilities({
        browserName: 'MiniBrowser',
        'webkitgtk:browserOptions': {args: kArguments},
      })
      .build();
    await driver.manage().setTimeouts({script: 2 * kPatience});
    return new MiniBrowser(child, driver);
  } catch (error) {
    await endChild(child);
    throw error;
  }
}

/** @type {Engine} */
export default {
  name: 'WebKitGTK',
  hasDevTools: false,
  hasOnePage: true,
  lacks: {
    compose: 'its driver has no input method',
    locator: 'what Playwright finds is not there',
    forcedColors: 'its driver can not ask for them',
    'Control+z': "the key is an application's own, and MiniBrowser has none",
  },
  settings: {},
  said: (page) => /** @type {Page} */ (/** @type {unknown} */ (page)).said(),
  open: async (_settings, display) =>
    /** @type {Browser} */ (/** @type {unknown} */ (await openMiniBrowser(display))),
};
