// The filter lines above lists, and the notes on marked rows that a filter hides.
import {make, showText} from './dom';
import type {Logic} from './logic';
import type {OwnTexts} from './texts';
import type {ListView} from './views';

/** What the filters need from their form. */
export interface Filtered {
  readonly logic: Logic;
  readonly handle: number;
  readonly texts: OwnTexts;
  addressOf(list: string): number;
  listOf(list: string): ListView;
}

export class Filters {
  readonly #form: Filtered;
  readonly #filters = new Map<string, HTMLInputElement>();
  readonly #marks = new Map<string, HTMLElement>();

  constructor(form: Filtered) {
    this.#form = form;
  }

  /** Makes the filter line of a list. */
  make(list: string): HTMLElement {
    const {logic, handle, texts} = this.#form;
    const filter = make('input', {
      type: 'search',
      id: `${list}.filter`,
      class: 'filter',
      part: 'input filter',
      autocomplete: 'off',
      'aria-keyshortcuts': 'Control+F',
    });
    texts.keep(() => {
      const name = logic.spokenName(handle, this.#form.addressOf(list));
      filter.placeholder = texts.of('filter');
      filter.setAttribute('aria-label', texts.of('filterOf', {list: name}));
    });
    filter.spellcheck = false;
    filter.addEventListener('input', () => {
      this.#form.listOf(list).rows.setFilter(filter.value);
      this.showMarks(list);
    });
    this.#filters.set(list, filter);
    return filter;
  }
  /** Makes the note on marked rows that the filter of a list hides. */
  makeMarks(list: string): HTMLElement {
    const marks = make('div', {id: `${list}.marks`, class: 'marks', part: 'marks', role: 'status'});
    this.#marks.set(list, marks);
    this.#form.texts.keep(() => this.showMarks(list));
    return marks;
  }
  showMarks(list: string): void {
    const {logic, handle} = this.#form;
    const marks = this.#marks.get(list);
    if (marks === undefined) return;
    showText(marks, logic.hiddenMarks(handle, this.#form.addressOf(list)));
    marks.title = marks.textContent ?? '';
  }
  /** Draws names beside the rows of the list of tables, by the texts of the rows. */
  nameTables(names: ReadonlyMap<string, string>): void {
    this.#form.listOf('lsttables').rows.nameRows(names);
    this.showMarks('lsttables');
  }
  /** Updates filter and note of a list; does nothing for other controls. */
  show(list: string, isEnabled: boolean): void {
    const filter = this.#filters.get(list);
    if (filter !== undefined) filter.disabled = !isEnabled;
    this.showMarks(list);
  }

  /** The list that a node filters; undefined if the node is no filter. */
  listFilteredBy(node: Element): string | undefined {
    return [...this.#filters].find(([, filter]) => filter === node)?.[0];
  }
  /** Focuses the filter of that list if it is visible, or else the first visible one. */
  focus(list: string | undefined): boolean {
    const own = list === undefined ? undefined : this.#filters.get(list);
    const canBeSeen = (filter: HTMLInputElement) => filter.checkVisibility() && !filter.disabled;
    const filter =
      own !== undefined && canBeSeen(own) ? own : [...this.#filters.values()].find(canBeSeen);
    if (filter === undefined) return false;
    filter.focus();
    filter.select();
    return true;
  }
}
