// Places the boxes of the case rows, which stand where the form has them and not where a style
// sheet puts them.
import type {Address, Logic, Stretch} from './logic';
import {Ask} from './numbers';
import type {View} from './views';

// The width of the controls in the frame of the case rows, with equal margins on both sides.
const kCaseFrameTwips = 6720 + 825 + 120;
// The scale of the case rows: large enough that the smallest button there can be clicked.
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

// Sets the height of the frame of the case rows, and place and size of a control in it. A wider
// frame makes the boxes wider; the style sheet knows how rows grow with the letters.
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

// The position of a box in the order of the case rows; Infinity for any other node.
export function placeOfRow(node: Element): number {
  const row = /^(TxtExpr|txtStmt)\((\d+)\)$/.exec((node as HTMLElement).dataset['control'] ?? '');
  return row === null ? Infinity : 2 * Number(row[2]) + (row[1] === 'txtStmt' ? 1 : 0);
}
