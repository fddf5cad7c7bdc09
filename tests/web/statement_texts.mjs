// Texts of the statement language: those of the examples, and others made up at random.
import {readdirSync, readFileSync} from 'node:fs';
import path from 'node:path';

import {kRoot} from './places.mjs';

const kExamples = path.join(kRoot, 'examples');
export const kCatalogueFile = path.join(kExamples, 'catalogue.json');

/// The Results of the recorded sessions and the rules of the composer.
/** @type {() => string[]} */
export function exampleTexts() {
  const sessions = path.join(kExamples, 'sessions');
  const results = readdirSync(sessions).filter((name) => name.endsWith('.result.txt'));
  /** @type {{rules: {text: string}[]}} */
  const {rules} = JSON.parse(readFileSync(path.join(kExamples, 'rules.json'), 'utf8'));
  return [
    ...results.map((name) => readFileSync(path.join(sessions, name), 'utf8')),
    ...rules.map(({text}) => text),
  ];
}

/// The same numbers for the same seed.
/** @type {(seed: number) => (count: number) => number} */
export function numbersOf(seed) {
  let state = seed;
  return (count) => {
    state = (state + 0x6d2b79f5) | 0;
    let mixed = Math.imul(state ^ (state >>> 15), 1 | state);
    mixed = (mixed + Math.imul(mixed ^ (mixed >>> 7), 61 | mixed)) ^ mixed;
    return ((mixed ^ (mixed >>> 14)) >>> 0) % count;
  };
}

const kLines = [
  'select CUSTOMER.C_LAST,CUSTOMER.C_ID',
  'select sum(ORDERS__.O_ID),CUSTOMER.C_LSAT',
  'from  CUSTOMER,ORDERS__',
  'from  NOTHING_',
  'where CUSTOMER.C_ID = round ( :var.id',
  'and CUSTOMER.C_LAST IN ( "a" , "\u00e9\u{1f600}" )',
  'where EXISTS (',
  'group by  CUSTOMER.C_ID',
  'order by CUSTOMER.C_ID desc,,CUSTOMER.C_LAST',
  'as set with 5 rows ',
  ...['selectdo', 'selecteos', 'selectempty', 'selecterror', 'endselect', ')'],
  ...['if :var.a > 1 then ', 'IF x', 'else', 'endif', 'for i = 1 to 3', 'for j', 'endfor'],
  ...['while  a = 1 ', 'endwhile', 'Repeat', 'Until  ( a = 1 )', 'on case ORDERS__.O_ID'],
  ...['case 1 :', 'case', 'default:', 'break', 'endcase', ':var.x = "large', ':var.y = { 1 , 2'],
  ...['print ( ORDERS__.O_IDD )', 'endselect:var.big = 0', 'a~b `^`', '\u0001', ''],
];
const kEnds = ['\r\n', '\r\n', '\r\n', '\n', '\r'];

/// A text of lines that mostly do not go together.
/** @type {(any: (count: number) => number) => string} */
export function randomText(any) {
  let text = '';
  for (let lines = any(14); lines >= 0; --lines)
    text += '\t'.repeat(any(3)) + kLines[any(kLines.length)] + kEnds[any(kEnds.length)];
  return text.slice(0, text.length - any(4));
}

/// One statement much as the control writes it, now and then with something in it that it does not.
/** @type {(any: (count: number) => number) => string} */
export function randomStatement(any) {
  const fields = ['CUSTOMER.C_ID', 'CUSTOMER.C_LAST', 'ORDERS__.O_ID', 'ORDERS__.O_ENTRY_D'];
  /** @type {(from: string[]) => string[]} */
  const some = (from) => from.filter(() => any(3) === 0);
  const list = [fields[any(fields.length)], ...some(fields)];
  const tables = [...new Set(list.map((field) => field.split('.')[0]))];
  const odd = ['x = 1', '', ' ', '~', 'y = "\u00e9"', ':var.z = 2\r\n\tprint ( 1 )'];
  /** @type {(keyword: string) => string[]} */
  const block = (keyword) => (any(4) === 0 ? [`${keyword}\r\n\t${odd[any(odd.length)]}`] : []);
  const select = [
    `select ${[...new Set(list)].join()}`,
    `from  ${tables.join()}`,
    ...(any(2) === 0 ? [`where ${fields[any(4)]} = ${any(9)}`] : []),
    ...(any(3) === 0 ? [`order by ${list.map((field) => `${field} desc`).join()}`] : []),
    ...(any(5) === 0 ? [`as set with ${any(90)} rows `] : []),
    ...['selectdo', 'selecteos', 'selectempty', 'selecterror'].flatMap(block),
    any(20) === 0 ? 'endselect ' : 'endselect',
  ].join('\r\n');
  if (any(4) > 0) return select;
  const inner = select.replaceAll('\r\n', '\r\n\t');
  const [open, close] = [
    ['while a = 1', 'endwhile'],
    ['if a = 1 then ', 'endif'],
    ['for i = 1 to 3', 'endfor'],
  ][any(3)];
  return `${open}\r\n\t${inner}\r\n${close}`;
}
