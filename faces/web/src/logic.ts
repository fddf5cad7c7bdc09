// The control's logic: the WebAssembly module, and a method for each function that it exports.
//
// Controls and elements are passed by their addresses: numbers that only the module understands.

import {Exchange, kSystem} from './exchange';
import type {Exports} from './exports';
import {
  type Address,
  type BoxTexts,
  type Changes,
  type ColoredWord,
  type DrawnRow,
  type MadeGesture,
  type Part,
  type Row,
  type Stretch,
  wordsIn,
} from './crossing';
import {type Ask, AskText, Gesture, type ListKey, type Status} from './numbers';

export type * from './crossing';

/** A run-time error of the control. */
export class ZOLT20Error extends Error {
  /** The kind in one word, such as "subscript". */
  readonly kind: string;
  readonly number: number;

  constructor(kind: string, number: number, text: string) {
    super(text);
    this.name = 'ZOLT20Error';
    this.kind = kind;
    this.number = number;
  }
}

/** What an element hears from its control, inside the call that the element makes. */
export interface Listener {
  event(number: number): void;
  propertyChanged(number: number): void;
  message(text: string, title: string): void;
}

export class Logic implements BoxTexts {
  #exports!: Exports;
  #exchange!: Exchange;
  readonly #listeners = new Map<number, WeakRef<Listener>>();
  readonly #leftBehind = new FinalizationRegistry<{id: number; handle: number}>(({id, handle}) => {
    this.#listeners.delete(id);
    this.#exports.destroy(handle);
  });
  #lastId = 0;

  private constructor() {}

  #begin({exports}: WebAssembly.Instance): this {
    this.#exports = exports as unknown as Exports;
    this.#exchange = new Exchange(this.#exports);
    return this;
  }

  /** The logic of a module that is compiled. */
  static of(module: WebAssembly.Module): Logic {
    const logic = new Logic();
    return logic.#begin(new WebAssembly.Instance(module, logic.#imports()));
  }
  /** The logic of a module's bytes: at once, or a promise where browsers refuse to wait for it. */
  static from(bytes: BufferSource): Logic | Promise<Logic> {
    try {
      return Logic.of(new WebAssembly.Module(bytes));
    } catch (error) {
      if (!(error instanceof RangeError)) throw error;
      return Logic.#later(bytes);
    }
  }
  static async #later(bytes: BufferSource): Promise<Logic> {
    const logic = new Logic();
    return logic.#begin((await WebAssembly.instantiate(bytes, logic.#imports())).instance);
  }
  /** Compiles the module at the address. */
  static async at(url: URL | string): Promise<Logic> {
    const response = await fetch(url);
    if (!response.ok)
      throw new Error(`${url} can't be loaded: ${response.status} ${response.statusText}`);
    // Without the media type of WebAssembly the module is compiled from its bytes as a fallback.
    const isTyped = response.headers.get('Content-Type')?.startsWith('application/wasm') ?? false;
    if (!isTyped) return Logic.#later(await response.arrayBuffer());
    const logic = new Logic();
    const {instance} = await WebAssembly.instantiateStreaming(response, logic.#imports());
    return logic.#begin(instance);
  }

  #imports(): WebAssembly.Imports {
    const tell = (id: number, what: (listener: Listener) => void) => {
      const listener = this.#listeners.get(id)?.deref();
      if (listener === undefined) return;
      try {
        what(listener);
      } catch (error) {
        reportError(error); // an exception of a listener must not pass through the logic
      }
    };
    return {
      page: {
        event: (id: number, number: number) => tell(id, (listener) => listener.event(number)),
        property_changed: (id: number, number: number) =>
          tell(id, (listener) => listener.propertyChanged(number)),
        message: (id: number, text: number, length: number, title: number, titleLength: number) =>
          tell(id, (listener) =>
            listener.message(this.#textAt(text, length), this.#textAt(title, titleLength)),
          ),
        // Final sigma is folded to sigma, so that a search finds both.
        fold: (text: number, length: number) =>
          this.send(this.#textAt(text, length).toLowerCase().replaceAll('\u03c2', '\u03c3')),
      },
      ...kSystem,
    };
  }

  /** A new control for the listener, destroyed when the listener has been garbage collected. */
  make(listener: Listener): number {
    const id = ++this.#lastId;
    this.#listeners.set(id, new WeakRef(listener));
    const handle = this.#exports.make(id);
    this.#leftBehind.register(listener, {id, handle});
    return handle;
  }

  /** How many controls are alive, and the bytes of memory of the module. */
  statistics(): {elements: number; memoryBytes: number} {
    return {elements: this.#listeners.size, memoryBytes: this.#exports.memory.buffer.byteLength};
  }

  // Texts and numbers.

  #textAt(address: number, length: number): string {
    return this.#exchange.textAt(address, length);
  }
  /** Hands over the text that the next call takes. */
  send(text: string): void {
    this.#exchange.send(text);
  }
  #text(): string {
    return this.#exchange.text();
  }
  #numbers(): Int32Array {
    return this.#exchange.numbers();
  }

  // The tables.

  get memberCount(): number {
    return this.#exports.member_count();
  }
  memberName(number: number): string {
    this.#exports.member_name(number);
    return this.#text();
  }
  memberArgument(number: number): string {
    this.#exports.member_argument(number);
    return this.#text();
  }
  memberTraits(number: number): number {
    return this.#exports.member_traits(number);
  }
  get eventCount(): number {
    return this.#exports.event_count();
  }
  eventName(number: number): string {
    this.#exports.event_name(number);
    return this.#text();
  }
  get bagCount(): number {
    return this.#exports.bag_count();
  }
  bagKey(entry: number, forReading: boolean): string {
    this.#exports.bag_key(entry, Number(forReading));
    return this.#text();
  }
  bagType(entry: number): number {
    return this.#exports.bag_type(entry);
  }
  pageCaption(page: number): string {
    this.#exports.page_caption(page);
    return this.#text();
  }
  looks(): number[] {
    this.#exports.looks();
    return [...this.#numbers()];
  }
  layout(): Part {
    this.#exports.layout();
    return JSON.parse(this.#text()) as Part;
  }

  /** The words of the element by their keys; without an element, 0, those in English. */
  ownWords(handle: number): Record<string, string> {
    const words: Record<string, string> = {};
    for (let word = 0; word < this.#exports.word_count(); ++word) {
      this.#exports.word_key(word);
      const key = this.#text();
      this.#exports.word_text(handle, word);
      words[key] = this.#text();
    }
    return words;
  }
  /** Replaces English words; `texts` has an entry for each key, undefined for the English word. */
  giveWords(handle: number, texts: (string | undefined)[]): void {
    this.#exports.clear_words(handle);
    for (const [word, text] of texts.entries()) {
      if (text === undefined) continue;
      this.send(text);
      this.#exports.set_word(handle, word);
    }
  }

  // The contract.

  let(handle: number, member: number, value: string | number): Status {
    if (typeof value === 'string') this.send(value);
    return this.#exports.let(handle, member, typeof value === 'number' ? value : 0);
  }
  get(handle: number, member: number): Status {
    return this.#exports.get(handle, member);
  }
  /** The text that the call before gave, or its number below. */
  givenText(): string {
    return this.#text();
  }
  givenNumber(): number {
    return this.#numbers()[0] ?? 0;
  }
  call(handle: number, member: number, argument: number): Status {
    return this.#exports.call(handle, member, argument);
  }

  bagInit(handle: number): Status {
    return this.#exports.bag_init(handle);
  }
  bagPut(handle: number, entry: number, value: string | number): void {
    if (typeof value === 'string') this.send(value);
    this.#exports.bag_put(handle, entry, typeof value === 'number' ? value : 0);
  }
  bagRead(handle: number): Status {
    return this.#exports.bag_read(handle);
  }
  bagWrite(handle: number, entry: number): void {
    this.#exports.bag_write(handle, entry);
  }

  /** Resets the control to the state of a new one; not taken within another call. */
  renew(handle: number): Status {
    return this.#exports.renew(handle);
  }

  /** The error of the element's last call that failed. */
  error(handle: number): ZOLT20Error {
    this.#exports.error_kind(handle);
    const kind = this.#text();
    this.#exports.error_text(handle);
    return new ZOLT20Error(kind, this.#exports.error_number(handle), this.#text());
  }

  // The form.

  controls(handle: number): Address[] {
    this.#exports.controls(handle);
    return [...this.#numbers()];
  }
  focused(handle: number): Address {
    return this.#exports.focused(handle);
  }
  nextInTabOrder(handle: number, from: Address, forward: boolean): Address {
    return this.#exports.next_in_tab_order(handle, from, Number(forward));
  }
  nextOption(handle: number, option: Address, forward: boolean): Address {
    return this.#exports.next_option(handle, option, Number(forward));
  }
  /** The row that a key leads to, -1 for none, whether it becomes current, and its gesture. */
  listKey(
    key: ListKey,
    place: {current: number; count: number; page: number; isSingle: boolean},
  ): {row: number; moves: boolean; gesture: Gesture | undefined} {
    const {current, count, page, isSingle} = place;
    this.#exports.list_key(key, current, count, page, Number(isSingle));
    const [row, moves, gesture] = [...this.#numbers()] as [number, number, number];
    return {row, moves: moves !== 0, gesture: gesture < 0 ? undefined : gesture};
  }
  /** Whether a text of that colour can be read on a background; both are 0xRRGGBB. */
  canBeRead(text: number, background: number): boolean {
    return this.#exports.can_be_read(text, background) !== 0;
  }
  number(control: Address, ask: Ask): number {
    return this.#exports.control_number(control, ask);
  }
  is(control: Address, ask: Ask): boolean {
    return this.#exports.control_number(control, ask) !== 0;
  }
  /** Top and height of a control in the frame of the case rows, or of that frame. */
  caseSpan(handle: number, control: Address): {top: Stretch; height: Stretch} {
    this.#exports.case_span(handle, control);
    const numbers = [...this.#numbers()];
    const stretch = (from: number): Stretch => ({
      twips: numbers[from]!,
      rows: numbers[from + 1]!,
      buttons: numbers[from + 2]!,
    });
    return {top: stretch(0), height: stretch(3)};
  }
  text(control: Address, ask: AskText): string {
    this.#exports.control_text(control, ask);
    return this.#text();
  }
  /** The accessible name of a control. */
  spokenName(handle: number, control: Address): string {
    this.#exports.spoken_name(handle, control);
    return this.#text();
  }
  shownText(box: Address, lineEnd: string): string {
    this.#exports.shown_text(box, lineEnd.charCodeAt(0));
    return this.#text();
  }
  textBetween(box: Address, first: number, behind: number): string {
    this.#exports.text_between(box, first, behind);
    return this.#text();
  }
  shownPlace(box: Address, place: number): number {
    return this.#exports.shown_place(box, place);
  }
  /** Rows by their numbers in the control, whatever a filter hides. */
  rows(list: Address, first: number, count: number): Row[] {
    this.#exports.rows(list, first, count);
    const texts = this.#text();
    const lengths = this.#numbers();
    const rows: Row[] = [];
    for (let at = 0, from = 0; at < lengths.length; at += 2) {
      const behind = from + lengths[at]!;
      rows.push({text: texts.slice(from, behind), marked: lengths[at + 1] !== 0});
      from = behind;
    }
    return rows;
  }

  // Lists. A row number counts the drawn rows, which a filter makes fewer.

  /** Draws only rows that hold the text, in any letter case, from now on; "" draws all. */
  setFilter(handle: number, list: Address, filter: string): void {
    this.send(filter);
    this.#exports.set_filter(handle, list);
  }
  /** Names that are drawn beside rows, by the texts of the rows. The filter finds them as well. */
  nameRows(handle: number, list: Address, names: ReadonlyMap<string, string>): void {
    for (const [text, name] of names) {
      this.send(text + name);
      this.#exports.add_name(text.length);
    }
    this.#exports.name_rows(handle, list);
  }
  drawnCount(handle: number, list: Address): number {
    return this.#exports.drawn_count(handle, list);
  }
  /** Maps a drawn row to the row of the control, and back; -1 for none. */
  controlRow(handle: number, list: Address, drawn: number): number {
    return this.#exports.control_row(handle, list, drawn);
  }
  drawnRow(handle: number, list: Address, row: number): number {
    return this.#exports.drawn_row(handle, list, row);
  }
  drawnRows(handle: number, list: Address, first: number, count: number): DrawnRow[] {
    this.#exports.drawn_rows(handle, list, first, count);
    const texts = this.#text();
    const numbers = this.#numbers();
    const rows: DrawnRow[] = [];
    for (let at = 0, from = 0; at < numbers.length; at += 4) {
      const between = from + numbers[at + 1]!;
      const behind = between + numbers[at + 2]!;
      rows.push({
        row: numbers[at]!,
        text: texts.slice(from, between),
        name: texts.slice(between, behind),
        marked: numbers[at + 3] !== 0,
      });
      from = behind;
    }
    return rows;
  }
  /** The sentence about marked rows that the filter hides, "" when it hides none. */
  hiddenMarks(handle: number, list: Address): string {
    this.#exports.hidden_marks(handle, list);
    return this.#text();
  }
  /** Type-ahead: the row that a letter typed in a list leads to, -1 for none. */
  typeAhead(handle: number, list: Address, current: number, event: KeyboardEvent): number {
    const letter = event.key.charCodeAt(0);
    return this.#exports.type_ahead(handle, list, current, letter, Math.round(event.timeStamp));
  }

  coloredWords(line: string): ColoredWord[] {
    this.send(line);
    this.#exports.colored_words();
    return wordsIn(this.#numbers());
  }

  // What a person does.

  gesture(handle: number, kind: Gesture, control: Address, number: number): Status {
    return this.#exports.gesture(handle, kind, control, number);
  }
  type(handle: number, box: Address, shown: string, caret: number, lineEnd: string): Status {
    this.send(shown);
    return this.#exports.type(handle, box, caret, lineEnd.charCodeAt(0));
  }
  typeKey(handle: number, box: Address, first: number, behind: number, code: number): Status {
    return this.#exports.type_key(handle, box, first, behind, code);
  }
  /** The last gesture, as a request of JSON lines; undefined when its control is gone. */
  madeGesture(handle: number): MadeGesture | undefined {
    const numbers = this.#made(handle);
    if (numbers === undefined) return undefined;
    const [gesture, control, number, from, to] = numbers;
    this.#exports.made_text(handle);
    const typed = this.#text();
    this.#exports.gesture_words(gesture);
    const [user, operand] = this.#text().split(' ') as [string, string];
    const made: MadeGesture = {user};
    if (operand !== 'page') made['control'] = this.text(control, AskText.Name);
    if (operand !== '') made[operand] = operand === 'text' ? typed : number;
    if (from >= 0) Object.assign(made, {from, to});
    return made;
  }
  /** Whether the last gesture was typing into this box. */
  madeByTyping(handle: number, box: Address): boolean {
    const [gesture, control] = this.#made(handle) ?? [];
    return control === box && (gesture === Gesture.Type || gesture === Gesture.Key);
  }
  #made(handle: number): [number, Address, number, number, number] | undefined {
    this.#exports.made(handle);
    const numbers = [...this.#numbers()];
    return numbers.length === 0
      ? undefined
      : (numbers as [number, Address, number, number, number]);
  }
  beginStep(handle: number): boolean {
    return this.#exports.begin_step(handle) !== 0;
  }
  endStep(handle: number): void {
    this.#exports.end_step(handle);
  }
  undo(handle: number): Status {
    return this.#exports.undo(handle);
  }
  redo(handle: number): Status {
    return this.#exports.redo(handle);
  }
  history(handle: number): {canUndo: boolean; canRedo: boolean; isOn: boolean} {
    const bits = this.#exports.history(handle);
    return {canUndo: (bits & 1) !== 0, canRedo: (bits & 2) !== 0, isOn: (bits & 4) !== 0};
  }
  switchHistory(handle: number, on: boolean): void {
    this.#exports.switch_history(handle, Number(on));
  }

  /** Takes the sentence for screen readers on what the last gesture changed; "" for nothing. */
  words(handle: number): string {
    this.#exports.words(handle);
    return this.#text();
  }
  changes(handle: number): Changes {
    this.#exports.changes(handle);
    const numbers = this.#numbers();
    const goneCount = numbers[1]!;
    const changed = new Map<Address, number>();
    for (let at = 2 + goneCount; at < numbers.length; at += 2)
      changed.set(numbers[at]!, numbers[at + 1]!);
    return {focusMoved: numbers[0] !== 0, gone: [...numbers.subarray(2, 2 + goneCount)], changed};
  }
}
