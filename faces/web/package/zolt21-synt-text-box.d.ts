// The types of the box of statements as an element of its own.

export interface ZOLT21SyntTextBoxEventMap extends HTMLElementEventMap {
  /** The box took the focus. */
  TabChain: Event;
  /** The value of a property changed, by the page or by the person. */
  propertychanged: CustomEvent<{readonly name: 'Text' | 'Highlight' | 'rightmargin'}>;
}

/**
 * A box of several lines that can colour the statement language, as the five large boxes of the map control are. It needs no map
 * control. A value of another type throws a TypeError and does nothing; null and undefined are not written.
 */
export declare class ZOLT21SyntTextBoxElement extends HTMLElement {
  /** The whole text, read back exactly as it was written; lines that a person makes end in CR LF. */
  get Text(): string;
  set Text(value: string | null | undefined);
  /** Whether words have colours, false at first; no effect on the text. */
  get Highlight(): boolean;
  set Highlight(value: boolean | null | undefined);
  /** The margin at which lines wrap, in twips; 0, the default, for the width of the box, and 32000 or more for no wrap. Throws a RangeError below 0. */
  get rightmargin(): number;
  set rightmargin(value: number | null | undefined);

  /** The form that the element belongs to, which sends the text. */
  get form(): HTMLFormElement | null;
  /** The labels of the element. */
  get labels(): NodeList;
  /** The name under which the form sends the text. */
  get name(): string;
  set name(value: string);
  /** Whether the box is disabled, so that the person can do nothing with it. */
  get disabled(): boolean;
  set disabled(value: boolean);
  /** Whether elements of the class are controls of forms (form-associated): true. */
  static readonly formAssociated: boolean;
  /** The attributes that the element reads. */
  static readonly observedAttributes: string[];
  /** The version of the script that has defined the element. */
  static readonly version: string;

  addEventListener<K extends keyof ZOLT21SyntTextBoxEventMap>(
    type: K,
    listener: (this: ZOLT21SyntTextBoxElement, event: ZOLT21SyntTextBoxEventMap[K]) => unknown,
    options?: boolean | AddEventListenerOptions,
  ): void;
  addEventListener(
    type: string,
    listener: EventListenerOrEventListenerObject,
    options?: boolean | AddEventListenerOptions,
  ): void;
}

/** The attributes of the box in HTML, as a template writes them. */
export interface ZOLT21SyntTextBoxAttributes {
  /** Writes `Text`. */
  text?: string | null | undefined;
  /** Writes `Highlight`. */
  highlight?: boolean | '' | null | undefined;
  /** Writes `rightmargin`. */
  rightmargin?: number | `${number}` | null | undefined;
  /** The box's name in its form. */
  name?: string | null | undefined;
  /** The id of its form. */
  form?: string | null | undefined;
  disabled?: boolean | '' | null | undefined;
}
/** The properties of the box, as a template writes them. */
export interface ZOLT21SyntTextBoxProperties {
  /** Writes `Text`. */
  Text?: string | null | undefined;
  /** Writes `Highlight`. */
  Highlight?: boolean | null | undefined;
}
/** The events of the box with their types, without the events that every element has. */
export type ZOLT21SyntTextBoxEvents = Omit<ZOLT21SyntTextBoxEventMap, keyof HTMLElementEventMap>;
/** All that a template can give the box, with its events as `onTabChain` and `onpropertychanged`. */
export type ZOLT21SyntTextBoxProps = ZOLT21SyntTextBoxAttributes &
  ZOLT21SyntTextBoxProperties & {
    [Name in keyof ZOLT21SyntTextBoxEvents as `on${Name}`]?:
      | ((event: ZOLT21SyntTextBoxEvents[Name]) => void)
      | null
      | undefined;
  };

declare global {
  interface HTMLElementTagNameMap {
    'zolt21-synt-text-box': ZOLT21SyntTextBoxElement;
  }
}
