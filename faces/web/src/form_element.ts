// The element as a form-associated custom element: its value is the Result, as its box shows it.
// The members here have the meaning that they have for every control of an HTML form.
import {Use} from './gate';
import {isNothing} from './values';

// Without a page there is no HTMLElement; a program on a server can still import the class.
const Base = globalThis.HTMLElement ?? (class {} as typeof HTMLElement);

/** The state that a browser restores when it goes back or forward to the page. */
export interface FormState {
  result: string;
  tab: number;
}

/** What a form element needs from the element that it belongs to. */
export interface FormOwner {
  /** The text of the Result, without what a read of prpStroutput does to it. */
  readonly result: string;
  readonly tab: number;
  /** The box at which the browser shows a validation message. */
  readonly box: HTMLElement;
  /** The validation message for a Result that is required and empty. */
  readonly missing: string;
  takeUse(use: Use): void;
  takeState(state: FormState): void;
  reset(): void;
}

/** How the element tells its form of changes. */
export interface FormPart {
  /** Gives the form the Result as it is now. */
  keep(): void;
  /** Like keep, after a call of the host or a gesture, which fires events; typing goes on. */
  look(by: 'host' | 'person' | 'typing'): void;
  /** Sets the validation message again: its text changed. */
  validate(): void;
}

let formPartOf: (element: FormElement, owner: FormOwner) => FormPart;

/** Makes the element a control of its form. */
export function joinForm(element: FormElement, owner: FormOwner): FormPart {
  return formPartOf(element, owner);
}

export class FormElement extends Base {
  static readonly formAssociated = true;
  static get observedAttributes(): string[] {
    return ['readonly', 'required'];
  }

  readonly #internals: ElementInternals = this.attachInternals();
  #owner: FormOwner | undefined;
  #kept: FormState | undefined;
  #told = ''; // the Result at the last look, by which `input` fires only for another one
  #isDisabled = false;
  #isTyped = false; // the Result changed, and no `change` event has told of it
  #custom = '';

  static {
    formPartOf = (element, owner) => {
      element.#owner = owner;
      element.#listen();
      element.#keep();
      return {
        keep: () => element.#keep(),
        look: (by) => element.#look(by),
        validate: () => element.#validate(),
      };
    };
  }

  #listen(): void {
    const root = this.shadowRoot!;
    // Events of the boxes inside do not leave the element, which fires its own.
    for (const kind of ['input', 'change'])
      root.addEventListener(kind, (event) => event.stopPropagation());
    root.addEventListener('focusin', () => this.#takeName());
    this.addEventListener('focusout', () => this.#tellChange());
    // A click on a label moves the focus into the element. Such a click has the element itself as
    // its target; a click inside the element has a node of its shadow tree.
    this.addEventListener('click', (event) => {
      if (event.composedPath()[0] === this && this.labels.length > 0) this.focus();
    });
  }
  // Makes the accessible name of the element from its labels.
  #takeName(): void {
    const words = [...this.labels].map((label) => label.textContent!.trim()).join(' ');
    this.#internals.role = words === '' ? null : 'group';
    this.#internals.ariaLabel = words === '' ? null : words;
  }

  // The value.

  #look(by: 'host' | 'person' | 'typing'): void {
    this.#keep();
    const {result} = this.#kept!;
    const isNew = result !== this.#told;
    this.#told = result;
    if (isNew && by !== 'host') {
      this.#isTyped = true;
      this.dispatchEvent(new Event('input', {bubbles: true, composed: true}));
    }
    if (by === 'person') this.#tellChange();
  }
  #tellChange(): void {
    if (!this.#isTyped) return;
    this.#isTyped = false;
    this.dispatchEvent(new Event('change', {bubbles: true}));
  }
  #keep(): void {
    const {result, tab} = this.#owner!;
    if (result === this.#kept?.result && tab === this.#kept.tab) return;
    this.#kept = {result, tab};
    this.#internals.setFormValue(result, JSON.stringify(this.#kept));
    this.#validate();
  }
  #validate(): void {
    const owner = this.#owner;
    if (owner === undefined) return;
    const valueMissing = this.required && this.#kept?.result === '';
    const customError = this.#custom !== '';
    const words = customError ? this.#custom : valueMissing ? owner.missing : '';
    this.#internals.setValidity({valueMissing, customError}, words, owner.box);
  }

  // What a browser calls.

  attributeChangedCallback(name: string, _before: string | null, _text: string | null): void {
    if (name === 'readonly') this.#takeUse();
    if (name === 'required') this.#validate();
  }
  connectedCallback(): void {
    this.#takeName();
  }
  formAssociatedCallback(): void {
    this.#takeName();
  }
  formDisabledCallback(isDisabled: boolean): void {
    this.#isDisabled = isDisabled;
    this.#internals.ariaDisabled = isDisabled ? 'true' : null;
    this.#takeUse();
  }
  #takeUse(): void {
    const use = this.#isDisabled ? Use.None : this.readOnly ? Use.Reading : Use.Full;
    this.#internals.ariaReadOnly = use === Use.Reading ? 'true' : null;
    this.#owner?.takeUse(use);
  }
  formResetCallback(): void {
    this.#isTyped = false;
    this.#owner?.reset();
  }
  formStateRestoreCallback(state: unknown, why: string): void {
    if (typeof state !== 'string' || this.#owner === undefined) return;
    // Autofill gives the value, not the state.
    const {tab} = this.#owner;
    this.#owner.takeState(
      why === 'autocomplete' ? {result: state, tab} : (JSON.parse(state) as FormState),
    );
  }

  // What every control of a form has.

  get form(): HTMLFormElement | null {
    return this.#internals.form;
  }
  get labels(): NodeListOf<HTMLLabelElement> {
    return this.#internals.labels as NodeListOf<HTMLLabelElement>;
  }
  get type(): string {
    return this.localName;
  }
  get value(): string {
    return this.#owner!.result;
  }
  get name(): string {
    return this.getAttribute('name') ?? '';
  }
  set name(name: string | null | undefined) {
    if (!isNothing(name)) this.setAttribute('name', name);
  }
  get disabled(): boolean {
    return this.hasAttribute('disabled');
  }
  set disabled(isSet: boolean | null | undefined) {
    this.toggleAttribute('disabled', Boolean(isSet));
  }
  get readOnly(): boolean {
    return this.hasAttribute('readonly');
  }
  set readOnly(isSet: boolean | null | undefined) {
    this.toggleAttribute('readonly', Boolean(isSet));
  }
  get required(): boolean {
    return this.hasAttribute('required');
  }
  set required(isSet: boolean | null | undefined) {
    this.toggleAttribute('required', Boolean(isSet));
  }
  get validity(): ValidityState {
    return this.#internals.validity;
  }
  get validationMessage(): string {
    return this.#internals.validationMessage;
  }
  get willValidate(): boolean {
    return this.#internals.willValidate;
  }
  checkValidity(): boolean {
    return this.#internals.checkValidity();
  }
  reportValidity(): boolean {
    return this.#internals.reportValidity();
  }
  setCustomValidity(words: string): void {
    this.#custom = String(words);
    this.#validate();
  }
}
