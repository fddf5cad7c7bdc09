// The element for pages: defined when its logic is there, under its one name.
import {ZOLT20MapControlElement, useLogic} from './element';
import type {Logic} from './logic';

export const kTag = 'zolt20-map-control';

export function define(logic: Logic): void {
  if (customElements.get(kTag) !== undefined) return; // the page has it from elsewhere
  useLogic(logic);
  customElements.define(kTag, ZOLT20MapControlElement);
}
