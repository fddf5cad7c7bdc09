// <zolt21-synt-text-box>: a box of statements for any page, like the five large boxes of the map
// control. It needs neither the map control nor its logic.
import type * as Types from '../package/zolt21-synt-text-box';
import type {Address} from './crossing';
import {What} from './numbers';
import {Boxes} from './one_box';
import {boxStyleSheets} from './style';
import {LinesBox} from './text_boxes';
import {isNothing} from './values';

const kTag = 'zolt21-synt-text-box';
const kTwipsPerPixel = 15;
// In twips: from this margin on lines do not wrap, since nobody types a line as wide.
const kNoMargin = 32_000;
const kMembers = ['Text', 'Highlight', 'rightmargin'] as const;

// Without a page there is no HTMLElement; a program on a server can still import the class.
const Base = globalThis.HTMLElement ?? (class {} as typeof HTMLElement);

let boxes: Boxes;

class SyntTextBoxElement extends Base {
  static readonly formAssociated = true;
  static readonly observedAttributes = ['text', 'highlight', 'rightmargin', 'aria-label'];
  /** The version of the script that has defined the element. */
  static readonly version: string = ZOLT20_VERSION;

  readonly #box: Address;
  readonly #lines: LinesBox;
  readonly #internals: ElementInternals;
  #highlight = false;
  #rightmargin = 0;
  #isTyping = false;

  constructor() {
    super();
    const early = this.#takeEarlyProperties();
    this.#internals = this.attachInternals();
    const root = this.attachShadow({mode: 'open', delegatesFocus: true});
    this.#dress(root);
    this.#box = boxes.make(this);
    this.#lines = new LinesBox(boxes, this.#box, {
      typed: (box, shown, caret, lineEnd) => {
        boxes.type(box, shown, caret, lineEnd);
        this.#isTyping = true;
        this.#changed('Text');
      },
      keyed() {},
      isTypingIn: () => this.#isTyping,
    });
    root.append(this.#lines.node);
    this.#lines.wrapAt(0);
    this.#listen();
    for (const [name, value] of early) (this as Record<string, unknown>)[name] = value;
  }

  // Properties that were written before the element was upgraded; they would hide its accessors.
  #takeEarlyProperties(): [string, unknown][] {
    return kMembers
      .filter((name) => Object.hasOwn(this, name))
      .map((name) => {
        const value = this[name];
        delete (this as Record<string, unknown>)[name];
        return [name, value];
      });
  }
  #listen(): void {
    const {input} = this.#lines.typed;
    input.addEventListener('focus', () => {
      this.#name();
      this.dispatchEvent(new Event('TabChain', {bubbles: true, composed: true}));
    });
    // A change event does not leave the shadow tree, so the element fires its own for its form.
    input.addEventListener('change', () =>
      this.dispatchEvent(new Event('change', {bubbles: true})),
    );
  }
  // A style sheet belongs to a document with a window; the document of a template has no window.
  #dress(root: ShadowRoot): void {
    if (this.ownerDocument.defaultView !== null && root.adoptedStyleSheets.length === 0)
      root.adoptedStyleSheets = boxStyleSheets(this.ownerDocument, () => boxes.looks());
  }
  // The accessible name: aria-label, or else the texts of the labels.
  #name(): void {
    const labels = [...this.#internals.labels].map((label) => label.textContent?.trim() ?? '');
    const name = this.getAttribute('aria-label') ?? labels.join(' ');
    this.#lines.typed.input.setAttribute('aria-label', name === '' ? 'Statement' : name);
  }

  connectedCallback(): void {
    this.#dress(this.shadowRoot!);
    this.#name();
    this.#lines.restorePlace();
  }
  adoptedCallback(): void {
    this.shadowRoot!.adoptedStyleSheets = [];
    this.#dress(this.shadowRoot!);
  }
  attributeChangedCallback(name: string, before: string | null, text: string | null): void {
    if (text === before) return;
    if (name === 'aria-label') this.#name();
    else if (name === 'highlight') this.Highlight = text !== null;
    else if (text === null) return;
    else if (name === 'text') this.Text = text;
    else this.#takeMargin(text);
  }
  #takeMargin(text: string): void {
    try {
      this.rightmargin = text.trim() === '' ? NaN : Number(text);
    } catch (error) {
      console.error(error); // whoever writes an attribute can't catch an exception
    }
  }
  formDisabledCallback(isDisabled: boolean): void {
    this.#lines.typed.enable(!isDisabled);
  }
  formResetCallback(): void {
    this.Text = this.getAttribute('text') ?? '';
  }
  formStateRestoreCallback(state: string): void {
    this.Text = state;
  }

  get Text(): string {
    return boxes.text(this.#box);
  }
  set Text(text: string | null | undefined) {
    if (isNothing(text)) return;
    if (typeof text !== 'string') throw new TypeError('Text takes a string');
    if (text === this.Text) return;
    boxes.setText(this.#box, text);
    this.#isTyping = false;
    this.#show(What.Text);
    this.#changed('Text');
  }
  get Highlight(): boolean {
    return this.#highlight;
  }
  set Highlight(highlight: boolean | null | undefined) {
    if (isNothing(highlight)) return;
    if (typeof highlight !== 'boolean') throw new TypeError('Highlight takes true or false');
    if (highlight === this.#highlight) return;
    this.#highlight = highlight;
    this.#show(What.Highlight);
    this.#changed('Highlight');
  }
  get rightmargin(): number {
    return this.#rightmargin;
  }
  set rightmargin(twips: number | null | undefined) {
    if (isNothing(twips)) return;
    if (typeof twips !== 'number' || !Number.isInteger(twips))
      throw new TypeError('rightmargin takes a whole number');
    if (twips < 0) throw new RangeError('rightmargin takes nothing below 0');
    if (twips === this.#rightmargin) return;
    this.#rightmargin = twips;
    this.#lines.wrapAt(twips < kNoMargin ? twips / kTwipsPerPixel : undefined);
    this.#changed('rightmargin');
  }

  get form(): HTMLFormElement | null {
    return this.#internals.form;
  }
  get labels(): NodeList {
    return this.#internals.labels;
  }
  get name(): string {
    return this.getAttribute('name') ?? '';
  }
  set name(name: string) {
    this.setAttribute('name', name);
  }
  get disabled(): boolean {
    return this.hasAttribute('disabled');
  }
  set disabled(isDisabled: boolean) {
    this.toggleAttribute('disabled', Boolean(isDisabled));
  }

  #show(what: number): void {
    this.#lines.show(what, this.#highlight);
  }
  #changed(name: (typeof kMembers)[number]): void {
    if (name === 'Text') this.#internals.setFormValue(this.Text);
    this.dispatchEvent(
      new CustomEvent('propertychanged', {detail: {name}, bubbles: true, composed: true}),
    );
  }
}

/** The class that the first copy of the script in this page has defined. */
function classOfPage(): typeof SyntTextBoxElement {
  if (globalThis.customElements === undefined) return SyntTextBoxElement; // such as on a server
  const before = customElements.get(kTag) as typeof SyntTextBoxElement | undefined;
  if (before !== undefined) return before;
  boxes = new Boxes();
  customElements.define(kTag, SyntTextBoxElement);
  return SyntTextBoxElement;
}
export const ZOLT21SyntTextBoxElement: typeof Types.ZOLT21SyntTextBoxElement = classOfPage();
