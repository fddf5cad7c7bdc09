// What the scripts unpack of themselves, against what packs it.
import assert from 'node:assert/strict';
import {spawnSync} from 'node:child_process';
import {mkdtempSync, readFileSync, rmSync} from 'node:fs';
import {tmpdir} from 'node:os';
import path from 'node:path';
import {describe, test} from 'node:test';
import {pathToFileURL} from 'node:url';
import {constants, gzipSync} from 'node:zlib';

import {kPackage, kRoot} from './places.mjs';

describe('what the scripts unpack', () => {
  test('is what gzip has packed, by each way of packing', async () => {
    const folder = mkdtempSync(path.join(tmpdir(), 'zolt20-'));
    try {
      const script = path.join(folder, 'inflate.mjs');
      const source = path.join(kRoot, 'faces/web/src/inflate.ts');
      const {status} = spawnSync('esbuild', ['--format=esm', `--outfile=${script}`, source]);
      assert.equal(status, 0);
      const {inflated} = await import(String(pathToFileURL(script)));
      const wasm = readFileSync(path.join(kPackage, 'zolt20-map-control.wasm'));
      for (const bytes of [wasm, Buffer.alloc(0), Buffer.from('a'), Buffer.alloc(70000, 'ab')])
        for (const how of [
          {level: 9},
          {level: 1},
          {level: 0},
          {strategy: constants.Z_FIXED},
          {strategy: constants.Z_HUFFMAN_ONLY},
        ]) {
          const unpacked = Buffer.from(inflated(gzipSync(bytes, how)));
          assert.ok(unpacked.equals(bytes), `${bytes.length} ${JSON.stringify(how)}`);
        }
      // A repeat from a distance that no code has.
      const damaged = [...new Array(10).fill(0), 0x03, 0x3e, ...new Array(8).fill(0)];
      assert.throws(() => inflated(Uint8Array.from(damaged)), /damaged/);
    } finally {
      rmSync(folder, {recursive: true});
    }
  });
});
