// How a combo box is shown: a box or a text, and a list of entries that opens below it.
import {BackColour} from './back_colours';
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
  readonly #popup = make('div', {
    role: 'listbox',
    class: 'rows popup',
    part: 'popup',
    popover: 'manual',
  });
  readonly #rows: Rows;
  readonly #colour: BackColour;
  #opener: HTMLButtonElement | undefined;

  constructor(face: Face, control: Address) {
    const {logic} = face;
    this.#face = face;
    this.#control = control;
    const name = logic.text(control, AskText.Name);
    this.#popup.id = `${name}.list`;
    const kArrow = 'M4 6l4 4 4-4';
    const attributes = {
      role: 'combobox',
      'aria-haspopup': 'listbox',
      'aria-expanded': 'false',
      'aria-controls': this.#popup.id,
    };
    if ((logic.number(control, Ask.Style) & Style.Editable) !== 0) {
      this.#typed = lineBox(logic, control, face, false);
      this.focus = this.#typed.input;
      setAttributes(this.focus, {...attributes, 'aria-autocomplete': 'none'});
      this.#opener = make(
        'button',
        {type: 'button', class: 'open', tabindex: -1, id: `${name}.open`},
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
        {...attributes, tabindex: 0, class: 'pick'},
        this.#text,
        icon(kArrow),
      );
      this.node = make('div', {class: 'combo', part: 'combo'}, this.focus, this.#popup);
    }
    this.#rows = new Rows({
      logic,
      handle: face.handle,
      list: control,
      box: this.#popup,
      holder: this.focus,
      isPopup: true,
    });

    this.#colour = new BackColour(logic, this.node);
    // The focus stays in the box while the list is open.
    for (const node of [this.#popup, ...(this.#opener === undefined ? [] : [this.#opener])])
      node.addEventListener('mousedown', (event) => event.preventDefault());
    (this.#opener ?? this.focus).addEventListener('click', () => {
      if (!this.#isEnabled) return;
      this.focus.focus();
      this.#show(!this.#isOpen);
    });
    this.#popup.addEventListener('click', (event) => {
      const row = this.#rows.rowUnder(event);
      if (row >= 0) this.#pick(row);
    });
    this.focus.addEventListener('blur', () => this.#show(false));
    this.focus.addEventListener('keydown', (event) => this.#key(event));
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
    this.#colour.show(logic.number(this.#control, Ask.BackColor));
    if ((what & What.Rows) !== 0) this.#rows.rowsChanged();
    else this.#rows.draw();
  }
  restorePlace(): void {
    this.#colour.showAgain();
  }
  enable(enabled: boolean): void {
    if (this.#typed === undefined) {
      setAttributes(this.focus, {
        'aria-disabled': enabled ? false : 'true',
        tabindex: enabled ? 0 : false,
      });
    } else {
      this.#typed.input.disabled = !enabled;
    }
    if (this.#opener !== undefined) this.#opener.disabled = !enabled;
    if (!enabled) this.#show(false);
  }
  /** What the button beside the box is called, and the list. */
  name(name: string): void {
    this.#opener?.setAttribute('aria-label', `${name} entries`);
    this.#popup.setAttribute('aria-label', name);
  }

  #show(open: boolean): void {
    if (open === this.#isOpen) return;
    this.focus.setAttribute('aria-expanded', String(open));
    if (!open) {
      this.#popup.hidePopover();
      this.#rows.view = 0;
      this.focus.removeAttribute('aria-activedescendant');
      return;
    }
    this.#popup.showPopover();
    this.#rows.view = this.#place();
    this.#rows.rowsChanged();
    this.#rows.moveToRow(this.#face.logic.number(this.#control, Ask.ListIndex));
    this.#stayWhile(this.node.getBoundingClientRect());
  }
  // The list closes when its box moves, whatever it is that scrolls or changes around it.
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
  // Below the box, or above it where there is more room. Gives the height of the rows.
  #place(): number {
    const kMostRows = 14;
    const kEdge = 8;
    const around = this.node.getBoundingClientRect();
    const below = innerHeight - around.bottom - kEdge;
    const above = around.top - kEdge;
    const wanted = this.#rows.heightOf(Math.min(Math.max(this.#rows.count, 1), kMostRows)) + 2;
    // In a page that is enlarged by its style.
    const zoom = (this.#popup as HTMLElement & {currentCSSZoom?: number}).currentCSSZoom ?? 1;
    const isBelow = below >= wanted * zoom || below >= above;
    const height = Math.min(wanted * zoom, isBelow ? below : above) / zoom;
    Object.assign(this.#popup.style, {
      left: `${around.left / zoom}px`,
      width: `${around.width / zoom}px`,
      height: `${height}px`,
      top: `${isBelow ? around.bottom / zoom : around.top / zoom - height}px`,
    });
    return height - 2;
  }

  #pick(row: number): void {
    this.#show(false);
    this.#face.gesture(Gesture.Pick, this.#control, row);
  }

  #key(event: KeyboardEvent): void {
    const isEditable = this.#typed !== undefined;
    const isArrow = event.key === 'ArrowDown' || event.key === 'ArrowUp';
    if (
      event.isComposing ||
      event.ctrlKey ||
      event.metaKey ||
      (event.altKey && !isArrow) ||
      !this.#isEnabled
    )
      return;
    if (!this.#isOpen) {
      const isLetter = event.key.length === 1 && event.key !== ' ';
      const opens =
        isArrow || (!isEditable && (event.key === 'Enter' || event.key === ' ' || isLetter));
      if (!opens) return;
      event.preventDefault();
      this.#show(true);
      if (!isEditable && isLetter) this.#rows.takeKey(event);
      return;
    }
    const isPick =
      event.key === 'Enter' ||
      (!isEditable && event.key === ' ') ||
      (event.altKey && event.key === 'ArrowUp');
    if (isPick) {
      event.preventDefault();
      if (this.#rows.current >= 0) this.#pick(this.#rows.current);
      else this.#show(false);
    } else if (event.key === 'Escape') {
      event.preventDefault();
      event.stopPropagation();
      this.#show(false);
    } else if (isEditable && !isArrow && !event.key.startsWith('Page')) {
      if (event.key !== 'Shift') this.#show(false); // the key is for the text
    } else if (this.#rows.takeKey(event) !== undefined) {
      event.preventDefault();
    }
  }
}
