import {make} from './dom';

/** The live region: sentences that screen readers read out and that nobody sees on the form. */
export class Told {
  readonly node = make('div', {role: 'status', class: 'told'});
  #isOther = false;

  // Every other sentence ends with a blank: screen readers do not read an unchanged text again.
  say(words: string): void {
    this.#isOther = !this.#isOther;
    this.node.replaceChildren(make('span', {}, this.#isOther ? words : `${words}\u00a0`));
  }
}
