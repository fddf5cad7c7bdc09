// A function of the catalogue, picked in a dialog, with a line for each of its arguments.
import {show} from './dialogs.js';
import {partOf} from './parts.js';

/** @import {CatalogueFunction} from './catalogue.js' */
/** @typedef {{row: HTMLElement, choice: HTMLInputElement, name: string, words: string[]}} Row */

/** @type {(name: string, texts: string[]) => string} */
const callOf = (name, texts) => `${name}(${texts.join(', ')})`;

/** @type {(called: CatalogueFunction) => Row} */
function rowOf({name, arguments: words}) {
  const row = document.createElement('label');
  const choice = document.createElement('input');
  choice.type = 'radio';
  choice.name = 'function';
  choice.value = name;
  const call = document.createElement('code');
  call.textContent = callOf(name, words);
  row.append(choice, call);
  return {row, choice, name, words};
}

/** @type {(word: string) => {label: HTMLElement, box: HTMLInputElement}} */
function entryOf(word) {
  const label = document.createElement('label');
  label.className = 'entry';
  const caption = document.createElement('span');
  caption.textContent = word;
  const box = document.createElement('input');
  box.type = 'text';
  box.autocomplete = 'off';
  box.spellcheck = false;
  label.append(caption, box);
  return {label, box};
}

/// Gives the call that was put together, nothing when the person turns away. `complaintOf` tells
/// why a call can't be taken, '' when it can.
/**
 * @type {(functions: CatalogueFunction[], title: string, complaintOf: (text: string) => string) =>
 *   Promise<string | undefined>}
 */
export function pickFunction(functions, title, complaintOf) {
  return show('functions', title, (dialog, end) => {
    const filter = partOf(dialog, '.filter', HTMLInputElement);
    const argumentList = partOf(dialog, '.arguments', HTMLElement);
    const output = partOf(dialog, '.call', HTMLOutputElement);
    const complaint = partOf(dialog, '.complaint', HTMLElement);
    const insert = partOf(dialog, '[type=submit]', HTMLButtonElement);
    const rows = functions.map(rowOf);
    /** @type {HTMLInputElement[]} */
    let boxes = [];

    const picked = () => rows.find(({choice}) => choice.checked);
    const showCall = () => {
      const row = picked();
      output.value =
        row === undefined
          ? ''
          : callOf(
              row.name,
              boxes.map(({value}) => value),
            );
      insert.disabled = row === undefined;
      complaint.hidden = true;
    };
    const showArguments = () => {
      const entries = (picked()?.words ?? []).map(entryOf);
      boxes = entries.map(({box}) => box);
      argumentList.replaceChildren(...entries.map(({label}) => label));
      showCall();
    };
    /** @type {(row: Row | undefined) => void} */
    const pick = (row) => {
      for (const each of rows) each.choice.checked = each === row;
      showArguments();
    };

    const list = partOf(dialog, '.rows', HTMLElement);
    list.append(...rows.map(({row}) => row));
    list.addEventListener('change', showArguments);
    argumentList.addEventListener('input', showCall);
    // A function that the filter hides is not picked any more, but the first that it shows.
    filter.addEventListener('input', () => {
      const wanted = filter.value.toLowerCase();
      for (const {row, name} of rows) row.hidden = !name.toLowerCase().includes(wanted);
      const shown = rows.filter(({row}) => !row.hidden);
      if (!shown.some((row) => row === picked())) pick(shown[0]);
    });
    partOf(dialog, 'form', HTMLFormElement).addEventListener('submit', (event) => {
      event.preventDefault();
      const why = complaintOf(output.value);
      if (why === '') return end(output.value);
      complaint.textContent = why;
      complaint.hidden = false;
    });
    pick(rows[0]);
    dialog.addEventListener('shown', () => filter.focus());
    return undefined;
  });
}
