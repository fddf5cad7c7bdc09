// What the bundler makes of other files.
declare module '*.css' {
  const text: string;
  export default text;
}
/** The bytes of a module, a letter each, and the letter of each byte. */
declare module '*.wasm.json' {
  export const text: string;
  export const letters: string;
}
// The version of the package.
declare const ZOLT20_VERSION: string;
