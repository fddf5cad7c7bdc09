// A key in a long text, coloured by the element, beside a box of the browser and CodeMirror: from the key to the frame
// after, in turns, so that another program on the machine is in the way of all.
//   node benchmarks/web_keys.mjs FOLDER        FOLDER holds editor.js; the environment of the tests of tests/web
import {fileURLToPath} from 'node:url';

import {Stage} from '../tests/web/harness.mjs';

/** @import {Page} from 'playwright-core' */

const kRounds = 3;
const kWarm = 2;
const kKeys = 7;
const kStill = 60;
const kPlaces = {'at the start': 0, 'in the middle': 0.5, 'at the end': 1};
const kBoxes = /** @type {const} */ ({
  ours: ['/bench/boxes.js', 'coloured'],
  browser: ['/bench/boxes.js', 'browser'],
  plainEditor: ['/peer/editor.js', 'plain'],
  editor: ['/peer/editor.js', 'coloured'],
  wrapped: ['/bench/boxes.js', 'wrapped'],
  browserWrapped: ['/bench/boxes.js', 'browserWrapped'],
});
const kRows = /** @type {const} */ ([
  ['ours', 'browser', 'coloured / in a box of the browser', Infinity],
  ['ours', 'plainEditor', 'coloured / in CodeMirror', 1],
  ['ours', 'editor', 'coloured / in CodeMirror, coloured', 1],
  ['wrapped', 'browserWrapped', 'coloured and wrapped / in a box of the browser', Infinity],
]);
/** @typedef {keyof typeof kBoxes} Box */
/** @typedef {keyof typeof kPlaces} Place */

const stage = await Stage.open({
  '/bench/': fileURLToPath(new URL('web', import.meta.url)),
  '/peer/': process.argv[2],
});

/** @type {(values: number[]) => number} */
const median = (values) => values.slice().sort((a, b) => a - b)[values.length >> 1];
const places = /** @type {Place[]} */ (Object.keys(kPlaces));

/** @type {(page: Page, part: number) => Promise<number[]>} */
async function pressKeys(page, part) {
  await page.evaluate(async (at) => (await import('/bench/keys.js')).caretAt(at), part);
  const times = [];
  for (let key = 0; key < kWarm + kKeys; ++key) {
    await page.evaluate(async () => (await import('/bench/keys.js')).awaitKey());
    await page.keyboard.press('x');
    times.push(await page.evaluate(async () => (await import('/bench/keys.js')).keyTime()));
    await page.waitForTimeout(kStill); // what an editor does in the background is done
  }
  return times.slice(kWarm);
}

/** @typedef {{lines: number, times: Record<Place, number[]>}} Measured */
/** @type {(box: Box, letters: number) => Promise<Measured>} */
async function measure(box, letters) {
  const page = await stage.openPage('bench/page.html');
  await page.evaluate(
    async ([source, name, count]) => (await import('/bench/keys.js')).show(source, name, count),
    /** @type {const} */ ([...kBoxes[box], letters]),
  );
  const times = /** @type {Record<Place, number[]>} */ ({});
  for (const place of places) times[place] = await pressKeys(page, kPlaces[place]);
  await page.evaluate(async (at) => (await import('/bench/keys.js')).caretAt(at), 0.5);
  const lines = await page.evaluate(async () => (await import('/bench/keys.js')).linesRead());
  // Its complaints are not ours: the policy of the server refuses an attribute of CodeMirror's.
  await page.context().close();
  return {lines, times};
}

/** @type {(milliseconds: number) => string} */
const shown = (milliseconds) => `${milliseconds.toPrecision(3)} ms`;

console.log(
  '| work / yardstick | figure | yardstick | ratio | bar |  |\n| --- | --- | --- | --- | --- | --- |',
);
for (const letters of [20_000, 1_000_000]) {
  const all = /** @type {Record<Box, Measured[]>} */ ({});
  const boxes = /** @type {Box[]} */ (Object.keys(kBoxes));
  for (const box of boxes) all[box] = [];
  for (let round = 0; round < kRounds; ++round)
    for (const box of boxes) all[box].push(await measure(box, letters));
  for (const [box, yardstick, work, bar] of kRows) {
    for (const place of places) {
      const [figure, other] = [box, yardstick].map((each) =>
        median(all[each].flatMap(({times}) => times[place])),
      );
      const ratio = figure / other;
      const outcome =
        bar === Infinity ? ' | ' : `${bar} times | ${ratio <= bar ? 'holds' : 'falls short'}`;
      console.log(
        `| a key ${place} of ${letters.toLocaleString('en')} letters: ${work} | ${shown(figure)} | ${shown(other)} | ${ratio.toPrecision(3)} | ${outcome} |`,
      );
    }
  }
  const lines = ['ours', 'browser', 'editor'].map(
    (each) => all[/** @type {Box} */ (each)][0].lines,
  );
  console.log(
    `\nLines of ${letters.toLocaleString('en')} letters that a screen reader gets: ${lines[0]} of ours, ${lines[1]} of the browser's box, ${lines[2]} of CodeMirror\n`,
  );
}
await stage.close();
