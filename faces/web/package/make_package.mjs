// Makes what tells others of the element: types, manifest, package.json. Members and events come
// from the list of the contract in the module itself, what they do from the comments of the
// headers, the rest from the template of the types and the style sheet.
//   node make_package.mjs SOURCE WASM VERSION OUT       SOURCE is the root of the repository
import {readFileSync, readdirSync, writeFileSync} from 'node:fs';
import {join} from 'node:path';

import {Logic} from '../src/logic';

const [source, wasm, version, out] = process.argv.slice(2);
const read = (...path) => readFileSync(join(source, ...path), 'utf8');
const logic = Logic.of(new WebAssembly.Module(readFileSync(wasm)));
const kTypes = ['undefined', 'string', 'number', 'boolean'];

// The comment before a declaration of a header. One that stands before several belongs to all of
// them.
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
const control = read('shell', 'control.h');
const host = read('shell', 'host.h');
const docLines = (text) => (text === '' ? '' : `  /** ${text} */\n`);

function typesOfMember(number) {
  const name = logic.memberName(number);
  const traits = logic.memberTraits(number);
  const type = kTypes[traits & 3];
  const written = () =>
    docLines(commentBefore(control, new RegExp(`^  void ${name}\\(\\w+ \\w+\\);`)));
  const gotten = () => docLines(commentBefore(control, new RegExp(`^  \\w+ ${name}\\(\\)`)));
  if ((traits & 16) !== 0) {
    const argument = (traits & 3) === 0 ? '' : `${logic.memberArgument(number)}: ${type}`;
    return `${docLines(commentBefore(control, new RegExp(`^  Variant ${name}\\(`)))}  ${name}(${argument}): undefined;`;
  }
  const isRead = (traits & 8) !== 0;
  const lines = [];
  if (isRead) lines.push(`${gotten()}  get ${name}(): ${type};`);
  // What can only be written reads as nothing.
  if ((traits & 4) !== 0 && !isRead)
    lines.push(`${written()}  get ${name}(): undefined;\n  set ${name}(value: ${type});`);
  if ((traits & 4) !== 0 && isRead) lines.push(`${written()}  set ${name}(value: ${type});`);
  return lines.join('\n');
}
const range = (count) => Array.from({length: count}, (_, at) => at + 1);
const events = range(logic.eventCount).map((number) => {
  const name = logic.eventName(number);
  return `${docLines(commentBefore(host, new RegExp(`void ${name}\\(`)))}  ${name}: Event;`;
});
const types = read('faces/web/package/zolt20-map-control.d.ts.in')
  .replace('@EVENTS@', () => events.join('\n'))
  .replace('@MEMBERS@', () => range(logic.memberCount).map(typesOfMember).join('\n'));
writeFileSync(join(out, 'zolt20-map-control.d.ts'), types);

// The manifest says what the types say.
function declarationsIn(text, start) {
  const body = text.slice(text.indexOf(start)).split('\n}\n')[0].split('\n').slice(1);
  const found = [];
  let comment = '';
  for (const line of body) {
    const commented = /^ {2}\/\*\* (.*) \*\/$/.exec(line);
    if (commented !== null) comment = commented[1];
    const declared = /^ {2}(static )?(get |set )?(\w+)(<\w+>)?(\((.*?)\))?(?:: (.*))?;$/.exec(line);
    if (declared !== null) {
      const [, isStatic, access, name, , call, parameters, type] = declared;
      found.push({
        isStatic: isStatic !== undefined,
        access: access?.trim(),
        name,
        isCall: call !== undefined,
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
const parameter = (text) => {
  const [, name, type] = /^(\w+): (.*)$/.exec(text);
  return {name, type: {text: type}};
};
const described = (comment) => (comment === '' ? {} : {description: comment});
const members = new Map();
for (const each of declarationsIn(types, 'export declare class ZOLT20MapControlElement')) {
  if (each.name.endsWith('EventListener')) continue; // of every element, and only typed here
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
  const field = before ?? {kind: 'field', name: each.name, readonly: true};
  if (each.comment !== '')
    field.description = [field.description, each.comment].filter(Boolean).join(' ');
  if (each.access === 'set') {
    delete field.readonly;
    field.type = {text: each.parameters.replace(/^value: /, '')};
  } else if (each.type !== 'undefined') {
    field.type = {text: each.type};
  }
  members.set(each.name, field);
}
const style = read('faces/web/src/style.css');
const cssProperties = [
  ...style.matchAll(/^(?: {2}\/\* (.*) \*\/\n)? {2}(--zolt20-[\w-]+):\s+([^;]*);$/gm),
]
  .filter((match) => match.index < style.indexOf('\n}\n'))
  .map(([, comment, name, value]) => ({
    name,
    default: value.replace(/\s+/g, ' '),
    ...(comment ? {description: comment} : {}),
  }));
const sources = readdirSync(join(source, 'faces/web/src'))
  .filter((name) => name.endsWith('.ts'))
  .map((name) => read('faces/web/src', name))
  .join('\n');
const parts = [
  ...new Set([...sources.matchAll(/part: '([\w ]+)'/g)].flatMap(([, names]) => names.split(' '))),
].sort();
const kModule = 'zolt20-map-control.js';
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
          description: /\/\*\*\n \* ([\s\S]*?)\n \*\/\nexport declare class ZOLT20MapControlElement/
            .exec(types)[1]
            .replace(/\n \*( |$)/gm, '\n')
            .trim(),
          superclass: {name: 'HTMLElement'},
          members: [...members.values()],
          events: declarationsIn(types, 'export interface ZOLT20MapControlEventMap').map(
            ({name, type, comment}) => ({name, type: {text: type}, ...described(comment)}),
          ),
          cssProperties,
          cssParts: parts.map((name) => ({name})),
        },
        {
          kind: 'class',
          name: 'ZOLT20Error',
          description: /\/\*\* (.*) \*\/\nexport declare class ZOLT20Error/.exec(types)[1],
          superclass: {name: 'Error'},
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
  ],
};
writeFileSync(join(out, 'custom-elements.json'), `${JSON.stringify(manifest, null, 2)}\n`);

const kClassic = 'zolt20-map-control.classic.js';
const kTyped = 'zolt20-map-control.d.ts';
const kWasm = 'zolt20-map-control.wasm';
writeFileSync(
  join(out, 'package.json'),
  `${JSON.stringify(
    {
      name: 'zolt20-map-control',
      version,
      description: 'A control that composes mapping statements, as a custom element',
      type: 'module',
      main: `./${kModule}`,
      module: `./${kModule}`,
      types: `./${kTyped}`,
      exports: {
        '.': {types: `./${kTyped}`, default: `./${kModule}`},
        './classic': `./${kClassic}`,
        './wasm': `./${kWasm}`,
        './custom-elements.json': './custom-elements.json',
      },
      customElements: 'custom-elements.json',
      sideEffects: true,
      files: [kModule, kClassic, kWasm, kTyped, 'custom-elements.json'],
    },
    null,
    2,
  )}\n`,
);
