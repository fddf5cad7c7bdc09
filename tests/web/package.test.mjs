// The package as others get it: its size, its files, and what its two descriptions say of the
// contract.
import assert from 'node:assert/strict';
import {spawnSync} from 'node:child_process';
import {existsSync, mkdtempSync, readdirSync, readFileSync, rmSync, writeFileSync} from 'node:fs';
import {tmpdir} from 'node:os';
import path from 'node:path';
import {describe, test} from 'node:test';
import {brotliCompressSync, gzipSync} from 'node:zlib';

import {typesOf} from '../../faces/web/package/types.mjs';
import {kEvents, kMembers} from './form.mjs';
import {kPackage, kRoot, kTests, require} from './places.mjs';

/** @import {Manifest, ManifestClass} from './types' */

const kMostBytes = 150000;
/** @type {Record<string, string>} */
const kTypes = {String: 'string', Integer: 'number', Boolean: 'boolean'};
// What the element has beside the contract.
const kOwnMembers = [
  'UserControl_InitProperties',
  'UserControl_ReadProperties',
  'UserControl_WriteProperties',
  'undoEnabled',
  'canUndo',
  'canRedo',
  'undo',
  'redo',
  'asStep',
  'tableNames',
  'texts',
  'dump',
  'madeGesture',
  'observedAttributes',
  'formAssociated',
  ...['form', 'labels', 'type', 'value', 'name', 'disabled', 'readOnly', 'required'],
  ...['validity', 'validationMessage', 'willValidate'],
  ...['checkValidity', 'reportValidity', 'setCustomValidity'],
  'statistics',
  'version',
  'focus',
];
const kOwnEvents = [
  'propertychanged',
  'failed',
  'message',
  'historychanged',
  'gesturemade',
  'undone',
  'redone',
  'input',
  'change',
];

/** @type {(file: string) => string} */
const inPackage = (file) => path.join(kPackage, file);
/** @type {(file: string) => string} */
const textOf = (file) => readFileSync(inPackage(file), 'utf8');
/** @type {(file: string) => any} */
const jsonOf = (file) => JSON.parse(textOf(file));

describe('the package', () => {
  test('is small', () => {
    /** @type {(file: string) => number} */
    const packed = (file) =>
      gzipSync(readFileSync(inPackage(`zolt20-map-control.${file}`)), {level: 9}).length;
    const lean = packed('lean.js') + packed('wasm');
    assert.ok(lean < kMostBytes, `${lean} bytes packed`);
    for (const file of ['js', 'cjs', 'classic.js'])
      assert.ok(packed(file) < lean * 1.05, `${packed(file)} bytes packed, ${lean} in two files`);
  });

  test('is as large as docs/web.md tells', () => {
    const page = readFileSync(path.join(kRoot, 'docs/web.md'), 'utf8');
    const rows = [
      ...page.matchAll(/^\| (`zolt2[01]-.*) \| (\d+) kB \| (\d+) kB \| (\d+) kB \|$/gm),
    ];
    assert.equal(rows.length, 5);
    for (const [, names, ...told] of rows) {
      const files = [...names.matchAll(/`(zolt2[01]-[a-z0-9-]+)?\.([\w.]+)`/g)].map(
        ([, name, end]) => readFileSync(inPackage(`${name ?? 'zolt20-map-control'}.${end}`)),
      );
      assert.ok(files.length > 0);
      const ways = [
        (/** @type {Buffer} */ bytes) => bytes,
        (/** @type {Buffer} */ bytes) => gzipSync(bytes, {level: 9}),
        (/** @type {Buffer} */ bytes) => brotliCompressSync(bytes),
      ];
      for (const [at, pack] of ways.entries()) {
        const size = files.reduce((sum, bytes) => sum + pack(bytes).length, 0);
        const ratio = size / 1000 / Number(told[at]);
        assert.ok(ratio > 0.9 && ratio < 1.1, `${names}: ${size} bytes, not ${told[at]} kB`);
      }
    }
  });

  test('has all that its list names, and loads nothing else', () => {
    const list = jsonOf('package.json');
    /** @type {(entry: string | object) => string[]} */
    const filesOf = (entry) =>
      typeof entry === 'string' ? [entry] : Object.values(entry).flatMap(filesOf);
    const exported = filesOf(list.exports);
    const named = [...exported, list.main, list.module, list.types, list.customElements];
    assert.ok(named.length > 10);
    for (const file of named) assert.ok(existsSync(inPackage(file)), `${file} is not there`);
    assert.equal(list.name, 'zolt20-map-control');
    assert.equal(list.version, readFileSync(path.join(kRoot, 'VERSION'), 'utf8').trim());
    assert.equal(list.type, 'module');
    assert.equal(list.dependencies, undefined);
    const scripts = readdirSync(kPackage).filter((name) => /\.c?js$/.test(name));
    assert.equal(scripts.length, 9);
    for (const file of scripts) {
      assert.doesNotMatch(
        textOf(file),
        /https?:\/\/(?!www\.w3\.org\/)/,
        `${file} names an address`,
      );
      assert.doesNotMatch(textOf(file), /\beval\(|new Function\(/, `${file} makes code of texts`);
    }
  });
});

describe('custom-elements.json', () => {
  /** @type {Manifest} */
  const manifest = jsonOf('custom-elements.json');
  const classes = manifest.modules.flatMap(({declarations}) => declarations);
  const declaration = /** @type {ManifestClass} */ (
    classes.find(({tagName}) => tagName === 'zolt20-map-control')
  );

  test('keeps to its schema', () => {
    const {default: Ajv} = require('ajv');
    const schema = require('custom-elements-manifest/schema.json');
    const validate = new Ajv({allErrors: true, strict: false}).compile(schema);
    assert.ok(validate(manifest), JSON.stringify(validate.errors, null, 1));
    assert.equal(manifest.schemaVersion, '2.1.0');
    // And one that does not is told from it.
    assert.equal(validate({...manifest, modules: [{kind: 'other'}]}), false);
  });

  test('names the members of the contract, and those of the element', () => {
    const names = declaration.members.map(({name}) => name);
    assert.deepEqual(
      names.filter((name) => !kOwnMembers.includes(name)),
      kMembers.map(({name}) => name),
    );
    assert.deepEqual(
      kOwnMembers.filter((name) => !names.includes(name)),
      [],
    );
  });

  test('tells of each its type, and whether it can be written', () => {
    const wrong = [];
    for (const {name, type, canSet, isMethod, argument} of kMembers) {
      const member = declaration.members.find((one) => one.name === name);
      const expected = isMethod
        ? {
            kind: 'method',
            parameters: argument === undefined ? [] : [`${argument}: ${kTypes[type ?? '']}`],
          }
        : {kind: 'field', readonly: !canSet, type: kTypes[type ?? '']};
      const said = isMethod
        ? {
            kind: member?.kind,
            parameters: (member?.parameters ?? []).map((one) => `${one.name}: ${one.type?.text}`),
          }
        : {kind: member?.kind, readonly: member?.readonly ?? false, type: member?.type?.text};
      if (JSON.stringify(said) !== JSON.stringify(expected))
        wrong.push(`${name}: ${JSON.stringify(said)}`);
    }
    assert.deepEqual(wrong, []);
  });

  test('names an attribute for each member that can be written', () => {
    const said = declaration.attributes.map(({name, fieldName}) => [fieldName, name]);
    const written = kMembers.filter(({canSet}) => canSet).map(({name}) => name);
    assert.deepEqual(
      said.map(([field]) => field).sort(),
      [...written, 'name', 'disabled', 'readOnly', 'required'].sort(),
    );
    assert.equal(new Set(said.map(([, name]) => name)).size, said.length);
    assert.deepEqual(declaration.attributes.find(({name}) => name === 'tab')?.type, {
      text: 'number',
    });
  });

  test('names the events of the contract, and those of the element', () => {
    const names = declaration.events.map(({name}) => name);
    assert.deepEqual(
      names.filter((name) => !kOwnEvents.includes(name)),
      kEvents,
    );
    assert.deepEqual(
      kOwnEvents.filter((name) => !names.includes(name)),
      [],
    );
    for (const {name, type} of declaration.events)
      assert.match(type.text, kEvents.includes(name) ? /^Event$/ : /^(Custom)?Event/, name);
  });

  test('names the parts and custom properties that the element has', () => {
    const script = textOf('zolt20-map-control.js');
    assert.ok(declaration.cssProperties.length > 0 && declaration.cssParts.length > 0);
    for (const {name} of declaration.cssProperties) assert.ok(script.includes(name), name);
  });

  test('names what the box of statements has', () => {
    const box = /** @type {ManifestClass} */ (
      classes.find(({tagName}) => tagName === 'zolt21-synt-text-box')
    );
    const [, observed] = /** @type {RegExpMatchArray} */ (
      /observedAttributes = \[(.*?)\]/.exec(
        readFileSync(path.join(kRoot, 'faces/web/src/synt_text_box.ts'), 'utf8'),
      )
    );
    const attributes = box.attributes.map(({name}) => `'${name}'`);
    // Those of any element are not told, and those of any control of a form are not observed.
    assert.deepEqual(
      attributes.filter((name) => !["'name'", "'disabled'"].includes(name)),
      observed.split(', ').filter((name) => name !== "'aria-label'"),
    );
    assert.deepEqual(
      box.attributes.map(({fieldName, type}) => `${fieldName}: ${type.text}`),
      [
        'Text: string',
        'Highlight: boolean',
        'rightmargin: number',
        'name: string',
        'disabled: boolean',
      ],
    );
    assert.deepEqual(
      box.events.map(({name}) => name),
      ['TabChain', 'propertychanged'],
    );
    for (const name of ['Text', 'Highlight', 'rightmargin', 'form', 'labels', 'name', 'disabled'])
      assert.ok(
        box.members.some((member) => member.name === name),
        name,
      );
  });

  test('has words for everything that it names', () => {
    assert.equal(classes.length, 3);
    for (const {members, events = [], cssProperties = [], cssParts = []} of classes) {
      const all = [...members, ...events, ...cssProperties, ...cssParts];
      assert.ok(all.length > 1);
      const silent = all.filter(({description = ''}) => description.trim() === '');
      assert.deepEqual(
        silent.map(({name}) => name),
        [],
      );
    }
    for (const {name, default: value} of declaration.cssProperties) assert.ok(value, name);
  });
});

describe('the scripts of the element', () => {
  test('have no error of types', () => {
    const project = path.join(kRoot, 'faces/web');
    const {stdout, status} = spawnSync(
      process.execPath,
      [require.resolve('typescript/bin/tsc'), '-p', project],
      {
        encoding: 'utf8',
      },
    );
    assert.equal(stdout, '');
    assert.equal(status, 0);
  });
});

describe('the types', () => {
  /** @type {(source: string) => {stdout: string, status: number | null}} */
  const compile = (source) => {
    const folder = mkdtempSync(path.join(tmpdir(), 'zolt20-'));
    try {
      writeFileSync(path.join(folder, 'host.ts'), source);
      const options = {
        strict: true,
        noEmit: true,
        target: 'es2022',
        module: 'esnext',
        moduleResolution: 'bundler',
        lib: ['es2022', 'dom', 'dom.iterable'],
        types: [],
        exactOptionalPropertyTypes: true,
        skipLibCheck: false,
        paths: {'zolt20-map-control': [inPackage('zolt20-map-control.d.ts')]},
      };
      writeFileSync(
        path.join(folder, 'tsconfig.json'),
        JSON.stringify({compilerOptions: options, files: ['host.ts']}),
      );
      const {stdout, status} = spawnSync(
        process.execPath,
        [require.resolve('typescript/bin/tsc'), '-p', folder],
        {
          encoding: 'utf8',
        },
      );
      return {stdout, status};
    } finally {
      rmSync(folder, {recursive: true});
    }
  };
  const host = readFileSync(path.join(kTests, 'typed_host.ts'), 'utf8');

  test('are those that the list of the contract gives', () => {
    const types = typesOf({members: kMembers, events: kEvents}, kRoot);
    assert.equal(textOf('zolt20-map-control.d.ts'), types);
  });

  test('name the attributes of the manifest for templates', () => {
    const [, body] = textOf('zolt20-map-control.d.ts').split(
      /interface ZOLT20MapControlAttributes \{(.*?)\n\}/s,
    );
    const names = [...body.matchAll(/^ {2}'?([\w-]+)'?\?:/gm)].map(([, name]) => name);
    const {modules} = /** @type {Manifest} */ (jsonOf('custom-elements.json'));
    const {attributes} = modules[0].declarations[0];
    // A form's own attribute is the browser's.
    assert.deepEqual(
      names.filter((name) => name !== 'form').sort(),
      attributes.map(({name}) => name).sort(),
    );
  });

  test('let a host compile, and refuse what is wrong', () => {
    const {stdout, status} = compile(host);
    assert.equal(stdout, '');
    assert.equal(status, 0);
  });

  test('refuse each of the wrong uses by itself', () => {
    const count = host.split('@ts-expect-error').length - 1;
    assert.ok(count > 15);
    const {stdout, status} = compile(host.replaceAll('@ts-expect-error', ''));
    assert.notEqual(status, 0);
    const refused = stdout
      .split('\n')
      .filter((line) => / error TS\d+:/.test(line) && !line.startsWith(' '));
    assert.equal(refused.length, count, stdout);
  });
});
