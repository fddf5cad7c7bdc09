// The form as HTML: a view for each control of the surface, under the control's name.
//
// Changes of the form are fetched and shown when the call in progress is over, or before the host
// hears of an event in that call. What a person does becomes a gesture.
import {placeInCaseRows, placeOfRow, sizeCaseRows} from './case_rows';
import {ComboView} from './combo';
import {make} from './dom';
import {Filters} from './filters';
import {Gate, Use} from './gate';
import {layOut, layOutForm} from './layout';
import {errorOf} from './errors';
import type {Address, Logic, Part} from './logic';
import {Ask, AskText, Gesture, Kind, Status, What} from './numbers';
import {MessageBox} from './message_box';
import {Pages} from './pages';
import {TypedBox, type TypedInto} from './text_boxes';
import {OwnTexts} from './texts';
import {Told} from './told';
import {drawLists, ListView, type View, viewOf} from './views';

/** The callbacks by which the face tells the element of errors, gestures and undo. */
export interface FaceOwner {
  failed(error: Error): unknown;
  historyChanged(): unknown;
  gestureMade(): unknown;
  undone(): unknown;
  redone(): unknown;
}

export class Face implements TypedInto {
  readonly logic: Logic;
  readonly handle: number;
  /**
   * Focus sentinels before the first control and behind the last: the Tab key enters and leaves by
   * them. The focus never stays on them, and screen readers skip them.
   */
  readonly edges: readonly [HTMLElement, HTMLElement] = [
    make('span', {class: 'edge', tabindex: 0, 'aria-hidden': 'true'}),
    make('span', {class: 'edge', tabindex: 0, 'aria-hidden': 'true'}),
  ];
  readonly node: HTMLElement;
  readonly #told = new Told();
  readonly messages: MessageBox;
  readonly filters = new Filters(this);
  readonly gate = new Gate();
  readonly texts: OwnTexts;

  readonly #owner: FaceOwner;
  readonly #root: ShadowRoot;
  readonly #views = new Map<Address, View>();
  readonly #addresses = new Map<string, Address>();
  readonly #controls = new WeakMap<Element, Address>(); // by the node that takes the focus
  #isShowing = false; // events of nodes come from the face's own changes, not from a person
  readonly #pages: Pages;
  #isLate = false; // re-entrancy: show() was called while #isShowing, and is due afterwards
  #turns = 0;
  #typingIn: Address = 0; // the box of the last gesture if that was typing, else 0
  #focusing: FocusOptions = {}; // the options of a focus() call by the host
  #isMeant = false; // a focus event comes from a press or the Tab key, and stays where it is
  #left: HTMLElement | undefined; // the node that had the focus last

  constructor(logic: Logic, handle: number, root: ShadowRoot, owner: FaceOwner) {
    this.logic = logic;
    this.handle = handle;
    this.#root = root;
    this.#owner = owner;
    this.texts = new OwnTexts(logic, handle);
    const layout = logic.layout();
    this.#pages = new Pages(layout);
    for (const control of logic.controls(handle))
      this.#addresses.set(logic.text(control, AskText.Name), control);
    this.node = layOutForm(this, layout, this.#pages);
    this.messages = new MessageBox(this.texts, (close, hadFocus) => {
      this.#quietly(close);
      if (hadFocus) this.#showFocus(true);
    });
    new ResizeObserver(([entry]) => {
      if (entry!.contentRect.width > 0) this.messages.showWaiting();
      else this.leavesSight();
    }).observe(this.node);
    // role="application": the form handles its own keys, so screen readers pass keys on to it.
    root.append(
      make(
        'div',
        {role: 'application', class: 'whole'},
        this.node,
        this.messages.node,
        this.#told.node,
      ),
    );
    for (const control of [...this.#views.keys()]) this.#show(control, What.Everything);
    this.texts.keep(() => this.#showNames());
    this.#listen();
  }

  #listen(): void {
    this.node.addEventListener('focusin', (event) => this.#focusIn(event));
    this.node.addEventListener('focusout', ({target}) => (this.#left = target as HTMLElement));
    // Marks the focus event that follows as one that comes from a press. With touch, the focus does
    // not follow the pointer event, but the later mouse event that the browser makes of the touch.
    for (const kind of ['pointerdown', 'mousedown']) {
      this.node.addEventListener(
        kind,
        () => {
          this.#isMeant = true;
          setTimeout(() => (this.#isMeant = false));
        },
        true,
      );
    }
    this.node.addEventListener('keydown', (event) => this.#key(event));
    // Screen readers do not read the change that the browser's own undo makes in a box.
    this.node.addEventListener('input', (event) => {
      const {inputType} = event as InputEvent;
      if (inputType === 'historyUndo') this.#told.say(this.texts.of('undone'));
      if (inputType === 'historyRedo') this.#told.say(this.texts.of('redone'));
    });
    // A press between the controls does not move the focus.
    this.node.addEventListener('mousedown', (event) => {
      const target = (event.target as Element).closest(
        'button, input, textarea, label, .popup, [tabindex]',
      );
      if (target !== this.node) return;
      this.#closePopups();
      if (this.#root.activeElement !== null) event.preventDefault();
    });
  }

  // Views.

  #makeView(control: Address): View {
    const view = viewOf(this, control);
    const name = this.logic.text(control, AskText.Name);
    view.node.dataset['control'] = name;
    const focus = this.logic.number(control, Ask.Kind) === Kind.TabStrip ? view.node : view.focus;
    focus.id = name;
    focus.setAttribute(
      'part',
      `${focus.getAttribute('part') ?? ''} ${name.replace(/\(\d+\)/, '')}`.trim(),
    );
    if (name === 'fraSelect') view.node.setAttribute('role', 'radiogroup');
    if (name === 'fracase') sizeCaseRows(this.logic, view.node, (row) => this.addressOf(row));
    this.#views.set(control, view);
    this.#addresses.set(name, control);
    if (this.logic.is(control, Ask.TakesFocus)) this.#controls.set(focus, control);
    return view;
  }
  // The view of a control that the form is laid out with, made when it is asked for first.
  #viewOf(name: string): View {
    const control = this.addressOf(name);
    return this.#views.get(control) ?? this.#makeView(control);
  }
  addressOf(name: string): Address {
    return this.#addresses.get(name)!;
  }
  nodeOf(name: string): HTMLElement {
    return this.#viewOf(name).node;
  }
  listOf(name: string): ListView {
    return this.#viewOf(name) as ListView;
  }

  // Showing.

  /** Shows all changes since the last call. */
  show(): void {
    this.#isLate = this.#isShowing;
    if (this.#isShowing) return;
    this.#quietly(() => {
      const hadFocus = this.#root.activeElement !== null;
      const {focusMoved, gone, changed} = this.logic.changes(this.handle);
      for (const control of gone) this.#forget(control);
      for (const [control, what] of changed) this.#show(control, what);
      if (hadFocus) this.#showFocus(focusMoved);
    });
    this.#showHistory();
  }
  // Runs `act` so that events which its changes to nodes cause are not taken for gestures.
  #quietly(act: () => void): void {
    const wasShowing = this.#isShowing;
    this.#isShowing = true;
    try {
      act();
    } finally {
      this.#isShowing = wasShowing;
    }
    // Re-entrancy: a listener of the page, such as one for the focus that was moved here, made the
    // control change.
    const kMostTurns = 8;
    if (wasShowing || !this.#isLate || this.#turns > kMostTurns) return;
    ++this.#turns;
    try {
      this.show();
    } finally {
      --this.#turns;
    }
  }
  #forget(control: Address): void {
    const view = this.#views.get(control);
    if (view === undefined) return;
    view.node.remove();
    this.#views.delete(control);
    this.#addresses.delete(view.focus.id);
  }
  #show(control: Address, what: number): void {
    const {logic} = this;
    let view = this.#views.get(control);
    if (view === undefined) {
      if (!this.#pages.isMade(logic.text(control, AskText.Name))) return; // shown with its page
      view = this.#makeView(control);
      // The nodes stand in the order of the rows, in which screen readers read them.
      const frame = this.nodeOf('fracase');
      const place = placeOfRow(view.node);
      frame.insertBefore(
        view.node,
        [...frame.children].find((other) => placeOfRow(other) > place) ?? null,
      );
    }
    view.show(what);
    view.enable?.(logic.is(control, Ask.Enabled));
    view.node.hidden = !logic.is(control, Ask.Visible);
    this.filters.show(view.focus.id, logic.is(control, Ask.Enabled));
    placeInCaseRows(logic, this.handle, control, view);
    this.gate.mark(view.focus, logic.number(control, Ask.Kind));
    this.#showName(control, view);
  }
  #showNames(): void {
    for (const [control, view] of this.#views) this.#showName(control, view);
  }
  #showName(control: Address, view: View): void {
    const name = this.logic.spokenName(this.handle, control);
    const kind = this.logic.number(control, Ask.Kind);
    if (kind === Kind.Label) return; // a label's accessible name is its text
    const named = kind === Kind.TabStrip ? view.node : view.focus;
    if (named.getAttribute('aria-label') === name) return;
    named.setAttribute('aria-label', name);
    if (view instanceof ComboView) view.name(name);
  }
  /** Shows this page alone. */
  showPage(active: number): void {
    const before = new Set(this.#views.keys());
    const make = (parts: readonly Part[]) => layOut(this, parts, this.#pages);
    if (!this.#pages.show(active, make)) return;
    for (const control of this.logic.controls(this.handle))
      if (!before.has(control)) this.#show(control, What.Everything);
    drawLists(this.#views.values());
  }
  #showHistory(): void {
    const {canUndo, canRedo} = this.logic.history(this.handle);
    const tools = [
      ['undo', canUndo],
      ['redo', canRedo],
    ] as const;
    let isNew = false;
    for (const [id, can] of tools) {
      const tool = this.#root.getElementById(id) as HTMLButtonElement;
      isNew ||= tool.disabled === can;
      tool.disabled = !can;
      tool.part.toggle('disabled', !can);
    }
    if (isNew) this.#owner.historyChanged();
  }
  /** Restores scrolling after the element moved in its page; the browser's undo is lost. */
  restorePlaces(): void {
    this.#typingIn = 0;
    for (const view of this.#views.values()) view.restorePlace?.();
  }

  // What a person does.

  /** What a person may do from now on. */
  takeUse(use: Use): void {
    this.gate.use = use;
    this.#closePopups();
    this.node.inert = use === Use.None;
    for (const [control, view] of this.#views)
      this.gate.mark(view.focus, this.logic.number(control, Ask.Kind));
    for (const tool of this.#root.querySelectorAll<HTMLElement>('.tool'))
      this.gate.mark(tool, Kind.Button);
  }
  // Whether a gesture is refused; its node, which may show the gesture already, is drawn again.
  #stops(gesture: Gesture, control: Address): boolean {
    if (this.#isShowing) return true;
    if (this.gate.lets(gesture)) return false;
    this.showAnew(control);
    return true;
  }
  /** Draws all of a control again, whatever its node shows. */
  showAnew(control: Address): void {
    this.#quietly(() => this.#show(control, What.Everything));
  }
  gesture(kind: Gesture, control: Address, number = -1): void {
    if (this.#stops(kind, control)) return;
    this.#typingIn = 0;
    this.#end(this.logic.gesture(this.handle, kind, control, number));
  }
  typed(box: Address, shown: string, caret: number, lineEnd: string): void {
    if (!this.#views.has(box) || this.#stops(Gesture.Type, box)) return;
    this.#typingIn = box;
    this.#end(this.logic.type(this.handle, box, shown, caret, lineEnd));
  }
  isTypingIn(box: Address): boolean {
    return this.#typingIn === box;
  }
  keyed(box: Address, first: number, behind: number, code: number): void {
    if (!this.#views.has(box) || this.#stops(Gesture.Key, box)) return;
    const before = this.logic.text(box, AskText.Text);
    this.#end(this.logic.typeKey(this.handle, box, first, behind, code));
    // A key that the control refused changes nothing, and the browser's undo stays usable.
    if (this.#views.has(box) && this.logic.text(box, AskText.Text) !== before) this.#typingIn = 0;
  }
  #end(status: Status): void {
    const error = errorOf(this.logic, this.handle, status);
    this.show();
    this.#tell();
    if (status !== Status.NotTaken) this.#owner.gestureMade();
    if (error !== undefined) this.#owner.failed(error);
  }

  #tell(): void {
    const words = this.logic.words(this.handle);
    if (words !== '') this.#told.say(words);
  }

  undo(): void {
    if (!this.gate.lets() || this.logic.undo(this.handle) !== Status.Done) return;
    this.show();
    this.#tell();
    this.#owner.undone();
  }
  redo(): void {
    if (!this.gate.lets() || this.logic.redo(this.handle) !== Status.Done) return;
    this.show();
    this.#tell();
    this.#owner.redone();
  }

  // Focus and keys.

  #controlOf(node: Element | null): Address {
    for (let at = node; at !== null; at = at.parentElement) {
      const control = this.#controls.get(at);
      if (control !== undefined) return control;
    }
    return 0;
  }

  /** Moves the page's focus to the control that has the focus of the form, or away from all. */
  #showFocus(moved: boolean): void {
    const now = this.#root.activeElement;
    // A filter is no control of the form, and keeps the focus.
    if (
      !moved &&
      now !== null &&
      now !== this.node &&
      this.#controlOf(now) === 0 &&
      !this.messages.node.contains(now)
    )
      return;
    const focused = this.logic.focused(this.handle);
    const wanted = focused === 0 ? this.node : this.#views.get(focused)!.focus;
    if (now === wanted) return;
    this.#quietly(() => wanted.focus(this.#focusing));
    this.#bringToFront(wanted);
  }
  /** Moves the page's focus to the control that has the focus of the form, or to the first one. */
  takeFocus(options: FocusOptions = {}): void {
    if (this.gate.use === Use.None) return;
    this.#focusing = options;
    if (this.logic.focused(this.handle) !== 0) this.#showFocus(true);
    else this.#enter(true);
    this.#focusing = {};
  }
  #enter(isForward: boolean): void {
    const first = this.logic.nextInTabOrder(this.handle, 0, isForward);
    if (first === 0) return;
    this.#isMeant = true;
    this.#views.get(first)!.focus.focus(this.#focusing);
    this.#isMeant = false;
  }

  #focusIn(event: FocusEvent): void {
    const target = event.target as HTMLElement;
    const isFromOutside = !(
      event.relatedTarget instanceof Node && this.node.contains(event.relatedTarget)
    );
    const edge = this.edges.indexOf(target);
    if (edge >= 0) {
      // Focus that comes from inside is on its way out of the element.
      if (isFromOutside) this.#enter(edge === 0);
      return;
    }
    this.#bringToFront(target);
    if (this.#isShowing) return;
    if (target === this.node) {
      // A press on a disabled button: the focus goes back to where it was.
      const before = event.relatedTarget;
      if (before instanceof HTMLElement && this.node.contains(before))
        this.#quietly(() => before.focus());
      else if (this.#isMeant) this.#showFocus(true);
      else this.takeFocus(); // in a dialog that opens
      return;
    }
    if (isFromOutside && target === this.#left && !this.#isMeant) {
      // The browser gives the focus back, for instance as a dialog closes, to a node that had it
      // before; the form may have moved its focus since.
      this.#showFocus(false);
      return;
    }
    const control = this.#controlOf(target);
    if (control === 0) return;
    if (control !== this.logic.focused(this.handle)) this.gesture(Gesture.Focus, control);
    const view = this.#views.get(control);
    if (!(view instanceof ListView)) return;
    // When the Tab key enters a list without a current row, its first row becomes the current one.
    if (!this.#isMeant && view.rows.current < 0) view.rows.moveTo(0);
    // Screen readers say nothing of a list without rows, so the live region tells its name.
    if (view.rows.count === 0) {
      const list = this.logic.spokenName(this.handle, control);
      this.#told.say(this.texts.of('listOf', {list}));
    }
  }
  // The two frames of the where condition are stacked, and both are visible at first.
  #bringToFront(target: Element): void {
    const inFront = target.closest('.stack > .frame');
    if (inFront === null) return;
    for (const frame of inFront.parentElement!.children)
      frame.classList.toggle('front', frame === inFront);
  }

  #key(event: KeyboardEvent): void {
    if (event.defaultPrevented || event.isComposing) return;
    // WebKit gives Shift+Tab no key name, hence `code`. Option+Tab of macOS counts as Tab.
    if ([event.key, event.code].includes('Tab') && !event.ctrlKey && !event.metaKey) {
      this.#tab(event);
      return;
    }
    const isCommand = (event.ctrlKey || event.metaKey) && !event.altKey;
    if (!isCommand) return;
    const key = event.key.toLowerCase();
    const isUndo = key === 'z' && !event.shiftKey;
    const isRedo = key === 'y' || (key === 'z' && event.shiftKey);
    if (key === 'f' && !event.shiftKey) this.#focusFilter(event);
    else if (isUndo || isRedo) this.#takeBack(event, isUndo);
  }
  // Moves the focus along the tab order of the form, and out of the element at its ends.
  #tab(event: KeyboardEvent): void {
    const isForward = !event.shiftKey;
    const now = event.target as HTMLElement;
    const filtered = this.filters.listFilteredBy(now);
    const list = filtered === undefined ? 0 : this.#addresses.get(filtered)!;
    const from = list !== 0 ? list : this.logic.focused(this.handle);
    // Tab goes from a filter to its list.
    const next =
      list !== 0 && isForward ? list : this.logic.nextInTabOrder(this.handle, from, isForward);
    if (next !== 0) {
      event.preventDefault();
      const {focus} = this.#views.get(next)!;
      focus.focus();
      if (focus instanceof HTMLInputElement && focus.type === 'text') focus.select();
      return;
    }
    // From the edge, the browser's own Tab goes on to what is behind the element, or before it.
    const edge = this.edges[isForward ? 1 : 0];
    edge.focus();
    // If the page took the Tab key for itself, the focus goes back to the form.
    setTimeout(() => {
      if (!event.defaultPrevented || this.#root.activeElement !== edge) return;
      this.#showFocus(true);
    });
  }
  #focusFilter(event: KeyboardEvent): void {
    const focused = this.logic.focused(this.handle);
    const list = focused === 0 ? undefined : this.#views.get(focused)!.focus.id;
    if (this.filters.focus(list)) event.preventDefault();
  }
  // Undo and redo by keys. The browser's undo in a box comes first, as long as it has a step.
  #takeBack(event: KeyboardEvent, isUndo: boolean): void {
    const target = event.target as HTMLElement;
    if (target.matches('.filter, .search')) return; // the browser's own undo
    const box = TypedBox.of(target);
    if (box !== undefined && (isUndo ? box.hasOwnUndo : box.hasOwnRedo)) return;
    if (!this.logic.history(this.handle).isOn) return;
    event.preventDefault();
    if (isUndo && box?.tryOwnUndo()) return;
    if (isUndo) this.undo();
    else this.redo();
  }

  /** Closes popups and messages: the element leaves its page, or is hidden in it. */
  leavesSight(): void {
    this.#closePopups();
    this.#quietly(() => this.messages.suspend());
  }
  #closePopups(): void {
    for (const view of this.#views.values()) {
      if (view instanceof ComboView) view.close();
    }
  }
}
