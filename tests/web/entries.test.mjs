// The scripts of the package, each in a page of its own and several in one: when the element is
// there, where its logic comes from, and what a page has that loads a script twice.
import assert from 'node:assert/strict';
import {spawnSync} from 'node:child_process';
import {createHash} from 'node:crypto';
import {readFileSync} from 'node:fs';
import path from 'node:path';
import {after, before, describe, test} from 'node:test';

import {closePage, Stage} from './harness.mjs';
import {kPackage, kRoot} from './places.mjs';

/** @import {Page} from 'playwright-core' */

const kWhole = '/package/zolt20-map-control.js';
const kLean = '/package/zolt20-map-control.lean.js';
const kClassic = '/package/zolt20-map-control.classic.js';
const kVersion = readFileSync(path.join(kRoot, 'VERSION'), 'utf8').trim();

/** @type {Stage} */
let stage;
before(async () => {
  stage = await Stage.open();
});
after(() => stage?.close());

/// A test in a page that has loaded no script yet and may complain of nothing. What is to be
/// otherwise in the page is told by `prepare`, before the page is there.
/** @type {(name: string, act: (page: Page) => Promise<void>, prepare?: () => void) => void} */
function withEmptyPage(name, act, prepare = () => {}) {
  test(name, {timeout: 60000}, async () => {
    const page = await stage.openPage('about:blank');
    await page.addInitScript(prepare);
    await page.goto(`${stage.address}/empty.html`);
    await act(page);
    await closePage(page);
  });
}

/// Loads a module, and tells whether the element is defined the moment after.
/** @type {(page: Page, address: string) => Promise<{names: string[], isDefined: boolean}>} */
const load = (page, address) =>
  page.evaluate(async (from) => {
    const given = await import(from);
    return {
      names: Object.keys(given).sort(),
      isDefined: customElements.get('zolt20-map-control') === given.ZOLT20MapControlElement,
    };
  }, address);

/// Whether an element that is made by the class of a script works, and its errors are those of the
/// script.
/** @type {(page: Page, address: string) => Promise<string>} */
const useClass = (page, address) =>
  page.evaluate(async (from) => {
    const {ZOLT20MapControlElement, ZOLT20Error} = await import(from);
    await customElements.whenDefined('zolt20-map-control');
    const element = new ZOLT20MapControlElement();
    document.body.append(element);
    element.prpTab = 2;
    const {Tab} = element.dump().controls.tabVrn;
    element.remove();
    try {
      element.prpTab = 9;
    } catch (error) {
      return `${Tab} ${error instanceof ZOLT20Error} ${ZOLT20MapControlElement.version}`;
    }
    return 'no error';
  }, address);
const kWorks = `2 true ${kVersion}`;

const kNames = ['ZOLT20Error', 'ZOLT20MapControlElement'];

describe('the module', () => {
  withEmptyPage('has defined the element when it was imported', async (page) => {
    assert.deepEqual(await load(page, kWhole), {names: kNames, isDefined: true});
    assert.equal(await useClass(page, kWhole), kWorks);
  });

  withEmptyPage('loads nothing but itself', async (page) => {
    /** @type {string[]} */
    const loaded = [];
    page.on('request', (request) => loaded.push(new URL(request.url()).pathname));
    await load(page, kWhole);
    assert.deepEqual(loaded, [kWhole]);
  });

  test('runs under a policy that lets it load nothing', async () => {
    const page = await stage.openPage('about:blank');
    await page.route('**/empty.html', async (route) => {
      const response = await route.fetch();
      const policy = "default-src 'none'; script-src 'self' 'wasm-unsafe-eval'; style-src 'self'";
      const headers = {...response.headers(), 'content-security-policy': policy};
      await route.fulfill({response, headers});
    });
    await page.goto(`${stage.address}/empty.html`);
    await load(page, kWhole);
    assert.equal(await useClass(page, kWhole), kWorks);
    await closePage(page);
  });

  withEmptyPage(
    'has the logic in it as it stands beside it',
    async (page) => {
      await load(page, kWhole);
      const digest = await page.evaluate(() => globalThis.compiled);
      const logic = readFileSync(path.join(kPackage, 'zolt20-map-control.wasm'));
      assert.equal(digest, createHash('sha256').update(logic).digest('hex'));
    },
    () => {
      globalThis.WebAssembly.Module = new Proxy(WebAssembly.Module, {
        construct(target, [bytes]) {
          globalThis.compiled = crypto.subtle
            .digest('SHA-256', bytes)
            .then((digest) =>
              [...new Uint8Array(digest)]
                .map((byte) => byte.toString(16).padStart(2, '0'))
                .join(''),
            );
          return new target(bytes);
        },
      });
    },
  );

  withEmptyPage(
    'defines the element a moment later where a page may not compile so much at once',
    async (page) => {
      assert.deepEqual(await load(page, kWhole), {names: kNames, isDefined: false});
      assert.equal(await useClass(page, kWhole), kWorks);
      // What stood in the page has come alive, too.
      assert.equal(
        await page.evaluate(() => document.querySelector('zolt20-map-control').prpintTabcount),
        0,
      );
    },
    () => {
      const refuse = () => {
        throw new RangeError('so much is compiled aside alone');
      };
      globalThis.WebAssembly.Module = new Proxy(WebAssembly.Module, {construct: refuse});
      globalThis.WebAssembly.Instance = new Proxy(WebAssembly.Instance, {construct: refuse});
    },
  );

  withEmptyPage(
    'fails where the logic can not be compiled, and a later copy has another chance',
    async (page) => {
      await assert.rejects(load(page, kWhole), /no such browser/);
      await page.evaluate(() => {
        globalThis.WebAssembly.Module = globalThis.RealModule;
      });
      assert.equal(await useClass(page, `${kWhole}?again`), kWorks);
    },
    () => {
      globalThis.RealModule = WebAssembly.Module;
      globalThis.WebAssembly.Module = new Proxy(WebAssembly.Module, {
        construct() {
          throw new WebAssembly.CompileError('no such browser');
        },
      });
    },
  );
});

describe('the lean module', () => {
  withEmptyPage('defines the element when the file beside it was loaded', async (page) => {
    const {promise: held, resolve: letGo} = hold();
    await page.route('**/*.wasm', async (route) => {
      await held;
      await route.continue();
    });
    assert.deepEqual(await load(page, kLean), {names: kNames, isDefined: false});
    letGo();
    assert.equal(await useClass(page, kLean), kWorks);
  });

  withEmptyPage('takes the logic from a server that does not know its type', async (page) => {
    await page.route('**/*.wasm', async (route) => {
      const response = await route.fetch();
      await route.fulfill({response, headers: {'content-type': 'application/octet-stream'}});
    });
    await load(page, kLean);
    assert.equal(await useClass(page, kLean), kWorks);
  });

  test('tells that the file is missing, and leaves the page to another script', async () => {
    const page = await stage.openPage('empty.html');
    await page.route('**/*.wasm', (route) => route.fulfill({status: 404}));
    const told = page.waitForEvent('pageerror');
    await load(page, kLean);
    assert.match((await told).message, /zolt20-map-control\.wasm can't be loaded: 404/);
    assert.equal(await useClass(page, kWhole), kWorks);
    await page.context().close();
  });
});

/** @type {() => {promise: Promise<void>, resolve: () => void}} */
function hold() {
  let resolve = () => {};
  return {
    promise: new Promise((resolved) => {
      resolve = resolved;
    }),
    resolve: () => resolve(),
  };
}

describe('two scripts in a page', () => {
  const kCopies = [kWhole, `${kWhole}?copy`, kLean, `${kLean}?copy`];
  for (const first of [kWhole, kLean]) {
    withEmptyPage(`after ${path.basename(first)} have its classes`, async (page) => {
      await load(page, first);
      await page.addScriptTag({url: kClassic});
      const isSame = await page.evaluate(
        async (addresses) => {
          const [classes, ...others] = await Promise.all(addresses.map((from) => import(from)));
          return [...others, globalThis].map(
            (other) =>
              other.ZOLT20MapControlElement === classes.ZOLT20MapControlElement &&
              other.ZOLT20Error === classes.ZOLT20Error,
          );
        },
        [first, ...kCopies],
      );
      assert.deepEqual(isSame, [true, true, true, true, true]);
      for (const copy of kCopies) assert.equal(await useClass(page, copy), kWorks);
    });
  }

  test('of other versions: the first stays, and the second is told of', async () => {
    const page = await stage.openPage('empty.html');
    await page.route('**/other.js', async (route) => {
      const response = await route.fetch({url: stage.address + kWhole});
      const body = (await response.text()).replace(`"${kVersion}"`, '"0.0.7"');
      await route.fulfill({response, body});
    });
    await load(page, kWhole);
    assert.deepEqual(page.complaints, []);
    assert.equal(await useClass(page, '/package/other.js'), kWorks);
    assert.deepEqual(page.complaints, [
      `console: <zolt20-map-control> is here already, by a script of version ${kVersion}, which stays in use. ` +
        'The script of version 0.0.7 that was loaded now is not used.',
    ]);
    await page.context().close();
  });

  test('of which the first is not ours: it stays, and the second is told of', async () => {
    const page = await stage.openPage('empty.html');
    const isSame = await page.evaluate(async (from) => {
      class Other extends HTMLElement {}
      customElements.define('zolt20-map-control', Other);
      return (await import(from)).ZOLT20MapControlElement === Other;
    }, kWhole);
    assert.ok(isSame);
    assert.match(page.complaints.join(), /by a script of version unknown, which stays in use/);
    await page.context().close();
  });
});

describe('where there is no page', () => {
  /** @type {(kind: string, script: string) => string} */
  const run = (kind, script) => {
    const {stdout, stderr, status} = spawnSync(
      process.execPath,
      [`--input-type=${kind}`, '-e', script],
      {encoding: 'utf8'},
    );
    assert.equal(status, 0, stderr);
    assert.equal(stderr, '');
    return stdout.trim();
  };
  /** @type {(file: string) => string} */
  const inPackage = (file) => path.join(kPackage, file);
  const tell = (/** @type {string} */ all) =>
    `console.log(Object.keys(${all}).filter((name) => name !== 'default').sort().join(), typeof ${all}.ZOLT20MapControlElement)`;
  const kBoth = `${kNames.join()} function`;

  for (const file of ['zolt20-map-control.js', 'zolt20-map-control.lean.js']) {
    test(`${file} can be imported`, () => {
      assert.equal(
        run('module', `import * as all from '${inPackage(file)}';${tell('all')}`),
        kBoth,
      );
    });
  }
  test('zolt20-map-control.cjs can be required, and imported by its names', () => {
    const file = inPackage('zolt20-map-control.cjs');
    assert.equal(run('commonjs', `const all = require('${file}');${tell('all')}`), kBoth);
    assert.equal(
      run('module', `import {${kNames.join()}} from '${file}'; console.log(typeof ZOLT20Error)`),
      'function',
    );
  });
  test('the classic script leaves its classes, by either way', () => {
    const told = 'console.log(typeof ZOLT20Error, typeof ZOLT20MapControlElement)';
    const file = inPackage('zolt20-map-control.classic');
    assert.equal(run('module', `import '${file}.js';${told}`), 'function function');
    assert.equal(run('commonjs', `require('${file}.cjs');${told}`), 'function function');
  });
});
