// What benchmarks/web.mjs measures, in milliseconds.

const kRuns = 15;
const kKeys = 15;

// Lays out what is on the page, as drawing it begins.
const layOut = () => document.body.getBoundingClientRect();
const nextFrame = () => new Promise((done) => requestAnimationFrame(() => setTimeout(done)));

/**
 * From the start of a script to an element of it that is laid out.
 * @type {(script: string) => Promise<number>}
 */
export async function ready(script) {
  const begin = performance.now();
  await import(script);
  document.body.append(
    document.createElement(script.includes('empty') ? 'zolt20-empty' : 'zolt20-map-control'),
  );
  layOut();
  return performance.now() - begin;
}

async function load() {
  await import('/package/zolt20-map-control.js');
  await import('/bench/empty.js');
}
async function newElement() {
  await load();
  const element = document.createElement('zolt20-map-control');
  document.body.replaceChildren(element);
  await nextFrame();
  return element;
}
/** @type {(count: number) => string} */
const tablesOf = (count) =>
  Array.from({length: count}, (_, row) => `T${String(row).padStart(7, '0')}0`).join(',');

/**
 * One more element on the page.
 * @type {(tag: string) => Promise<number[]>}
 */
export async function further(tag) {
  await load();
  const times = [];
  for (let run = 0; run < kRuns * 3; ++run) {
    const begin = performance.now();
    document.body.replaceChildren(document.createElement(tag));
    layOut();
    times.push(performance.now() - begin);
    await nextFrame();
  }
  return times;
}

/**
 * A list that has its rows comes into sight: to the next frame with its rows.
 * @type {(count: number) => Promise<number[]>}
 */
export async function firstScreen(count) {
  const element = await newElement();
  element.PrpStrTables = tablesOf(count);
  const times = [];
  for (let run = 0; run < kRuns; ++run) {
    element.hidden = true;
    await nextFrame();
    const begin = performance.now();
    element.hidden = false;
    layOut();
    await nextFrame();
    times.push(performance.now() - begin);
  }
  return times;
}

/**
 * The tables are written, to the next frame with their rows.
 * @type {(count: number) => Promise<number[]>}
 */
export async function tables(count) {
  const list = tablesOf(count);
  const times = [];
  for (let run = 0; run < kRuns; ++run) {
    const element = await newElement();
    const begin = performance.now();
    element.PrpStrTables = list;
    layOut();
    await nextFrame();
    times.push(performance.now() - begin);
  }
  return times;
}

/**
 * A letter comes into the filter and goes again.
 * @type {(count: number) => Promise<number[]>}
 */
export async function filter(count) {
  const element = await newElement();
  element.PrpStrTables = tablesOf(count);
  const input = element.shadowRoot.getElementById('lsttables.filter');
  const times = [];
  for (let run = 0; run < kRuns; ++run) {
    input.value = input.value === '' ? '9' : '';
    const begin = performance.now();
    input.dispatchEvent(new Event('input'));
    layOut();
    times.push(performance.now() - begin);
  }
  return times.filter((_, run) => run % 2 === 0);
}

/**
 * A click on a row that marks it or takes the mark away.
 * @type {(count: number) => Promise<number[]>}
 */
export async function click(count) {
  const element = await newElement();
  element.PrpStrFields = '';
  element.PrpStrTables = tablesOf(count);
  await nextFrame();
  const times = [];
  for (let run = 0; run < kRuns; ++run) {
    const row = element.shadowRoot.querySelector('#lsttables [data-row="2"]');
    const begin = performance.now();
    row.click();
    layOut();
    times.push(performance.now() - begin);
  }
  return times;
}

const kLine = 'select sum(A.B) from  A where A.C = "text" and A.D > 12\n';
/** @type {(letters: number) => string} */
const textOf = (letters) => kLine.repeat(Math.ceil(letters / kLine.length)).slice(0, letters);

// A letter typed into the middle of a box, to the end of what comes of it.
/** @type {(box: HTMLInputElement | HTMLTextAreaElement) => Promise<number[]>} */
async function keys(box) {
  const times = [];
  for (let run = 0; run < kKeys; ++run) {
    await nextFrame();
    const begin = performance.now();
    box.setRangeText('x', box.value.length >> 1, box.value.length >> 1, 'end');
    box.dispatchEvent(new InputEvent('input', {inputType: 'insertText', data: 'x'}));
    layOut();
    times.push(performance.now() - begin);
  }
  return times;
}

/**
 * A key in a coloured text.
 * @type {(letters: number) => Promise<number[]>}
 */
export async function key(letters) {
  const element = await newElement();
  element.Syntax_Highlight = true;
  element.prpTab = 2;
  element.prpSelectDoPart = textOf(letters).replaceAll('\n', '~');
  return keys(element.shadowRoot.getElementById('txtSelectDo'));
}

/**
 * A key in the browser's own box, as large.
 * @type {(letters: number) => Promise<number[]>}
 */
export async function plainKey(letters) {
  const box = document.createElement('textarea');
  box.wrap = 'off';
  box.rows = 12;
  box.value = textOf(letters);
  document.body.replaceChildren(box);
  return keys(box);
}
