import {make} from './dom';

/** What is read out that stands nowhere on the form, such as what a button did beside it. */
export class Told {
  readonly node = make('div', {role: 'status', class: 'told'});
  #isOther = false;

  // With a blank behind them every other time: the same words would not be read again.
  say(words: string): void {
    this.#isOther = !this.#isOther;
    this.node.replaceChildren(make('span', {}, this.#isOther ? words : `${words}\u00a0`));
  }
}
