// Fills an element from its attributes, from a JSON script inside it, and from properties that were
// written before it was defined.
//
// The values are written in the calling order, in whatever order they came: when the element is
// parsed or comes into a page; later at the end of the script that changed them, or as soon as
// a script uses any other member of the element.
import {type Fillable, valueFrom} from './attributes';
import {lineAndColumn, placeOfFault} from './json_place';
import {ZOLT20Error} from './logic';
import {checked, isNothing} from './values';

/** The element that is filled. */
export interface Filled {
  readonly node: HTMLElement;
  /** In the calling order. */
  readonly fillables: readonly Fillable[];
  /** Properties outside the contract that JSON may have. */
  readonly ownProperties: readonly string[];
  write(member: number, value: string | number): void;
  put(property: string, value: unknown): void;
  fail(error: Error): void;
}

type Value = string | number;

// The properties that a reset of the form keeps, whoever wrote them: the catalogue, and how the
// control shows. Each write of the two lists of the catalogue adds to them.
const kAdding = ['PrpStrTables', 'PrpStrFields'];
const kStaying = [...kAdding, 'prpParentorChild', 'prpintTabcount', 'Syntax_Highlight'];

export class Filling {
  readonly #filled: Filled;
  readonly #waiting = new Map<Fillable, Value>();
  // The values that attributes and JSON have now, and those that a reset keeps.
  readonly #attributes = new Map<Fillable, Value>();
  readonly #json = new Map<Fillable, Value>();
  readonly #staying = new Map<number, Value[]>();
  #early: [string, unknown][];
  readonly #read = new WeakMap<Element, string>(); // JSON scripts that were read, with their texts
  readonly #observer: MutationObserver;
  #isScheduled = false;
  #isFirst = true;
  #given = new Map<number, Value>(); // texts written by the first settle, until the person begins

  constructor(filled: Filled, early: [string, unknown][]) {
    this.#filled = filled;
    this.#early = early;
    this.#observer = new MutationObserver(() => this.#settleUnlessOpen());
    this.#watch(filled.node, {childList: true, characterData: true, subtree: true});
    if (early.length > 0) this.#schedule();
  }
  #watch(node: Node, what: MutationObserverInit): void {
    this.#observer.observe(node, what);
  }

  attributeChanged(name: string, text: string | null): void {
    const asProperty = !this.#filled.fillables.some(({attribute}) => attribute === name);
    const fillable = this.#find(name);
    if (fillable === undefined) return;
    try {
      const value = valueFrom(text, fillable, asProperty);
      for (const values of [this.#waiting, this.#attributes]) {
        if (value !== undefined) values.set(fillable, value);
        else values.delete(fillable);
      }
    } catch (error) {
      this.#filled.fail(new ZOLT20Error('attribute', 0, (error as Error).message));
    }
    this.#schedule();
  }
  #find(key: string): Fillable | undefined {
    const lower = key.toLowerCase();
    return this.#filled.fillables.find(
      ({attribute, name}) => attribute === lower || name.toLowerCase() === lower,
    );
  }

  /** The element is in a page now. */
  connected(): void {
    if (this.#isFirst && this.#isOpen()) {
      // A node behind the element shows that the parser is done with it.
      this.#watch(this.#filled.node.parentNode!, {childList: true});
      document.addEventListener('DOMContentLoaded', () => this.#settleUnlessOpen(), {once: true});
    }
    this.#settleUnlessOpen();
  }
  #schedule(): void {
    if (this.#isScheduled) return;
    this.#isScheduled = true;
    queueMicrotask(() => {
      this.#isScheduled = false;
      this.#settleUnlessOpen();
    });
  }
  #settleUnlessOpen(): void {
    if (!this.#isFirst || !this.#isOpen()) this.settle();
  }
  // Whether a parser may still put something into the element.
  #isOpen(): boolean {
    const {node} = this.#filled;
    if (node.ownerDocument.readyState !== 'loading' || !node.isConnected) return false;
    for (let at: Node | null = node; at !== null; at = at.parentNode)
      if (at.nextSibling !== null) return false;
    return true;
  }

  /** Writes all waiting values, in the calling order. */
  settle(): void {
    const isFirst = this.#isFirst;
    const own: [string, unknown][] = [];
    for (const child of this.#filled.node.children) {
      if (child instanceof HTMLScriptElement && child.type === 'application/json')
        this.#readJson(child, own);
    }
    const early = this.#early.splice(0);
    if (this.#waiting.size + own.length + early.length === 0) return;
    this.#isFirst = false;
    const waiting = new Map(this.#waiting);
    this.#waiting.clear();
    for (const [name, value] of own) this.#try(() => this.#filled.put(name, value));
    for (const fillable of this.#filled.fillables) {
      const value = waiting.get(fillable);
      if (value === undefined) continue;
      if (isFirst && typeof value === 'string') this.#given.set(fillable.member, value);
      this.#try(() => this.#filled.write(fillable.member, value));
    }
    for (const [name, value] of early) {
      try {
        this.#filled.put(name, value);
      } catch (error) {
        reportError(error); // the other values are still written
      }
    }
  }
  #try(write: () => void): void {
    try {
      write();
    } catch (error) {
      this.#filled.fail(error as Error);
    }
  }

  /** Notes a write of a member, for refill after a reset. */
  wrote(member: number, value: Value): void {
    const name = this.#filled.fillables.find((each) => each.member === member)!.name;
    if (!kStaying.includes(name)) return;
    const before = kAdding.includes(name) ? (this.#staying.get(member) ?? []) : [];
    this.#staying.set(member, [...before, value]);
  }
  /** Fills the control after a reset: with what the reset keeps, and from attributes and JSON. */
  refill(): void {
    const staying = new Map(this.#staying);
    this.#staying.clear();
    for (const fillable of this.#filled.fillables) {
      const {member, name} = fillable;
      const value = this.#attributes.get(fillable) ?? this.#json.get(fillable);
      const given = kStaying.includes(name) || value === undefined ? [] : [value];
      for (const each of staying.get(member) ?? given)
        this.#try(() => this.#filled.write(member, each));
    }
  }

  /**
   * Whether a property is written with the value that its attribute wrote before, as frameworks do
   * when they hydrate the page of a server. A second write of a list would add its rows twice.
   */
  isRepeated(member: number, value: Value): boolean {
    const isSame = this.#given.get(member) === value;
    this.#given.delete(member);
    return isSame;
  }
  /** The person has begun: from now on a repeated value is written as well. */
  begun(): void {
    this.#given.clear();
  }

  // Reads a JSON script. An attribute wins over an entry for the same property.
  #readJson(script: HTMLScriptElement, own: [string, unknown][]): void {
    const text = script.text;
    if (text.trim() === '' || this.#read.get(script) === text) return;
    const values = this.#parsed(text);
    if (values === undefined && this.#isOpen()) return; // the parser has not come to its end
    this.#read.set(script, text);
    if (values instanceof ZOLT20Error) this.#filled.fail(values);
    else this.#takeEntries(values ?? {}, own);
  }
  #takeEntries(values: object, own: [string, unknown][]): void {
    for (const [key, value] of Object.entries(values)) {
      if (isNothing(value)) continue;
      try {
        this.#takeEntry(key, value, own);
      } catch (error) {
        this.#filled.fail(new ZOLT20Error('json', 0, (error as Error).message));
      }
    }
  }
  // The object of the text, or its error; undefined if the text ends too early and may go on.
  #parsed(text: string): object | ZOLT20Error | undefined {
    try {
      const values: unknown = JSON.parse(text);
      if (values !== null && typeof values === 'object' && !Array.isArray(values)) return values;
      return new ZOLT20Error('json', 0, 'The JSON is no object');
    } catch {
      if (this.#isOpen()) return undefined;
      const place = placeOfFault(text);
      const {line, column} = lineAndColumn(text, place);
      const what = place < text.length ? `${JSON.stringify(text[place])} is wrong` : 'it ends';
      return new ZOLT20Error('json', 0, `The JSON: ${what} at line ${line}, column ${column}`);
    }
  }
  #takeEntry(key: string, value: unknown, own: [string, unknown][]): void {
    const fillable = this.#find(key);
    if (fillable !== undefined) {
      const {type} = fillable;
      const taken = checked(value, type, `${key} in the JSON`);
      this.#json.set(fillable, taken);
      if (!this.#waiting.has(fillable)) this.#waiting.set(fillable, taken);
    } else if (this.#filled.ownProperties.includes(key)) {
      own.push([key, value]);
    } else {
      throw new TypeError(`${key} in the JSON is no property of the element`);
    }
  }
}
