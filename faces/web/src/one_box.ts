// The WebAssembly module of the box of statements as an element of its own, with a method for each
// function that it exports.
import * as written from 'zolt21-synt-text-box.wasm.json';

import {type Address, type BoxTexts, type ColoredWord, wordsIn} from './crossing';
import {Exchange, type ExchangeExports, kSystem} from './exchange';
import {bytesOf} from './letters';

/** The functions of text_box_exports.cpp and color_exports.cpp. */
interface BoxExports extends ExchangeExports {
  make(): number;
  destroy(box: number): void;
  box_text(box: number): void;
  set_box_text(box: number): void;
  type(box: number, caret: number, lineEnd: number): void;
  shown_text(box: number, lineEnd: number): void;
  text_between(box: number, first: number, behind: number): void;
  shown_place(box: number, place: number): number;
  looks(): void;
  colored_words(): void;
}

/** The texts of all boxes of a page. */
export class Boxes implements BoxTexts {
  readonly #exports: BoxExports;
  readonly #exchange: Exchange;
  readonly #leftBehind = new FinalizationRegistry<Address>((box) => this.#exports.destroy(box));

  constructor() {
    const module = new WebAssembly.Module(bytesOf(written));
    const {exports} = new WebAssembly.Instance(module, kSystem);
    this.#exports = exports as unknown as BoxExports;
    this.#exchange = new Exchange(this.#exports);
  }

  /** A new box for the owner, destroyed when the owner has been garbage collected. */
  make(owner: object): Address {
    const box = this.#exports.make();
    this.#leftBehind.register(owner, box);
    return box;
  }

  text(box: Address): string {
    this.#exports.box_text(box);
    return this.#exchange.text();
  }
  setText(box: Address, text: string): void {
    this.#exchange.send(text);
    this.#exports.set_box_text(box);
  }
  type(box: Address, shown: string, caret: number, lineEnd: string): void {
    this.#exchange.send(shown);
    this.#exports.type(box, caret, lineEnd.charCodeAt(0));
  }

  shownText(box: Address, lineEnd: string): string {
    this.#exports.shown_text(box, lineEnd.charCodeAt(0));
    return this.#exchange.text();
  }
  textBetween(box: Address, first: number, behind: number): string {
    this.#exports.text_between(box, first, behind);
    return this.#exchange.text();
  }
  shownPlace(box: Address, place: number): number {
    return this.#exports.shown_place(box, place);
  }
  looks(): number[] {
    this.#exports.looks();
    return [...this.#exchange.numbers()];
  }
  coloredWords(line: string): ColoredWord[] {
    this.#exchange.send(line);
    this.#exports.colored_words();
    return wordsIn(this.#exchange.numbers());
  }
}
