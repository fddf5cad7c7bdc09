// Maps the BackColor of a control to a colour of CSS.
import {make} from './dom';
import type {Logic} from './logic';

/**
 * The system colours that the form uses, by the numbers of a BackColor. CSS has no colour for
 * inactive title bars; the colour of an inactive box stands in for it.
 */
const kSystemColors = new Map([
  [0x80000003, 'var(--_field-inactive)'],
  [0x8000000e, 'HighlightText'],
]);
const kWithout = 'var(--_field)';

/** The background colour of a box; a fallback replaces it if the text can't be read on it. */
export class BackColor {
  readonly #logic: Logic;
  readonly #node: HTMLElement;
  // A hidden node that resolves a colour in a given colour scheme, whichever the page has.
  readonly #probe = make('span', {hidden: true, 'aria-hidden': 'true'});
  #meant: string | undefined;

  constructor(logic: Logic, node: HTMLElement) {
    this.#logic = logic;
    this.#node = node;
    node.append(this.#probe);
  }

  show(backColor: number): void {
    const meant = kSystemColors.get(backColor >>> 0);
    if (meant === this.#meant) return;
    this.#meant = meant;
    this.#node.classList.toggle('meant', meant !== undefined);
    this.showAgain();
  }
  /** Checks the colours again: the element came into a page, whose colours it takes. */
  showAgain(): void {
    if (this.#meant === undefined) return;
    for (const scheme of ['light', 'dark']) {
      const text = this.#numberOf('var(--_text)', scheme);
      const background = this.#numberOf(this.#meant, scheme);
      const canBeRead =
        text !== undefined && background !== undefined && this.#logic.canBeRead(text, background);
      this.#node.style.setProperty(`--meant-${scheme}`, canBeRead ? this.#meant : kWithout);
    }
  }
  // A colour as 0xRRGGBB; undefined if the browser does not resolve it to rgb().
  #numberOf(color: string, scheme: string): number | undefined {
    this.#probe.style.colorScheme = scheme;
    this.#probe.style.color = color;
    const parts = /^rgb\((\d+), (\d+), (\d+)\)$/.exec(getComputedStyle(this.#probe).color);
    return parts?.slice(1).reduce((number, part) => 256 * number + Number(part), 0);
  }
}
