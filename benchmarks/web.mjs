// What the browser element costs, in Chromium: each figure beside its yardstick of the same run.
// Times are medians of what the page itself measures; another program on the machine still shows in
// them, so they are to be read as ratios.
//   node benchmarks/web.mjs        with the environment of the tests of tests/web
import fs from 'node:fs';
import path from 'node:path';
import {fileURLToPath} from 'node:url';
import {gzipSync} from 'node:zlib';

import {Stage, closePage} from '../tests/web/harness.mjs';
import {kPackage} from '../tests/web/places.mjs';

/** @import {Page} from 'playwright-core' */

const kRuns = 15;
const kPages = fileURLToPath(new URL('web', import.meta.url));

/** @type {(values: number[]) => number} */
const median = (values) => values.slice().sort((a, b) => a - b)[values.length >> 1];
/** @type {(milliseconds: number) => string} */
const shown = (milliseconds) =>
  milliseconds < 1
    ? `${(1000 * milliseconds).toPrecision(3)} µs`
    : `${milliseconds.toPrecision(3)} ms`;
/** @type {(work: string, figure: number, yardstick: number, bar?: string) => void} */
const row = (work, figure, yardstick, bar = '') =>
  console.log(
    `| ${work} | ${shown(figure)} | ${shown(yardstick)} | ${(figure / yardstick).toPrecision(3)} | ${bar} |`,
  );

const stage = await Stage.open({'/bench/': kPages});

// From the start of the script to an element that is drawn, each time in a page that is loaded
// anew. The first few make it warm.
/** @type {(script: string) => Promise<number>} */
async function readyTimes(script) {
  const kWarm = 5;
  const page = await stage.openPage('bench/page.html');
  const times = [];
  for (let run = 0; run < kWarm + kRuns; ++run) {
    await page.reload();
    times.push(
      await page.evaluate(
        async (source) => (await import('/bench/measure.js')).ready(source),
        script,
      ),
    );
  }
  await closePage(page);
  return median(times.slice(kWarm));
}

/// The median of what is measured in a page of its own.
/** @type {(measure: (page: Page) => Promise<number[]>) => Promise<number>} */
async function medianOf(measure) {
  const page = await stage.openPage('bench/page.html');
  const times = await measure(page);
  await closePage(page);
  return median(times);
}
/** @type {(tag: string) => Promise<number>} */
const further = (tag) =>
  medianOf((page) =>
    page.evaluate(async (name) => (await import('/bench/measure.js')).further(name), tag),
  );
/** @typedef {'firstScreen' | 'tables' | 'filter' | 'click' | 'key' | 'plainKey'} Measure */
/** @type {(measure: Measure, count: number) => Promise<number>} */
const measured = (measure, count) =>
  medianOf((page) =>
    page.evaluate(
      async ([name, given]) => (await import('/bench/measure.js'))[name](given),
      /** @type {[Measure, number]} */ ([measure, count]),
    ),
  );

console.log(
  '| work / yardstick | figure | yardstick | ratio | bar |\n| --- | --- | --- | --- | --- |',
);
row(
  'the script to an element that is drawn / to an empty element',
  await readyTimes('/package/zolt20-map-control.js'),
  await readyTimes('/bench/empty.js'),
  '100 ms',
);
row(
  'a further element, drawn / an empty one',
  await further('zolt20-map-control'),
  await further('zolt20-empty'),
  '6 ms',
);
const few = 1000;
const many = 100_000;
row(
  'the first screen of a list: 100,000 rows / 1,000',
  await measured('firstScreen', many),
  await measured('firstScreen', few),
  '16 ms more',
);
row(
  'PrpStrTables and the first screen: 100,000 rows / 1,000',
  await measured('tables', many),
  await measured('tables', few),
);
row(
  'a letter in the filter of a list: 100,000 rows / 1,000',
  await measured('filter', many),
  await measured('filter', few),
);
row(
  'a click on a row: 100,000 rows / 1,000',
  await measured('click', many),
  await measured('click', few),
);
for (const letters of [few, 20_000, 600_000]) {
  row(
    `a key in a coloured text of ${letters.toLocaleString('en')} letters / in a box of the browser`,
    await measured('key', letters),
    await measured('plainKey', letters),
  );
}
await stage.close();

/** @type {(...names: string[]) => number} */
const packed = (...names) =>
  names
    .map((name) => fs.readFileSync(path.join(kPackage, `zolt20-map-control.${name}`)))
    .reduce((sum, bytes) => sum + gzipSync(bytes, {level: 9}).length, 0);
console.log(
  `\nCompressed with gzip: ${packed('js')} bytes, and ${packed('lean.js', 'wasm')} of lean and .wasm (150,000)`,
);
