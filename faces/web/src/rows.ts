// The rows of a list as a virtual list: all rows have one height, and only those in sight and
// around are nodes.
//
// The control has the rows, and the logic knows which of them a filter leaves to be drawn. The only
// state here is scrolling and the current row, on which the keys stand.
import {make, setAttributes} from './dom';
import type {Address, DrawnRow, Logic} from './logic';
import {Ask, Gesture, ListKey, Style} from './numbers';

// The greatest height in pixels that browsers draw right. Taller lists are scrolled in proportion.
const kTallest = 8_000_000;
// The height of a row in font sizes, and in pixels the least that a mouse can hit; the style sheet
// has another one for touch.
const kRowInLetters = 1.85;
const kLeastHeight = 24;
// So many rows before and behind those in sight are nodes too (overscan). The keys then come to a
// row that is a node already, and screen readers tell the row and not the list around it.
const kAround = 4;
const kListKeys: Record<string, ListKey> = {
  ArrowUp: ListKey.Up,
  ArrowDown: ListKey.Down,
  PageUp: ListKey.PageUp,
  PageDown: ListKey.PageDown,
  Home: ListKey.Home,
  End: ListKey.End,
  ' ': ListKey.Space,
  Enter: ListKey.Enter,
};

export interface RowsOptions {
  logic: Logic;
  /** The element that has the list. */
  handle: number;
  list: Address;
  /** The node that scrolls, a list box. */
  box: HTMLElement;
  /** The node that has the focus while the keys move among the rows. */
  holder: HTMLElement;
  /** Whether the rows are entries of a combo box, of which ListIndex is the selected one. */
  isPopup?: boolean;
}

// The text of a row. A long text is split into two elements, so that the style sheet elides it in
// the middle: long names often differ in their last letters. A text with characters other than
// ASCII is not split, since some of its characters may form one glyph; it is elided at its end.
function spanOf(kind: string, text: string): HTMLElement {
  const kLong = 20;
  const kTail = 9;
  if (text.length < kLong || !/^[\x20-\x7e]+$/.test(text)) return make('span', {class: kind}, text);
  return make(
    'span',
    {class: `${kind} cut`},
    make('span', {class: 'beginning'}, text.slice(0, -kTail)),
    make('span', {class: 'ending'}, text.slice(-kTail)),
  );
}

export class Rows {
  readonly #logic: Logic;
  readonly #handle: number;
  readonly #list: Address;
  readonly #box: HTMLElement;
  readonly #holder: HTMLElement;
  readonly #isPopup: boolean;
  readonly #hasCheckBoxes: boolean;
  readonly #space = make('div', {role: 'presentation', class: 'space'});
  readonly #nodes = new Map<number, HTMLElement>();
  #filter = '';
  #current = -1; // the current row, counted as drawn; -1 for none
  #isWanted = false; // scroll to the current row as soon as the list is visible
  #rowHeight = 0;
  // A cache of the visible height and the scrolling, in pixels: to ask the browser forces a layout,
  // and the browser forgets the scrolling of nodes that are hidden or moved.
  #view = 0;
  #place = 0;
  #told = ''; // the height of all rows that the style sheet was given last

  constructor(options: RowsOptions) {
    this.#logic = options.logic;
    this.#handle = options.handle;
    this.#list = options.list;
    this.#box = options.box;
    this.#holder = options.holder;
    this.#isPopup = options.isPopup ?? false;
    this.#hasCheckBoxes =
      !this.#isPopup && (this.#logic.number(this.#list, Ask.Style) & Style.CheckBoxes) !== 0;
    this.#box.append(this.#space);
    this.#box.addEventListener(
      'scroll',
      () => {
        this.#place = this.#box.scrollTop;
        this.draw();
      },
      {passive: true},
    );
    new ResizeObserver(([entry]) => this.lookAgain(entry!.contentRect.height)).observe(this.#box);
  }

  /** The number of rows drawn, of which only some are nodes. */
  get count(): number {
    return this.#logic.drawnCount(this.#handle, this.#list);
  }
  /** The row of the control on which the keys stand, -1 for none. */
  get current(): number {
    return this.#logic.controlRow(this.#handle, this.#list, this.#current);
  }
  #drawnRow(row: number): number {
    return row < 0 ? -1 : this.#logic.drawnRow(this.#handle, this.#list, row);
  }

  /** Draws only rows that hold the text, in any letter case, from now on; "" draws all. */
  setFilter(filter: string): void {
    if (filter === this.#filter) return;
    this.#filter = filter;
    this.#logic.setFilter(this.#handle, this.#list, filter);
    this.#current = -1;
    this.#scrollTo(0);
    this.rowsChanged();
  }
  /** Names that are drawn beside rows, by the texts of the rows. The filter finds them as well. */
  nameRows(names: ReadonlyMap<string, string>): void {
    this.#logic.nameRows(this.#handle, this.#list, names);
    this.rowsChanged();
  }

  /** Draws again after rows were added, removed or replaced. */
  rowsChanged(): void {
    const count = this.count;
    if (this.#current >= count) this.#current = count - 1;
    this.showListIndex();
  }
  #read(first: number, behind: number): DrawnRow[] {
    return this.#logic.drawnRows(this.#handle, this.#list, first, behind - first);
  }

  /** Makes the row of ListIndex the current row, if it is drawn. */
  showListIndex(): void {
    const row = this.#drawnRow(this.#logic.number(this.#list, Ask.ListIndex));
    if (row >= 0 && row !== this.#current) {
      this.moveTo(row);
    } else {
      this.draw();
    }
  }

  /** Makes a drawn row the current row, clamped to the rows, and scrolls so that it is visible. */
  moveTo(drawn: number): void {
    this.#current = Math.max(-1, Math.min(drawn, this.count - 1));
    if (this.#current >= 0) this.#bringIntoSight(this.#current);
    this.draw();
  }
  moveToRow(row: number): void {
    this.moveTo(this.#drawnRow(row));
  }

  // Where the rows stand.

  get #height(): number {
    if (this.#rowHeight === 0) {
      const style = getComputedStyle(this.#box);
      const letters = parseFloat(style.fontSize) || 0;
      const least = parseFloat(style.getPropertyValue('--_target')) || kLeastHeight;
      this.#rowHeight = Math.max(Math.round(kRowInLetters * letters), least);
      this.#box.style.setProperty('--row-height', `${this.#rowHeight}px`);
    }
    return this.#rowHeight;
  }
  get rowsInSight(): number {
    return Math.max(Math.floor(this.#view / this.#height), 1);
  }
  /** The height that this many rows take. */
  heightOf(count: number): number {
    return count * this.#height;
  }
  /** Sets the visible height, in pixels, of a list that is about to open. */
  set view(height: number) {
    this.#view = height;
  }
  // In a list too tall for a browser: by how many pixels rows are drawn above their true places.
  #lift(): number {
    const all = this.heightOf(this.count);
    if (all <= kTallest) return 0;
    return (this.#place * (all - this.#view)) / (kTallest - this.#view) - this.#place;
  }
  #scrollTo(place: number): void {
    this.#place = place;
    if (this.#view === 0) return;
    this.#stretch();
    this.#box.scrollTop = place;
  }
  #bringIntoSight(drawn: number): void {
    this.#isWanted = this.#view === 0;
    if (this.#isWanted) return;
    const all = this.heightOf(this.count);
    const top = drawn * this.#height;
    const from = this.#place + this.#lift();
    let wanted = from;
    if (top < from) wanted = top;
    else if (top + this.#height > from + this.#view)
      wanted = Math.max(0, top + this.#height - this.#view);
    if (wanted === from) return;
    this.#scrollTo(
      all <= kTallest ? wanted : (wanted * (kTallest - this.#view)) / (all - this.#view),
    );
  }
  #stretch(): void {
    const height = `${Math.min(this.heightOf(this.count), kTallest)}px`;
    this.#space.style.height = height;
    if (height === this.#told) return;
    this.#told = height;
    // On a phone the list gets this height. It is set in the next frame: this may be a resize.
    requestAnimationFrame(() => this.#box.style.setProperty('--rows-height', height));
  }
  /** The scrolling as it was before the element moved in its page. */
  restorePlace(): void {
    if (this.#place !== 0) this.#scrollTo(this.#place);
  }

  /** Takes the list's visible height in pixels, 0 while it is hidden, and draws. */
  lookAgain(height: number): void {
    this.#view = height;
    this.#rowHeight = 0;
    if (this.#isWanted && this.#view > 0) this.#bringIntoSight(this.#current);
    else this.restorePlace();
    this.draw();
  }

  /** Draws the rows in sight. */
  draw(): void {
    const view = this.#view;
    if (view === 0) return; // hidden: drawn when it is shown again
    const count = this.count;
    const height = this.#height;
    this.#stretch();
    this.#place = Math.max(0, Math.min(this.#place, Math.min(count * height, kTallest) - view));
    const lift = this.#lift();
    const from = this.#place + lift;
    const top = Math.floor(from / height);
    const first = Math.max(0, Math.min(top - kAround, count));
    const behind = Math.min(top + Math.ceil(view / height) + 1 + kAround, count);

    const rows = new Map(this.#read(first, behind).map((row, at) => [first + at, row] as const));
    // The current row is always a node, since aria-activedescendant names it.
    if (this.#current >= 0 && this.#current < count && !rows.has(this.#current))
      rows.set(this.#current, this.#read(this.#current, this.#current + 1)[0]!);
    for (const [drawn, node] of this.#nodes) {
      if (rows.has(drawn)) continue;
      node.remove();
      this.#nodes.delete(drawn);
    }
    for (const [drawn, row] of rows) this.#drawRow(drawn, row, count, drawn * height - lift);
    const active = this.#nodes.get(this.#current);
    setAttributes(this.#holder, {'aria-activedescendant': active?.id ?? false});
  }

  #drawRow(drawn: number, row: DrawnRow, count: number, top: number): void {
    const {row: number, name} = row;
    let node = this.#nodes.get(drawn);
    if (node === undefined) {
      node = make('div', {role: 'option', class: 'row'});
      this.#nodes.set(drawn, node);
      // The nodes stand in the order of the rows, in which screen readers read them.
      let next: HTMLElement | null = null;
      for (const [other, candidate] of this.#nodes) {
        if (other > drawn && (next === null || other < Number(next.dataset['drawn'])))
          next = candidate;
      }
      this.#space.insertBefore(node, next);
    }
    const shown = `${row.text}\n${name}`;
    if (node.dataset['shown'] !== shown || node.childNodes.length === 0) {
      node.dataset['shown'] = shown;
      node.replaceChildren(spanOf('text', row.text));
      if (name !== '') node.append(spanOf('name', name));
      // A cut text consists of two spans; the accessible name joins them to one text.
      const isCut = node.querySelector('.ending') !== null;
      setAttributes(node, {'aria-label': isCut ? `${row.text} ${name}`.trim() : false});
      node.title = name === '' ? row.text : `${row.text}: ${name}`;
    }
    const isMarked = this.#isPopup
      ? number === this.#logic.number(this.#list, Ask.ListIndex)
      : row.marked;
    const markClass = this.#hasCheckBoxes ? 'checked' : 'marked';
    setAttributes(node, {
      id: `${this.#box.id}.row.${number}`,
      'data-row': number,
      'data-drawn': drawn,
      'aria-posinset': drawn + 1,
      'aria-setsize': count,
      // Rows with check boxes have it as well: screen readers tell aria-checked when the keys come
      // to the row, but not when the space bar changes it.
      'aria-selected': String(isMarked),
      class: ['row', drawn === this.#current && 'current', isMarked && markClass]
        .filter(Boolean)
        .join(' '),
      part: ['row', drawn === this.#current && 'current', isMarked && 'marked']
        .filter(Boolean)
        .join(' '),
    });
    node.style.top = `${top}px`;
  }

  // What keys and the mouse mean.

  /** The row of the control under the mouse, -1 for none. */
  rowUnder(event: Event): number {
    const node = (event.target as Element | null)?.closest?.('[data-row]');
    return node instanceof HTMLElement && this.#box.contains(node)
      ? Number(node.dataset['row'])
      : -1;
  }

  /**
   * Moves for an arrow, a page key or a letter (type-ahead). Gives the gesture that the key makes
   * of the current row, if any; undefined for a key that a list does not take.
   */
  takeKey(event: KeyboardEvent, isSingle = false): {gesture: Gesture | undefined} | undefined {
    if (event.ctrlKey || event.metaKey || event.altKey) return undefined;
    const key = kListKeys[event.key];
    if (key !== undefined) {
      const {row, moves, gesture} = this.#logic.listKey(key, {
        current: this.#current,
        count: this.count,
        page: this.rowsInSight,
        isSingle,
      });
      if (moves) this.moveTo(row);
      return {gesture: row < 0 ? undefined : gesture};
    }
    if (event.key.length !== 1) return undefined;
    const row = this.#logic.typeAhead(this.#handle, this.#list, this.#current, event);
    if (row >= 0) this.moveTo(row);
    return {gesture: row >= 0 && isSingle ? Gesture.ClickRow : undefined};
  }
}
