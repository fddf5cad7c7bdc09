// Uses the package for npm where it was installed, from the folder of this script: imports it in Node, and opens a page with it in
// Chromium. Ends with an error when anything is otherwise than it should be.
//   node installed_element.mjs TOOLS       TOOLS is the package.json beside which the browser's driver was installed
import assert from 'node:assert/strict';
import {writeFileSync} from 'node:fs';
import {createRequire} from 'node:module';
import path from 'node:path';
import {fileURLToPath, pathToFileURL} from 'node:url';

const {chromium} = createRequire(path.resolve(process.argv[2]))('playwright-core');
const here = path.dirname(fileURLToPath(import.meta.url));

const require = createRequire(import.meta.url);
for (const given of [await import('zolt20-map-control'), require('zolt20-map-control')])
  for (const name of ['ZOLT20Error', 'ZOLT20MapControlElement'])
    assert.equal(typeof given[name], 'function');

const page = path.join(here, 'page.html');
const folder = path.dirname(require.resolve('zolt20-map-control/package.json'));
const script = path.join(folder, 'zolt20-map-control.classic.js');
writeFileSync(
  page,
  `<script src="${pathToFileURL(script)}"></script><zolt20-map-control></zolt20-map-control>`,
);
const browser = await chromium.launch({
  executablePath: process.env.CHROMIUM ?? '/usr/bin/chromium',
  args: ['--no-sandbox'],
});
try {
  const tab = await browser.newPage();
  await tab.goto(String(pathToFileURL(page)));
  const read = await tab.evaluate(async () => {
    await customElements.whenDefined('zolt20-map-control');
    const element = document.querySelector('zolt20-map-control');
    element.PrpStrTables = 'CUSTOMER2';
    element.PrpStrFields = 'char*Q*V*R*N*NCUSTOMER.C_LAST*Q*V*R*N*name';
    element.prpStroutput = 'select CUSTOMER.C_LAST~from  CUSTOMER~endselect';
    return element.prpStroutput;
  });
  assert.equal(read, 'select CUSTOMER.C_LAST\r\nfrom  CUSTOMER\r\nendselect');
} finally {
  await browser.close();
}
