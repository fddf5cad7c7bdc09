import {make} from './dom';

/** The live region: sentences that screen readers read out and that nobody sees on the form. */
export class Told {
  readonly node = make('div', {role: 'status', class: 'told'});
  #isOther = false;

  // Every second sentence ends with a no-break space, so that a sentence which is said twice is a
  // changed text, too: screen readers do not read an unchanged one again.
  say(words: string): void {
    this.#isOther = !this.#isOther;
    this.node.replaceChildren(make('span', {}, this.#isOther ? words : `${words}\u00a0`));
  }
}
