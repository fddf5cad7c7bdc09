// The types of the elements in templates of frameworks: an entry for each framework, so that no
// project needs the types of another one. Each entry also exports what the module exports.

/** @typedef {{tag: string, name: string}} ElementName */
/** @type {readonly ElementName[]} */
const kElements = [
  {tag: 'zolt20-map-control', name: 'ZOLT20MapControl'},
  {tag: 'zolt21-synt-text-box', name: 'ZOLT21SyntTextBox'},
];

/** @type {(each: (element: ElementName) => string) => string} */
const ofAll = (each) => kElements.map(each).join('\n');

/** @type {(imports: string, names: string[], body: string) => (scripts: string[]) => string} */
const typesOf = (imports, names, body) => (scripts) => {
  const imported = kElements.map(
    ({name}, at) =>
      `import type { ${names.map((each) => `${name}${each}`).join(', ')} } from '${scripts[at]}';`,
  );
  return `${imports}
${imported.join('\n')}

export * from '${scripts[0]}';

${body}`;
};

/// For each framework a function that returns the text of its types. `scripts` are the names of the
/// modules to import from: of the map control, then of the box of statements.
/** @type {Readonly<Record<string, (scripts: string[]) => string>>} */
export const kFrameworks = {
  react: typesOf(
    "import type { DetailedHTMLProps, HTMLAttributes } from 'react';",
    ['Element', 'Props'],
    `declare module 'react' {
  namespace JSX {
    interface IntrinsicElements {
${ofAll(
  ({tag, name}) =>
    `      '${tag}': DetailedHTMLProps<HTMLAttributes<${name}Element>, ${name}Element> & ${name}Props;`,
)}
    }
  }
}
`,
  ),
  preact: typesOf(
    "import type { HTMLAttributes } from 'preact';",
    ['Element', 'Props'],
    `declare module 'preact' {
  namespace JSX {
    interface IntrinsicElements {
${ofAll(
  ({tag, name}) =>
    `      '${tag}': Omit<HTMLAttributes<${name}Element>, keyof ${name}Props> & ${name}Props;`,
)}
    }
  }
}
`,
  ),
  vue: typesOf(
    "import type { EmitFn, HTMLAttributes, PublicProps } from 'vue';",
    ['Element', 'Events', 'Props'],
    `// Templates name an attribute in kebab case, and their checker looks for it in camel case.
type CamelCase<Name extends string> = Name extends \`\${infer First}-\${infer Rest}\` ? \`\${First}\${Capitalize<CamelCase<Rest>>}\` : Name;
type InBothCases<Props> = {
  [Name in keyof Props as Name | (Name extends string ? CamelCase<Name> : never)]: Props[Name];
};

declare module 'vue' {
  interface GlobalComponents {
${ofAll(
  ({tag, name}) => `    '${tag}': new () => ${name}Element & {
      /** @deprecated Of templates alone: an element does not have it. */
      $props: HTMLAttributes & PublicProps & InBothCases<${name}Props>;
      /** @deprecated Of templates alone: an element does not have it. */
      $emit: EmitFn<{ [Name in keyof ${name}Events]: (event: ${name}Events[Name]) => void }>;
    };`,
)}
  }
}
`,
  ),
  svelte: typesOf(
    "import type { HTMLAttributes } from 'svelte/elements';",
    ['Element', 'Events', 'Props'],
    `type OldListeners<Events> = {
  [Name in keyof Events as Name extends string ? \`on:\${Name}\` : never]?: ((event: Events[Name]) => void) | null | undefined;
};

declare module 'svelte/elements' {
  interface SvelteHTMLElements {
${ofAll(
  ({tag, name}) =>
    `    '${tag}': HTMLAttributes<${name}Element> & ${name}Props & OldListeners<${name}Events>;`,
)}
  }
}
`,
  ),
};
