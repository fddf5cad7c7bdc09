// The types that pass between the logic and the page, beside texts and numbers.
import type {PartKind} from './numbers';

/** A length: twips, plus so many times what a case row and the button grow with the letters. */
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

/** A row as it is drawn: `row` is its number in the control, `name` is drawn beside its text. */
export interface DrawnRow extends Row {
  row: number;
  name: string;
}

/** What a person did, as a request of the JSON lines that zolt20-host plays. */
export type MadeGesture = Record<string, string | number>;

/** A word of a line that has a colour. */
export interface ColoredWord {
  first: number;
  count: number;
  kind: number;
}

export interface Changes {
  focusMoved: boolean;
  gone: Address[];
  changed: Map<Address, number>;
}

/** Where the text boxes find their texts, which the module keeps. */
export interface BoxTexts {
  /** The text with one character for each line end. */
  shownText(box: Address, lineEnd: string): string;
  /** The part of the text for the shown characters from `first` on and before `behind`. */
  textBetween(box: Address, first: number, behind: number): string;
  /** Maps a place in the text to the place in the shown text. */
  shownPlace(box: Address, place: number): number;
  /** The words of a line that have a colour. */
  coloredWords(line: string): ColoredWord[];
}

/** The coloured words in the numbers that colored_words gives. */
export function wordsIn(numbers: Int32Array): ColoredWord[] {
  const words: ColoredWord[] = [];
  for (let at = 0; at < numbers.length; at += 3)
    words.push({first: numbers[at]!, count: numbers[at + 1]!, kind: numbers[at + 2]!});
  return words;
}
