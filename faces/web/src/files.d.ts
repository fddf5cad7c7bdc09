// What the bundler makes of other files.
declare module '*.css' {
  const text: string;
  export default text;
}
declare module '*.wasm' {
  const bytes: Uint8Array<ArrayBuffer>;
  export default bytes;
}
