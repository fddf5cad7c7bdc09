// The element, as a page uses it that gives it nothing but tables and fields.
import '/package/zolt20-map-control.js';

import {act, fieldNames} from './builder.js';

const kTables = 9;
const kWherePage = 1;

/** @type {import('zolt20-map-control').ZOLT20MapControlElement} */
let control;

/** @type {(id: string) => any} */
const node = (id) => control.shadowRoot.getElementById(id);

/**
 * Draws the element with this many fields.
 * @type {(place: Element, count: number) => Promise<void>}
 */
export async function show(place, count) {
  control = document.createElement('zolt20-map-control');
  control.PrpStrTables = Array.from({length: kTables}, (_, table) => `T000000${table}1`).join(',');
  control.PrpStrFields = fieldNames(count)
    .map((name) => `long*Q*V*R*N*N${name}*Q*V*R*N*`)
    .join(',');
  place.append(control);
}

/** Marks the tables, whose fields conditions are about, and turns to the page of conditions. */
export function prepare() {
  for (let table = 0; table < kTables; ++table)
    press(node('lsttables').querySelector(`[data-row="${table}"]`));
  press(control.shadowRoot.querySelector(`[role="tab"][data-page="${kWherePage}"]`));
}

// A click of the mouse.
/** @type {(target: HTMLElement) => void} */
function press(target) {
  const settings = {bubbles: true, cancelable: true, composed: true, detail: 1};
  if (target.dispatchEvent(new MouseEvent('mousedown', settings)))
    /** @type {HTMLElement} */ (target.closest('[tabindex], button, input'))?.focus();
  target.dispatchEvent(new MouseEvent('mouseup', settings));
  target.dispatchEvent(new MouseEvent('click', settings));
}

// The list of a combo is opened, searched by a text that is pasted, and the first entry picked.
/** @type {(combo: string, opener: string, name: string) => Promise<void>} */
async function pickField(combo, opener, name) {
  await act(() => press(node(opener)));
  const search = node(`${combo}.search`);
  await act(() => {
    search.value = name;
    search.dispatchEvent(new InputEvent('input', {inputType: 'insertFromPaste'}));
  });
  await act(() => press(node(`${combo}.list`).querySelector('.row.current')));
}

/**
 * A condition about two fields: nine gestures.
 * @type {(place: Element, row: number, name: string) => Promise<void>}
 */
export async function addRule(_, row, name) {
  const before = node('txtwhereCondition').value;
  await pickField('cboWhereFields', 'cboWhereFields', name);
  await act(() => press(node('cboOper')));
  await act(() => press(node('cboOper.list').querySelector(`[data-row="${row % 6}"]`)));
  await pickField('cboWhereFields1', 'cboWhereFields1.open', name);
  await act(() => press(node('cmdAnd')));
  if (node('txtwhereCondition').value === before) throw new Error('there is no such condition');
}

/** The bytes that the heap of the page does not count. */
export const bytesBeside = () => /** @type {any} */ (control.constructor).statistics().memoryBytes;
