// The element in an application of each framework, with the package installed in each way: made in
// the page, made on a server and taken over by the page, and with its types held against right and
// wrong uses.
import assert from 'node:assert/strict';
import {readdirSync, readFileSync, writeFileSync} from 'node:fs';
import path from 'node:path';
import {after, before, describe, test} from 'node:test';
import {pathToFileURL} from 'node:url';

import {serve} from '../../../scripts/serve.mjs';
import {closePage, Stage} from '../harness.mjs';
import {compose, kStatement, personAt} from './composing.mjs';
import {Results} from './results.mjs';
import {jsonOf, kWays, makeApplication, run, toolLine} from './workshop.mjs';

/** @import {Person} from '../harness.mjs' */
/** @import {Row} from './results.mjs' */

/**
 * @typedef {object} Framework
 * @property {string} name
 * @property {string} tool  the package whose version counts
 * @property {string} folder
 * @property {string} server  its entry on a server
 * @property {string} typeTool
 * @property {string} [typeToolLoads]  a package that it loads, where that needs a newer Node
 * @property {string[]} typeLine  what checks the types
 * @property {RegExp} complaint  a file and a line that the compiler refuses
 */

const kOfCompiler = /^(src\/[\w.]+)\((\d+),\d+\): error/gm;
/** @type {Framework[]} */
const kFrameworks = [
  {
    name: 'React',
    tool: 'react',
    folder: 'react',
    server: 'src/server.tsx',
    typeTool: 'typescript',
    typeLine: ['--pretty', 'false'],
    complaint: kOfCompiler,
  },
  {
    name: 'Vue',
    tool: 'vue',
    folder: 'vue',
    server: 'src/server.ts',
    typeTool: 'vue-tsc',
    typeLine: ['--pretty', 'false'],
    complaint: kOfCompiler,
  },
  {
    name: 'Svelte',
    tool: 'svelte',
    folder: 'svelte',
    server: 'src/server.ts',
    typeTool: 'svelte-check',
    typeToolLoads: '@sveltejs/vite-plugin-svelte',
    typeLine: ['--tsconfig', './tsconfig.json', '--output', 'machine'],
    complaint: /^\d+ (?:ERROR|WARNING) "([^"]+)" (\d+):\d+ /gm,
  },
];
const kRoot = '<div id="application">';

const results = new Results('frameworks');
after(() => results.write());

describe('an application of a framework', () => {
  /** @type {Stage} */
  let stage;
  before(async () => {
    stage = await Stage.open();
  });
  after(() => stage.close());

  /// Opens the page of an application and has a person try it.
  /** @type {(folder: string, act: (person: Person) => Promise<void>) => Promise<void>} */
  async function open(folder, act) {
    const server = await serve({root: {'/': path.join(folder, 'dist')}});
    try {
      const page = await stage.openPage(`${server.address}/`);
      try {
        await act(await personAt(page));
      } catch (error) {
        const {message} = /** @type {Error} */ (error);
        throw new Error([message, ...page.complaints].join('\n'), {cause: error});
      }
      await closePage(page);
    } finally {
      await server.close();
    }
  }
  /// What is in the list of tables, and so whether the element was filled, once.
  /** @type {(person: Person) => Promise<unknown>} */
  const tablesOf = async (person) => (await person.dump()).controls.lsttables.List;
  /** @type {(person: Person) => Promise<void>} */
  async function use(person) {
    assert.deepEqual(await tablesOf(person), ['CUSTOMER', 'ORDERS__']);
    const isColored = () => document.querySelector('zolt20-map-control')?.Syntax_Highlight;
    assert.equal(await person.page.evaluate(isColored), true);
    await compose(person);
    // A framework draws when it comes to it.
    const shown = person.page.locator('pre');
    await person.waitFor('the page shows the text', async () => (await shown.textContent()) !== '');
    assert.equal(await shown.textContent(), kStatement);
    // Values that go away leave the element as it is.
    await person.page.getByRole('button', {name: 'Drop'}).click();
    await person.nextFrame();
    assert.deepEqual(await tablesOf(person), ['CUSTOMER', 'ORDERS__']);
    await person.clickRow('lsttables', 1);
    assert.deepEqual((await person.dump()).controls.lsttables.Selected, [true, true]);
  }

  for (const framework of kFrameworks) {
    for (const way of kWays) {
      const {name, tool, folder: source, server, typeTool, typeLine, complaint} = framework;
      const typesBy = framework.typeToolLoads ?? typeTool;
      /** @type {(title: string) => string} */
      const make = (title) => makeApplication(title, way, ['framework', source]);
      /** @type {(told: string, by?: string) => Row} */
      const row = (told, by = 'vite') => ({name, tool, by, told, way});

      test(
        ...results.test(row('in the page'), async (title) => {
          const folder = make(title);
          await run(folder, toolLine('vite', 'build'));
          await open(folder, use);
        }),
      );

      test(
        ...results.test(row('from a server'), async (title) => {
          const folder = make(title);
          await run(folder, toolLine('vite', 'build'));
          await run(folder, toolLine('vite', 'build', '--ssr', server, '--outDir', 'server'));
          const {render} = await import(pathToFileURL(path.join(folder, 'server/server.js')).href);
          const html = await render();
          assert.match(html, /<zolt20-map-control[^>]* tables="CUSTOMER2,ORDERS__1"/);
          // The element that came from the server is marked, so that it is known again.
          const marked = html.replace('<zolt20-map-control', '$& data-server');
          const page = path.join(folder, 'dist/index.html');
          const empty = readFileSync(page, 'utf8');
          writeFileSync(
            page,
            empty.replace(kRoot, () => kRoot + marked),
          );
          await open(folder, async (person) => {
            await use(person);
            assert.equal(await person.page.locator('zolt20-map-control').count(), 1);
            assert.equal(await person.page.locator('[data-server]').count(), 1);
          });
        }),
      );

      test(
        ...results.test(row('types', typesBy), async (title) => {
          const folder = make(title);
          if (way === 'link') {
            // Otherwise the types look for those of the framework beside the folder itself.
            const settings = path.join(folder, 'tsconfig.json');
            const {compilerOptions, ...others} = jsonOf(settings);
            compilerOptions.preserveSymlinks = true;
            writeFileSync(settings, JSON.stringify({compilerOptions, ...others}));
          }
          /** @type {string[]} */
          const expected = [];
          for (const file of readdirSync(path.join(folder, 'src'))) {
            const lines = readFileSync(path.join(folder, 'src', file), 'utf8').split('\n');
            lines.forEach((line, at) => {
              if (line.includes('Refused: ')) expected.push(`src/${file}:${at + 2}`);
            });
          }
          assert.ok(expected.length > 1);
          const line = toolLine(typeTool, ...typeLine);
          const said = await run(folder, line).catch(({message}) => message);
          const found = [...said.matchAll(complaint)].map(([, file, at]) => `${file}:${at}`);
          assert.deepEqual(found.sort(), expected.sort(), said);
        }),
      );
    }
  }
});
