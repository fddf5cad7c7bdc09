// The boxes of statements whose keys are measured: one of the browser, and those of the package.
import '/package/zolt20-map-control.js';
import '/package/zolt21-synt-text-box.js';

/** @import {Shown} from './keys.js' */

const kFilling = {boxSizing: 'border-box', width: '100%', height: '100%', resize: 'none'};

/** @type {(area: HTMLInputElement | HTMLTextAreaElement) => Shown} */
const shownBy = (area) => ({
  caretAt(at) {
    area.focus();
    area.setSelectionRange(at, at);
  },
  text: () => area.value,
  linesRead: () => area.value.split('\n').length,
});

/** @type {(wrap: 'off' | 'soft') => (place: HTMLElement, text: string) => Shown} */
const area = (wrap) => (place, text) => {
  const box = document.createElement('textarea');
  box.wrap = wrap;
  box.spellcheck = false;
  Object.assign(box.style, kFilling);
  box.value = text;
  place.append(box);
  return shownBy(box);
};
export const browser = area('off');
export const browserWrapped = area('soft');

/**
 * The large box of the page of the Do part.
 * @type {(place: HTMLElement, text: string) => Shown}
 */
export function coloured(place, text) {
  const element = document.createElement('zolt20-map-control');
  place.replaceWith(element);
  element.Syntax_Highlight = true;
  element.prpTab = 2;
  element.prpSelectDoPart = text.replaceAll('\n', '~');
  return shownBy(element.shadowRoot.getElementById('txtSelectDo'));
}

/**
 * The box of statements as an element of its own, which wraps lines at its edge.
 * @type {(place: HTMLElement, text: string) => Shown}
 */
export function wrapped(place, text) {
  const element = document.createElement('zolt21-synt-text-box');
  Object.assign(element.style, kFilling);
  place.append(element);
  element.Highlight = true;
  element.Text = text;
  return shownBy(
    /** @type {HTMLTextAreaElement} */ (element.shadowRoot?.querySelector('textarea')),
  );
}
