// Chromium, by its own protocol.
import {kChromium, require} from '../places.mjs';

/** @import {Engine} from './engine.mjs' */

/** @type {typeof import('playwright-core')} */
const {chromium} = require('playwright-core');

/// So that it runs anywhere and alone.
export const kArguments = [
  '--headless',
  '--no-sandbox',
  '--disable-gpu',
  '--disable-quic',
  '--no-first-run',
  '--disable-background-networking',
  '--disable-component-update',
  '--disable-smooth-scrolling',
  '--disable-sync',
  '--js-flags=--expose-gc',
];

/** @type {Engine} */
export default {
  name: 'Chromium',
  hasDevTools: true,
  lacks: {},
  settings: {permissions: ['clipboard-read', 'clipboard-write']},
  open: (settings, display) =>
    chromium.launch({
      executablePath: kChromium,
      args: display === undefined ? kArguments : kArguments.slice(1),
      ...(display === undefined ? {} : {headless: false, env: display.env}),
      ...settings,
    }),
};
