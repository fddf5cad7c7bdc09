// Where the boxes of the case rows stand, which have their places from the form and not from the
// style sheet.
import type {Address, Logic, Stretch} from './logic';
import {Ask} from './numbers';
import type {View} from './views';

// What lies in the frame of the case rows, with a margin behind like that before it.
const kCaseFrameTwips = 6720 + 825 + 120;
// So that the least of the buttons there can be pointed at.
const kTwipsPerPixel = 14.4;
const down = (twips: number) => `${twips / kTwipsPerPixel}px`;

/** Tells the style sheet how high a row and the button below them are in the form. */
export function sizeCaseRows(
  logic: Logic,
  frame: HTMLElement,
  addressOf: (name: string) => Address,
): void {
  const heightOf = (name: string) => logic.number(addressOf(name), Ask.Height);
  frame.style.setProperty('--row', down(heightOf('TxtExpr(0)')));
  frame.style.setProperty('--next', down(heightOf('cmdNext')));
}

// Of the frame of the case rows its height, of what lies in it all. In a wider frame the boxes
// and what stands beside them are wider; the style sheet has how they grow with the letters.
export function placeInCaseRows(logic: Logic, handle: number, control: Address, view: View): void {
  const height = logic.number(control, Ask.Height);
  if (height === 0) return;
  const span = logic.caseSpan(handle, control);
  const length = ({twips, rows, buttons}: Stretch) =>
    `calc(${down(twips)} + ${rows} * var(--row-growth) + ${buttons} * var(--next-growth))`;
  const {style} = view.node;
  style.height = length(span.height);
  if (view.focus.id === 'fracase') return;
  const start = logic.number(control, Ask.Left);
  const width = logic.number(control, Ask.Width);
  style.top = length(span.top);
  style.setProperty('--start', `${(100 * start) / kCaseFrameTwips}%`);
  style.width = `${(100 * width) / kCaseFrameTwips}%`;
}

// The place of a box of the case rows among them; what is no such box stands behind all.
export function placeOfRow(node: Element): number {
  const row = /^(TxtExpr|txtStmt)\((\d+)\)$/.exec((node as HTMLElement).dataset['control'] ?? '');
  return row === null ? Infinity : 2 * Number(row[2]) + (row[1] === 'txtStmt' ? 1 : 0);
}
