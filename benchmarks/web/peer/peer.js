// react-querybuilder, as an application uses it that gives it nothing but fields.
import {createElement} from 'react';
import {createRoot} from 'react-dom/client';
import {QueryBuilder} from 'react-querybuilder';

import {act, fieldNames} from '../builder.js';

/**
 * Draws the builder with this many fields.
 * @type {(place: Element, count: number) => Promise<void>}
 */
export async function show(place, count) {
  const fields = fieldNames(count).map((name) => ({name, label: name, inputType: 'number'}));
  createRoot(place).render(createElement(QueryBuilder, {fields}));
  while (place.querySelector('.ruleGroup-addRule') === null)
    await new Promise((done) => setTimeout(done));
}

// React hears of a value that was put into a node by the prototype's own setter.
/** @type {(node: HTMLInputElement | HTMLSelectElement, value: string, event: string) => void} */
function put(node, value, event) {
  const property = Object.getOwnPropertyDescriptor(Object.getPrototypeOf(node), 'value');
  property?.set?.call(node, value);
  node.dispatchEvent(new Event(event, {bubbles: true}));
}

/** Rules can be added at once. */
export function prepare() {}

/**
 * "+ Rule", its field, its operator, its value.
 * @type {(place: Element, row: number, name: string) => Promise<void>}
 */
export async function addRule(place, row, name) {
  await act(() => place.querySelector('.ruleGroup-addRule').click());
  const rule = place.querySelectorAll('.rule')[row];
  await act(() => put(rule.querySelector('.rule-fields'), name, 'change'));
  await act(() => put(rule.querySelector('.rule-operators'), '>', 'change'));
  await act(() => put(rule.querySelector('.rule-value'), String(row), 'input'));
  const [field, value] = [rule.querySelector('.rule-fields'), rule.querySelector('.rule-value')];
  if (field.value !== name || value.value !== String(row)) throw new Error('there is no such rule');
}

/** The bytes that the heap of the page does not count. */
export const bytesBeside = () => 0;
