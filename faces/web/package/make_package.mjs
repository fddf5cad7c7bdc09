// Makes the package's types, its manifest of custom elements and package.json. Members and events
// come from the contract's list in the module itself, the rest from types and style sheet.
//   node make_package.mjs SOURCE WASM VERSION OUT       SOURCE is the root of the repository
import {copyFileSync, readFileSync, writeFileSync} from 'node:fs';
import {join} from 'node:path';

import {fillablesOf} from '../src/attributes';
import {Logic} from '../src/logic';
import {kRequiredClassic, packageOf, typesOfEntries} from './entries.mjs';
import {partsOf} from './parts.mjs';
import {readmeOf} from './readme.mjs';
import {typesOf} from './types.mjs';

const [source, wasm, version, out] = process.argv.slice(2);
/** @type {(...path: string[]) => string} */
const read = (...path) => readFileSync(join(source, ...path), 'utf8');
const logic = Logic.of(new WebAssembly.Module(readFileSync(wasm)));
/** @type {(count: number) => number[]} */
const range = (count) => Array.from({length: count}, (_, at) => at + 1);
const contract = {
  members: range(logic.memberCount).map((number) => {
    const traits = logic.memberTraits(number);
    const type = [undefined, 'String', 'Integer', 'Boolean'][traits & 3];
    const isMethod = (traits & 16) !== 0;
    return {
      name: logic.memberName(number),
      type,
      canSet: (traits & 4) !== 0,
      canGet: (traits & 8) !== 0,
      isMethod,
      argument: isMethod && type !== undefined ? logic.memberArgument(number) : undefined,
    };
  }),
  events: range(logic.eventCount).map((number) => logic.eventName(number)),
};
const types = typesOf(contract, source);

/**
 * @typedef {object} Declaration
 * @property {boolean} isStatic
 * @property {string | undefined} access  get, set or readonly; undefined for what is none of these
 * @property {string} name
 * @property {string | undefined} parameters
 * @property {string} type
 * @property {string} comment
 */
/**
 * @typedef {object} ManifestMember
 * @property {string} kind
 * @property {string} name
 * @property {string} [description]
 * @property {boolean} [readonly]
 * @property {boolean} [static]
 * @property {{text: string}} [type]
 * @property {{name: string, type: {text: string}}[]} [parameters]
 * @property {{type: {text: string}}} [return]
 */

// Reads the declarations of the types, whose comments become the descriptions of the manifest.
/** @type {(text: string, start: string) => Declaration[]} */
function declarationsIn(text, start) {
  const body = text.slice(text.indexOf(start)).split('\n}\n')[0].split('\n').slice(1);
  /** @type {Declaration[]} */
  const found = [];
  let comment = '';
  for (const line of body) {
    const commented = /^ {2}\/\*\* (.*) \*\/$/.exec(line);
    if (commented !== null) comment = commented[1];
    const declared =
      /^ {2}(static )?(get |set |readonly )?(\w+)(<\w+>)?(\((.*?)\))?(?:: (.*))?;$/.exec(line);
    if (declared !== null) {
      const [, isStatic, access, name, , , parameters, type] = declared;
      found.push({
        isStatic: isStatic !== undefined,
        access: access?.trim(),
        name,
        parameters,
        type,
        comment,
      });
      comment = '';
    } else if (commented === null) {
      comment = '';
    }
  }
  return found;
}
/** @type {(pattern: RegExp, text: string) => string[]} */
function matched(pattern, text) {
  const found = pattern.exec(text);
  if (found === null) throw new Error(`no ${pattern} in the types`);
  return found;
}
/** @type {(text: string) => {name: string, type: {text: string}, optional?: boolean}} */
const parameter = (text) => {
  const [, name, mark, type] = matched(/^(\w+)(\??): (.*)$/, text);
  return {name, type: {text: type}, ...(mark === '' ? {} : {optional: true})};
};
/** @type {(comment: string) => {description?: string}} */
const described = (comment) => (comment === '' ? {} : {description: comment});
/** @type {(className: string, types: string) => ManifestMember[]} */
function membersOf(className, types) {
  /** @type {Map<string, ManifestMember>} */
  const members = new Map();
  for (const each of declarationsIn(types, `export declare class ${className} `)) {
    if (each.name.endsWith('EventListener')) continue; // every element has it; here only types differ
    if (each.access === undefined) {
      members.set(each.name, {
        kind: 'method',
        name: each.name,
        ...(each.isStatic ? {static: true} : {}),
        ...described(each.comment),
        ...(each.parameters ? {parameters: [parameter(each.parameters)]} : {}),
        return: {type: {text: each.type}},
      });
      continue;
    }
    const before = members.get(each.name);
    /** @type {ManifestMember} */
    const field = before ?? {
      kind: 'field',
      name: each.name,
      ...(each.isStatic ? {static: true} : {}),
      readonly: true,
    };
    if (each.comment !== '')
      field.description = [field.description, each.comment].filter(Boolean).join(' ');
    if (each.access === 'set') {
      delete field.readonly;
      field.type = {
        text: String(each.parameters).replace(/^value: (.*?)( \| null \| undefined)?$/, '$1'),
      };
    } else if (each.type !== 'undefined') {
      field.type = {text: each.type};
    }
    members.set(each.name, field);
  }
  return [...members.values()];
}
// The comment of several lines above a class.
/** @type {(className: string, types: string) => string} */
function descriptionOf(className, types) {
  const end = types.indexOf(`export declare class ${className} `);
  return types
    .slice(types.lastIndexOf('/**\n', end), end)
    .replace(/^\/\*\*|\*\/\n$/g, '')
    .replace(/\n \*( |$)/gm, '\n')
    .trim();
}
/** @type {(map: string, types: string) => object[]} */
const eventsOf = (map, types) =>
  declarationsIn(types, `export interface ${map} `).map(({name, type, comment}) => ({
    name,
    type: {text: type},
    ...described(comment),
  }));
/** @type {(members: ManifestMember[], attribute: string, name: string) => object} */
const attributeOf = (members, attribute, name) => {
  const member = members.find((each) => each.name === name);
  return {
    name: attribute,
    type: member?.type ?? {text: 'string'},
    ...described(member?.description ?? ''),
    fieldName: name,
  };
};
const elementMembers = membersOf('ZOLT20MapControlElement', types);
// An attribute for each writable member, and the attributes of a control of a form.
const attributes = [
  ...fillablesOf(logic),
  ...['name', 'disabled', 'readOnly', 'required'].map((name) => ({
    attribute: name.toLowerCase(),
    name,
  })),
].map(({attribute, name}) => attributeOf(elementMembers, attribute, name));
const style = read('faces/web/src/form.css');
const cssProperties = [
  ...style.matchAll(
    /^(?: {2}\/\* (.*) \*\/\n)? {2}--_[\w-]+:\s+var\(\s*(--zolt20-[\w-]+),\s+([^;]*)\);$/gm,
  ),
]
  .filter((match) => match.index < style.indexOf('\n}\n'))
  .map(([, comment, name, value]) => ({
    name,
    default: value.replace(/\s+/g, ' '),
    ...(comment ? {description: comment} : {}),
  }));
const kModule = 'zolt20-map-control.js';
const kBoxModule = 'zolt21-synt-text-box.js';
const box = read('faces/web/package/zolt21-synt-text-box.d.ts');
const boxMembers = membersOf('ZOLT21SyntTextBoxElement', box);
const manifest = {
  schemaVersion: '2.1.0',
  modules: [
    {
      kind: 'javascript-module',
      path: kModule,
      declarations: [
        {
          kind: 'class',
          name: 'ZOLT20MapControlElement',
          tagName: 'zolt20-map-control',
          customElement: true,
          description: descriptionOf('ZOLT20MapControlElement', types),
          superclass: {name: 'HTMLElement'},
          attributes,
          members: elementMembers,
          events: eventsOf('ZOLT20MapControlEventMap', types),
          cssProperties,
          cssParts: partsOf(logic),
        },
        {
          kind: 'class',
          name: 'ZOLT20Error',
          description: matched(/\/\*\* (.*) \*\/\nexport declare class ZOLT20Error/, types)[1],
          superclass: {name: 'Error'},
          members: membersOf('ZOLT20Error', types),
        },
      ],
      exports: [
        {
          kind: 'custom-element-definition',
          name: 'zolt20-map-control',
          declaration: {name: 'ZOLT20MapControlElement', module: kModule},
        },
        {
          kind: 'js',
          name: 'ZOLT20MapControlElement',
          declaration: {name: 'ZOLT20MapControlElement', module: kModule},
        },
        {kind: 'js', name: 'ZOLT20Error', declaration: {name: 'ZOLT20Error', module: kModule}},
      ],
    },
    {
      kind: 'javascript-module',
      path: kBoxModule,
      declarations: [
        {
          kind: 'class',
          name: 'ZOLT21SyntTextBoxElement',
          tagName: 'zolt21-synt-text-box',
          customElement: true,
          description: descriptionOf('ZOLT21SyntTextBoxElement', box),
          superclass: {name: 'HTMLElement'},
          attributes: ['Text', 'Highlight', 'rightmargin', 'name', 'disabled'].map((name) =>
            attributeOf(boxMembers, name.toLowerCase(), name),
          ),
          members: boxMembers,
          events: eventsOf('ZOLT21SyntTextBoxEventMap', box),
        },
      ],
      exports: [
        {
          kind: 'custom-element-definition',
          name: 'zolt21-synt-text-box',
          declaration: {name: 'ZOLT21SyntTextBoxElement', module: kBoxModule},
        },
        {
          kind: 'js',
          name: 'ZOLT21SyntTextBoxElement',
          declaration: {name: 'ZOLT21SyntTextBoxElement', module: kBoxModule},
        },
      ],
    },
  ],
};
writeFileSync(join(out, 'custom-elements.json'), `${JSON.stringify(manifest, null, 2)}\n`);

const [declared] = manifest.modules[0].declarations;
const template = read('faces/web/package/README.md.in');
// @ts-expect-error the first declaration is the element's
writeFileSync(join(out, 'README.md'), readmeOf(template, version, contract.members, declared));
copyFileSync(join(source, 'docs/pictures/web-page1-light.png'), join(out, 'picture.png'));
writeFileSync(join(out, 'package.json'), `${JSON.stringify(packageOf(version), null, 2)}\n`);
writeFileSync(join(out, 'zolt20-map-control.classic.cjs'), kRequiredClassic);
const language = read('faces/web/package/zolt20-language.d.ts');
for (const [name, text] of Object.entries(typesOfEntries(types, language, box)))
  writeFileSync(join(out, name), text);
