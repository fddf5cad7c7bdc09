// The package as it is installed: what the linters of packages say of it, what its entries give to
// import and to require(), and what its types know in projects of every kind.
import assert from 'node:assert/strict';
import {mkdirSync, readdirSync, readFileSync, writeFileSync} from 'node:fs';
import path from 'node:path';
import {after, before, describe, test} from 'node:test';
import {pathToFileURL} from 'node:url';

import {Site} from './packed.mjs';
import {kModules, kPackage, kRoot, kTests} from './places.mjs';

/** @type {Site} */
let site;
before(() => {
  site = new Site('@types', 'csstype', 'preact', 'vue', '@vue', 'svelte');
});
after(() => site?.remove());

/** @type {(name: string) => Promise<any>} */
const linter = (name) => import(String(pathToFileURL(path.join(kModules, 'node_modules', name))));

describe('the archive', () => {
  test('has every file of the package', () => {
    assert.deepEqual(readdirSync(site.package).sort(), readdirSync(kPackage).sort());
  });

  test('is found right by publint', async () => {
    const {publint} = await linter('publint/src/index-node.js');
    const {messages} = await publint({pkgDir: site.package, strict: true, pack: false});
    assert.deepEqual(messages, []);
    // And a package that is not.
    const pkgDir = path.join(site.folder, 'wrong');
    mkdirSync(pkgDir);
    const list = {name: 'wrong', version: '1.0.0', main: './none.js'};
    writeFileSync(path.join(pkgDir, 'package.json'), JSON.stringify(list));
    const wrong = await publint({pkgDir, strict: true, pack: false});
    assert.notEqual(wrong.messages.length, 0);
  });

  // What takes no notice of the list of entries has the one entry that all packages have.
  test('has types that go with its scripts', async () => {
    const {checkPackage, Package} = await linter('@arethetypeswrong/core/dist/index.js');
    const files = Object.fromEntries(
      readdirSync(site.package).map((file) => [
        `/node_modules/zolt20-map-control/${file}`,
        new Uint8Array(readFileSync(path.join(site.package, file))),
      ]),
    );
    const {types, entrypoints, problems} = await checkPackage(
      new Package(files, 'zolt20-map-control', '1.0.0'),
      {excludeEntrypoints: ['./wasm']},
    );
    assert.ok(types);
    assert.ok(Object.keys(entrypoints).length > 6);
    /** @type {{entrypoint?: string, resolutionKind?: string}[]} */
    const told = problems;
    assert.deepEqual(
      told.filter((one) => one.resolutionKind !== 'node10' || one.entrypoint === '.'),
      [],
    );
  });
});

describe('by its name', () => {
  const kNames = 'ZOLT20Error,ZOLT20MapControlElement';
  for (const entry of ['', '/lean', '/react', '/preact', '/vue', '/svelte']) {
    test(`zolt20-map-control${entry} can be imported and required`, () => {
      const name = `zolt20-map-control${entry}`;
      const tell = 'console.log(Object.keys(all).sort().join())';
      assert.equal(site.node('module', `import * as all from '${name}';${tell}`), kNames);
      assert.equal(site.node('commonjs', `const all = require('${name}');${tell}`), kNames);
    });
  }
  test('the classic script can, and leaves its classes', () => {
    const tell = 'console.log(typeof ZOLT20Error, typeof ZOLT20MapControlElement)';
    const name = 'zolt20-map-control/classic';
    assert.equal(site.node('module', `import '${name}';${tell}`), 'function function');
    assert.equal(site.node('commonjs', `require('${name}');${tell}`), 'function function');
  });
  test('the statement language can, and leaves nothing', () => {
    const names = 'check,encode,explain,load,outline,reopen,uses';
    const tell =
      'console.log(Object.keys(all).sort().join(), globalThis.ZOLT20Error, all.check("endif").length)';
    const name = 'zolt20-map-control/language';
    const told = `${names} undefined 1`;
    assert.equal(site.node('module', `import * as all from '${name}';${tell}`), told);
    assert.equal(site.node('commonjs', `const all = require('${name}');${tell}`), told);
  });
  test('the box of statements can, and gives its class alone', () => {
    const tell = 'console.log(Object.keys(all).join(), globalThis.ZOLT20Error)';
    const name = 'zolt20-map-control/text-box';
    const told = 'ZOLT21SyntTextBoxElement undefined';
    assert.equal(site.node('module', `import * as all from '${name}';${tell}`), told);
    assert.equal(site.node('commonjs', `const all = require('${name}');${tell}`), told);
  });
  test('the logic and the manifest are found', () => {
    const files = "['wasm', 'custom-elements.json', 'package.json']";
    const find = "(file) => require.resolve('zolt20-map-control/' + file)";
    const found = site.node('commonjs', `console.log(${files}.map(${find}).join('\\n'))`);
    assert.equal(found.split('\n').length, 3);
  });
});

describe('the types', () => {
  const kBundled = {module: 'esnext', moduleResolution: 'bundler'};
  const kNode = {module: 'nodenext', moduleResolution: 'nodenext'};
  /** @type {(file: string) => string} */
  const textOf = (file) => readFileSync(path.join(kTests, file), 'utf8');
  const host = textOf('typed_host.ts');
  const classic = textOf('typed/classic.ts');
  /** @type {(names: string[]) => Record<string, string>} */
  const typed = (names) => Object.fromEntries(names.map((name) => [name, textOf(`typed/${name}`)]));
  const frameworks = typed(['react.tsx', 'preact.tsx', 'vue.ts', 'svelte.ts']);

  // Each project compiles as it is, and each of its wrong uses is refused.
  /** @type {(where: Site, texts: Record<string, string>) => void} */
  const holds = (where, texts) => {
    assert.deepEqual(where.complaintsOfTypes(kBundled, texts), []);
    const wrong = Object.entries(texts).map(([name, text]) => [
      name,
      text.replaceAll('@ts-expect-error', ''),
    ]);
    const refused = where.complaintsOfTypes(kBundled, Object.fromEntries(wrong));
    for (const [name, text] of Object.entries(texts)) {
      const count = text.split('@ts-expect-error').length - 1;
      assert.ok(count > 0);
      const here = refused.filter((line) => line.startsWith(`${name}(`));
      assert.equal(here.length, count, here.join('\n'));
    }
  };
  /** @type {Site} */
  let plain;
  before(() => {
    plain = new Site();
  });
  after(() => plain?.remove());

  test('hold where no framework is there', () =>
    holds(plain, {'host.ts': host, 'classic.ts': classic}));
  test('hold in templates of frameworks', () => holds(site, frameworks));

  test('hold as docs/web.md shows them', () => {
    const page = readFileSync(path.join(kRoot, 'docs/web.md'), 'utf8');
    // Those of whole applications are run by the tests in matrix/.
    const section = page.split('### In templates of frameworks\n')[1].split('\n##')[0];
    const samples = [...section.matchAll(/^```(tsx?)\n(.*?)^```$/gms)];
    assert.equal(samples.length, 2);
    const use = 'export const rule = <zolt20-map-control tables="CUSTOMER2" ref={null} />;';
    const [shown, own] = samples.map(([, kind, text]) => ({[`sample.${kind}`]: text}));
    assert.deepEqual(site.complaintsOfTypes(kBundled, shown), []);
    assert.deepEqual(site.complaintsOfTypes(kBundled, {...own, 'use.tsx': use}), []);
    assert.notDeepEqual(site.complaintsOfTypes(kBundled, {'use.tsx': use}), []);
  });

  test('are the same by import and by require()', () => {
    const both = `
import type * as imported from 'zolt20-map-control' with {'resolution-mode': 'import'};
import type * as required from 'zolt20-map-control' with {'resolution-mode': 'require'};
declare const one: imported.ZOLT20MapControlElement;
export const other: required.ZOLT20MapControlElement = one;
export const made: imported.ZOLT20MapControlElement = document.createElement('zolt20-map-control');
export const lean = import('zolt20-map-control/lean');
`;
    const scripts = {
      'host.mts': host,
      'host.cts': host,
      'classic.mts': classic,
      'classic.cts': classic,
      'both.mts': both,
    };
    assert.deepEqual(plain.complaintsOfTypes(kNode, scripts), []);
  });
  test('know templates by import and by require() too', () => {
    const {'svelte.ts': svelte, ...others} = frameworks;
    // Svelte itself has types for import alone.
    const texts = {...others, 'svelte.mts': svelte};
    assert.deepEqual(site.complaintsOfTypes(kNode, texts), []);
  });
});
