// The view of a combo box: a box or a text, and a popup list of entries. A long list begins with a
// search line, which has the focus while the list is open.
import {BackColor} from './back_colors';
import {icon, make, setAttributes, showText} from './dom';
import type {Face} from './face';
import type {Address} from './logic';
import {Ask, AskText, Gesture, Style, What} from './numbers';
import {Rows} from './rows';
import {type TypedBox, lineBox} from './text_boxes';
import type {View} from './views';

export class ComboView implements View {
  readonly node: HTMLElement;
  readonly focus: HTMLElement;
  readonly #face: Face;
  readonly #control: Address;
  readonly #typed: TypedBox | undefined;
  readonly #text = make('span', {class: 'value'});
  readonly #list = make('div', {role: 'listbox', class: 'rows', part: 'list'});
  readonly #none = make('div', {class: 'none', role: 'status'});
  readonly #popup = make('div', {class: 'popup', part: 'popup', popover: 'manual'});
  readonly #search: HTMLInputElement | undefined;
  readonly #rows: Rows;
  readonly #color: BackColor;
  #opener: HTMLButtonElement | undefined;
  #name = '';

  constructor(face: Face, control: Address) {
    const {logic} = face;
    this.#face = face;
    this.#control = control;
    const name = logic.text(control, AskText.Name);
    this.#list.id = `${name}.list`;
    const kArrow = 'M4 6l4 4 4-4';
    const attributes = {
      role: 'combobox',
      'aria-haspopup': 'listbox',
      'aria-expanded': 'false',
      'aria-controls': this.#list.id,
    };
    if (logic.is(control, Ask.HasSearch)) this.#search = this.#makeSearch(name);
    this.#popup.append(...(this.#search ? [this.#search] : []), this.#none, this.#list);
    if ((logic.number(control, Ask.Style) & Style.Editable) !== 0) {
      this.#typed = lineBox(logic, control, face, false);
      this.focus = this.#typed.input;
      setAttributes(this.focus, {...attributes, 'aria-autocomplete': 'none'});
      this.#opener = make(
        'button',
        {type: 'button', class: 'open', part: 'opener', tabindex: -1, id: `${name}.open`},
        icon(kArrow),
      );
      this.node = make(
        'div',
        {class: 'combo', part: 'combo'},
        this.focus,
        this.#opener,
        this.#popup,
      );
    } else {
      this.focus = make(
        'div',
        {...attributes, tabindex: 0, class: 'pick', part: 'input'},
        this.#text,
        icon(kArrow),
      );
      this.node = make('div', {class: 'combo', part: 'combo'}, this.focus, this.#popup);
    }
    this.#rows = new Rows({
      logic,
      handle: face.handle,
      list: control,
      box: this.#list,
      holder: this.#search ?? this.focus,
      isPopup: true,
    });

    this.#color = new BackColor(logic, this.node);
    face.texts.keep(() => this.name(this.#name));
    this.#listen();
  }

  #listen(): void {
    // A press does not move the focus, except into the search line.
    const presser = this.#opener ?? this.focus;
    this.#popup.addEventListener('mousedown', (event) => {
      if (event.target !== this.#search) event.preventDefault();
    });
    presser.addEventListener('mousedown', (event) => {
      if (this.#isOpen || presser !== this.focus) event.preventDefault();
    });
    presser.addEventListener('click', () => {
      if (!this.#isEnabled) return;
      if (!this.#isOpen) this.focus.focus();
      this.#show(!this.#isOpen);
    });
    this.#popup.addEventListener('click', (event) => {
      const row = this.#rows.rowUnder(event);
      if (row >= 0) this.#pick(row);
    });
    this.focus.addEventListener('blur', (event) => {
      if (this.#search === undefined || event.relatedTarget !== this.#search) this.#show(false);
    });
    this.focus.addEventListener('keydown', (event) => this.#key(event));
  }

  #makeSearch(name: string): HTMLInputElement {
    const search = make('input', {
      type: 'text',
      id: `${name}.search`,
      class: 'search',
      part: 'input search',
      role: 'combobox',
      autocomplete: 'off',
      'aria-autocomplete': 'list',
      'aria-haspopup': 'listbox',
      'aria-expanded': 'true',
      'aria-controls': this.#list.id,
    });
    search.spellcheck = false;
    search.addEventListener('input', () => {
      this.#rows.setFilter(search.value);
      if (this.#rows.current < 0 && search.value !== '') this.#rows.moveTo(0);
      this.#showNone();
    });
    search.addEventListener('blur', () => this.#show(false));
    search.addEventListener('keydown', (event) => this.#key(event));
    return search;
  }
  #showNone(): void {
    showText(this.#none, this.#rows.count === 0 ? this.#face.texts.of('noEntries') : '');
  }

  close(): void {
    this.#show(false);
  }

  get #isOpen(): boolean {
    return this.focus.getAttribute('aria-expanded') === 'true';
  }
  get #isEnabled(): boolean {
    return this.#face.logic.is(this.#control, Ask.Enabled);
  }

  show(what: number): void {
    const {logic} = this.#face;
    if (this.#typed === undefined) showText(this.#text, logic.text(this.#control, AskText.Text));
    else this.#typed.show(what | What.Text);
    this.#color.show(logic.number(this.#control, Ask.BackColor));
    if ((what & What.Rows) === 0) {
      this.#rows.draw();
      return;
    }
    this.#rows.rowsChanged();
    if (this.#isOpen) this.#showNone();
  }
  restorePlace(): void {
    this.#color.showAgain();
  }
  enable(enabled: boolean): void {
    if (this.#typed === undefined) {
      setAttributes(this.focus, {
        'aria-disabled': enabled ? false : 'true',
        tabindex: enabled ? 0 : false,
      });
      this.focus.part.toggle('disabled', !enabled);
    } else {
      this.#typed.enable(enabled);
    }
    this.node.part.toggle('disabled', !enabled);
    if (this.#opener !== undefined) this.#opener.disabled = !enabled;
    if (!enabled) this.#show(false);
  }
  /** Gives the button beside the box, the list and the search line their accessible names. */
  name(name: string): void {
    const {texts} = this.#face;
    this.#name = name;
    this.#opener?.setAttribute('aria-label', texts.of('entriesOf', {list: name}));
    this.#list.setAttribute('aria-label', name);
    this.#search?.setAttribute('aria-label', texts.of('searchOf', {list: name}));
    this.#search?.setAttribute('placeholder', texts.of('search'));
    if (this.#isOpen) this.#showNone();
  }

  #show(open: boolean): void {
    if (open === this.#isOpen) return;
    this.focus.setAttribute('aria-expanded', String(open));
    this.node.part.toggle('open', open);
    if (!open) {
      this.#hide();
      return;
    }
    this.#popup.showPopover();
    this.#showNone();
    this.#rows.view = this.#place();
    this.#rows.rowsChanged();
    this.#rows.moveToRow(this.#face.logic.number(this.#control, Ask.ListIndex));
    // On a touch screen its focus would open a keyboard that covers the entries; a tap focuses it.
    if (!matchMedia('(pointer: coarse)').matches) this.#search?.focus({preventScroll: true});
    this.#stayWhile(this.node.getBoundingClientRect());
  }
  #hide(): void {
    if (this.#search?.matches(':focus')) this.focus.focus({preventScroll: true});
    this.#popup.hidePopover();
    this.#rows.view = 0;
    if (this.#search !== undefined) {
      this.#search.value = '';
      this.#rows.setFilter('');
    }
    (this.#search ?? this.focus).removeAttribute('aria-activedescendant');
  }
  // Closes the list when its box moves, whatever scrolls or changes around it.
  #stayWhile(place: DOMRect): void {
    requestAnimationFrame(() => {
      if (!this.#isOpen) return;
      const {left, top, width} = this.node.getBoundingClientRect();
      const hasMoved =
        Math.abs(left - place.left) + Math.abs(top - place.top) + Math.abs(width - place.width) > 1;
      if (hasMoved) this.#show(false);
      else this.#stayWhile(place);
    });
  }
  // Places the list below the box, or above it if there is more room. Gives the rows' height.
  #place(): number {
    const kMostRows = 14;
    const kEdge = 8;
    const around = this.node.getBoundingClientRect();
    const below = innerHeight - around.bottom - kEdge;
    const above = around.top - kEdge;
    const beside = this.#list.offsetTop + 2;
    const wanted = this.#rows.heightOf(Math.min(Math.max(this.#rows.count, 1), kMostRows)) + beside;
    // The page's style may zoom it; the places here are in zoomed pixels.
    const zoom = (this.#popup as HTMLElement & {currentCSSZoom?: number}).currentCSSZoom ?? 1;
    const isBelow = below >= wanted * zoom || below >= above;
    const height = Math.min(wanted * zoom, isBelow ? below : above) / zoom;
    Object.assign(this.#popup.style, {
      left: `${around.left / zoom}px`,
      width: `${around.width / zoom}px`,
      height: `${height}px`,
      top: `${isBelow ? around.bottom / zoom : around.top / zoom - height}px`,
    });
    return height - beside;
  }

  #pick(row: number): void {
    this.#show(false);
    this.#face.gesture(Gesture.Pick, this.#control, row);
  }

  #key(event: KeyboardEvent): void {
    const isArrow = event.key === 'ArrowDown' || event.key === 'ArrowUp';
    if (
      event.isComposing ||
      event.ctrlKey ||
      event.metaKey ||
      (event.altKey && !isArrow) ||
      !this.#isEnabled
    )
      return;
    if (this.#isOpen) this.#keyInList(event);
    else if (isArrow) this.#showBy(event);
    else if (this.#typed === undefined) this.#keyOnPick(event);
  }
  #showBy(event: KeyboardEvent): void {
    event.preventDefault();
    this.#show(true);
  }
  // A letter opens the list and goes to its search line, which gets the focus, or to type-ahead.
  #keyOnPick(event: KeyboardEvent): void {
    const isLetter = event.key.length === 1 && event.key !== ' ';
    if (isLetter && this.#search !== undefined) this.#show(true);
    else if (isLetter || event.key === 'Enter' || event.key === ' ') this.#showBy(event);
    if (isLetter && this.#search === undefined) this.#rows.takeKey(event);
  }
  #keyInList(event: KeyboardEvent): void {
    const isPick =
      event.key === 'Enter' ||
      (event.key === ' ' && this.#search === undefined) ||
      (event.altKey && event.key === 'ArrowUp');
    if (isPick) {
      event.preventDefault();
      if (this.#rows.current >= 0) this.#pick(this.#rows.current);
      else this.#show(false);
    } else if (event.key === 'Escape') {
      event.preventDefault();
      event.stopPropagation();
      this.#show(false);
    } else if (this.#isForList(event.key) && this.#rows.takeKey(event) !== undefined) {
      event.preventDefault();
    }
  }
  // Whether a key is for the list, not the search line: Home and End are if the line is empty.
  #isForList(key: string): boolean {
    if (this.#search === undefined) return true;
    const isEnd = key === 'Home' || key === 'End';
    return /^(Arrow|Page)(Up|Down)$/.test(key) || (isEnd && this.#search.value === '');
  }
}
