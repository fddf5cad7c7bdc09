// What Orca words otherwise for one of the two faces, and how it is written down for both.

/** @type {[RegExp, string, string][]} */
const kSame = [
  // In which of its two ways Orca takes the keys in a browser.
  [/\b(Focus|Browse) mode\b/g, '', 'web'],
  // Of a list in which several rows may be marked only a browser's says so.
  [/\bmulti-select (?=List\b)/g, '', 'web'],
  // What a button did, and so on: in Qt it is told by a notification, which is named.
  [/\bnotification (?=\w)/g, '', 'qt'],
  // A message is a window in Qt and a dialog of the page in a browser. Behind it the window is told.
  [/\balert (Maintain Mapping Objects)\b/g, '$1 dialog', 'qt'],
  [/\bQt window\b/g, '', 'qt'],
  // That a combo box has a list, and that a group of controls is left.
  [/ ?\bopens listbox\b/g, '', 'web'],
  [/^leaving panel ?/g, '', 'web'],
  // What a box is called, and a bar.
  [/\bentry\b/g, 'text', 'web'],
  [/\bvertical (?=scroll bar)/g, '', 'web'],
  // In Qt: that a box that was left has its text marked no more, that an option is on when it is
  // clicked, and the frame around the options again.
  [/\bText unselected\b/g, '', 'qt'],
  [/^selected (?=[\w.]+( Statement)? panel)/g, '', 'qt'],
  [/^Select Condition (?:panel Select Condition )?/g, '', 'qt'],
  // A list that comes into sight with a mark, and one whose rows are scrolled: Orca tells of the list
  // and the marked row again, though the keys are elsewhere or there already.
  [/(page tab) (?:Tables|Fields|Selected fields|Group By) .*List with .*$/g, '$1', 'web'],
  [/^(?:Fields|Functions) (\S+) List with \d+ items \1$/g, '$1', 'web'],
  [/^(\S+) \1$/g, '$1', 'web'],
];

/// What is said, without the points and blanks that Orca puts between its parts.
/** @type {(words: string, face: string) => string} */
export function plain(words, face) {
  let said = words
    .replace(/\.(?= |$)/g, '')
    .replace(/\s+/g, ' ')
    .trim();
  for (const [what, instead, where] of kSame)
    if (where === face) said = said.replace(what, instead);
  return said.replace(/\s+/g, ' ').trim();
}
