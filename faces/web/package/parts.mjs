// The parts of the element for the manifest, as ::part() takes them: kinds of nodes, their states
// (which are parts as well), and controls by their names.
import {AskText} from '../src/numbers';

/// Each kind of node: what it is, and the states that it can have.
/** @type {Readonly<Record<string, [what: string, ...states: string[]]>>} */
const kKinds = {
  face: ['the whole form'],
  head: ['the row with the tabs and the buttons of the history'],
  tabs: ['the strip of the tabs'],
  tab: ['a tab, of which each leads to a page', 'active'],
  tool: ['Undo and Redo', 'disabled'],
  page: ['a page of the form'],
  notes: ['the instructions at the foot of a page'],
  label: ['the words that name a box, a list or a radio button'],
  list: ['a list, that of an opened combo box too', 'disabled', 'readonly'],
  row: ['a row of a list', 'marked', 'current'],
  combo: ['a combo box', 'disabled', 'open'],
  opener: ['the button that opens the list of a combo box that is typed into'],
  popup: ['the opened list of a combo box, with its search line'],
  input: ['a box that takes text or an entry', 'disabled', 'readonly'],
  search: ['the line that searches an opened list, an input'],
  filter: ['the line that filters a list, an input'],
  marks: ['what tells of marks in a list that its filter hides'],
  lines: ['what is around an input of several lines'],
  button: ['a button', 'default', 'disabled', 'readonly'],
  radio: ['a radio button', 'checked', 'disabled', 'readonly'],
  group: ['a frame around controls'],
  title: ['the caption of a frame or of a message'],
  scrollbar: ['the scroll bar of the case rows', 'disabled'],
  arrow: ['an arrow of the scroll bar'],
  thumb: ['what is dragged in the scroll bar'],
  result: ['the Result, with its name'],
  buttons: ['the row of Clear, Cancel and Done'],
  message: ['the dialog of a message'],
};
/** @type {Readonly<Record<string, string>>} */
const kStates = {
  active: 'the tab whose page is seen',
  checked: 'a radio button that is chosen',
  current: 'the row that the keys stand on',
  default: 'Done, and OK of a message',
  disabled: 'what takes nothing at the moment',
  marked: 'a row that is marked, or the chosen entry of a combo box',
  open: 'a combo box whose list is open',
  readonly: 'what a person can only look at, in an element that is readonly',
};

/// The parts as the manifest has them.
/** @type {(logic: import('../src/logic').Logic) => {name: string, description: string}[]} */
export function partsOf(logic) {
  const kinds = Object.entries(kKinds).map(([name, [what, ...states]]) => ({
    name,
    description: states.length === 0 ? what : `${what}; states: ${states.join(', ')}`,
  }));
  const states = Object.entries(kStates).map(([name, what]) => ({
    name,
    description: `a state: ${what}`,
  }));
  /** @type {Map<string, string>} */
  const controls = new Map();
  const listener = /** @type {import('../src/logic').Listener} */ ({});
  const element = logic.make(listener);
  for (const control of logic.controls(element)) {
    const name = logic.text(control, AskText.Name).replace(/\(\d+\)$/, '');
    const words = logic.spokenName(element, control) || logic.text(control, AskText.Caption);
    if (!controls.has(name))
      controls.set(
        name,
        words.trim() === '' ? 'a control' : `the control ${JSON.stringify(words)}`,
      );
  }
  return [
    ...kinds,
    ...states,
    ...[...controls].map(([name, description]) => ({name, description})),
  ];
}
