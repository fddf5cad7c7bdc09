// The two faces on a desktop: each carries out a line of a host, and gives the state of the form.
import {createInterface} from 'node:readline';
import path from 'node:path';

import {kArguments} from '../web/engines/chromium.mjs';
import {Stage} from '../web/harness.mjs';
import {kRoot} from '../web/places.mjs';
import {Desktop} from './desktop.mjs';

export const kQtWindow =
  process.env.ZOLT20_ORCA_WINDOW ?? path.join(kRoot, 'build/release/tests/orca_qt_window');

/** @typedef {import('../web/types').Dump & {row: number, message: boolean}} State */
/**
 * @typedef {{
 *   carryOut: (line: string) => Promise<unknown>,
 *   state: () => Promise<State>,
 *   close: () => Promise<void>,
 * }} Face
 */

/// A desktop with a face that Orca hears of. Now and then a program and the bus of screen readers
/// miss each other as they start, and then both start anew.
/** @type {(name: string) => Promise<{desktop: Desktop, face: Face, close: () => Promise<void>}>} */
export async function openFace(name) {
  const kMostTries = 4;
  for (let tries = 1; ; ++tries) {
    const desktop = await Desktop.open();
    try {
      const face = await (name === 'qt' ? openQt : openWeb)(desktop);
      const close = async () => {
        await face.close();
        await desktop.close();
      };
      if (await desktop.isHearing()) return {desktop, face, close};
      await face.close();
      if (tries === kMostTries) throw new Error('Orca hears of no key');
      console.log(`${name}: Orca hears of no key, once more`);
    } catch (error) {
      await desktop.close();
      throw error;
    }
    await desktop.close();
  }
}

/** The widget, in a window of its own.
 * @type {(desktop: Desktop) => Promise<Face>} */
async function openQt(desktop) {
  const child = desktop.spawn(kQtWindow, [], ['pipe', 'pipe', 'inherit']);
  const {stdin, stdout} = child;
  if (stdin === null || stdout === null) throw new Error('no pipes');
  const replies = createInterface({input: stdout})[Symbol.asyncIterator]();
  /** @type {(line: string) => Promise<any>} */
  const ask = async (line) => {
    stdin.write(`${line}\n`);
    const {value, done} = await replies.next();
    if (done) throw new Error('the window has ended');
    return JSON.parse(value).value;
  };
  desktop.settle = () => ask('{"dump":true}');
  await desktop.settle();
  await desktop.quiet(500);
  return {
    carryOut: ask,
    state: () => ask('{"dump":true}'),
    close: async () => {
      stdin.end();
    },
  };
}

/** The element, in a page of Chromium.
 * @type {(desktop: Desktop) => Promise<Face>} */
async function openWeb(desktop) {
  const stage = await Stage.open(
    {},
    {
      headless: false,
      args: [
        ...kArguments.filter((argument) => argument !== '--headless'),
        '--force-renderer-accessibility',
        '--window-size=1380,1080',
        '--window-position=0,0',
      ],
      env: /** @type {Record<string, string>} */ (desktop.env),
    },
  );
  const person = await stage.openElement({viewport: null}, 'element.html');
  // Into the page, where the Tab key comes to the element next.
  await person.page.bringToFront();
  desktop.settle = async () => {
    await person.nextFrame();
    await person.nextFrame();
  };
  const before = await person.page.evaluate(() => {
    const {left, top} = document.getElementById('before').getBoundingClientRect();
    return {x: screenX + left + 5, y: screenY + outerHeight - innerHeight + top + 5};
  });
  await desktop.clickAt(before.x, before.y);
  await desktop.quiet(1000);
  return {
    carryOut: (line) =>
      JSON.parse(line).new === undefined ? person.carryOut(line) : person.makeNew(line),
    state: () =>
      person.page.evaluate(() => ({
        ...JSON.parse(host.dump()),
        row: Number(
          host.element.shadowRoot.getElementById(
            host.element.shadowRoot.activeElement?.getAttribute('aria-activedescendant') ?? '',
          )?.dataset.row ?? -1,
        ),
        message: host.find('', 'dialog[open]') !== null,
      })),
    close: () => stage.close(),
  };
}
