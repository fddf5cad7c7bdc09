// A function of the catalogue, picked in a dialog, with a line for each of its arguments.
import {show} from './dialogs.js';

const callOf = (name, texts) => `${name}(${texts.join(', ')})`;

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
export function pickFunction(functions, title, complaintOf) {
  return show('functions', title, (dialog, end) => {
    const filter = dialog.querySelector('.filter');
    const argumentList = dialog.querySelector('.arguments');
    const output = dialog.querySelector('.call');
    const complaint = dialog.querySelector('.complaint');
    const insert = dialog.querySelector('[type=submit]');
    const rows = functions.map(rowOf);
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
    const pick = (row) => {
      for (const each of rows) each.choice.checked = each === row;
      showArguments();
    };

    const list = dialog.querySelector('.rows');
    list.append(...rows.map(({row}) => row));
    list.addEventListener('change', showArguments);
    argumentList.addEventListener('input', showCall);
    // A function that the filter hides is not picked any more, but the first that it shows.
    filter.addEventListener('input', () => {
      const wanted = filter.value.toLowerCase();
      for (const {row, name} of rows) row.hidden = !name.toLowerCase().includes(wanted);
      const shown = rows.filter(({row}) => !row.hidden);
      if (!shown.includes(picked())) pick(shown[0]);
    });
    dialog.querySelector('form').addEventListener('submit', (event) => {
      event.preventDefault();
      const why = complaintOf(output.value);
      if (why === '') return end(output.value);
      complaint.textContent = why;
      complaint.hidden = false;
    });
    pick(rows[0]);
    dialog.addEventListener('shown', () => filter.focus());
  });
}
