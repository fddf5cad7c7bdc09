// What crosses between the logic and the page, beside texts and numbers.
import type {PartKind} from './numbers';

/** A height that grows with the letters, so many times as a case row and as the button there do. */
export interface Stretch {
  twips: number;
  rows: number;
  buttons: number;
}

/** A part of the layout: its kind, its name or that of its control, its weight, its parts. */
export type Part = [PartKind, string, number, Part[]];

/** The address of a control; 0 is none. */
export type Address = number;

/** A row of a list: its text, and whether it is marked. */
export interface Row {
  text: string;
  marked: boolean;
}

/** A row as it is drawn: that of the control, its text with its name, and whether it is marked. */
export interface DrawnRow extends Row {
  row: number;
  name: string;
}

/** What a person did, as a request of the JSON lines that zolt20-host plays. */
export type MadeGesture = Record<string, string | number>;

/** A word of a line that has a colour. */
export interface ColouredWord {
  first: number;
  count: number;
  kind: number;
}

export interface Changes {
  focusMoved: boolean;
  gone: Address[];
  changed: Map<Address, number>;
}
