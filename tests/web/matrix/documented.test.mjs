// What docs/web.md tells of tool chains and frameworks is what was seen, and what it shows are the
// applications that were built.
import assert from 'node:assert/strict';
import {readFileSync} from 'node:fs';
import path from 'node:path';
import {describe, test} from 'node:test';

import {kDocument, rowsBelow, tables} from './table.mjs';
import {kMatrix} from './workshop.mjs';

const kSamples = [
  'vite/vite.config.mjs',
  'webpack/webpack.config.mjs',
  'rollup/rollup.config.mjs',
  'parcel/package.json',
  'react/src/rule.tsx',
  'react/src/hydrated_rule.tsx',
  'vue/vite.config.mjs',
  'vue/src/rule.vue',
  'svelte/src/rule.svelte',
];
const document = readFileSync(kDocument, 'utf8');

describe('docs/web.md', () => {
  for (const {head, rows} of tables()) {
    test(`tells what works: ${head.split('\n')[0]}`, () => {
      assert.ok(rows.length > 0);
      const told = rowsBelow(document, head);
      const expected = rows.map(({about, line}, at) =>
        // What this Node can't run was seen by another one.
        line === undefined && told[at]?.startsWith(about) ? told[at] : (line ?? about),
      );
      console.log([head.trimEnd(), ...rows.map(({about, line}) => line ?? about)].join('\n'));
      assert.deepEqual(told, expected);
    });
  }

  for (const sample of kSamples) {
    test(`shows ${sample} as it is`, () => {
      const text = readFileSync(path.join(kMatrix, sample), 'utf8');
      const language = path.extname(sample).slice(1).replace('mjs', 'js');
      assert.ok(document.includes(`\`\`\`${language}\n${text}\`\`\`\n`), text);
    });
  }
});
