// Passes texts and numbers into and out of a WebAssembly module.
//
// Texts are passed as 16-bit units, so that every text comes back unchanged, even broken UTF-16.

/** The functions of exchange.cpp. */
export interface ExchangeExports {
  memory: WebAssembly.Memory;
  _initialize(): void;
  text_in(length: number): number;
  text_out(): number;
  text_out_length(): number;
  numbers_out(): number;
  numbers_out_length(): number;
  forget_texts(): void;
}

// Characters that are read at once: as many as an argument list holds.
const kPiece = 8192;
// The module frees its room for a text longer than this, in characters, once it was read.
const kLongText = 1 << 16;

export class Exchange {
  readonly #exports: ExchangeExports;

  /** Takes the exports of a new module, and initialises it. */
  constructor(exports: ExchangeExports) {
    this.#exports = exports;
    exports._initialize();
  }

  textAt(address: number, length: number): string {
    const units = new Uint16Array(this.#exports.memory.buffer, address, length);
    if (length <= kPiece) return String.fromCharCode.apply(null, units as unknown as number[]);
    const pieces: string[] = [];
    for (let from = 0; from < length; from += kPiece)
      pieces.push(
        String.fromCharCode.apply(null, units.subarray(from, from + kPiece) as unknown as number[]),
      );
    return pieces.join('');
  }

  /** Hands over the text that the next call takes. */
  send(text: string): void {
    const address = this.#exports.text_in(text.length);
    const units = new Uint16Array(this.#exports.memory.buffer, address, text.length);
    for (let at = 0; at < text.length; ++at) units[at] = text.charCodeAt(at);
  }

  text(): string {
    const length = this.#exports.text_out_length();
    const text = this.textAt(this.#exports.text_out(), length);
    if (length > kLongText) this.#exports.forget_texts();
    return text;
  }

  numbers(): Int32Array {
    return new Int32Array(
      this.#exports.memory.buffer,
      this.#exports.numbers_out(),
      this.#exports.numbers_out_length(),
    );
  }
}

/** The imports that the C++ standard library needs. */
export const kSystem: WebAssembly.Imports = {
  env: {emscripten_notify_memory_growth() {}},
  wasi_snapshot_preview1: {
    // The library calls it when the module aborts.
    proc_exit(status: number) {
      throw new Error(`the control's logic ended with ${status}`);
    },
    fd_close: () => 0,
    fd_seek: () => 0,
    fd_write: () => 0,
  },
};
