// What the bundler makes of other files.
declare module '*.css' {
  const text: string;
  export default text;
}
declare module '*.wasm.gz' {
  const base64: string;
  export default base64;
}
// The library that unpacks what gzip has packed.
declare module 'pako' {
  export function ungzip(packed: Uint8Array): Uint8Array<ArrayBuffer>;
}
// The version of the package.
declare const ZOLT20_VERSION: string;
