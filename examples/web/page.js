// The page: a control on a catalogue, and what came of it.
import {CatalogueError, fieldsOf, readCatalogue} from './catalogue.js';
import {isChanged, makeControl, mayLeave, settle} from './composer.js';
import {tellFailure} from './dialogs.js';
import {partOf} from './parts.js';

/** @import {ZOLT20Error, ZOLT20MapControlElement} from './package/zolt20-map-control.js' */
/** @import {Catalogue} from './catalogue.js' */

const kSample = 'examples/catalogue.json';
const kShownFor = 6000;

// By its id, and perhaps what is within.
/** @type {(id: string) => HTMLElement} */
const part = (id) => partOf(document, `#${id}`, HTMLElement);
const coloring = partOf(document, '#colouring', HTMLInputElement);
const file = partOf(document, '#file', HTMLInputElement);
/** @type {(count: number, what: string) => string} */
const counted = (count, what) => `${count} ${what}${count === 1 ? '' : 's'}`;

/** @type {Catalogue | undefined} */
let catalogue;
/** @type {ZOLT20MapControlElement | undefined} */
let control;

// ---- messages

/** @type {ReturnType<typeof setTimeout> | undefined} */
let fading;

/** @type {(text: string) => void} */
function say(text) {
  const status = part('status');
  status.textContent = text;
  clearTimeout(fading);
  fading = setTimeout(() => status.replaceChildren(), kShownFor);
}

/** @type {(text: string) => void} */
function complain(text) {
  part('complaint').hidden = text === '';
  part('complaint p').textContent = text;
}

part('complaint button').addEventListener('click', () => {
  complain('');
  control?.focus();
});

// ---- the control

function showNoResult() {
  part('result').hidden = true;
  part('copies').hidden = true;
  part('no-result').hidden = false;
}

// The Result is read once: at a depth above 0 every read would indent it by one tab more.
/** @type {(control: ZOLT20MapControlElement) => void} */
function showResult(control) {
  let text = '';
  let records = '';
  try {
    text = control.prpStroutput;
    records = control.prpstrSelectedFields;
  } catch (error) {
    tellFailure(/** @type {ZOLT20Error} */ (error));
    return;
  }
  settle(control);
  const fields = fieldsOf(records);
  part('statement').textContent = text.replaceAll('\r\n', '\n');
  part('records').textContent = records;
  part('result caption').textContent = counted(fields.length, 'selected field');
  part('result tbody').replaceChildren(
    ...fields.map(({name, type, flagged, text: further}) => {
      const row = document.createElement('tr');
      for (const cell of [name, type, flagged ? 'yes' : 'no', further])
        row.insertCell().textContent = cell;
      return row;
    }),
  );
  part('copy-statement').onclick = () => copy(text, part('statement'), 'The statement is copied.');
  part('copy-records').onclick = () =>
    copy(records, part('records'), 'The field records are copied.');
  part('copy-records').hidden = records === '';
  part('records-details').hidden = records === '';
  part('result .fields').hidden = fields.length === 0;
  part('no-result').hidden = true;
  part('copies').hidden = false;
  part('result').hidden = false;
  part('result-heading').focus({preventScroll: true});
  part('result-heading').closest('section')?.scrollIntoView({block: 'nearest'});
  const lines = text === '' ? 0 : text.split('\r\n').length;
  say(
    `The statement is done: ${counted(lines, 'line')}, ${counted(fields.length, 'selected field')}.`,
  );
}

/** @type {(text: string, element: HTMLElement, done: string) => Promise<void>} */
async function copy(text, element, done) {
  try {
    await navigator.clipboard.writeText(text);
    say(done);
  } catch {
    element.closest('details')?.setAttribute('open', '');
    element.focus();
    getSelection()?.selectAllChildren(element);
    say('This browser does not let the page copy. The text is selected: press Ctrl+C.');
  }
}

/** @type {(catalogue: Catalogue) => ZOLT20MapControlElement} */
function compose(catalogue) {
  const made = makeControl(catalogue, coloring.checked);
  made.addEventListener('eventDone', () => showResult(made));
  made.addEventListener('eventCancel', () => startAnew(made));
  for (const change of ['undone', 'redone']) {
    made.addEventListener(change, () => {
      coloring.checked = made.Syntax_Highlight;
    });
  }
  part('stage').replaceChildren(made);
  control = made;
  return made;
}

/** @type {(before: ZOLT20MapControlElement) => Promise<void>} */
async function startAnew(before) {
  if (catalogue === undefined || !(await mayLeave(before, 'New statement'))) return;
  const made = compose(catalogue);
  showNoResult();
  made.focus();
}

// ---- catalogues

let openings = 0;

// What can't be opened is told, and the catalogue before stays.
/** @type {(name: string, bytesOf: () => Promise<ArrayBuffer>) => Promise<void>} */
async function open(name, bytesOf) {
  const isFirst = catalogue === undefined;
  const opening = ++openings;
  try {
    const read = readCatalogue(await bytesOf());
    if (opening !== openings) return;
    if (control !== undefined && !(await mayLeave(control, 'Another catalogue'))) return;
    compose(read);
    catalogue = read;
  } catch (error) {
    complain(
      `${name} can't be opened: ${error instanceof CatalogueError ? error.message : String(error)}.`,
    );
    return;
  }
  complain('');
  showNoResult();
  const fields = catalogue.tables.reduce((sum, table) => sum + table.fields.length, 0);
  const {name: title, tables, functions} = catalogue;
  const size = [
    counted(tables.length, 'table'),
    counted(fields, 'field'),
    counted(functions.length, 'function'),
  ].join(', ');
  part('catalogue-name').textContent = title || 'A catalogue without a name';
  part('catalogue-size').textContent = `${size} of ${name}`;
  if (!isFirst) say(`${name} is open: ${size}.`);
}

const openSample = () =>
  open('catalogue.json', async () => {
    const response = await fetch(kSample);
    if (!response.ok) throw new Error(`${response.status} ${response.statusText} for ${kSample}`);
    return response.arrayBuffer();
  });

/** @type {(file: File) => Promise<void>} */
const openFile = (file) => open(file.name, () => file.arrayBuffer());

file.addEventListener('change', () => {
  const [chosen] = file.files ?? [];
  if (chosen !== undefined) openFile(chosen);
  file.value = '';
});
part('sample').addEventListener('click', openSample);
part('new').addEventListener('click', () => control && startAnew(control));

// While a dialog is open the page takes no file.
/** @type {(event: DragEvent) => boolean | undefined} */
const bringsFiles = ({dataTransfer}) =>
  dataTransfer?.types.includes('Files') && document.querySelector('dialog[open]') === null;

addEventListener('dragover', (event) => {
  if (!event.dataTransfer?.types.includes('Files')) return;
  event.preventDefault();
  event.dataTransfer.dropEffect = bringsFiles(event) ? 'copy' : 'none';
  part('drop').hidden = !bringsFiles(event);
});
addEventListener('dragleave', ({relatedTarget}) => {
  if (relatedTarget === null) part('drop').hidden = true;
});
addEventListener('drop', (event) => {
  if (!event.dataTransfer?.types.includes('Files')) return;
  event.preventDefault();
  part('drop').hidden = true;
  if (!bringsFiles(event)) return;
  const {files} = event.dataTransfer;
  if (files.length === 1) openFile(files[0]);
  else complain(`One catalogue can be open at a time, and ${files.length} files were dropped.`);
});

// In the dialogs, too, something may have been composed.
addEventListener('beforeunload', (event) => {
  if ([...document.querySelectorAll('zolt20-map-control')].some(isChanged)) event.preventDefault();
});

// ---- settings, which the browser keeps where the page may store anything

/** @type {(key: string) => string | null} */
function stored(key) {
  try {
    return localStorage.getItem(key);
  } catch {
    return null;
  }
}

/** @type {(key: string, value: string) => void} */
function store(key, value) {
  try {
    localStorage.setItem(key, value);
  } catch {
    // Then the page has forgotten it at the next visit.
  }
}

/** @type {(scheme: string) => void} */
function showScheme(scheme) {
  document.documentElement.dataset.scheme = scheme;
}

for (const choice of document.querySelectorAll('input')) {
  if (choice.name !== 'scheme') continue;
  choice.addEventListener('change', () => {
    showScheme(choice.value);
    store('scheme', choice.value);
  });
  if (choice.value === stored('scheme')) choice.checked = true;
  if (choice.checked) showScheme(choice.value);
}

coloring.checked = stored('colouring') !== 'off';
coloring.addEventListener('change', () => {
  store('colouring', coloring.checked ? 'on' : 'off');
  const changed = control;
  changed?.asStep(() => {
    changed.Syntax_Highlight = coloring.checked;
  });
});

// ---- the start

try {
  await import('./package/zolt20-map-control.js');
  await openSample();
} catch (error) {
  complain(`The control can't run in this browser: ${error}`);
}
if (control === undefined) part('stage').querySelector('.waiting')?.remove();
