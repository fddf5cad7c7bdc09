// The form and the contract, read from the two lists that the control itself is made of.
import {readFileSync} from 'node:fs';
import path from 'node:path';

import {kRoot} from './places.mjs';

/** @import {Member} from '../../faces/web/package/types.mjs' */
/** @import {Design, Dump, Form} from './types' */

/** @type {(file: string) => string[]} */
const linesOf = (file) =>
  readFileSync(path.join(kRoot, file), 'utf8')
    .split('\n')
    .filter((line) => /^ZOLT20_/.test(line));

/// Each control of the form at design by its name, in the first tab order: kind, page (null for
/// every page), frame (null for the form itself), caption and styles.
/** @type {Form} */
export const kForm = Object.fromEntries(
  linesOf('surface/form.def')
    .filter((line) => !line.startsWith('ZOLT20_ARRAY'))
    .map((line) => {
      const row =
        /^ZOLT20_(CONTROL|ELEMENT)\((\w+), (\w+), (?:(\d+), )?(\w+), (\w+), u"((?:[^"\\]|\\.)*)", ([\w |]+)\)$/.exec(
          line,
        );
      if (row === null) throw new Error(`form.def has a row of another shape: ${line}`);
      const [, list, kind, name, index, page, frame, caption, styles] = row;
      return [
        list === 'ELEMENT' ? `${name}(${index})` : name,
        {
          kind,
          page: page === 'kEveryPage' ? null : Number(page),
          frame: frame === 'kForm' ? null : frame,
          caption: caption.replace(/\\"/g, '"'),
          styles: styles.split(' | '),
        },
      ];
    }),
);

/// What a control is at design; an element that was loaded later is what the first of its array is.
/** @type {(name: string) => Design} */
export const designOf = (name) => kForm[name] ?? kForm[name.replace(/\(\d+\)$/, '(0)')];

/// Whether a person can see the control in the state that a dump tells.
/** @type {(dump: Dump, name: string) => boolean} */
export function isShown(dump, name) {
  const {page} = designOf(name);
  if (page !== null && page !== dump.controls.tabVrn.Tab) return false;
  /** @type {string | null} */
  let at = name;
  for (; at !== null; at = designOf(at).frame) {
    if (!dump.controls[at].Visible) return false;
  }
  return true;
}

const kNoFocus = ['Label', 'Frame', 'Rectangle'];
/** @type {(name: string) => boolean} */
export const takesFocus = (name) => !kNoFocus.includes(designOf(name).kind);

/// The controls that the Tab key can come to, in the tab order of this state.
/** @type {(dump: Dump) => string[]} */
export function stopsOf(dump) {
  return Object.keys(dump.controls)
    .filter((name) => takesFocus(name) && dump.controls[name].Enabled && isShown(dump, name))
    .sort((one, other) => dump.controls[one].TabIndex - dump.controls[other].TabIndex);
}

/// The members and events of the contract, in their order.
/** @type {Member[]} */
export const kMembers = [];
/** @type {string[]} */
export const kEvents = [];
for (const line of linesOf('shell/contract.def')) {
  const row = /^ZOLT20_(\w+)\((.*)\)$/.exec(line);
  if (row === null) throw new Error(`contract.def has a row of another shape: ${line}`);
  const [, list, words] = row;
  const [, ...rest] = words.split(', ');
  if (list === 'EVENT') {
    kEvents.push(rest[0]);
  } else if (list.startsWith('METHOD')) {
    const [name, type, argument] = rest;
    kMembers.push({name, type, argument, canSet: false, canGet: false, isMethod: true});
  } else {
    const [type, name] = rest;
    kMembers.push({
      name,
      type,
      canSet: list.startsWith('LET'),
      canGet: list.endsWith('GET'),
      isMethod: false,
    });
  }
}
