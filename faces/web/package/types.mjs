// Makes the types of the element: fills members and events, with the comments that the C++ headers
// have for them, into the template zolt20-map-control.d.ts.in.
import {readFileSync} from 'node:fs';
import {join} from 'node:path';

import {attributeOf} from './attribute_names.mjs';

/**
 * A member of the contract, which reads and writes as in shell/contract.def.
 * @typedef {object} Member
 * @property {string} name
 * @property {string | undefined} type  undefined for a method that takes nothing
 * @property {boolean} canSet
 * @property {boolean} canGet
 * @property {boolean} isMethod
 * @property {string | undefined} [argument]
 */

/** @type {Readonly<Record<string, string>>} */
const kTypes = {String: 'string', Integer: 'number', Boolean: 'boolean'};

// The comment before a declaration of a header. One that stands before several belongs to all of
// them.
/** @type {(header: string, declaration: RegExp) => string} */
function commentBefore(header, declaration) {
  const lines = header.split('\n');
  let at = lines.findIndex((line) => declaration.test(line));
  if (at < 0) throw new Error(`no ${declaration} in the header`);
  while (at > 0 && /^\s+\S.*;$/.test(lines[at - 1]) && !lines[at - 1].includes('///')) --at;
  const comment = [];
  for (--at; at >= 0 && lines[at].trim().startsWith('///'); --at)
    comment.unshift(lines[at].trim().slice(3).trim());
  return comment.join(' ');
}
/** @type {(text: string) => string} */
const docLines = (text) => (text === '' ? '' : `  /** ${text} */\n`);

/** @type {(member: Member, control: string) => string} */
function typesOfMember({name, type, canSet, canGet, isMethod, argument}, control) {
  const typed = kTypes[type ?? ''];
  /** @type {(start: string) => string} */
  const doc = (start) => docLines(commentBefore(control, new RegExp(`^  ${start}`)));
  if (isMethod) {
    const taken = argument === undefined ? '' : `${argument}: ${typed}`;
    return `${doc(`Variant ${name}\\(`)}  ${name}(${taken}): undefined;`;
  }
  const lines = [];
  if (canGet) lines.push(`${doc(`\\w+ ${name}\\(\\)`)}  get ${name}(): ${typed};`);
  if (canSet) {
    // A write-only property reads as undefined.
    const getter = canGet ? '' : `  get ${name}(): undefined;\n`;
    const written = doc(`void ${name}\\(\\w+ \\w+\\);`);
    lines.push(`${written}${getter}  set ${name}(value: ${typed} | null | undefined);`);
  }
  return lines.join('\n');
}

// The types of attributes in templates: a number can be a text as well, and a flag an attribute
// without a text.
/** @type {Readonly<Record<string, string>>} */
const kAttributeTypes = {
  String: 'string',
  Integer: `number | \`\${number}\``,
  Boolean: "boolean | ''",
};
/** @type {(members: Member[], nameOf: (member: string) => string, types: typeof kTypes) => string} */
const propsOf = (members, nameOf, types) =>
  members
    .filter(({canSet}) => canSet)
    .map(({name, type}) => {
      const key = nameOf(name);
      const quoted = /^\w+$/.test(key) ? key : `'${key}'`;
      return `  /** Writes \`${name}\`. */\n  ${quoted}?: ${types[type ?? '']} | null | undefined;`;
    })
    .join('\n');

/// The text of the types, by the members and events and by the headers below the root.
/** @type {(contract: {members: Member[], events: string[]}, root: string) => string} */
export function typesOf({members, events}, root) {
  /** @type {(...path: string[]) => string} */
  const read = (...path) => readFileSync(join(root, ...path), 'utf8');
  const control = read('shell', 'control.h');
  const host = read('shell', 'host.h');
  const typesOfEvents = events.map((name) => {
    const doc = docLines(commentBefore(host, new RegExp(`void ${name}\\(`)));
    return `${doc}  ${name}: Event;`;
  });
  const texts = [
    ...read('faces', 'shared', 'words.def').matchAll(/^ZOLT20_(WORD|NAME)\((\w+), u"(.*)"\)$/gm),
  ].map(([, , key, text]) => `  /** ${text} */\n  readonly ${key}: string;`);
  return read('faces', 'web', 'package', 'zolt20-map-control.d.ts.in')
    .replace('@TEXTS@', () => texts.join('\n'))
    .replace('@EVENTS@', () => typesOfEvents.join('\n'))
    .replace('@ATTRIBUTES@', () => propsOf(members, attributeOf, kAttributeTypes))
    .replace('@PROPERTIES@', () => propsOf(members, (name) => name, kTypes))
    .replace('@MEMBERS@', () => members.map((each) => typesOfMember(each, control)).join('\n'));
}
