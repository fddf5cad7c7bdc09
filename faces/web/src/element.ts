// <zolt20-map-control>: the control as an element of a page.
import {type Dump, dumpOf} from './dump';
import {errorOf} from './errors';
import {Face, type FaceOwner} from './face';
import type {Listener, Logic, MadeGesture} from './logic';
import {type Status, ValueType} from './numbers';
import {styleSheets} from './style';

type Value = string | number | boolean;

// What is defined once the logic is there. The class stands without it, so that a program without a
// page can import it.
const Base = globalThis.HTMLElement ?? (class {} as typeof HTMLElement);

let logic: Logic;
// What the members of the contract do to an element.
let letMember: (element: ZOLT20MapControlElement, member: number, value: string | number) => void;
let getMember: (element: ZOLT20MapControlElement, member: number, type: ValueType) => Value;
let callMember: (element: ZOLT20MapControlElement, member: number, argument: number) => void;

export class ZOLT20MapControlElement extends Base {
  readonly #handle: number;
  readonly #face: Face;
  #tableNames: ReadonlyMap<string, string> = new Map();

  // What the logic and the face tell. It lives as long as the element, and the control as long as
  // it.
  readonly #listener: Listener & FaceOwner = {
    event: (number) => {
      this.#face.show();
      this.#tell(new Event(logic.eventName(number), {bubbles: true, composed: true}));
    },
    propertyChanged: (number) => {
      this.#face.show();
      this.#tellOf('propertychanged', {name: logic.memberName(number)});
    },
    message: (text, title) => {
      this.#face.show();
      // It does not bubble: pages listen at their window for messages of another kind.
      const detail = {text, title, icon: 'critical', buttons: 'ok'};
      if (this.#tell(new CustomEvent('message', {detail, cancelable: true})))
        this.#face.messages.show(text, title);
    },
    failed: (error) => this.#tellOf('failed', error),
    historyChanged: () =>
      this.#tellOf('historychanged', {canUndo: this.canUndo, canRedo: this.canRedo}),
    gestureMade: () => this.#tell(new Event('gesturemade', {bubbles: true, composed: true})),
    undone: () => this.#tell(new Event('undone', {bubbles: true, composed: true})),
    redone: () => this.#tell(new Event('redone', {bubbles: true, composed: true})),
  };

  constructor() {
    super();
    const early = this.#takeEarlyProperties();
    const root = this.attachShadow({mode: 'open'});
    this.#dress(root);
    this.#handle = logic.make(this.#listener);
    this.#face = new Face(logic, this.#handle, root, this.#listener);
    for (const [name, value] of early) {
      try {
        (this as Record<string, unknown>)[name] = value;
      } catch (error) {
        reportError(error); // the others are written all the same
      }
    }
  }

  // What was written before the element became one, in the order of writing.
  #takeEarlyProperties(): [string, unknown][] {
    const early: [string, unknown][] = [];
    for (const name of Object.keys(this)) {
      if (!(name in ZOLT20MapControlElement.prototype)) continue;
      early.push([name, (this as Record<string, unknown>)[name]]);
      delete (this as Record<string, unknown>)[name];
    }
    return early;
  }

  // A style sheet belongs to a document. One without a window, such as that of a template, has none
  // yet.
  #dress(root: ShadowRoot): void {
    if (this.ownerDocument.defaultView !== null && root.adoptedStyleSheets.length === 0)
      root.adoptedStyleSheets = styleSheets(this.ownerDocument, logic);
  }

  connectedCallback(): void {
    this.#dress(this.shadowRoot!);
    this.#face.restorePlaces();
    this.#face.messages.showWaiting();
  }
  disconnectedCallback(): void {
    this.#face.leavesSight();
  }
  adoptedCallback(): void {
    this.shadowRoot!.adoptedStyleSheets = [];
    this.#dress(this.shadowRoot!);
  }

  /** How many controls there are in this page, and the bytes of memory of all of them. */
  static statistics(): {elements: number; memoryBytes: number} {
    return logic.statistics();
  }
  /** The version of the script that has defined the element. */
  static readonly version: string = ZOLT20_VERSION;

  // The contract. Its properties and methods are defined from its list, by these.

  static {
    letMember = (element, member, value) =>
      element.#end(logic.let(element.#handle, member, value), () => undefined);
    getMember = (element, member, type) =>
      element.#end(logic.get(element.#handle, member), () => {
        if (type === ValueType.String) return logic.givenText();
        const number = logic.givenNumber();
        return type === ValueType.Boolean ? number !== 0 : number;
      });
    callMember = (element, member, argument) =>
      element.#end(logic.call(element.#handle, member, argument), () => undefined);
  }
  #end<Result>(status: Status, result: () => Result): Result {
    const error = errorOf(logic, this.#handle, status);
    const value = error === undefined ? result() : undefined;
    this.#face.show();
    if (error !== undefined) throw error;
    return value as Result;
  }

  // The property bag.

  UserControl_InitProperties(): void {
    this.#end(logic.bagInit(this.#handle), () => undefined);
  }
  UserControl_ReadProperties(bag: object): void {
    if (bag === null || typeof bag !== 'object')
      throw new TypeError('UserControl_ReadProperties takes an object');
    const values: [number, string | number][] = [];
    for (let entry = 0; entry < logic.bagCount; ++entry) {
      const key = logic.bagKey(entry, true);
      const value = (bag as Record<string, unknown>)[key];
      if (value !== undefined) values.push([entry, checked(value, logic.bagType(entry), key)]);
    }
    for (const [entry, value] of values) logic.bagPut(this.#handle, entry, value);
    this.#end(logic.bagRead(this.#handle), () => undefined);
  }
  UserControl_WriteProperties(): Record<string, string | number> {
    const bag: Record<string, string | number> = {};
    for (let entry = 0; entry < logic.bagCount; ++entry) {
      const key = logic.bagKey(entry, false);
      logic.bagWrite(this.#handle, entry);
      bag[key] =
        logic.bagType(entry) === ValueType.String ? logic.givenText() : logic.givenNumber();
    }
    return bag;
  }

  // Undo of what the person does.

  get undoEnabled(): boolean {
    return logic.history(this.#handle).isOn;
  }
  set undoEnabled(isOn: boolean) {
    logic.switchHistory(this.#handle, Boolean(isOn));
    this.#face.show();
  }
  get canUndo(): boolean {
    return logic.history(this.#handle).canUndo;
  }
  get canRedo(): boolean {
    return logic.history(this.#handle).canRedo;
  }
  undo(): void {
    this.#face.undo();
  }
  redo(): void {
    this.#face.redo();
  }
  asStep<Result>(write: () => Result): Result {
    const isStep = logic.beginStep(this.#handle);
    try {
      return write();
    } finally {
      if (isStep) logic.endStep(this.#handle);
      this.#face.show();
    }
  }

  // The form.

  get tableNames(): ReadonlyMap<string, string> {
    return this.#tableNames;
  }
  set tableNames(names: ReadonlyMap<string, string> | Readonly<Record<string, string>>) {
    this.#tableNames = new Map(names instanceof Map ? names : Object.entries(names ?? {}));
    this.#face.nameTables(this.#tableNames);
  }
  dump(): Dump {
    return dumpOf(logic, this.#handle);
  }
  madeGesture(): MadeGesture | undefined {
    return logic.madeGesture(this.#handle);
  }
  override focus(): void {
    this.#face.takeFocus();
  }

  #tell(event: Event): boolean {
    return this.dispatchEvent(event);
  }
  #tellOf(name: string, detail: unknown): boolean {
    return this.#tell(new CustomEvent(name, {detail, bubbles: true, composed: true}));
  }
}

/** Gives the element the logic, and with it its contract. */
export function useLogic(from: Logic): void {
  logic = from;
  for (let number = 1; number <= logic.memberCount; ++number) defineMember(number);
}

function checked(value: unknown, type: ValueType, name: string): string | number {
  switch (type) {
    case ValueType.String:
      if (typeof value === 'string') return value;
      throw new TypeError(`${name} takes a string`);
    case ValueType.Integer: {
      if (typeof value !== 'number' || !Number.isInteger(value))
        throw new TypeError(`${name} takes a whole number`);
      // Of what is no number of 32 bits the logic hears that it is none of 16.
      const kOutside = 0x10000;
      return Math.max(-kOutside, Math.min(value, kOutside));
    }
    default:
      if (typeof value === 'boolean') return Number(value);
      throw new TypeError(`${name} takes true or false`);
  }
}

function defineMember(number: number): void {
  const kLet = 4;
  const kGet = 8;
  const kMethod = 16;
  const name = logic.memberName(number);
  const traits = logic.memberTraits(number);
  const type: ValueType = traits & 3;
  const property: PropertyDescriptor = {configurable: true, enumerable: true};
  if ((traits & kMethod) !== 0) {
    const takes = type === ValueType.None ? 0 : 1;
    const method = function (this: ZOLT20MapControlElement, ...given: unknown[]): void {
      if (given.length < takes)
        throw new TypeError(`${name} takes ${logic.memberArgument(number)}`);
      callMember(this, number, takes === 0 ? 0 : (checked(given[0], type, name) as number));
    };
    Object.defineProperty(method, 'name', {value: name});
    Object.defineProperty(method, 'length', {value: takes});
    Object.assign(property, {value: method, writable: true});
  }
  if ((traits & kGet) !== 0)
    property.get = function (this: ZOLT20MapControlElement) {
      return getMember(this, number, type);
    };
  if ((traits & kLet) !== 0) {
    property.set = function (this: ZOLT20MapControlElement, value: unknown) {
      letMember(this, number, checked(value, type, name));
    };
  }
  Object.defineProperty(ZOLT20MapControlElement.prototype, name, property);
}
