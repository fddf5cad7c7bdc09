// What the package tells of itself: the samples do what they say, and nothing is left out.
import assert from 'node:assert/strict';
import {spawnSync} from 'node:child_process';
import {readFileSync, writeFileSync} from 'node:fs';
import path from 'node:path';
import {after, before, describe, test} from 'node:test';

import {kEvents, kMembers} from './form.mjs';
import {closePage, Person, Stage} from './harness.mjs';
import {Site} from './packed.mjs';
import {kTests} from './places.mjs';

/** @type {Site} */
let site;
/** @type {string} */
let readme;
/** @type {Record<string, string>} */
let samples;
before(() => {
  site = new Site('@types', 'csstype');
  readme = readFileSync(path.join(site.package, 'README.md'), 'utf8');
  samples = Object.fromEntries(
    [...readme.matchAll(/^```(\w+)\n(.*?)^```$/gms)].map(([, language, text]) => [language, text]),
  );
});
after(() => site?.remove());

describe('README.md of the package', () => {
  test('names every member and event of the contract, and leaves nothing open', () => {
    const rows = [...readme.matchAll(/^\| `(\w+)(\(\))?` \|/gm)].map(([, name]) => name);
    for (const name of [...kMembers.map((member) => member.name), ...kEvents])
      assert.equal(rows.filter((row) => row === name).length, 1, name);
    for (const {name, canSet} of kMembers)
      assert.match(
        readme,
        new RegExp(`\\| \`${name}(\\(\\))?\` \\| ${canSet ? '`[a-z-]+`' : ''} \\|`),
      );
    assert.doesNotMatch(readme, /@\w+@|https?:/);
    assert.match(readme, /!\[.*\]\(picture\.png\)/);
  });

  test('names every entry', () => {
    const {exports} = JSON.parse(readFileSync(path.join(site.package, 'package.json'), 'utf8'));
    const listed = readme.slice(
      readme.indexOf('| entry |'),
      readme.indexOf('The element is defined'),
    );
    for (const entry of Object.keys(exports).filter((name) => !/wasm|json/.test(name)))
      assert.ok(listed.includes(`${entry.replace('.', '')}\``), entry);
  });

  test('the samples make a page that shows the statement', async () => {
    const {js, html} = samples;
    writeFileSync(path.join(site.folder, 'rule.js'), js);
    writeFileSync(path.join(site.folder, 'rule.html'), html);
    // What a page is asked by the verbs of a person.
    writeFileSync(
      path.join(site.folder, 'host.js'),
      readFileSync(path.join(kTests, 'pages/host.js')),
    );
    const bundled = spawnSync('esbuild', ['rule.js', '--bundle', '--outfile=bundle.js'], {
      cwd: site.folder,
      encoding: 'utf8',
    });
    assert.equal(bundled.status, 0, bundled.stderr);
    const stage = await Stage.open({'/': site.folder});
    try {
      const person = new Person(await stage.openPage('rule.html'));
      await person.page.addScriptTag({url: '/host.js'});
      await person.page.evaluate(() => beginHost());
      await person.clickRow('lsttables', 0);
      await person.clickRow('lstFields', 1);
      await person.click('cmdMoveOne');
      await person.click('cmdAddSelect');
      await person.tab(2);
      await person.click('cmdFunction(0)');
      await person.click('cmdAddSelectDoQuer');
      await person.tab(0);
      await person.click('cmdDone');
      const shown = await person.page.evaluate(() => document.querySelector('output').textContent);
      assert.equal(
        shown,
        'select CUSTOMER.C_LAST\r\nfrom  CUSTOMER\r\nselectdo\r\n\tprint ( :var.name )\r\nendselect',
      );
      await closePage(person.page);
    } finally {
      await stage.close();
    }
  });

  test('the sample of React has the right types', () => {
    const options = {module: 'esnext', moduleResolution: 'bundler'};
    const {tsx} = samples;
    assert.deepEqual(site.complaintsOfTypes(options, {'rule.tsx': tsx}), []);
    const wrong = tsx.replace('PrpStrTables', 'PrpStrTable');
    assert.equal(site.complaintsOfTypes(options, {'rule.tsx': wrong}).length, 1);
  });
});
