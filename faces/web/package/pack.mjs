// Packs the module of WebAssembly for the scripts that have it in them.
//   node pack.mjs WASM PACKED
import {readFileSync, writeFileSync} from 'node:fs';
import {gzipSync} from 'node:zlib';

const [wasm, packed] = process.argv.slice(2);
writeFileSync(packed, gzipSync(readFileSync(wasm), {level: 9}));
