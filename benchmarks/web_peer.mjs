// The browser element beside react-querybuilder, both drawn by Chromium in one run: page after page in turns, so that
// another program on the machine is in the way of both.
//   node benchmarks/web_peer.mjs FOLDER        FOLDER holds peer.js; the environment of the tests of tests/web
import {fileURLToPath} from 'node:url';

import {Stage, closePage} from '../tests/web/harness.mjs';

/** @import {Page} from 'playwright-core' */

const kLoads = 15;
const kRules = 9;
const kScripts = {ours: './ours.js', theirs: '/peer/peer.js'};
const kMegabyte = 1e6;

const stage = await Stage.open({
  '/bench/': fileURLToPath(new URL('web', import.meta.url)),
  '/peer/': process.argv[2],
});

/** @type {(values: number[]) => number} */
const median = (values) => values.slice().sort((a, b) => a - b)[values.length >> 1];

/** @type {(page: Page) => Promise<{megabytes: number, nodes: number}>} */
async function sizeOf(page) {
  const tools = await page.context().newCDPSession(page);
  await tools.send('Performance.enable');
  await tools.send('HeapProfiler.collectGarbage');
  const {metrics} = await tools.send('Performance.getMetrics');
  /** @type {(name: string) => number} */
  const metric = (name) => metrics.find((each) => each.name === name)?.value ?? NaN;
  const beside = await page.evaluate(async () => (await import('/bench/builder.js')).bytesBeside());
  return {megabytes: (metric('JSHeapUsedSize') + beside) / kMegabyte, nodes: metric('Nodes')};
}

/** @type {(script: string, fields: number) => Promise<{ready: number, rule: number, megabytes: number, nodes: number}>} */
async function measure(script, fields) {
  const page = await stage.openPage('bench/builder.html');
  const ready = await page.evaluate(
    async ([source, count]) => (await import('/bench/builder.js')).ready(source, count),
    /** @type {[string, number]} */ ([script, fields]),
  );
  const rules = [];
  for (let rule = 0; rule < kRules; ++rule)
    rules.push(await page.evaluate(async () => (await import('/bench/builder.js')).rule()));
  const size = await sizeOf(page);
  await closePage(page);
  return {ready, rule: median(rules), ...size};
}

console.log(
  '| work | fields | ours | react-querybuilder | ratio |\n| --- | --- | --- | --- | --- |',
);
for (const fields of [1000, 5000]) {
  /** @type {Record<keyof typeof kScripts, Awaited<ReturnType<typeof measure>>[]>} */
  const all = {ours: [], theirs: []};
  for (let load = 0; load < kLoads; ++load) {
    all.ours.push(await measure(kScripts.ours, fields));
    all.theirs.push(await measure(kScripts.theirs, fields));
  }
  for (const [work, key, unit] of /** @type {const} */ ([
    ['the page to the builder in its first frame', 'ready', 'ms'],
    [`a rule, drawn, of ${kRules}`, 'rule', 'ms'],
    [`memory with ${kRules} rules`, 'megabytes', 'MB'],
    [`nodes with ${kRules} rules`, 'nodes', ''],
  ])) {
    const [ours, theirs] = [all.ours, all.theirs].map((runs) =>
      median(runs.map((run) => run[key])),
    );
    /** @type {(value: number) => string} */
    const shown = (value) => `${unit === '' ? value : value.toPrecision(3)} ${unit}`.trim();
    console.log(
      `| ${work} | ${fields} | ${shown(ours)} | ${shown(theirs)} | ${(ours / theirs).toPrecision(2)} |`,
    );
  }
}
await stage.close();
