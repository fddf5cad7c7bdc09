// Writes the module of WebAssembly in letters, for the scripts that have it in them. The letters of the most frequent bytes are
// those that a script needs not escape, and each byte keeps its own: what packs a script on its way packs them as well as the bytes.
//   node letters.mjs WASM OUT
import {readFileSync, writeFileSync} from 'node:fs';

const kBytes = 256;
const [wasm, out] = process.argv.slice(2);
const bytes = readFileSync(wasm);

const counts = new Array(kBytes).fill(0);
for (const byte of bytes) ++counts[byte];
/** @type {(letter: number) => boolean} */
const isPlain = (letter) =>
  letter >= 0x20 && letter < 0x7f && !'"$\'\\`'.includes(String.fromCharCode(letter));
const all = Array.from({length: kBytes}, (_, number) => number);
const letters = [...all.filter(isPlain), ...all.filter((letter) => !isPlain(letter))];
const byCount = [...all].sort((one, other) => counts[other] - counts[one]);

/** @type {string[]} */
const letterOf = [];
byCount.forEach((byte, place) => {
  letterOf[byte] = String.fromCharCode(letters[place]);
});
const text = Array.from(bytes, (byte) => letterOf[byte]).join('');
writeFileSync(out, JSON.stringify({text, letters: letterOf.join('')}));
