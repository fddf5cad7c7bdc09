// Makes faces/web/src/numbers.ts: the numbers that cross between the module of WebAssembly and the scripts, from where C++ has them.
//   node faces/web/package/numbers.mjs --write     writes the file
//   node faces/web/package/numbers.mjs             fails when the file is another
import {readFileSync, writeFileSync} from 'node:fs';

const kRoot = new URL('../../../', import.meta.url);
const kTarget = new URL('faces/web/src/numbers.ts', kRoot);

const read = (/** @type {string} */ path) => readFileSync(new URL(path, kRoot), 'utf8');

/** @param {string} text */
const withoutComments = (text) => text.replaceAll(/\/\/.*$/gm, '');

/**
 * The text between what begins it and the next closing brace.
 * @param {string} path
 * @param {RegExp} beginning
 */
function bodyOf(path, beginning) {
  const text = withoutComments(read(path));
  const found = beginning.exec(text);
  if (found === null) throw new Error(`${path} has no ${beginning}`);
  const first = found.index + found[0].length;
  return text.slice(first, text.indexOf('}', first));
}

/**
 * The value of a constant of C++, made of numbers and shifts.
 * @param {string} text
 */
function numberOf(text) {
  const plain = text.replaceAll(/(\d)U\b/g, '$1').trim();
  if (!/^[\d\s()<+&~-]+$/.test(plain)) throw new Error(`${text} is no number`);
  return Number(new Function(`return ${plain}`)());
}

/**
 * The enumerators of an enum, each with its number.
 * @param {string} path
 * @param {string} name
 * @returns {[string, number][]}
 */
function enumerators(path, name) {
  let next = 0;
  return bodyOf(path, new RegExp(`enum (?:class )?${name}\\b[^{;]*\\{`))
    .split(',')
    .map((each) => each.trim())
    .filter((each) => each !== '')
    .map((each) => {
      const [, word, value] = /^k?(\w+)(?:\s*=\s*(.+))?$/s.exec(each) ?? [];
      if (word === undefined) throw new Error(`${path}: ${each} is no enumerator`);
      const number = value === undefined ? next : numberOf(value);
      next = number + 1;
      return [word, number];
    });
}

/**
 * The enumerators of a list of rows.
 * @param {string} path
 * @param {string} macro
 * @returns {[string, number][]}
 */
function rows(path, macro) {
  const text = withoutComments(read(path));
  return [...text.matchAll(new RegExp(`^${macro}\\((\\w+)`, 'gm'))].map((row, number) => [
    row[1],
    number,
  ]);
}

/**
 * A constant of C++.
 * @param {string} path
 * @param {string} name
 */
function constant(path, name) {
  const found = new RegExp(`constexpr int ${name} = ([^;]+);`).exec(withoutComments(read(path)));
  if (found === null) throw new Error(`${path} has no ${name}`);
  return numberOf(found[1]);
}

/**
 * An enum of TypeScript.
 * @param {string} comment
 * @param {string} name
 * @param {[string, number][]} members
 */
function written(comment, name, members) {
  const lines = members.map(([word, number]) => `  ${word} = ${number},`);
  return [`/** ${comment} */`, `export const enum ${name} {`, ...lines, '}', ''].join('\n');
}

const kPerson = 'faces/shared/person.h';
/** @type {[string, number][]} */
const changes = enumerators('surface/observer.h', 'Property').map(([word, bit]) => [
  word,
  1 << bit,
]);
for (const word of ['Rows', 'Marks', 'Everything'])
  changes.push([word, constant(kPerson, `k${word}`)]);

const text = [
  '// Made by faces/web/package/numbers.mjs from the lists and enums of C++. Changed there, and written',
  '// anew by it.',
  '',
  written('Kinds of controls.', 'Kind', enumerators('surface/form.h', 'Kind')),
  written('Traits of controls.', 'Style', enumerators('surface/form.h', 'Style')),
  written('What a person does.', 'Gesture', rows('surface/gestures.def', 'ZOLT20_GESTURE')),
  written('Keys of a list.', 'ListKey', enumerators('faces/shared/list_keys.h', 'ListKey')),
  written('What changed of a control, a bit each.', 'What', changes),
  written('Parts of the layout.', 'PartKind', enumerators('faces/shared/layout.h', 'PartKind')),
  written('How a call ended.', 'Status', enumerators(kPerson, 'End')),
  written('Types of values.', 'ValueType', enumerators('shell/contract.h', 'ValueType')),
  written('What a control can be asked.', 'Ask', enumerators('faces/web/exports.cpp', 'Ask')),
  written('The same for texts.', 'AskText', enumerators('faces/web/exports.cpp', 'AskText')),
].join('\n');

if (process.argv[2] === '--write') {
  writeFileSync(kTarget, text);
} else if (text !== read('faces/web/src/numbers.ts')) {
  console.error('faces/web/src/numbers.ts is not what C++ has; write it by');
  console.error('  node faces/web/package/numbers.mjs --write');
  process.exitCode = 1;
}
