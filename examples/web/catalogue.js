// A catalogue of tables, fields and functions, read from JSON, and the values by which a control
// takes it.
//
// What has been read is sound: every code has 8 characters and stands once, every field stands once
// in its table, and no text that goes into a list holds what separates the entries there. So the
// two lists always give back the catalogue.
import {findMistake} from './json_mistake.js';

/** @typedef {{name: string, type: string, flagged: boolean, text: string}} Field */
/** @typedef {{code: string, name: string, indexes: number, fields: Field[]}} Table */
/** @typedef {{name: string, arguments: string[]}} CatalogueFunction */
/** @typedef {{name: string, tables: Table[], functions: CatalogueFunction[]}} Catalogue */

const kSeparator = '*Q*V*R*N*';
const kCodeLength = 8;
const kMostIndexes = 32767;

/// Something is wrong with a catalogue; the message names the table or field.
export class CatalogueError extends Error {
  /** @override */
  name = 'CatalogueError';
}

/** @type {(where: string, complaint: string) => never} */
function complain(where, complaint) {
  throw new CatalogueError(`${where} ${complaint}`);
}

/** @type {(object: unknown, key: string, where: string) => unknown} */
function needed(object, key, where) {
  if (typeof object !== 'object' || object === null || Array.isArray(object))
    return complain(where, 'is no object');
  if (!Object.hasOwn(object, key)) complain(where, `has no "${key}"`);
  return /** @type {Record<string, unknown>} */ (object)[key];
}

/** @type {(object: unknown, key: string, where: string) => string} */
function neededText(object, key, where) {
  const value = needed(object, key, where);
  return typeof value === 'string' ? value : complain(where, `has a "${key}" that is no string`);
}

/** @type {(object: unknown, key: string, where: string) => unknown[]} */
function neededArray(object, key, where) {
  const value = needed(object, key, where);
  return Array.isArray(value) ? value : complain(where, `has "${key}" that are no array`);
}

// A name that must say something.
/** @type {(object: unknown, key: string, where: string) => string} */
function neededName(object, key, where) {
  const name = neededText(object, key, where);
  if (name === '') complain(where, `has an empty "${key}"`);
  return name;
}

// A text that goes into a list must not hold what separates the entries there, nor end so that it
// makes a separator together with the first character of the one that follows.
/** @type {(text: string, key: string, where: string) => void} */
function checkListed(text, key, where) {
  if (text.includes(',')) complain(where, `has a "${key}" that holds a comma`);
  if ((text + kSeparator[0]).includes(kSeparator)) {
    complain(where, `has a "${key}" that holds the separator ${kSeparator} or runs into it`);
  }
}

/** @type {(names: Set<string>, name: string, what: string) => void} */
function checkOnce(names, name, what) {
  if (names.has(name)) complain(what, 'stands twice');
  names.add(name);
}

/** @type {(json: unknown, where: string, code: string) => Field} */
function readField(json, where, code) {
  const name = neededName(json, 'name', where);
  const field = `field ${code}.${name}`;
  const type = neededName(json, 'type', field);
  const text = neededText(json, 'text', field);
  const flagged = needed(json, 'flagged', field);
  if (typeof flagged !== 'boolean')
    return complain(field, 'has a "flagged" that is neither true nor false');
  checkListed(name, 'name', field);
  checkListed(type, 'type', field);
  checkListed(text, 'text', field);
  return {name, type, flagged, text};
}

/** @type {(json: unknown, where: string) => Table} */
function readTable(json, where) {
  const code = neededName(json, 'code', where);
  const table = `table ${code}`;
  if (code.length !== kCodeLength) {
    complain(table, `has a "code" of ${code.length} characters, and it must have ${kCodeLength}`);
  }
  checkListed(code, 'code', table);
  const name = neededName(json, 'name', table);
  const indexes = needed(json, 'indexes', table);
  if (typeof indexes !== 'number' || !Number.isInteger(indexes))
    return complain(table, 'has "indexes" that are no whole number');
  if (indexes < 0 || indexes > kMostIndexes) {
    complain(table, `has ${indexes} indexes, and 0 to ${kMostIndexes} are possible`);
  }
  /** @type {Set<string>} */
  const names = new Set();
  const fields = neededArray(json, 'fields', table).map((each, index) => {
    const field = readField(each, `${table}, field number ${index + 1},`, code);
    checkOnce(names, field.name, `field ${code}.${field.name}`);
    return field;
  });
  return {code, name, indexes, fields};
}

/** @type {(json: unknown, where: string) => CatalogueFunction} */
function readFunction(json, where) {
  const name = neededName(json, 'name', where);
  const words = neededArray(json, 'arguments', `function ${name}`);
  if (!words.every((each) => typeof each === 'string')) {
    complain(`function ${name}`, 'has an argument that is no string');
  }
  return {name, arguments: words};
}

/** @type {(bytes: ArrayBuffer) => unknown} */
function parse(bytes) {
  /** @type {string} */
  let text;
  try {
    text = new TextDecoder('utf-8', {fatal: true}).decode(bytes);
  } catch {
    return complain('the catalogue', 'is no text in UTF-8');
  }
  try {
    return JSON.parse(text);
  } catch {
    return complain('the catalogue', `is no JSON: ${findMistake(text)}`);
  }
}

/// The catalogue in the bytes of a file. Throws CatalogueError when anything in it is wrong. Keys
/// that the format does not have are ignored.
/** @type {(bytes: ArrayBuffer) => Catalogue} */
export function readCatalogue(bytes) {
  const json = parse(bytes);
  const name = neededText(json, 'name', 'the catalogue');
  /** @type {Set<string>} */
  const codes = new Set();
  const tables = neededArray(json, 'tables', 'the catalogue').map((each, index) => {
    const table = readTable(each, `table number ${index + 1}`);
    checkOnce(codes, table.code, `table ${table.code}`);
    return table;
  });
  /** @type {Set<string>} */
  const names = new Set();
  const functions = neededArray(json, 'functions', 'the catalogue').map((each, index) => {
    const read = readFunction(each, `function number ${index + 1}`);
    checkOnce(names, read.name, `function ${read.name}`);
    return read;
  });
  return {name, tables, functions};
}

/// The value for PrpStrTables: each table's code with its index count.
/** @type {(catalogue: Catalogue) => string} */
export const tableListOf = ({tables}) =>
  tables.map(({code, indexes}) => `${code}${indexes}`).join(',');

/// The value for PrpStrFields: a record for each field, table by table.
/** @type {(catalogue: Catalogue) => string} */
export function fieldListOf({tables}) {
  /** @type {(code: string, field: Field) => string} */
  const recordOf = (code, {name, type, flagged, text}) =>
    [type, `${flagged ? 'Y' : 'N'}${code}.${name}`, text].join(kSeparator);
  return tables.flatMap(({code, fields}) => fields.map((field) => recordOf(code, field))).join(',');
}

/// The names of the tables that are not their codes.
/** @type {(catalogue: Catalogue) => Map<string, string>} */
export const tableNamesOf = ({tables}) =>
  new Map(tables.filter(({code, name}) => code !== name).map(({code, name}) => [code, name]));

/// The fields in the records that prpstrSelectedFields gives.
/** @type {(records: string) => Field[]} */
export function fieldsOf(records) {
  if (records === '') return [];
  return records.split(',').map((record) => {
    const [type, name, text] = record.split(kSeparator);
    return {type, flagged: name.startsWith('Y'), name: name.slice(1), text};
  });
}
