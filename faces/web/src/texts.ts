// The words that the element adds to the control's own, in English or as the page gives them: by
// the keys of faces/shared/words.def.
import type {Logic} from './logic';
import {isNothing} from './values';

export type Texts = Readonly<Record<string, string>>;

export class OwnTexts {
  readonly #logic: Logic;
  readonly #handle: number;
  readonly #shown: (() => void)[] = [];
  #texts: Texts;

  constructor(logic: Logic, handle: number) {
    this.#logic = logic;
    this.#handle = handle;
    this.#texts = logic.ownWords(handle);
  }

  get all(): Texts {
    return this.#texts;
  }
  /** The text of a key, its placeholders in braces replaced by values. */
  of(key: string, values: Record<string, string> = {}): string {
    return this.#texts[key]!.replace(/\{(\w+)\}/g, (whole, name: string) => values[name] ?? whole);
  }
  /** Calls `show` now, and again whenever the page gives other texts. */
  keep(show: () => void): void {
    this.#shown.push(show);
    show();
  }

  /** Takes the page's texts instead of the English ones. Keys without a text are English again. */
  give(given: unknown): void {
    if (!isNothing(given) && (typeof given !== 'object' || Array.isArray(given)))
      throw new TypeError('texts takes an object');
    const texts = Object.entries(given ?? {}).filter(([, text]) => !isNothing(text));
    for (const [key, text] of texts) {
      if (!Object.hasOwn(this.#texts, key)) throw new TypeError(`texts has no ${key}`);
      if (typeof text !== 'string') throw new TypeError(`texts takes a string for ${key}`);
    }
    const byKey = Object.fromEntries(texts) as Record<string, string | undefined>;
    this.#logic.giveWords(
      this.#handle,
      Object.keys(this.#texts).map((key) => byKey[key]),
    );
    this.#texts = this.#logic.ownWords(this.#handle);
    for (const show of this.#shown) show();
  }
}
