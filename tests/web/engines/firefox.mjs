// Debian's Firefox, by WebDriver BiDi, with a window on a display that nobody sees: its clipboard
// and the keys of its keyboard are those of the platform.
import {kFirefox, require} from '../places.mjs';

/** @import {Page} from 'playwright-core' */
/** @import {Display} from './display.mjs' */
/** @import {Engine} from './engine.mjs' */

/** @type {typeof import('playwright-core')} */
const {firefox} = require('playwright-core');

// Of two clicks that its driver is told of one by one Firefox makes no double click. So both come
// from the mouse of the display.
/** @type {(page: Page, display: Display) => Page['mouse']['dblclick']} */
const dblclick = (page, display) => async (x, y) => {
  const [left, top] = await page.evaluate(() => {
    globalThis.doubled = new Promise((done) => {
      addEventListener('dblclick', () => done(true), {once: true, capture: true});
    });
    return [window.mozInnerScreenX, window.mozInnerScreenY];
  });
  await display.doubleClickAt(left + x, top + y);
  await page.evaluate(() => globalThis.doubled);
};

/** @type {Engine} */
export default {
  name: 'Firefox',
  hasDevTools: false,
  lacks: {
    compose: 'its driver has no input method',
    forcedColors: 'its driver can not ask for them',
  },
  settings: {},
  prepare: (page, display) => {
    page.mouse.dblclick = dblclick(page, display);
  },
  open: (settings, display) =>
    firefox.launch({
      channel: 'moz-firefox',
      executablePath: kFirefox,
      headless: false,
      env: {...display?.env, MOZ_ENABLE_WAYLAND: '0'},
      firefoxUserPrefs: {
        // A page may write to the clipboard without being asked for it by a person.
        'dom.events.testing.asyncClipboard': true,
        // The pages have none.
        'browser.chrome.site_icons': false,
        'general.smoothScroll': false,
        // Bars take room, as they do in most desktops.
        'widget.gtk.overlay-scrollbars.enabled': false,
      },
      ...settings,
    }),
};
