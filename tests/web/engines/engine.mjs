// The engine that the tests drive: Chromium, or the one that ZOLT20_ENGINE names. Each gives a
// browser with those members of Playwright's that the tests use, so that a test is written once.
import {kEngine} from '../places.mjs';
import {Display} from './display.mjs';

/** @import {Browser, BrowserContextOptions, LaunchOptions, Page} from 'playwright-core' */

/**
 * @typedef {{id: string, role: string, name: string}} Said What screen readers say of a node.
 */
/**
 * @typedef {object} Engine
 * @property {string} name
 * @property {boolean} hasDevTools Whether Chromium's protocol for developers is there, which has
 *   input methods and the tree of screen readers.
 * @property {Record<string, string>} lacks The kinds of steps, keys and settings of pages that can't
 *   be had in it, with the reason.
 * @property {boolean} [hasOnePage] At a time.
 * @property {BrowserContextOptions} settings Of each page.
 * @property {(page: Page) => Promise<Said[]>} [said] Of all that is to be seen in the element, where
 *   Playwright has no way to find it.
 * @property {(page: Page, display: Display) => void} [prepare] Mends what the driver can't do.
 * @property {(settings: LaunchOptions, display?: Display) => Promise<Browser>} open
 */

/** @type {Record<string, () => Promise<{default: Engine}>>} */
const kEngines = {
  chromium: () => import('./chromium.mjs'),
  firefox: () => import('./firefox.mjs'),
  webkit: () => import('./webkit.mjs'),
};
if (kEngines[kEngine] === undefined)
  throw new Error(`ZOLT20_ENGINE is ${kEngine}, and none of ${Object.keys(kEngines).join(', ')}`);

export const {default: engine} = await kEngines[kEngine]();

/// Why one of these can't be had in the engine, if so.
/** @type {(what: string[]) => string | undefined} */
export const lackOf = (what) => engine.lacks[what.find((one) => one in engine.lacks) ?? ''];

/// The engine's browser. Its display too, where it needs one, or a test does.
/**
 * @type {(settings: LaunchOptions, onDisplay: boolean) =>
 *   Promise<{browser: Browser, display: Display | undefined}>}
 */
export async function openBrowser(settings, onDisplay) {
  const display = onDisplay || kEngine !== 'chromium' ? await Display.open() : undefined;
  try {
    return {browser: await engine.open(settings, display), display};
  } catch (error) {
    await display?.close();
    throw new Error(`${engine.name} can not be started: ${error}`, {cause: error});
  }
}
