// The types of files that the bundler imports: style sheets as texts, modules as letters.
declare module '*.css' {
  const text: string;
  export default text;
}
/** The bytes of a module as a letter each, and the letter of each byte. */
declare module '*.wasm.json' {
  export const text: string;
  export const letters: string;
}
// The version of the package.
declare const ZOLT20_VERSION: string;
