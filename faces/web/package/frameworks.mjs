// The types by which templates of frameworks know the element: an entry for each framework, so that
// nobody needs the types of another one. Each gives what the module itself gives, too.

const kName = 'zolt20-map-control';

/** @type {(imports: string, body: string) => (script: string) => string} */
const typesOf = (imports, body) => (script) =>
  `${imports.replaceAll('@SCRIPT@', script)}
export * from '${script}';

${body}`;

/// The text of the types of each framework, by the script that they belong to.
/** @type {Readonly<Record<string, (script: string) => string>>} */
export const kFrameworks = {
  react: typesOf(
    `import type { DetailedHTMLProps, HTMLAttributes } from 'react';
import type { ZOLT20MapControlElement, ZOLT20MapControlProps } from '@SCRIPT@';
`,
    `declare module 'react' {
  namespace JSX {
    interface IntrinsicElements {
      '${kName}': DetailedHTMLProps<HTMLAttributes<ZOLT20MapControlElement>, ZOLT20MapControlElement> & ZOLT20MapControlProps;
    }
  }
}
`,
  ),
  preact: typesOf(
    `import type { HTMLAttributes } from 'preact';
import type { ZOLT20MapControlElement, ZOLT20MapControlProps } from '@SCRIPT@';
`,
    `declare module 'preact' {
  namespace JSX {
    interface IntrinsicElements {
      '${kName}': Omit<HTMLAttributes<ZOLT20MapControlElement>, keyof ZOLT20MapControlProps> & ZOLT20MapControlProps;
    }
  }
}
`,
  ),
  vue: typesOf(
    `import type { EmitFn, HTMLAttributes, PublicProps } from 'vue';
import type { ZOLT20MapControlElement, ZOLT20MapControlEvents, ZOLT20MapControlProps } from '@SCRIPT@';
`,
    `// Templates name an attribute in kebab case, and their checker looks for it in camel case.
type CamelCase<Name extends string> = Name extends \`\${infer First}-\${infer Rest}\` ? \`\${First}\${Capitalize<CamelCase<Rest>>}\` : Name;
type Props = {
  [Name in keyof ZOLT20MapControlProps as Name | CamelCase<Name>]: ZOLT20MapControlProps[Name];
};

declare module 'vue' {
  interface GlobalComponents {
    '${kName}': new () => ZOLT20MapControlElement & {
      /** @deprecated Of templates alone: an element does not have it. */
      $props: HTMLAttributes & PublicProps & Props;
      /** @deprecated Of templates alone: an element does not have it. */
      $emit: EmitFn<{ [Name in keyof ZOLT20MapControlEvents]: (event: ZOLT20MapControlEvents[Name]) => void }>;
    };
  }
}
`,
  ),
  svelte: typesOf(
    `import type { HTMLAttributes } from 'svelte/elements';
import type { ZOLT20MapControlElement, ZOLT20MapControlEvents, ZOLT20MapControlProps } from '@SCRIPT@';
`,
    `type OldListeners = {
  [Name in keyof ZOLT20MapControlEvents as \`on:\${Name}\`]?: ((event: ZOLT20MapControlEvents[Name]) => void) | null | undefined;
};

declare module 'svelte/elements' {
  interface SvelteHTMLElements {
    '${kName}': HTMLAttributes<ZOLT20MapControlElement> & ZOLT20MapControlProps & OldListeners;
  }
}
`,
  ),
};
