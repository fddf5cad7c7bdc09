// The statement language as text, for scripts with a page and without one. The functions wrap those
// of language/ in C++, in a WebAssembly module of its own, which the first call compiles.
import * as written from 'zolt20-language.wasm.json';

import type * as Types from '../package/zolt20-language';
import {Exchange, type ExchangeExports, kSystem} from './exchange';
import {bytesOf} from './letters';

/** The functions of language_exports.cpp. */
interface LanguageExports extends ExchangeExports {
  names_of_nodes(): void;
  use_catalogue(tables: number): void;
  outline(): void;
  check(withCatalogue: number): void;
  uses(withCatalogue: number): void;
  explain(): void;
  reopen(): void;
  open(): void;
  encode(): number;
}

// Decodes an answer of the module: a list of numbers, and a text cut by lengths in that list.
class Told {
  readonly #numbers: Int32Array;
  readonly #text: string;
  #number = 0;
  #place = 0;

  constructor(exchange: Exchange) {
    this.#text = exchange.text();
    this.#numbers = exchange.numbers();
  }

  get isOver(): boolean {
    return this.#number === this.#numbers.length;
  }
  number(): number {
    return this.#numbers[this.#number++]!;
  }
  text<Text extends string = string>(): Text {
    const first = this.#place;
    this.#place += this.number();
    return this.#text.slice(first, this.#place) as Text;
  }
  /** Reads as many items as the next number tells. */
  several<Each>(read: () => Each): Each[] {
    return Array.from({length: this.number()}, read);
  }
}

class Language {
  readonly #exports: LanguageExports;
  readonly #exchange: Exchange;
  readonly #kinds: Types.NodeKind[];
  readonly #problems: (Types.NodeProblem | '')[];
  #catalogue: Types.Catalogue | undefined; // the catalogue that the module has, as a cache

  constructor({exports}: WebAssembly.Instance) {
    this.#exports = exports as unknown as LanguageExports;
    this.#exchange = new Exchange(this.#exports);
    this.#exports.names_of_nodes();
    const told = new Told(this.#exchange);
    this.#kinds = told.several(() => told.text<Types.NodeKind>());
    this.#problems = told.several(() => told.text<Types.NodeProblem | ''>());
  }

  #ask(text: string, ask: (exports: LanguageExports) => void): Told {
    this.#exchange.send(text);
    ask(this.#exports);
    return new Told(this.#exchange);
  }
  // Sends the catalogue only if it changed: to read a large one takes longer than to check a text.
  #use({tables, fields}: Types.Catalogue): void {
    if (this.#catalogue?.tables === tables && this.#catalogue.fields === fields) return;
    this.#exchange.send(tables + fields);
    this.#exports.use_catalogue(tables.length);
    this.#catalogue = {tables, fields};
  }

  outline(text: string): Types.OutlineNode[] {
    const told = this.#ask(text, (exports) => exports.outline());
    const nodes: Types.OutlineNode[] = [];
    while (!told.isOver) {
      const [first, last, headFirst, headLast] = [
        told.number(),
        told.number(),
        told.number(),
        told.number(),
      ];
      const [depth, parent, behind] = [told.number(), told.number(), told.number()];
      const kind = this.#kinds[told.number()]!;
      const problem = this.#problems[told.number()]!;
      const head = text.slice(headFirst, headLast);
      const node = {kind, first, last, depth, head, headFirst, headLast, parent, behind};
      nodes.push(problem === '' ? node : {...node, problem});
    }
    return nodes;
  }

  check(text: string, catalogue: Types.Catalogue | undefined): Types.Finding[] {
    if (catalogue !== undefined) this.#use(catalogue);
    const told = this.#ask(text, (exports) => exports.check(Number(catalogue !== undefined)));
    const findings: Types.Finding[] = [];
    while (!told.isOver) {
      const [line, column, first, length] = [
        told.number(),
        told.number(),
        told.number(),
        told.number(),
      ];
      const node = told.number();
      const code = told.text<Types.FindingCode>();
      const severity = told.text<Types.Finding['severity']>();
      findings.push({line, column, first, length, code, severity, sentence: told.text(), node});
    }
    return findings;
  }

  uses(text: string, catalogue: Types.Catalogue | undefined): Types.Use[] {
    if (catalogue !== undefined) this.#use(catalogue);
    const told = this.#ask(text, (exports) => exports.uses(Number(catalogue !== undefined)));
    const uses: Types.Use[] = [];
    while (!told.isOver) {
      const [line, column, first, length] = [
        told.number(),
        told.number(),
        told.number(),
        told.number(),
      ];
      const node = told.number();
      const [kind, place] = [told.text<Types.Use['kind']>(), told.text<Types.Use['place']>()];
      const missing = told.number() !== 0;
      const name = text.slice(first, first + length);
      const use = {line, column, first, length, kind, name, place, node};
      uses.push(catalogue === undefined ? use : {...use, missing});
    }
    return uses;
  }

  explain(text: string): Types.Explanation[] {
    const told = this.#ask(text, (exports) => exports.explain());
    const explanations: Types.Explanation[] = [];
    while (!told.isOver) {
      const [node, depth] = [told.number(), told.number()];
      explanations.push({sentence: told.text(), depth, node});
    }
    return explanations;
  }

  reopen(text: string): Types.Reopened {
    const told = this.#ask(text, (exports) => exports.reopen());
    const parts = told
      .several(() => [told.text<Types.PartName>(), told.text()])
      .filter(([, value]) => value !== '');
    return {parts: Object.fromEntries(parts), problems: problemsIn(told), rest: told.text()};
  }

  open(text: string, catalogue: Types.Catalogue): Types.Opening {
    this.#use(catalogue);
    const told = this.#ask(text, (exports) => exports.open());
    const isEqual = told.number() !== 0;
    const steps = told.several(() => stepIn(told));
    const finish = told.several(() => stepIn(told));
    const result = told.text();
    const differences = told.several(() => ({
      line: told.number(),
      stored: told.several(() => told.text()),
      comes: told.several(() => told.text()),
    }));
    return {isEqual, steps, finish, result, differences, problems: problemsIn(told)};
  }

  encode(text: string): string | undefined {
    let isSendable = 0;
    const told = this.#ask(text, (exports) => (isSendable = exports.encode()));
    return isSendable === 0 ? undefined : told.text();
  }
}

function problemsIn(told: Told): Types.ReopenProblem[] {
  return told.several(() => ({line: told.number(), column: told.number(), message: told.text()}));
}

function stepIn(told: Told): Types.Step {
  if (told.number() !== 0) return {set: told.text<Types.PartName>(), value: told.text()};
  const [user, operand] = [told.text(), told.text()];
  const [control, number, text] = [told.text(), told.number(), told.text()];
  const what = operand === '' ? {} : {[operand]: operand === 'text' ? text : number};
  return {user, ...(operand === 'page' ? {} : {control}), ...what};
}

let language: Language | undefined;

/** The module, compiled at once; a browser that refuses that for large modules needs `load`. */
function ready(): Language {
  language ??= new Language(
    new WebAssembly.Instance(new WebAssembly.Module(bytesOf(written)), kSystem),
  );
  return language;
}
export const load: typeof Types.load = async () => {
  if (language !== undefined) return;
  const {instance} = await WebAssembly.instantiate(bytesOf(written), kSystem);
  language ??= new Language(instance);
};

function needText(text: unknown, name: string): void {
  if (typeof text !== 'string') throw new TypeError(`${name} takes a string`);
}
function needCatalogue(catalogue: unknown, name: string): void {
  const {tables, fields} = (catalogue ?? {}) as Record<string, unknown>;
  if (typeof tables !== 'string' || typeof fields !== 'string')
    throw new TypeError(`${name} takes a catalogue of tables and fields, which are strings`);
}

export const outline: typeof Types.outline = (text) => {
  needText(text, 'outline');
  return ready().outline(text);
};
export const check: typeof Types.check = (text, catalogue) => {
  needText(text, 'check');
  if (catalogue === undefined || catalogue === null) return ready().check(text, undefined);
  needCatalogue(catalogue, 'check');
  return ready().check(text, catalogue);
};
export const uses: typeof Types.uses = (text, catalogue) => {
  needText(text, 'uses');
  if (catalogue === undefined || catalogue === null) return ready().uses(text, undefined);
  needCatalogue(catalogue, 'uses');
  return ready().uses(text, catalogue);
};
export const explain: typeof Types.explain = (text) => {
  needText(text, 'explain');
  return ready().explain(text);
};
export const reopen = ((text: string, catalogue?: Types.Catalogue | null) => {
  needText(text, 'reopen');
  const reopened = ready().reopen(text);
  if (catalogue === undefined || catalogue === null) return reopened;
  needCatalogue(catalogue, 'reopen');
  return {...reopened, opening: ready().open(text, catalogue)};
}) as typeof Types.reopen;
export const encode: typeof Types.encode = (text) => {
  needText(text, 'encode');
  return ready().encode(text);
};
