// The tables of docs/web.md that tell what works where, made of what was seen.
//   node tests/web/matrix/table.mjs [--write]     prints them, or puts them into the document
import {readFileSync, writeFileSync} from 'node:fs';
import path from 'node:path';
import {fileURLToPath} from 'node:url';

import {kRoot} from '../places.mjs';
import {jsonOf, kWays, kWorkshop} from './workshop.mjs';

/** @import {Result} from './results.mjs' */

export const kDocument = path.join(kRoot, 'docs/web.md');
const kCell = ' | ';
/** @type {Readonly<Record<string, {heads: string[], ways: string[][]}>>} */
const kTables = {
  bundlers: {
    heads: ['tool chain', 'version', 'run', '`zolt20-map-control`', '`zolt20-map-control/lean`'],
    ways: [kWays, ['lean']],
  },
  frameworks: {heads: ['framework', 'version', 'what', 'works'], ways: [kWays]},
};

/** @type {(cells: string[]) => string} */
const lineOf = (cells) => `| ${cells.join(kCell)} |`;

/// Whether something worked in all of its ways; undefined when one of them was not tried.
/** @type {(results: Result[]) => string | undefined} */
function wordOf(results) {
  if (results.length === 0 || results.some(({worked}) => worked === undefined)) return undefined;
  return results.every(({worked}) => worked) ? 'yes' : 'no';
}

/// The rows of a table. One that was not tried here, since it needs another Node, ends behind what
/// it is about.
/** @type {(name: string) => {about: string, line: string | undefined}[]} */
function rowsOf(name) {
  /** @type {Result[]} */
  const results = jsonOf(path.join(kWorkshop, 'results', `${name}.json`));
  /** @type {Map<string, Result[]>} */
  const groups = new Map();
  for (const result of results) {
    const told = name === 'bundlers' ? `\`${result.told}\`` : result.told;
    const about = `| ${[result.name, result.version, told].join(kCell)} | `;
    groups.set(about, [...(groups.get(about) ?? []), result]);
  }
  return [...groups].map(([about, group]) => {
    const words = kTables[name].ways.map((ways) =>
      wordOf(group.filter(({way}) => ways.includes(way))),
    );
    const isWhole = words.every((word) => word !== undefined);
    return {about, line: isWhole ? `${about}${words.join(kCell)} |` : undefined};
  });
}

/// The tables as they have to stand in the document, by the names of the results.
/** @type {() => {head: string, rows: {about: string, line: string | undefined}[]}[]} */
export const tables = () =>
  Object.entries(kTables).map(([name, {heads}]) => ({
    head: `${lineOf(heads)}\n${lineOf(heads.map(() => '---'))}\n`,
    rows: rowsOf(name),
  }));

/// The rows that a document has below a head.
/** @type {(text: string, head: string) => string[]} */
export function rowsBelow(text, head) {
  const start = text.indexOf(head);
  if (start < 0) return [];
  const lines = text.slice(start + head.length).split('\n');
  return lines.slice(
    0,
    lines.findIndex((line) => !line.startsWith('|')),
  );
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
  let text = readFileSync(kDocument, 'utf8');
  for (const {head, rows} of tables()) {
    const left = rows.filter(({line}) => line === undefined);
    console.log(head + rows.map(({about, line}) => line ?? `${about}not tried`).join('\n'));
    if (!process.argv.includes('--write')) continue;
    if (left.length > 0) throw new Error('not everything was tried');
    if (!text.includes(head)) throw new Error(`docs/web.md has no table ${head}`);
    const whole = (/** @type {(string | undefined)[]} */ lines) =>
      head + lines.map((line) => `${line}\n`).join('');
    text = text.replace(whole(rowsBelow(text, head)), () => whole(rows.map(({line}) => line)));
  }
  if (process.argv.includes('--write')) writeFileSync(kDocument, text);
}
