// The same small application by each tool chain, with the package installed in each way: it is
// built or served, and a person composes a statement in it.
import assert from 'node:assert/strict';
import {readFileSync, writeFileSync} from 'node:fs';
import path from 'node:path';
import {after, before, describe, test} from 'node:test';

import {serve} from '../../../scripts/serve.mjs';
import {Stage} from '../harness.mjs';
import {tryApplication} from './composing.mjs';
import {Results} from './results.mjs';
import {kWays, makeApplication, run, startServer, toolLine} from './workshop.mjs';

/**
 * @typedef {object} Chain
 * @property {string} name
 * @property {string} tool  the package whose version counts
 * @property {string} told  what is run, in the words of its users
 * @property {string[]} folders  of this folder, which make the application
 * @property {string[]} line
 * @property {'page' | 'module' | 'script' | 'server'} gives  a whole page in dist/, a bundle for
 *   one there, as a module or as a script, or a server
 */

const kFolders = ['application'];
const kServed = ['--host', '127.0.0.1', '--port', '0'];
const kBundled = [
  'main.js',
  '--bundle',
  '--minify',
  '--target=chrome123,firefox125,safari17.5',
  '--outfile=dist/main.js',
];
/** @type {Chain[]} */
const kChains = [
  ...['vite5', 'vite6', 'vite7', 'vite'].flatMap((tool) => [
    /** @type {Chain} */ ({
      name: 'Vite',
      tool,
      told: 'vite build',
      folders: kFolders,
      line: [tool, 'build'],
      gives: 'page',
    }),
    /** @type {Chain} */ ({
      name: 'Vite',
      tool,
      told: 'vite',
      folders: kFolders,
      line: [tool, ...kServed],
      gives: 'server',
    }),
  ]),
  {
    name: 'webpack',
    tool: 'webpack',
    told: 'webpack',
    folders: [...kFolders, 'webpack'],
    line: ['webpack-cli'],
    gives: 'script',
  },
  {
    name: 'Rspack',
    tool: '@rspack/core',
    told: 'rspack build',
    folders: [...kFolders, 'rspack'],
    line: ['@rspack/cli', 'build'],
    gives: 'script',
  },
  {
    name: 'Rollup',
    tool: 'rollup',
    told: 'rollup -c',
    folders: [...kFolders, 'rollup'],
    line: ['rollup', '-c'],
    gives: 'module',
  },
  {
    name: 'esbuild',
    tool: 'esbuild',
    told: 'esbuild --format=esm',
    folders: kFolders,
    line: ['esbuild', ...kBundled, '--format=esm'],
    gives: 'module',
  },
  {
    name: 'esbuild',
    tool: 'esbuild',
    told: 'esbuild --format=iife',
    folders: kFolders,
    line: ['esbuild', ...kBundled, '--format=iife'],
    gives: 'script',
  },
  {
    name: 'Parcel',
    tool: 'parcel',
    told: 'parcel build',
    folders: [...kFolders, 'parcel'],
    line: ['parcel', 'build', 'index.html', '--no-cache'],
    gives: 'page',
  },
];

const results = new Results('bundlers');
after(() => results.write());

describe('an application with the package', () => {
  /** @type {Stage} */
  let stage;
  before(async () => {
    stage = await Stage.open();
  });
  after(() => stage.close());

  /// Builds or serves it, and gives its address.
  /** @type {(chain: Chain, folder: string) => ReturnType<typeof startServer>} */
  async function open({line: [tool, ...words], gives}, folder) {
    const line = toolLine(tool, ...words);
    if (gives === 'server') return startServer(folder, line);
    await run(folder, line);
    const root = path.join(folder, 'dist');
    if (gives !== 'page') {
      const page = readFileSync(path.join(folder, 'index.html'), 'utf8');
      const asked = page.replace('type="module"', gives === 'module' ? 'type="module"' : 'defer');
      writeFileSync(path.join(root, 'index.html'), asked);
    }
    return serve({root: {'/': root}});
  }

  for (const chain of kChains) {
    const {name, tool, told} = chain;
    /** @type {(folder: string) => Promise<void>} */
    async function tryOut(folder) {
      const server = await open(chain, folder);
      try {
        await tryApplication(stage, `${server.address}/`);
      } finally {
        await server.close();
      }
    }
    for (const way of kWays)
      test(
        ...results.test({name, tool, told, way}, (title) =>
          tryOut(makeApplication(title, way, chain.folders)),
        ),
      );
    const lean = {name, tool, told, way: 'lean', mayFail: true};
    test(
      ...results.test(lean, (title) => {
        const settings = name === 'Vite' ? ['vite'] : [];
        const folder = makeApplication(title, kWays[0], [...chain.folders, ...settings]);
        const main = path.join(folder, 'main.js');
        const script = readFileSync(main, 'utf8');
        writeFileSync(main, script.replace("'zolt20-map-control'", "'zolt20-map-control/lean'"));
        return tryOut(folder);
      }),
    );
  }
});

describe('Node', () => {
  for (const way of kWays) {
    for (const script of ['import.mjs', 'require.cjs']) {
      test(`${script}, ${way}`, async () => {
        const folder = makeApplication(`Node-${script}`, way, ['node']);
        const said = await run(folder, [process.execPath, script]);
        assert.equal(said, 'ZOLT20Error,ZOLT20MapControlElement\n');
      });
    }
  }
});
