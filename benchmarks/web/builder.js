// What the pages of the two builders have in common.

/** @type {(count: number) => string[]} */
export const fieldNames = (count) =>
  Array.from({length: count}, (_, field) => `T000000${field % 9}.FIELD_NAME_${field + 1}`);

/**
 * One thing that a person does, with all that the page does about it and the layout that comes of
 * it.
 * @type {(gesture: () => void) => Promise<void>}
 */
export async function act(gesture) {
  gesture();
  await null;
  document.body.getBoundingClientRect();
}

const nextFrame = () => new Promise((done) => requestAnimationFrame(() => setTimeout(done)));

/**
 * @typedef {object} Builder
 * @property {(place: Element, count: number) => Promise<void>} show
 * @property {() => void} prepare
 * @property {(place: Element, row: number, name: string) => Promise<void>} addRule
 * @property {() => number} bytesBeside
 */
/** @type {HTMLElement} */
let place;
/** @type {Builder} */
let builder;
let fields = 0;
let rules = 0;

/**
 * From the start of the navigation to the builder in its first frame, in milliseconds.
 * @type {(script: string, count: number) => Promise<number>}
 */
export async function ready(script, count) {
  builder = await import(script);
  place = document.body;
  fields = count;
  await builder.show(place, count);
  await nextFrame();
  return performance.now();
}

/**
 * One more rule about a field of the list's end, to its frame, in milliseconds.
 * @type {() => Promise<number>}
 */
export async function rule() {
  if (rules === 0) builder.prepare();
  const name = fieldNames(fields)[fields - 1 - rules];
  await nextFrame();
  const begin = performance.now();
  await builder.addRule(place, rules++, name);
  await nextFrame();
  return performance.now() - begin;
}

export const bytesBeside = () => builder.bytesBeside();
