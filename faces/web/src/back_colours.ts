// What the BackColor of a control is in a browser.
import {make} from './dom';
import type {Logic} from './logic';

/**
 * The system colours that the form has, by the numbers of a BackColor. CSS has no colour of inactive
 * title bars; in their place stands that of a box that takes nothing.
 */
const kSystemColours = new Map([
  [0x80000003, 'var(--_field-inactive)'],
  [0x8000000e, 'HighlightText'],
]);
const kWithout = 'var(--_field)';

/** The colour behind the text of a box, as long as the text can be read on it. */
export class BackColour {
  readonly #logic: Logic;
  readonly #node: HTMLElement;
  // Asked for a colour in one scheme, whichever the page has.
  readonly #probe = make('span', {hidden: true, 'aria-hidden': 'true'});
  #meant: string | undefined;

  constructor(logic: Logic, node: HTMLElement) {
    this.#logic = logic;
    this.#node = node;
    node.append(this.#probe);
  }

  show(backColor: number): void {
    const meant = kSystemColours.get(backColor >>> 0);
    if (meant === this.#meant) return;
    this.#meant = meant;
    this.#node.classList.toggle('meant', meant !== undefined);
    this.showAgain();
  }
  /** The element came into a page, and has the colours of that. */
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
  // A colour as 0xRRGGBB; undefined for one that the browser tells in another way.
  #numberOf(colour: string, scheme: string): number | undefined {
    this.#probe.style.colorScheme = scheme;
    this.#probe.style.color = colour;
    const parts = /^rgb\((\d+), (\d+), (\d+)\)$/.exec(getComputedStyle(this.#probe).color);
    return parts?.slice(1).reduce((number, part) => 256 * number + Number(part), 0);
  }
}
