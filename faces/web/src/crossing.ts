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

/** What the boxes of statements and the others ask of where their texts are kept. */
export interface BoxTexts {
  /** The text with one character for each line end. */
  shownText(box: Address, lineEnd: string): string;
  /** The part of the text that these shown characters stand for. */
  textBetween(box: Address, first: number, behind: number): string;
  /** The place in what is shown that so many characters of the text take. */
  shownPlace(box: Address, place: number): number;
  /** The words of a line that have a colour. */
  colouredWords(line: string): ColouredWord[];
}

/** The words of what coloured_words gives. */
export function wordsIn(numbers: Int32Array): ColouredWord[] {
  const words: ColouredWord[] = [];
  for (let at = 0; at < numbers.length; at += 3)
    words.push({first: numbers[at]!, count: numbers[at + 1]!, kind: numbers[at + 2]!});
  return words;
}
