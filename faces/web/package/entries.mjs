// The entries of the package: package.json, and the types of each.
import {kFrameworks} from './frameworks.mjs';

const kName = 'zolt20-map-control';
const kLanguage = 'zolt20-language';
const kBox = 'zolt21-synt-text-box';

/// The files of the types, by their names, made of those of the element, of the statement language
/// and of the box by itself. Each entry has them for import and for require().
/** @type {(types: string, language: string, box: string) => Record<string, string>} */
export function typesOfEntries(types, language, box) {
  /** @type {Record<string, string>} */
  const files = {};
  for (const [script, declared] of [
    ['js', 'd.ts'],
    ['cjs', 'd.cts'],
  ]) {
    const all = `./${kName}.${script}`;
    files[`${kName}.${declared}`] = types;
    files[`${kLanguage}.${declared}`] = language;
    files[`${kBox}.${declared}`] = box;
    files[`${kName}.lean.${declared}`] = `export * from '${all}';\n`;
    files[`${kName}.classic.${declared}`] = typesOfGlobals(all);
    for (const [framework, typesFor] of Object.entries(kFrameworks))
      files[`${framework}.${declared}`] = typesFor([all, `./${kBox}.${script}`]);
  }
  return files;
}

// What the classic script leaves behind is seen everywhere.
/** @type {(all: string) => string} */
const typesOfGlobals = (all) =>
  `import type * as zolt20 from '${all}';

declare global {
  var ZOLT20MapControlElement: typeof zolt20.ZOLT20MapControlElement;
  interface ZOLT20MapControlElement extends zolt20.ZOLT20MapControlElement {}
  var ZOLT20Error: typeof zolt20.ZOLT20Error;
  interface ZOLT20Error extends zolt20.ZOLT20Error {}
}
`;

/// What require() gives for the classic script: Node takes that script itself for a module.
export const kRequiredClassic = `Object.assign(globalThis, require('./${kName}.cjs'));\n`;

/** @type {(imported: string, required: string, types?: string) => object} */
const entry = (imported, required, types = imported) => ({
  import: {types: `./${types}.d.ts`, default: `./${imported}.js`},
  require: {types: `./${types}.d.cts`, default: `./${required}.cjs`},
});

const kPeers = ['@types/react', ...Object.keys(kFrameworks)];

/// The content of package.json.
/** @type {(version: string) => object} */
export const packageOf = (version) => ({
  name: kName,
  version,
  description: 'A control that composes mapping statements, as a custom element',
  keywords: [
    'custom-element',
    'web-component',
    'mapping',
    'statement',
    'query-builder',
    'select',
    'webassembly',
  ],
  type: 'module',
  main: `./${kName}.cjs`,
  module: `./${kName}.js`,
  types: `./${kName}.d.ts`,
  exports: {
    '.': entry(kName, kName),
    './lean': entry(`${kName}.lean`, kName, `${kName}.lean`),
    './classic': entry(`${kName}.classic`, `${kName}.classic`),
    // The same script, with the types that templates of a framework go by.
    ...Object.fromEntries(
      Object.keys(kFrameworks).map((framework) => [
        `./${framework}`,
        entry(kName, kName, framework),
      ]),
    ),
    './language': entry(kLanguage, kLanguage),
    './text-box': entry(kBox, kBox),
    './wasm': `./${kName}.wasm`,
    './custom-elements.json': './custom-elements.json',
    './package.json': './package.json',
  },
  customElements: 'custom-elements.json',
  sideEffects: [kName, kBox].flatMap((script) => [`./${script}*.js`, `./${script}*.cjs`]),
  files: [
    `${kName}.*`,
    `${kLanguage}.*`,
    `${kBox}.*`,
    ...Object.keys(kFrameworks).map((framework) => `${framework}.d.*`),
    'custom-elements.json',
    'picture.png',
  ],
  engines: {node: '>=18'},
  // Their types are read by those of the entries above, where a project has them.
  peerDependencies: Object.fromEntries(kPeers.map((peer) => [peer, '*'])),
  peerDependenciesMeta: Object.fromEntries(kPeers.map((peer) => [peer, {optional: true}])),
});
