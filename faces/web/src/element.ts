// <zolt20-map-control>: the control as an element of a page.
import {type Fillable, fillablesOf} from './attributes';
import {type Dump, dumpOf} from './dump';
import {errorOf} from './errors';
import {Face, type FaceOwner} from './face';
import {Filling} from './filling';
import {FormElement, type FormPart, type FormState, joinForm} from './form_element';
import type {Listener, Logic, MadeGesture} from './logic';
import {Ask, AskText, Status, ValueType} from './numbers';
import {styleSheets} from './style';
import type {Texts} from './texts';
import {checked, isNothing} from './values';

type Value = string | number | boolean;

let logic: Logic;
let fillables: Fillable[] = []; // the members that attributes write
// Properties outside the contract that a JSON script inside the element can have.
const kOwnProperties = ['tableNames', 'texts', 'undoEnabled'];
// How the members of the contract write, read and call an element.
let letMember: (element: ZOLT20MapControlElement, member: number, value: string | number) => void;
let getMember: (element: ZOLT20MapControlElement, member: number, type: ValueType) => Value;
let callMember: (element: ZOLT20MapControlElement, member: number, argument: number) => void;

export class ZOLT20MapControlElement extends FormElement {
  readonly #handle: number;
  readonly #face: Face;
  readonly #filling: Filling;
  readonly #form: FormPart;
  #events = 0; // how many events of the control are being dispatched, one within another
  #bag: object | undefined;
  #wasConnected = false;
  #tableNames: ReadonlyMap<string, string> = new Map();

  // Hears the logic and the face. Its lifetime is that of the element, and the control's lifetime
  // is that of the listener.
  readonly #listener: Listener & FaceOwner = {
    event: (number) => {
      this.#face.show();
      this.#form.keep();
      ++this.#events;
      this.#tell(new Event(logic.eventName(number), {bubbles: true, composed: true}));
      this.#filling.settle(); // attributes that the event's listeners wrote belong to the event
      --this.#events;
    },
    propertyChanged: (number) => {
      this.#face.show();
      this.#tellOf('propertychanged', {name: logic.memberName(number)});
    },
    message: (text, title) => {
      this.#face.show();
      // The event does not bubble: pages listen at their window for other `message` events.
      const detail = {text, title, icon: 'critical', buttons: 'ok'};
      if (this.#tell(new CustomEvent('message', {detail, cancelable: true})))
        this.#face.messages.show(text, title);
    },
    failed: (error) => this.#tellOf('failed', error),
    historyChanged: () =>
      this.#tellOf('historychanged', {canUndo: this.canUndo, canRedo: this.canRedo}),
    gestureMade: () => {
      this.#filling.begun();
      const isTyping = logic.madeByTyping(this.#handle, this.#face.addressOf('TxtOutput'));
      this.#form.look(isTyping ? 'typing' : 'person');
      this.#tell(new Event('gesturemade', {bubbles: true, composed: true}));
    },
    undone: () => this.#tookBack('undone'),
    redone: () => this.#tookBack('redone'),
  };

  constructor() {
    super();
    const early = this.#takeEarlyProperties();
    const root = this.attachShadow({mode: 'open', delegatesFocus: true});
    this.#dress(root);
    this.#handle = logic.make(this.#listener);
    this.#face = new Face(logic, this.#handle, root, this.#listener);
    this.#passFocusOn(root);
    this.#form = this.#joinForm();
    this.#filling = this.#makeFilling(early);
  }

  #makeFilling(early: [string, unknown][]): Filling {
    return new Filling(
      {
        node: this,
        fillables,
        ownProperties: kOwnProperties,
        write: (member, value) => this.#write(member, value),
        put: (property, value) => {
          (this as Record<string, unknown>)[property] = value;
        },
        fail: (error) => {
          console.error(error);
          this.#tellOf('failed', error);
        },
      },
      early,
    );
  }
  #joinForm(): FormPart {
    const face = this.#face;
    return joinForm(this, {
      get result() {
        return logic.text(face.addressOf('TxtOutput'), AskText.Text);
      },
      get tab() {
        return logic.number(face.addressOf('tabVrn'), Ask.Value);
      },
      box: this.shadowRoot!.getElementById('TxtOutput')!,
      get missing() {
        return face.texts.of('missing');
      },
      takeUse: (use) => face.takeUse(use),
      takeState: (state) => this.#takeState(state),
      reset: () => this.#reset(),
    });
  }
  // Resets the control to what its page has for it. Re-entrancy: within an event of the control,
  // the reset is put off until that event is over.
  #reset(): void {
    this.#filling.settle();
    if (logic.renew(this.#handle) === Status.NotTaken) {
      queueMicrotask(() => this.#reset());
      return;
    }
    if (this.#bag !== undefined) this.UserControl_ReadProperties(this.#bag);
    this.#filling.refill();
    this.#face.show();
    this.#form.look('host');
  }
  // Types the restored text into the Result, so that it comes back letter for letter.
  #takeState({result, tab}: FormState): void {
    const {undoEnabled} = this;
    this.#filling.settle();
    this.undoEnabled = false;
    const box = this.#face.addressOf('TxtOutput');
    logic.type(this.#handle, box, result.replaceAll('\r\n', '\n'), result.length, '\n');
    this.undoEnabled = undoEnabled;
    this.#face.showAnew(box);
    (this as Record<string, unknown>)['prpTab'] = tab;
    this.#form.look('host');
  }

  // Some browsers focus the element itself where it scrolls: as a dialog opens, or before the first
  // control. The focus is passed on to a control, except on its way out by Shift+Tab.
  #passFocusOn(root: ShadowRoot): void {
    let left: EventTarget | null = null;
    root.addEventListener('focusout', ({target}) => {
      left = target;
    });
    this.addEventListener('focus', () => {
      if (root.activeElement === null && left !== this.#face.edges[0]) this.#face.takeFocus();
    });
  }

  // Properties that were written before the element was upgraded, in the order of writing.
  #takeEarlyProperties(): [string, unknown][] {
    const early: [string, unknown][] = [];
    for (const name of Object.keys(this)) {
      if (!(name in ZOLT20MapControlElement.prototype)) continue;
      early.push([name, (this as Record<string, unknown>)[name]]);
      delete (this as Record<string, unknown>)[name];
    }
    return early;
  }

  // A style sheet belongs to a document with a window. The document of a template has no window, so
  // the element gets its sheets later.
  #dress(root: ShadowRoot): void {
    if (this.ownerDocument.defaultView !== null && root.adoptedStyleSheets.length === 0)
      root.adoptedStyleSheets = styleSheets(this.ownerDocument, logic);
  }

  override connectedCallback(): void {
    super.connectedCallback();
    this.#dress(this.shadowRoot!);
    this.#filling.connected();
    this.#face.restorePlaces();
    this.#face.messages.showWaiting();
    // When a dialog opens, browsers look for autofocus inside the shadow tree.
    this.#face.edges[0].autofocus = this.autofocus;
    if (!this.#wasConnected) this.#focusByItself();
    this.#wasConnected = true;
  }
  // The browser looks for `autofocus` when a page or a dialog opens. An element that is defined
  // after that takes the focus now, unless something else has it.
  #focusByItself(): void {
    const {activeElement, body} = this.ownerDocument;
    const isFree = activeElement === null || activeElement === body;
    const isOpening = activeElement?.matches('dialog[open]') && activeElement.contains(this);
    if (this.autofocus && (isFree || isOpening)) this.focus();
  }
  disconnectedCallback(): void {
    this.#face.leavesSight();
  }
  adoptedCallback(): void {
    this.shadowRoot!.adoptedStyleSheets = [];
    this.#dress(this.shadowRoot!);
  }

  // Attributes.

  static override get observedAttributes(): string[] {
    // Frameworks on a server write a property as an attribute of the property's own name.
    const filling = fillables.flatMap(({attribute, name}) => [attribute, name.toLowerCase()]);
    return [...filling, ...FormElement.observedAttributes];
  }
  override attributeChangedCallback(name: string, before: string | null, text: string | null) {
    super.attributeChangedCallback(name, before, text);
    if (text !== before) this.#filling.attributeChanged(name, text);
  }

  /** How many controls are alive in this page, and the bytes of memory of all of them. */
  static statistics(): {elements: number; memoryBytes: number} {
    return logic.statistics();
  }
  /** The version of the script that has defined the element. */
  static readonly version: string = ZOLT20_VERSION;

  // The contract. Its properties and methods are defined from its list, by these.

  static {
    letMember = (element, member, value) => {
      element.#filling.settle();
      if (!element.#filling.isRepeated(member, value)) element.#write(member, value);
    };
    getMember = (element, member, type) =>
      element.#end(logic.get(element.#filledHandle, member), () => {
        if (type === ValueType.String) return logic.givenText();
        const number = logic.givenNumber();
        return type === ValueType.Boolean ? number !== 0 : number;
      });
    callMember = (element, member, argument) =>
      element.#end(logic.call(element.#filledHandle, member, argument), () => undefined);
  }
  #write(member: number, value: string | number): void {
    this.#end(logic.let(this.#handle, member, value), () => undefined);
    this.#filling.wrote(member, value);
  }
  // The handle for every read of the control and every call: waiting attributes are written first.
  get #filledHandle(): number {
    this.#filling.settle();
    return this.#handle;
  }
  #end<Result>(status: Status, result: () => Result): Result {
    const error = errorOf(logic, this.#handle, status);
    const value = error === undefined ? result() : undefined;
    this.#face.show();
    if (this.#events === 0) this.#form.look('host');
    else this.#form.keep();
    if (error !== undefined) throw error;
    return value as Result;
  }

  // The property bag.

  UserControl_InitProperties(): void {
    this.#bag = undefined;
    this.#end(logic.bagInit(this.#filledHandle), () => undefined);
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
    this.#filling.settle();
    for (const [entry, value] of values) logic.bagPut(this.#handle, entry, value);
    this.#bag = {...bag};
    this.#end(logic.bagRead(this.#handle), () => undefined);
  }
  UserControl_WriteProperties(): Record<string, string | number> {
    this.#filling.settle();
    const bag: Record<string, string | number> = {};
    for (let entry = 0; entry < logic.bagCount; ++entry) {
      const key = logic.bagKey(entry, false);
      logic.bagWrite(this.#handle, entry);
      bag[key] =
        logic.bagType(entry) === ValueType.String ? logic.givenText() : logic.givenNumber();
    }
    return bag;
  }

  // Undo of the person's gestures.

  get undoEnabled(): boolean {
    return logic.history(this.#handle).isOn;
  }
  set undoEnabled(isOn: boolean | null | undefined) {
    if (isNothing(isOn)) return;
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
    this.#filling.settle();
    this.#face.gate.byHost(() => this.#face.undo());
  }
  redo(): void {
    this.#filling.settle();
    this.#face.gate.byHost(() => this.#face.redo());
  }
  asStep<Result>(write: () => Result): Result {
    const isStep = logic.beginStep(this.#filledHandle);
    try {
      return write();
    } finally {
      this.#filling.settle();
      if (isStep) logic.endStep(this.#handle);
      this.#face.show();
    }
  }

  // The form.

  get tableNames(): ReadonlyMap<string, string> {
    return this.#tableNames;
  }
  set tableNames(names:
    | ReadonlyMap<string, string>
    | Readonly<Record<string, string>>
    | null
    | undefined,) {
    if (!isNothing(names) && (typeof names !== 'object' || Array.isArray(names)))
      throw new TypeError('tableNames takes an object or a Map');
    const entries = names instanceof Map ? [...names] : Object.entries(names ?? {});
    if (!entries.flat().every((each) => typeof each === 'string'))
      throw new TypeError('tableNames takes names that are strings, by codes that are');
    this.#tableNames = new Map(entries);
    this.#face.filters.nameTables(this.#tableNames);
  }
  get texts(): Texts {
    return this.#face.texts.all;
  }
  set texts(texts: Partial<Texts> | null | undefined) {
    this.#face.texts.give(texts);
    this.#form.validate();
  }
  dump(): Dump {
    return dumpOf(logic, this.#filledHandle);
  }
  madeGesture(): MadeGesture | undefined {
    return logic.madeGesture(this.#handle);
  }
  override focus(options: FocusOptions = {}): void {
    this.#face.takeFocus(options);
  }

  #tookBack(what: 'undone' | 'redone'): void {
    this.#form.look(this.#face.gate.isHosts ? 'host' : 'person');
    this.#tell(new Event(what, {bubbles: true, composed: true}));
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
  fillables = fillablesOf(logic);
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
      if (isNothing(value)) return; // frameworks write undefined or null for "no value"
      letMember(this, number, checked(value, type, name));
    };
  }
  Object.defineProperty(ZOLT20MapControlElement.prototype, name, property);
}
